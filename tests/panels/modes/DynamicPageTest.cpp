#include "tests/panels/modes/DynamicPage.h"

#include <QRadioButton>
#include <QTextEdit>

using namespace TavikSimulator;

namespace {

const QStringList settingsOfNormalMode{QStringLiteral("listRate"), QStringLiteral("sbNumSyncs"),
                                       QStringLiteral("radioSyncNormal"), QStringLiteral("radioSyncExternal"),
                                       QStringLiteral("sbModulesInCollection")};

} // namespace

/// The page of dynamic mode while nothing is collected.
class DynamicPageTest : public DynamicPage {
    Q_OBJECT

private slots:
    void whatTheFormHolds();
    void showingChangesNothing();
    void ratesAreSet();
    void noRowIsRefused();
    void numbersAreSet();
    void modulesInCollectionAreLimited();
    void intervalIsCheckedWhenEnabling_data();
    void intervalIsCheckedWhenEnabling();
    void intervalIsSetWithoutACheck();
    void enablingAndPreparing();
    void aNumberBeingTypedCounts();
    void otherLongOperations();
    void failuresShowTheirText_data();
    void failuresShowTheirText();
    void aFailedRefreshIsShown();
    void aDroppedNetworkIsNotShown();
    void aPageThatCouldNotBeSetUpAsksNothing();
    void networksOfBothKinds();
    void everythingIsReached();
};

void DynamicPageTest::whatTheFormHolds() {
    OpenPage();
    QStringList rates;
    QStringList modes;
    for (const QString& name : {QStringLiteral("listRate"), QStringLiteral("listDynamicMasterMode")}) {
        (rates.isEmpty() ? rates : modes) = Rows(qPrintable(name));
    }
    QCOMPARE(rates.join(QLatin1Char(' ')), QStringLiteral("Rate4K Rate2K Rate1K Dynamic2Custom"));
    QCOMPARE(modes.join(QLatin1Char(',')),
             QStringLiteral("Instant,HoldOff,Refaction_Reset,Refaction_Preset,Not Master"));
    for (const char* name : {"sbInterval", "sbNumSyncs", "sbCountsPerSync", "sbHoldOffCounts"}) {
        QCOMPARE(The<QSpinBox>(name)->minimum(), 0);
        QCOMPARE(The<QSpinBox>(name)->maximum(), 999999999);
    }
    QCOMPARE(The<QSpinBox>("sbModulesInCollection")->maximum(), 150);
    for (const char* name : {"lblNetEnabled", "lblStatus", "lblError"}) {
        QCOMPARE(Operator().Find(name)->styleSheet(),
                 QStringLiteral("border: 1px solid gray; background-color: white"));
    }
    QVERIFY(The<QTextEdit>("tbDynamicModeNotes")->isReadOnly());
    const QString notes = The<QTextEdit>("tbDynamicModeNotes")->toPlainText();
    QVERIFY(notes.contains(QLatin1String("last module index")) && notes.contains(QLatin1String("input 1")));
}

void DynamicPageTest::showingChangesNothing() {
    OpenModule(Benches::With(Masters()), 0);
    ShowPage();
    QCOMPARE(Changes(), QStringList());
    QCOMPARE(Text("lblRate"), QStringLiteral("Rate4K"));
    QCOMPARE(Row("listRate"), 0);
    QCOMPARE(Value("sbInterval"), 1000);
    QCOMPARE(Value("sbNumSyncs"), 1000);
    QVERIFY(The<QRadioButton>("radioSyncNormal")->isChecked());
    QCOMPARE(Text("lblDynamicMasterMode"), QStringLiteral("NotMaster"));
    QCOMPARE(Value("sbModulesInCollection"), 2);
    QCOMPARE(Rows("listDynamicModules"), (QStringList{QStringLiteral("KX00000001"), QStringLiteral("KX00000002")}));
    const auto* masters = The<QComboBox>("cbExternalMaster");
    QCOMPARE(masters->count(), 2);
    QCOMPARE(masters->itemText(0), QStringLiteral("SWAX200003"));
    QCOMPARE(masters->itemText(1), QStringLiteral("QTA0000004"));
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("False"));
    QCOMPARE(Text("lblStatus"), QStringLiteral("Idle"));
    QCOMPARE(Text("lblError"), QStringLiteral("No error."));
    QCOMPARE(Usable(), settingsOfNormalMode + QStringList{QStringLiteral("btnEnable")});
}

