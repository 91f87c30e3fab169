#include "library/TavikDifference.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "tests/simulator/Bench.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace TavikSimulator;
using TavikLibrary::eTavikErrors;
using TavikLibrary::TavikNetwork;

namespace {

std::string Probe(int number, const std::string& signal = std::string()) {
    return "<module type=\"KX\" identity=\"KX0000000" + std::to_string(number) + "\" stroke=\"2\">" + signal +
           "</module>";
}

const std::string Ramp = "<signal motion=\"ramp\" period=\"0\" rate=\"0.5\" base=\"0.1\" noise=\"0\"/>";
const std::string Pins = "<module type=\"SWAX\" identity=\"SWAX000001\"/>";

int Code(eTavikErrors error) {
    return static_cast<int>(error);
}

std::vector<int> LastCodes(ConnectedServer& server, int modules) {
    std::vector<int> codes;
    for (int i = 0; i < modules; ++i) {
        codes.push_back(server.Module(static_cast<unsigned int>(i))->LastResultCode());
    }
    return codes;
}

constexpr double transactionAtHighSpeed = 0.00035;

double NominalTime(int modules) {
    return (0.5 + 0.25 * modules) * transactionAtHighSpeed;
}

} // namespace

/// Reading all capable modules at the beginning of a network at once.
class ReadBurstTest : public QObject {
    Q_OBJECT

private slots:
    void allModulesAreReadAtOneInstant();
    void theReadingsAreThoseOfSingleReads();
    void theRunEndsAtTheFirstModuleThatCannotTakePart();
    void aBurstOfNoModules();
    void everyModuleHasAResultCodeOfItsOwn();
    void aModuleThatCannotBeReadYet();
    void aNetworkThatIsNotConnected();
    void whatTheControllerCannotDoNow();
    void faultsOfABurst();
    void itIsShorterThanAskingEveryModule();
    void itTakesItsTimeOnARealClock();
};

void ReadBurstTest::allModulesAreReadAtOneInstant() {
    Use(OneNetwork(Probe(1, Ramp) + Probe(2, Ramp) + Probe(3, Ramp)));
    ConnectedServer server;
    SetLatency(true);
    int count = 0;
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 3);
    const int first = server.Module(0)->LastReadingInCounts();
    QVERIFY(first > 0);
    QCOMPARE(server.Module(1)->LastReadingInCounts(), first);
    QCOMPARE(server.Module(2)->LastReadingInCounts(), first);
    AdvanceClock(1.0);
    QCOMPARE(server.Module(0)->LastReadingInCounts(), first);
    QCOMPARE(server.Network()->Readburst(count), 0);
    QVERIFY(server.Module(2)->LastReadingInCounts() > first + 1000);
}

void ReadBurstTest::theReadingsAreThoseOfSingleReads() {
    Use(OneNetwork(Probe(1, Ramp) + "<module type=\"QTA\" identity=\"QTA0000002\">"
                                    "<signal motion=\"ramp\" period=\"0\" rate=\"100\" noise=\"0\"/></module>"));
    ConnectedServer server;
    AdvanceClock(1.234);
    int count = 0;
    QCOMPARE(server.Network()->Readburst(count), 0);
    for (unsigned int i = 0; i < 2; ++i) {
        const int counts = server.Module(i)->LastReadingInCounts();
        const double units = server.Module(i)->LastReadingInUnits();
        QVERIFY(counts != 0);
        QCOMPARE(server.Module(i)->ReadInCounts(), counts);
        QCOMPARE(server.Module(i)->ReadInUnits(), units);
    }
}

void ReadBurstTest::theRunEndsAtTheFirstModuleThatCannotTakePart() {
    Use(OneNetwork(Probe(1) + Probe(2) + Pins + Probe(3)));
    ConnectedServer server;
    HoldPosition("N", "KX00000003", 1.0);
    int count = 0;
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 2);
    QCOMPARE(server.Network()->ReadBurstCapableCount(), 2);
    QCOMPARE(server.Module(3)->LastReadingInCounts(), 0);
    server.Network()->DeleteModule(2);
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 3);
    QCOMPARE(server.Module(2)->LastReadingInCounts(), 8192);
    QCOMPARE(server.Module(2)->LastReadingInUnits(), 1.0);
}

void ReadBurstTest::aBurstOfNoModules() {
    for (const std::string& modules : {std::string(), Pins + Probe(1)}) {
        Use(OneNetwork(modules));
        ConnectedServer server;
        int count = 7;
        QCOMPARE(server.Network()->Readburst(count), 0);
        QCOMPARE(count, 0);
    }
}

void ReadBurstTest::everyModuleHasAResultCodeOfItsOwn() {
    Use(OneNetwork(Probe(1) + Probe(2) + Probe(3) + Probe(4) + Probe(5) +
                   "<module type=\"BW\" identity=\"BW00000006\"/>"));
    ConnectedServer server;
    HoldPosition("N", "KX00000001", 1.0);
    HoldPosition("N", "KX00000002", -1.0);
    HoldPosition("N", "KX00000003", 3.0);
    AdvanceClock(1.0);
    dynamic_cast<TavikLibrary::TavikModuleKX*>(server.Module(3))->setAveraging(TavikLibrary::eAveraging::Samples256);
    HoldPosition("N", "KX00000005", 0.5);
    int count = 0;
    QCOMPARE(server.Network()->Readburst(count), 0);
    SetModulePresent("N", "KX00000005", false);
    dynamic_cast<TavikLibrary::TavikModuleBW*>(server.Module(5))->setBeamOn(false);
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 6);
    QCOMPARE(LastCodes(server, 6), (std::vector<int>{0, 0x2112, 0x2113, 0x10001, 0x2101, 0x2115}));
    // The limits of the stroke, and for the module that dropped out what was read before.
    QCOMPARE(server.Module(1)->LastReadingInUnits(), 0.0);
    QCOMPARE(server.Module(2)->LastReadingInUnits(), 2.0);
    QCOMPARE(server.Module(4)->LastReadingInUnits(), 0.5);
    SetModulePresent("N", "KX00000005", true);
    AdvanceClock(1.0);
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(server.Module(4)->LastResultCode(), 0);
}

