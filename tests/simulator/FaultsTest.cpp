#include "library/TavikBuffered.h"
#include "tests/simulator/Bench.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

using TavikLibrary::eTavikErrors;
using TavikSimulator::AddFault;
using TavikSimulator::Fault;
using TavikSimulator::FaultEffect;
using TavikSimulator::FaultsTriggered;
using TavikSimulator::FaultTrigger;

namespace {

const std::string Two = "<module type=\"KX\" identity=\"KX00000001\"/><module type=\"RN\" identity=\"RN00000002\"/>";

Fault On(const std::string& object, const std::string& operation, FaultTrigger trigger = FaultTrigger::Once) {
    Fault fault;
    fault.object = object;
    fault.operation = operation;
    fault.trigger = trigger;
    fault.code = 0x1234;
    fault.text = "On purpose.";
    return fault;
}

// Which of so many reads fail, as a text of '.' and 'x'.
std::string FailingReads(TavikLibrary::TavikModule* module, int reads) {
    std::string pattern;
    for (int i = 0; i < reads; ++i) {
        pattern += RefusalOf([&] { module->ReadInCounts(); }).refused ? 'x' : '.';
    }
    return pattern;
}

// A few calls of several objects, as one after the other.
void ShortTour(ConnectedServer& server) {
    server.Network()->ModuleCount();
    server.Module(0)->ReadInCounts();
    server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    server.Module(0)->Status()->UpdateStatus();
}

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { Use(OneNetwork(Two)); }
    void OnceHitsTheFirstMatchingCall();
    void NthHitsThatCallOnly();
    void FromNthHitsAllLaterCalls();
    void DuringHitsASpanOfBenchTime();
    void ProbabilityIsSeeded();
    void ObjectAndOperationArePatterns_data();
    void ObjectAndOperationArePatterns();
    void ALibraryExceptionCarriesCodeAndText();
    void WithoutATextTheCodeIsDescribed();
    void APlainExceptionIsNoLibraryException();
    void ASlowCallTakesLongerAndWorks();
    void AReadingGetsAResultCode();
    void AnIntIsReplacedByTheResult();
    void AResultLeavesOtherOperationsAlone();
    void AFaultedCallHasHadNoEffect();
    void FaultsAreRemoved();
    void TheKthCallFailsWhateverItIs();
    void EveryCallFromTheKthOnFails();
    void TheKthCallCanFailPlainly();
    void DestructorsAndDescriptionsNeverFail();
    void AFailingServerLeavesNothingBehind();
    void TheLastHitIsKnown();
    void ImpossibleFaultsAreRefused();
    void TheBenchFileSetsFaults();
};

void FaultsTest::OnceHitsTheFirstMatchingCall() {
    ConnectedServer server;
    const int number = AddFault(On("module KX00000001", "ReadInCounts"));
    server.Module(1)->ReadInCounts();
    server.Module(0)->ReadInUnits();
    QCOMPARE(FaultsTriggered(), std::uint64_t{0});
    QCOMPARE(FailingReads(server.Module(0), 4), std::string("x..."));
    QCOMPARE(FaultsTriggered(number), std::uint64_t{1});
}

void FaultsTest::NthHitsThatCallOnly() {
    ConnectedServer server;
    Fault fault = On("*", "ReadInCounts", FaultTrigger::Nth);
    fault.n = 3;
    AddFault(fault);
    QCOMPARE(FailingReads(server.Module(0), 5), std::string("..x.."));
}

void FaultsTest::FromNthHitsAllLaterCalls() {
    ConnectedServer server;
    Fault fault = On("*", "ReadInCounts", FaultTrigger::FromNth);
    fault.n = 3;
    const int number = AddFault(fault);
    QCOMPARE(FailingReads(server.Module(0), 5), std::string("..xxx"));
    QCOMPARE(FaultsTriggered(number), std::uint64_t{3});
}

void FaultsTest::DuringHitsASpanOfBenchTime() {
    ConnectedServer server;
    TavikSimulator::AdvanceClock(100.0);
    Fault fault = On("*", "ReadInCounts", FaultTrigger::During);
    fault.from = 1.0;
    fault.duration = 2.0;
    AddFault(fault);
    std::string pattern;
    for (int i = 0; i < 8; ++i) {
        pattern += FailingReads(server.Module(0), 1);
        TavikSimulator::AdvanceClock(0.5);
    }
    QCOMPARE(pattern, std::string("..xxxx.."));
}

