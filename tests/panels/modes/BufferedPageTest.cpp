#include "tests/panels/modes/BufferedPage.h"

#include "library/TavikBuffered.h"

#include <QTextEdit>

using namespace TavikSimulator;

/// What the page of buffered mode shows, and how it sets modules and master.
class BufferedPageTest : public BufferedPage {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void aModuleInNoSubModeIsPutInSyncMode();
    void aRefreshAsksInOrderAndWritesNothing();
    void subModesAreChosen();
    void enablingAndDisabling();
    void typedIntervalsSnap_data();
    void typedIntervalsSnap();
    void intervalsAreSentOnceTyped();
    void theBoxNeverHoldsAnotherInterval();
    void reportedIntervalsAreShownAsNearAsCan_data();
    void reportedIntervalsAreShownAsNearAsCan();
    void failedChangesLeaveThePageAsItWas_data();
    void failedChangesLeaveThePageAsItWas();
    void failuresWhileRefreshing_data();
    void failuresWhileRefreshing();
    void nothingIsAskedWithoutModuleOrConnection();
    void theKeyboardReachesEverything();
    void thePageFitsTheWindow();
};

void BufferedPageTest::theFormIsAsKnown() {
    OpenBuffered();
    QCOMPARE(Page()->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(Page()), QStringLiteral("Module Commands,Sub-mode,Sync Mode Settings,Network Commands,"
                                            "External Master,Display Results,Buffered Mode Notes")
                                 .split(QLatin1Char(',')));
    for (const char* field :
         {"tbModuleID", "tbEnabled", "tbSubMode", "tbIntervalError", "tbTTU", "tbEnabledModCount"}) {
        QVERIFY2(On<QLineEdit>(field)->isReadOnly(), field);
    }
    const std::pair<const char*, const char*> captions[] = {
        {"btnEnable", "Enable"},        {"btnDisable", "Disable"},        {"radioSync", "Sync Mode"},
        {"radioSample", "Sample Mode"}, {"btnStart", "Start Buffered"},   {"btnSample", "Sample Buffered"},
        {"btnStop", "Stop Buffered"},   {"btnAllModules", "All Modules"}, {"btnCurrentModule", "Current Module"}};
    for (const auto& [name, caption] : captions) {
        QCOMPARE(On<QAbstractButton>(name)->text(), QString::fromLatin1(caption));
    }
    const auto* interval = On<QSpinBox>("sbInterval");
    QCOMPARE(interval->minimum(), 4096);
    QCOMPARE(interval->maximum(), 999999999);
    QCOMPARE(interval->singleStep(), 4096);
    QCOMPARE(interval->value(), 4096);
    QVERIFY(!interval->keyboardTracking());
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->minimum(), 0);
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->maximum(), 99);
    const auto* notes = On<QTextEdit>("textNotes");
    QVERIFY(notes->isReadOnly());
    const QString text = notes->toPlainText();
    for (const char* part :
         {"Buffered sub-modes are set locally to the selected module upon enabling.", "Sync Mode.", "Sample Mode.",
          "(1 TTU = 102.4uS) and should be in multiples of 40 and >= 40.", "'Enable'", "'Start Buffered'",
          "'Sample Buffered'", "'Stop Buffered'", "'Current Module'", "'All Modules'",
          "Note that it is possible to use a mixture of modules in sync and sample modes", "last module address"}) {
        QVERIFY2(text.contains(QLatin1String(part)), part);
    }
}

void BufferedPageTest::aModuleInNoSubModeIsPutInSyncMode() {
    OpenNetwork(Bench());
    QVERIFY(Operator().SelectRow("listModules", 1));
    QCOMPARE(Calls::CountOf("setMode"), 1);
    COMPARE_CALLS(Calls::TakeObject("buffered KX00000002").mid(0, 3),
                  {QStringLiteral("buffered KX00000002.Mode()"), QStringLiteral("buffered KX00000002.Enabled()"),
                   QStringLiteral("buffered KX00000002.setMode(1)")});
    QVERIFY(Operator().SelectPage("tabBuffered"));
    QCOMPARE(Text("tbSubMode"), QStringLiteral("Sync"));
    QVERIFY(Checked("radioSync"));
    QVERIFY(!Checked("radioSample"));
    SelectModule(0);
    SelectModule(1);
    QCOMPARE(Calls::CountOf("setMode"), 0);
    QCOMPARE(Text("tbModuleID"), QStringLiteral("KX00000002"));
    QCOMPARE(Text("tbEnabled"), QStringLiteral("False"));
    QCOMPARE(Text("tbTTU"), QStringLiteral("40"));
    QCOMPARE(Text("tbIntervalError"), QStringLiteral("0"));
    QCOMPARE(Text("tbEnabledModCount"), QStringLiteral("0"));
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable sbInterval"));
}

