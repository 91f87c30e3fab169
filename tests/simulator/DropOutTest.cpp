#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleRN.h"
#include "tests/simulator/Bench.h"

using TavikLibrary::eTavikErrors;
using TavikLibrary::TavikModule;
using TavikLibrary::TavikNetwork;
using TavikSimulator::AdvanceClock;
using TavikSimulator::CallsOnRemovedModules;
using TavikSimulator::SetModulePresent;
using TavikSimulator::SetNetworkPresent;

namespace {

const std::string Two = "<module type=\"KX\" identity=\"KX00000001\" probe-identity=\"PP1\"/>"
                        "<module type=\"RN\" identity=\"RN00000002\"/>";

template <class Call>
bool NotConnected(Call call) {
    const Refusal refusal = RefusalOf(call);
    return refusal.Is(eTavikErrors::NetworkNotConnected) && refusal.Names("\"N\"");
}

} // namespace

class DropOutTest : public QObject {
    Q_OBJECT

private slots:
    void AModuleDropsOffAndComesBack();
    void StatusTellsWhatHappened();
    void ANetworkDropsOutAndComesBack();
    void ADisconnectedNetworkTellsWhoItIs();
    void ADisconnectedNetworkRefusesTheRest();
    void AModuleOfADisconnectedNetworkRefuses();
    void StoppingIsHarmlessAtAnyTime();
    void ConnectingCanFail();
    void ConnectingCanNeedSeveralTries();
    void ConnectingCanChangeWhatIsShown();
    void AnAbsentControllerIsFoundWhenItIsBack();
    void ThingsHappenByThemselves();
    void EventsRepeat();
    void RemovedModulesRefuseEveryCall();
    void ObjectsEndWithTheServer();
    void TwoServersShareABench();
    void AnEmptyBenchHasNoNetworks();
};