void DynamicPageTest::ratesAreSet() {
    OpenPage();
    for (const int rate : {3, 1, 2, 0}) {
        QVERIFY(Operator().SelectRow("listRate", rate));
        QCOMPARE(Changes(), QStringList{network + QStringLiteral("setDynamicRate(%1)").arg(rate)});
        QCOMPARE(Text("lblRate"), Rows("listRate").at(rate));
        QCOMPARE(Operator().IsEnabled("sbInterval"), rate == 3);
    }
}

void DynamicPageTest::noRowIsRefused() {
    OpenPage();
    ExpectBox(QStringLiteral("Network \"Alpha\" has no dynamic rate -1."));
    The<QListWidget>("listRate")->setCurrentRow(-1);
    QCOMPARE(boxes.Count(), 1);
    // The list still works as lists do.
    QVERIFY(Operator().SelectRow("listRate", 2));
    QCOMPARE(Text("lblRate"), QStringLiteral("Rate1K"));
    QCOMPARE(The<QListWidget>("listRate")->selectedItems().size(), 1);
}

void DynamicPageTest::numbersAreSet() {
    OpenPage();
    Enter("sbNumSyncs", 250);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setCollectionSize(250)")});
    Enter("sbNumSyncs", 0);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setCollectionSize(0)")});
    Enter("sbModulesInCollection", 1);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setNumberOfModules(1)")});
    QCOMPARE(Rows("listDynamicModules"), QStringList{QStringLiteral("KX00000001")});
}

void DynamicPageTest::modulesInCollectionAreLimited() {
    OpenPage(Masters());
    Enter("sbModulesInCollection", 100);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setNumberOfModules(4)")});
    QCOMPARE(Value("sbModulesInCollection"), 4);
    Click("radioSyncExternal");
    Changes();
    Enter("sbModulesInCollection", 4);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setNumberOfModules(3)")});
    Enter("sbModulesInCollection", 2);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setNumberOfModules(2)")});
    QCOMPARE(Rows("listDynamicModules").size(), 2);
}

void DynamicPageTest::intervalIsCheckedWhenEnabling_data() {
    QTest::addColumn<int>("interval");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("full speed") << 0 << true;
    QTest::newRow("1") << 1 << false;
    QTest::newRow("too short") << 111 << false;
    QTest::newRow("shortest") << 112 << true;
}

void DynamicPageTest::intervalIsCheckedWhenEnabling() {
    QFETCH(int, interval);
    QFETCH(bool, accepted);
    OpenPage();
    QVERIFY(Operator().SelectRow("listRate", 3));
    Enter("sbInterval", interval);
    const QString setInterval = network + QStringLiteral("setDynamicInterval(%1)").arg(interval);
    QVERIFY(Changes().contains(setInterval));
    if (!accepted) {
        ExpectBox(QStringLiteral("Interval must be 0 for full speed or a minimum of 112"));
    }
    Enable();
    QCOMPARE(boxes.Count(), accepted ? 0 : 1);
    QCOMPARE(Changes(),
             accepted ? (QStringList{setInterval, network + QStringLiteral("setEnabled(true)")}) : QStringList());
    QCOMPARE(Text("lblNetEnabled"), accepted ? QStringLiteral("True") : QStringLiteral("False"));
}

void DynamicPageTest::intervalIsSetWithoutACheck() {
    OpenPage();
    QVERIFY(Operator().SelectRow("listRate", 3));
    Changes();
    Enter("sbInterval", 3);
    QVERIFY(Changes().contains(network + QStringLiteral("setDynamicInterval(3)")));
    QCOMPARE(Value("sbInterval"), 3);
    QCOMPARE(boxes.Count(), 0);
}

