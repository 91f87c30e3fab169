#include "tests/simulator/acquisition/Dynamic.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;
using TavikSimulator::BenchTime;
using TavikSimulator::SetModulePresent;
using TavikSimulator::SetNetworkPresent;

/// The ends of dynamic collections: what brings them about, and whom they are told, on which thread.
class DynamicEndsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup();
    void aModuleDropsOut();
    void aModuleDropsOutByItself();
    void theNetworkDropsOut();
    void disconnectingEndsIt();
    void allPreparedNetworksStart();
    void stoppingInsideTheCallback();
    void startingInsideTheCallback();
    void startingWithoutACallback();
    void theServerEndsWhileItRuns();
    void theServerEndsDuringTheCallback();
    void theServerEndsInsideTheCallback();
    void theBenchIsReplacedInsideTheCallback();
    void manyThreads();
};

void DynamicEndsTest::cleanup() {
    Ends::Reset();
}

void DynamicEndsTest::aModuleDropsOut() {
    const DynamicBench bench(Stopwatches(3));
    bench.Start();
    AdvanceClock(0.1);
    SetModulePresent("N", "RN00000002", false);
    AdvanceClock(0.05);
    QTRY_COMPARE(Ends::Count(), 1);
    QVERIFY(bench.IsOver());
    QCOMPARE(bench.Data()->CollectionStatus(), Code(eTavikErrors::ModuleNotResponding));
    QCOMPARE(bench.Data()->ReadingCount(), 400);
    QVERIFY(RefusalOf([&] { bench->Prepare(); }).Is(eTavikErrors::ModuleNotResponding));
    SetModulePresent("N", "RN00000002", true);
    bench->Prepare();
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
}

void DynamicEndsTest::aModuleDropsOutByItself() {
    const DynamicBench bench(Stopwatches(2) + "<event what=\"module-leaves\" at=\"0.2\" module=\"RN00000002\"/>"
                                              "<event what=\"module-returns\" at=\"0.3\" module=\"RN00000002\"/>");
    bench->setCollectionSize(0);
    bench.Start();
    AdvanceClock(2.0);
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Data()->CollectionStatus(), Code(eTavikErrors::ModuleNotResponding));
    QCOMPARE(bench.Data()->ReadingCount(), 800);
}

void DynamicEndsTest::theNetworkDropsOut() {
    const DynamicBench bench(Stopwatches(2));
    TavikDynamic* dynamic = bench.Network()->Dynamic();
    bench.Start();
    AdvanceClock(0.1);
    SetNetworkPresent("N", false);
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(dynamic->DynamicState(), eDynamicState::ResultsAvailable);
    QCOMPARE(dynamic->DynamicData()->CollectionStatus(), Code(eTavikErrors::NetworkNotConnected));
    QCOMPARE(dynamic->DynamicData()->ReadingCount(), 400);
    QVERIFY(!dynamic->Enabled());
}

void DynamicEndsTest::disconnectingEndsIt() {
    const DynamicBench bench(Stopwatches(2));
    bench.Start();
    bench.Server().StopAllDynamic();
    bench.Network()->Disconnect();
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Network()->Dynamic()->DynamicData()->CollectionStatus(), 0);
    QTest::qWait(20);
    QCOMPARE(Ends::Count(), 1);
}

void DynamicEndsTest::allPreparedNetworksStart() {
    Use("<bench clock=\"manual\" latency=\"off\"><network name=\"A\" controller=\"C1\">" + Stopwatch("RN00000001") +
        "</network><network name=\"B\" controller=\"C2\">" + Stopwatch("RN00000002") +
        "</network><network name=\"C\" controller=\"C3\">" + Stopwatch("RN00000003") + "</network></bench>");
    ConnectedServer server;
    InsideTheCallback callback;
    const auto dynamic = [&](unsigned int index) { return server.Network(index)->Dynamic(); };
    dynamic(0)->setCollectionSize(100);
    for (const unsigned int index : {0U, 1U}) {
        dynamic(index)->setEnabled(true);
        dynamic(index)->Prepare();
    }
    dynamic(2)->setEnabled(true);
    server.server.StartAllDynamic(Ends::Tell);
    QCOMPARE(dynamic(1)->DynamicState(), eDynamicState::Running);
    QCOMPARE(dynamic(2)->DynamicState(), eDynamicState::Idle);
    AdvanceClock(0.025);
    callback.WaitUntilReached();
    QCOMPARE(dynamic(0)->DynamicState(), eDynamicState::ResultsAvailable);
    QCOMPARE(dynamic(1)->DynamicState(), eDynamicState::Running);
    // Its end is told of when the thread comes back.
    server.server.StopAllDynamic();
    QCOMPARE(dynamic(1)->DynamicState(), eDynamicState::Stopping);
    Ends::inside = nullptr;
    callback.Release();
    QTRY_COMPARE(Ends::Count(), 2);
    QCOMPARE(dynamic(1)->DynamicState(), eDynamicState::ResultsAvailable);
    QCOMPARE(dynamic(1)->DynamicData()->ReadingCount(), 100);
}

