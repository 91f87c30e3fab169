#include "library/TavikModulePNX.h"
#include "tests/simulator/acquisition/Buffered.h"

#include <atomic>
#include <cmath>
#include <thread>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;
using TavikSimulator::SetModulePresent;

namespace {

const std::string TwoClocks = ClockModule("CLOCK00001") + ClockModule("CLOCK00002");

int Code(eTavikErrors error) {
    return static_cast<int>(error);
}

} // namespace

/// Buffered mode: when which module stores a reading, and what becomes of it.
class BufferedModeTest : public QObject {
    Q_OBJECT

private slots:
    void AModuleBeginsWithoutASubMode();
    void IntervalsAreRounded_data();
    void IntervalsAreRounded();
    void SyncReadingsComeAtTheNominalRateAndInstants();
    void SyncReadingsComeInRealTime();
    void SampleReadingsComeWhenTold();
    void SubModesMixInOneRun();
    void LateLookingChangesNothing();
    void StatusesAndBuffersFromRunToRun();
    void AFullBufferTellsOfTheOverrun();
    void AModuleThatDropsOutEndsEarly();
    void ANetworkThatDropsOutKeepsItsReadings();
    void ReadingsCarryTheirCodes();
    void AMillionReadingsAreFetched();
    void SettersMayStrikeAndCallsTakeTime();
    void AnyThreadMayLook();
};

void BufferedModeTest::AModuleBeginsWithoutASubMode() {
    const BufferedNetwork network(TwoClocks);
    QCOMPARE(network.At(0)->Mode(), eBufferedMode::None);
    QCOMPARE(network.At(0)->Enabled(), false);
    QCOMPARE(network.At(0)->ReadingInterval(), 4096);
    QCOMPARE(network.At(0)->TTUs(), 40);
    QCOMPARE(network.At(0)->ReadingIntervalErrorUs(), 0);
    QCOMPARE(network.At(0)->BufferedDataLength(), 0);
    QCOMPARE(network->Status(), 0);
    QCOMPARE(network->EnabledCount(), 0);
    QCOMPARE(network->MasterIndex(), -1);
    QCOMPARE(eBufferedMode_ToString(eBufferedMode::None), std::string("None"));
    QCOMPARE(eBufferedMode_ToString(SyncMode), std::string("Sync"));
    QCOMPARE(eBufferedMode_ToString(SampleMode), std::string("Sample"));
    QVERIFY(eBufferedMode_ToString(static_cast<eBufferedMode>(-1)).find("-1") != std::string::npos);
}

void BufferedModeTest::IntervalsAreRounded_data() {
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("achieved");
    QTest::newRow("shortest") << 4096 << 4096;
    QTest::newRow("shorter than that") << 1 << 4096;
    QTest::newRow("a little more") << 5000 << 4096;
    QTest::newRow("just below the middle") << 6143 << 4096;
    QTest::newRow("middle") << 6144 << 8192;
    QTest::newRow("a second") << 1000000 << 999424;
    QTest::newRow("longest of the page") << 999999999 << 1000001536;
}

void BufferedModeTest::IntervalsAreRounded() {
    QFETCH(int, asked);
    QFETCH(int, achieved);
    const BufferedNetwork network(TwoClocks);
    network.At(1)->setReadingInterval(asked);
    QCOMPARE(network.At(1)->ReadingInterval(), asked);
    QCOMPARE(network.At(1)->ReadingIntervalErrorUs(), achieved - asked);
    QCOMPARE(network.At(1)->TTUs(), static_cast<int>(std::lround(achieved / 102.4)));
    QCOMPARE(network.At(1)->TTUs() % 40, 0);
    QCOMPARE(network.At(0)->ReadingInterval(), 4096);
}

// The modules' readings are the times at which they were taken.
void BufferedModeTest::SyncReadingsComeAtTheNominalRateAndInstants() {
    const BufferedNetwork network(TwoClocks);
    network.Enable(0, SyncMode, 4096);
    network.Enable(1, SyncMode, 50000);
    QCOMPARE(network.At(1)->TTUs(), 480);
    AdvanceClock(3.217);
    network->Start();
    constexpr double seconds = 60.0;
    AdvanceClock(seconds);
    network->Stop();
    AdvanceClock(10.0);
    for (const unsigned int index : {0U, 1U}) {
        const std::vector<int> times = network.Counts(index);
        const double interval = network.At(index)->TTUs() * 102.4;
        QCOMPARE(static_cast<int>(times.size()), static_cast<int>(seconds * 1e6 / interval));
        for (std::size_t i = 0; i < times.size(); ++i) {
            const double nominal = 3217000.0 + static_cast<double>(i + 1) * interval;
            QVERIFY2(std::fabs(times[i] - nominal) <= 1.0, qPrintable(QString::number(times[i] - nominal)));
        }
    }
    QCOMPARE(network.Codes(0), std::vector<int>(14648, 0));
}

