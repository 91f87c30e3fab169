#include "tests/simulator/Bench.h"

using TavikLibrary::eTavikErrors;
using TavikLibrary::TavikModule;

namespace {

const std::string Three = "<module type=\"KX\" identity=\"KX00000001\"/>"
                          "<module type=\"KX\" identity=\"KX00000002\" probe-identity=\"PP2\"/>"
                          "<module type=\"QTA\" identity=\"QTA0000003\"/>";
const std::string OnWire = "<module type=\"KX\" identity=\"KX00000004\" place=\"wire\" probe-identity=\"PP4\"/>";

} // namespace

class ModuleListTest : public QObject {
    Q_OBJECT

private slots:
    void ModulesComeInTheOrderOfTheFile();
    void APositionBeyondTheListIsRefused();
    void AModuleIsAddedByItsIdentity();
    void AnUnfitIdentityIsRefused_data();
    void AnUnfitIdentityIsRefused();
    void TheExpectedProbeHasToBeThere();
    void AFullNetworkTakesNoMore();
    void AModuleTooSlowForTheNetworkIsRefused();
    void DeletingPutsAModuleBackOnTheWire();
    void ClearingEmptiesTheList();
    void PositionsTakeEffectTogether();
    void PositionsThatCollideAreRefused();
    void APositionBeyondTheListCannotBeWanted();
    void PointersStayValidForModulesThatStay();
    void PingNamesTheModuleThatDoesNotAnswer();
};

void ModuleListTest::ModulesComeInTheOrderOfTheFile() {
    Use(OneNetwork(Three + OnWire));
    ConnectedServer server;
    QCOMPARE(server.Network()->ModuleCount(), 3);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "QTA0000003"}));
    QCOMPARE(server.Network()->GetModuleIndexByID("QTA0000003"), 2);
    QCOMPARE(server.Network()->GetModuleIndexByID("KX00000004"), -1);
}

void ModuleListTest::APositionBeyondTheListIsRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    QVERIFY(RefusalOf([&] { server.Module(3); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(RefusalOf([&] { server.Network()->DeleteModule(3); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(RefusalOf([&] { server.Network()->DeleteModule(-1); }).Is(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(RefusalOf([&] { server.Network(1); }).Is(eTavikErrors::ControllerNotFound));
    QCOMPARE(server.Network()->ModuleCount(), 3);
}

void ModuleListTest::AModuleIsAddedByItsIdentity() {
    Use(OneNetwork(Three + OnWire));
    ConnectedServer server;
    server.Network()->AddModule("KX00000004", "");
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "QTA0000003", "KX00000004"}));
}

void ModuleListTest::AnUnfitIdentityIsRefused_data() {
    QTest::addColumn<QByteArray>("identity");
    QTest::addColumn<int>("code");
    QTest::newRow("empty") << QByteArray("") << 0x1007;
    QTest::newRow("short") << QByteArray("KX0000004") << 0x1007;
    QTest::newRow("long") << QByteArray("KX000000004") << 0x1007;
    QTest::newRow("lower case") << QByteArray("kx00000004") << 0x1007;
    QTest::newRow("blank") << QByteArray("KX 0000004") << 0x1007;
    QTest::newRow("unknown") << QByteArray("KX00000009") << 0x1008;
    QTest::newRow("duplicate") << QByteArray("KX00000001") << 0x1009;
    QTest::newRow("absent") << QByteArray("KX00000005") << 0x1008;
}

void ModuleListTest::AnUnfitIdentityIsRefused() {
    QFETCH(QByteArray, identity);
    QFETCH(int, code);
    Use(OneNetwork(Three + OnWire + "<module type=\"KX\" identity=\"KX00000005\" place=\"absent\"/>"));
    ConnectedServer server;
    const Refusal refusal = RefusalOf([&] { server.Network()->AddModule(identity.toStdString(), ""); });
    QVERIFY(refusal.refused);
    QCOMPARE(refusal.code, code);
    QVERIFY2(refusal.Names(identity.toStdString()), refusal.text.c_str());
    QCOMPARE(server.Network()->ModuleCount(), 3);
}

void ModuleListTest::TheExpectedProbeHasToBeThere() {
    Use(OneNetwork(OnWire));
    ConnectedServer server;
    const Refusal refusal = RefusalOf([&] { server.Network()->AddModule("KX00000004", "PP5"); });
    QVERIFY(refusal.Is(eTavikErrors::IdentityUnknown));
    QVERIFY(refusal.Names("PP4") && refusal.Names("PP5"));
    server.Network()->AddModule("KX00000004", "PP4");
    QCOMPARE(server.Network()->ModuleCount(), 1);
}

void ModuleListTest::AFullNetworkTakesNoMore() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000101\" count=\"150\"/>"
                   "<module type=\"KX\" identity=\"KX00000004\" announces=\"1\"/>"));
    ConnectedServer server;
    QVERIFY(RefusalOf([&] { server.Network()->AddModule("KX00000004", ""); }).Is(eTavikErrors::NetworkFull));
    server.Network()->BeginNotifying();
    TavikSimulator::AdvanceClock(2.0);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(server.Network()->ModuleCount(), 150);
    server.Network()->DeleteModule(0);
    server.Network()->AddModule("KX00000004", "");
    QCOMPARE(server.Network()->ModuleCount(), 150);
}

void ModuleListTest::AModuleTooSlowForTheNetworkIsRefused() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000004\" place=\"wire\" speeds=\"low\"/>"));
    ConnectedServer server;
    const Refusal refusal = RefusalOf([&] { server.Network()->AddModule("KX00000004", ""); });
    QVERIFY(refusal.Is(eTavikErrors::SpeedNotAvailable));
    QVERIFY(refusal.Names("KX00000004") && refusal.Names("High"));
    server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    server.Network()->AddModule("KX00000004", "");
    QCOMPARE(server.Network()->ModuleCount(), 1);
}

