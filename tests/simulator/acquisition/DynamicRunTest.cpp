#include "tests/simulator/acquisition/Dynamic.h"

#include <array>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

/// Dynamic collections: their syncs, their ends, and whom they tell of them on which thread.
class DynamicRunTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup();
    void ratesAreKept_data();
    void ratesAreKept();
    void modulesAreReadAtOneInstant();
    void aFixedNumberOfSyncs();
    void continuousUntilStopped();
    void readingsDoNotDependOnWhoLooks();
    void memoryIsBounded();
    void resultCodesOfReadings();
    void statesOfACollection();
    void aSecondCollectionReplacesTheFirst();
    void resultsOutlastDisabling();
    void onARealClock();
    void aMillionReadings();
};

void DynamicRunTest::cleanup() {
    Ends::Reset();
}

void DynamicRunTest::ratesAreKept_data() {
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("interval");
    QTest::addColumn<double>("seconds");
    QTest::newRow("4k") << 0 << 1000 << 1.0 / 4000;
    QTest::newRow("2k") << 1 << 1000 << 1.0 / 2000;
    QTest::newRow("1k") << 2 << 5000 << 1.0 / 1000;
    QTest::newRow("custom") << 3 << 1234 << 0.001234;
    QTest::newRow("full speed") << 3 << 0 << 0.000112;
}

void DynamicRunTest::ratesAreKept() {
    QFETCH(int, rate);
    QFETCH(int, interval);
    QFETCH(double, seconds);
    const DynamicBench bench(Stopwatches(2));
    bench->setDynamicRate(static_cast<eDynamicRate>(rate));
    bench->setDynamicInterval(interval);
    bench->setCollectionSize(1000);
    AdvanceClock(0.5);
    bench.Start();
    while (bench.State() == eDynamicState::Running) {
        AdvanceClock(0.0037);
    }
    QCOMPARE(bench.Data()->ReadingCount(), 1000);
    for (int sync = 0; sync < 1000; ++sync) {
        const double nominal = 0.5 + (sync + 1) * seconds;
        QVERIFY2(std::abs(bench.Instant(sync) - nominal) <= 1.01e-6, qPrintable(QString::number(sync)));
    }
}

void DynamicRunTest::modulesAreReadAtOneInstant() {
    const DynamicBench bench(Stopwatches(5));
    bench->setNumberOfModules(4);
    bench.Start();
    AdvanceClock(0.1);
    QCOMPARE(bench.Data()->ModuleCount(), 4);
    QCOMPARE(bench.Data()->ReadingCount(), 400);
    for (int module = 1; module < 4; ++module) {
        QCOMPARE(bench.Instant(399, module), bench.Instant(399, 0));
    }
    QVERIFY(RefusalOf([&] { bench.Data()->GetItem(4, 0); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(RefusalOf([&] { bench.Data()->GetItem(0, 400); }).Is(eTavikErrors::ModuleIndexOutOfRange));
}

void DynamicRunTest::aFixedNumberOfSyncs() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(100);
    bench.Start();
    AdvanceClock(0.0249);
    QCOMPARE(bench.Data()->ReadingCount(), 99);
    QCOMPARE(bench.State(), eDynamicState::Running);
    QCOMPARE(Ends::Count(), 0);
    AdvanceClock(0.0001);
    QTRY_COMPARE(Ends::Count(), 1);
    QVERIFY(bench.IsOver());
    QVERIFY(!Ends::OnThisThread());
    AdvanceClock(1.0);
    QCOMPARE(bench.Data()->ReadingCount(), 100);
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
    bench.Server().StopAllDynamic();
    QTest::qWait(20);
    QCOMPARE(Ends::Count(), 1);
}

void DynamicRunTest::continuousUntilStopped() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(0);
    bench.Start();
    AdvanceClock(3.0);
    QCOMPARE(bench.Data()->ReadingCount(), 12000);
    bench.Server().StopAllDynamic();
    QVERIFY(bench.State() == eDynamicState::Stopping || bench.IsOver());
    QTRY_COMPARE(Ends::Count(), 1);
    QVERIFY(bench.IsOver());
    AdvanceClock(1.0);
    bench.Server().StopAllDynamic();
    QTest::qWait(20);
    QCOMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Data()->ReadingCount(), 12000);
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
}

void DynamicRunTest::readingsDoNotDependOnWhoLooks() {
    const std::string probes = "<module type=\"KX\" identity=\"KX00000001\" count=\"3\"><signal base=\"1\" "
                               "motion=\"sine\" amplitude=\"0.5\" period=\"0.3\" noise=\"0.01\"/></module>";
    std::array<std::vector<int>, 2> counts;
    for (std::size_t way = 0; way < 2; ++way) {
        const DynamicBench bench(probes);
        bench->setCollectionSize(400);
        bench.Start();
        for (int step = 0; step < (way == 0 ? 1 : 50); ++step) {
            AdvanceClock(way == 0 ? 0.1 : 0.002);
            bench->DynamicState();
        }
        for (int sync = 0; sync < 400; ++sync) {
            counts[way].push_back(bench.Data()->GetItem(sync % 3, sync).counts);
        }
    }
    QCOMPARE(counts[0], counts[1]);
}

