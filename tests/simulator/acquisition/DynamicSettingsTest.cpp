#include "library/TavikModuleKX.h"
#include "tests/simulator/acquisition/Dynamic.h"

using namespace TavikLibrary;

namespace {

const std::string Probes = "<module type=\"KX\" identity=\"KX00000001\" count=\"2\"/>";
const std::string Encoder = "<module type=\"QTA\" identity=\"QTA0000001\"/>";
const std::string Pins = "<module type=\"SWAX2\" identity=\"SWAX200001\"/>";
const std::string Incapable = "<module type=\"HVX\" identity=\"HVX0000001\"/>";

} // namespace

/// What can be set of dynamic mode, when, and what goes together.
class DynamicSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void aFreshNetwork();
    void settingsAreKept();
    void valuesAreChecked();
    void textsOfValues();
    void minimumIntervalGrowsWithTheModules();
    void theIntervalIsCheckedWhenEnabling_data();
    void theIntervalIsCheckedWhenEnabling();
    void modulesAreCheckedWhenEnabling();
    void theMasterIsCheckedWhenEnabling();
    void enabledSettingsStay();
    void anEnabledNetworkKeepsItsModules();
    void preparing();
    void startingNeedsAPreparedNetwork();
    void aMissingModuleCannotBePrepared();
    void disconnectingDisables();
    void settingsEndWithTheServer();
    void dataIsThereFromTheBeginning();
    void faultsStrikeAnyCall();
    void enablingTakesATransactionPerModule();
};

void DynamicSettingsTest::aFreshNetwork() {
    const DynamicBench bench(Probes + Encoder + Incapable);
    QVERIFY(!bench->Enabled());
    QCOMPARE(bench->DynamicMode(), eDynamicMode::Normal);
    QCOMPARE(bench->DynamicRate(), eDynamicRate::Rate4K);
    QCOMPARE(bench->DynamicInterval(), 1000);
    QCOMPARE(bench->CollectionSize(), 1000);
    QCOMPARE(bench->MasterIndex(), -1);
    QCOMPARE(bench->DynamicState(), eDynamicState::Idle);
    // All modules from the first on that can be collected.
    QCOMPARE(bench->NumberOfModules(), 3);
}

void DynamicSettingsTest::settingsAreKept() {
    const DynamicBench bench(Probes + Encoder);
    bench->setDynamicMode(eDynamicMode::External);
    bench->setDynamicRate(eDynamicRate::Dynamic2Custom);
    bench->setDynamicInterval(0);
    bench->setCollectionSize(0);
    bench->setNumberOfModules(1);
    bench->setMasterIndex(2);
    QCOMPARE(bench->DynamicMode(), eDynamicMode::External);
    QCOMPARE(bench->DynamicRate(), eDynamicRate::Dynamic2Custom);
    QCOMPARE(bench->DynamicInterval(), 0);
    QCOMPARE(bench->CollectionSize(), 0);
    QCOMPARE(bench->NumberOfModules(), 1);
    QCOMPARE(bench->MasterIndex(), 2);
    bench->setMasterIndex(-1);
    QCOMPARE(bench->MasterIndex(), -1);
    bench->setNumberOfModules(3);
    bench.Network()->DeleteModule(2);
    QCOMPARE(bench->NumberOfModules(), 2);
}