void FaultsTest::ProbabilityIsSeeded() {
    const auto pattern = [](std::uint64_t seed) {
        Use(OneNetwork(Two));
        ConnectedServer server;
        Fault fault = On("*", "ReadInCounts", FaultTrigger::Probability);
        fault.probability = 0.25;
        fault.seed = seed;
        AddFault(fault);
        return FailingReads(server.Module(0), 1000);
    };
    const std::string first = pattern(1);
    QCOMPARE(pattern(1), first);
    QVERIFY(pattern(2) != first);
    // 250 of 1000 expected with a deviation of 13.7: five of them to either side.
    const auto failures = std::count(first.begin(), first.end(), 'x');
    QVERIFY2(failures > 181 && failures < 319, std::to_string(failures).c_str());
}

void FaultsTest::ObjectAndOperationArePatterns_data() {
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char* object, const char* operation, bool matches) {
        const QByteArray name = QByteArray(object) + " / " + operation;
        QTest::newRow(name.constData()) << QString::fromLatin1(object) << QString::fromLatin1(operation) << matches;
    };
    row("*", "*", true);
    row("module *", "ReadInCounts", true);
    row("*0001", "Read*", true);
    row("*KX*1", "*In*nts", true);
    row("module KX00000001", "ReadInCounts", true);
    row("module KX0000000", "ReadInCounts", false);
    row("module KX00000001", "ReadInCount", false);
    row("odule*", "*", false);
    row("*2", "*", false);
    row("*", "*Units", false);
    row("**", "R**s", true);
}

void FaultsTest::ObjectAndOperationArePatterns() {
    QFETCH(QString, object);
    QFETCH(QString, operation);
    QFETCH(bool, matches);
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    AddFault(On(object.toStdString(), operation.toStdString()));
    QCOMPARE(RefusalOf([&] { module->ReadInCounts(); }).refused, matches);
}

void FaultsTest::ALibraryExceptionCarriesCodeAndText() {
    ConnectedServer server;
    AddFault(On("networks", "Count"));
    const Refusal refusal = RefusalOf([&] { server.server.Networks()->Count(); });
    QCOMPARE(refusal.code, 0x1234);
    QCOMPARE(refusal.text, std::string("On purpose."));
}

void FaultsTest::WithoutATextTheCodeIsDescribed() {
    ConnectedServer server;
    Fault fault = On("networks", "Count");
    fault.code = 0x2101;
    fault.text.clear();
    AddFault(fault);
    QCOMPARE(RefusalOf([&] { server.server.Networks()->Count(); }).text, server.server.GetErrorDescription(0x2101));
}

void FaultsTest::APlainExceptionIsNoLibraryException() {
    ConnectedServer server;
    Fault fault = On("networks", "Count");
    fault.effect = FaultEffect::ThrowPlain;
    AddFault(fault);
    std::string caught;
    try {
        server.server.Networks()->Count();
    } catch (const TavikLibrary::TavikException&) {
        QFAIL("a library exception");
    } catch (const std::runtime_error& error) {
        caught = error.what();
    }
    QCOMPARE(caught, std::string("On purpose."));
}

void FaultsTest::ASlowCallTakesLongerAndWorks() {
    ConnectedServer server;
    Fault fault = On("networks", "Count");
    fault.effect = FaultEffect::Slow;
    fault.delay = 1.5;
    AddFault(fault);
    const double begun = TavikSimulator::BenchTime();
    QCOMPARE(server.server.Networks()->Count(), 1);
    QVERIFY(qFuzzyCompare(TavikSimulator::BenchTime() - begun, 1.5));
    QCOMPARE(FaultsTriggered(), std::uint64_t{1});
}

void FaultsTest::AReadingGetsAResultCode() {
    ConnectedServer server;
    TavikSimulator::HoldPosition("N", "KX00000001", 1.0);
    Fault fault = On("module *", "ReadIn*");
    fault.effect = FaultEffect::Result;
    AddFault(fault);
    QCOMPARE(server.Module(0)->ReadInUnits(), 1.0);
    QCOMPARE(server.Module(0)->LastResultCode(), 0x1234);
    QCOMPARE(server.Module(0)->LastReadingInUnits(), 1.0);
    server.Module(0)->ReadInUnits();
    QCOMPARE(server.Module(0)->LastResultCode(), 0);
}