void DynamicEndsTest::stoppingInsideTheCallback() {
    const DynamicBench bench(Stopwatches(1));
    Ends::inside = [&] { bench.Server().StopAllDynamic(); };
    bench->setCollectionSize(10);
    bench.Start();
    AdvanceClock(1.0);
    QTRY_COMPARE(Ends::Count(), 1);
    QTest::qWait(20);
    QCOMPARE(Ends::Count(), 1);
}

void DynamicEndsTest::startingInsideTheCallback() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(10);
    std::atomic<int> again{3};
    Ends::inside = [&] {
        if (again-- > 0) {
            bench->Prepare();
            bench.Server().StartAllDynamic(Ends::Tell);
            AdvanceClock(1.0);
        }
    };
    bench.Start();
    AdvanceClock(1.0);
    QTRY_COMPARE(Ends::Count(), 4);
    QVERIFY(std::abs(bench.Instant(0) - 3.00025) <= 1.01e-6);
}

void DynamicEndsTest::startingWithoutACallback() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(10);
    bench.Prepare();
    bench.Server().StartAllDynamic(nullptr);
    AdvanceClock(1.0);
    QTRY_VERIFY(bench.IsOver());
    QCOMPARE(bench.Data()->ReadingCount(), 10);
}

void DynamicEndsTest::theServerEndsWhileItRuns() {
    for (int round = 0; round < 50; ++round) {
        DynamicBench bench(Stopwatches(1));
        bench->setCollectionSize(0);
        bench.Start();
        AdvanceClock(0.1);
        bench.EndServer();
        // Nobody is left to be told.
        QCOMPARE(Ends::Count(), 0);
    }
}

void DynamicEndsTest::theServerEndsDuringTheCallback() {
    DynamicBench bench(Stopwatches(1));
    std::atomic<bool> ending{false};
    TavikServer& server = bench.Server();
    Ends::inside = [&] {
        while (!ending) {
            std::this_thread::yield();
        }
        // The server waits for this.
        server.StopAllDynamic();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    };
    bench->setCollectionSize(1);
    bench.Start();
    AdvanceClock(1.0);
    QTRY_VERIFY(bench.IsOver());
    ending = true;
    bench.EndServer();
    QCOMPARE(Ends::Count(), 1);
}

void DynamicEndsTest::theServerEndsInsideTheCallback() {
    for (int round = 0; round < 20; ++round) {
        DynamicBench bench(Stopwatches(1));
        std::atomic<bool> ended{false};
        Ends::inside = [&] {
            bench.EndServer();
            ended = true;
        };
        bench->setCollectionSize(1);
        bench.Start();
        AdvanceClock(1.0);
        QTRY_VERIFY(ended);
        QTRY_COMPARE(Ends::Count(), 1);
        ConnectedServer next;
        QCOMPARE(next.Network()->Dynamic()->DynamicState(), eDynamicState::Idle);
    }
}

void DynamicEndsTest::theBenchIsReplacedInsideTheCallback() {
    for (int round = 0; round < 20; ++round) {
        DynamicBench bench(Stopwatches(1));
        Ends::inside = [&] {
            bench.EndServer();
            Use(OneNetwork(Stopwatches(1)));
        };
        bench->setCollectionSize(1);
        bench.Start();
        AdvanceClock(1.0);
        QTRY_COMPARE(Ends::Count(), 1);
        QVERIFY(BenchTime() < 0.5);
    }
}

void DynamicEndsTest::manyThreads() {
    const DynamicBench bench(Stopwatches(3));
    bench->setCollectionSize(50);
    bench->setEnabled(true);
    Ends::inside = [&] { bench.Server().StopAllDynamic(); };
    std::atomic<bool> over{false};
    std::atomic<int> started{0};
    std::vector<std::thread> threads;
    const auto goOn = [&](const std::function<void()>& call) {
        threads.emplace_back([&over, call] {
            while (!over) {
                RefusalOf(call);
            }
        });
    };
    goOn([&] {
        bench->Prepare();
        bench.Server().StartAllDynamic(Ends::Tell);
        ++started;
    });
    goOn([&] { AdvanceClock(0.004); });
    goOn([&] {
        if (bench.Data()->ReadingCount() > 0) {
            bench.Data()->GetItem(2, 0);
        }
        bench.State();
    });
    goOn([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        bench.Server().StopAllDynamic();
    });
    QTRY_VERIFY(started > 100);
    over = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    bench.Server().StopAllDynamic();
    QTRY_COMPARE(Ends::Count(), started.load());
}

QTEST_GUILESS_MAIN(DynamicEndsTest)

#include "DynamicEndsTest.moc"