void DynamicSettingsTest::valuesAreChecked() {
    const DynamicBench bench(Probes + Encoder);
    const auto invalid = [](const Refusal& refusal, const char* word) {
        return refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(word);
    };
    QVERIFY(invalid(RefusalOf([&] { bench->setDynamicRate(static_cast<eDynamicRate>(-1)); }), "-1"));
    QVERIFY(invalid(RefusalOf([&] { bench->setDynamicRate(static_cast<eDynamicRate>(4)); }), "4"));
    QVERIFY(invalid(RefusalOf([&] { bench->setDynamicMode(static_cast<eDynamicMode>(1)); }), "1"));
    QVERIFY(invalid(RefusalOf([&] { bench->setDynamicInterval(-5); }), "-5"));
    QVERIFY(invalid(RefusalOf([&] { bench->setCollectionSize(-6); }), "-6"));
    QVERIFY(invalid(RefusalOf([&] { bench->setNumberOfModules(-7); }), "-7"));
    QVERIFY(invalid(RefusalOf([&] { bench->setNumberOfModules(4); }), "lists 3"));
    QVERIFY(RefusalOf([&] { bench->setMasterIndex(3); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(RefusalOf([&] { bench->setMasterIndex(-2); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    const Refusal probe = RefusalOf([&] { bench->setMasterIndex(1); });
    QVERIFY(probe.Is(eTavikErrors::NotSupported) && probe.Names("KX00000002"));
    QCOMPARE(bench->DynamicRate(), eDynamicRate::Rate4K);
    QCOMPARE(bench->DynamicInterval(), 1000);
    QCOMPARE(bench->CollectionSize(), 1000);
    QCOMPARE(bench->NumberOfModules(), 3);
    QCOMPARE(bench->MasterIndex(), -1);
}

void DynamicSettingsTest::textsOfValues() {
    QCOMPARE(eDynamicRate_ToString(eDynamicRate::Rate2K), std::string("Rate2K"));
    QCOMPARE(eDynamicRate_ToString(eDynamicRate::Dynamic2Custom), std::string("Dynamic2Custom"));
    QCOMPARE(eDynamicRate_ToString(static_cast<eDynamicRate>(9)), std::string("Unknown dynamic rate (9)"));
    QStringList states;
    for (int state = 0; state <= 5; ++state) {
        states.append(QString::fromStdString(eDynamicState_ToString(static_cast<eDynamicState>(state))));
    }
    QCOMPARE(states.join(QLatin1String(", ")),
             QStringLiteral("Idle, Prepared, Running, Stopping, Results available, Unknown dynamic state (5)"));
    QCOMPARE(eDynamicMasterMode_ToString(eDynamicMasterMode::NotMaster), std::string("NotMaster"));
    QCOMPARE(eDynamicMasterMode_ToString(eDynamicMasterMode::Refaction_Preset), std::string("Refaction_Preset"));
    QCOMPARE(eDynamicMasterMode_ToString(static_cast<eDynamicMasterMode>(2)), std::string("Unknown master mode (2)"));
}

void DynamicSettingsTest::minimumIntervalGrowsWithTheModules() {
    const DynamicBench bench(Stopwatches(150));
    QCOMPARE(bench->NumberOfModules(), 150);
    QCOMPARE(bench->MinimumInterval(), 1000);
    bench->setNumberOfModules(25);
    QCOMPARE(bench->MinimumInterval(), 250);
    bench->setNumberOfModules(1);
    QCOMPARE(bench->MinimumInterval(), 106);
}

void DynamicSettingsTest::theIntervalIsCheckedWhenEnabling_data() {
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("interval");
    QTest::addColumn<int>("modules");
    QTest::addColumn<bool>("possible");
    QTest::newRow("4k, 25") << 0 << 1 << 25 << true;
    QTest::newRow("4k, 26") << 0 << 1000 << 26 << false;
    QTest::newRow("2k, 66") << 1 << 1 << 66 << true;
    QTest::newRow("2k, 67") << 1 << 1000 << 67 << false;
    QTest::newRow("1k, 150") << 2 << 1 << 150 << true;
    QTest::newRow("full speed") << 3 << 0 << 150 << true;
    QTest::newRow("shortest") << 3 << 220 << 20 << true;
    QTest::newRow("too short") << 3 << 219 << 20 << false;
}

void DynamicSettingsTest::theIntervalIsCheckedWhenEnabling() {
    QFETCH(int, rate);
    QFETCH(int, interval);
    QFETCH(int, modules);
    QFETCH(bool, possible);
    const DynamicBench bench(Stopwatches(150));
    bench->setDynamicRate(static_cast<eDynamicRate>(rate));
    bench->setDynamicInterval(interval);
    bench->setNumberOfModules(modules);
    const Refusal refusal = RefusalOf([&] { bench->setEnabled(true); });
    QCOMPARE(refusal.refused, !possible);
    QCOMPARE(bench->Enabled(), possible);
    if (!possible) {
        QVERIFY(refusal.Is(eTavikErrors::DynamicNotPossible));
        QVERIFY(refusal.Names("\"N\"") && refusal.Names(std::to_string(bench->MinimumInterval()) + " us"));
    }
}

void DynamicSettingsTest::modulesAreCheckedWhenEnabling() {
    const auto refusal = [](const DynamicBench& bench) { return RefusalOf([&] { bench->setEnabled(true); }); };
    {
        const DynamicBench bench(Probes + Incapable);
        bench->setNumberOfModules(3);
        const Refusal incapable = refusal(bench);
        QVERIFY(incapable.Is(eTavikErrors::DynamicNotPossible) && incapable.Names("HVX0000001"));
        bench->setNumberOfModules(0);
        QVERIFY(refusal(bench).Names("no modules"));
        bench->setNumberOfModules(2);
        bench->setEnabled(true);
    }
    {
        const DynamicBench bench("<module type=\"KX\" identity=\"KX00000001\" capabilities=\"dynamic\"/>");
        bench->setDynamicRate(eDynamicRate::Dynamic2Custom);
        QVERIFY(refusal(bench).Names("KX00000001"));
        bench->setDynamicRate(eDynamicRate::Rate1K);
        bench->setEnabled(true);
    }
    {
        const DynamicBench bench(Probes, "capabilities=\"dynamic\"");
        bench->setDynamicRate(eDynamicRate::Dynamic2Custom);
        QVERIFY(refusal(bench).Names("Dynamic2Custom"));
    }
    {
        const DynamicBench bench(Probes, "capabilities=\"dynamic2\"");
        QVERIFY(refusal(bench).Names("Rate4K"));
        bench->setDynamicRate(eDynamicRate::Dynamic2Custom);
        bench->setEnabled(true);
    }
    {
        const DynamicBench bench(Probes + "<module type=\"KX\" identity=\"KX00000009\" announces=\"5\"/>");
        bench.Network()->BeginNotifying();
        QVERIFY(refusal(bench).Is(eTavikErrors::NotifyRunning));
    }
}

void DynamicSettingsTest::theMasterIsCheckedWhenEnabling() {
    const DynamicBench bench(Probes + Encoder + Pins);
    bench->setDynamicMode(eDynamicMode::External);
    const auto refusedWith = [&](const std::string& word) {
        const Refusal refusal = RefusalOf([&] { bench->setEnabled(true); });
        return refusal.Is(eTavikErrors::DynamicNotPossible) && refusal.Names(word);
    };
    QVERIFY(refusedWith("no module is chosen"));
    bench->setMasterIndex(2);
    QVERIFY(refusedWith("which are 2, not 3"));
    bench->setNumberOfModules(2);
    QVERIFY(refusedWith("QTA0000001 is not set to any master mode"));
    bench.As<TavikModuleQTA>(2)->setDynamicMasterMode(eDynamicMasterMode::HoldOff);
    bench->setEnabled(true);
    bench->setEnabled(false);
    bench->setMasterIndex(3);
    QVERIFY(refusedWith("SWAX200001"));
    bench.As<TavikModuleSWAX2>(3)->setDynamicMasterMode(eDynamicMasterMode::Instant);
    bench->setEnabled(true);
    bench->setEnabled(false);
    bench.Network()->DeleteModule(3);
    QVERIFY(refusedWith("no module is chosen"));
    const DynamicBench other(Probes + Encoder, "capabilities=\"dynamic\"");
    other->setDynamicMode(eDynamicMode::External);
    other->setMasterIndex(2);
    other->setNumberOfModules(2);
    QVERIFY(RefusalOf([&] { other->setEnabled(true); }).Names("controller"));
}

void DynamicSettingsTest::enabledSettingsStay() {
    const DynamicBench bench(Probes + Encoder);
    bench->setEnabled(true);
    bench->setEnabled(true);
    const auto refused = [&](const std::function<void()>& call) {
        const Refusal refusal = RefusalOf(call);
        return refusal.Is(eTavikErrors::DynamicEnabled) && refusal.Names("\"N\"");
    };
    QVERIFY(refused([&] { bench->setDynamicRate(eDynamicRate::Rate1K); }));
    QVERIFY(refused([&] { bench->setDynamicMode(eDynamicMode::External); }));
    QVERIFY(refused([&] { bench->setDynamicInterval(5000); }));
    QVERIFY(refused([&] { bench->setCollectionSize(5); }));
    QVERIFY(refused([&] { bench->setNumberOfModules(1); }));
    QVERIFY(refused([&] { bench->setMasterIndex(2); }));
    QCOMPARE(bench->CollectionSize(), 1000);
    bench->setEnabled(false);
    bench->setCollectionSize(5);
    QCOMPARE(bench->CollectionSize(), 5);
}

void DynamicSettingsTest::anEnabledNetworkKeepsItsModules() {
    const DynamicBench bench(Probes + Encoder);
    bench->setEnabled(true);
    QVERIFY(RefusalOf([&] { bench.Network()->DeleteModule(0); }).Is(eTavikErrors::DynamicEnabled));
    QVERIFY(RefusalOf([&] { bench.Network()->BeginNotifying(); }).Is(eTavikErrors::DynamicEnabled));
    bench->setEnabled(false);
    bench.Network()->DeleteModule(0);
    QCOMPARE(bench.Network()->ModuleCount(), 2);
}

void DynamicSettingsTest::preparing() {
    const DynamicBench bench(Probes);
    const Refusal refusal = RefusalOf([&] { bench->Prepare(); });
    QVERIFY(refusal.Is(eTavikErrors::DynamicNotReady) && refusal.Names("enabled"));
    bench->setEnabled(true);
    bench->Prepare();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    QCOMPARE(bench.Data()->ModuleCount(), 2);
    bench->Prepare();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    bench.Server().StopAllDynamic();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    bench->setEnabled(false);
    QCOMPARE(bench.State(), eDynamicState::Idle);
}

void DynamicSettingsTest::startingNeedsAPreparedNetwork() {
    const DynamicBench bench(Probes);
    const auto start = [&] { bench.Server().StartAllDynamic(Ends::Tell); };
    QVERIFY(RefusalOf(start).Is(eTavikErrors::DynamicNotReady));
    bench->setEnabled(true);
    QVERIFY(RefusalOf(start).Is(eTavikErrors::DynamicNotReady));
    QCOMPARE(bench.State(), eDynamicState::Idle);
    QCOMPARE(Ends::Count(), 0);
}

void DynamicSettingsTest::aMissingModuleCannotBePrepared() {
    const DynamicBench bench(Probes + Encoder);
    bench->setNumberOfModules(2);
    bench->setEnabled(true);
    TavikSimulator::SetModulePresent("N", "QTA0000001", false);
    bench->Prepare();
    TavikSimulator::SetModulePresent("N", "KX00000002", false);
    QVERIFY(RefusalOf([&] { bench->Prepare(); }).Is(eTavikErrors::ModuleNotResponding));
}

void DynamicSettingsTest::disconnectingDisables() {
    const DynamicBench bench(Probes);
    bench->setCollectionSize(7);
    bench.Prepare();
    TavikDynamic* dynamic = bench.Network()->Dynamic();
    bench.Network()->Disconnect();
    QCOMPARE(dynamic->DynamicState(), eDynamicState::Idle);
    QVERIFY(!dynamic->Enabled());
    QVERIFY(RefusalOf([&] { dynamic->setEnabled(true); }).Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(RefusalOf([&] { dynamic->setEnabled(false); }).Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(RefusalOf([&] { dynamic->Prepare(); }).Is(eTavikErrors::NetworkNotConnected));
    QVERIFY(RefusalOf([&] { dynamic->setCollectionSize(8); }).Is(eTavikErrors::NetworkNotConnected));
    QCOMPARE(dynamic->CollectionSize(), 7);
    bench.Network()->Connect();
    bench.Prepare();
    QCOMPARE(bench.State(), eDynamicState::Prepared);
}

void DynamicSettingsTest::settingsEndWithTheServer() {
    DynamicBench bench(Probes);
    bench->setCollectionSize(7);
    bench.Prepare();
    bench.EndServer();
    ConnectedServer next;
    QCOMPARE(next.Network()->Dynamic()->CollectionSize(), 1000);
    QCOMPARE(next.Network()->Dynamic()->DynamicState(), eDynamicState::Idle);
    QVERIFY(!next.Network()->Dynamic()->Enabled());
}

void DynamicSettingsTest::dataIsThereFromTheBeginning() {
    const DynamicBench bench(Probes);
    QCOMPARE(bench.Data()->CollectionStatus(), 0);
    QCOMPARE(bench.Data()->ModuleCount(), 0);
    QCOMPARE(bench.Data()->ReadingCount(), 0);
    QCOMPARE(bench.Data(), bench->DynamicData());
    const Refusal module = RefusalOf([&] { bench.Data()->GetItem(0, 0); });
    QVERIFY(module.Is(eTavikErrors::ModuleIndexOutOfRange) && module.Names("module 0"));
    bench.Prepare();
    const Refusal reading = RefusalOf([&] { bench.Data()->GetItem(1, 0); });
    QVERIFY(reading.Is(eTavikErrors::ModuleIndexOutOfRange) && reading.Names("reading 0"));
    QVERIFY(RefusalOf([&] { bench.Data()->GetItem(-1, 0); }).Names("module -1"));
}

void DynamicSettingsTest::faultsStrikeAnyCall() {
    const DynamicBench bench(Probes);
    bench->setEnabled(true);
    TavikSimulator::FailCall(1, 0x2101, "Struck.");
    QVERIFY(RefusalOf([&] { bench->Prepare(); }).Names("Struck."));
    QCOMPARE(bench.State(), eDynamicState::Idle);
    bench->Prepare();
    TavikSimulator::FailCall(1, 0x2101, "Struck.");
    QVERIFY(RefusalOf([&] { bench.Server().StartAllDynamic(Ends::Tell); }).Names("Struck."));
    QCOMPARE(bench.State(), eDynamicState::Prepared);
    bench.Server().StartAllDynamic(Ends::Tell);
    TavikSimulator::FailCall(1, 0x2101, "Struck.");
    QVERIFY(RefusalOf([&] { bench.Server().StopAllDynamic(); }).Names("Struck."));
    QCOMPARE(bench.State(), eDynamicState::Running);
    TavikSimulator::AdvanceClock(0.01);
    TavikSimulator::Fault code;
    code.operation = "GetItem";
    code.effect = TavikSimulator::FaultEffect::Result;
    code.code = 0x2112;
    TavikSimulator::AddFault(code);
    const TavikReading struck = bench.Data()->GetItem(0, 3);
    QCOMPARE(struck.resultCode, 0x2112);
    QCOMPARE(bench.Data()->GetItem(0, 3).resultCode, 0);
    QCOMPARE(struck.counts, bench.Data()->GetItem(0, 3).counts);
}

void DynamicSettingsTest::enablingTakesATransactionPerModule() {
    const DynamicBench bench(Stopwatches(20), "speed=\"low\"");
    TavikSimulator::SetLatency(true);
    const double begun = TavikSimulator::BenchTime();
    bench->setEnabled(true);
    QVERIFY(std::abs(TavikSimulator::BenchTime() - begun - 20 * 0.0025) < 1e-9);
    bench->Prepare();
    QVERIFY(std::abs(TavikSimulator::BenchTime() - begun - 40 * 0.0025) < 1e-9);
    bench->DynamicState();
    QVERIFY(std::abs(TavikSimulator::BenchTime() - begun - 40 * 0.0025) < 1e-9);
}

QTEST_GUILESS_MAIN(DynamicSettingsTest)

#include "DynamicSettingsTest.moc"