void DropOutTest::AModuleDropsOffAndComesBack() {
    Use(OneNetwork(Two));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    module->ReadInCounts();
    SetModulePresent("N", "KX00000001", false);
    const Refusal refusal = RefusalOf([&] { module->ReadInUnits(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("KX00000001"));
    QCOMPARE(module->LastResultCode(), static_cast<int>(eTavikErrors::ModuleNotResponding));
    QVERIFY(RefusalOf([&] { module->Status()->UpdateStatus(); }).Is(eTavikErrors::ModuleNotResponding));
    auto* probe = dynamic_cast<TavikLibrary::TavikModuleKX*>(module);
    QVERIFY(RefusalOf([&] {
                probe->setAveraging(TavikLibrary::eAveraging::Samples2);
            }).Is(eTavikErrors::ModuleNotResponding));
    QCOMPARE(probe->Averaging(), TavikLibrary::eAveraging::Off);
    // What the library learned when the network was connected, it still knows.
    QCOMPARE(module->Identity(), std::string("KX00000001"));
    QCOMPARE(module->ProbeIdentity(), std::string("PP1"));
    server.Module(1)->ReadInCounts();
    SetModulePresent("N", "KX00000001", true);
    AdvanceClock(1.0);
    module->ReadInCounts();
    QCOMPARE(module->LastResultCode(), 0);
}

void DropOutTest::StatusTellsWhatHappened() {
    Use(OneNetwork(Two));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    TavikLibrary::TavikModuleStatus* status = module->Status();
    const auto update = [&] {
        status->UpdateStatus();
        return std::vector<int>{status->Status(), status->ErrorCode()};
    };
    QCOMPARE(update(), (std::vector<int>{0, 0}));
    QCOMPARE(status->ErrorString(), server.server.GetErrorDescription(0));
    TavikSimulator::HoldPosition("N", "KX00000001", 5.0);
    module->ReadInCounts();
    QCOMPARE(status->ErrorCode(), 0);
    QCOMPARE(update(), (std::vector<int>{1, 0x2113}));
    QCOMPARE(status->ErrorString(), server.server.GetErrorDescription(0x2113));
    SetModulePresent("N", "KX00000001", false);
    QVERIFY(RefusalOf(update).refused);
    QCOMPARE(status->ErrorCode(), 0x2113);
    SetModulePresent("N", "KX00000001", true);
    QCOMPARE(update(), (std::vector<int>{2, 0x2101}));
    TavikSimulator::HoldPosition("N", "KX00000001", 1.0);
    module->ReadInCounts();
    QCOMPARE(update(), (std::vector<int>{0, 0}));
    QCOMPARE(module->Status(), status);
}

void DropOutTest::ANetworkDropsOutAndComesBack() {
    Use(OneNetwork(Two));
    ConnectedServer server;
    TavikNetwork* network = server.Network();
    TavikModule* module = server.Module(0);
    SetNetworkPresent("N", false);
    QVERIFY(!network->IsConnected());
    QVERIFY(NotConnected([&] { module->ReadInCounts(); }));
    QVERIFY(NotConnected([&] { network->ModuleCount(); }));
    network->Connect();
    QVERIFY(!network->IsConnected());
    SetNetworkPresent("N", true);
    QVERIFY(!network->IsConnected());
    network->Connect();
    QVERIFY(network->IsConnected());
    QCOMPARE(server.Module(0), module);
    module->ReadInCounts();
}

void DropOutTest::ADisconnectedNetworkTellsWhoItIs() {
    Use(OneNetwork(Two, "description=\"Simulated N\" type=\"serial\""));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikNetwork* network = server.Networks()->Network(0);
    QCOMPARE(network->NetworkName(), std::string("N"));
    QCOMPARE(network->ControllerID(), std::string("C1"));
    QCOMPARE(network->Description(), std::string("Simulated N"));
    QCOMPARE(network->NetworkType(), TavikLibrary::eNetworkType::Serial);
    QVERIFY(!network->IsConnected());
    QVERIFY(!network->Notifying());
}

void DropOutTest::ADisconnectedNetworkRefusesTheRest() {
    Use(OneNetwork(Two));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikNetwork* network = server.Networks()->Network(0);
    QVERIFY(NotConnected([&] { network->ModuleCount(); }));
    QVERIFY(NotConnected([&] { network->GetModule(0); }));
    QVERIFY(NotConnected([&] { network->GetModuleIndexByID("KX00000001"); }));
    QVERIFY(NotConnected([&] { network->BeginNotifying(); }));
    QVERIFY(NotConnected([&] { network->AddModule("KX00000001", ""); }));
    QVERIFY(NotConnected([&] { network->DeleteModule(0); }));
    QVERIFY(NotConnected([&] { network->ClearModules(); }));
    QVERIFY(NotConnected([&] { network->ClearTCons(); }));
    QVERIFY(NotConnected([&] { network->ApplyRemap(); }));
    QVERIFY(NotConnected([&] { network->FindHotswapped(); }));
    QVERIFY(NotConnected([&] { network->Ping(); }));
    QVERIFY(NotConnected([&] { network->DynamicCapable(); }));
    QVERIFY(NotConnected([&] { network->Dynamic2Capable(); }));
    QVERIFY(NotConnected([&] { network->DynamicExternalSourceCapable(); }));
    QVERIFY(NotConnected([&] { network->BufferedCapable(); }));
    QVERIFY(NotConnected([&] { network->BufferedExternalSourceCapable(); }));
    QVERIFY(NotConnected([&] { network->ReadBurstCapable(); }));
    QVERIFY(NotConnected([&] { network->ReadBurstCapableCount(); }));
    QVERIFY(NotConnected([&] { network->SpeedAvailable(TavikLibrary::eNetSpeed::Low); }));
    QVERIFY(NotConnected([&] { network->AvailableSpeeds(); }));
    QVERIFY(NotConnected([&] { network->NetSpeed(); }));
    QVERIFY(NotConnected([&] { network->setNetSpeed(TavikLibrary::eNetSpeed::Low); }));
}

void DropOutTest::AModuleOfADisconnectedNetworkRefuses() {
    Use(OneNetwork(Two));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    module->ReadInCounts();
    server.Network()->Disconnect();
    QVERIFY(NotConnected([&] { module->ReadInCounts(); }));
    QVERIFY(NotConnected([&] { module->Identity(); }));
    QVERIFY(NotConnected([&] { module->BufferedCapable(); }));
    QVERIFY(NotConnected([&] { module->SetPosition(0); }));
    QVERIFY(NotConnected([&] { module->Status()->UpdateStatus(); }));
    // What the library remembers, it tells all the same.
    QCOMPARE(module->LastResultCode(), 0);
    QCOMPARE(module->Status()->ErrorCode(), 0);
}

void DropOutTest::StoppingIsHarmlessAtAnyTime() {
    Use(OneNetwork(Two));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikNetwork* network = server.Networks()->Network(0);
    const auto stopAll = [&] {
        network->CancelNotifying();
        QCOMPARE(network->Buffered()->Status(), 0);
        network->Buffered()->Stop();
        QCOMPARE(network->Difference()->Status(), 0);
        network->Difference()->Stop();
        server.StopAllDynamic();
        network->Disconnect();
        server.Networks()->DisconnectAll();
    };
    stopAll();
    network->Connect();
    stopAll();
    QVERIFY(!network->IsConnected());
    SetNetworkPresent("N", false);
    stopAll();
    QCOMPARE(network->Buffered()->Status(), 0);
}

void DropOutTest::ConnectingCanFail() {
    Use("<bench latency=\"off\"><network name=\"A\" connects=\"no\"/><network name=\"B\"/></bench>");
    ConnectedServer server;
    QVERIFY(!server.Network(0)->IsConnected());
    QVERIFY(server.Network(1)->IsConnected());
    server.Network(0)->Connect();
    QVERIFY(!server.Network(0)->IsConnected());
}

void DropOutTest::ConnectingCanNeedSeveralTries() {
    Use(OneNetwork(Two, "failed-tries=\"2\""));
    ConnectedServer server;
    QVERIFY(!server.Network()->IsConnected());
    server.Network()->Connect();
    QVERIFY(!server.Network()->IsConnected());
    server.Network()->Connect();
    QVERIFY(server.Network()->IsConnected());
}

void DropOutTest::ConnectingCanChangeWhatIsShown() {
    Use(OneNetwork(Two, "description=\"Before\" connected-controller=\"C2\" connected-description=\"After\""));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikNetwork* network = server.Networks()->Network(0);
    QCOMPARE(network->ControllerID(), std::string("C1"));
    QCOMPARE(network->Description(), std::string("Before"));
    network->Connect();
    QCOMPARE(network->ControllerID(), std::string("C2"));
    QCOMPARE(network->Description(), std::string("After"));
}

void DropOutTest::AnAbsentControllerIsFoundWhenItIsBack() {
    Use("<bench latency=\"off\"><network name=\"A\" present=\"no\"/><network name=\"B\"/></bench>");
    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetworks* networks = server.Networks();
    QCOMPARE(networks->Count(), 0);
    networks->FindNetworks();
    QCOMPARE(networks->Count(), 1);
    TavikNetwork* second = networks->Network(0);
    QCOMPARE(second->NetworkName(), std::string("B"));
    SetNetworkPresent("A", true);
    networks->FindNetworks();
    QCOMPARE(networks->Count(), 2);
    QCOMPARE(networks->Network(0), second);
    QCOMPARE(networks->Network(1)->NetworkName(), std::string("A"));
    SetNetworkPresent("B", false);
    networks->FindNetworks();
    QCOMPARE(networks->Network(0), second);
}

void DropOutTest::ThingsHappenByThemselves() {
    Use(OneNetwork(Two + "<event what=\"module-leaves\" at=\"10\" module=\"KX00000001\"/>"
                         "<event what=\"module-returns\" at=\"12\" module=\"KX00000001\"/>"
                         "<event what=\"module-replaced\" at=\"14\" module=\"KX00000001\" by=\"KX00000077\"/>"
                         "<event what=\"controller-leaves\" at=\"20\"/>"
                         "<event what=\"controller-returns\" at=\"22\"/>"));
    ConnectedServer server;
    const auto answers = [&] { return !RefusalOf([&] { server.Module(0)->ReadInCounts(); }).refused; };
    AdvanceClock(9.9);
    QVERIFY(answers());
    AdvanceClock(1.0);
    QVERIFY(!answers());
    AdvanceClock(2.0);
    QVERIFY(answers());
    AdvanceClock(2.0);
    QVERIFY(!answers());
    server.Network()->FindHotswapped();
    QVERIFY(answers());
    QCOMPARE(server.Module(0)->Identity(), std::string("KX00000077"));
    AdvanceClock(6.0);
    QVERIFY(!server.Network()->IsConnected());
    server.Network()->Connect();
    QVERIFY(!server.Network()->IsConnected());
    AdvanceClock(2.0);
    server.Network()->Connect();
    QVERIFY(server.Network()->IsConnected());
}

void DropOutTest::EventsRepeat() {
    Use(OneNetwork(Two + "<event what=\"module-leaves\" at=\"1\" every=\"10\" module=\"KX00000001\"/>"
                         "<event what=\"module-returns\" at=\"3\" every=\"10\" module=\"KX00000001\"/>"));
    ConnectedServer server;
    std::string pattern;
    for (int second = 0; second < 24; ++second) {
        pattern += RefusalOf([&] { server.Module(0)->ReadInCounts(); }).refused ? 'x' : '.';
        AdvanceClock(1.0);
    }
    QCOMPARE(pattern, std::string(".xx........xx........xx."));
}

void DropOutTest::RemovedModulesRefuseEveryCall() {
    Use(OneNetwork(Two));
    ConnectedServer server;
    TavikModule* probe = server.Module(0);
    TavikModule* encoder = server.Module(1);
    TavikLibrary::TavikModuleStatus* status = probe->Status();
    server.Network()->DeleteModule(0);
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
    const auto removed = [](auto call) {
        const Refusal refusal = RefusalOf(call);
        return refusal.Is(eTavikErrors::ModuleRemoved) && refusal.Names("KX00000001");
    };
    QVERIFY(removed([&] { probe->ReadInCounts(); }));
    QVERIFY(removed([&] { probe->Identity(); }));
    QVERIFY(removed([&] { probe->Status(); }));
    QVERIFY(removed([&] { probe->LastResultCode(); }));
    QVERIFY(removed([&] { probe->Buffered(); }));
    QVERIFY(removed([&] { status->ErrorString(); }));
    QVERIFY(dynamic_cast<TavikLibrary::TavikModuleKX*>(probe) != nullptr);
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{6});
    encoder->ReadInCounts();
    server.Network()->AddModule("KX00000001", "");
    QVERIFY(server.Module(1) != probe);
    server.Module(1)->ReadInCounts();
    QVERIFY(removed([&] { probe->ReadInCounts(); }));
    server.Network()->ClearModules();
    QVERIFY(RefusalOf([&] { encoder->Identity(); }).Is(eTavikErrors::ModuleRemoved));
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{8});
}

