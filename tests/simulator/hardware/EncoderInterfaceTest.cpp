#include "library/TavikModuleQTA.h"
#include "tests/simulator/hardware/OneModule.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

class Encoder : public OneModule<TavikModuleQTA> {
public:
    explicit Encoder(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("QTA", attributes, content) {}

    /// Turns the encoder to a position in lines and reads the count.
    int CountAt(double lines) const {
        Hold(lines);
        return (*this)->ReadInCounts();
    }
};

} // namespace

/// The encoder interface counts as its settings say.
class EncoderInterfaceTest : public QObject {
    Q_OBJECT

private slots:
    void CountsEdgesOfALine_data();
    void CountsEdgesOfALine();
    void UnsuitableModesCountWhatTheySee();
    void ModeChangesKeepTheCount();
    void WrongWiringIsASignalFault();
    void CountGoesOnBehindASignalFault();
    void ContinuousResetAtEveryMark();
    void ContinuousPresetAtEveryMark();
    void ResetHappensOnce();
    void PresetHappensOnce();
    void PresetTakesEffectAtTheMark();
    void MarksCountInBothDirections();
    void ASingleMark();
    void NoMarkNoAction();
    void TheWayIsFollowed();
    void SameTimesGiveTheSameCounts();
    void ImpossibleValuesAreRefused();
    void MasterSettingsAreKeptAndChecked();
    void CountIsLimited();
    void PowerOffLosesTheCount();
    void FilesAreChecked_data();
    void FilesAreChecked();
};

void EncoderInterfaceTest::CountsEdgesOfALine_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("perLine");
    QTest::newRow("x1") << QStringLiteral("quadrature") << 0 << 1;
    QTest::newRow("x2") << QStringLiteral("quadrature") << 1 << 2;
    QTest::newRow("x4") << QStringLiteral("quadrature") << 2 << 4;
    QTest::newRow("count A/B") << QStringLiteral("up-down") << 3 << 1;
    QTest::newRow("count/direction") << QStringLiteral("count-direction") << 4 << 1;
}

void EncoderInterfaceTest::CountsEdgesOfALine() {
    QFETCH(QString, output);
    QFETCH(int, mode);
    QFETCH(int, perLine);
    const Encoder encoder("encoder=\"" + output.toStdString() + "\"");
    encoder->setQuadratureMode(static_cast<eQuadratureMode>(mode));
    QCOMPARE(static_cast<int>(encoder->QuadratureMode()), mode);
    QCOMPARE(encoder.CountAt(100.0), 100 * perLine);
    QCOMPARE(encoder.CountAt(100.999), 100 * perLine + perLine - 1);
    QCOMPARE(encoder.CountAt(-30.0), -30 * perLine);
    QCOMPARE(encoder.CountAt(-30.001), -30 * perLine - 1);
    QCOMPARE(encoder->ReadInUnits(), static_cast<double>(-30 * perLine - 1));
}

void EncoderInterfaceTest::UnsuitableModesCountWhatTheySee() {
    // Up on A and down again on B, so the count never gets far.
    const Encoder quadrature;
    quadrature->setQuadratureMode(eQuadratureMode::CountAB);
    for (const double lines : {10.1, 20.6, -5.2, 1000.1}) {
        QVERIFY(std::abs(quadrature.CountAt(lines)) <= 1);
    }
    const Encoder upDown("encoder=\"up-down\"");
    upDown->setQuadratureMode(eQuadratureMode::quadX4);
    QCOMPARE(upDown.CountAt(50.0), 0);
    upDown->setQuadratureMode(eQuadratureMode::CountDIR);
    QCOMPARE(upDown.CountAt(80.0), 30);
    QCOMPARE(upDown.CountAt(60.0), 30);
    QCOMPARE(upDown.CountAt(65.0), 35);
    const Encoder direction("encoder=\"count-direction\"");
    direction->setQuadratureMode(eQuadratureMode::CountAB);
    QCOMPARE(direction.CountAt(20.0), 20);
    QCOMPARE(direction.CountAt(5.0), 35);
}

void EncoderInterfaceTest::ModeChangesKeepTheCount() {
    const Encoder encoder;
    encoder->setQuadratureMode(eQuadratureMode::quadX1);
    QCOMPARE(encoder.CountAt(100.0), 100);
    encoder->setQuadratureMode(eQuadratureMode::quadX4);
    QCOMPARE(encoder->ReadInCounts(), 100);
    QCOMPARE(encoder.CountAt(101.0), 104);
}