void FaultsTest::AnIntIsReplacedByTheResult() {
    ConnectedServer server;
    Fault fault = On("buffered N", "Status");
    fault.effect = FaultEffect::Result;
    fault.code = 1;
    AddFault(fault);
    QCOMPARE(server.Network()->Buffered()->Status(), 1);
    QCOMPARE(server.Network()->Buffered()->Status(), 0);
}

void FaultsTest::AResultLeavesOtherOperationsAlone() {
    ConnectedServer server;
    Fault fault = On("*", "*", FaultTrigger::FromNth);
    fault.effect = FaultEffect::Result;
    AddFault(fault);
    QCOMPARE(server.server.LibraryVersion(), std::string("1.0.0 (simulated bench)"));
    server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    QCOMPARE(FaultsTriggered(), std::uint64_t{0});
}

void FaultsTest::AFaultedCallHasHadNoEffect() {
    ConnectedServer server;
    TavikLibrary::TavikNetwork* network = server.Network();
    const auto faulted = [](const std::string& operation, auto call) {
        AddFault(On("*", operation));
        return RefusalOf(call).code == 0x1234;
    };
    QVERIFY(faulted("setNetSpeed", [&] { network->setNetSpeed(TavikLibrary::eNetSpeed::Low); }));
    QCOMPARE(network->NetSpeed(), TavikLibrary::eNetSpeed::High);
    QVERIFY(faulted("DeleteModule", [&] { network->DeleteModule(0); }));
    QVERIFY(faulted("ClearModules", [&] { network->ClearModules(); }));
    QCOMPARE(network->ModuleCount(), 2);
    QVERIFY(faulted("Disconnect", [&] { network->Disconnect(); }));
    QVERIFY(network->IsConnected());
    network->Disconnect();
    QVERIFY(faulted("Connect", [&] { network->Connect(); }));
    QVERIFY(!network->IsConnected());
}

void FaultsTest::FaultsAreRemoved() {
    ConnectedServer server;
    const int first = AddFault(On("*", "ReadInCounts", FaultTrigger::FromNth));
    QCOMPARE(FailingReads(server.Module(0), 2), std::string("xx"));
    TavikSimulator::RemoveFault(first);
    QCOMPARE(FailingReads(server.Module(0), 2), std::string(".."));
    QCOMPARE(FaultsTriggered(first), std::uint64_t{2});
    AddFault(On("*", "ReadInCounts", FaultTrigger::FromNth));
    TavikSimulator::FailCall(5);
    TavikSimulator::ClearFaults();
    QCOMPARE(FailingReads(server.Module(0), 8), std::string("........"));
}

void FaultsTest::TheKthCallFailsWhateverItIs() {
    const std::uint64_t before = [] {
        ConnectedServer server;
        const std::uint64_t begun = TavikSimulator::CallCount();
        ShortTour(server);
        return TavikSimulator::CallCount() - begun;
    }();
    // Network, ModuleCount; Network, GetModule, ReadInCounts; Network, setNetSpeed; Network, GetModule,
    // Status, UpdateStatus; and Networks before each Network.
    QCOMPARE(before, std::uint64_t{15});
    std::vector<std::string> hit;
    for (std::uint64_t k = 1; k <= before; ++k) {
        Use(OneNetwork(Two));
        ConnectedServer server;
        TavikSimulator::FailCall(k, 0x77, "Call " + std::to_string(k));
        const Refusal refusal = RefusalOf([&] { ShortTour(server); });
        QCOMPARE(refusal.code, 0x77);
        QCOMPARE(refusal.text, "Call " + std::to_string(k));
        QCOMPARE(FaultsTriggered(), std::uint64_t{1});
        hit.push_back(TavikSimulator::LastFaultedCall().operation);
        ShortTour(server);
    }
    QCOMPARE(hit, (Identities{"Networks", "Network", "ModuleCount", "Networks", "Network", "GetModule", "ReadInCounts",
                              "Networks", "Network", "setNetSpeed", "Networks", "Network", "GetModule", "Status",
                              "UpdateStatus"}));
}

void FaultsTest::EveryCallFromTheKthOnFails() {
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    TavikSimulator::FailCall(3, 0x77, "Gone", true);
    QCOMPARE(FailingReads(module, 5), std::string("..xxx"));
    TavikSimulator::FailCall(2, 0x77, "Once");
    QCOMPARE(FailingReads(module, 4), std::string(".x.."));
}

