#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikModuleKX.h"
#include "tests/simulator/Bench.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <random>
#include <set>
#include <thread>

using TavikLibrary::TavikModule;
using TavikLibrary::TavikNetwork;

namespace {

const std::string Probes = "<module type=\"KX\" identity=\"KX00000001\" count=\"12\"/>"
                           "<module type=\"KX\" identity=\"KX00000021\" announces=\"0.01\"/>"
                           "<module type=\"SWAX\" identity=\"SWAX000031\"/>"
                           "<module type=\"KX\" identity=\"KX00000041\" place=\"wire\"/>";

/// Runs deeds in threads of their own for a while. What a deed throws must be a refusal of the library.
class Hammer {
public:
    template <class Deed>
    void Add(Deed deed) {
        const auto seed = static_cast<unsigned>(threads.size() + 1);
        threads.emplace_back([this, deed, seed] {
            std::mt19937 random(seed);
            while (!stop) {
                try {
                    deed(random);
                } catch (const TavikLibrary::TavikException& exception) {
                    ++refused;
                    foreign += exception.errorCode == 0 ? 1 : 0;
                }
                ++done;
            }
        });
    }
    void RunFor(std::chrono::milliseconds time) {
        std::this_thread::sleep_for(time);
        stop = true;
        for (std::thread& thread : threads) {
            thread.join();
        }
    }

    std::atomic<long> done{0};
    std::atomic<long> refused{0};
    std::atomic<long> foreign{0};

private:
    std::atomic<bool> stop{false};
    std::vector<std::thread> threads;
};

unsigned int Any(std::mt19937& random, int count) {
    return static_cast<unsigned int>(random()) % static_cast<unsigned int>(std::max(count, 1));
}

void ReadSomething(TavikNetwork* network, std::mt19937& random) {
    TavikModule* module = network->GetModule(Any(random, network->ModuleCount()));
    module->ReadInCounts();
    module->ReadInUnits();
    module->Status()->UpdateStatus();
    module->LastResultCode();
    module->Identity();
    if (auto* probe = dynamic_cast<TavikLibrary::TavikModuleKX*>(module)) {
        probe->setAveraging(static_cast<TavikLibrary::eAveraging>(random() % 9));
    }
}

void ChangeTheList(TavikNetwork* network, std::mt19937& random) {
    switch (random() % 7) {
    case 0:
        network->DeleteModule(static_cast<int>(Any(random, network->ModuleCount())));
        break;
    case 1:
        network->AddModule("KX000000" + std::to_string(10 + random() % 40), "");
        break;
    case 2: {
        const unsigned int row = Any(random, network->ModuleCount());
        network->GetModule(row)->SetPosition(static_cast<int>(row) + 1);
        network->GetModule(row + 1)->SetPosition(static_cast<int>(row));
        network->ApplyRemap();
        break;
    }
    case 3:
        network->BeginNotifying();
        while (network->Notifying()) {
            std::this_thread::yield();
        }
        break;
    case 4:
        network->CancelNotifying();
        break;
    case 5:
        network->FindHotswapped();
        break;
    default:
        network->Ping();
    }
}

void DisturbTheBench(std::mt19937& random) {
    static std::atomic<int> replaced{0};
    const std::vector<std::string> listed = TavikSimulator::ListedModules("N");
    if (listed.empty()) {
        return;
    }
    const std::string& identity = listed[Any(random, static_cast<int>(listed.size()))];
    switch (random() % 4) {
    case 0:
        TavikSimulator::SetModulePresent("N", identity, random() % 4 != 0);
        break;
    case 1:
        TavikSimulator::HoldPosition("N", identity, 0.5);
        break;
    case 2:
        if (replaced < 200) {
            char replacement[16];
            std::snprintf(replacement, sizeof replacement, "RP%08d", ++replaced);
            TavikSimulator::ReplaceModule("N", identity, replacement);
        }
        break;
    default:
        TavikSimulator::ReleasePosition("N", identity);
    }
}

void ComeAndGo(TavikNetwork* network, std::mt19937& random) {
    if (random() % 2 == 0) {
        network->Disconnect();
    } else {
        TavikSimulator::SetNetworkPresent("N", false);
        TavikSimulator::SetNetworkPresent("N", true);
    }
    network->Connect();
    network->Buffered()->Status();
    network->Difference()->Stop();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

void Steer(std::mt19937& random) {
    switch (random() % 5) {
    case 0:
        TavikSimulator::StartJournal(100);
        break;
    case 1:
        TavikSimulator::StopJournal();
        break;
    case 2:
        TavikSimulator::FailCall(1 + random() % 50);
        break;
    case 3:
        TavikSimulator::ClearFaults();
        break;
    default:
        TavikSimulator::Journal();
        TavikSimulator::LastFaultedCall();
    }
}

} // namespace

class ThreadsTest : public QObject {
    Q_OBJECT

private slots:
    void EverythingAtOnce();
    void ReadsOfManyThreadsAgree();
    void FaultsAreCountedOnce();
};

void ThreadsTest::EverythingAtOnce() {
    Use("<bench><network name=\"N\" connect-time=\"0\">" + Probes + "</network></bench>");
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    TavikNetwork* network = server.Network();
    Hammer hammer;
    for (int i = 0; i < 3; ++i) {
        hammer.Add([network](std::mt19937& random) { ReadSomething(network, random); });
    }
    hammer.Add([network](std::mt19937& random) { ChangeTheList(network, random); });
    hammer.Add([network](std::mt19937& random) { ChangeTheList(network, random); });
    hammer.Add([network](std::mt19937& random) { ComeAndGo(network, random); });
    hammer.Add([](std::mt19937& random) { DisturbTheBench(random); });
    hammer.Add([](std::mt19937& random) { Steer(random); });
    hammer.Add([&server](std::mt19937&) {
        server.server.StopAllDynamic();
        server.server.Networks()->FindNetworks();
        server.server.Networks()->Count();
        server.server.GetErrorDescription(7);
    });
    hammer.RunFor(std::chrono::milliseconds(1500));
    qInfo("%ld rounds, %ld refused", hammer.done.load(), hammer.refused.load());
    QVERIFY(hammer.done > 500);
    QVERIFY(hammer.refused > 0);
    QVERIFY(hammer.refused < hammer.done);
    QCOMPARE(hammer.foreign.load(), 0L);
    // The bench is whole: every module stands in the list once, and the library works.
    TavikSimulator::ClearFaults();
    network->Connect();
    network->CancelNotifying();
    const Identities listed = Listed(network);
    QCOMPARE(std::set<std::string>(listed.begin(), listed.end()).size(), listed.size());
    network->ClearModules();
    QCOMPARE(network->ModuleCount(), 0);
}

void ThreadsTest::ReadsOfManyThreadsAgree() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"/>"));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    const int expected = module->ReadInCounts();
    std::atomic<int> others{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int read = 0; read < 2000; ++read) {
                others += module->ReadInCounts() == expected ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(others.load(), 0);
}

void ThreadsTest::FaultsAreCountedOnce() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"/>"));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    TavikSimulator::FailCall(3000);
    const std::uint64_t before = TavikSimulator::CallCount();
    std::atomic<int> failed{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int read = 0; read < 1000; ++read) {
                failed += RefusalOf([&] { module->ReadInCounts(); }).refused ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(failed.load(), 1);
    QCOMPARE(TavikSimulator::CallCount() - before, std::uint64_t{4000});
    QCOMPARE(TavikSimulator::FaultsTriggered(), std::uint64_t{1});
}

QTEST_APPLESS_MAIN(ThreadsTest)
#include "ThreadsTest.moc"
