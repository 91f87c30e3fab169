#include "tests/simulator/Bench.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <thread>

using TavikLibrary::eNetSpeed;
using TavikLibrary::eTavikErrors;
using TavikSimulator::BenchTime;

namespace {

const std::string Probe = "<module type=\"KX\" identity=\"KX00000001\"/>";
const std::string SlowProbe = "<module type=\"KX\" identity=\"KX00000002\" speeds=\"low medium high\"/>";

struct SpeedTime {
    eNetSpeed speed;
    double seconds;
};

const SpeedTime Times[] = {
    {eNetSpeed::Low, 0.0025}, {eNetSpeed::Medium, 0.0012}, {eNetSpeed::High, 0.00035}, {eNetSpeed::UltraHigh, 0.0002}};

template <class Call>
double BenchTimeOf(Call call) {
    const double begun = BenchTime();
    call();
    return BenchTime() - begun;
}

// In seconds, the shortest first.
std::vector<double> SortedTimesOfReads(TavikLibrary::TavikModule* module, int reads) {
    std::vector<double> times;
    for (int i = 0; i < reads; ++i) {
        QElapsedTimer timer;
        timer.start();
        module->ReadInCounts();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
    }
    std::sort(times.begin(), times.end());
    return times;
}

bool Near(double value, double expected) {
    return std::abs(value - expected) < 1e-9;
}

} // namespace

class SpeedsTest : public QObject {
    Q_OBJECT

private slots:
    void TheControllersSpeedsAreOffered();
    void ASpeedIsSet();
    void ASpeedThatAModuleCannotDoIsRefused();
    void ASpeedThatTheControllerCannotDoIsRefused();
    void TheSpeedStaysOverAReconnect();
    void AReadTakesAsLongAsTheSpeedMakesIt();
    void ConnectingTakesItsTime();
    void PingAsksEveryModule();
    void KnownValuesTakeNoTime();
    void WithoutLatencyNothingTakesTime();
    void OnARealClockAReadReallyTakesThatLong();
    void TheClockCanRunFaster();
    void TwoThreadsShareTheWires();
    void AManualClockIsAdvancedByHandOnly();
};

void SpeedsTest::TheControllersSpeedsAreOffered() {
    Use(OneNetwork(Probe, "speeds=\"low high\""));
    ConnectedServer server;
    QVERIFY(server.Network()->AvailableSpeeds() == (std::vector<eNetSpeed>{eNetSpeed::Low, eNetSpeed::High}));
    QVERIFY(server.Network()->SpeedAvailable(eNetSpeed::High));
    QVERIFY(!server.Network()->SpeedAvailable(eNetSpeed::UltraHigh));
    QVERIFY(!server.Network()->SpeedAvailable(static_cast<eNetSpeed>(-1)));
}

void SpeedsTest::ASpeedIsSet() {
    Use(OneNetwork(Probe));
    ConnectedServer server;
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::High);
    server.Network()->setNetSpeed(eNetSpeed::UltraHigh);
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::UltraHigh);
}

void SpeedsTest::ASpeedThatAModuleCannotDoIsRefused() {
    Use(OneNetwork(Probe + SlowProbe));
    ConnectedServer server;
    const Refusal refusal = RefusalOf([&] { server.Network()->setNetSpeed(eNetSpeed::UltraHigh); });
    QVERIFY(refusal.Is(eTavikErrors::SpeedNotAvailable));
    QVERIFY(refusal.Names("KX00000002") && refusal.Names("Ultra High"));
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::High);
    QVERIFY(server.Module(0)->SpeedAvailable(eNetSpeed::UltraHigh));
    QVERIFY(!server.Module(1)->SpeedAvailable(eNetSpeed::UltraHigh));
    server.Network()->DeleteModule(1);
    server.Network()->setNetSpeed(eNetSpeed::UltraHigh);
}

void SpeedsTest::ASpeedThatTheControllerCannotDoIsRefused() {
    Use(OneNetwork(Probe, "speeds=\"low high\""));
    ConnectedServer server;
    for (const int speed : {6, 3, -1, 7}) {
        const Refusal refusal = RefusalOf([&] { server.Network()->setNetSpeed(static_cast<eNetSpeed>(speed)); });
        QVERIFY(refusal.Is(eTavikErrors::SpeedNotAvailable));
        QVERIFY(refusal.Names("\"N\""));
    }
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::High);
}

void SpeedsTest::TheSpeedStaysOverAReconnect() {
    Use(OneNetwork(Probe));
    ConnectedServer server;
    server.Network()->setNetSpeed(eNetSpeed::Low);
    server.Network()->Disconnect();
    server.Network()->Connect();
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::Low);
}

void SpeedsTest::AReadTakesAsLongAsTheSpeedMakesIt() {
    Use(OneNetwork(Probe));
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    TavikSimulator::SetLatency(true);
    for (const SpeedTime& expected : Times) {
        server.Network()->setNetSpeed(expected.speed);
        QVERIFY(Near(BenchTimeOf([&] { module->ReadInCounts(); }), expected.seconds));
        QVERIFY(Near(BenchTimeOf([&] { module->ReadInUnits(); }), expected.seconds));
        QVERIFY(Near(BenchTimeOf([&] { module->Status()->UpdateStatus(); }), expected.seconds));
    }
}