void BufferedPageTest::aRefreshAsksInOrderAndWritesNothing() {
    OpenBuffered();
    QVERIFY(Operator().Click("btnEnable"));
    COMPARE_CALLS(Calls::Take(), ModuleChange("setEnabled(true)"));
    QVERIFY(Operator().Click("btnDisable"));
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    Calls::Mark();
    SelectModule(0);
    QVERIFY(Operator().Click("btnEnable"));
    const QStringList expected =
        Refreshing(QStringLiteral("KX00000001")) +
        QStringList{QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.GetModule(3)"),
                    QStringLiteral("module QTA0000004.Identity()"), QStringLiteral("module QTA0000004.ModuleType()"),
                    QStringLiteral("module QTA0000004.TxSample()")};
    COMPARE_CALLS(Calls::Take().mid(2), expected);
}

void BufferedPageTest::subModesAreChosen() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    COMPARE_CALLS(Calls::Take(), ModuleChange("setMode(2)"));
    QCOMPARE(Text("tbSubMode"), QStringLiteral("Sample"));
    QVERIFY(!On<QWidget>("gbSyncModeSettings")->isEnabled());
    QVERIFY(On<QWidget>("gbExternalMaster")->isEnabled());
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable cbMasterAddress"));
    QVERIFY(Operator().Click("radioSync"));
    COMPARE_CALLS(Calls::Take(), ModuleChange("setMode(1)"));
    QVERIFY(On<QWidget>("gbSyncModeSettings")->isEnabled());
    QVERIFY(!On<QWidget>("gbExternalMaster")->isEnabled());
}

void BufferedPageTest::enablingAndDisabling() {
    OpenBuffered();
    QVERIFY(Operator().Click("btnEnable"));
    COMPARE_CALLS(Calls::Take(), ModuleChange("setEnabled(true)"));
    QCOMPARE(Text("tbEnabled"), QStringLiteral("True"));
    QCOMPARE(Text("tbEnabledModCount"), QStringLiteral("1"));
    QCOMPARE(Enabled(), Names("btnDisable btnStart"));
    QVERIFY(!On<QWidget>("tbIntervalError")->isEnabled());
    QVERIFY(!On<QWidget>("tbTTU")->isEnabled());
    SelectModule(1);
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable sbInterval btnStart"));
    SelectModule(0);
    QVERIFY(Operator().Click("btnDisable"));
    COMPARE_CALLS(Calls::Take(), ModuleChange("setEnabled(false)"));
    QCOMPARE(Text("tbEnabledModCount"), QStringLiteral("0"));
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable sbInterval"));
}

void BufferedPageTest::typedIntervalsSnap_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("held");
    QTest::newRow("multiple") << QStringLiteral("8192") << 8192;
    QTest::newRow("down") << QStringLiteral("10000") << 8192;
    QTest::newRow("up") << QStringLiteral("10300") << 12288;
    QTest::newRow("middle") << QStringLiteral("10240") << 12288;
    QTest::newRow("a second") << QStringLiteral("1000000") << 999424;
    QTest::newRow("largest") << QStringLiteral("999999999") << 999997440;
}

void BufferedPageTest::typedIntervalsSnap() {
    QFETCH(QString, typed);
    QFETCH(int, held);
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", typed));
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), held);
    COMPARE_CALLS(Calls::TakeOperation("setReadingInterval"),
                  {QStringLiteral("buffered KX00000001.setReadingInterval(%1)").arg(held)});
    QCOMPARE(Text("tbTTU"), QString::number(held / 4096 * 40));
    QCOMPARE(Text("tbIntervalError"), QStringLiteral("0"));
}

void BufferedPageTest::intervalsAreSentOnceTyped() {
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("40960")));
    QCOMPARE(Calls::CountOf("setReadingInterval"), 0);
    Operator().Press(Qt::Key_Return);
    QCOMPARE(Calls::CountOf("setReadingInterval"), 1);
    Calls::Mark();
    Operator().Press(Qt::Key_Up);
    COMPARE_CALLS(Calls::Take(), ModuleChange("setReadingInterval(45056)"));
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(Calls::CountOf("setReadingInterval"), 0);
}

void BufferedPageTest::theBoxNeverHoldsAnotherInterval() {
    OpenBuffered();
    auto* interval = On<QSpinBox>("sbInterval");
    for (const int value : {4097, 5000, 123456789, 999999999, 6144}) {
        interval->setValue(value);
        QCOMPARE(interval->value() % 4096, 0);
        QVERIFY(std::abs(interval->value() - value) <= 2559);
    }
    QCOMPARE(Text("tbTTU"), QString::number(interval->value() / 4096 * 40));
}

void BufferedPageTest::reportedIntervalsAreShownAsNearAsCan_data() {
    QTest::addColumn<int>("reported");
    QTest::addColumn<int>("shown");
    QTest::newRow("between") << 5000 << 4096;
    QTest::newRow("nearer to the next") << 7000 << 8192;
    QTest::newRow("too short") << 0 << 4096;
    QTest::newRow("negative") << -100000 << 4096;
    QTest::newRow("too long") << 2147483647 << 999997440;
}

