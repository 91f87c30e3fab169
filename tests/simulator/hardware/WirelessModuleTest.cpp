#include "tests/simulator/hardware/Wireless.h"

#include <thread>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

const std::string Two = Slot(1, "KRV0000001", "Gauge") + Tool("KRV0000001", "KRV") + Tool("KRX0000002", "KRV-X");

} // namespace

/// A wireless connection module: its slots and its restart.
class WirelessModuleTest : public QObject {
    Q_OBJECT

private slots:
    void SlotsAreSixAndKeepTheirObjects();
    void AWrittenIdentityIsEffectiveAfterARestart();
    void AnEmptiedSlotIsEmptyAfterARestart();
    void AToolIsConnectedOnce();
    void IdentitiesAndNamesAreChecked_data();
    void IdentitiesAndNamesAreChecked();
    void WhatTheBenchFileSaysOfASlotMayBeMalformed();
    void AnEmptySlotAnswersWhatItCan();
    void FieldsAreUpdatedWhenAsked();
    void ARestartTakesItsTime();
    void TheModuleDoesNotAnswerDuringARestart();
    void ARestartMayFail();
    void AConnectionTakesItsTime();
    void ConnectionStatesHaveTexts();
    void TypesHaveTexts();
    void SettingsBelongToTheType();
    void ChannelReadingsAreCopied();
    void AModuleThatIsRemovedRefusesItsSlots();
    void SlotsCanBeCalledFromSeveralThreads();
};

