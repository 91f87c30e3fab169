#include "library/TavikDifference.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/DifferenceModeWidget.h"
#include "tests/panels/modes/DifferencePage.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>

using namespace TavikSimulator;

/// What becomes of the page of difference mode when things go wrong.
class DifferenceFailureTest : public DifferencePage {
    Q_OBJECT

private slots:
    void enablingFails();
    void startingFails();
    void aModuleDropsOut();
    void theNetworkDropsOut();
    void anotherProgramStopsTheRun();
    void lookingFailsOnce();
    void lookingFailsForGood();
    void theFirstLookFails();
    void stoppingFails();
    void stoppingFailsForGood();
    void stoppedButNotShown();
    void closingDuringARun();
    void resultsCannotBeRead();
    void resultsHaveAsManyColumnsAsCounted_data();
    void resultsHaveAsManyColumnsAsCounted();
    void aFailureIsShownWhilePagesAreBuilt();
    void droppedNetworkLeavesThePageEmpty();
    void failedSetUpLeavesThePageEmpty();
    void stopGivesBackItsOwnHoldOnly();
    void startAfterStopBeforeTheLoopComesRound();
    void failingStartAfterStopGivesTheControlsBack();
    void pageLeftDuringARun();
    void pageLeftAfterTheWatching();
    void failedRefreshAfterARunKeepsThePageUsable();

private:
    void OpenEnabled(const QString& modules = StillProbe(1)) {
        OpenPage(modules);
        QVERIFY(Operator().Click("btnEnable"));
        Calls::Mark();
    }
    void CompareEmpty() {
        const QList<QLineEdit*> fields = Page()->findChildren<QLineEdit*>();
        QCOMPARE(fields.size(), 13);
        for (const QLineEdit* field : fields) {
            QVERIFY2(field->text().isEmpty(), qPrintable(field->objectName()));
        }
        QCOMPARE(Offered(), QStringList());
    }
    QStringList AfterResults() {
        return {QStringLiteral("Disable"), QStringLiteral("StartDiff"), QStringLiteral("DisplayAllModuleResults")};
    }
};

void DifferenceFailureTest::enablingFails() {
    OpenPage(StillProbe(1));
    FailNext("setEnabled", QStringLiteral("No <b>way</b>."));
    ExpectError(QStringLiteral("No <b>way</b>."));
    QVERIFY(Operator().Click("btnEnable"));
    QCOMPARE(Operator().Text("tbEnabled"), QStringLiteral("False"));
    QVERIFY(Operator().Click("btnEnable"));
    FailNext("Max", QStringLiteral("Gone."));
    ExpectError(QStringLiteral("Gone."));
    QVERIFY(Operator().Click("btnDisable"));
}

