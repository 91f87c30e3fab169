#include "tests/panels/modes/DynamicPage.h"
#include "tests/support/Contrast.h"

#include <QLabel>

using namespace TavikSimulator;

/// What the operator enters on the page of dynamic mode, and when it is written.
class DynamicEntryTest : public DynamicPage {
    Q_OBJECT

private slots:
    void openingAndTabbingWriteNothing();
    void unlistedValuesAreKept();
    void mnemonicCommitsTheCounts();
    void unchangedIntervalIsNotWritten();
    void refusedIntervalIsReportedOnce_data();
    void refusedIntervalIsReportedOnce();
    void refusedChangesAreTakenBack();
    void modulesBeyondTheListAreNotFetched();
    void stateIsReadableInADarkPalette();
    void longTextsAreInTooltips();

private:
    static void Answer(const char* operation, int number) {
        Fault fault;
        fault.operation = operation;
        fault.trigger = FaultTrigger::FromNth;
        fault.effect = FaultEffect::Result;
        fault.code = number;
        AddFault(fault);
    }
    void PressTabThroughThePage() {
        for (int i = 0; i < 25; ++i) {
            Operator().Press(Qt::Key_Tab);
        }
    }
};

void DynamicEntryTest::openingAndTabbingWriteNothing() {
    OpenModule(Benches::With(Masters()), 0);
    Answer("DynamicRate", 7);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    Calls::Mark();
    QVERIFY(Operator().SelectPage("dynamicWidget"));
    The<QListWidget>("listRate")->setFocus();
    PressTabThroughThePage();
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(Row("listRate"), -1);
}

void DynamicEntryTest::unlistedValuesAreKept() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    QVERIFY(Operator().SelectRow("listDynamicMasterMode", 0));
    Answer("DynamicMasterMode", 2);
    Enter("sbNumSyncs", 5);
    QCOMPARE(Row("listDynamicMasterMode"), -1);
    Changes();
    The<QListWidget>("listRate")->setFocus();
    PressTabThroughThePage();
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(Row("listDynamicMasterMode"), -1);
    Enable();
    QCOMPARE(Changes(), (QStringList{network + QStringLiteral("setDynamicInterval(1000)"),
                                     network + QStringLiteral("setEnabled(true)")}));
}

void DynamicEntryTest::mnemonicCommitsTheCounts() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    QVERIFY(Operator().SelectRow("listDynamicMasterMode", 0));
    Changes();
    QVERIFY(Operator().Enter("sbCountsPerSync", QStringLiteral("12")));
    Operator().Press(Qt::Key_E, Qt::AltModifier);
    QCOMPARE(Changes(), (QStringList{QStringLiteral("module SWAX200003.setTxSync(12)"),
                                     network + QStringLiteral("setDynamicInterval(1000)"),
                                     network + QStringLiteral("setEnabled(true)")}));
    QCOMPARE(Value("sbCountsPerSync"), 12);
}

void DynamicEntryTest::unchangedIntervalIsNotWritten() {
    OpenPage();
    QVERIFY(Operator().SelectRow("listRate", 3));
    Changes();
    Enter("sbInterval", 1000);
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(Changes(), QStringList());
    Enter("sbInterval", 2000);
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setDynamicInterval(2000)")});
}

void DynamicEntryTest::refusedIntervalIsReportedOnce_data() {
    QTest::addColumn<bool>("dropped");
    QTest::newRow("connected") << false;
    QTest::newRow("network dropped") << true;
}

void DynamicEntryTest::refusedIntervalIsReportedOnce() {
    QFETCH(bool, dropped);
    OpenPage();
    QVERIFY(Operator().SelectRow("listRate", 3));
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("2000")));
    SetNetworkPresent("Alpha", !dropped);
    Fault refused;
    refused.operation = "setDynamicInterval";
    refused.trigger = FaultTrigger::FromNth;
    refused.text = "No answer";
    AddFault(refused);
    Changes();
    ExpectBox(QStringLiteral("No answer"));
    Operator().Press(Qt::Key_Return);
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setDynamicInterval(2000)")});
    QCOMPARE(Value("sbInterval"), 1000);
}

void DynamicEntryTest::refusedChangesAreTakenBack() {
    OpenPage();
    const auto* list = The<QListWidget>("listRate");
    ExpectBox(QStringLiteral("No answer"));
    FailNext("setDynamicRate", QStringLiteral("No answer"));
    QVERIFY(Operator().ClickAt(list->viewport(), list->visualItemRect(list->item(2)).center()));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Row("listRate"), 0);
    QVERIFY(list->item(0)->isSelected() && !list->item(2)->isSelected());
    ExpectBox(QStringLiteral("No answer"));
    FailNext("setCollectionSize", QStringLiteral("No answer"));
    Enter("sbNumSyncs", 9);
    QCOMPARE(boxes.Count(), 2);
    QCOMPARE(Value("sbNumSyncs"), 1000);
}

void DynamicEntryTest::modulesBeyondTheListAreNotFetched() {
    OpenPage();
    Answer("NumberOfModules", 9);
    Enter("sbNumSyncs", 5);
    QCOMPARE(Value("sbModulesInCollection"), 9);
    QCOMPARE(Rows("listDynamicModules").size(), 2);
    QVERIFY(!Calls::Take().contains(QStringLiteral("network Alpha.GetModule(2)")));
}

void DynamicEntryTest::stateIsReadableInADarkPalette() {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(DarkPalette());
    const auto restore = qScopeGuard([&before] { QApplication::setPalette(before); });
    OpenPage(Masters());
    QCOMPARE(LowContrastTexts(Window(), 4.5), QStringList());
}

void DynamicEntryTest::longTextsAreInTooltips() {
    OpenPage();
    Answer("CollectionStatus", 0x2101);
    Enter("sbNumSyncs", 5);
    for (const char* name : {"lblRate", "lblStatus", "lblError"}) {
        QVERIFY2(!Text(name).isEmpty(), name);
        QCOMPARE(Operator().Find(name)->toolTip(), Text(name));
    }
}

TAVIK_TEST_MAIN(DynamicEntryTest)

#include "DynamicEntryTest.moc"