void DynamicPageTest::enablingAndPreparing() {
    OpenPage(Masters());
    Enable();
    QCOMPARE(Changes(), (QStringList{network + QStringLiteral("setDynamicInterval(1000)"),
                                     network + QStringLiteral("setEnabled(true)")}));
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("True"));
    QCOMPARE(Usable(), (QStringList{QStringLiteral("btnDisable"), QStringLiteral("btnPrepare")}));
    Click("btnPrepare");
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("Prepare()")});
    QCOMPARE(Text("lblStatus"), QStringLiteral("Prepared"));
    QCOMPARE(Usable(), (QStringList{QStringLiteral("btnDisable"), QStringLiteral("btnStart")}));
    Click("btnDisable");
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setEnabled(false)")});
    QCOMPARE(Text("lblStatus"), QStringLiteral("Idle"));
    QCOMPARE(Usable(), settingsOfNormalMode + QStringList{QStringLiteral("btnEnable")});
}

void DynamicPageTest::aNumberBeingTypedCounts() {
    OpenPage();
    QVERIFY(Operator().Enter("sbNumSyncs", QStringLiteral("77")));
    QCOMPARE(Changes(), QStringList());
    // The key does not take the focus away from the number.
    Operator().Press(Qt::Key_E, Qt::AltModifier);
    QVERIFY(WaitUntil([this] { return Text("lblNetEnabled") == QLatin1String("True"); }));
    QCOMPARE(Changes(), (QStringList{network + QStringLiteral("setCollectionSize(77)"),
                                     network + QStringLiteral("setDynamicInterval(1000)"),
                                     network + QStringLiteral("setEnabled(true)")}));
    QCOMPARE(Value("sbNumSyncs"), 77);
}

void DynamicPageTest::otherLongOperations() {
    OpenPage(Masters());
    Click("radioSyncExternal");
    QVERIFY(Operator().SelectRow("listRate", 3));
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("55")));
    Changes();
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(Usable(), QStringList());
    QCOMPARE(Changes(), QStringList());
    hold.Release();
    QVERIFY(Usable().contains(QStringLiteral("sbInterval")) && Usable().contains(QStringLiteral("cbExternalMaster")));
    QCOMPARE(Changes(), QStringList());
}

void DynamicPageTest::failuresShowTheirText_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("deed");
    QTest::newRow("rate") << QStringLiteral("setDynamicRate") << 0;
    QTest::newRow("syncs") << QStringLiteral("setCollectionSize") << 1;
    QTest::newRow("modules") << QStringLiteral("setNumberOfModules") << 2;
    QTest::newRow("normal") << QStringLiteral("setDynamicMode") << 3;
    QTest::newRow("external") << QStringLiteral("setMasterIndex") << 4;
    QTest::newRow("master mode") << QStringLiteral("setDynamicMasterMode") << 5;
    QTest::newRow("counts") << QStringLiteral("setTxSync") << 6;
    QTest::newRow("hold-off") << QStringLiteral("setHoldOff") << 7;
    QTest::newRow("interval") << QStringLiteral("setDynamicInterval") << 8;
    QTest::newRow("minimum") << QStringLiteral("MinimumInterval") << 9;
    QTest::newRow("enable") << QStringLiteral("setEnabled") << 9;
    QTest::newRow("prepare") << QStringLiteral("Prepare") << 10;
}

