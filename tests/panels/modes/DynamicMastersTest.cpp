#include "tests/panels/modes/DynamicPage.h"

#include <QRadioButton>

using namespace TavikSimulator;

/// What the page of dynamic mode does about external masters.
class DynamicMastersTest : public DynamicPage {
    Q_OBJECT

private slots:
    void externalModeTakesTheMaster();
    void externalModeLeavesOutTheMaster();
    void externalModeWithoutMastersStaysNormal();
    void anotherMaster();
    void masterModesOfRows();
    void rowsBeyondTheMasterModes();
    void aModeWithoutARow();
    void settingsOfTheMasters();
    void aMissingMasterResetsTheMode();
};

void DynamicMastersTest::externalModeTakesTheMaster() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    QCOMPARE(Changes(), (QStringList{network + QStringLiteral("setMasterIndex(2)"),
                                     network + QStringLiteral("setDynamicMode(3)")}));
    QVERIFY(The<QRadioButton>("radioSyncExternal")->isChecked());
    for (const char* name : {"cbExternalMaster", "listDynamicMasterMode", "sbCountsPerSync", "sbHoldOffCounts"}) {
        QVERIFY2(Operator().IsEnabled(name), name);
    }
    QCOMPARE(The<QComboBox>("cbExternalMaster")->currentText(), QStringLiteral("SWAX200003"));
    QCOMPARE(Text("lblDynamicMasterMode"), QStringLiteral("NotMaster"));
    QCOMPARE(Row("listDynamicMasterMode"), 4);
    Click("radioSyncNormal");
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setDynamicMode(0)")});
    QVERIFY(!Operator().IsEnabled("cbExternalMaster"));
    QCOMPARE(Text("lblDynamicMasterMode"), QStringLiteral("NotMaster"));
}

void DynamicMastersTest::externalModeLeavesOutTheMaster() {
    OpenPage(Probes() + QStringLiteral("<module type=\"QTA\" identity=\"QTA0000004\"/>"));
    QCOMPARE(Value("sbModulesInCollection"), 3);
    Click("radioSyncExternal");
    QCOMPARE(Changes(), (QStringList{network + QStringLiteral("setNumberOfModules(2)"),
                                     network + QStringLiteral("setMasterIndex(2)"),
                                     network + QStringLiteral("setDynamicMode(3)")}));
    QCOMPARE(Value("sbModulesInCollection"), 2);
}

void DynamicMastersTest::externalModeWithoutMastersStaysNormal() {
    OpenPage();
    QCOMPARE(The<QComboBox>("cbExternalMaster")->count(), 0);
    Click("radioSyncExternal");
    QCOMPARE(Changes(), QStringList());
    QVERIFY(The<QRadioButton>("radioSyncNormal")->isChecked());
    QCOMPARE(Value("sbModulesInCollection"), 2);
}

void DynamicMastersTest::anotherMaster() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    Changes();
    QVERIFY(Operator().Choose("cbExternalMaster", 1));
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setMasterIndex(3)")});
    QCOMPARE(The<QComboBox>("cbExternalMaster")->currentText(), QStringLiteral("QTA0000004"));
    // A page that is shown anew shows the master that is set.
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    ShowPage();
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(The<QComboBox>("cbExternalMaster")->currentText(), QStringLiteral("QTA0000004"));
}

void DynamicMastersTest::masterModesOfRows() {
    OpenPage(Probes() + QStringLiteral("<module type=\"QTA\" identity=\"QTA0000004\"/>"));
    Click("radioSyncExternal");
    Changes();
    const int values[] = {0, 1, 5, 6, -1};
    for (const int row : {0, 1, 2, 3, 4}) {
        QVERIFY(Operator().SelectRow("listDynamicMasterMode", row));
        QCOMPARE(Changes(), QStringList{QStringLiteral("module QTA0000004.setDynamicMasterMode(%1)").arg(values[row])});
        QCOMPARE(Row("listDynamicMasterMode"), row);
        QCOMPARE(Text("lblDynamicMasterMode"),
                 row == 4 ? QStringLiteral("NotMaster") : Rows("listDynamicMasterMode").at(row));
    }
}

void DynamicMastersTest::rowsBeyondTheMasterModes() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    auto* list = The<QListWidget>("listDynamicMasterMode");
    list->addItem(QStringLiteral("Sixth"));
    Changes();
    ExpectBox(QStringLiteral("Unexpected external master mode"));
    list->setCurrentRow(5);
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Changes(), QStringList());
    list->setCurrentRow(-1);
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(list->currentRow(), 4);
}

void DynamicMastersTest::aModeWithoutARow() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    Fault unknown;
    unknown.operation = "DynamicMasterMode";
    unknown.trigger = FaultTrigger::FromNth;
    unknown.effect = FaultEffect::Result;
    unknown.code = 2;
    AddFault(unknown);
    Enter("sbNumSyncs", 5);
    QCOMPARE(Row("listDynamicMasterMode"), -1);
    QVERIFY(The<QListWidget>("listDynamicMasterMode")->selectedItems().isEmpty());
    QCOMPARE(Text("lblDynamicMasterMode"), QStringLiteral("Unknown master mode (2)"));
}

void DynamicMastersTest::settingsOfTheMasters() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    Changes();
    Enter("sbCountsPerSync", 12);
    QCOMPARE(Changes(), QStringList{QStringLiteral("module SWAX200003.setTxSync(12)")});
    Enter("sbHoldOffCounts", 7);
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(Value("sbHoldOffCounts"), 0);
    QVERIFY(Operator().Choose("cbExternalMaster", 1));
    Changes();
    QCOMPARE(Value("sbCountsPerSync"), 1);
    Enter("sbCountsPerSync", 65537 + 4);
    QCOMPARE(Changes(), QStringList{QStringLiteral("module QTA0000004.setTxSync(5)")});
    QCOMPARE(Value("sbCountsPerSync"), 5);
    Enter("sbHoldOffCounts", 700000);
    QCOMPARE(Changes(), QStringList{QStringLiteral("module QTA0000004.setHoldOff(700000)")});
    QCOMPARE(Value("sbHoldOffCounts"), 700000);
    ExpectBox(QStringLiteral("The counts per sync of module QTA0000004 must be 1 to 32767, not 0."));
    Enter("sbCountsPerSync", 0);
    QCOMPARE(boxes.Count(), 1);
}

void DynamicMastersTest::aMissingMasterResetsTheMode() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    QVERIFY(Operator().Choose("cbExternalMaster", 1));
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 3));
    Click("btnDeleteModule");
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList changes = Changes();
    QVERIFY2(changes.contains(network + QStringLiteral("setDynamicMode(0)")),
             qPrintable(changes.join(QLatin1Char('\n'))));
    ShowPage();
    QVERIFY(The<QRadioButton>("radioSyncNormal")->isChecked());
    QCOMPARE(The<QComboBox>("cbExternalMaster")->count(), 1);
}

TAVIK_TEST_MAIN(DynamicMastersTest)

#include "DynamicMastersTest.moc"