void DropOutTest::ObjectsEndWithTheServer() {
    Use(OneNetwork(Two));
    {
        ConnectedServer server;
        server.Network()->DeleteModule(0);
        server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    }
    // The bench is as the server left it, but nothing is connected or known.
    TavikLibrary::TavikServer server;
    QCOMPARE(server.Networks()->Count(), 0);
    server.Networks()->FindNetworks();
    TavikNetwork* network = server.Networks()->Network(0);
    QVERIFY(!network->IsConnected());
    network->Connect();
    QCOMPARE(Listed(network), Identities{"RN00000002"});
    QCOMPARE(network->NetSpeed(), TavikLibrary::eNetSpeed::Low);
}

void DropOutTest::TwoServersShareABench() {
    Use(OneNetwork(Two));
    ConnectedServer first;
    TavikNetwork* network = first.Network();
    {
        TavikLibrary::TavikServer second;
        QCOMPARE(second.Networks()->Network(0), network);
    }
    QVERIFY(network->IsConnected());
    first.Module(0)->ReadInCounts();
    // A server keeps its bench when a fresh one takes its place.
    Use("<bench/>");
    first.Module(0)->ReadInCounts();
    TavikLibrary::TavikServer third;
    third.Networks()->FindNetworks();
    QCOMPARE(third.Networks()->Count(), 0);
}

void DropOutTest::AnEmptyBenchHasNoNetworks() {
    Use("<bench/>");
    ConnectedServer server;
    QCOMPARE(server.server.Networks()->Count(), 0);
    server.server.Networks()->DisconnectAll();
    server.server.StopAllDynamic();
}

QTEST_APPLESS_MAIN(DropOutTest)
#include "DropOutTest.moc"