void DynamicPageTest::failuresShowTheirText() {
    QFETCH(QString, operation);
    QFETCH(int, deed);
    OpenPage(Probes() + QStringLiteral("<module type=\"QTA\" identity=\"QTA0000004\"/>"));
    const std::vector<std::function<void()>> deeds = {
        [this] { QVERIFY(Operator().SelectRow("listRate", 1)); },
        [this] { Enter("sbNumSyncs", 9); },
        [this] { Enter("sbModulesInCollection", 1); },
        [this] { Click("radioSyncNormal"); },
        [this] { Click("radioSyncExternal"); },
        [this] { QVERIFY(Operator().SelectRow("listDynamicMasterMode", 1)); },
        [this] { Enter("sbCountsPerSync", 9); },
        [this] { Enter("sbHoldOffCounts", 9); },
        [this] { Enter("sbInterval", 9); },
        [this] { Enable(); },
        [this] { Click("btnPrepare"); }};
    if (deed >= 5 && deed <= 7) {
        Click("radioSyncExternal");
    }
    if (deed == 8) {
        QVERIFY(Operator().SelectRow("listRate", 3));
    }
    if (deed == 10) {
        Enable();
    }
    const QString text = QStringLiteral("Gauge <b>3</b> & more");
    ExpectBox(text);
    FailNext(qPrintable(operation), text);
    deeds[static_cast<std::size_t>(deed)]();
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(IsOpen());
}

void DynamicPageTest::aFailedRefreshIsShown() {
    OpenPage();
    ExpectBox(QStringLiteral("No answer"));
    FailNext("NumberOfModules", QStringLiteral("No answer"));
    Enter("sbNumSyncs", 9);
    QCOMPARE(boxes.Count(), 1);
    Changes();
    // What the page was being filled with does not count as the operator's.
    Enter("sbNumSyncs", 10);
    QCOMPARE(Changes(), QStringList{network + QStringLiteral("setCollectionSize(10)")});
}

void DynamicPageTest::aDroppedNetworkIsNotShown() {
    OpenPage();
    Enable();
    SetNetworkPresent("Alpha", false);
    Changes();
    Window().DisableControls(QStringLiteral("test")).Release();
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("True"));
    ExpectBox(QStringLiteral("Network \"Alpha\" is not connected."));
    Click("btnPrepare");
    QCOMPARE(boxes.Count(), 1);
}

void DynamicPageTest::aPageThatCouldNotBeSetUpAsksNothing() {
    OpenPage();
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("No dynamic mode"));
    FailNext("Dynamic", QStringLiteral("No dynamic mode"));
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    QTRY_COMPARE(boxes.Count(), 1);
    Calls::Mark();
    Window().DisableControls(QStringLiteral("test")).Release();
    const auto calls = Calls::Take();
    for (const QString& call : calls) {
        QVERIFY2(!call.startsWith(QLatin1String("dynamic ")), qPrintable(call));
    }
}

void DynamicPageTest::networksOfBothKinds() {
    OpenModule(Benches::With(Probes(), QStringLiteral("capabilities=\"dynamic2\"")), 0);
    ShowPage();
    ExpectBox(QStringLiteral("Network \"Alpha\" cannot be enabled for dynamic mode: its controller does not offer the "
                             "rate Rate4K."));
    Enable();
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(Operator().SelectRow("listRate", 3));
    Enable();
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("True"));
}

void DynamicPageTest::everythingIsReached() {
    OpenPage(Masters());
    Window().resize(1100, 700);
    ProcessAllEvents();
    // Every control can be brought into view and is not covered by another one.
    Click("radioSyncExternal");
    QVERIFY(Operator().Choose("cbExternalMaster", 1));
    for (const int row : {0, 1, 2, 3, 4}) {
        QVERIFY(Operator().SelectRow("listDynamicMasterMode", row));
        QVERIFY(Operator().SelectRow("listRate", row % 4));
    }
    for (const char* name : {"sbNumSyncs", "sbCountsPerSync", "sbHoldOffCounts", "sbModulesInCollection"}) {
        QVERIFY(Operator().Click(name));
    }
    for (const char* name : {"listRate", "listDynamicMasterMode"}) {
        const auto* list = The<QListWidget>(name);
        const QRect last = list->visualItemRect(list->item(list->count() - 1));
        QVERIFY2(list->viewport()->rect().contains(last), name);
    }
}

TAVIK_TEST_MAIN(DynamicPageTest)

#include "DynamicPageTest.moc"
