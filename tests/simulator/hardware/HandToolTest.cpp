#include "tests/simulator/hardware/Wireless.h"

#include <cmath>

using namespace TavikLibrary;
using namespace TavikSimulator;

namespace {

constexpr eRead3_ControlCode Tagged = eRead3_ControlCode::Tagged;

/// A gauge that swings between 3 and 7 once in 8 seconds, beginning at 5 upwards.
const std::string Swinging = "<channel id=\"GA00000001\"><signal base=\"5\" motion=\"triangle\" amplitude=\"2\" "
                             "period=\"8\" noise=\"0\"/></channel>";

TavikChannelReading First(WirelessServer& server) {
    return server.Device()->ReadAllChannels()[0];
}

} // namespace

/// What a simulated hand tool reads, and what becomes of its battery and its radio link.
class HandToolTest : public QObject {
    Q_OBJECT

private slots:
    void ReadsItsGauge();
    void ReadingsAreRoundedToTheResolution();
    void EveryChannelOfAMultiChannelToolHasAResolution();
    void ReadingsBeyondTheStrokeAreMarked();
    void ZeroAndPresetShiftTheDatum();
    void SavedDatumOutlastsAPowerCycle();
    void MaxMinAndDifference();
    void LimitsMarkReadings();
    void TaggedReadingsComeWithThePress();
    void TaggedModesHoldTheTaggedReading();
    void ButtonsDoWhatTheyAreSetTo();
    void TheUserPressesNowAndThen();
    void SwitchesItselfOff();
    void IsKeptAwakeByReads();
    void IsWokenByItsUser();
    void BatteryDrains();
    void EmptyBatteryEndsEverything();
    void OutOfRange();
    void BluetoothClassDecidesOnTheRange();
    void WeakLinkLoses();
    void WeakLinkRepeats();
    void LinkDelays();
    void SameSeedSameReadings();
    void ReadCodesAreChecked();
    void ChannelsAreChecked();
    void ToolsThatAreNotThereCannotBeSteered();
};

void HandToolTest::ReadsItsGauge() {
    WirelessServer server(SingleChannel());
    const TavikChannelReading reading = First(server);
    QCOMPARE(reading.id, std::string("GA00000001"));
    QCOMPARE(reading.stroke, 12.0);
    QCOMPARE(reading.reading, 5.0);
    QCOMPARE(reading.status, eTavikErrors::NoError);
    QCOMPARE(reading.tag, 0);
    QCOMPARE(server.Device()->GetChannelData(0), std::string("GA00000001"));
}

void HandToolTest::ReadingsAreRoundedToTheResolution() {
    WirelessServer server(SingleChannel("", Still("1.2345678")));
    const double expected[] = {1.23, 1.235, 1.2346, 1.23457};
    for (int decimals = 2; decimals <= 5; ++decimals) {
        server.KRV()->setDisplayedResolution(decimals);
        QCOMPARE(server.Reading(), expected[decimals - 2]);
    }
}

void HandToolTest::EveryChannelOfAMultiChannelToolHasAResolution() {
    WirelessServer server(EightChannels("", Still("1.2345678") + Still("1.2345678")));
    server.KRVX()->SetDisplayedResolution(1, 0);
    server.KRVX()->SetDisplayedResolution(2, 5);
    TavikChannelReadings readings = server.Device()->ReadAllChannels();
    QCOMPARE(readings[0].reading, 1.0);
    QCOMPARE(readings[1].reading, 1.23457);
}

void HandToolTest::ReadingsBeyondTheStrokeAreMarked() {
    WirelessServer over(SingleChannel("", Still("12.5")));
    QCOMPARE(First(over).reading, 12.0);
    QCOMPARE(First(over).status, eTavikErrors::OverRange);
    WirelessServer under(SingleChannel("", Still("-0.5")));
    QCOMPARE(First(under).reading, 0.0);
    QCOMPARE(First(under).status, eTavikErrors::UnderRange);
}

void HandToolTest::ZeroAndPresetShiftTheDatum() {
    WirelessServer server(SingleChannel());
    server.KRV()->Zero();
    QCOMPARE(server.Reading(), 0.0);
    server.KRV()->setPresetValue(-2.5);
    QCOMPARE(server.Reading(), 0.0);
    server.KRV()->Preset();
    QCOMPARE(server.Reading(), -2.5);
    server.KRV()->ABS();
    QCOMPARE(server.Reading(), 5.0);
}

