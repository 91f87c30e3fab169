#include "library/TavikModuleDigitalIO.h"
#include "tests/simulator/acquisition/Buffered.h"

#include <algorithm>
#include <cmath>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;
using TavikSimulator::SetModulePresent;

namespace {

constexpr double LookEvery = 102.4; // us

std::string Encoder(const std::string& identity, const std::string& signal,
                    const std::string& attributes = std::string()) {
    return "<module type=\"QTA\" identity=\"" + identity + "\" " + attributes + "><signal base=\"0\" " + signal +
           "/></module>";
}

const std::string Steady = "motion=\"ramp\" rate=\"100\" period=\"0\""; // 400 counts a second

/// A network whose first module, in sample mode, tells when it was triggered by the last one.
class Triggered : public BufferedNetwork {
public:
    explicit Triggered(const std::string& master) : BufferedNetwork(ClockModule("CLOCK00001") + master) {
        Enable(0, SampleMode);
        (*this)->setMasterIndex(1);
    }
    void CountsPerSample(short counts) const { dynamic_cast<TavikModuleQTA*>(Module(1))->setTxSample(counts); }

    /// When it was triggered in a run of so many seconds, in microseconds since its beginning.
    std::vector<int> Run(double seconds, int looks = 1) const {
        const int begin = static_cast<int>(std::lround(TavikSimulator::BenchTime() * 1e6));
        (*this)->Start();
        for (int i = 0; i < looks; ++i) {
            AdvanceClock(seconds / looks);
            Module(1)->ReadInCounts();
        }
        (*this)->Stop();
        std::vector<int> times = Counts(0);
        for (int& time : times) {
            time -= begin;
        }
        return times;
    }
};

/// Whether each trigger took effect at the first look after the instant that was due.
bool AreAt(const std::vector<int>& times, const std::vector<double>& due) {
    if (times.size() != due.size()) {
        return false;
    }
    for (std::size_t i = 0; i < due.size(); ++i) {
        if (times[i] < due[i] - 1.0 || times[i] > due[i] + LookEvery + 1.0) {
            return false;
        }
    }
    return true;
}

std::vector<double> Every(double microseconds, int count) {
    std::vector<double> due;
    for (int i = 1; i <= count; ++i) {
        due.push_back(i * microseconds);
    }
    return due;
}

} // namespace

/// Buffered mode with an external master: an encoder interface or a digital I/O module 2.
class BufferedTriggersTest : public QObject {
    Q_OBJECT

private slots:
    void AnEncoderTriggersEverySoManyCounts();
    void EveryDirectionTriggers();
    void CountingModesTrigger_data();
    void CountingModesTrigger();
    void PresetsAndMarksDoNotMatter();
    void AHandTriggers();
    void LateLookingFindsTheSameTriggers();
    void TriggersThatComeTooFastAreLost();
    void OnlyModulesBeforeTheMasterAreTriggered();
    void AMasterMayCollectItself();
    void AMasterThatDropsOutTriggersNoMore();
    void WhatHappensByItselfHappensInTime();
    void CountsPerSampleAreTakenAtTheStart();
    void PulsesTrigger();
    void PulsesAreDebounced();
    void AWiredOutputTriggers();
};

void BufferedTriggersTest::AnEncoderTriggersEverySoManyCounts() {
    const Triggered network(Encoder("MASTER0001", Steady));
    AdvanceClock(7.0);
    network.CountsPerSample(40);
    QVERIFY(AreAt(network.Run(10.05), Every(100000.0, 100)));
    network.CountsPerSample(1);
    QVERIFY(AreAt(network.Run(1.0005), Every(2500.0, 400)));
    AdvanceClock(0.0495);
    network.CountsPerSample(32767);
    QVERIFY(AreAt(network.Run(82.0), Every(32767 * 2500.0, 1)));
}

// 40 lines a period, there and back: 160 counts in 4 s, with a turn where nothing is lost.
void BufferedTriggersTest::EveryDirectionTriggers() {
    const Triggered network(Encoder("MASTER0001", "motion=\"triangle\" amplitude=\"10\" period=\"4\""));
    network.CountsPerSample(16);
    const std::vector<int> times = network.Run(40.05);
    QVERIFY(times.size() >= 98 && times.size() <= 100);
    QVERIFY(std::is_sorted(times.begin(), times.end()));
    for (std::size_t i = 0; i < times.size(); ++i) {
        QVERIFY(std::fabs(times[i] - static_cast<double>(i + 1) * 400000.0) < 500000.0);
    }
}

