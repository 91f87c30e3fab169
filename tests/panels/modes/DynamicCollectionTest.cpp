#include "tests/panels/modes/DynamicPage.h"

#include <QDialog>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>

using namespace TavikSimulator;

namespace {

const QString prepared = QStringLiteral("Prepared");
const QString finished = QStringLiteral("Results available");
const QString startCall = QStringLiteral("server.StartAllDynamic(object)");
const QString stopCall = QStringLiteral("server.StopAllDynamic()");

} // namespace

/// Collections that the operator starts, and their ends.
class DynamicCollectionTest : public DynamicPage {
    Q_OBJECT

private slots:
    void startingDisablesTheWindow();
    void theEndEnablesTheWindow();
    void stoppingLeavesThatToTheEnd();
    void continuousStreaming();
    void statusBarWhileCollecting();
    void aModuleDropsOut();
    void theNetworkDropsOut();
    void aStartThatFails();
    void aRefreshThatFailsAfterTheStart();
    void aStopThatFails();
    void failuresAfterTheEnd_data();
    void failuresAfterTheEnd();
    void resultsOfTheModule();
    void resultsOfAllModules();
    void aModuleThatFormedNoPart();
    void aModuleThatIsNotInTheList();
    void resultsThatFail();
    void anotherCollection();

private:
    void WaitForTheEnd() {
        QVERIFY(WaitUntil([this] { return Operator().IsEnabled("listModules"); }));
        QVERIFY(WaitUntil(
            [this] { return Window().statusBar()->currentMessage().startsWith(QLatin1String("Dynamic: ")); }));
    }
    void Collect(int syncs = 100) {
        Enter("sbNumSyncs", syncs);
        Start();
        AdvanceClock(10.0);
        WaitForTheEnd();
        QCOMPARE(Text("lblStatus"), finished);
        Calls::Mark();
    }
};

void DynamicCollectionTest::startingDisablesTheWindow() {
    OpenPage();
    Start();
    QVERIFY(Changes().contains(startCall));
    QCOMPARE(Text("lblStatus"), QStringLiteral("Running"));
    QCOMPARE(Usable(), QStringList{QStringLiteral("btnStop")});
    for (const char* name : {"tableNetworks", "listModules", "btnNotify", "btnRead", "btnConnectAll"}) {
        QVERIFY2(!Operator().Find(name)->isEnabledTo(&Window()), name);
    }
    Click("btnStop");
    WaitForTheEnd();
}

void DynamicCollectionTest::theEndEnablesTheWindow() {
    OpenPage();
    Enter("sbNumSyncs", 100);
    Start();
    Changes();
    AdvanceClock(0.0249);
    QTest::qWait(20);
    QCOMPARE(Usable(), QStringList{QStringLiteral("btnStop")});
    QVERIFY(!Operator().IsEnabled("listModules"));
    AdvanceClock(0.0002);
    WaitForTheEnd();
    QCOMPARE(Changes(), QStringList{stopCall});
    QCOMPARE(Text("lblStatus"), finished);
    QCOMPARE(Text("lblError"), QStringLiteral("No error."));
    QCOMPARE(Usable(), (QStringList{QStringLiteral("btnModuleResults"), QStringLiteral("btnAllResults"),
                                    QStringLiteral("btnDisable"), QStringLiteral("btnPrepare")}));
    for (const char* name : {"tableNetworks", "listModules", "btnNotify", "btnRead", "btnConnectAll"}) {
        QVERIFY2(Operator().Find(name)->isEnabledTo(&Window()), name);
    }
}

void DynamicCollectionTest::stoppingLeavesThatToTheEnd() {
    OpenPage();
    Start();
    Changes();
    // What the library tells meanwhile waits in the queue.
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStop_clicked"));
    QTest::qSleep(50);
    QCOMPARE(Changes(), QStringList{stopCall});
    QVERIFY(!Operator().IsEnabled("listModules"));
    QVERIFY(!Operator().IsEnabled("btnStop"));
    WaitForTheEnd();
    QCOMPARE(Changes(), QStringList{stopCall});
    QCOMPARE(Text("lblStatus"), finished);
}

void DynamicCollectionTest::continuousStreaming() {
    OpenPage();
    Enter("sbNumSyncs", 0);
    Start();
    AdvanceClock(30.0);
    QTest::qWait(50);
    QCOMPARE(Usable(), QStringList{QStringLiteral("btnStop")});
    Click("btnStop");
    WaitForTheEnd();
    QCOMPARE(Text("lblStatus"), finished);
}

