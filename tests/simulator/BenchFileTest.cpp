#include "tests/simulator/Bench.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <set>

using TavikLibrary::eTavikErrors;

namespace {

const QString Benches = QStringLiteral(TAVIK_BENCHES);

QByteArray Bench(const char* content) {
    return QByteArray("<bench>\n") + content + "\n</bench>";
}

QByteArray Network(const char* content) {
    return Bench((QByteArray("<network name=\"N\" controller=\"C\">\n") + content + "\n</network>").constData());
}

} // namespace

class BenchFileTest : public QObject {
    Q_OBJECT

private slots:
    void init() { qunsetenv("TAVIK_BENCH"); }
    void ABadFileIsRefusedWithFileLineAndReason_data();
    void ABadFileIsRefusedWithFileLineAndReason();
    void ARefusedFileLeavesTheCurrentBench();
    void AMissingFileIsRefused();
    void EveryBenchFileCanBeUsed_data();
    void EveryBenchFileCanBeUsed();
    void TheEnvironmentChoosesTheBench();
    void AServerOnABadFileThrows();
    void TheDefaultBenchHoldsEveryKind();
    void TheDefaultBenchShowsAFailingConnectInTheMiddle();
    void CountedModulesCountUp();
    void AttributesReachTheModules();
};

void BenchFileTest::ABadFileIsRefusedWithFileLineAndReason_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("reason");
    const char* module = "<module type=\"KX\" identity=\"KX00000001\"/>";
    const QByteArray twoModules = QByteArray(module) + "\n" + module;

    QTest::newRow("not XML") << QByteArray("<bench>\n<network\n</bench>") << 3 << QByteArray("well-formed");
    QTest::newRow("another root") << QByteArray("\n<desk/>") << 2 << QByteArray("<desk>");
    QTest::newRow("two roots") << QByteArray("<bench/>\n<bench/>") << 2 << QByteArray("beside");
    QTest::newRow("unknown element") << Bench("<netwrok name=\"N\"/>") << 2 << QByteArray("<netwrok>");
    QTest::newRow("unknown attribute") << Network("<module type=\"KX\" identity=\"KX00000001\" strok=\"1\"/>") << 3
                                       << QByteArray("strok");
    QTest::newRow("double attribute") << Network("<module type=\"KX\" identity=\"KX00000001\" type=\"RN\"/>") << 3
                                      << QByteArray("twice");
    QTest::newRow("text") << Network("probe") << 2 << QByteArray("text inside");
    QTest::newRow("bench attribute") << QByteArray("<bench sed=\"1\"/>") << 1 << QByteArray("sed");
    QTest::newRow("clock") << QByteArray("<bench clock=\"slow\"/>") << 1 << QByteArray("real, manual");
    QTest::newRow("clock speed") << QByteArray("<bench clock-speed=\"0\"/>") << 1 << QByteArray("outside");
    QTest::newRow("seed") << QByteArray("<bench seed=\"one\"/>") << 1 << QByteArray("whole number");

    QTest::newRow("network without name") << Bench("<network/>") << 2 << QByteArray("name");
    QTest::newRow("two names") << Bench("<network name=\"N\"/>\n<network name=\"N\"/>") << 3
                               << QByteArray("two networks");
    QTest::newRow("two controllers")
        << Bench("<network name=\"A\" controller=\"C\"/>\n<network name=\"B\" controller=\"C\"/>") << 3
        << QByteArray("controller");
    QTest::newRow("network type") << Bench("<network name=\"N\" type=\"wifi\"/>") << 2 << QByteArray("wifi");
    QTest::newRow("speed word") << Bench("<network name=\"N\" speed=\"fast\"/>") << 2 << QByteArray("fast");
    QTest::newRow("speed not offered") << Bench("<network name=\"N\" speeds=\"low\" speed=\"high\"/>") << 2
                                       << QByteArray("not among");
    QTest::newRow("speed twice") << Bench("<network name=\"N\" speeds=\"low low\"/>") << 2 << QByteArray("twice");
    QTest::newRow("no speeds") << Bench("<network name=\"N\" speeds=\"\"/>") << 2 << QByteArray("no speed");
    QTest::newRow("capability") << Bench("<network name=\"N\" capabilities=\"burst\"/>") << 2 << QByteArray("burst");
    QTest::newRow("connects") << Bench("<network name=\"N\" connects=\"maybe\"/>") << 2 << QByteArray("maybe");
    QTest::newRow("connect time") << Bench("<network name=\"N\" connect-time=\"-1\"/>") << 2
                                  << QByteArray("outside 0 to 60");

    QTest::newRow("module without type") << Network("<module identity=\"KX00000001\"/>") << 3 << QByteArray("type");
    QTest::newRow("module type") << Network("<module type=\"KY\" identity=\"KX00000001\"/>") << 3 << QByteArray("KY");
    QTest::newRow("module without identity") << Network("<module type=\"KX\"/>") << 3 << QByteArray("identity");
    QTest::newRow("identity") << Network("<module type=\"KX\" identity=\"kx00000001\"/>") << 3
                              << QByteArray("kx00000001");
    QTest::newRow("two identities") << Network(twoModules.constData()) << 4 << QByteArray("two modules");
    QTest::newRow("identity in two networks") << Bench((QByteArray("<network name=\"A\">") + module +
                                                        "</network>\n<network name=\"B\">" + module + "</network>")
                                                           .constData())
                                              << 3 << QByteArray("two modules");
    QTest::newRow("stroke") << Network("<module type=\"KX\" identity=\"KX00000001\" stroke=\"0\"/>") << 3
                            << QByteArray("outside");
    QTest::newRow("not a number") << Network("<module type=\"KX\" identity=\"KX00000001\" stroke=\"2mm\"/>") << 3
                                  << QByteArray("not a number");
    QTest::newRow("counts per unit of a probe")
        << Network("<module type=\"KX\" identity=\"KX00000001\" counts-per-unit=\"5\"/>") << 3 << QByteArray("follow");
    QTest::newRow("too many counts") << Network("<module type=\"RN\" identity=\"RN00000001\" stroke=\"1e6\"/>") << 3
                                     << QByteArray("2147483647");
    QTest::newRow("resolution") << Network("<module type=\"KX\" identity=\"KX00000001\" resolution=\"13\"/>") << 3
                                << QByteArray("resolution");
    QTest::newRow("averaging") << Network("<module type=\"KX\" identity=\"KX00000001\" averaging=\"3\"/>") << 3
                               << QByteArray("averaging");
    QTest::newRow("offered resolution") << Network(
                                               "<module type=\"KX\" identity=\"KX00000001\" resolutions=\"14 19\"/>")
                                        << 3 << QByteArray("\"19\"");
    QTest::newRow("resolution of an encoder")
        << Network("<module type=\"RN\" identity=\"RN00000001\" resolution=\"14\"/>") << 3 << QByteArray("resolution");
    QTest::newRow("display of a probe") << Network("<module type=\"KX\" identity=\"KX00000001\" display=\"no\"/>") << 3
                                        << QByteArray("display");
    QTest::newRow("module capability") << Network("<module type=\"KX\" identity=\"KX00000001\" capabilities=\"fast\"/>")
                                       << 3 << QByteArray("fast");
    QTest::newRow("module too slow")
        << Bench("<network name=\"N\" speed=\"ultra-high\">\n<module type=\"HVX\" identity=\"HVX0000001\"/></network>")
        << 3 << QByteArray("cannot work");
    QTest::newRow("count of digits") << Network("<module type=\"KX\" identity=\"KX00000ABC\" count=\"2\"/>") << 3
                                     << QByteArray("suffice");
    QTest::newRow("full") << Network("<module type=\"KX\" identity=\"KX00000001\" count=\"100\"/>\n"
                                     "<module type=\"KX\" identity=\"KX00000201\" count=\"51\"/>")
                          << 2 << QByteArray("150 modules");

    QTest::newRow("two signals") << Network(
                                        "<module type=\"KX\" identity=\"KX00000001\">\n<signal/>\n<signal/></module>")
                                 << 5 << QByteArray("one <signal>");
    QTest::newRow("motion") << Network(
                                   "<module type=\"KX\" identity=\"KX00000001\">\n<signal motion=\"hop\"/></module>")
                            << 4 << QByteArray("hop");
    QTest::newRow("impossible signal")
        << Network("<module type=\"KX\" identity=\"KX00000001\">\n<signal noise=\"-1\"/></module>") << 4
        << QByteArray("negative");
    QTest::newRow("harmonic") << Network("<module type=\"KX\" identity=\"KX00000001\">\n<signal>\n<harmonic lob=\"1\"/>"
                                         "</signal></module>")
                              << 5 << QByteArray("lob");

    QTest::newRow("event without what") << Network("<event at=\"1\"/>") << 3 << QByteArray("what");
    QTest::newRow("event") << Network("<event what=\"fire\"/>") << 3 << QByteArray("fire");
    QTest::newRow("event of nobody") << Network("<event what=\"module-leaves\" module=\"KX00000009\"/>") << 3
                                     << QByteArray("KX00000009");
    QTest::newRow("event too often") << Network("<event what=\"controller-leaves\" every=\"0.1\"/>") << 3
                                     << QByteArray("second");
    QTest::newRow("replacement taken")
        << Network((QByteArray(module) + "\n<event what=\"module-replaced\" module=\"KX00000001\" by=\"KX00000001\"/>")
                       .constData())
        << 4 << QByteArray("two modules");

    QTest::newRow("fault trigger") << Bench("<fault when=\"often\"/>") << 2 << QByteArray("often");
    QTest::newRow("fault effect") << Bench("<fault effect=\"explode\"/>") << 2 << QByteArray("explode");
    QTest::newRow("fault of a destructor") << Bench("<fault operation=\"~TavikServer\"/>") << 2 << QByteArray("never");
    QTest::newRow("fault without delay") << Bench("<fault effect=\"slow\"/>") << 2 << QByteArray("delay");
    QTest::newRow("fault without duration") << Bench("<fault when=\"during\"/>") << 2 << QByteArray("duration");
}