void BufferedTriggersTest::CountingModesTrigger_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("triggers"); // of 100 lines
    QTest::newRow("x1") << QStringLiteral("quadrature") << 0 << 100;
    QTest::newRow("x2") << QStringLiteral("quadrature") << 1 << 200;
    QTest::newRow("x4") << QStringLiteral("quadrature") << 2 << 400;
    QTest::newRow("up and down again") << QStringLiteral("quadrature") << 3 << 200;
    QTest::newRow("pulses") << QStringLiteral("up-down") << 3 << 100;
    QTest::newRow("pulses that make no sense") << QStringLiteral("up-down") << 2 << 0;
    QTest::newRow("count and direction") << QStringLiteral("count-direction") << 4 << 100;
}

void BufferedTriggersTest::CountingModesTrigger() {
    QFETCH(QString, output);
    QFETCH(int, mode);
    QFETCH(int, triggers);
    const Triggered network(Encoder("MASTER0001", Steady, "encoder=\"" + output.toStdString() + "\""));
    dynamic_cast<TavikModuleQTA*>(network.Module(1))->setQuadratureMode(static_cast<eQuadratureMode>(mode));
    QCOMPARE(static_cast<int>(network.Run(1.0005).size()), triggers);
}

void BufferedTriggersTest::PresetsAndMarksDoNotMatter() {
    const Triggered network(Encoder("MASTER0001", Steady, "mark=\"7\" mark-every=\"13\""));
    auto* master = dynamic_cast<TavikModuleQTA*>(network.Module(1));
    master->setRefAction(eRefAction::ContinuousReset);
    network.CountsPerSample(40);
    QVERIFY(AreAt(network.Run(5.05), Every(100000.0, 50)));
    QVERIFY(master->ReadInCounts() < 52);
}

void BufferedTriggersTest::AHandTriggers() {
    const Triggered network(Encoder("MASTER0001", "motion=\"still\""));
    const auto turnTo = [](double lines) { TavikSimulator::HoldPosition("N", "MASTER0001", lines); };
    network.CountsPerSample(100);
    network->Start();
    AdvanceClock(1.0);
    turnTo(24.0);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 0);
    turnTo(26.0);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 1);
    turnTo(-1.0);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 2);
    network->Stop();
    const std::vector<int> times = network.Counts(0);
    QVERIFY(AreAt(times, {2000000.0, 3000000.0}));
}

void BufferedTriggersTest::LateLookingFindsTheSameTriggers() {
    const auto run = [](int looks) {
        const Triggered network(Encoder("MASTER0001", "motion=\"sine\" amplitude=\"300\" period=\"3.7\""));
        AdvanceClock(1.0);
        network.CountsPerSample(100);
        return network.Run(16.0, looks);
    };
    const std::vector<int> once = run(1);
    QVERIFY(once.size() > 180);
    QCOMPARE(run(16), once);
    QCOMPARE(run(1024), once);
}

void BufferedTriggersTest::TriggersThatComeTooFastAreLost() {
    const Triggered network(Encoder("MASTER0001", "motion=\"ramp\" rate=\"10000\" period=\"0\""));
    const std::vector<int> times = network.Run(0.1);
    QCOMPARE(static_cast<int>(times.size()), 976);
    for (std::size_t i = 1; i < times.size(); ++i) {
        QVERIFY(std::fabs(times[i] - times[i - 1] - LookEvery) <= 1.0);
    }
}

void BufferedTriggersTest::OnlyModulesBeforeTheMasterAreTriggered() {
    const BufferedNetwork network(ClockModule("CLOCK00001") + ClockModule("CLOCK00002") +
                                  Encoder("MASTER0001", Steady) + ClockModule("CLOCK00003"));
    network.Enable(0, SampleMode);
    network.Enable(1, SyncMode, 102400);
    network.Enable(3, SampleMode);
    network->setMasterIndex(2);
    dynamic_cast<TavikModuleQTA*>(network.Module(2))->setTxSample(100);
    network->Start();
    AdvanceClock(2.0005);
    network->Stop();
    QVERIFY(AreAt(network.Counts(0), Every(250000.0, 8)));
    QCOMPARE(network.At(1)->BufferedDataLength(), 19);
    QCOMPARE(network.At(3)->BufferedDataLength(), 0);
    network->setMasterIndex(0);
    network->Start();
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 0);
}

// The master is looked at for its triggers and for its own readings, at other instants.
void BufferedTriggersTest::AMasterMayCollectItself() {
    const Triggered network(Encoder("MASTER0001", Steady));
    network.Enable(1, SyncMode, 102400);
    network.CountsPerSample(40);
    QVERIFY(AreAt(network.Run(5.05), Every(100000.0, 50)));
    const std::vector<int> own = network.Counts(1);
    QCOMPARE(static_cast<int>(own.size()), 49);
    for (std::size_t i = 0; i < own.size(); ++i) {
        QCOMPARE(own[i], static_cast<int>(std::floor(static_cast<double>(i + 1) * 40.96)));
    }
}

