#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QSignalSpy>
#include <QStatusBar>

using namespace TavikSimulator;

namespace {

constexpr const char* controls[] = {"btnConnectAll", "btnDisconnectAll", "tableNetworks",   "listModules",
                                    "btnMoveUp",     "btnMoveDown",      "btnHotswap",      "btnPing",
                                    "btnNotify",     "btnAddModule",     "btnDeleteModule", "btnClearModules",
                                    "btnClearTcons", "btnLoadXML",       "btnSaveXML",      "btnSetSpeed"};

} // namespace

/// Notify runs, in which modules announce themselves.
class NotifyRunTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void modulesThatAnnounceThemselvesAreListed();
    void runIsStopped();
    void controlsAreDisabledMeanwhile();
    void modulePanelIsDisabledMeanwhile();
    void statusBarShowsTheSeconds();
    void controlsComeBackWithTheLastHolder();
    void controlsStayOffWhileClosing();
    void endLeavesTheOperatorOnThePage_data();
    void endLeavesTheOperatorOnThePage();
    void listIsReadAnewAfterARunThatFailed();
    void secondRunIsNotStarted();
    void selectedModuleStaysSelected();
    void runThatCannotBegin();
    void runThatFailsIsCancelled();
    void refreshThatFailsLeavesTheModulePanelUsable();
    void controllerThatDropsOut();
    void stopNotifyThatFails();

private:
    /// Presses Notify; what is to happen while the run lasts happens once it has begun.
    void Run(const std::function<void()>& meanwhile) {
        When(
            this, [this] { return Operator().IsEnabled("btnStopNotify"); }, meanwhile);
        QVERIFY(Operator().Click("btnNotify"));
    }
    QString Activity() { return Window().statusBar()->currentMessage(); }
    /// After a refresh that failed, what acts on a row is off.
    void CompareIdle(bool listsShown = true) {
        const QStringList rowCommands = {QStringLiteral("btnMoveUp"), QStringLiteral("btnMoveDown"),
                                         QStringLiteral("btnDeleteModule"), QStringLiteral("btnSetSpeed")};
        for (const char* name : controls) {
            QVERIFY2(Operator().IsEnabled(name) == (listsShown || !rowCommands.contains(QLatin1String(name))), name);
        }
        QVERIFY(!Operator().IsEnabled("btnStopNotify"));
        QVERIFY(!Activity().startsWith(QStringLiteral("Notifying")));
    }
};

void NotifyRunTest::modulesThatAnnounceThemselvesAreListed() {
    OpenNetwork(Benches::Two());
    Run([] { AdvanceClock(1.5); });
    QCOMPARE(Rows("listModules").size(), 4);
    QCOMPARE(Rows("listModules").constLast(), QStringLiteral("KX00000005"));
    CompareIdle();
    QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 2),
                  {QStringLiteral("network Alpha.BeginNotifying()"), QStringLiteral("network Alpha.Notifying()")});
    // Until the refresh, nothing is asked for a display.
    const int refresh = calls.indexOf(QStringLiteral("network Alpha.BufferedCapable()"));
    QVERIFY(!calls.mid(0, refresh).contains(QStringLiteral("network Alpha.ModuleCount()")));
    QVERIFY(Activity().startsWith(QStringLiteral("Notify: ")));
    QVERIFY(Activity().endsWith(QStringLiteral(" s, modules in the list: 4")));
    QVERIFY(calls.count(QStringLiteral("network Alpha.Notifying()")) >= 2);
    QVERIFY(calls.contains(QStringLiteral("network Alpha.AvailableSpeeds()")));
    QVERIFY(!calls.contains(QStringLiteral("network Alpha.CancelNotifying()")));
}

void NotifyRunTest::runIsStopped() {
    OpenNetwork(Benches::Two());
    Run([this] { QVERIFY(Operator().Click("btnStopNotify")); });
    QCOMPARE(Rows("listModules").size(), 3);
    CompareIdle();
    QCOMPARE(Calls::TakeOperation("CancelNotifying").size(), 1);
}

void NotifyRunTest::controlsAreDisabledMeanwhile() {
    OpenNetwork(Benches::Two());
    Run([this] {
        for (const char* name : controls) {
            QVERIFY2(!Operator().IsEnabled(name), name);
        }
        QVERIFY(!Operator().CellButton("tableNetworks", 0, 5)->isEnabledTo(nullptr));
        QVERIFY(Operator().Click("btnStopNotify"));
    });
    CompareIdle();
    QVERIFY(Operator().CellButton("tableNetworks", 0, 5)->isEnabled());
}

void NotifyRunTest::modulePanelIsDisabledMeanwhile() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    Run([this] {
        QVERIFY(Operator().SelectPage("tabModule"));
        for (const char* name : {"gbReadIn", "btnRead", "btnStartContinuous", "btnTimeReadings", "btnGetStatus",
                                 "btnSetResolution", "btnSetAveraging", "btnStopContinuous"}) {
            QVERIFY2(!Operator().IsEnabled(name), name);
        }
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().Click("btnStopNotify"));
    });
    for (const char* name : {"gbReadIn", "btnRead", "btnStartContinuous", "btnTimeReadings", "btnGetStatus",
                             "btnSetResolution", "btnSetAveraging"}) {
        QVERIFY2(Operator().IsEnabled(name), name);
    }
}

