#include "tests/simulator/acquisition/Buffered.h"

using namespace TavikLibrary;
using TavikSimulator::SetModulePresent;

namespace {

const std::string TwoClocks = ClockModule("CLOCK00001") + ClockModule("CLOCK00002");

} // namespace

/// What buffered mode refuses, and with which sentence.
class BufferedRefusalsTest : public QObject {
    Q_OBJECT

private slots:
    void SettingsAreRefusedWhileRunning();
    void ImpossibleSettingsAreRefused();
    void ImpossibleStartsAreRefused();
    void WhatANetworkCannotDoIsRefused();
    void BufferDepthsAreChecked();
};

void BufferedRefusalsTest::SettingsAreRefusedWhileRunning() {
    const BufferedNetwork network(TwoClocks);
    network.Enable(0, SyncMode);
    network->Start();
    const auto refused = [](const Refusal& refusal) {
        return refusal.Is(eTavikErrors::AcquisitionRunning) && refusal.Names("\"N\"");
    };
    QVERIFY(refused(RefusalOf([&] { network.At(0)->setMode(SampleMode); })));
    QVERIFY(refused(RefusalOf([&] { network.At(0)->setEnabled(false); })));
    QVERIFY(refused(RefusalOf([&] { network.At(1)->setEnabled(true); })));
    QVERIFY(refused(RefusalOf([&] { network.At(0)->setReadingInterval(8192); })));
    QVERIFY(refused(RefusalOf([&] { network->setMasterIndex(1); })));
    QVERIFY(refused(RefusalOf([&] { network->setMasterIndex(-1); })));
    QVERIFY(refused(RefusalOf([&] { network->Start(); })));
    QVERIFY(refused(RefusalOf([&] { network.Network()->DeleteModule(1); })));
    QVERIFY(refused(RefusalOf([&] { network.Network()->ClearModules(); })));
    // How a module samples that takes no part does not matter to the run.
    network.At(1)->setMode(SampleMode);
    network.At(1)->setReadingInterval(8192);
    QCOMPARE(network.At(1)->TTUs(), 80);
    QCOMPARE(network->Status(), 1);
    QCOMPARE(network->EnabledCount(), 1);
    QCOMPARE(network.At(0)->Mode(), SyncMode);
    network->Stop();
    network.At(0)->setMode(SampleMode);
    network->setMasterIndex(1);
    QCOMPARE(network->MasterIndex(), 1);
}

void BufferedRefusalsTest::ImpossibleSettingsAreRefused() {
    const BufferedNetwork network("<module type=\"KX\" identity=\"KX00000001\"/>"
                                  "<module type=\"SWAX2\" identity=\"SWAX200002\"/>" +
                                  ClockModule("CLOCK00003"));
    ModuleBuffered* probe = network.At(0);
    const auto invalid = [](const Refusal& refusal, const std::string& word) {
        return refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(word);
    };
    QVERIFY(invalid(RefusalOf([&] { probe->setMode(static_cast<eBufferedMode>(3)); }), "3"));
    QVERIFY(invalid(RefusalOf([&] { probe->setMode(static_cast<eBufferedMode>(-1)); }), "-1"));
    QVERIFY(invalid(RefusalOf([&] { probe->setReadingInterval(0); }), "not 0"));
    QVERIFY(invalid(RefusalOf([&] { probe->setReadingInterval(-4096); }), "-4096"));
    QVERIFY(invalid(RefusalOf([&] { probe->setEnabled(true); }), "KX00000001"));
    probe->setMode(SampleMode);
    probe->setEnabled(true);
    QVERIFY(invalid(RefusalOf([&] { probe->setMode(eBufferedMode::None); }), "sub-mode"));
    probe->setEnabled(false);
    probe->setMode(eBufferedMode::None);
    network.At(1)->setMode(SyncMode);
    const Refusal incapable = RefusalOf([&] { network.At(1)->setEnabled(true); });
    QVERIFY(incapable.Is(eTavikErrors::NotSupported) && incapable.Names("SWAX200002"));
    for (const int index : {-2, 3, 1000}) {
        QVERIFY(RefusalOf([&] { network->setMasterIndex(index); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    }
    const Refusal noMaster = RefusalOf([&] { network->setMasterIndex(0); });
    QVERIFY(noMaster.Is(eTavikErrors::NotSupported) && noMaster.Names("KX00000001"));
    network->setMasterIndex(2);
    network.Network()->DeleteModule(1);
    QCOMPARE(network->MasterIndex(), 1);
    network.Network()->DeleteModule(1);
    QCOMPARE(network->MasterIndex(), -1);
}

void BufferedRefusalsTest::ImpossibleStartsAreRefused() {
    const BufferedNetwork network(TwoClocks);
    const Refusal refusal = RefusalOf([&] { network->Start(); });
    QVERIFY(refusal.Is(eTavikErrors::NotAvailable) && refusal.Names("enabled"));
    network.Enable(0, SampleMode);
    network->setMasterIndex(1);
    SetModulePresent("N", "CLOCK00002", false);
    QVERIFY(RefusalOf([&] { network->Start(); }).Names("CLOCK00002"));
    SetModulePresent("N", "CLOCK00002", true);
    network.Network()->BeginNotifying();
    QVERIFY(RefusalOf([&] { network->Start(); }).Is(eTavikErrors::NotifyRunning));
    network.Network()->CancelNotifying();
    QCOMPARE(network->Status(), 0);
    network->Start();
    const Refusal sample = RefusalOf([&] { network->Sample(); });
    QVERIFY(sample.Is(eTavikErrors::NotSupported) && sample.Names("CLOCK00002"));
}

void BufferedRefusalsTest::WhatANetworkCannotDoIsRefused() {
    const BufferedNetwork controllerOnly(TwoClocks, "capabilities=\"buffered\"");
    const Refusal master = RefusalOf([&] { controllerOnly->setMasterIndex(1); });
    QVERIFY(master.Is(eTavikErrors::NotSupported) && master.Names("\"N\""));
    controllerOnly->setMasterIndex(-1);
    QCOMPARE(controllerOnly->MasterIndex(), -1);
    controllerOnly.Enable(0, SyncMode);
    controllerOnly->Start();
    const BufferedNetwork nothing(TwoClocks, "capabilities=\"readburst\"");
    nothing.Enable(0, SyncMode);
    QVERIFY(RefusalOf([&] { nothing->Start(); }).Is(eTavikErrors::NotSupported));
    QCOMPARE(nothing->Status(), 0);
}

void BufferedRefusalsTest::BufferDepthsAreChecked() {
    for (const char* depth : {"0", "-1", "4000001", "many"}) {
        const std::string attribute = std::string("buffer-depth=\"") + depth + "\"";
        QVERIFY(RefusalOf([&] { Use(OneNetwork(ClockModule("CLOCK00001", attribute))); }).Names("buffer-depth"));
    }
}

QTEST_APPLESS_MAIN(BufferedRefusalsTest)
#include "BufferedRefusalsTest.moc"
