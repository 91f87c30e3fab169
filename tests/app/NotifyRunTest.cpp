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
    void statusBarCountsTheModules();
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
    void CompareIdle() {
        for (const char* name : controls) {
            QVERIFY2(Operator().IsEnabled(name), name);
        }
        QVERIFY(!Operator().IsEnabled("btnStopNotify"));
        QCOMPARE(Activity(), QString());
    }
};

void NotifyRunTest::modulesThatAnnounceThemselvesAreListed() {
    OpenNetwork(Benches::Two());
    Run([] { AdvanceClock(1.5); });
    QCOMPARE(Rows("listModules").size(), 4);
    QCOMPARE(Rows("listModules").constLast(), QStringLiteral("KX00000005"));
    CompareIdle();
    QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 4),
                  {QStringLiteral("network Alpha.BeginNotifying()"), QStringLiteral("network Alpha.ModuleCount()"),
                   QStringLiteral("network Alpha.Notifying()"), QStringLiteral("network Alpha.ModuleCount()")});
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

void NotifyRunTest::statusBarCountsTheModules() {
    // The second of them comes so late that the count is shown before the run is over.
    const QString both = QStringLiteral("<module type=\"KX\" identity=\"KX00000006\" announces=\"3\"/></network>");
    OpenNetwork(Benches::Two().replace(Benches::Two().indexOf(QStringLiteral("</network>")), 10, both));
    const QSignalSpy messages(Window().statusBar(), &QStatusBar::messageChanged);
    const QString one = QStringLiteral("Notifying, modules found: 1");
    When(
        this, [&] { return Activity() == one; }, [] { AdvanceClock(2.0); });
    Run([] { AdvanceClock(1.5); });
    QStringList seen;
    for (const QList<QVariant>& message : messages) {
        seen.append(message.constFirst().toString());
    }
    QVERIFY(seen.contains(QStringLiteral("Notifying, modules found: 0")));
    QVERIFY(seen.contains(one));
    QCOMPARE(seen.last(), QString());
    QCOMPARE(Rows("listModules").size(), 5);
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
    CompareIdle();
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
    CompareIdle();
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