void SpeedsTest::ConnectingTakesItsTime() {
    Use("<bench clock=\"manual\"><network name=\"A\" connect-time=\"0.5\"/>"
        "<network name=\"B\" connect-time=\"1.5\" connects=\"no\"/></bench>");
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    QVERIFY(Near(BenchTimeOf([&] { server.Networks()->Network(0)->Connect(); }), 0.5));
    QVERIFY(Near(BenchTimeOf([&] { server.Networks()->Network(0)->Connect(); }), 0.0));
    QVERIFY(Near(BenchTimeOf([&] { server.Networks()->Network(1)->Connect(); }), 1.5));
    server.Networks()->DisconnectAll();
    QVERIFY(Near(BenchTimeOf([&] { server.Networks()->ConnectAll(); }), 2.0));
}

void SpeedsTest::PingAsksEveryModule() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\" count=\"20\"/>"));
    ConnectedServer server;
    TavikSimulator::SetLatency(true);
    QVERIFY(Near(BenchTimeOf([&] { server.Network()->Ping(); }), 20 * 0.00035));
    QVERIFY(Near(BenchTimeOf([&] { server.Network()->FindHotswapped(); }), 20 * 0.00035));
}

void SpeedsTest::KnownValuesTakeNoTime() {
    Use(OneNetwork(Probe));
    ConnectedServer server;
    TavikSimulator::SetLatency(true);
    QVERIFY(Near(BenchTimeOf([&] {
                     server.Module(0)->Identity();
                     server.Module(0)->Stroke();
                     server.Module(0)->LastResultCode();
                     server.Network()->AvailableSpeeds();
                 }),
                 0.0));
}

void SpeedsTest::WithoutLatencyNothingTakesTime() {
    Use(OneNetwork(Probe, "connect-time=\"5\""));
    QVERIFY(Near(BenchTimeOf([] {
                     ConnectedServer server;
                     server.Module(0)->ReadInCounts();
                     server.Network()->Ping();
                 }),
                 0.0));
}

// No read is shorter than its time. How much longer one is depends on what else the machine does; the quickest of
// them comes close on a busy one too.
void SpeedsTest::OnARealClockAReadReallyTakesThatLong() {
    Use(OneNetwork(Probe, "connect-time=\"0\""));
    ConnectedServer server;
    TavikSimulator::SetLatency(true);
    TavikSimulator::UseRealClock();
    TavikLibrary::TavikModule* module = server.Module(0);
    for (const SpeedTime& expected : Times) {
        server.Network()->setNetSpeed(expected.speed);
        const std::vector<double> times = SortedTimesOfReads(module, 200);
        qInfo("a read of %.2f ms: shortest %.3f ms, median %.3f ms", expected.seconds * 1e3, times.front() * 1e3,
              times[times.size() / 2] * 1e3);
        QVERIFY(times.front() >= expected.seconds);
        QVERIFY(times.front() < expected.seconds * 1.1 + 0.0001);
    }
}

void SpeedsTest::TheClockCanRunFaster() {
    Use(OneNetwork(Probe, "connect-time=\"5\""));
    TavikSimulator::SetLatency(true);
    TavikSimulator::UseRealClock(100.0);
    QElapsedTimer timer;
    timer.start();
    double took = 0.0;
    {
        took = BenchTimeOf([] { ConnectedServer server; });
    }
    QVERIFY(took >= 5.0);
    QVERIFY(timer.elapsed() >= 50);
}

// 2 x 100 reads of 1.2 ms queue up on the wires: 240 ms, not 120.
void SpeedsTest::TwoThreadsShareTheWires() {
    Use(OneNetwork(Probe, "speed=\"medium\" connect-time=\"0\""));
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    TavikSimulator::UseRealClock();
    TavikSimulator::SetLatency(true);
    const auto read = [module] {
        for (int i = 0; i < 100; ++i) {
            module->ReadInCounts();
        }
    };
    const double took = BenchTimeOf([&] {
        std::thread other(read);
        read();
        other.join();
    });
    QVERIFY(took >= 0.24 * 0.999);
}

void SpeedsTest::AManualClockIsAdvancedByHandOnly() {
    Use(OneNetwork(Probe));
    const double begun = BenchTime();
    QTest::qSleep(5);
    QCOMPARE(BenchTime(), begun);
    TavikSimulator::AdvanceClock(2.5);
    QVERIFY(Near(BenchTime(), begun + 2.5));
    QVERIFY(RefusalOf([] { TavikSimulator::AdvanceClock(-1.0); }).refused);
    TavikSimulator::UseRealClock();
    QVERIFY(RefusalOf([] { TavikSimulator::AdvanceClock(1.0); }).refused);
    const double real = BenchTime();
    QVERIFY(real >= begun + 2.5);
    QTest::qSleep(5);
    QVERIFY(BenchTime() >= real + 0.004);
    QVERIFY(RefusalOf([] { TavikSimulator::UseRealClock(0.0); }).refused);
}

QTEST_APPLESS_MAIN(SpeedsTest)
#include "SpeedsTest.moc"