void BufferedModeTest::SyncReadingsComeInRealTime() {
    const BufferedNetwork network(TwoClocks);
    network.Enable(0, SyncMode);
    TavikSimulator::UseRealClock();
    const double beforeStart = TavikSimulator::BenchTime();
    network->Start();
    const double afterStart = TavikSimulator::BenchTime();
    QTest::qWait(400);
    const double beforeStop = TavikSimulator::BenchTime();
    network->Stop();
    const double afterStop = TavikSimulator::BenchTime();
    const std::vector<int> times = network.Counts(0);
    QVERIFY(static_cast<double>(times.size()) >= (beforeStop - afterStart) / 0.004096 - 1.0);
    QVERIFY(static_cast<double>(times.size()) <= (afterStop - beforeStart) / 0.004096 + 1.0);
    for (std::size_t i = 1; i < times.size(); ++i) {
        QVERIFY(std::abs(times[i] - times[i - 1] - 4096) <= 1);
    }
}

void BufferedModeTest::SampleReadingsComeWhenTold() {
    const BufferedNetwork network(TwoClocks);
    network.Enable(0, SampleMode);
    network->Start();
    QCOMPARE(network.At(0)->BufferedDataLength(), 0);
    for (int i = 1; i <= 5; ++i) {
        AdvanceClock(0.25 * i);
        network->Sample();
        QCOMPARE(network.At(0)->BufferedDataLength(), i);
    }
    network->Sample();
    network->Stop();
    QCOMPARE(network.Counts(0), std::vector<int>({250000, 750000, 1500000, 2500000, 3750000, 3750000}));
    QCOMPARE(network.At(1)->BufferedDataLength(), 0);
    QVERIFY(RefusalOf([&] { network->Sample(); }).Is(eTavikErrors::NotRunning));
}

void BufferedModeTest::SubModesMixInOneRun() {
    const BufferedNetwork network(TwoClocks + ClockModule("CLOCK00003"));
    network.Enable(0, SyncMode, 409600);
    network.Enable(1, SampleMode);
    network.Enable(2, SyncMode, 204800);
    QCOMPARE(network->EnabledCount(), 3);
    network->Start();
    AdvanceClock(1.0);
    network->Sample();
    AdvanceClock(0.5);
    network->Sample();
    network->Stop();
    QCOMPARE(network.Counts(0), std::vector<int>({409600, 819200, 1228800}));
    QCOMPARE(network.Counts(1), std::vector<int>({1000000, 1500000}));
    QCOMPARE(network.At(2)->BufferedDataLength(), 7);
}

// What happens to a gauge changes the readings after it and no others, although they are computed later.
void BufferedModeTest::LateLookingChangesNothing() {
    const std::string probe = "<module type=\"KX\" identity=\"KX00000001\"><signal base=\"1\" motion=\"sine\" "
                              "amplitude=\"0.5\" period=\"2.1\" noise=\"0.001\"/></module>";
    const auto run = [&](int looks) {
        const BufferedNetwork network(probe);
        network.Enable(0, SyncMode, 102400);
        network->Start();
        for (int i = 0; i < looks; ++i) {
            AdvanceClock(3.0 / looks);
            network.At(0)->BufferedDataLength();
        }
        TavikSimulator::HoldPosition("N", "KX00000001", 0.5);
        AdvanceClock(1.0);
        network->Stop();
        TavikSimulator::ReleasePosition("N", "KX00000001");
        return network.Counts(0);
    };
    const std::vector<int> once = run(1);
    QCOMPARE(static_cast<int>(once.size()), 39);
    QCOMPARE(run(100), once);
    for (std::size_t i = 0; i < once.size(); ++i) {
        QCOMPARE(once[i] == once.back(), i >= 29);
    }
}

void BufferedModeTest::StatusesAndBuffersFromRunToRun() {
    const BufferedNetwork network(TwoClocks);
    network->Stop();
    QCOMPARE(network->Status(), 0);
    network.Enable(0, SyncMode);
    network.Enable(1, SyncMode, 8192);
    network->Start();
    QCOMPARE(network->Status(), 1);
    AdvanceClock(0.1);
    QCOMPARE(network.At(0)->BufferedDataLength(), 24);
    QCOMPARE(network.At(0)->GetBufferedItem(23).counts, 24 * 4096);
    network->Stop();
    QCOMPARE(network->Status(), 2);
    network->Stop();
    QCOMPARE(network->Status(), 2);
    AdvanceClock(0.1);
    QCOMPARE(network.At(0)->BufferedDataLength(), 24);
    network.At(1)->setEnabled(false);
    QCOMPARE(network.At(1)->BufferedDataLength(), 12);
    network->Start();
    QCOMPARE(network->Status(), 1);
    QCOMPARE(network.At(0)->BufferedDataLength(), 0);
    QCOMPARE(network.At(1)->BufferedDataLength(), 0);
    AdvanceClock(0.01);
    network->Stop();
    QCOMPARE(network.Counts(0), std::vector<int>({204096, 208192}));
    for (const int index : {-1, 2, 1000000}) {
        const Refusal refusal = RefusalOf([&] { network.At(0)->GetBufferedItem(index); });
        QVERIFY(refusal.Is(eTavikErrors::NoSuchReading) && refusal.Names(std::to_string(index)));
    }
}

