#include "tests/simulator/acquisition/DifferenceBench.h"

#include <atomic>
#include <thread>

using namespace Difference;
using namespace TavikSimulator;
using TavikLibrary::eTavikErrors;
using TavikLibrary::ModuleDifference;
using TavikLibrary::NetworkDifference;

/// Starting, stopping and losing a run of difference mode.
class DifferenceModeTest : public QObject {
    Q_OBJECT

private slots:
    void nothingAtFirst();
    void onlyCapableModulesAreEnabled();
    void startNeedsAnEnabledModuleThatAnswers();
    void aRunEndsWhenAModuleDropsOut();
    void aModuleThatWasAwayForAMomentHasDroppedOut();
    void modulesThatTakeNoPartMayGo();
    void aModuleOfAnEndedRunMayLeaveTheList();
    void whileARunIsOnTheRestIsRefused();
    void aRunIsLostWithItsNetwork();
    void stoppingWithoutARun();
    void theNextRunBeginsAnew();
    void removedModulesRefuse();
    void faults();
    void callsTakeTheirTime();
    void manyThreads();
};

void DifferenceModeTest::nothingAtFirst() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    QCOMPARE(Run(server)->Status(), int(Idle));
    QCOMPARE(Run(server)->Count(), 0);
    ModuleDifference* difference = Of(server, 0);
    QVERIFY(!difference->Enabled());
    QCOMPARE(difference->ReadingCount(), 0);
    QCOMPARE(difference->MaxCounts(), 0);
    QCOMPARE(difference->SumCounts(), std::int64_t{0});
    QCOMPARE(difference->Max(), 0.0);
    QCOMPARE(difference->Error(), 0);
    difference->ReadDifference();
    QCOMPARE(difference->ReadingCount(), 0);
}

void DifferenceModeTest::onlyCapableModulesAreEnabled() {
    Use(OneNetwork(Probe1 + Probe2 + Pins));
    ConnectedServer server;
    Of(server, 0)->setEnabled(true);
    Of(server, 0)->setEnabled(true);
    QVERIFY(Of(server, 0)->Enabled());
    QCOMPARE(Run(server)->Count(), 1);
    Of(server, 1)->setEnabled(true);
    QCOMPARE(Run(server)->Count(), 2);
    Of(server, 0)->setEnabled(false);
    QVERIFY(!Of(server, 0)->Enabled());
    QCOMPARE(Run(server)->Count(), 1);
    const Refusal refusal = RefusalOf([&] { Of(server, 2)->setEnabled(true); });
    QVERIFY(refusal.Is(eTavikErrors::NotSupported));
    QVERIFY(refusal.Names("SWAX000003"));
    QVERIFY(!Of(server, 2)->Enabled());
    QCOMPARE(Run(server)->Count(), 1);
}

void DifferenceModeTest::startNeedsAnEnabledModuleThatAnswers() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    const auto refusalOfStart = [&] { return RefusalOf([&] { Run(server)->Start(); }); };
    QVERIFY(refusalOfStart().Is(eTavikErrors::NoModuleEnabled));
    QVERIFY(refusalOfStart().Names("\"N\""));
    Of(server, 0)->setEnabled(true);
    Of(server, 1)->setEnabled(true);
    SetModulePresent("N", "KX00000002", false);
    QVERIFY(refusalOfStart().Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusalOfStart().Names("KX00000002"));
    QCOMPARE(Run(server)->Status(), int(Idle));
    SetModulePresent("N", "KX00000002", true);
    server.Network()->BeginNotifying();
    QVERIFY(refusalOfStart().Is(eTavikErrors::NotifyRunning));
    server.Network()->CancelNotifying();
    QVERIFY(!refusalOfStart().refused);
    QCOMPARE(Run(server)->Status(), int(Running));
    QVERIFY(refusalOfStart().Is(eTavikErrors::AcquisitionRunning));
    QCOMPARE(Run(server)->Status(), int(Running));
}

void DifferenceModeTest::aRunEndsWhenAModuleDropsOut() {
    Use(OneNetwork(Probe1 + Probe2 + "<event what=\"module-leaves\" at=\"5\" module=\"KX00000002\"/>"));
    ConnectedServer server;
    StartWith(server, {0, 1});
    AdvanceClock(3.0);
    Of(server, 1)->ReadDifference();
    AdvanceClock(7.0);
    QCOMPARE(Run(server)->Status(), int(Ended));
    QVERIFY(RefusalOf([&] { Run(server)->Start(); }).Is(eTavikErrors::StopAwaited));
    QCOMPARE(Run(server)->Count(), 2);
    Of(server, 0)->ReadDifference();
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(0.0, 5.0, probePeriod));
    QVERIFY(RefusalOf([&] { Of(server, 1)->ReadDifference(); }).Is(eTavikErrors::ModuleNotResponding));
    AdvanceClock(1.0);
    QCOMPARE(Run(server)->Status(), int(Ended));
    Run(server)->Stop();
    QCOMPARE(Run(server)->Status(), int(Finished));
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(0.0, 5.0, probePeriod));
    QCOMPARE(Of(server, 0)->Error(), 0);
    QCOMPARE(Of(server, 1)->ReadingCount(), Due(0.0, 3.0, probePeriod));
    QCOMPARE(Of(server, 1)->Error(), static_cast<int>(eTavikErrors::ModuleNotResponding));
}

