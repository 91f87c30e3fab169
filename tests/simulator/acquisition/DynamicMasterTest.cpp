#include "tests/simulator/acquisition/Dynamic.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;
using TavikSimulator::HoldPosition;

namespace {

/// A spindle that turns evenly, 1000 lines or 4000 counts a second, with a reference mark at line 500.
const std::string Spindle = "<module type=\"QTA\" identity=\"QTA0000009\" mark=\"500\" mark-every=\"0\">"
                            "<signal base=\"0\" motion=\"ramp\" rate=\"1000\" period=\"360\"/></module>";

/// An encoder that stands still until somebody turns it.
const std::string Handwheel = "<module type=\"QTA\" identity=\"QTA0000009\"><signal base=\"0\"/></module>";

} // namespace

/// A module triggers the syncs of a dynamic collection.
class DynamicMasterTest : public QObject {
    Q_OBJECT

private slots:
    void everySoManyCounts_data();
    void everySoManyCounts();
    void holdOffComesFirst();
    void referenceMarkBeginsIt_data();
    void referenceMarkBeginsIt();
    void noMarkNoSyncs();
    void inputOneTriggers();
    void aMasterThatStandsStill();
    void aMasterThatIsTooFast();
    void settingsOfTheBeginningCount();
    void onlyModulesBeforeItAreCollected();
    void aMasterThatDropsOut();
    void syncsDoNotDependOnWhoLooks();

private:
    static void UseMaster(const DynamicBench& bench, int index, int syncs) {
        bench->setNumberOfModules(index);
        bench->setMasterIndex(index);
        bench->setDynamicMode(eDynamicMode::External);
        bench->setCollectionSize(syncs);
    }
    /// With the encoder interface behind one stopwatch.
    static TavikModuleQTA* UseEncoder(const DynamicBench& bench, eDynamicMasterMode mode, short counts, int syncs) {
        UseMaster(bench, 1, syncs);
        auto* encoder = bench.As<TavikModuleQTA>(1);
        encoder->setDynamicMasterMode(mode);
        encoder->setTxSync(counts);
        return encoder;
    }
    static double Furthest(const DynamicBench& bench, double first, double interval) {
        double furthest = 0.0;
        for (int sync = 0; sync < bench.Data()->ReadingCount(); ++sync) {
            furthest = std::max(furthest, std::abs(bench.Instant(sync) - first - sync * interval));
        }
        return furthest;
    }
};

void DynamicMasterTest::everySoManyCounts_data() {
    QTest::addColumn<int>("counts");
    QTest::newRow("1 kHz") << 4;
    QTest::newRow("100 Hz") << 40;
    QTest::newRow("1 Hz") << 4000;
}

void DynamicMasterTest::everySoManyCounts() {
    QFETCH(int, counts);
    const double interval = counts / 4000.0;
    const DynamicBench bench(Stopwatch("RN00000001") + Spindle);
    UseEncoder(bench, eDynamicMasterMode::Instant, static_cast<short>(counts), 10);
    AdvanceClock(0.25);
    bench.Start();
    AdvanceClock(9.99 * interval);
    QCOMPARE(bench.Data()->ReadingCount(), 9);
    AdvanceClock(0.02 * interval + 0.001);
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Data()->ReadingCount(), 10);
    // Within a count, which takes a quarter of a millisecond.
    const double off = Furthest(bench, 0.25 + interval, interval);
    QVERIFY2(off < 0.00026, qPrintable(QString::number(off)));
    const double measured = (bench.Instant(9) - bench.Instant(0)) / 9.0;
    QVERIFY2(std::abs(measured - interval) < 2e-6, qPrintable(QString::number(measured, 'g', 9)));
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
}

void DynamicMasterTest::holdOffComesFirst() {
    const DynamicBench bench(Stopwatch("RN00000001") + Spindle);
    UseEncoder(bench, eDynamicMasterMode::HoldOff, 40, 10)->setHoldOff(2000);
    bench.Start();
    AdvanceClock(0.5);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    AdvanceClock(1.0);
    QCOMPARE(bench.Data()->ReadingCount(), 10);
    QVERIFY(Furthest(bench, 0.51, 0.01) < 0.00026);
}

void DynamicMasterTest::referenceMarkBeginsIt_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("atTheMark");
    QTest::newRow("reset") << 5 << 0;
    QTest::newRow("preset") << 6 << 12345;
}

void DynamicMasterTest::referenceMarkBeginsIt() {
    QFETCH(int, mode);
    QFETCH(int, atTheMark);
    const DynamicBench bench(Stopwatch("RN00000001") + Spindle);
    TavikModuleQTA* encoder = UseEncoder(bench, static_cast<eDynamicMasterMode>(mode), 40, 0);
    encoder->setPresetInCounts(12345);
    bench.Start();
    AdvanceClock(0.4995);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    AdvanceClock(0.1005);
    QVERIFY(bench.Data()->ReadingCount() >= 9);
    // The mark is at half a second; it is seen a millisecond later at most.
    QVERIFY(Furthest(bench, 0.51, 0.01) < 0.0013);
    QVERIFY(std::abs(encoder->ReadInCounts() - atTheMark - 400) <= 1);
}

void DynamicMasterTest::noMarkNoSyncs() {
    const DynamicBench bench(Stopwatch("RN00000001") + Handwheel);
    UseEncoder(bench, eDynamicMasterMode::Refaction_Reset, 1, 5);
    bench.Start();
    AdvanceClock(2.0);
    QCOMPARE(bench.State(), eDynamicState::Running);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    bench.Server().StopAllDynamic();
    QTRY_COMPARE(Ends::Count(), 1);
}

