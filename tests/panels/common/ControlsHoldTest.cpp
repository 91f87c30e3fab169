#include "panels/common/Run.h"
#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"

#include <QLineEdit>
#include <QStatusBar>

/// A window with two buttons whose controls are held. When they are given back it can offer Stop by itself.
class HeldWindow : public FakeHostWindow {
public:
    HeldWindow() {
        start.move(0, 40);
        next.move(0, 80);
        stop.setEnabled(false);
        stop.setFocusPolicy(Qt::StrongFocus);
        show();
    }
    QString Message() const { return statusBar()->currentMessage(); }

    QPushButton start{QStringLiteral("Start"), this};
    QLineEdit next{this};
    QPushButton stop{QStringLiteral("Stop"), this};
    bool moreToStop = false;

protected:
    void SetControlsEnabled(bool enable) override {
        FakeHostWindow::SetControlsEnabled(enable);
        start.setEnabled(enable);
        if (enable && moreToStop) {
            stop.setEnabled(true);
        }
    }
};

/// Holds of a window's controls, and runs.
class ControlsHoldTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void lastReleaseEnables();
    void movedHoldIsReleasedOnce();
    void holdOutlivesItsWindow();
    void closingWindowStaysDisabled();
    void runHoldsAndNamesItself();
    void stopHasTheFocusDuringARun();
    void stopOfferedByThePageStays();
    void outcomeIsShownAfterTheRun();
    void noOutcomeWhileClosing();
    void loopEndsOnRequestAndClosing();
};

void ControlsHoldTest::lastReleaseEnables() {
    FakeHostWindow window;
    ControlsHold first = window.DisableControls(QStringLiteral("first"));
    ControlsHold second = window.DisableControls(QStringLiteral("second"));
    QCOMPARE(window.disabled, 1);
    QCOMPARE(window.Holders(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    first.Release();
    first.Release();
    QCOMPARE(window.enabled, 0);
    QVERIFY(window.ControlsAreHeld());
    second.Release();
    QCOMPARE(window.enabled, 1);
    QVERIFY(!window.ControlsAreHeld());
}

void ControlsHoldTest::movedHoldIsReleasedOnce() {
    FakeHostWindow window;
    ControlsHold hold = window.DisableControls(QStringLiteral("first"));
    {
        const ControlsHold moved = std::move(hold);
        QCOMPARE(window.enabled, 0);
    }
    QCOMPARE(window.enabled, 1);
    hold = window.DisableControls(QStringLiteral("second"));
    // The new hold is taken before the old one is released.
    hold = window.DisableControls(QStringLiteral("third"));
    QCOMPARE(window.Holders(), QStringList{QStringLiteral("third")});
    QCOMPARE(window.enabled, 1);
}

void ControlsHoldTest::holdOutlivesItsWindow() {
    auto window = std::make_unique<FakeHostWindow>();
    ControlsHold hold = window->DisableControls(QStringLiteral("test"));
    const auto run = std::make_unique<Run>(*window, QStringLiteral("run"), nullptr);
    window.reset();
    hold.Release();
    QVERIFY(!run->MayGoOn());
}

void ControlsHoldTest::closingWindowStaysDisabled() {
    FakeHostWindow window;
    ControlsHold hold = window.DisableControls(QStringLiteral("test"));
    window.Close();
    hold.Release();
    QCOMPARE(window.enabled, 0);
}

void ControlsHoldTest::runHoldsAndNamesItself() {
    HeldWindow window;
    {
        const Run run(window, QStringLiteral("run"), &window.stop);
        QCOMPARE(window.Holders(), QStringList{QStringLiteral("run")});
        QVERIFY(window.stop.isEnabled());
        QVERIFY(!window.start.isEnabled());
    }
    QVERIFY(!window.stop.isEnabled());
    QVERIFY(window.start.isEnabled());
}

void ControlsHoldTest::stopHasTheFocusDuringARun() {
    HeldWindow window;
    window.start.setFocus();
    {
        const Run run(window, QStringLiteral("run"), &window.stop);
        QCOMPARE(window.focusWidget(), static_cast<QWidget*>(&window.stop));
    }
    QCOMPARE(window.focusWidget(), static_cast<QWidget*>(&window.start));
}

void ControlsHoldTest::stopOfferedByThePageStays() {
    HeldWindow window;
    window.moreToStop = true;
    { const Run run(window, QStringLiteral("run"), &window.stop); }
    QVERIFY(window.stop.isEnabled());
}

void ControlsHoldTest::outcomeIsShownAfterTheRun() {
    HeldWindow window;
    {
        Run run(window, QStringLiteral("run"), &window.stop);
        run.activity.Show(QStringLiteral("Running"));
        run.activity.SetOutcome(QStringLiteral("Run: %1 s"));
        QCOMPARE(window.Message(), QStringLiteral("Running"));
    }
    QVERIFY2(QRegularExpression(QStringLiteral("^Run: \\d+\\.\\d s$")).match(window.Message()).hasMatch(),
             qPrintable(window.Message()));
    { const Run withoutOutcome(window, QStringLiteral("run"), &window.stop); }
    window.statusBar()->clearMessage();
    QCOMPARE(window.Message(), QString());
}

void ControlsHoldTest::noOutcomeWhileClosing() {
    HeldWindow window;
    {
        Run run(window, QStringLiteral("run"), &window.stop);
        run.activity.SetOutcome(QStringLiteral("Run: %1 s"));
        window.Close();
    }
    QCOMPARE(window.Message(), QString());
}

void ControlsHoldTest::loopEndsOnRequestAndClosing() {
    FakeHostWindow window;
    Run run(window, QStringLiteral("run"), nullptr);
    QVERIFY(run.MayGoOn());
    run.RequestStop();
    QVERIFY(!run.MayGoOn());
    run.GoOn();
    QVERIFY(run.MayGoOn());
    window.Close();
    QVERIFY(!run.MayGoOn());
}

TAVIK_TEST_MAIN(ControlsHoldTest)
#include "ControlsHoldTest.moc"
