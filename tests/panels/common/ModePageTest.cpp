#include "panels/common/ModePage.h"

#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"

#include <QPushButton>

#include <stdexcept>

namespace {

/// A page with two commands, one of which Refresh() enables or disables.
class Page : public ModePage {
public:
    explicit Page(QWidget* parent) : ModePage(parent, QStringLiteral("Page"), QString()) {}

    using ModePage::MayAct;
    using ModePage::RefreshPage;

    /// What is enabled.
    QString Offered() const {
        return QLatin1String(always.isEnabledTo(this) ? "a" : "") +
               QLatin1String(sometimes.isEnabledTo(this) ? "s" : "");
    }

    bool fails = false;
    bool dropped = false;
    bool offerSometimes = true;
    bool heldByOwnRun = false;
    int shown = 0;
    int refreshed = 0;
    int left = 0;

protected:
    void Clear() override { shown = 0; }
    bool Fill() override {
        shown = 1;
        always.setEnabled(true);
        Refresh();
        return !dropped;
    }
    void Refresh() override {
        ++refreshed;
        sometimes.setEnabled(offerSometimes);
        if (fails) {
            throw std::runtime_error("Lost.");
        }
    }
    std::vector<QWidget*> Commands() const override {
        return {const_cast<QPushButton*>(&always), const_cast<QPushButton*>(&sometimes)};
    }
    bool IsHeldByOthers() const override { return !heldByOwnRun && ModePage::IsHeldByOthers(); }
    void Leave() override { ++left; }

private:
    QPushButton always{this};
    QPushButton sometimes{this};
};

/// A window with a page.
class PageWindow : public FakeHostWindow {
public:
    void SetUp() { page.setNetwork(this, nullptr, nullptr, nullptr); }

    Page page{this};

protected:
    void SetControlsEnabled(bool enable) override { page.setCommandsEnabled(enable); }
};

} // namespace

/// The base of the module's pages.
class ModePageTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void failedSetUpLeavesThePageEmpty();
    void droppedNetworkLeavesThePageEmpty();
    void emptyPageIsNotEnabled();
    void holdAndRelease();
    void setUpDuringAHold();
    void refreshDuringAHoldEnablesNothing();
    void ownRunLeavesTheCommandsToRefresh();
    void failedRefreshAfterAHoldKeepsThePageUsable();
    void enablingRefreshesWithoutAHold();
    void leftPageIsNotUsed();
};

void ModePageTest::failedSetUpLeavesThePageEmpty() {
    PageWindow window;
    window.SetUp();
    QCOMPARE(window.page.Offered(), QStringLiteral("as"));
    window.page.fails = true;
    QVERIFY_EXCEPTION_THROWN(window.SetUp(), std::runtime_error);
    QVERIFY(!window.page.IsFilled());
    QVERIFY(!window.page.MayAct());
    QCOMPARE(window.page.shown, 0);
    QCOMPARE(window.page.Offered(), QString());
}

void ModePageTest::droppedNetworkLeavesThePageEmpty() {
    PageWindow window;
    window.page.dropped = true;
    window.SetUp();
    QVERIFY(!window.page.IsFilled());
    QCOMPARE(window.page.shown, 0);
    QCOMPARE(window.page.Offered(), QString());
}

void ModePageTest::emptyPageIsNotEnabled() {
    PageWindow window;
    window.page.dropped = true;
    window.SetUp();
    const int before = window.page.refreshed;
    { const ControlsHold hold = window.DisableControls(QStringLiteral("test")); }
    QCOMPARE(window.page.refreshed, before);
    QCOMPARE(window.page.Offered(), QString());
}

void ModePageTest::holdAndRelease() {
    PageWindow window;
    window.SetUp();
    {
        const ControlsHold hold = window.DisableControls(QStringLiteral("test"));
        QCOMPARE(window.page.Offered(), QString());
        window.page.offerSometimes = false;
    }
    QCOMPARE(window.page.Offered(), QStringLiteral("a"));
}

void ModePageTest::setUpDuringAHold() {
    PageWindow window;
    {
        const ControlsHold hold = window.DisableControls(QStringLiteral("test"));
        window.SetUp();
        QCOMPARE(window.page.shown, 1);
        QCOMPARE(window.page.Offered(), QString());
    }
    QCOMPARE(window.page.Offered(), QStringLiteral("as"));
}

void ModePageTest::refreshDuringAHoldEnablesNothing() {
    PageWindow window;
    window.SetUp();
    {
        const ControlsHold hold = window.DisableControls(QStringLiteral("test"));
        window.page.RefreshPage();
        QCOMPARE(window.page.Offered(), QString());
        window.page.fails = true;
        QVERIFY_EXCEPTION_THROWN(window.page.RefreshPage(), std::runtime_error);
        QCOMPARE(window.page.Offered(), QString());
        window.page.fails = false;
    }
    QCOMPARE(window.page.Offered(), QStringLiteral("as"));
}

void ModePageTest::ownRunLeavesTheCommandsToRefresh() {
    PageWindow window;
    window.SetUp();
    const ControlsHold hold = window.DisableControls(QStringLiteral("run"));
    window.page.heldByOwnRun = true;
    window.page.RefreshPage();
    QCOMPARE(window.page.Offered(), QStringLiteral("s"));
    window.page.fails = true;
    QVERIFY_EXCEPTION_THROWN(window.page.RefreshPage(), std::runtime_error);
    QCOMPARE(window.page.Offered(), QString());
    window.page.fails = false;
}

void ModePageTest::failedRefreshAfterAHoldKeepsThePageUsable() {
    PageWindow window;
    window.SetUp();
    boxes.ExpectError(&window, QStringLiteral("Tavik Library Test"), QStringLiteral("Lost."));
    {
        const ControlsHold hold = window.DisableControls(QStringLiteral("test"));
        // What was enabled before the hold is not forgotten by a refresh during it.
        window.page.offerSometimes = false;
        window.page.RefreshPage();
        window.page.offerSometimes = true;
        window.page.fails = true;
    }
    QCOMPARE(window.page.Offered(), QStringLiteral("as"));
    QVERIFY(window.page.MayAct());
    QVERIFY(WaitUntil([this] { return boxes.Count() == 1; }));
}

void ModePageTest::enablingRefreshesWithoutAHold() {
    PageWindow window;
    window.SetUp();
    window.page.offerSometimes = false;
    window.page.setCommandsEnabled(true);
    QCOMPARE(window.page.Offered(), QStringLiteral("a"));
}

void ModePageTest::leftPageIsNotUsed() {
    PageWindow window;
    window.SetUp();
    QCOMPARE(window.page.left, 1);
    window.page.Forget();
    QCOMPARE(window.page.left, 2);
    QVERIFY(!window.page.MayAct());
    const int before = window.page.refreshed;
    window.page.setCommandsEnabled(true);
    QCOMPARE(window.page.refreshed, before);
    window.SetUp();
    QVERIFY(window.page.MayAct());
    window.Close();
    QVERIFY(!window.page.MayAct());
}

TAVIK_TEST_MAIN(ModePageTest)
#include "ModePageTest.moc"