void NotifyRunTest::statusBarShowsTheSeconds() {
    OpenNetwork(Benches::Two());
    const QSignalSpy messages(Window().statusBar(), &QStatusBar::messageChanged);
    When(
        this, [this] { return Activity() == QStringLiteral("Notifying, 1 s"); },
        [this] { QVERIFY(Operator().Click("btnStopNotify")); });
    QVERIFY(Operator().Click("btnNotify"));
    QCOMPARE(messages.constFirst().constFirst().toString(), QStringLiteral("Notifying, 0 s"));
    CompareIdle();
}

/// The notify run and another holder: the last to let go gives the controls back.
void NotifyRunTest::controlsComeBackWithTheLastHolder() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    ControlsHold other;
    Run([this, &other] {
        other = Window().DisableControls(QStringLiteral("test"));
        QCOMPARE(Window().Holders(), QStringList({QStringLiteral("notify"), QStringLiteral("test")}));
        QVERIFY(Operator().Click("btnStopNotify"));
    });
    for (const char* name : controls) {
        QVERIFY2(!Operator().IsEnabled(name), name);
    }
    QVERIFY(!Operator().Find("btnRead")->isEnabledTo(Operator().Find("moduleWidget")));
    other.Release();
    CompareIdle();
    QVERIFY(Operator().Find("btnRead")->isEnabledTo(Operator().Find("moduleWidget")));
}

void NotifyRunTest::controlsStayOffWhileClosing() {
    OpenNetwork(Benches::Two());
    ControlsHold hold = Window().DisableControls(QStringLiteral("test"));
    Window().close();
    hold.Release();
    QVERIFY(!Operator().IsEnabled("btnPing"));
}

void NotifyRunTest::endLeavesTheOperatorOnThePage_data() {
    QTest::addColumn<QByteArray>("page");
    for (const char* page : {"tabServer", "tabModule", "tabDifference", "tabReadburst"}) {
        QTest::newRow(page) << QByteArray(page);
    }
}

void NotifyRunTest::endLeavesTheOperatorOnThePage() {
    QFETCH(QByteArray, page);
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    Run([this, page] {
        QVERIFY(Operator().SelectPage(page.constData()));
        AdvanceClock(1.5);
    });
    QCOMPARE(Rows("listModules").size(), 4);
    QVERIFY(Operator().Find(page.constData())->isVisible());
}

void NotifyRunTest::listIsReadAnewAfterARunThatFailed() {
    OpenNetwork(Benches::Two());
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("It broke off."));
    Run([] {
        FailNext("Notifying", QStringLiteral("It broke off."));
        AdvanceClock(1.5);
    });
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(Rows("listModules").size(), static_cast<int>(ListedModules("Alpha").size()));
    QVERIFY(Calls::TakeOperation("AvailableSpeeds").size() == 1);
}

void NotifyRunTest::secondRunIsNotStarted() {
    OpenNetwork(Benches::Two());
    Run([this] {
        QVERIFY(QMetaObject::invokeMethod(&Window(), "on_btnNotify_clicked"));
        QVERIFY(Operator().IsEnabled("btnStopNotify"));
        QVERIFY(Operator().Click("btnStopNotify"));
    });
    QCOMPARE(Calls::TakeOperation("BeginNotifying").size(), 1);
    CompareIdle();
}

void NotifyRunTest::selectedModuleStaysSelected() {
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    Run([] { AdvanceClock(1.5); });
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
    CompareIdle();
}

void NotifyRunTest::runThatCannotBegin() {
    OpenNetwork(Benches::Two());
    FailNext("BeginNotifying", QStringLiteral("Kein <Melden>."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Kein <Melden>."));
    QVERIFY(Operator().Click("btnNotify"));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    CompareIdle();
}

void NotifyRunTest::runThatFailsIsCancelled() {
    OpenNetwork(Benches::Two());
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("It broke off."));
    Run([] { FailNext("Notifying", QStringLiteral("It broke off.")); });
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    CompareIdle();
    QCOMPARE(Calls::TakeOperation("CancelNotifying").size(), 1);
    Run([this] { QVERIFY(Operator().Click("btnStopNotify")); });
    CompareIdle();
}

void NotifyRunTest::refreshThatFailsLeavesTheModulePanelUsable() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Who is there?"));
    Run([this] {
        FailNext("Identity", QStringLiteral("Who is there?"));
        QVERIFY(Operator().Click("btnStopNotify"));
    });
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    CompareIdle(false);
    QVERIFY(Operator().Click("btnPing"));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().IsEnabled("btnRead"));
    QVERIFY(Operator().IsEnabled("btnSetResolution"));
}

void NotifyRunTest::controllerThatDropsOut() {
    OpenNetwork(Benches::Two());
    boxes.Tolerate(true);
    Run([] { SetNetworkPresent("Alpha", false); });
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(boxes.Take().constFirst().title, QStringLiteral("Tavik Library Test"));
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    CompareIdle(false);
}

void NotifyRunTest::stopNotifyThatFails() {
    OpenNetwork(Benches::Two());
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Cannot stop."));
    Run([this] {
        FailNext("CancelNotifying", QStringLiteral("Cannot stop."));
        QVERIFY(Operator().Click("btnStopNotify"));
        const auto boxHasGone = [this] { return boxes.Count() == 1 && QApplication::activeModalWidget() == nullptr; };
        When(this, boxHasGone, [this] {
            QVERIFY(Operator().IsEnabled("btnStopNotify"));
            QVERIFY(Operator().Click("btnStopNotify"));
        });
    });
    CompareIdle();
    QCOMPARE(boxes.Count(), 1);
}

TAVIK_TEST_MAIN(NotifyRunTest)

#include "NotifyRunTest.moc"