void DifferenceFailureTest::startingFails() {
    OpenEnabled();
    SetModulePresent("Alpha", "KX00000001", false);
    ExpectError(QStringLiteral("Module KX00000001 on network \"Alpha\" does not answer."));
    QVERIFY(Operator().Click("btnStartDiff"));
    QVERIFY(ControlsAreOn());
    QCOMPARE(Activity(), QString());
    QCOMPARE(Offered(), QStringList({QStringLiteral("Disable"), QStringLiteral("StartDiff")}));
    SetModulePresent("Alpha", "KX00000001", true);
    StartAndThen({Stop()});
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::aModuleDropsOut() {
    OpenEnabled(StillProbe(1) + StillProbe(2));
    StartAndThen({[] {}, [] { SetModulePresent("Alpha", "KX00000001", false); }});
    // The run has ended by itself, but wants to be stopped.
    QVERIFY(!ControlsAreOn());
    QVERIFY(Operator().IsEnabled("btnStopDiff"));
    QVERIFY(Activity().contains(QLatin1String("ended by itself")));
    ExpectError(QStringLiteral("The last run of network \"Alpha\" has ended by itself; stop it first."));
    QVERIFY(Operator().Click("btnStartDiff"));
    QVERIFY(!ControlsAreOn());
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
    QCOMPARE(Offered(), AfterResults());
    QCOMPARE(Operator().Text("tbErrMsg"), QStringLiteral("The module does not answer."));
    QCOMPARE(Operator().Find("tbErrMsg")->toolTip(), QStringLiteral("The module does not answer."));
    QCOMPARE(Operator().Text("tbNumReads"), QStringLiteral("976"));
}

void DifferenceFailureTest::theNetworkDropsOut() {
    OpenEnabled();
    StartAndThen({[] {}, [] { SetNetworkPresent("Alpha", false); }});
    QVERIFY(ControlsAreOn());
    QCOMPARE(Activity(), QString());
    QVERIFY(!Operator().IsEnabled("btnStopDiff"));
    QCOMPARE(Operator().Text("tbNumReads"), QStringLiteral("976"));
}

void DifferenceFailureTest::anotherProgramStopsTheRun() {
    OpenEnabled();
    TavikLibrary::TavikServer other;
    StartAndThen({[] {}, [&] { other.Networks()->Network(0)->Difference()->Stop(); }});
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::lookingFailsOnce() {
    OpenEnabled();
    ExpectError(QStringLiteral("Lost."));
    StartAndThen({[] { FailNext("ReadDifference", QStringLiteral("Lost.")); }});
    QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
    QVERIFY(!ControlsAreOn());
    QVERIFY(Activity().contains(QLatin1String("until it is stopped")));
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::lookingFailsForGood() {
    OpenEnabled();
    ExpectError(QStringLiteral("Lost."));
    Fault fault;
    fault.object = "difference Alpha";
    fault.operation = "Status";
    fault.trigger = FaultTrigger::FromNth;
    fault.text = "Lost.";
    StartAndThen({[&] { AddFault(fault); }});
    // The state of the run is unknown: the operator is not locked out, and the failure is told once.
    QVERIFY(ControlsAreOn());
    QCOMPARE(Activity(), QString());
    ProcessAllEvents();
    QCOMPARE(boxes.Count(), 1);
}

void DifferenceFailureTest::theFirstLookFails() {
    OpenEnabled();
    FailNext("ReadDifference", QStringLiteral("Lost."));
    ExpectError(QStringLiteral("Lost."));
    QVERIFY(Operator().Click("btnStartDiff"));
    QVERIFY(!ControlsAreOn());
    QVERIFY(Operator().IsEnabled("btnStopDiff"));
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
}

void DifferenceFailureTest::stoppingFails() {
    OpenEnabled();
    FailNext("Stop", QStringLiteral("Stuck."));
    ExpectError(QStringLiteral("Stuck."));
    StartAndThen({Stop(),
                  [this] {
                      QVERIFY(!ControlsAreOn());
                      QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
                  },
                  Stop()});
    QVERIFY(ControlsAreOn());
    QCOMPARE(Operator().Text("tbNumReads"), QStringLiteral("2929"));
}

void DifferenceFailureTest::stoppingFailsForGood() {
    OpenEnabled();
    Fault fault;
    fault.operation = "Stop";
    fault.trigger = FaultTrigger::FromNth;
    fault.text = "Stuck.";
    AddFault(fault);
    ExpectError(QStringLiteral("Stuck."));
    StartAndThen({[] { SetModulePresent("Alpha", "KX00000001", false); }});
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(!ControlsAreOn());
    SetNetworkPresent("Alpha", false);
    ExpectError(QStringLiteral("Stuck."));
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
    ClearFaults();
}

void DifferenceFailureTest::stoppedButNotShown() {
    OpenEnabled();
    ExpectError(QStringLiteral("Lost."));
    StartAndThen({[this] {
        FailNext("Identity", QStringLiteral("Lost."));
        QVERIFY(Operator().Click("btnStopDiff"));
    }});
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::closingDuringARun() {
    OpenEnabled();
    StartAndThen({[this] { Window().close(); }});
    QVERIFY(!Window().isVisible());
    const QStringList calls = Calls::TakeObject("difference Alpha");
    QVERIFY(calls.contains(QStringLiteral("difference Alpha.Stop()")));
    QCOMPARE(calls.last(), QStringLiteral("difference Alpha.Stop()"));
    QVERIFY(!ControlsAreOn());
}

void DifferenceFailureTest::resultsCannotBeRead() {
    OpenEnabled();
    StartAndThen({Stop()});
    for (const char* operation : {"Count", "ModuleCount", "Enabled", "Error", "Sum"}) {
        FailNext(operation, QStringLiteral("Lost."));
        ExpectError(QStringLiteral("Lost."));
        QVERIFY(Operator().Click("btnDisplayAllModuleResults"));
    }
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::resultsHaveAsManyColumnsAsCounted_data() {
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("fewer than enabled") << 1;
    QTest::newRow("more than enabled") << 3;
}

void DifferenceFailureTest::resultsHaveAsManyColumnsAsCounted() {
    QFETCH(int, count);
    OpenEnabled(StillProbe(1) + StillProbe(2));
    GoTo(1);
    QVERIFY(Operator().Click("btnEnable"));
    StartAndThen({Stop()});
    Fault counted;
    counted.object = "difference Alpha";
    counted.operation = "Count";
    counted.effect = FaultEffect::Result;
    counted.code = count;
    AddFault(counted);
    BoxReply reply;
    reply.meanwhile = [&](QDialog& dialog) {
        const auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableResults"));
        QCOMPARE(table->columnCount(), count);
        for (int column = 0; column < count; ++column) {
            const QTableWidgetItem* maximum = table->item(1, column);
            QCOMPARE(maximum != nullptr ? maximum->text() : QString(),
                     column < 2 ? QStringLiteral("1.00000") : QString());
        }
        QVERIFY(WidgetDriver(dialog).Click("btnClose"));
    };
    boxes.ExpectDialog(Page(), QStringLiteral("Difference Mode Results"), reply);
    QVERIFY(Operator().Click("btnDisplayAllModuleResults"));
}

void DifferenceFailureTest::aFailureIsShownWhilePagesAreBuilt() {
    OpenNetwork(Benches::With(StillProbe(1)));
    FailNext("Status", QStringLiteral("Lost."), "difference Alpha");
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Lost."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(WaitUntil([this] { return boxes.Count() == 1; }));
}

void DifferenceFailureTest::droppedNetworkLeavesThePageEmpty() {
    OpenEnabled(StillProbe(1) + StillProbe(2));
    StartAndThen({Stop()});
    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    TavikLibrary::TavikModule* module = network->GetModule(1);
    SetNetworkPresent("Alpha", false);
    auto* page = qobject_cast<DifferenceModeWidget*>(Page());
    page->setNetwork(&Window(), &server, network, module);
    QVERIFY(!page->IsFilled());
    CompareEmpty();
    page->Forget();
}

void DifferenceFailureTest::failedSetUpLeavesThePageEmpty() {
    OpenEnabled(StillProbe(1) + StillProbe(2));
    StartAndThen({Stop()});
    FailNext("Max", QStringLiteral("Lost."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Lost."));
    GoTo(1);
    CompareEmpty();
    // Its slots do nothing either.
    Calls::Mark();
    for (const char* slot : {"on_btnEnable_clicked", "on_btnDisable_clicked", "on_btnStartDiff_clicked",
                             "on_btnStopDiff_clicked", "on_btnDisplayAllModuleResults_clicked"}) {
        QVERIFY(QMetaObject::invokeMethod(Page(), slot));
    }
    COMPARE_CALLS(Calls::Take(), {});
}

void DifferenceFailureTest::stopGivesBackItsOwnHoldOnly() {
    OpenEnabled();
    ControlsHold restart;
    StartAndThen({[&] { restart = Window().DisableControls(QStringLiteral("wireless restart")); }, Stop()});
    QVERIFY(!ControlsAreOn());
    QCOMPARE(Offered(), QStringList());
    QCOMPARE(Window().Holders(), QStringList{QStringLiteral("wireless restart")});
    restart.Release();
    QVERIFY(ControlsAreOn());
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::startAfterStopBeforeTheLoopComesRound() {
    OpenEnabled();
    StartAndThen({[this] {
                      Stop()();
                      QVERIFY(Operator().Click("btnStartDiff"));
                      QCOMPARE(Calls::CountOf("Start"), 2);
                      QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
                  },
                  [this] { QVERIFY(!ControlsAreOn()); },
                  [this] { QVERIFY(Activity().startsWith(QLatin1String("Difference mode: modules enabled: 1"))); },
                  Stop()});
    QVERIFY(Operator().Text("tbNumReads").toInt() >= 2929);
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
}

void DifferenceFailureTest::failingStartAfterStopGivesTheControlsBack() {
    OpenEnabled();
    ExpectError(QStringLiteral("No start."));
    StartAndThen({[this] {
        Stop()();
        FailNext("Start", QStringLiteral("No start."));
        QVERIFY(Operator().Click("btnStartDiff"));
    }});
    QVERIFY(ControlsAreOn());
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::pageLeftDuringARun() {
    OpenEnabled(StillProbe(1) + StillProbe(2));
    QStringList calls;
    StartAndThen({[&] {
        Operator().The<QListWidget>("listModules")->setCurrentRow(1);
        calls = Calls::TakeObject("difference KX00000001");
    }});
    // The module that was left is not asked again, and the run can be stopped from the other one's page.
    COMPARE_CALLS(Calls::TakeObject("difference KX00000001"), {});
    QVERIFY(ControlsAreOn());
    QCOMPARE(Activity(), QString());
    QVERIFY(Operator().SelectPage("tabDifference"));
    QCOMPARE(Operator().Text("tbModuleID"), QStringLiteral("KX00000002"));
    QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
    QVERIFY(Operator().Click("btnStopDiff"));
    QCOMPARE(Operator().Text("tbEnabledCount"), QStringLiteral("1"));
    QVERIFY(Operator().IsEnabled("btnDisplayAllModuleResults"));
}

void DifferenceFailureTest::pageLeftAfterTheWatching() {
    OpenEnabled(StillProbe(1) + StillProbe(2));
    GoTo(1);
    QVERIFY(Operator().Click("btnStartDiff"));
    QVERIFY(!ControlsAreOn());
    Operator().The<QListWidget>("listModules")->setCurrentRow(0);
    QVERIFY(ControlsAreOn());
    QVERIFY(Operator().SelectPage("tabDifference"));
    QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
    QVERIFY(Operator().Click("btnStopDiff"));
    QCOMPARE(Offered(), AfterResults());
}

void DifferenceFailureTest::failedRefreshAfterARunKeepsThePageUsable() {
    OpenEnabled();
    Fault fault;
    fault.operation = "Identity";
    fault.trigger = FaultTrigger::FromNth;
    fault.text = "Lost.";
    ExpectError(QStringLiteral("Lost."));
    StartAndThen({[&] {
        AddFault(fault);
        QVERIFY(Operator().Click("btnStopDiff"));
    }});
    ClearFaults();
    ProcessAllEvents();
    QVERIFY(ControlsAreOn());
    QVERIFY(Operator().IsEnabled("btnStartDiff"));
    StartAndThen({Stop()});
    QCOMPARE(Offered(), AfterResults());
}

TAVIK_TEST_MAIN(DifferenceFailureTest)
#include "DifferenceFailureTest.moc"