void DynamicCollectionTest::statusBarWhileCollecting() {
    OpenPage();
    Enter("sbNumSyncs", 8000);
    Start();
    const auto* bar = Window().statusBar();
    QCOMPARE(bar->currentMessage(), QStringLiteral("Dynamic collection running, 2 modules, 8,000 syncs, 0 s"));
    Calls::Mark();
    QVERIFY(WaitUntil([bar] { return bar->currentMessage().endsWith(QLatin1String(", 1 s")); }));
    // The library is not asked for what is shown.
    COMPARE_CALLS(Calls::Take(), {});
    AdvanceClock(2.0);
    WaitForTheEnd();
    const QRegularExpression outcome(QStringLiteral("^Dynamic: 2 modules, \\d+\\.\\d s$"));
    QVERIFY2(outcome.match(bar->currentMessage()).hasMatch(), qPrintable(bar->currentMessage()));
    Click("btnDisable");
    Enter("sbNumSyncs", 0);
    Enter("sbModulesInCollection", 1);
    Start();
    QCOMPARE(bar->currentMessage(), QStringLiteral("Dynamic collection running, 1 module, continuous, 0 s"));
    Click("btnStop");
    WaitForTheEnd();
}

void DynamicCollectionTest::aModuleDropsOut() {
    OpenPage();
    Start();
    AdvanceClock(0.1);
    SetModulePresent("Alpha", "KX00000002", false);
    WaitForTheEnd();
    QCOMPARE(Text("lblStatus"), finished);
    QCOMPARE(Text("lblError"), QStringLiteral("The module does not answer."));
    QVERIFY(Operator().IsEnabled("btnAllResults"));
}

void DynamicCollectionTest::theNetworkDropsOut() {
    OpenPage();
    Start();
    AdvanceClock(0.1);
    SetNetworkPresent("Alpha", false);
    WaitForTheEnd();
    // A network that is gone is not shown anew; nothing is left to be stopped.
    QVERIFY(!Operator().IsEnabled("btnStop"));
    QVERIFY(Operator().IsEnabled("listModules") && Operator().Find("btnConnectAll")->isEnabledTo(&Window()));
    SetNetworkPresent("Alpha", true);
    QVERIFY(Operator().SelectPage("tabServer"));
    Click("btnConnectAll");
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    ShowPage();
    QCOMPARE(Text("lblStatus"), finished);
    QCOMPARE(Text("lblError"), QStringLiteral("The network is not connected."));
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("False"));
}

void DynamicCollectionTest::aStartThatFails() {
    OpenPage();
    Enable();
    Click("btnPrepare");
    ExpectBox(QStringLiteral("No answer"));
    FailNext("StartAllDynamic", QStringLiteral("No answer"));
    Click("btnStart");
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(Operator().IsEnabled("listModules"));
    QCOMPARE(Text("lblStatus"), prepared);
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
    Click("btnStart");
    QCOMPARE(Text("lblStatus"), QStringLiteral("Running"));
    Click("btnStop");
    WaitForTheEnd();
}

void DynamicCollectionTest::aRefreshThatFailsAfterTheStart() {
    OpenPage();
    Enable();
    Click("btnPrepare");
    ExpectBox(QStringLiteral("No answer"));
    FailNext("DynamicState", QStringLiteral("No answer"));
    Click("btnStart");
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Usable(), QStringList{QStringLiteral("btnStop")});
    Click("btnStop");
    WaitForTheEnd();
    QCOMPARE(Text("lblStatus"), finished);
}

void DynamicCollectionTest::aStopThatFails() {
    OpenPage();
    Start();
    ExpectBox(QStringLiteral("No answer"));
    FailNext("StopAllDynamic", QStringLiteral("No answer"));
    Click("btnStop");
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Usable(), QStringList{QStringLiteral("btnStop")});
    Click("btnStop");
    WaitForTheEnd();
}

void DynamicCollectionTest::failuresAfterTheEnd_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("ofThePage");
    QTest::newRow("stopping") << QStringLiteral("StopAllDynamic") << true;
    // The page is shown anew when the window's controls are enabled, and once more.
    QTest::newRow("showing") << QStringLiteral("DynamicRate") << false;
}

