#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikModuleKX.h"
#include "tests/simulator/Bench.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <thread>

using TavikLibrary::eTavikErrors;
using TavikSimulator::Journal;
using TavikSimulator::JournalEntry;
using TavikSimulator::StartJournal;

namespace {

const std::string Two = "<module type=\"KX\" identity=\"KX00000001\"/><module type=\"RN\" identity=\"RN00000002\"/>";

Identities Calls() {
    Identities calls;
    for (const JournalEntry& entry : Journal()) {
        calls.push_back(TavikSimulator::CallText(entry));
    }
    return calls;
}

} // namespace

class JournalTest : public QObject {
    Q_OBJECT

private slots:
    void timesOfAdvancesAddUpExactly();
    void init() { Use(OneNetwork(Two)); }
    void ItIsOffByDefault();
    void CallsComeInOrderWithObjectsAPersonUnderstands();
    void ArgumentsAndResultsAreReadable();
    void AnExceptionIsRecorded();
    void AFaultIsRecorded();
    void TheOldestMakeRoom();
    void ItCanBeStoppedAndCleared();
    void ItOutlivesTheServer();
    void ALineReadsWell();
    void ThreadsAreToldApart();
    void TheEnvironmentNamesAFile();
    void AFileThatCannotBeWrittenIsRefused();
};

void JournalTest::timesOfAdvancesAddUpExactly() {
    TavikSimulator::UseStillBenchText(OneNetwork(Two), "test");
    for (int step = 0; step < 70; ++step) {
        TavikSimulator::AdvanceClock(0.1);
    }
    StartJournal();
    TavikLibrary::TavikServer server;
    QVERIFY(TavikSimulator::BenchTime() == 7.0);
    QVERIFY(Journal().at(0).time == 7.0);
}

void JournalTest::ItIsOffByDefault() {
    ConnectedServer server;
    QVERIFY(Journal().empty());
}

void JournalTest::CallsComeInOrderWithObjectsAPersonUnderstands() {
    StartJournal();
    {
        TavikLibrary::TavikServer server;
        TavikLibrary::TavikNetworks* networks = server.Networks();
        networks->FindNetworks();
        TavikLibrary::TavikNetwork* network = networks->Network(0);
        network->Connect();
        TavikLibrary::TavikModule* module = network->GetModule(1);
        module->ReadInCounts();
        module->Status()->UpdateStatus();
        network->Buffered()->Status();
        network->Difference()->Stop();
        server.StopAllDynamic();
    }
    QCOMPARE(Calls(),
             (Identities{"server.TavikServer()", "server.Networks()", "networks.FindNetworks()", "networks.Network(0)",
                         "network N.Connect()", "network N.GetModule(1)", "module RN00000002.ReadInCounts()",
                         "module RN00000002.Status()", "status RN00000002.UpdateStatus()", "network N.Buffered()",
                         "buffered N.Status()", "network N.Difference()", "difference N.Stop()",
                         "server.StopAllDynamic()", "server.~TavikServer()"}));
}

void JournalTest::ArgumentsAndResultsAreReadable() {
    ConnectedServer server;
    TavikLibrary::TavikNetwork* network = server.Network();
    auto* probe = dynamic_cast<TavikLibrary::TavikModuleKX*>(server.Module(0));
    TavikSimulator::HoldPosition("N", "KX00000001", 0.5);
    StartJournal();
    network->setNetSpeed(TavikLibrary::eNetSpeed::UltraHigh);
    network->setNetSpeed(TavikLibrary::eNetSpeed::Low);
    network->AvailableSpeeds();
    network->GetModuleIndexByID("KX00000001");
    network->IsConnected();
    network->NetworkType();
    network->Description();
    probe->ReadInUnits();
    probe->setAveraging(TavikLibrary::eAveraging::Samples8);
    probe->Resolution();
    probe->ModuleType();
    network->GetModule(0);
    Identities lines;
    for (const JournalEntry& entry : Journal()) {
        lines.push_back(entry.operation + "(" + entry.arguments + ") " + entry.result);
    }
    QCOMPARE(lines, (Identities{"setNetSpeed(Ultra High) ", "setNetSpeed(Low) ",
                                "AvailableSpeeds() [Low, Medium, High, Ultra High]",
                                "GetModuleIndexByID(\"KX00000001\") 0", "IsConnected() true", "NetworkType() USB",
                                "Description() \"Simulated network\"", "ReadInUnits() 0.5", "setAveraging(8 samples) ",
                                "Resolution() 14 bits", "ModuleType() KX", "GetModule(0) object"}));
}

void JournalTest::AnExceptionIsRecorded() {
    ConnectedServer server;
    StartJournal();
    QVERIFY(RefusalOf([&] { server.Network()->DeleteModule(7); }).refused);
    const JournalEntry entry = Journal().back();
    QCOMPARE(entry.operation, std::string("DeleteModule"));
    QVERIFY(entry.failed);
    QVERIFY(!entry.faulted);
    QCOMPARE(entry.errorCode, static_cast<int>(eTavikErrors::ModuleIndexOutOfRange));
    QVERIFY(entry.error.find("position 7") != std::string::npos);
}