void BufferedPageTest::reportedIntervalsAreShownAsNearAsCan() {
    QFETCH(int, reported);
    QFETCH(int, shown);
    OpenBuffered();
    AnswerFrom(1, "ReadingInterval", reported);
    AnswerFrom(1, "ReadingIntervalErrorUs", -77);
    AnswerFrom(1, "TTUs", 4711);
    SelectModule(1);
    SelectModule(0);
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), shown);
    QCOMPARE(Text("tbIntervalError"), QStringLiteral("-77"));
    QCOMPARE(Text("tbTTU"), QStringLiteral("4711"));
    On<QSpinBox>("sbInterval")->setFocus();
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(Calls::CountOf("setReadingInterval"), 0);
}

void BufferedPageTest::failedChangesLeaveThePageAsItWas_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation :
         {"setEnabled", "setMode", "setReadingInterval", "GetModuleIndexByID", "setMasterIndex", "setTxSample"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void BufferedPageTest::failedChangesLeaveThePageAsItWas() {
    QFETCH(QString, operation);
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("8192")));
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    FailNext(operation.toLatin1().constData(), ForeignText());
    ExpectBox(ForeignText());
    if (operation == QLatin1String("setEnabled")) {
        QVERIFY(Operator().Click("btnEnable"));
    } else if (operation == QLatin1String("setMode")) {
        QVERIFY(Operator().Click("radioSync"));
    } else if (operation == QLatin1String("setReadingInterval")) {
        QVERIFY(Operator().Click("radioSync"));
        QVERIFY(Operator().Enter("sbInterval", QStringLiteral("40960")));
        Operator().Press(Qt::Key_Return);
    } else if (operation == QLatin1String("setTxSample")) {
        QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("25")));
        Operator().Press(Qt::Key_Return);
    } else {
        QVERIFY(Operator().Choose("cbMasterAddress", 1));
    }
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Text("tbEnabled"), QStringLiteral("False"));
    const bool sync = operation == QLatin1String("setReadingInterval");
    QCOMPARE(Checked("radioSync"), sync);
    QCOMPARE(Checked("radioSample"), !sync);
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), 8192);
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentText(), QStringLiteral("QTA0000004"));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 1);
    // The same again goes through.
    if (sync) {
        QVERIFY(Operator().Enter("sbInterval", QStringLiteral("40960")));
        Operator().Press(Qt::Key_Return);
        QCOMPARE(Text("tbTTU"), QStringLiteral("400"));
    }
}

void BufferedPageTest::failuresWhileRefreshing_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"IsConnected", "Buffered", "Mode", "Enabled", "Identity", "ReadingInterval",
                                  "ReadingIntervalErrorUs", "TTUs", "EnabledCount", "Status", "MasterIndex"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void BufferedPageTest::failuresWhileRefreshing() {
    QFETCH(QString, operation);
    OpenBuffered();
    FailNext(operation.toLatin1().constData(), ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click("radioSample"));
    QCOMPARE(boxes.Count(), 1);
    // The next action finds the page usable.
    QVERIFY(Operator().Click("radioSample"));
    QCOMPARE(Text("tbSubMode"), QStringLiteral("Sample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 1);
}

void BufferedPageTest::nothingIsAskedWithoutModuleOrConnection() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    SetNetworkPresent("Alpha", false);
    const QString before = Text("tbEnabled");
    ExpectBox(QStringLiteral("Network \"Alpha\" is not connected."));
    QVERIFY(Operator().Click("btnEnable"));
    QCOMPARE(Text("tbEnabled"), before);
    SetNetworkPresent("Alpha", true);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(Operator().Click("btnDisconnectAll"));
    // The page has been left; what ends editing in it now reaches no module.
    Calls::Mark();
    On<QSpinBox>("sbInterval")->setValue(40960);
    On<QComboBox>("cbMasterAddress")->setCurrentIndex(1);
    for (const char* button : {"btnEnable", "btnDisable", "btnStart", "btnSample", "btnStop", "btnAllModules",
                               "btnCurrentModule", "radioSync"}) {
        On<QAbstractButton>(button)->setEnabled(true);
        On<QAbstractButton>(button)->click();
    }
    COMPARE_CALLS(Calls::Take(), {});
}

void BufferedPageTest::theKeyboardReachesEverything() {
    OpenBuffered();
    On<QWidget>("radioSync")->setFocus();
    QStringList visited;
    for (int i = 0; i < 30 && !visited.contains(QStringLiteral("textNotes")); ++i) {
        visited.append(QApplication::focusWidget()->objectName());
        Operator().Press(Qt::Key_Tab);
    }
    const auto names = Enabled();
    for (const QString& name : names) {
        QVERIFY2(visited.contains(name) || name == QLatin1String("radioSample"), qPrintable(name));
    }
    QVERIFY(visited.indexOf(QStringLiteral("btnEnable")) < visited.indexOf(QStringLiteral("sbInterval")));
}

void BufferedPageTest::thePageFitsTheWindow() {
    OpenBuffered();
    Window().resize(1100, 700);
    ProcessAllEvents();
    const auto* scroll = Window().findChild<QWidget*>(QStringLiteral("scrollBufferedModeWidget"));
    QVERIFY(Page()->minimumSizeHint().width() <= scroll->width());
    QVERIFY(Page()->minimumSizeHint().height() <= scroll->height());
}

TAVIK_TEST_MAIN(BufferedPageTest)
#include "BufferedPageTest.moc"
