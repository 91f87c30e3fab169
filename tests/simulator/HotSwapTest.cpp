#include "tests/simulator/Bench.h"

using TavikLibrary::eTavikErrors;
using TavikSimulator::ReplaceModule;

namespace {

const std::string Three = "<module type=\"KX\" identity=\"KX00000001\"/>"
                          "<module type=\"KX\" identity=\"KX00000002\" stroke=\"5\"/>"
                          "<module type=\"RN\" identity=\"RN00000003\"/>"
                          "<module type=\"KX\" identity=\"KX00000004\" place=\"wire\"/>";

} // namespace

class HotSwapTest : public QObject {
    Q_OBJECT

private slots:
    void AReplacementTakesTheOldPlace();
    void AReplacedModuleDoesNotAnswer();
    void AnotherKindIsRefused();
    void AKindThatCannotBeSwappedIsRefused();
    void ARefusedSwapChangesNothing();
    void WithoutConnectorMemoryNothingIsFound();
    void ConnectorsAreWrittenAgain_data();
    void ConnectorsAreWrittenAgain();
    void AConnectorOfAnAbsentModuleIsNotWritten();
    void TheOldModulePluggedInAgainAnswers();
    void AReplacementCanBeReplaced();
    void ReplacingNeedsALegalPair();
};

void HotSwapTest::AReplacementTakesTheOldPlace() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    TavikLibrary::TavikModule* old = server.Module(1);
    ReplaceModule("N", "KX00000002", "KX00000077");
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000002"));
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000077", "RN00000003"}));
    QVERIFY(server.Module(1) != old);
    QCOMPARE(server.Module(1)->Stroke(), 5.0);
    server.Module(1)->ReadInCounts();
    QVERIFY(RefusalOf([&] { old->Identity(); }).Is(eTavikErrors::ModuleRemoved));
    server.Network()->FindHotswapped();
    QCOMPARE(server.Network()->ModuleCount(), 3);
}

void HotSwapTest::AReplacedModuleDoesNotAnswer() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "KX00000002", "KX00000077");
    const Refusal refusal = RefusalOf([&] { server.Module(1)->ReadInCounts(); });
    QVERIFY(refusal.Is(eTavikErrors::ModuleNotResponding));
    QVERIFY(refusal.Names("KX00000002"));
}

void HotSwapTest::AnotherKindIsRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "KX00000002", "QTA0000077", "QTA");
    const Refusal refusal = RefusalOf([&] { server.Network()->FindHotswapped(); });
    QVERIFY(refusal.Is(eTavikErrors::HotSwapMismatch));
    QVERIFY(refusal.Names("KX00000002") && refusal.Names("QTA0000077"));
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000002"));
}

void HotSwapTest::AKindThatCannotBeSwappedIsRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "RN00000003", "RN00000077");
    QVERIFY(RefusalOf([&] { server.Network()->FindHotswapped(); }).Is(eTavikErrors::HotSwapMismatch));
}

void HotSwapTest::ARefusedSwapChangesNothing() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "KX00000001", "KX00000077");
    ReplaceModule("N", "RN00000003", "RN00000077");
    QVERIFY(RefusalOf([&] { server.Network()->FindHotswapped(); }).refused);
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "RN00000003"}));
}

void HotSwapTest::WithoutConnectorMemoryNothingIsFound() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->ClearTCons();
    ReplaceModule("N", "KX00000002", "KX00000077");
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000002"));
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\" remembered=\"no\"/>"));
    ConnectedServer second;
    ReplaceModule("N", "KX00000001", "KX00000077");
    second.Network()->FindHotswapped();
    QCOMPARE(Listed(second.Network()), Identities{"KX00000001"});
}

void HotSwapTest::ConnectorsAreWrittenAgain_data() {
    QTest::addColumn<QString>("by");
    QTest::newRow("add") << QStringLiteral("add");
    QTest::newRow("remap") << QStringLiteral("remap");
    QTest::newRow("notify") << QStringLiteral("notify");
}

void HotSwapTest::ConnectorsAreWrittenAgain() {
    QFETCH(QString, by);
    Use(OneNetwork(Three + "<module type=\"KX\" identity=\"KX00000005\" announces=\"1\"/>"));
    ConnectedServer server;
    server.Network()->ClearTCons();
    if (by == QLatin1String("add")) {
        server.Network()->AddModule("KX00000004", "");
    } else if (by == QLatin1String("remap")) {
        server.Network()->ApplyRemap();
    } else {
        server.Network()->BeginNotifying();
        TavikSimulator::AdvanceClock(1.1);
        QVERIFY(!server.Network()->Notifying());
    }
    ReplaceModule("N", "KX00000002", "KX00000077");
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000077"));
}

void HotSwapTest::AConnectorOfAnAbsentModuleIsNotWritten() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->ClearTCons();
    ReplaceModule("N", "KX00000002", "KX00000077");
    server.Network()->ApplyRemap();
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000002"));
}

void HotSwapTest::TheOldModulePluggedInAgainAnswers() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "KX00000002", "KX00000077");
    TavikSimulator::SetModulePresent("N", "KX00000002", true);
    server.Module(1)->ReadInCounts();
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000002"));
}

void HotSwapTest::AReplacementCanBeReplaced() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    ReplaceModule("N", "KX00000002", "KX00000077");
    ReplaceModule("N", "KX00000002", "KX00000078");
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000078"));
    ReplaceModule("N", "KX00000078", "KX00000079");
    server.Network()->FindHotswapped();
    QCOMPARE(Listed(server.Network())[1], std::string("KX00000079"));
    server.Network()->Ping();
}

void HotSwapTest::ReplacingNeedsALegalPair() {
    Use(OneNetwork(Three));
    QVERIFY(RefusalOf([] { ReplaceModule("N", "KX00000009", "KX00000077"); }).Is(eTavikErrors::IdentityUnknown));
    QVERIFY(RefusalOf([] { ReplaceModule("N", "KX00000004", "KX00000077"); }).Is(eTavikErrors::IdentityUnknown));
    QVERIFY(RefusalOf([] { ReplaceModule("N", "KX00000002", "KX77"); }).Is(eTavikErrors::IdentityMalformed));
    QVERIFY(RefusalOf([] { ReplaceModule("N", "KX00000002", "KX00000001"); }).Is(eTavikErrors::IdentityDuplicate));
    QVERIFY(RefusalOf([] { ReplaceModule("N", "KX00000002", "KX00000077", "KY"); }).refused);
    QVERIFY(RefusalOf([] { ReplaceModule("M", "KX00000002", "KX00000077"); }).refused);
}

QTEST_APPLESS_MAIN(HotSwapTest)
#include "HotSwapTest.moc"