void DynamicCollectionTest::failuresAfterTheEnd() {
    QFETCH(QString, operation);
    QFETCH(bool, ofThePage);
    OpenPage();
    Enter("sbNumSyncs", 100);
    Start();
    if (ofThePage) {
        ExpectBox(QStringLiteral("No answer"));
    } else {
        boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("No answer"));
    }
    FailNext(qPrintable(operation), QStringLiteral("No answer"));
    AdvanceClock(1.0);
    WaitForTheEnd();
    QVERIFY(WaitUntil([this] { return boxes.Count() == 1; }));
    QCOMPARE(Text("lblStatus"), finished);
    QVERIFY(Operator().IsEnabled("btnAllResults"));
}

void DynamicCollectionTest::resultsOfTheModule() {
    OpenPage(Probes(), 1);
    HoldPosition("Alpha", "KX00000002", 0.5);
    Collect();
    boxes.ExpectUse(Page(), QStringLiteral("Results"), [](QDialog& dialog) {
        const auto* table = dialog.findChild<QTableView*>(QStringLiteral("tableResults"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("KX00000002"));
        QCOMPARE(table->model()->rowCount(), 100);
        QCOMPARE(table->model()->columnCount(), 1);
        QCOMPARE(table->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Reading (UOM)"));
        QCOMPARE(table->model()->index(99, 0).data().toString(), QStringLiteral("0.50000"));
        dialog.close();
    });
    Click("btnModuleResults");
    QCOMPARE(boxes.Count(), 1);
}

void DynamicCollectionTest::resultsOfAllModules() {
    OpenPage();
    HoldPosition("Alpha", "KX00000001", 5.0);
    HoldPosition("Alpha", "KX00000002", 0.25);
    Collect(3);
    boxes.ExpectUse(Page(), QStringLiteral("Results (in each module's unit of measure)."), [](QDialog& dialog) {
        const auto* model = dialog.findChild<QTableView*>(QStringLiteral("tableResults"))->model();
        QCOMPARE(model->rowCount(), 3);
        QCOMPARE(model->columnCount(), 2);
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("KX00000002"));
        QCOMPARE(model->index(2, 0).data().toString(),
                 QStringLiteral("The reading lies above the module's measuring range."));
        QCOMPARE(model->index(2, 1).data().toString(), QStringLiteral("0.25000"));
        dialog.close();
    });
    Click("btnAllResults");
    QCOMPARE(boxes.Count(), 1);
    // How many there are is asked once, before anything is fetched.
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.filter(QStringLiteral(".ReadingCount()")).size(), 1);
    QVERIFY(calls.indexOf(QRegularExpression(QStringLiteral(".*\\.ReadingCount\\(\\)"))) <
            calls.indexOf(QStringLiteral("module KX00000001.Identity()")));
}

void DynamicCollectionTest::aModuleThatFormedNoPart() {
    OpenPage(Probes(), 1);
    Enter("sbModulesInCollection", 1);
    Collect();
    ExpectBox(QStringLiteral("The current module did not form part of the dynamic collection"));
    Click("btnModuleResults");
    QCOMPARE(boxes.Count(), 1);
}

void DynamicCollectionTest::aModuleThatIsNotInTheList() {
    OpenPage();
    Collect();
    Fault missing;
    missing.operation = "GetModuleIndexByID";
    missing.effect = FaultEffect::Result;
    missing.code = -1;
    AddFault(missing);
    ExpectBox(QStringLiteral("The current module did not form part of the dynamic collection"));
    Click("btnModuleResults");
    QCOMPARE(boxes.Count(), 1);
}

void DynamicCollectionTest::resultsThatFail() {
    OpenPage();
    Collect();
    for (const char* button : {"btnModuleResults", "btnAllResults"}) {
        ExpectBox(QStringLiteral("No answer"));
        FailNext("GetItem", QStringLiteral("No answer"));
        Click(button);
    }
    QCOMPARE(boxes.Count(), 2);
}

void DynamicCollectionTest::anotherCollection() {
    OpenPage();
    Collect();
    Click("btnPrepare");
    QCOMPARE(Text("lblStatus"), prepared);
    QCOMPARE(Usable(), (QStringList{QStringLiteral("btnDisable"), QStringLiteral("btnStart")}));
    Click("btnStart");
    QVERIFY(!Operator().IsEnabled("listModules"));
    AdvanceClock(1.0);
    WaitForTheEnd();
    QCOMPARE(Text("lblStatus"), finished);
}

TAVIK_TEST_MAIN(DynamicCollectionTest)

#include "DynamicCollectionTest.moc"