void WirelessModuleTest::SlotsAreSixAndKeepTheirObjects() {
    WirelessServer server(Wireless(Two));
    RLK_Devices* devices = server.Wireless()->Devices();
    QCOMPARE(server.Wireless()->Devices(), devices);
    for (int index = 0; index < 6; ++index) {
        QCOMPARE(devices->GetDevice(index), devices->GetDevice(index));
    }
    for (const int index : {-1, 6}) {
        const Refusal refusal = RefusalOf([&] { devices->GetDevice(index); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
        QVERIFY(refusal.Names(std::to_string(index)));
    }
}

void WirelessModuleTest::AWrittenIdentityIsEffectiveAfterARestart() {
    WirelessServer server(Wireless(Two));
    RLK_Device* device = server.Device(4);
    device->setTavikIdentity("KRX0000002");
    QCOMPARE(device->TavikIdentity(), std::string("KRX0000002"));
    device->UpdateDeviceFieldData();
    QCOMPARE(device->DeviceType(), eRLK_DeviceType::None);
    QCOMPARE(device->ConnectionStatus(), eRLK_DeviceStatus::Empty);
    QVERIFY(RefusalOf([&] { device->ReadAllChannels(); }).Is(eTavikErrors::NotAvailable));
    server.Wireless()->Restart();
    QCOMPARE(device->DeviceType(), eRLK_DeviceType::KRVX);
    QCOMPARE(device->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    QCOMPARE(device->NumChannels(), 8);
    QCOMPARE(device->ReadAllChannels().ReadingCount(), 8);
}

void WirelessModuleTest::AnEmptiedSlotIsEmptyAfterARestart() {
    WirelessServer server(Wireless(Two));
    server.Device()->setTavikIdentity("");
    QCOMPARE(server.Device()->ReadAllChannels().ReadingCount(), 1);
    server.Wireless()->Restart();
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Empty);
    QCOMPARE(server.Device()->DeviceName(), std::string("Gauge"));
}

void WirelessModuleTest::AToolIsConnectedOnce() {
    WirelessServer server(Wireless(Two));
    server.Device(3)->setTavikIdentity("KRV0000001");
    server.Wireless()->Restart();
    QCOMPARE(server.Device(1)->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    QCOMPARE(server.Device(3)->ConnectionStatus(), eRLK_DeviceStatus::Searching);
    QCOMPARE(server.Device(3)->DeviceType(), eRLK_DeviceType::None);
}

void WirelessModuleTest::IdentitiesAndNamesAreChecked_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("identity");
    QTest::addColumn<bool>("name");
    QTest::newRow("empty") << QByteArray() << true << true;
    QTest::newRow("identity") << QByteArray("KRV0000009") << true << true;
    QTest::newRow("9 characters") << QByteArray("KRV000009") << false << true;
    QTest::newRow("11 characters") << QByteArray("KRV00000009") << false << true;
    QTest::newRow("lower case") << QByteArray("krv0000009") << false << true;
    QTest::newRow("20 characters in 40 bytes") << QByteArray("ä").repeated(20) << false << true;
    QTest::newRow("21 characters") << QByteArray(21, 'x') << false << false;
}

void WirelessModuleTest::IdentitiesAndNamesAreChecked() {
    QFETCH(QByteArray, text);
    QFETCH(bool, identity);
    QFETCH(bool, name);
    WirelessServer server(Wireless(Two));
    const Refusal identityRefusal = RefusalOf([&] { server.Device()->setTavikIdentity(text.toStdString()); });
    QCOMPARE(identityRefusal.refused, !identity);
    QVERIFY(identity ||
            (identityRefusal.Is(eTavikErrors::IdentityMalformed) && identityRefusal.Names(text.toStdString())));
    QCOMPARE(server.Device()->TavikIdentity(), identity ? text.toStdString() : std::string("KRV0000001"));
    const Refusal nameRefusal = RefusalOf([&] { server.Device()->setDeviceName(text.toStdString()); });
    QCOMPARE(nameRefusal.refused, !name);
    QCOMPARE(server.Device()->DeviceName(), name ? text.toStdString() : std::string("Gauge"));
}

void WirelessModuleTest::WhatTheBenchFileSaysOfASlotMayBeMalformed() {
    WirelessServer server(Wireless(Slot(2, "short")));
    QCOMPARE(server.Device(2)->TavikIdentity(), std::string("short"));
    QCOMPARE(server.Device(2)->ConnectionStatus(), eRLK_DeviceStatus::Searching);
}

void WirelessModuleTest::AnEmptySlotAnswersWhatItCan() {
    WirelessServer server(Wireless(Two));
    RLK_Device* empty = server.Device(6);
    empty->UpdateDeviceFieldData();
    QCOMPARE(empty->TavikIdentity(), std::string());
    QCOMPARE(empty->DeviceName(), std::string());
    QCOMPARE(empty->DeviceType(), eRLK_DeviceType::None);
    QCOMPARE(empty->NumChannels(), 0);
    QCOMPARE(empty->BatteryStatus(), 0);
    for (const Refusal& refusal :
         {RefusalOf([&] { empty->ReadAllChannels(); }), RefusalOf([&] { empty->GetChannelData(0); }),
          RefusalOf([&] { empty->Settings(); })}) {
        QVERIFY(refusal.Is(eTavikErrors::NotAvailable));
        QVERIFY(refusal.Names("6"));
    }
}

void WirelessModuleTest::FieldsAreUpdatedWhenAsked() {
    WirelessServer server(Wireless(Two));
    QCOMPARE(server.Device()->DeviceType(), eRLK_DeviceType::KRV);
    TavikSimulator::SetModulePresent("N", "RLK0000001", false);
    // What the library knows it answers by itself; what the module knows it has to ask for.
    QCOMPARE(server.Device()->DeviceType(), eRLK_DeviceType::KRV);
    QVERIFY(RefusalOf([&] { server.Device()->UpdateDeviceFieldData(); }).Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(RefusalOf([&] { server.Device()->ConnectionStatus(); }).Is(eTavikErrors::ModuleNotResponding));
}

void WirelessModuleTest::ARestartTakesItsTime() {
    WirelessServer server(Wireless(Two, "restart-time=\"3.5\""));
    double before = TavikSimulator::BenchTime();
    server.Wireless()->Restart();
    QCOMPARE(TavikSimulator::BenchTime(), before);
    TavikSimulator::SetLatency(true);
    before = TavikSimulator::BenchTime();
    server.Wireless()->Restart();
    QCOMPARE(TavikSimulator::BenchTime(), before + 3.5);
}

void WirelessModuleTest::TheModuleDoesNotAnswerDuringARestart() {
    WirelessServer server(Wireless(Two, "restart-time=\"1.5\""));
    TavikSimulator::SetLatency(true);
    TavikSimulator::UseRealClock();
    std::thread restart([&] { server.Wireless()->Restart(); });
    Refusal status;
    while (!status.refused) {
        status = RefusalOf([&] { server.Device()->ConnectionStatus(); });
    }
    const Refusal reading = RefusalOf([&] { server.Wireless()->ReadInCounts(); });
    const Refusal ping = RefusalOf([&] { server.Network()->Ping(); });
    const Refusal identity = RefusalOf([&] { server.Device()->TavikIdentity(); });
    restart.join();
    for (const Refusal& refusal : {status, reading, ping}) {
        QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
        QVERIFY(refusal.Names("RLK0000001"));
    }
    QVERIFY(!identity.refused);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
}

void WirelessModuleTest::ARestartMayFail() {
    WirelessServer server(Wireless(Two, "failed-restarts=\"1\""));
    server.Device(2)->setTavikIdentity("KRX0000002");
    const Refusal refusal = RefusalOf([&] { server.Wireless()->Restart(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("RLK0000001"));
    QCOMPARE(server.Device(2)->ConnectionStatus(), eRLK_DeviceStatus::Empty);
    QCOMPARE(server.Device(2)->TavikIdentity(), std::string("KRX0000002"));
    QCOMPARE(server.Device(1)->ReadAllChannels().ReadingCount(), 1);
    server.Wireless()->Restart();
    QCOMPARE(server.Device(2)->ConnectionStatus(), eRLK_DeviceStatus::Connected);
}

void WirelessModuleTest::AConnectionTakesItsTime() {
    WirelessServer server(Wireless(Slot(1, "KRV0000001") + Tool("KRV0000001", "KRV", "connect-time=\"4\"")));
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    server.Wireless()->Restart();
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Searching);
    QVERIFY(RefusalOf([&] { server.Device()->ReadAllChannels(); }).Is(eTavikErrors::ModuleNotResponding));
    AdvanceClock(2.5);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connecting);
    AdvanceClock(2.0);
    QCOMPARE(server.Device()->ConnectionStatus(), eRLK_DeviceStatus::Connected);
    QCOMPARE(server.Device()->ReadAllChannels().ReadingCount(), 1);
}

void WirelessModuleTest::ConnectionStatesHaveTexts() {
    std::set<std::string> texts;
    for (int status = 0; status <= 5; ++status) {
        texts.insert(eRLK_DeviceStatus_ToString(static_cast<eRLK_DeviceStatus>(status)));
    }
    QCOMPARE(texts.size(), std::size_t(6));
    QCOMPARE(eRLK_DeviceStatus_ToString(eRLK_DeviceStatus::Connected), std::string("Connected"));
    QCOMPARE(eRLK_DeviceStatus_ToString(static_cast<eRLK_DeviceStatus>(-1)), std::string("Unknown device status (-1)"));
}

void WirelessModuleTest::TypesHaveTexts() {
    QCOMPARE(eRLK_DeviceType_ToString(eRLK_DeviceType::None), std::string("None"));
    QCOMPARE(eRLK_DeviceType_ToString(eRLK_DeviceType::KRV), std::string("KRV"));
    QCOMPARE(eRLK_DeviceType_ToString(eRLK_DeviceType::KRVX), std::string("KRV-X"));
    QCOMPARE(eRLK_DeviceType_ToString(static_cast<eRLK_DeviceType>(9)), std::string("Unknown device type (9)"));
}

void WirelessModuleTest::SettingsBelongToTheType() {
    WirelessServer server(Wireless(Two + Slot(2, "KRX0000002")));
    QVERIFY(dynamic_cast<RLK_DeviceSettings_KRV*>(server.Device(1)->Settings()) != nullptr);
    QVERIFY(dynamic_cast<RLK_DeviceSettings_KRVX*>(server.Device(2)->Settings()) != nullptr);
    // Settings that were fetched for a tool that has gone are of no use for its successor.
    RLK_DeviceSettings_KRV* settings = server.KRV();
    server.Device(1)->setTavikIdentity("KRX0000002");
    server.Device(2)->setTavikIdentity("");
    server.Wireless()->Restart();
    const Refusal refusal = RefusalOf([&] { settings->Zero(); });
    QVERIFY(refusal.Is(eTavikErrors::NotSupported));
    QVERIFY(refusal.Names("KRX0000002"));
    QVERIFY(RefusalOf([&] { settings->setConfigMode(true); }).Is(eTavikErrors::NotSupported));
}

void WirelessModuleTest::ChannelReadingsAreCopied() {
    WirelessServer server(SingleChannel());
    TavikChannelReadings readings;
    QCOMPARE(readings.ReadingCount(), 0);
    QVERIFY(RefusalOf([&] { readings[0]; }).Is(eTavikErrors::InvalidArgument));
    readings = server.Device()->ReadAllChannels();
    TavikChannelReadings copy(readings);
    readings = TavikChannelReadings();
    QCOMPARE(readings.ReadingCount(), 0);
    QCOMPARE(copy.ReadingCount(), 1);
    QCOMPARE(copy[0].id, std::string("GA00000001"));
    for (const int channel : {-1, 1}) {
        QVERIFY(RefusalOf([&] { copy[channel]; }).Is(eTavikErrors::InvalidArgument));
    }
}

void WirelessModuleTest::AModuleThatIsRemovedRefusesItsSlots() {
    WirelessServer server(SingleChannel());
    RLK_Device* device = server.Device();
    RLK_DeviceSettings_KRV* settings = server.KRV();
    server.Network()->DeleteModule(0);
    QVERIFY(RefusalOf([&] { device->TavikIdentity(); }).Is(eTavikErrors::ModuleRemoved));
    QVERIFY(RefusalOf([&] { device->ReadAllChannels(); }).Is(eTavikErrors::ModuleRemoved));
    QVERIFY(RefusalOf([&] { settings->Zero(); }).Is(eTavikErrors::ModuleRemoved));
    // Back in the list it is the same module, with the same tools.
    server.Network()->AddModule("RLK0000001", "");
    QCOMPARE(server.Device()->TavikIdentity(), std::string("KRV0000001"));
    QCOMPARE(server.Reading(), 5.0);
}

void WirelessModuleTest::SlotsCanBeCalledFromSeveralThreads() {
    WirelessServer server(Wireless(Two + Slot(2, "KRX0000002"), "restart-time=\"0.01\""));
    TavikSimulator::UseRealClock();
    TavikSimulator::SetLatency(true);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([&server, thread] {
            for (int round = 0; round < 30; ++round) {
                RefusalOf([&] { server.Device(thread % 2 + 1)->ReadAllChannels(); });
                RefusalOf([&] { server.Device(1)->Settings()->setConfigMode(true); });
                RefusalOf([&] { server.KRV()->OperationMode(); });
                RefusalOf([&] { server.Device(2)->BatteryStatus(); });
                if (thread == 2) {
                    RefusalOf([&] { server.Wireless()->Restart(); });
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(server.Device(1)->ConnectionStatus(), eRLK_DeviceStatus::Connected);
}

QTEST_APPLESS_MAIN(WirelessModuleTest)

#include "WirelessModuleTest.moc"