void ModuleListTest::DeletingPutsAModuleBackOnTheWire() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->DeleteModule(1);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "QTA0000003"}));
    server.Network()->AddModule("KX00000002", "");
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "QTA0000003", "KX00000002"}));
}

void ModuleListTest::ClearingEmptiesTheList() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->ClearModules();
    QCOMPARE(server.Network()->ModuleCount(), 0);
    server.Network()->AddModule("QTA0000003", "");
    QCOMPARE(Listed(server.Network()), Identities{"QTA0000003"});
}

void ModuleListTest::PositionsTakeEffectTogether() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Module(0)->SetPosition(2);
    server.Module(1)->SetPosition(0);
    server.Module(2)->SetPosition(1);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "QTA0000003"}));
    server.Network()->ApplyRemap();
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000002", "QTA0000003", "KX00000001"}));
    server.Network()->ApplyRemap();
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000002", "QTA0000003", "KX00000001"}));
}

void ModuleListTest::PositionsThatCollideAreRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Module(0)->SetPosition(2);
    QVERIFY(RefusalOf([&] { server.Network()->ApplyRemap(); }).Is(eTavikErrors::PositionInvalid));
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "QTA0000003"}));
    // The refused wish is forgotten.
    server.Module(1)->SetPosition(2);
    server.Module(2)->SetPosition(1);
    server.Network()->ApplyRemap();
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "QTA0000003", "KX00000002"}));
}

void ModuleListTest::APositionBeyondTheListCannotBeWanted() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    QVERIFY(RefusalOf([&] { server.Module(0)->SetPosition(3); }).Is(eTavikErrors::PositionInvalid));
    QVERIFY(RefusalOf([&] { server.Module(0)->SetPosition(-1); }).Is(eTavikErrors::PositionInvalid));
    server.Network()->ApplyRemap();
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "QTA0000003"}));
}

void ModuleListTest::PointersStayValidForModulesThatStay() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    TavikLibrary::TavikNetwork* network = server.Network();
    TavikModule* last = server.Module(2);
    network->DeleteModule(0);
    server.Module(0)->SetPosition(1);
    last->SetPosition(0);
    network->ApplyRemap();
    QCOMPARE(server.Module(0), last);
    QCOMPARE(last->Identity(), std::string("QTA0000003"));
    network->Disconnect();
    network->Connect();
    QCOMPARE(server.Module(0), last);
    server.server.Networks()->FindNetworks();
    QCOMPARE(server.Network(), network);
}

void ModuleListTest::PingNamesTheModuleThatDoesNotAnswer() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->Ping();
    TavikSimulator::SetModulePresent("N", "KX00000002", false);
    const Refusal refusal = RefusalOf([&] { server.Network()->Ping(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("KX00000002"));
    TavikSimulator::SetModulePresent("N", "KX00000002", true);
    server.Network()->Ping();
}

QTEST_APPLESS_MAIN(ModuleListTest)
#include "ModuleListTest.moc"