void FaultsTest::TheKthCallCanFailPlainly() {
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    TavikSimulator::FailCallPlainly(1, "Out of memory");
    QVERIFY_EXCEPTION_THROWN(module->ReadInCounts(), std::runtime_error);
    TavikSimulator::FailCallPlainly(1, "Out of memory");
    bool plain = false;
    try {
        module->ReadInCounts();
    } catch (const TavikLibrary::TavikException&) {
        QFAIL("a library exception");
    } catch (const std::runtime_error& error) {
        plain = error.what() == std::string("Out of memory");
    }
    QVERIFY(plain);
}

void FaultsTest::DestructorsAndDescriptionsNeverFail() {
    {
        ConnectedServer server;
        TavikSimulator::FailCall(1, 0x77, "Everything", true);
        AddFault(On("*", "*", FaultTrigger::FromNth));
        const std::uint64_t calls = TavikSimulator::CallCount();
        QVERIFY(!server.server.GetErrorDescription(0).empty());
        QCOMPARE(TavikSimulator::CallCount(), calls);
        QVERIFY(RefusalOf([&] { server.server.Networks(); }).refused);
    }
    QCOMPARE(FaultsTriggered(), std::uint64_t{1});
}

void FaultsTest::AFailingServerLeavesNothingBehind() {
    TavikSimulator::FailCall(1);
    QVERIFY(RefusalOf([] { TavikLibrary::TavikServer server; }).refused);
    ConnectedServer server;
    QCOMPARE(server.Network()->ModuleCount(), 2);
}

void FaultsTest::TheLastHitIsKnown() {
    ConnectedServer server;
    QCOMPARE(TavikSimulator::LastFaultedCall().number, std::uint64_t{0});
    AddFault(On("*", "AddModule"));
    QVERIFY(RefusalOf([&] { server.Network()->AddModule("KX00000009", ""); }).code == 0x1234);
    server.Network()->ModuleCount();
    const TavikSimulator::JournalEntry hit = TavikSimulator::LastFaultedCall();
    QCOMPARE(TavikSimulator::CallText(hit), std::string("network N.AddModule(\"KX00000009\", \"\")"));
    QVERIFY(hit.number > 0);
}

void FaultsTest::ImpossibleFaultsAreRefused() {
    const auto refused = [](auto change) {
        Fault fault = On("*", "Ping");
        change(fault);
        return RefusalOf([&] { AddFault(fault); }).Is(eTavikErrors::InvalidArgument);
    };
    QVERIFY(refused([](Fault& fault) { fault.object.clear(); }));
    QVERIFY(refused([](Fault& fault) { fault.operation.clear(); }));
    QVERIFY(refused([](Fault& fault) { fault.operation = "~TavikServer"; }));
    QVERIFY(refused([](Fault& fault) { fault.operation = "GetErrorDescription"; }));
    QVERIFY(refused([](Fault& fault) { fault.n = 0; }));
    QVERIFY(refused([](Fault& fault) { fault.probability = 1.5; }));
    QVERIFY(refused([](Fault& fault) { fault.probability = std::numeric_limits<double>::quiet_NaN(); }));
    QVERIFY(refused([](Fault& fault) { fault.trigger = FaultTrigger::During; }));
    QVERIFY(refused([](Fault& fault) { fault.effect = FaultEffect::Slow; }));
    QVERIFY(RefusalOf([] { TavikSimulator::FailCall(0); }).refused);
    QVERIFY(RefusalOf([] { TavikSimulator::FailCallPlainly(1, ""); }).refused);
}

void FaultsTest::TheBenchFileSetsFaults() {
    Use("<bench clock=\"manual\" latency=\"off\"><network name=\"N\">" + Two +
        "</network><fault object=\"module *\" operation=\"ReadInCounts\" when=\"nth\" n=\"2\" code=\"0x99\""
        " text=\"From the file.\"/></bench>");
    ConnectedServer server;
    server.Module(0)->ReadInCounts();
    const Refusal refusal = RefusalOf([&] { server.Module(1)->ReadInCounts(); });
    QCOMPARE(refusal.code, 0x99);
    QCOMPARE(refusal.text, std::string("From the file."));
}

QTEST_APPLESS_MAIN(FaultsTest)
#include "FaultsTest.moc"
