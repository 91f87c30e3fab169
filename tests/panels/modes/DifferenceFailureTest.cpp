#include "library/TavikDifference.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "tests/panels/modes/DifferencePage.h"

#include <QDialog>
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
    void aFailureIsShownWhilePagesAreBuilt();

private:
    void OpenEnabled(const QString& modules = StillProbe(1)) {
        OpenPage(modules);
        QVERIFY(Operator().Click("btnEnable"));
        Calls::Mark();
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
    QCOMPARE(Activity(), QString());
    QCOMPARE(Offered(), AfterResults());
    QCOMPARE(Operator().Text("tbErrMsg"), QStringLiteral("The module does not answer."));
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
    QCOMPARE(Activity(), QString());
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
    boxes.Tolerate(true);
    StartAndThen({[&] { AddFault(fault); }});
    // Nobody knows what the run is doing: the operator is not locked out.
    QVERIFY(ControlsAreOn());
    QCOMPARE(Activity(), QString());
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
    QCOMPARE(Activity(), QString());
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

void DifferenceFailureTest::aFailureIsShownWhilePagesAreBuilt() {
    OpenNetwork(Benches::With(StillProbe(1)));
    FailNext("Status", QStringLiteral("Lost."), "difference Alpha");
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Lost."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(WaitUntil([this] { return boxes.Count() == 1; }));
}

TAVIK_TEST_MAIN(DifferenceFailureTest)
#include "DifferenceFailureTest.moc"