void BenchFileTest::ABadFileIsRefusedWithFileLineAndReason() {
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(QByteArray, reason);
    const Refusal refusal = RefusalOf([&] { TavikSimulator::UseBenchText(text.toStdString(), "some.xml"); });
    QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
    const QByteArray sentence = QByteArray::fromStdString(refusal.text);
    const QByteArray beginning = "some.xml, line " + QByteArray::number(line) + ": ";
    QVERIFY2(sentence.startsWith(beginning), sentence.constData());
    QVERIFY2(sentence.contains(reason), sentence.constData());
    QVERIFY2(sentence.endsWith('.'), sentence.constData());
}

void BenchFileTest::ARefusedFileLeavesTheCurrentBench() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"/>"));
    QVERIFY(RefusalOf([] { Use("<bench><x/></bench>"); }).refused);
    QCOMPARE(TavikSimulator::ListedModules("N"), Identities{"KX00000001"});
}

void BenchFileTest::AMissingFileIsRefused() {
    const Refusal refusal = RefusalOf([] { TavikSimulator::UseBenchFile("no/such/bench.xml"); });
    QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
    QVERIFY(refusal.Names("no/such/bench.xml"));
    QVERIFY(refusal.Names("No such file"));
}

void BenchFileTest::EveryBenchFileCanBeUsed_data() {
    QTest::addColumn<QString>("file");
    const QStringList files = QDir(Benches).entryList({QStringLiteral("*.xml")});
    QVERIFY(files.size() >= 3);
    for (const QString& file : files) {
        QTest::newRow(qPrintable(file)) << QDir(Benches).filePath(file);
    }
}