void DifferenceModeTest::aModuleThatWasAwayForAMomentHasDroppedOut() {
    Use(OneNetwork(Probe1 + "<event what=\"module-leaves\" at=\"2\" module=\"KX00000001\"/>"
                            "<event what=\"module-returns\" at=\"3\" module=\"KX00000001\"/>"));
    ConnectedServer server;
    StartWith(server, {0});
    AdvanceClock(10.0);
    QCOMPARE(Run(server)->Status(), int(Ended));
    Run(server)->Stop();
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(0.0, 2.0, probePeriod));
    QCOMPARE(Of(server, 0)->Error(), 0);
}

void DifferenceModeTest::modulesThatTakeNoPartMayGo() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    StartWith(server, {0});
    SetModulePresent("N", "KX00000002", false);
    AdvanceClock(1.0);
    QCOMPARE(Run(server)->Status(), int(Running));
    Of(server, 1)->ReadDifference();
    QCOMPARE(Of(server, 1)->ReadingCount(), 0);
    QCOMPARE(Of(server, 1)->Error(), 0);
}

void DifferenceModeTest::aModuleOfAnEndedRunMayLeaveTheList() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    StartWith(server, {0, 1});
    AdvanceClock(1.0);
    SetModulePresent("N", "KX00000001", false);
    AdvanceClock(1.0);
    QCOMPARE(Run(server)->Status(), int(Ended));
    server.Network()->DeleteModule(0);
    QCOMPARE(Run(server)->Count(), 1);
    Run(server)->Stop();
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(0.0, 1.0, probePeriod));
    Run(server)->Start();
    QCOMPARE(Run(server)->Status(), int(Running));
}

void DifferenceModeTest::whileARunIsOnTheRestIsRefused() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    TavikLibrary::TavikNetwork* network = server.Network();
    StartWith(server, {0});
    const auto isRefused = [](const auto& call) { return RefusalOf(call).Is(eTavikErrors::AcquisitionRunning); };
    QVERIFY(isRefused([&] { server.Module(0)->ReadInCounts(); }));
    QVERIFY(isRefused([&] { server.Module(1)->ReadInUnits(); }));
    QVERIFY(isRefused([&] { Of(server, 1)->setEnabled(true); }));
    QVERIFY(isRefused([&] { Of(server, 0)->setEnabled(false); }));
    QVERIFY(isRefused([&] { network->DeleteModule(1); }));
    QVERIFY(isRefused([&] { network->ClearModules(); }));
    QVERIFY(isRefused([&] { network->BeginNotifying(); }));
    QVERIFY(isRefused([&] { network->setNetSpeed(TavikLibrary::eNetSpeed::Low); }));
    QCOMPARE(network->ModuleCount(), 2);
    network->Ping();
    Run(server)->Stop();
    server.Module(0)->ReadInCounts();
    network->DeleteModule(1);
    Of(server, 0)->setEnabled(false);
}

void DifferenceModeTest::aRunIsLostWithItsNetwork() {
    for (const bool controllerGoes : {false, true}) {
        Use(OneNetwork(Probe1));
        ConnectedServer server;
        StartWith(server, {0});
        ModuleDifference* difference = Of(server, 0);
        AdvanceClock(1.0);
        difference->ReadDifference();
        AdvanceClock(1.0);
        if (controllerGoes) {
            SetNetworkPresent("N", false);
        } else {
            server.Network()->Disconnect();
        }
        NetworkDifference* run = Run(server);
        QCOMPARE(run->Status(), int(Idle));
        QVERIFY(RefusalOf([&] { run->Start(); }).Is(eTavikErrors::NetworkNotConnected));
        QVERIFY(RefusalOf([&] { difference->ReadDifference(); }).Is(eTavikErrors::NetworkNotConnected));
        QVERIFY(RefusalOf([&] { difference->setEnabled(false); }).Is(eTavikErrors::NetworkNotConnected));
        run->Stop();
        QCOMPARE(run->Status(), int(Idle));
        QCOMPARE(difference->ReadingCount(), Due(0.0, 1.0, probePeriod));
        SetNetworkPresent("N", true);
        server.Network()->Connect();
        QVERIFY(Of(server, 0)->Enabled());
        run->Start();
        QCOMPARE(run->Status(), int(Running));
    }
}