void HandToolTest::SavedDatumOutlastsAPowerCycle() {
    WirelessServer server(SingleChannel());
    server.KRV()->Zero();
    PowerCycleTool("KRV0000001");
    QCOMPARE(server.Reading(), 5.0);
    server.KRV()->Zero();
    server.KRV()->SaveZero();
    PowerCycleTool("KRV0000001");
    QCOMPARE(server.Reading(), 0.0);
}

void HandToolTest::MaxMinAndDifference() {
    WirelessServer server(SingleChannel("", Swinging));
    server.KRV()->ResetMinMax();
    AdvanceClock(8.0);
    const auto readingIn = [&](eKRV_OperationMode mode) {
        server.KRV()->setOperationMode(mode);
        return server.Reading();
    };
    QCOMPARE(readingIn(eKRV_OperationMode::Normal), 5.0);
    QCOMPARE(readingIn(eKRV_OperationMode::Max), 7.0);
    QCOMPARE(readingIn(eKRV_OperationMode::Min), 3.0);
    QCOMPARE(readingIn(eKRV_OperationMode::Diff), 4.0);
    server.KRV()->ResetMinMax();
    QCOMPARE(readingIn(eKRV_OperationMode::Diff), 0.0);
    AdvanceClock(2.0);
    QCOMPARE(readingIn(eKRV_OperationMode::Max), 7.0);
    QCOMPARE(readingIn(eKRV_OperationMode::Min), 5.0);
    server.KRV()->Zero();
    QCOMPARE(readingIn(eKRV_OperationMode::Min), -2.0);
}

void HandToolTest::LimitsMarkReadings() {
    WirelessServer server(SingleChannel());
    KRV_Limits* limits = server.KRV()->Limits();
    limits->Upper()->setValue(4.0);
    limits->Lower()->setValue(1.0);
    QCOMPARE(First(server).status, eTavikErrors::NoError);
    limits->setEnabled(true);
    QCOMPARE(First(server).status, eTavikErrors::AboveLimit);
    limits->Upper()->setValue(9.0);
    QCOMPARE(First(server).status, eTavikErrors::NoError);
    limits->Lower()->setValue(6.0);
    QCOMPARE(First(server).status, eTavikErrors::BelowLimit);
    QCOMPARE(First(server).reading, 5.0);
}

void HandToolTest::TaggedReadingsComeWithThePress() {
    WirelessServer server(SingleChannel("", Swinging));
    QCOMPARE(server.Device()->ReadAllChannels(Tagged).ReadingCount(), 0);
    AdvanceClock(1.0);
    PressToolButton("KRV0000001", 1);
    AdvanceClock(1.0);
    TavikChannelReadings readings = server.Device()->ReadAllChannels(Tagged);
    QCOMPARE(readings.ReadingCount(), 1);
    QCOMPARE(readings[0].reading, 6.0);
    QCOMPARE(readings[0].tag, 1);
    PressToolButton("KRV0000001", 1);
    readings = server.Device()->ReadAllChannels(Tagged);
    QCOMPARE(readings[0].reading, 7.0);
    QCOMPARE(readings[0].tag, 2);
    QCOMPARE(First(server).tag, 0);
}

void HandToolTest::TaggedModesHoldTheTaggedReading() {
    WirelessServer server(SingleChannel("", Swinging));
    server.KRV()->setOperationMode(eKRV_OperationMode::TaggedMax);
    QCOMPARE(server.Device()->ReadAllChannels().ReadingCount(), 0);
    server.KRV()->ResetMinMax();
    AdvanceClock(2.0);
    PressToolButton("KRV0000001", 1);
    AdvanceClock(4.0);
    QCOMPARE(First(server).reading, 7.0);
    QCOMPARE(First(server).tag, 1);
}