void BenchFileTest::EveryBenchFileCanBeUsed() {
    QFETCH(QString, file);
    TavikSimulator::UseBenchFile(file.toStdString());
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    QVERIFY(server.Networks()->Count() > 0);
}

void BenchFileTest::TheEnvironmentChoosesTheBench() {
    // Only a process without a bench looks at the variable, so a process of its own has to look.
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("mine.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<bench><network name=\"Of the environment\"/></bench>");
    file.close();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TAVIK_BENCH"), file.fileName());
    environment.insert(QStringLiteral("TAVIK_PRINT_NETWORKS"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("Of the environment\n"));
}

void BenchFileTest::AServerOnABadFileThrows() {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("bad.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<bench>\n<network/>\n</bench>");
    file.close();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TAVIK_BENCH"), file.fileName());
    environment.insert(QStringLiteral("TAVIK_PRINT_NETWORKS"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(process.waitForFinished());
    const QByteArray printed = process.readAllStandardOutput();
    QVERIFY2(printed.startsWith("refused: " + file.fileName().toUtf8() + ", line 2: "), printed.constData());
}

void BenchFileTest::TheDefaultBenchHoldsEveryKind() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    std::set<int> types;
    for (int i = 0; i < server.Network()->ModuleCount(); ++i) {
        types.insert(static_cast<int>(server.Module(static_cast<unsigned int>(i))->ModuleType()));
    }
    QCOMPARE(types, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 13}));
    QCOMPARE(server.Network(1)->ModuleCount(), 25);
    QCOMPARE(server.Network(1)->GetModule(24)->ModuleType(), TavikLibrary::eModuleType::QTA);
    QCOMPARE(server.Network(3)->ModuleCount(), 150);
    for (int i = 0; i < server.server.Networks()->Count(); ++i) {
        QVERIFY(QByteArray::fromStdString(server.Network(static_cast<unsigned int>(i))->Description())
                    .startsWith("Simulated "));
    }
}