void JournalTest::AFaultIsRecorded() {
    ConnectedServer server;
    StartJournal();
    TavikSimulator::FailCall(3, 0x77, "Struck.");
    QVERIFY(RefusalOf([&] { server.Network()->Ping(); }).refused);
    const JournalEntry entry = Journal().back();
    QVERIFY(entry.failed && entry.faulted);
    QCOMPARE(entry.errorCode, 0x77);
    QCOMPARE(entry.error, std::string("Struck."));
    QCOMPARE(TavikSimulator::LastFaultedCall().number, entry.number);
}

void JournalTest::TheOldestMakeRoom() {
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    StartJournal(10);
    for (int i = 0; i < 25; ++i) {
        module->SpeedAvailable(static_cast<TavikLibrary::eNetSpeed>(100 + i));
    }
    const std::vector<JournalEntry> entries = Journal();
    QCOMPARE(entries.size(), std::size_t{10});
    QCOMPARE(TavikSimulator::JournalDropped(), std::uint64_t{15});
    QCOMPARE(entries.front().arguments, std::string("Unknown speed (115)"));
    QCOMPARE(entries.back().arguments, std::string("Unknown speed (124)"));
}

void JournalTest::ItCanBeStoppedAndCleared() {
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    StartJournal();
    module->ReadInCounts();
    TavikSimulator::StopJournal();
    module->ReadInCounts();
    QCOMPARE(Journal().size(), std::size_t{1});
    TavikSimulator::ClearJournal();
    QVERIFY(Journal().empty());
    StartJournal();
    module->ReadInUnits();
    QCOMPARE(Calls(), Identities{"module KX00000001.ReadInUnits()"});
}

void JournalTest::ItOutlivesTheServer() {
    StartJournal();
    { ConnectedServer server; }
    QCOMPARE(Calls().back(), std::string("server.~TavikServer()"));
    Use(OneNetwork(Two));
    QVERIFY(Journal().empty());
}

void JournalTest::ALineReadsWell() {
    ConnectedServer server;
    StartJournal();
    TavikSimulator::AdvanceClock(12.5);
    QVERIFY(RefusalOf([&] { server.Network()->GetModule(9); }).refused);
    const std::vector<JournalEntry> entries = Journal();
    QCOMPARE(TavikSimulator::JournalLine(entries[1]).substr(9),
             "   12.500000  thread " + std::to_string(entries[1].thread) + "  networks.Network(0) = object");
    QVERIFY(TavikSimulator::JournalLine(entries[2]).find("network N.GetModule(9) threw 4106 \"There is no module") !=
            std::string::npos);
}

void JournalTest::ThreadsAreToldApart() {
    constexpr int Threads = 4;
    constexpr int Reads = 500;
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    StartJournal();
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([module] {
            for (int read = 0; read < Reads; ++read) {
                module->ReadInCounts();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::vector<JournalEntry> entries = Journal();
    QCOMPARE(entries.size(), std::size_t{Threads} * Reads);
    std::map<int, int> byThread;
    std::set<std::uint64_t> numbers;
    for (const JournalEntry& entry : entries) {
        ++byThread[entry.thread];
        numbers.insert(entry.number);
    }
    QCOMPARE(byThread.size(), std::size_t{Threads});
    QVERIFY(std::all_of(byThread.begin(), byThread.end(), [](const auto& pair) { return pair.second == Reads; }));
    QCOMPARE(numbers.size(), entries.size());
    QVERIFY(std::is_sorted(entries.begin(), entries.end(),
                           [](const JournalEntry& a, const JournalEntry& b) { return a.number < b.number; }));
}

namespace {

// Runs this program again as one that makes a few calls, with a journal, and crashes.
QByteArray OutputOfCrash(const QString& journal) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TAVIK_JOURNAL"), journal);
    environment.insert(QStringLiteral("TAVIK_CRASH"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList());
    return process.waitForFinished() ? process.readAllStandardOutput() : QByteArray("did not finish");
}

} // namespace

void JournalTest::TheEnvironmentNamesAFile() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("calls.txt"));
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("of an earlier run\n");
    old.close();
    OutputOfCrash(path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines[0].endsWith("server.TavikServer()"));
    QVERIFY(lines[1].endsWith("server.Networks() = object"));
    QVERIFY(lines[2].endsWith("networks.FindNetworks()"));
    QVERIFY(lines[3].endsWith("networks.Count() = 5"));
    QVERIFY(lines[4].isEmpty());
}

void JournalTest::AFileThatCannotBeWrittenIsRefused() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("no/such/folder/calls.txt"));
    const QByteArray output = OutputOfCrash(path);
    QVERIFY2(output.startsWith("refused: The journal \"" + path.toUtf8() + "\" cannot be written: No such"),
             output.constData());
}

namespace {

int CallAndCrash() {
    try {
        TavikLibrary::TavikServer server;
        TavikLibrary::TavikNetworks* networks = server.Networks();
        networks->FindNetworks();
        networks->Count();
        std::_Exit(3);
    } catch (const TavikLibrary::TavikException& exception) {
        std::printf("refused: %s\n", exception.what());
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsSet("TAVIK_CRASH")) {
        return CallAndCrash();
    }
    QCoreApplication application(argc, argv);
    JournalTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "JournalTest.moc"