void DynamicMasterTest::inputOneTriggers() {
    const DynamicBench bench(Stopwatch("RN00000001") + "<module type=\"SWAX2\" identity=\"SWAX200009\" inputs=\"0x10\">"
                                                       "<pulses pin=\"4\" period=\"0.05\" high=\"0.02\"/></module>");
    UseMaster(bench, 1, 10);
    auto* pins = bench.As<TavikModuleSWAX2>(1);
    pins->setDynamicMasterMode(eDynamicMasterMode::Instant);
    pins->setTxSync(2);
    bench.Start();
    AdvanceClock(2.0);
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Data()->ReadingCount(), 10);
    for (int sync = 1; sync < 10; ++sync) {
        QVERIFY(std::abs(bench.Instant(sync) - bench.Instant(sync - 1) - 0.1) < 3e-6);
    }
}

void DynamicMasterTest::aMasterThatStandsStill() {
    const DynamicBench bench(Stopwatch("RN00000001") + Handwheel);
    UseEncoder(bench, eDynamicMasterMode::Instant, 4, 3);
    bench.Start();
    AdvanceClock(5.0);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    // A line up and one down: every count triggers.
    HoldPosition("N", "QTA0000009", 1.0);
    AdvanceClock(0.1);
    QCOMPARE(bench.Data()->ReadingCount(), 1);
    HoldPosition("N", "QTA0000009", 0.0);
    AdvanceClock(0.1);
    QCOMPARE(bench.Data()->ReadingCount(), 2);
    QCOMPARE(bench.State(), eDynamicState::Running);
}

void DynamicMasterTest::aMasterThatIsTooFast() {
    const DynamicBench bench(Stopwatches(1) + Spindle);
    UseEncoder(bench, eDynamicMasterMode::Instant, 1, 0);
    // 250 us between two triggers are enough for one module.
    bench.Start();
    AdvanceClock(0.1);
    QVERIFY(std::abs(bench.Data()->ReadingCount() - 400) <= 1);
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
    const DynamicBench slow(Stopwatches(60) + Spindle);
    UseMaster(slow, 60, 0);
    slow.As<TavikModuleQTA>(60)->setDynamicMasterMode(eDynamicMasterMode::Instant);
    QCOMPARE(slow->MinimumInterval(), 460);
    slow.Start();
    AdvanceClock(0.1);
    // Every second trigger is lost.
    QVERIFY(std::abs(slow.Data()->ReadingCount() - 200) <= 1);
    QCOMPARE(slow.Data()->CollectionStatus(), Code(eTavikErrors::SyncsMissed));
    for (int sync = 1; sync < slow.Data()->ReadingCount(); ++sync) {
        QVERIFY(slow.Instant(sync) - slow.Instant(sync - 1) >= 459e-6);
    }
}

void DynamicMasterTest::settingsOfTheBeginningCount() {
    const DynamicBench bench(Stopwatch("RN00000001") + Spindle);
    TavikModuleQTA* encoder = UseEncoder(bench, eDynamicMasterMode::Instant, 40, 0);
    bench.Start();
    encoder->setTxSync(4);
    AdvanceClock(0.1005);
    QCOMPARE(bench.Data()->ReadingCount(), 10);
}

void DynamicMasterTest::onlyModulesBeforeItAreCollected() {
    const DynamicBench bench(Stopwatches(3) + Spindle);
    UseMaster(bench, 3, 0);
    bench->setNumberOfModules(2);
    bench.As<TavikModuleQTA>(3)->setDynamicMasterMode(eDynamicMasterMode::Instant);
    bench.Start();
    AdvanceClock(0.1);
    QCOMPARE(bench.Data()->ModuleCount(), 2);
    QVERIFY(bench.Data()->ReadingCount() > 0);
}

void DynamicMasterTest::aMasterThatDropsOut() {
    const DynamicBench bench(Stopwatch("RN00000001") + Handwheel);
    UseEncoder(bench, eDynamicMasterMode::Instant, 4, 3);
    bench.Start();
    AdvanceClock(1.0);
    TavikSimulator::SetModulePresent("N", "QTA0000009", false);
    QTRY_COMPARE(Ends::Count(), 1);
    QCOMPARE(bench.Data()->CollectionStatus(), Code(eTavikErrors::ModuleNotResponding));
}

void DynamicMasterTest::syncsDoNotDependOnWhoLooks() {
    std::vector<std::vector<int>> counts(2);
    for (const int way : {0, 1}) {
        const DynamicBench bench(Stopwatch("RN00000001") +
                                 "<module type=\"QTA\" identity=\"QTA0000009\">"
                                 "<signal base=\"0\" motion=\"sine\" amplitude=\"300\" period=\"0.7\"/></module>");
        UseEncoder(bench, eDynamicMasterMode::Instant, 7, 0);
        bench.Start();
        for (int step = 0; step < (way == 0 ? 1 : 400); ++step) {
            AdvanceClock(way == 0 ? 1.0 : 0.0025);
            bench.State();
        }
        for (int sync = 0; sync < bench.Data()->ReadingCount(); ++sync) {
            counts[static_cast<std::size_t>(way)].push_back(bench.Data()->GetItem(0, sync).counts);
        }
    }
    QVERIFY(counts[0].size() > 400);
    QCOMPARE(counts[0], counts[1]);
}

QTEST_GUILESS_MAIN(DynamicMasterTest)

#include "DynamicMasterTest.moc"