void BufferedModeTest::AFullBufferTellsOfTheOverrun() {
    const BufferedNetwork network(ClockModule("CLOCK00001", "buffer-depth=\"10\"") + ClockModule("CLOCK00002"));
    network.Enable(0, SyncMode);
    network.Enable(1, SyncMode);
    network->Start();
    AdvanceClock(10 * 0.004096);
    QCOMPARE(network.Codes(0), std::vector<int>(10, 0));
    AdvanceClock(0.0041);
    std::vector<int> codes(10, 0);
    codes.back() = Code(eTavikErrors::BufferOverrun);
    QCOMPARE(network.Codes(0), codes);
    QCOMPARE(network.Counts(0).back(), 40960);
    AdvanceClock(100.0);
    network->Stop();
    QCOMPARE(network.Codes(0), codes);
    codes.assign(16384, 0);
    codes.back() = Code(eTavikErrors::BufferOverrun);
    QCOMPARE(network.Codes(1), codes);
    TavikServer server;
    QVERIFY(server.GetErrorDescription(0x2120).find("full") != std::string::npos);
    QVERIFY(server.GetErrorDescription(0x2121).find("dropped out") != std::string::npos);
}

void BufferedModeTest::AModuleThatDropsOutEndsEarly() {
    const BufferedNetwork network(TwoClocks + ClockModule("CLOCK00003", "buffer-depth=\"2\""));
    network.Enable(0, SyncMode, 102400);
    network.Enable(1, SyncMode, 102400);
    network.Enable(2, SampleMode);
    network->Start();
    AdvanceClock(0.5);
    network->Sample();
    network->Sample();
    SetModulePresent("N", "CLOCK00001", false);
    SetModulePresent("N", "CLOCK00003", false);
    AdvanceClock(0.3);
    network->Sample();
    SetModulePresent("N", "CLOCK00001", true);
    AdvanceClock(0.2);
    network->Stop();
    QCOMPARE(network.Codes(0), std::vector<int>({0, 0, 0, 0, Code(eTavikErrors::DroppedOut)}));
    QCOMPARE(network.Readings(0).back().units, 0.0);
    QCOMPARE(network.At(1)->BufferedDataLength(), 9);
    QCOMPARE(network.Codes(2), std::vector<int>({0, Code(eTavikErrors::DroppedOut)}));
    QCOMPARE(network->Status(), 2);
    const Refusal refusal = RefusalOf([&] { network->Start(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding) && refusal.Names("CLOCK00003"));
    QCOMPARE(network.At(1)->BufferedDataLength(), 9);
    network.At(2)->setEnabled(false);
    network->Start();
    AdvanceClock(0.11);
    QCOMPARE(network.Codes(0), std::vector<int>({0}));
}

void BufferedModeTest::ANetworkThatDropsOutKeepsItsReadings() {
    const BufferedNetwork network(TwoClocks);
    network.Enable(0, SyncMode, 102400);
    network->Start();
    AdvanceClock(0.5);
    TavikSimulator::SetNetworkPresent("N", false);
    AdvanceClock(1.0);
    QCOMPARE(network->Status(), 2);
    QVERIFY(RefusalOf([&] { network->Start(); }).Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(RefusalOf([&] { network->Sample(); }).Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(RefusalOf([&] { network->setMasterIndex(-1); }).Is(eTavikErrors::NetworkNotConnected));
    TavikSimulator::SetNetworkPresent("N", true);
    network.Network()->Connect();
    QCOMPARE(network->Status(), 2);
    QCOMPARE(network.Counts(0), std::vector<int>({102400, 204800, 307200, 409600}));
    network->Start();
    QCOMPARE(network->Status(), 1);
    network.Network()->Disconnect();
    QCOMPARE(network->Status(), 2);
}

void BufferedModeTest::ReadingsCarryTheirCodes() {
    const BufferedNetwork network("<module type=\"KX\" identity=\"KX00000001\"/>"
                                  "<module type=\"HVX\" identity=\"HVX0000002\"/>"
                                  "<module type=\"PNX\" identity=\"PNX0000003\"/>");
    for (const unsigned int index : {0U, 1U, 2U}) {
        network.Enable(index, SampleMode);
    }
    network->Start();
    TavikSimulator::HoldPosition("N", "KX00000001", -1.0);
    network->Sample();
    TavikSimulator::HoldPosition("N", "KX00000001", 0.5);
    network->Sample();
    TavikSimulator::HoldPosition("N", "KX00000001", 3.0);
    network->Sample();
    QCOMPARE(network.Codes(0), std::vector<int>({Code(eTavikErrors::UnderRange), 0, Code(eTavikErrors::OverRange)}));
    QCOMPARE(network.Readings(0)[1].counts, 4096);
    QCOMPARE(network.Readings(0)[1].units, 0.5);
    QCOMPARE(network.Codes(2), std::vector<int>(3, Code(eTavikErrors::NotMastered)));
    TavikSimulator::ChangeUnitAtDisplay("N", "PNX0000003", static_cast<ePNX_UOM>(1));
    network->Sample();
    const int withoutReading = network.Codes(2).back();
    QVERIFY(withoutReading != 0 && withoutReading != Code(eTavikErrors::NotMastered));
    TavikSimulator::Fault fault;
    fault.operation = "GetBufferedItem";
    fault.effect = TavikSimulator::FaultEffect::Result;
    fault.code = 4711;
    TavikSimulator::AddFault(fault);
    const TavikReading struck = network.At(0)->GetBufferedItem(1);
    QCOMPARE(struck.resultCode, 4711);
    QCOMPARE(struck.counts, 4096);
    QCOMPARE(network.At(0)->GetBufferedItem(1).resultCode, 0);
}

void BufferedModeTest::AMillionReadingsAreFetched() {
    const BufferedNetwork network("<module type=\"KX\" identity=\"KX00000001\" buffer-depth=\"1000000\"/>");
    network.Enable(0, SyncMode);
    network->Start();
    AdvanceClock(4096.0);
    network->Stop();
    QCOMPARE(network.At(0)->BufferedDataLength(), 1000000);
    const std::vector<TavikReading> readings = network.Readings(0);
    QCOMPARE(readings.size(), std::size_t{1000000});
    QCOMPARE(readings.back().units, 1.0);
    QCOMPARE(readings.back().resultCode, 0);
}

void BufferedModeTest::SettersMayStrikeAndCallsTakeTime() {
    const BufferedNetwork network(TwoClocks, "speed=\"low\"");
    network.Enable(0, SampleMode);
    network.Enable(1, SyncMode, 4096);
    TavikSimulator::SetLatency(true);
    network->Start();
    QVERIFY(std::fabs(TavikSimulator::BenchTime() - 0.2 - 0.005) < 1e-9 ||
            std::fabs(TavikSimulator::BenchTime() - 0.005) < 1e-9);
    const double started = TavikSimulator::BenchTime();
    network->Sample();
    QCOMPARE(network.Counts(0).front(), static_cast<int>(std::lround((started + 0.0025) * 1e6)));
    TavikSimulator::FailCall(1, 0x2101, "lost");
    QVERIFY(RefusalOf([&] { network->Stop(); }).Names("lost"));
    QCOMPARE(network->Status(), 1);
    network->Stop();
    QCOMPARE(network->Status(), 2);
}

void BufferedModeTest::AnyThreadMayLook() {
    const BufferedNetwork network(TwoClocks +
                                  "<module type=\"QTA\" identity=\"MASTER0003\">"
                                  "<signal base=\"0\" motion=\"ramp\" rate=\"100\" period=\"0\"/></module>");
    network.Enable(0, SyncMode);
    network.Enable(1, SampleMode);
    network->setMasterIndex(2);
    AdvanceClock(1.0);
    TavikSimulator::UseRealClock(20.0);
    network->Start();
    std::atomic<bool> stop{false};
    std::atomic<int> wrong{0};
    const auto look = [&](unsigned int index) {
        int last = 0;
        while (!stop) {
            const int length = network.At(index)->BufferedDataLength();
            wrong += length < last ? 1 : 0;
            last = length;
            if (length > 0) {
                wrong += network.At(index)->GetBufferedItem(length - 1).counts == 0 ? 1 : 0;
            }
            wrong += network.Module(2)->ReadInCounts() <= 0 ? 1 : 0;
        }
    };
    std::thread first(look, 0U);
    std::thread second(look, 1U);
    QTest::qWait(200);
    network->Stop();
    stop = true;
    first.join();
    second.join();
    QCOMPARE(wrong.load(), 0);
    QVERIFY(network.At(0)->BufferedDataLength() > 500);
    QVERIFY(network.At(1)->BufferedDataLength() > 500);
}

QTEST_GUILESS_MAIN(BufferedModeTest)
#include "BufferedModeTest.moc"
