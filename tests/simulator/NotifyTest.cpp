#include "tests/simulator/Bench.h"

using TavikLibrary::eTavikErrors;
using TavikSimulator::AdvanceClock;

namespace {

const std::string Announcers = "<module type=\"KX\" identity=\"KX00000001\"/>"
                               "<module type=\"KX\" identity=\"KX00000003\" announces=\"2\"/>"
                               "<module type=\"KX\" identity=\"KX00000002\" announces=\"1\"/>"
                               "<module type=\"KX\" identity=\"KX00000009\" place=\"wire\"/>";

} // namespace

class NotifyTest : public QObject {
    Q_OBJECT

private slots:
    void ModulesComeOneAfterAnother();
    void TheRunEndsWithTheLast();
    void ARunWithoutModulesEndsAfterTwoSeconds();
    void CancellingKeepsWhatHasCome();
    void CancellingWhenNothingRunsIsHarmless();
    void TheListCannotBeChangedMeanwhile();
    void DisconnectingEndsTheRun();
    void ADropOutEndsTheRun();
    void DeletedModulesAnnounceThemselvesAgain();
    void AnAbsentModuleDoesNotCome();
    void AModuleTooSlowIsNotHeard();
};

void NotifyTest::ModulesComeOneAfterAnother() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    QVERIFY(server.Network()->Notifying());
    QCOMPARE(server.Network()->ModuleCount(), 1);
    AdvanceClock(0.99);
    QCOMPARE(server.Network()->ModuleCount(), 1);
    AdvanceClock(0.02);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002"}));
    QVERIFY(server.Network()->Notifying());
}

void NotifyTest::TheRunEndsWithTheLast() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(1.99);
    QVERIFY(server.Network()->Notifying());
    AdvanceClock(0.02);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "KX00000003"}));
}

void NotifyTest::ARunWithoutModulesEndsAfterTwoSeconds() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"/>"));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(1.99);
    QVERIFY(server.Network()->Notifying());
    AdvanceClock(0.02);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(server.Network()->ModuleCount(), 1);
}

void NotifyTest::CancellingKeepsWhatHasCome() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(1.5);
    server.Network()->CancelNotifying();
    QVERIFY(!server.Network()->Notifying());
    AdvanceClock(5.0);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002"}));
}

void NotifyTest::CancellingWhenNothingRunsIsHarmless() {
    Use(OneNetwork(Announcers));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    network->CancelNotifying();
    QVERIFY(!network->Notifying());
    network->Connect();
    network->CancelNotifying();
    QCOMPARE(network->ModuleCount(), 1);
}

void NotifyTest::TheListCannotBeChangedMeanwhile() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    TavikLibrary::TavikNetwork* network = server.Network();
    network->BeginNotifying();
    const auto refused = [](auto call) { return RefusalOf(call).Is(eTavikErrors::NotifyRunning); };
    QVERIFY(refused([&] { network->BeginNotifying(); }));
    QVERIFY(refused([&] { network->AddModule("KX00000009", ""); }));
    QVERIFY(refused([&] { network->DeleteModule(0); }));
    QVERIFY(refused([&] { network->ClearModules(); }));
    QVERIFY(refused([&] { network->ClearTCons(); }));
    QVERIFY(refused([&] { network->ApplyRemap(); }));
    QVERIFY(refused([&] { network->FindHotswapped(); }));
    QVERIFY(refused([&] { network->setNetSpeed(TavikLibrary::eNetSpeed::Low); }));
    QCOMPARE(network->ModuleCount(), 1);
    QVERIFY(network->Notifying());
    network->CancelNotifying();
    network->AddModule("KX00000009", "");
    QCOMPARE(network->ModuleCount(), 2);
}

void NotifyTest::DisconnectingEndsTheRun() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    server.Network()->Disconnect();
    QVERIFY(!server.Network()->Notifying());
    server.Network()->Connect();
    AdvanceClock(5.0);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(server.Network()->ModuleCount(), 1);
}

void NotifyTest::ADropOutEndsTheRun() {
    Use(OneNetwork(Announcers));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(1.5);
    QCOMPARE(server.Network()->ModuleCount(), 2);
    TavikSimulator::SetNetworkPresent("N", false);
    QVERIFY(!server.Network()->Notifying());
    QVERIFY(!server.Network()->IsConnected());
}

void NotifyTest::DeletedModulesAnnounceThemselvesAgain() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\" count=\"3\"/>"));
    ConnectedServer server;
    server.Network()->ClearModules();
    server.Network()->BeginNotifying();
    AdvanceClock(0.3);
    QCOMPARE(Listed(server.Network()), Identities{"KX00000001"});
    AdvanceClock(1.0);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "KX00000003"}));
}

void NotifyTest::AnAbsentModuleDoesNotCome() {
    Use(OneNetwork(Announcers));
    TavikSimulator::SetModulePresent("N", "KX00000003", false);
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(3.0);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002"}));
}

void NotifyTest::AModuleTooSlowIsNotHeard() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000002\" speeds=\"low\" announces=\"1\"/>"));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    AdvanceClock(3.0);
    QVERIFY(!server.Network()->Notifying());
    QCOMPARE(server.Network()->ModuleCount(), 0);
    server.Network()->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    server.Network()->BeginNotifying();
    AdvanceClock(1.1);
    QCOMPARE(server.Network()->ModuleCount(), 1);
}

QTEST_APPLESS_MAIN(NotifyTest)
#include "NotifyTest.moc"
