#include "tests/panels/modes/BufferedPage.h"

using namespace TavikSimulator;

/// The external master of buffered mode on its page.
class BufferedMasterTest : public BufferedPage {
    Q_OBJECT

private slots:
    void mastersAreListed();
    void choosingAMaster();
    void choosingTheController();
    void countsOfEachKindOfMaster();
    void countsBeyondTheBoxAreNotWrittenBack();
    void unknownValuesSelectNothing();
    void anEmptyMasterTextSkipsTheChange();
    void capabilitiesThatTheNetworkLacks();
};

void BufferedMasterTest::mastersAreListed() {
    OpenBuffered();
    const auto* masters = On<QComboBox>("cbMasterAddress");
    QStringList entries;
    for (int i = 0; i < masters->count(); ++i) {
        entries.append(masters->itemText(i));
    }
    QCOMPARE(entries, Names("Controller SWAX200003 QTA0000004"));
    QCOMPARE(masters->currentIndex(), 0);
    SelectModule(1);
    QCOMPARE(masters->count(), 3);
    QCOMPARE(Calls::CountOf("setMasterIndex"), 0);
}

void BufferedMasterTest::choosingAMaster() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    Calls::Mark();
    QVERIFY(Operator().Choose("cbMasterAddress", 1));
    const QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 3), {QStringLiteral("network Alpha.Buffered()"),
                                    QStringLiteral("network Alpha.GetModuleIndexByID(\"SWAX200003\")"),
                                    QStringLiteral("buffered Alpha.setMasterIndex(2)")});
    QCOMPARE(calls.mid(3, 12), Refreshing(QStringLiteral("KX00000001")));
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentText(), QStringLiteral("SWAX200003"));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 1);
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable cbMasterAddress sbCountsPerSample"));
    QVERIFY(Operator().Click("btnEnable"));
    QCOMPARE(Enabled(), Names("btnDisable btnStart"));
}

void BufferedMasterTest::choosingTheController() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("25")));
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 25);
    Calls::Mark();
    QVERIFY(Operator().Choose("cbMasterAddress", 0));
    COMPARE_CALLS(Calls::Take(), NetworkCall("setMasterIndex(-1)") + Refreshing(QStringLiteral("KX00000001")));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 0);
    QVERIFY(!On<QSpinBox>("sbCountsPerSample")->isEnabled());
    QVERIFY(On<QComboBox>("cbMasterAddress")->isEnabled());
}

void BufferedMasterTest::countsOfEachKindOfMaster() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    const std::pair<int, const char*> masters[] = {{1, "module SWAX200003"}, {2, "module QTA0000004"}};
    for (const auto& [row, master] : masters) {
        QVERIFY(Operator().Choose("cbMasterAddress", row));
        Calls::Mark();
        QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("42")));
        QCOMPARE(Calls::CountOf("setTxSample"), 0);
        Operator().Press(Qt::Key_Tab);
        const QStringList calls = Calls::TakeObject(master);
        COMPARE_CALLS(calls.mid(0, 2), {QLatin1String(master) + QStringLiteral(".ModuleType()"),
                                        QLatin1String(master) + QStringLiteral(".setTxSample(42)")});
        QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 42);
    }
    // The kind decides; a master of another kind has no counts.
    AnswerFrom(1, "ModuleType", 1);
    QVERIFY(Operator().Click("radioSample"));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 0);
    Calls::Mark();
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("7")));
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(Calls::CountOf("setTxSample"), 0);
    // Nor has a module that only says that it is of that kind.
    ClearFaults();
    AnswerFrom(1, "ModuleType", 12);
    QVERIFY(Operator().Click("radioSample"));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 0);
}

void BufferedMasterTest::countsBeyondTheBoxAreNotWrittenBack() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    AnswerFrom(1, "TxSample", 500);
    Calls::Mark();
    QVERIFY(Operator().Click("radioSample"));
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 99);
    QCOMPARE(Calls::CountOf("setTxSample"), 0);
    ExpectBox(QStringLiteral("The counts per sample of module QTA0000004 must be 1 to 32767, not 0."));
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("0")));
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 99);
}

void BufferedMasterTest::unknownValuesSelectNothing() {
    OpenBuffered();
    AnswerFrom(1, "Mode", 77);
    // A probe is no master that is on offer.
    AnswerFrom(1, "MasterIndex", 1);
    AnswerFrom(1, "Status", 77);
    SelectModule(1);
    SelectModule(0);
    QVERIFY(!Checked("radioSync"));
    QVERIFY(!Checked("radioSample"));
    QVERIFY(Text("tbSubMode").contains(QLatin1String("77")));
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentIndex(), -1);
    QVERIFY(!On<QWidget>("gbSyncModeSettings")->isEnabled());
    QVERIFY(!On<QWidget>("gbExternalMaster")->isEnabled());
    QCOMPARE(Calls::CountOf("setMode") + Calls::CountOf("setMasterIndex"), 0);
    ClearFaults();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Checked("radioSample"));
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentIndex(), 0);
}

void BufferedMasterTest::anEmptyMasterTextSkipsTheChange() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    Calls::Mark();
    On<QComboBox>("cbMasterAddress")->setCurrentIndex(-1);
    QCOMPARE(Calls::CountOf("setMasterIndex"), 0);
    QCOMPARE(Calls::CountOf("Enabled"), 1);
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentIndex(), 0);
}

void BufferedMasterTest::capabilitiesThatTheNetworkLacks() {
    OpenBufferedOn(Bench(QStringLiteral("capabilities=\"buffered\"")));
    QVERIFY(Operator().Click("radioSample"));
    ExpectBox(QStringLiteral("Network \"Alpha\" cannot take the triggers of buffered mode from a module."));
    QVERIFY(Operator().Choose("cbMasterAddress", 1));
    QCOMPARE(On<QComboBox>("cbMasterAddress")->currentIndex(), 0);
}

TAVIK_TEST_MAIN(BufferedMasterTest)
#include "BufferedMasterTest.moc"