void HandToolTest::ButtonsDoWhatTheyAreSetTo() {
    WirelessServer server(SingleChannel());
    server.KRV()->setPresetValue(1.5);
    server.KRV()->SetButtonFunctions(eKRV_ButtonFunction::Zero, eKRV_ButtonFunction::Preset);
    PressToolButton("KRV0000001", 1);
    QCOMPARE(server.Reading(), 0.0);
    PressToolButton("KRV0000001", 2);
    QCOMPARE(server.Reading(), 1.5);
    QCOMPARE(server.Device()->ReadAllChannels(Tagged).ReadingCount(), 0);
    QVERIFY(RefusalOf([] { PressToolButton("KRV0000001", 3); }).Is(eTavikErrors::InvalidArgument));

    WirelessServer eight(EightChannels());
    eight.KRVX()->setButton1Function(eKRV_X_ButtonFunction::None);
    eight.KRVX()->setButton2Function(eKRV_X_ButtonFunction::PowerOff);
    PressToolButton("KRX0000001", 1);
    QCOMPARE(eight.Device()->ReadAllChannels(Tagged).ReadingCount(), 0);
    PressToolButton("KRX0000001", 2);
    QCOMPARE(eight.Device()->ConnectionStatus(), eRLK_DeviceStatus::Asleep);
    PressToolButton("KRX0000001", 1);
    eight.KRVX()->setButton1Function(eKRV_X_ButtonFunction::Tag);
    PressToolButton("KRX0000001", 1);
    QCOMPARE(eight.Device()->ReadAllChannels(Tagged).ReadingCount(), 8);
}

void HandToolTest::TheUserPressesNowAndThen() {
    WirelessServer server(SingleChannel("press-every=\"10\""));
    QCOMPARE(server.Device()->ReadAllChannels(Tagged).ReadingCount(), 0);
    AdvanceClock(35.0);
    QCOMPARE(server.Device()->ReadAllChannels(Tagged)[0].tag, 3);
}