void EncoderInterfaceTest::WrongWiringIsASignalFault() {
    const Encoder single("wiring=\"single-ended\"");
    QCOMPARE(single->QtaInterfaceType(), eEncoderInterfaceType::Differential);
    const Refusal refusal = RefusalOf([&] { single->ReadInCounts(); });
    QVERIFY(refusal.Is(eTavikErrors::SignalFault) && refusal.Names("MODULE0001"));
    QVERIFY(RefusalOf([&] { single->ReadInUnits(); }).Is(eTavikErrors::SignalFault));
    QCOMPARE(single->LastResultCode(), static_cast<int>(eTavikErrors::SignalFault));
    single->Status()->UpdateStatus();
    QCOMPARE(single->Status()->ErrorCode(), static_cast<int>(eTavikErrors::SignalFault));
    single->setQtaInterfaceType(eEncoderInterfaceType::SingleEnded);
    QCOMPARE(single.CountAt(10.0), 40);
    QCOMPARE(single->LastResultCode(), 0);
}

void EncoderInterfaceTest::CountGoesOnBehindASignalFault() {
    const Encoder encoder;
    encoder->setQtaInterfaceType(eEncoderInterfaceType::SingleEnded);
    Hold(25.0);
    QVERIFY(RefusalOf([&] { encoder->ReadInCounts(); }).Is(eTavikErrors::SignalFault));
    encoder->setQtaInterfaceType(eEncoderInterfaceType::Differential);
    QCOMPARE(encoder->ReadInCounts(), 100);
}

void EncoderInterfaceTest::ContinuousResetAtEveryMark() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    encoder->setRefAction(eRefAction::ContinuousReset);
    QCOMPARE(encoder.CountAt(40.0), 160);
    QCOMPARE(encoder.CountAt(60.0), 40);
    QCOMPARE(encoder.CountAt(149.0), 396);
    QCOMPARE(encoder.CountAt(151.0), 4);
    // Several marks in one go: the last one counts.
    QCOMPARE(encoder.CountAt(475.0), 100);
    QCOMPARE(encoder->RefAction(), eRefAction::ContinuousReset);
}

void EncoderInterfaceTest::ContinuousPresetAtEveryMark() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    encoder->setPresetInCounts(-1000);
    encoder->setRefAction(eRefAction::ContinuousPreset);
    QCOMPARE(encoder.CountAt(40.0), 160);
    QCOMPARE(encoder.CountAt(50.0), -1000);
    QCOMPARE(encoder.CountAt(151.0), -996);
    QCOMPARE(encoder->RefAction(), eRefAction::ContinuousPreset);
}

void EncoderInterfaceTest::ResetHappensOnce() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    encoder->setRefAction(eRefAction::Reset);
    QCOMPARE(encoder.CountAt(49.0), 196);
    QCOMPARE(encoder->RefAction(), eRefAction::Reset);
    QCOMPARE(encoder.CountAt(160.0), 440);
    QCOMPARE(encoder->RefAction(), eRefAction::None);
    QCOMPARE(encoder.CountAt(260.0), 840);
    encoder->setRefAction(eRefAction::Reset);
    QCOMPARE(encoder.CountAt(351.0), 4);
}

void EncoderInterfaceTest::PresetHappensOnce() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    encoder->setPresetInCounts(5000);
    encoder->setRefAction(eRefAction::Preset);
    QCOMPARE(encoder.CountAt(51.0), 5004);
    QCOMPARE(encoder->RefAction(), eRefAction::None);
    QCOMPARE(encoder.CountAt(151.0), 5404);
}

void EncoderInterfaceTest::PresetTakesEffectAtTheMark() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    QCOMPARE(encoder.CountAt(10.0), 40);
    encoder->setPresetInCounts(7777);
    QCOMPARE(encoder->PresetInCounts(), 7777);
    QCOMPARE(encoder->ReadInCounts(), 40);
    QCOMPARE(encoder.CountAt(60.0), 240);
    encoder->setRefAction(eRefAction::Preset);
    QCOMPARE(encoder->ReadInCounts(), 240);
    QCOMPARE(encoder.CountAt(150.0), 7777);
}

