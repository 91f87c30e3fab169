#include "tests/panels/modes/BufferedPage.h"

using namespace TavikSimulator;

/// What the operator enters on the page of buffered mode, and when it is written.
class BufferedEntryTest : public BufferedPage {
    Q_OBJECT

private slots:
    void mnemonicCommitsTheInterval();
    void mnemonicCommitsTheCounts();
    void unchangedNumbersAreNotWritten();
    void refusedNumberIsReportedOnce();
    void intervalAfterAFailedRefreshIsWrittenBack();
    void masterBeyondTheListIsNotFetched();
    void heldControlsEndAnEntryWithoutAWrite();
    void failedRefreshLeavesThePageUsable();
    void otherHoldersKeepTheControls();
    void startFocusesStop();
    void startRightAfterStop();

private:
    static QStringList Writes() { return Calls::Take().filter(QRegularExpression(QStringLiteral("\\.set"))); }
};

void BufferedEntryTest::mnemonicCommitsTheInterval() {
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("8192")));
    Operator().Press(Qt::Key_E, Qt::AltModifier);
    COMPARE_CALLS(Writes(), {QStringLiteral("buffered KX00000001.setReadingInterval(8192)"),
                             QStringLiteral("buffered KX00000001.setEnabled(true)")});
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), 8192);
}

void BufferedEntryTest::mnemonicCommitsTheCounts() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    Calls::Mark();
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("25")));
    Operator().Press(Qt::Key_E, Qt::AltModifier);
    COMPARE_CALLS(Writes(), {QStringLiteral("module QTA0000004.setTxSample(25)"),
                             QStringLiteral("buffered KX00000001.setEnabled(true)")});
    QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 25);
}

void BufferedEntryTest::unchangedNumbersAreNotWritten() {
    OpenBuffered();
    // 5000 is not a multiple of 4096: the box goes back to the interval that is set.
    for (const char* typed : {"4096", "5000"}) {
        QVERIFY(Operator().Enter("sbInterval", QLatin1String(typed)));
        Operator().Press(Qt::Key_Return);
        QCOMPARE(On<QSpinBox>("sbInterval")->value(), 4096);
    }
    Operator().Press(Qt::Key_Tab);
    COMPARE_CALLS(Writes(), {});
}

void BufferedEntryTest::refusedNumberIsReportedOnce() {
    OpenBuffered();
    Fault refused;
    refused.operation = "setReadingInterval";
    refused.trigger = FaultTrigger::FromNth;
    refused.text = ForeignText().toStdString();
    AddFault(refused);
    ExpectBox(ForeignText());
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("8192")));
    Operator().Press(Qt::Key_Return);
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Calls::CountOf("setReadingInterval"), 1);
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), 4096);
}

void BufferedEntryTest::intervalAfterAFailedRefreshIsWrittenBack() {
    OpenBuffered();
    FailNext("ReadingInterval", ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("8192")));
    Operator().Press(Qt::Key_Return);
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("4096")));
    Operator().Press(Qt::Key_Return);
    COMPARE_CALLS(Writes(), {QStringLiteral("buffered KX00000001.setReadingInterval(8192)"),
                             QStringLiteral("buffered KX00000001.setReadingInterval(4096)")});
}

void BufferedEntryTest::masterBeyondTheListIsNotFetched() {
    OpenBuffered();
    for (const int index : {4, -2}) {
        ClearFaults();
        AnswerFrom(1, "MasterIndex", index);
        Calls::Mark();
        QVERIFY(Operator().Click("radioSample"));
        QCOMPARE(Calls::CountOf("GetModule"), 0);
        QCOMPARE(On<QComboBox>("cbMasterAddress")->currentIndex(), -1);
        QCOMPARE(On<QSpinBox>("sbCountsPerSample")->value(), 0);
        QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("9")));
        Operator().Press(Qt::Key_Return);
        QCOMPARE(Calls::CountOf("GetModule"), 0);
        COMPARE_CALLS(Writes().filter(QStringLiteral("setTxSample")), {});
    }
}

void BufferedEntryTest::heldControlsEndAnEntryWithoutAWrite() {
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("8192")));
    auto hold = Window().DisableControls(QStringLiteral("test"));
    hold.Release();
    COMPARE_CALLS(Writes(), {});
    QCOMPARE(On<QSpinBox>("sbInterval")->value(), 4096);
}

void BufferedEntryTest::failedRefreshLeavesThePageUsable() {
    OpenBuffered();
    const QStringList usable = Enabled();
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(Enabled(), QStringList());
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), ForeignText());
    FailNext("Mode", ForeignText());
    hold.Release();
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Enabled(), usable);
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Checked("radioSample"));
}

void BufferedEntryTest::otherHoldersKeepTheControls() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(Enabled(), QStringList());
    QVERIFY(!Operator().Find("listModules")->isEnabledTo(&Window()));
    hold.Release();
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
}

void BufferedEntryTest::startFocusesStop() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    QCOMPARE(QApplication::focusWidget(), On<QWidget>("btnStop"));
    Operator().Press(Qt::Key_Space);
    QCOMPARE(Calls::CountOf("Stop"), 1);
}

void BufferedEntryTest::startRightAfterStop() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    On<QAbstractButton>("btnStop")->click();
    On<QAbstractButton>("btnStart")->click();
    ProcessAllEvents();
    QCOMPARE(Enabled(), Names("btnStop"));
    QCOMPARE(Window().Holders(), QStringList{QStringLiteral("buffered mode")});
    QVERIFY(Operator().Click("btnStop"));
    QVERIFY(Window().Holders().isEmpty());
}

TAVIK_TEST_MAIN(BufferedEntryTest)
#include "BufferedEntryTest.moc"