void DifferenceModeTest::stoppingWithoutARun() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    Run(server)->Stop();
    QCOMPARE(Run(server)->Status(), int(Idle));
    StartWith(server, {0});
    AdvanceClock(1.0);
    Run(server)->Stop();
    const int readings = Of(server, 0)->ReadingCount();
    AdvanceClock(1.0);
    Run(server)->Stop();
    QCOMPARE(Run(server)->Status(), int(Finished));
    QCOMPARE(Of(server, 0)->ReadingCount(), readings);
    // Results are still there after the network was disconnected in order.
    server.Network()->Disconnect();
    QCOMPARE(Run(server)->Status(), int(Finished));
}

void DifferenceModeTest::theNextRunBeginsAnew() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    StartWith(server, {0});
    AdvanceClock(2.0);
    Run(server)->Stop();
    HoldPosition("N", "KX00000001", 1.0);
    Run(server)->Start();
    QCOMPARE(Of(server, 0)->ReadingCount(), 0);
    QCOMPARE(Of(server, 0)->MaxCounts(), 0);
    AdvanceClock(1.0);
    Run(server)->Stop();
    QCOMPARE(Of(server, 0)->Max(), 1.0);
    QCOMPARE(Of(server, 0)->Diff(), 0.0);
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(2.0, 3.0, probePeriod));
    // A run that is stopped before the first reading has none.
    Run(server)->Start();
    Run(server)->Stop();
    QCOMPARE(Of(server, 0)->ReadingCount(), 0);
    QCOMPARE(Of(server, 0)->Error(), static_cast<int>(eTavikErrors::ReadingNotAvailable));
}

void DifferenceModeTest::removedModulesRefuse() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    ModuleDifference* difference = Of(server, 0);
    server.Network()->DeleteModule(0);
    const auto isRefused = [](const auto& call) { return RefusalOf(call).Is(eTavikErrors::ModuleRemoved); };
    QVERIFY(isRefused([&] { difference->Enabled(); }));
    QVERIFY(isRefused([&] { difference->setEnabled(true); }));
    QVERIFY(isRefused([&] { difference->ReadDifference(); }));
    QVERIFY(isRefused([&] { difference->Max(); }));
    QVERIFY(isRefused([&] { difference->Error(); }));
}

void DifferenceModeTest::faults() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    StartWith(server, {0});
    AdvanceClock(1.0);
    ModuleDifference* difference = Of(server, 0);
    Fault fault;
    fault.object = "difference KX00000001";
    fault.operation = "ReadDifference";
    AddFault(fault);
    QVERIFY(RefusalOf([&] { difference->ReadDifference(); }).refused);
    QCOMPARE(difference->ReadingCount(), 0);
    difference->ReadDifference();
    QVERIFY(difference->ReadingCount() > 0);
    fault.operation = "Error";
    fault.effect = FaultEffect::Result;
    fault.code = 0x2113;
    AddFault(fault);
    QCOMPARE(difference->Error(), 0x2113);
    QCOMPARE(difference->Error(), 0);
    fault.object = "difference N";
    fault.operation = "Stop";
    fault.effect = FaultEffect::ThrowLibrary;
    AddFault(fault);
    QVERIFY(RefusalOf([&] { Run(server)->Stop(); }).refused);
    QCOMPARE(Run(server)->Status(), int(Running));
}

void DifferenceModeTest::callsTakeTheirTime() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    SetLatency(true);
    const auto transactionsOf = [](const auto& call) {
        const double before = BenchTime();
        call();
        return static_cast<int>(std::lround((BenchTime() - before) / transactionAtHighSpeed));
    };
    Of(server, 0)->setEnabled(true);
    Of(server, 1)->setEnabled(true);
    QCOMPARE(transactionsOf([&] { Run(server)->Start(); }), 1);
    QCOMPARE(transactionsOf([&] { Of(server, 0)->ReadDifference(); }), 1);
    QCOMPARE(transactionsOf([&] { Of(server, 0)->Max(); }), 0);
    QCOMPARE(transactionsOf([&] { Run(server)->Stop(); }), 2);
    QCOMPARE(transactionsOf([&] { Run(server)->Stop(); }), 0);
}

void DifferenceModeTest::manyThreads() {
    Use(OneNetwork(Probe1 + Probe2));
    ConnectedServer server;
    UseRealClock();
    Of(server, 0)->setEnabled(true);
    Of(server, 1)->setEnabled(true);
    std::atomic<bool> done{false};
    const auto look = [&](unsigned int index) {
        while (!done) {
            Of(server, index)->ReadDifference();
            const int readings = Of(server, index)->ReadingCount();
            if (readings < 0 || Run(server)->Count() != 2) {
                std::abort();
            }
            int count = 0;
            server.Network()->Readburst(count);
        }
    };
    std::thread first(look, 0);
    std::thread second(look, 1);
    for (int i = 0; i < 20; ++i) {
        Run(server)->Start();
        QTest::qSleep(5);
        Run(server)->Stop();
        QVERIFY(Run(server)->Status() == Finished);
    }
    done = true;
    first.join();
    second.join();
}

QTEST_APPLESS_MAIN(DifferenceModeTest)
#include "DifferenceModeTest.moc"