void EncoderInterfaceTest::MarksCountInBothDirections() {
    const Encoder encoder("mark=\"50\" mark-every=\"100\"");
    encoder->setRefAction(eRefAction::ContinuousReset);
    QCOMPARE(encoder.CountAt(60.0), 40);
    QCOMPARE(encoder.CountAt(40.0), -40);
    QCOMPARE(encoder.CountAt(-70.0), -80);
}

void EncoderInterfaceTest::ASingleMark() {
    const Encoder encoder("mark=\"50\"");
    encoder->setRefAction(eRefAction::ContinuousReset);
    QCOMPARE(encoder.CountAt(1050.0), 4000);
    QCOMPARE(encoder.CountAt(2050.0), 8000);
    QCOMPARE(encoder.CountAt(49.0), -4);
}

void EncoderInterfaceTest::NoMarkNoAction() {
    const Encoder encoder;
    encoder->setRefAction(eRefAction::Reset);
    QCOMPARE(encoder.CountAt(100000.0), 400000);
    QCOMPARE(encoder->RefAction(), eRefAction::Reset);
}

// 40 lines to and fro in 4 s: forward alone 40 lines a period, there and back 80.
void EncoderInterfaceTest::TheWayIsFollowed() {
    const std::string toAndFro = "<signal base=\"0\" motion=\"triangle\" amplitude=\"10\" period=\"4\"/>";
    const Encoder forward("encoder=\"up-down\"", toAndFro);
    forward->setQuadratureMode(eQuadratureMode::CountDIR);
    AdvanceClock(4.0);
    QCOMPARE(forward->ReadInCounts(), 20);
    AdvanceClock(40.0);
    QCOMPARE(forward->ReadInCounts(), 220);
    const Encoder way("encoder=\"count-direction\"", toAndFro);
    way->setQuadratureMode(eQuadratureMode::CountAB);
    AdvanceClock(40.0);
    QCOMPARE(way->ReadInCounts(), 400);
    const Encoder position("", toAndFro);
    AdvanceClock(41.0);
    QCOMPARE(position->ReadInCounts(), 40);
    // Passed in the last period, five lines after it began and again on the way back; nobody asked meanwhile.
    const Encoder marked("mark=\"5.5\"", toAndFro);
    marked->setRefAction(eRefAction::ContinuousReset);
    AdvanceClock(40.0);
    QCOMPARE(marked->ReadInCounts(), -22);
}

void EncoderInterfaceTest::SameTimesGiveTheSameCounts() {
    const std::string signal = "<signal base=\"0\" motion=\"sine\" amplitude=\"300\" period=\"3.7\"/>";
    const auto countAfter = [&](int questions) {
        const Encoder encoder("mark=\"17\" mark-every=\"60\"", signal);
        encoder->setRefAction(eRefAction::ContinuousReset);
        int count = 0;
        for (int i = 0; i < questions; ++i) {
            AdvanceClock(1024.0 / questions);
            count = encoder->ReadInCounts();
        }
        return count;
    };
    const int once = countAfter(1);
    QVERIFY(once != 0);
    QCOMPARE(countAfter(8), once);
    QCOMPARE(countAfter(1024), once);
}

void EncoderInterfaceTest::ImpossibleValuesAreRefused() {
    const Encoder encoder;
    for (const int value : {-1, 5, 1000}) {
        QVERIFY(RefusalOf([&] { encoder->setRefAction(static_cast<eRefAction>(value)); }).Names("reference action"));
        QVERIFY(RefusalOf([&] {
                    encoder->setQuadratureMode(static_cast<eQuadratureMode>(value));
                }).Names(std::to_string(value)));
        QVERIFY(RefusalOf([&] {
                    encoder->setQtaInterfaceType(static_cast<eEncoderInterfaceType>(value));
                }).Is(eTavikErrors::InvalidArgument));
    }
    QVERIFY(RefusalOf([&] { encoder->setQtaInterfaceType(static_cast<eEncoderInterfaceType>(2)); }).refused);
    QVERIFY(RefusalOf([&] { encoder->setPresetInCounts(1000000001); }).Names("1000000001"));
    QVERIFY(RefusalOf([&] { encoder->setPresetInCounts(-1000000001); }).Is(eTavikErrors::InvalidArgument));
    encoder->setPresetInCounts(999999999);
    QCOMPARE(encoder->RefAction(), eRefAction::None);
    QCOMPARE(encoder->QuadratureMode(), eQuadratureMode::quadX4);
    QCOMPARE(encoder->QtaInterfaceType(), eEncoderInterfaceType::Differential);
    QVERIFY(eRefAction_ToString(static_cast<eRefAction>(-1)).find("-1") != std::string::npos);
    QVERIFY(eQuadratureMode_ToString(static_cast<eQuadratureMode>(9)).find('9') != std::string::npos);
    QVERIFY(eEncoderInterfaceType_ToString(static_cast<eEncoderInterfaceType>(2)).find('2') != std::string::npos);
}