void HandToolTest::SwitchesItselfOff() {
    WirelessServer server(SingleChannel("auto-power-off=\"60\""));
    server.KRV()->Zero();
    AdvanceClock(59.0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    AdvanceClock(2.0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Asleep);
    const Refusal refusal = RefusalOf([&] { server.KRV()->Zero(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("switched itself off"));
    // A read wakes it; the datum, which was not saved, is lost.
    QCOMPARE(server.Reading(), 5.0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    server.KRV()->setAutoPowerDownTime(0);
    AdvanceClock(10000.0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
}

void HandToolTest::IsKeptAwakeByReads() {
    WirelessServer server(SingleChannel("auto-power-off=\"60\""));
    for (int minute = 0; minute < 5; ++minute) {
        AdvanceClock(50.0);
        QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
        server.Reading();
    }
}

void HandToolTest::IsWokenByItsUser() {
    WirelessServer server(SingleChannel("auto-power-off=\"60\""));
    AdvanceClock(100.0);
    PressToolButton("KRV0000001", 1);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    QCOMPARE(server.Device()->ReadAllChannels(Tagged).ReadingCount(), 0);
}

void HandToolTest::BatteryDrains() {
    WirelessServer server(SingleChannel("battery=\"50\" battery-hours=\"10\" auto-power-off=\"0\""));
    QCOMPARE(server.Device()->BatteryStatus(), 50);
    AdvanceClock(3600.0);
    QCOMPARE(server.Device()->BatteryStatus(), 40);
    server.KRV()->setAutoPowerDownTime(60);
    AdvanceClock(3600.0);
    // Asleep for all but the first minute.
    QCOMPARE(server.Device()->BatteryStatus(), 40);
    AdvanceClock(36000.0);
    QCOMPARE(server.Device()->BatteryStatus(), 40);
}

void HandToolTest::EmptyBatteryEndsEverything() {
    WirelessServer server(SingleChannel("battery=\"1\" battery-hours=\"1\" auto-power-off=\"0\""));
    QCOMPARE(server.Reading(), 5.0);
    AdvanceClock(60.0);
    QCOMPARE(server.Device()->BatteryStatus(), 0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::OutOfRange);
    const Refusal refusal = RefusalOf([&] { server.Reading(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("battery"));
}

void HandToolTest::OutOfRange() {
    WirelessServer server(SingleChannel());
    CarryToolAway("KRV0000001", true);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::OutOfRange);
    const Refusal refusal = RefusalOf([&] { server.Reading(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("KRV0000001"));
    CarryToolAway("KRV0000001", false);
    QCOMPARE(server.Reading(), 5.0);
}

void HandToolTest::BluetoothClassDecidesOnTheRange() {
    WirelessServer server(SingleChannel("distance=\"5\""));
    server.KRV()->setBluetoothClass(eKRV_BluetoothClass::Class3);
    QCOMPARE(server.Reading(), 5.0);
    PowerCycleTool("KRV0000001");
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::OutOfRange);
    WirelessServer far(SingleChannel("distance=\"60\""));
    QCOMPARE(far.Device()->ConnectionStatus(), eRLK_DeviceStatus::OutOfRange);
}

void HandToolTest::WeakLinkLoses() {
    WirelessServer server(SingleChannel("loss=\"0.25\""));
    int lost = 0;
    constexpr int reads = 2000;
    for (int read = 0; read < reads; ++read) {
        lost += RefusalOf([&] { server.Reading(); }).Is(eTavikErrors::ModuleNotResponding);
    }
    // Five standard deviations of a count of losses.
    QVERIFY2(std::fabs(lost - 500.0) < 5.0 * std::sqrt(reads * 0.25 * 0.75), qPrintable(QString::number(lost)));
}

void HandToolTest::WeakLinkRepeats() {
    const std::string ramp =
        "<channel id=\"G\"><signal base=\"0\" motion=\"ramp\" rate=\"0.001\" period=\"0\" noise=\"0\"/></channel>";
    WirelessServer server(SingleChannel("repeat=\"0.5\" auto-power-off=\"0\"", ramp));
    int repeated = 0;
    double last = server.Reading();
    constexpr int reads = 2000;
    for (int read = 0; read < reads; ++read) {
        AdvanceClock(1.0);
        const double now = server.Reading();
        repeated += now == last;
        last = now;
    }
    QVERIFY2(std::fabs(repeated - 1000.0) < 5.0 * std::sqrt(reads * 0.25), qPrintable(QString::number(repeated)));
}

void HandToolTest::LinkDelays() {
    WirelessServer server(SingleChannel("delay=\"0.5\" jitter=\"0.25\""));
    SetLatency(true);
    double shortest = 10.0;
    double longest = 0.0;
    for (int read = 0; read < 200; ++read) {
        const double before = BenchTime();
        server.Reading();
        const double taken = BenchTime() - before;
        shortest = std::min(shortest, taken);
        longest = std::max(longest, taken);
    }
    QVERIFY(shortest >= 0.5);
    QVERIFY(longest <= 0.76);
    QVERIFY(longest - shortest > 0.2);
}

void HandToolTest::SameSeedSameReadings() {
    const std::string noisy = "<channel id=\"G\"><signal base=\"5\" noise=\"0.01\"/></channel>";
    const auto readings = [&] {
        WirelessServer server(SingleChannel("loss=\"0.2\" repeat=\"0.2\"", noisy));
        std::vector<double> all;
        for (int read = 0; read < 50; ++read) {
            AdvanceClock(0.1);
            const Refusal refusal = RefusalOf([&] { all.push_back(server.Reading()); });
            all.push_back(refusal.refused);
        }
        return all;
    };
    QCOMPARE(readings(), readings());
}

void HandToolTest::ReadCodesAreChecked() {
    WirelessServer server(SingleChannel());
    for (const int code : {-1, 0, 2, 4}) {
        const Refusal refusal = RefusalOf([&] { server.Reading(static_cast<eRead3_ControlCode>(code)); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
        QVERIFY(refusal.Names(std::to_string(code)));
    }
}

void HandToolTest::ChannelsAreChecked() {
    WirelessServer server(SingleChannel());
    for (const int channel : {-1, 1}) {
        const Refusal refusal = RefusalOf([&] { server.Device()->GetChannelData(channel); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
        QVERIFY(refusal.Names(std::to_string(channel)));
    }
}

void HandToolTest::ToolsThatAreNotThereCannotBeSteered() {
    WirelessServer server(SingleChannel());
    for (const Refusal& refusal :
         {RefusalOf([] { PressToolButton("KRV0000009", 1); }), RefusalOf([] { PowerCycleTool("KRV0000009"); }),
          RefusalOf([] { CarryToolAway("KRV0000009", true); }), RefusalOf([] { DropToolConfigMode("KRV0000009"); })}) {
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
        QVERIFY(refusal.Names("KRV0000009"));
    }
}

QTEST_APPLESS_MAIN(HandToolTest)

#include "HandToolTest.moc"