void ReadBurstTest::aModuleThatCannotBeReadYet() {
    Use(OneNetwork("<module type=\"PNX\" identity=\"PNX0000001\"/>" + Probe(2)));
    ConnectedServer server;
    ChangeUnitAtDisplay("N", "PNX0000001", static_cast<TavikLibrary::ePNX_UOM>(1));
    int count = 0;
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 2);
    QCOMPARE(LastCodes(server, 2), (std::vector<int>{Code(eTavikErrors::ReadingNotAvailable), 0}));
}

void ReadBurstTest::aNetworkThatIsNotConnected() {
    Use(OneNetwork(Probe(1)));
    ConnectedServer server;
    TavikNetwork* network = server.Network();
    SetNetworkPresent("N", false);
    int count = 7;
    const Refusal refusal = RefusalOf([&] { network->Readburst(count); });
    QVERIFY(refusal.Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(refusal.Names("\"N\""));
    QCOMPARE(count, 7);
}

void ReadBurstTest::whatTheControllerCannotDoNow() {
    Use(OneNetwork(Probe(1), "capabilities=\"buffered\""));
    {
        ConnectedServer server;
        int count = 7;
        QCOMPARE(server.Network()->Readburst(count), Code(eTavikErrors::NotSupported));
        QCOMPARE(count, 7);
    }
    Use(OneNetwork(Probe(1)));
    ConnectedServer server;
    int count = 7;
    server.Network()->BeginNotifying();
    QCOMPARE(server.Network()->Readburst(count), Code(eTavikErrors::NotifyRunning));
    server.Network()->CancelNotifying();
    server.Module(0)->Difference()->setEnabled(true);
    server.Network()->Difference()->Start();
    QCOMPARE(server.Network()->Readburst(count), Code(eTavikErrors::AcquisitionRunning));
    QCOMPARE(count, 7);
    server.Network()->Difference()->Stop();
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(count, 1);
}

void ReadBurstTest::faultsOfABurst() {
    Use(OneNetwork(Probe(1)));
    ConnectedServer server;
    HoldPosition("N", "KX00000001", 1.0);
    Fault fault;
    fault.operation = "Readburst";
    fault.effect = FaultEffect::Result;
    fault.code = 0x2101;
    AddFault(fault);
    int count = 7;
    QCOMPARE(server.Network()->Readburst(count), 0x2101);
    QCOMPARE(count, 7);
    QCOMPARE(server.Module(0)->LastReadingInCounts(), 0);
    fault.effect = FaultEffect::ThrowLibrary;
    fault.text = "The wires are cut.";
    AddFault(fault);
    QCOMPARE(RefusalOf([&] { server.Network()->Readburst(count); }).text, std::string("The wires are cut."));
    QCOMPARE(server.Network()->Readburst(count), 0);
    QCOMPARE(server.Module(0)->LastReadingInCounts(), 8192);
}

void ReadBurstTest::itIsShorterThanAskingEveryModule() {
    Use(OneNetwork(Probe(1) + Probe(2) + Probe(3) + Probe(4)));
    ConnectedServer server;
    SetLatency(true);
    const auto durationOf = [](const auto& call) {
        const double before = BenchTime();
        call();
        return BenchTime() - before;
    };
    int count = 0;
    const double burst = durationOf([&] { server.Network()->Readburst(count); });
    const double single = durationOf([&] { server.Module(0)->ReadInCounts(); });
    QVERIFY(std::abs(burst - NominalTime(4)) < 1e-9);
    QVERIFY(std::abs(single - transactionAtHighSpeed) < 1e-9);
    QVERIFY(burst < 2 * 4 * single / 5);
    server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    const double slow = durationOf([&] { server.Network()->Readburst(count); });
    QVERIFY(std::abs(slow / burst - 0.0025 / transactionAtHighSpeed) < 1e-6);
}

void ReadBurstTest::itTakesItsTimeOnARealClock() {
    std::string probes;
    for (int i = 1; i <= 9; ++i) {
        probes += Probe(i);
    }
    Use(OneNetwork(probes));
    ConnectedServer server;
    UseRealClock();
    SetLatency(true);
    // A busy computer makes some of them late, but hardly all.
    std::vector<double> seconds(300);
    int count = 0;
    for (double& each : seconds) {
        QElapsedTimer timer;
        timer.start();
        server.Network()->Readburst(count);
        each = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    }
    std::sort(seconds.begin(), seconds.end());
    const double median = seconds.at(seconds.size() / 2);
    qInfo("A burst took %.4f ms, nominally %.4f ms.", median * 1e3, NominalTime(9) * 1e3);
    QVERIFY(seconds.front() >= NominalTime(9) * 0.999);
    QVERIFY(seconds.front() < 1.5 * NominalTime(9));
}

QTEST_APPLESS_MAIN(ReadBurstTest)
#include "ReadBurstTest.moc"