void EncoderInterfaceTest::MasterSettingsAreKeptAndChecked() {
    const Encoder encoder;
    QCOMPARE(encoder->DynamicMasterMode(), eDynamicMasterMode::NotMaster);
    encoder->setTxSample(250);
    encoder->setTxSync(32767);
    encoder->setHoldOff(123456789);
    QCOMPARE(encoder->TxSample(), short{250});
    QCOMPARE(encoder->TxSync(), short{32767});
    QCOMPARE(encoder->HoldOff(), 123456789);
    for (const eDynamicMasterMode mode :
         {eDynamicMasterMode::Instant, eDynamicMasterMode::HoldOff, eDynamicMasterMode::Refaction_Reset,
          eDynamicMasterMode::Refaction_Preset, eDynamicMasterMode::NotMaster}) {
        encoder->setDynamicMasterMode(mode);
        QCOMPARE(encoder->DynamicMasterMode(), mode);
    }
    for (const short counts : {short{0}, short{-1}, short{-32768}}) {
        QVERIFY(RefusalOf([&] { encoder->setTxSample(counts); }).Names("counts per sample"));
        QVERIFY(RefusalOf([&] { encoder->setTxSync(counts); }).Names("counts per sync"));
    }
    QVERIFY(RefusalOf([&] { encoder->setHoldOff(-1); }).Names("hold-off"));
    for (const int mode : {-2, 2, 4, 7}) {
        QVERIFY(RefusalOf([&] {
                    encoder->setDynamicMasterMode(static_cast<eDynamicMasterMode>(mode));
                }).Is(eTavikErrors::InvalidArgument));
    }
    QCOMPARE(encoder->TxSample(), short{250});
}

void EncoderInterfaceTest::CountIsLimited() {
    const Encoder encoder("offset=\"-100\" stroke=\"300\"", "<signal base=\"0\"/>");
    QCOMPARE(encoder.CountAt(60.0), 200);
    QCOMPARE(encoder->LastResultCode(), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(encoder.CountAt(50.0), 200);
    QCOMPARE(encoder->LastResultCode(), 0);
    QCOMPARE(encoder.CountAt(-26.0), -100);
    QCOMPARE(encoder->LastResultCode(), static_cast<int>(eTavikErrors::UnderRange));
}

void EncoderInterfaceTest::PowerOffLosesTheCount() {
    const Encoder encoder;
    encoder->setQuadratureMode(eQuadratureMode::quadX1);
    QCOMPARE(encoder.CountAt(10.0), 10);
    TavikSimulator::SetModulePresent("N", "MODULE0001", false);
    TavikSimulator::SetModulePresent("N", "MODULE0001", true);
    QCOMPARE(encoder->ReadInCounts(), 0);
    QCOMPARE(encoder.CountAt(12.0), 2);
    QCOMPARE(encoder->QuadratureMode(), eQuadratureMode::quadX1);
}

void EncoderInterfaceTest::FilesAreChecked_data() {
    QTest::addColumn<QString>("attributes");
    QTest::newRow("encoder") << QStringLiteral("encoder=\"sine\"");
    QTest::newRow("wiring") << QStringLiteral("wiring=\"crossed\"");
    QTest::newRow("marks without a first one") << QStringLiteral("mark-every=\"100\"");
    QTest::newRow("marks too dense") << QStringLiteral("mark=\"0\" mark-every=\"0.5\"");
}

void EncoderInterfaceTest::FilesAreChecked() {
    QFETCH(QString, attributes);
    const Refusal refusal = RefusalOf([&] { const Encoder encoder(attributes.toStdString()); });
    QVERIFY(refusal.refused && refusal.Names("line"));
}

QTEST_APPLESS_MAIN(EncoderInterfaceTest)
#include "EncoderInterfaceTest.moc"