void BufferedTriggersTest::AMasterThatDropsOutTriggersNoMore() {
    const Triggered network(Encoder("MASTER0001", Steady));
    network.CountsPerSample(100);
    network->Start();
    AdvanceClock(1.1);
    SetModulePresent("N", "MASTER0001", false);
    AdvanceClock(1.0);
    SetModulePresent("N", "MASTER0001", true);
    AdvanceClock(1.0);
    network->Stop();
    QVERIFY(AreAt(network.Counts(0), Every(250000.0, 4)));
    QCOMPARE(network.Codes(0), std::vector<int>(4, 0));
    network->Start();
    AdvanceClock(1.1);
    QCOMPARE(network.At(0)->BufferedDataLength(), 4);
}

// Modules leave and are back before anybody looks.
void BufferedTriggersTest::WhatHappensByItselfHappensInTime() {
    const auto away = [](const std::string& identity) {
        return "<event what=\"module-leaves\" at=\"1.1\" module=\"" + identity +
               "\"/><event what=\"module-returns\" at=\"1.6\" module=\"" + identity + "\"/>";
    };
    const BufferedNetwork network(ClockModule("CLOCK00001") + ClockModule("CLOCK00002") +
                                  Encoder("MASTER0001", Steady) + away("CLOCK00002") + away("MASTER0001"));
    network.Enable(0, SampleMode);
    network.Enable(1, SyncMode, 409600);
    network->setMasterIndex(2);
    dynamic_cast<TavikModuleQTA*>(network.Module(2))->setTxSample(100);
    network->Start();
    AdvanceClock(4.0);
    network->Stop();
    QVERIFY(AreAt(network.Counts(0), Every(250000.0, 4)));
    QCOMPARE(network.Codes(1), std::vector<int>({0, 0, static_cast<int>(eTavikErrors::DroppedOut)}));
}

void BufferedTriggersTest::CountsPerSampleAreTakenAtTheStart() {
    const Triggered network(Encoder("MASTER0001", Steady));
    network.CountsPerSample(100);
    network->Start();
    AdvanceClock(1.1);
    network.CountsPerSample(1);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 8);
}

void BufferedTriggersTest::PulsesTrigger() {
    const Triggered network("<module type=\"SWAX2\" identity=\"SWAX200002\" input-polarity=\"0\">"
                            "<pulses pin=\"4\" period=\"0.2\" high=\"0.05\" start=\"0.03\"/></module>");
    auto* master = dynamic_cast<TavikModuleSWAX2*>(network.Module(1));
    std::vector<double> due;
    for (int i = 0; i < 10; ++i) {
        due.push_back(30000.0 + i * 200000.0);
    }
    QVERIFY(AreAt(network.Run(2.0), due));
    master->setTxSample(5);
    const std::vector<int> fifths = network.Run(2.0);
    QVERIFY(AreAt(fifths, {830000.0, 1830000.0}));
}

void BufferedTriggersTest::PulsesAreDebounced() {
    const Triggered network("<module type=\"SWAX2\" identity=\"SWAX200002\">"
                            "<pulses pin=\"4\" period=\"0.2\" high=\"0.02\"/></module>");
    auto* master = dynamic_cast<TavikModuleSWAX2*>(network.Module(1));
    AdvanceClock(0.1);
    master->setDebounceTime(15);
    const std::vector<int> late = network.Run(0.5);
    QVERIFY(AreAt(late, {115000.0, 315000.0}));
    network->Start();
    AdvanceClock(0.5);
    const int before = network.At(0)->BufferedDataLength();
    // From now on the pulses are too short to be seen, and those that were seen are not taken back.
    master->setDebounceTime(25);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), before);
    master->setDebounceTime(0);
    AdvanceClock(1.0);
    QCOMPARE(network.At(0)->BufferedDataLength(), before + 5);
}

void BufferedTriggersTest::AWiredOutputTriggers() {
    const Triggered network("<module type=\"SWAX2\" identity=\"SWAX200002\"><wire from=\"0\" to=\"4\"/></module>");
    auto* master = dynamic_cast<TavikModuleSWAX2*>(network.Module(1));
    master->setDebounceTime(5);
    network->Start();
    for (int i = 0; i < 3; ++i) {
        AdvanceClock(0.1);
        master->setOutputState(0, 1);
        AdvanceClock(0.1);
        master->setOutputState(0, 0);
    }
    // Too short to be seen.
    AdvanceClock(0.1);
    master->setOutputState(0, 1);
    AdvanceClock(0.004);
    master->setOutputState(0, 0);
    AdvanceClock(0.1);
    network->Stop();
    QVERIFY(AreAt(network.Counts(0), {105000.0, 305000.0, 505000.0}));
}

QTEST_APPLESS_MAIN(BufferedTriggersTest)
#include "BufferedTriggersTest.moc"