void BenchFileTest::TheDefaultBenchShowsAFailingConnectInTheMiddle() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    std::vector<bool> connected;
    for (int i = 0; i < server.server.Networks()->Count(); ++i) {
        connected.push_back(server.Network(static_cast<unsigned int>(i))->IsConnected());
    }
    QCOMPARE(connected, (std::vector<bool>{true, true, false, true, true}));
}

void BenchFileTest::CountedModulesCountUp() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000099\" probe-identity=\"P9\" count=\"1\"/>"
                   "<module type=\"KX\" identity=\"KX00000199\" probe-identity=\"PP08\" count=\"2\"/>"));
    ConnectedServer server;
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000099", "KX00000199", "KX00000200"}));
    QCOMPARE(server.Module(0)->ProbeIdentity(), std::string("P9"));
    QCOMPARE(server.Module(2)->ProbeIdentity(), std::string("PP09"));
}

void BenchFileTest::AttributesReachTheModules() {
    Use(OneNetwork("<module type=\"HVX\" identity=\"HVX0000001\" device-type=\"Height\" software-version=\"9.9\""
                   " unit=\"inch\" stroke=\"4\" offset=\"-1\" counts-per-unit=\"250\" hot-swappable=\"yes\""
                   " speeds=\"low high\" capabilities=\"difference dynamic-master\"/>"));
    ConnectedServer server;
    TavikLibrary::TavikModule* module = server.Module(0);
    QCOMPARE(module->DeviceType(), std::string("Height"));
    QCOMPARE(module->SoftwareVersion(), std::string("9.9"));
    QCOMPARE(module->UnitsOfMeasure(), std::string("inch"));
    QCOMPARE(module->Stroke(), 4.0);
    QCOMPARE(module->Offset(), -1.0);
    QCOMPARE(module->CountsPerUnitOfMeasure(), 250.0);
    QVERIFY(module->HotSwappable());
    QVERIFY(module->SpeedAvailable(TavikLibrary::eNetSpeed::Low));
    QVERIFY(!module->SpeedAvailable(TavikLibrary::eNetSpeed::Medium));
    QVERIFY(!module->BufferedCapable());
    QVERIFY(!module->BufferedMasterCapable());
    QVERIFY(module->DifferenceCapable());
    QVERIFY(!module->DynamicCapable());
    QVERIFY(!module->Dynamic2Capable());
    QVERIFY(module->DynamicMasterCapable());
    QVERIFY(!module->ReadBurstCapable());
    QCOMPARE(module->ReadInCounts(), 500);
    QCOMPARE(module->ReadInUnits(), 1.0);
    QVERIFY(RefusalOf([&] { module->ProbeIdentity(); }).Is(eTavikErrors::NotAvailable));
}

namespace {

int PrintNetworks() {
    try {
        TavikLibrary::TavikServer server;
        server.Networks()->FindNetworks();
        for (int i = 0; i < server.Networks()->Count(); ++i) {
            std::puts(server.Networks()->Network(static_cast<unsigned int>(i))->NetworkName().c_str());
        }
    } catch (const TavikLibrary::TavikException& exception) {
        std::printf("refused: %s\n", exception.what());
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsSet("TAVIK_PRINT_NETWORKS")) {
        return PrintNetworks();
    }
    QCoreApplication application(argc, argv);
    BenchFileTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "BenchFileTest.moc"