void DynamicRunTest::memoryIsBounded() {
    const DynamicBench bench(Stopwatches(100));
    bench->setDynamicRate(eDynamicRate::Rate1K);
    bench->setCollectionSize(0);
    bench.Start();
    AdvanceClock(40.0);
    QCOMPARE(bench.Data()->ReadingCount(), 40000);
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
    QCOMPARE(bench.Instant(0), 0.001);
    AdvanceClock(0.5);
    QCOMPARE(bench.Data()->ReadingCount(), 40000);
    QCOMPARE(bench.Data()->CollectionStatus(), Code(eTavikErrors::SyncsDropped));
    QVERIFY(std::abs(bench.Instant(0) - 0.501) <= 1.01e-6);
    QVERIFY(std::abs(bench.Instant(39999, 99) - 40.5) <= 1.01e-6);
    QVERIFY(!bench.Server().GetErrorDescription(Code(eTavikErrors::SyncsDropped)).empty());
}

void DynamicRunTest::resultCodesOfReadings() {
    const DynamicBench bench("<module type=\"KX\" identity=\"KX00000001\"/>" + Stopwatch("RN00000002"));
    TavikSimulator::HoldPosition("N", "KX00000001", 1.0);
    bench.Start();
    AdvanceClock(0.01);
    TavikSimulator::HoldPosition("N", "KX00000001", 5.0);
    AdvanceClock(0.01);
    QCOMPARE(bench.Data()->GetItem(0, 39).resultCode, 0);
    QCOMPARE(bench.Data()->GetItem(0, 39).units, 1.0);
    QCOMPARE(bench.Data()->GetItem(0, 40).resultCode, Code(eTavikErrors::OverRange));
    QCOMPARE(bench.Data()->GetItem(1, 40).resultCode, 0);
}

void DynamicRunTest::statesOfACollection() {
    const DynamicBench bench(Stopwatches(1));
    InsideTheCallback callback;
    QCOMPARE(bench.State(), eDynamicState::Idle);
    bench.Prepare();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    bench.Server().StartAllDynamic(Ends::Tell);
    QCOMPARE(bench.State(), eDynamicState::Running);
    QVERIFY(RefusalOf([&] { bench->Prepare(); }).Is(eTavikErrors::AcquisitionRunning));
    QVERIFY(RefusalOf([&] { bench->setEnabled(false); }).Is(eTavikErrors::AcquisitionRunning));
    QVERIFY(RefusalOf([&] { bench.Network()->DeleteModule(0); }).refused);
    bench.Server().StopAllDynamic();
    // The results are there when the callback comes.
    callback.WaitUntilReached();
    QVERIFY(bench.IsOver());
    callback.Release();
    QTRY_COMPARE(Ends::Count(), 1);
}

void DynamicRunTest::aSecondCollectionReplacesTheFirst() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(10);
    bench.Start();
    AdvanceClock(1.0);
    QTRY_COMPARE(Ends::Count(), 1);
    bench->Prepare();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    bench.Server().StartAllDynamic(Ends::Tell);
    AdvanceClock(1.0);
    QTRY_COMPARE(Ends::Count(), 2);
    QCOMPARE(bench.Data()->ReadingCount(), 10);
    QVERIFY(std::abs(bench.Instant(0) - 1.00025) <= 1.01e-6);
}

void DynamicRunTest::resultsOutlastDisabling() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(10);
    bench.Start();
    AdvanceClock(1.0);
    QTRY_VERIFY(bench.IsOver());
    bench->setEnabled(false);
    QVERIFY(bench.IsOver());
    QCOMPARE(bench.Data()->ReadingCount(), 10);
    bench.Network()->Disconnect();
    QCOMPARE(bench.Network()->Dynamic()->DynamicData()->ReadingCount(), 10);
}

void DynamicRunTest::onARealClock() {
    const DynamicBench bench(Stopwatches(4));
    TavikSimulator::UseRealClock(1.0);
    bench->setCollectionSize(400);
    QElapsedTimer time;
    time.start();
    bench.Start();
    QTRY_COMPARE(Ends::Count(), 1);
    // A busy computer may take longer for it.
    QVERIFY2(time.elapsed() >= 100, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(bench.Data()->ReadingCount(), 400);
    QVERIFY(std::abs(bench.Instant(399) - bench.Instant(0) - 399 * 0.00025) <= 2.01e-6);
}

void DynamicRunTest::aMillionReadings() {
    const DynamicBench bench(Stopwatches(1));
    bench->setCollectionSize(1000000);
    bench.Start();
    AdvanceClock(250.0);
    QCOMPARE(bench.Data()->ReadingCount(), 1000000);
    TavikDynamicData* data = bench.Data();
    std::int64_t sum = 0;
    for (int sync = 0; sync < 1000000; ++sync) {
        sum += data->GetItem(0, sync).counts;
    }
    QVERIFY(std::abs(static_cast<double>(sum) / 1e6 - 125000125.0) < 1.0);
}

QTEST_GUILESS_MAIN(DynamicRunTest)

#include "DynamicRunTest.moc"
