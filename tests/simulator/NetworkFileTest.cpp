#include "library/TavikModuleKX.h"
#include "tests/simulator/Bench.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

using TavikLibrary::eAveraging;
using TavikLibrary::eNetSpeed;
using TavikLibrary::eResolution;
using TavikLibrary::TavikModuleKX;

namespace {

const std::string Three = "<module type=\"KX\" identity=\"KX00000001\"/>"
                          "<module type=\"KX\" identity=\"KX00000002\"/>"
                          "<module type=\"RN\" identity=\"RN00000003\" speeds=\"low high\"/>"
                          "<module type=\"KX\" identity=\"KX00000004\" place=\"wire\"/>";

const std::string Head = "<tavik-network format=\"1\" name=\"N\" speed=\"high\">";
const std::string Tail = "</tavik-network>";
const std::string FirstModule = "<module identity=\"KX00000001\" type=\"KX\"";

std::string ManyModules(int count) {
    std::string modules;
    for (int number = 1; number <= count; ++number) {
        const std::string digits = std::to_string(10000 + number);
        modules += "<module identity=\"KX000" + digits + "\" type=\"KX\"/>";
    }
    return modules;
}

} // namespace

/// Network files: what they keep, and what is refused.
class NetworkFileTest : public QObject {
    Q_OBJECT

private slots:
    void aSavedNetworkComesBack();
    void modulesThatStayKeepTheirObjects();
    void aModuleFromTheWireIsTakenIn();
    void refusedFiles_data();
    void refusedFiles();
    void deepNestingIsRefused();
    void aFileThatIsTooLargeIsRefused();
    void unreadableFiles();
    void savingKeepsTheFileWhenItFails();
    void savingKeepsThePermissions();
    void nothingIsLoadedOrSavedWhileNotConnected();
    void nothingIsLoadedDuringANotifyRun();

private:
    std::string Write(const std::string& text);
    std::string Path(const char* name) const { return folder.filePath(QLatin1String(name)).toStdString(); }

    QTemporaryDir folder;
};

std::string NetworkFileTest::Write(const std::string& text) {
    std::string path = Path("written.xml");
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("The test's own file cannot be written.");
    }
    file.write(text.data(), static_cast<qint64>(text.size()));
    return path;
}

void NetworkFileTest::aSavedNetworkComesBack() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    auto* probe = dynamic_cast<TavikModuleKX*>(server.Module(1));
    probe->setResolution(eResolution::Bits16);
    probe->setAveraging(eAveraging::Samples32);
    server.Network()->setNetSpeed(eNetSpeed::Low);
    server.Network()->Save(Path("net.xml"));

    probe->setResolution(eResolution::Bits14);
    probe->setAveraging(eAveraging::Off);
    server.Network()->setNetSpeed(eNetSpeed::High);
    server.Module(0)->SetPosition(2);
    server.Module(2)->SetPosition(0);
    server.Network()->ApplyRemap();
    server.Network()->Load(Path("net.xml"));

    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "RN00000003"}));
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::Low);
    QCOMPARE(probe->Resolution(), eResolution::Bits16);
    QCOMPARE(probe->Averaging(), eAveraging::Samples32);
}

void NetworkFileTest::modulesThatStayKeepTheirObjects() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    TavikLibrary::TavikModule* kept = server.Module(0);
    TavikLibrary::TavikModule* gone = server.Module(1);
    server.Network()->Load(Write(Head + FirstModule + "/>" + Tail));
    QCOMPARE(Listed(server.Network()), Identities{"KX00000001"});
    QCOMPARE(server.Module(0), kept);
    QVERIFY(RefusalOf([&] { gone->Identity(); }).Is(TavikLibrary::eTavikErrors::ModuleRemoved));
    server.Network()->AddModule("KX00000002", "");
    QCOMPARE(server.Network()->ModuleCount(), 2);
}

void NetworkFileTest::aModuleFromTheWireIsTakenIn() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->Load(Write(Head + "<module identity=\"KX00000004\" type=\"KX\"/>" + FirstModule + "/>" + Tail));
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000004", "KX00000001"}));
}

void NetworkFileTest::refusedFiles_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("says");
    const auto row = [](const char* name, const std::string& text, const char* says) {
        QTest::newRow(name) << QByteArray::fromStdString(text) << QByteArray(says);
    };
    row("empty", "", "line 1: This is not well-formed XML");
    row("cut short", Head + "\n<module identity=\"KX0000", "line 2: This is not well-formed XML");
    row("a bench file", OneNetwork(Three), "line 1: This is not a network file: it holds <bench>");
    row("a newer format", "<tavik-network format=\"2\" name=\"N\" speed=\"high\"/>", "This file has the format 2");
    row("no format", "<tavik-network name=\"N\" speed=\"high\"/>", "This file has the format 0");
    row("another network", "<tavik-network format=\"1\" name=\"M\" speed=\"high\"/>",
        "It describes the network \"M\", not \"N\"");
    row("no such speed", "<tavik-network format=\"1\" name=\"N\" speed=\"warp\"/>", "\"warp\" is not a value of speed");
    row("unknown attribute", "<tavik-network format=\"1\" name=\"N\" speed=\"high\" colour=\"red\"/>", "colour");
    row("unknown element", Head + "\n\n<probe/>" + Tail, "line 3: ");
    row("no identity", Head + "\n<module type=\"KX\"/>" + Tail, "line 2: <module> needs the attribute identity");
    row("malformed identity", Head + "<module identity=\"kx1\" type=\"KX\"/>" + Tail,
        "\"kx1\" is not a module identity");
    row("twice", Head + FirstModule + "/>\n" + FirstModule + "/>" + Tail, "line 2: There are two modules");
    row("not on the wire", Head + "\n<module identity=\"KX99999999\" type=\"KX\"/>" + Tail,
        "line 2: No module KX99999999 answers");
    row("another kind", Head + "<module identity=\"KX00000001\" type=\"RN\"/>" + Tail,
        "Module KX00000001 is not of the kind RN");
    row("no such kind", Head + "<module identity=\"KX00000001\" type=\"ZZ\"/>" + Tail, "\"ZZ\" is not a value of type");
    row("too fast for a module",
        "<tavik-network format=\"1\" name=\"N\" speed=\"ultra-high\"><module identity=\"RN00000003\" type=\"RN\"/>" +
            Tail,
        "Module RN00000003 cannot work at the speed Ultra High");
    row("not a speed of the controller", "<tavik-network format=\"1\" name=\"N\" speed=\"medium\"/>",
        "The controller cannot work at the speed Medium.");
    row("too many modules", Head + ManyModules(151) + Tail, "A network holds 150 modules at most.");
    row("unknown setting", Head + FirstModule + "><setting name=\"taste\" value=\"1\"/></module>" + Tail,
        "Module KX00000001 has no setting \"taste\"");
    row("a setting not on offer", Head + FirstModule + "><setting name=\"resolution\" value=\"99\"/></module>" + Tail,
        "does not offer the resolution");
    row("a setting without a number",
        Head + FirstModule + "><setting name=\"resolution\" value=\"x\"/></module>" + Tail,
        "line 1: The setting \"resolution\" needs a whole number, not \"x\"");
    row("a setting without a value", Head + FirstModule + "><setting name=\"resolution\"/></module>" + Tail,
        "line 1: The setting \"resolution\" has no value");
    row("a setting twice",
        Head + FirstModule +
            "><setting name=\"resolution\" value=\"14\"/><setting name=\"resolution\" value=\"15\"/></module>" + Tail,
        "The setting \"resolution\" is there twice");
    row("entities", "<!DOCTYPE t [<!ENTITY a \"aaaa\">]>" + Head + "&a;" + Tail, "line 1: ");
}

void NetworkFileTest::refusedFiles() {
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, says);
    Use(OneNetwork(Three, "speeds=\"low high ultra-high\""));
    ConnectedServer server;
    const std::string path = Write(text.toStdString());
    const Refusal refusal = RefusalOf([&] { server.Network()->Load(path); });
    QVERIFY(refusal.refused);
    QVERIFY2(refusal.Names(path), refusal.text.c_str());
    QVERIFY2(refusal.Names(says.toStdString()), refusal.text.c_str());
    QCOMPARE(Listed(server.Network()), (Identities{"KX00000001", "KX00000002", "RN00000003"}));
    QCOMPARE(server.Network()->NetSpeed(), eNetSpeed::High);
}

void NetworkFileTest::deepNestingIsRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    std::string text = Head;
    for (int depth = 0; depth < 100000; ++depth) {
        text += "<m>";
    }
    QVERIFY(RefusalOf([&] { server.Network()->Load(Write(text)); }).Names("not well-formed"));
    for (int depth = 0; depth < 100000; ++depth) {
        text += "</m>";
    }
    QVERIFY(RefusalOf([&] { server.Network()->Load(Write(text + Tail)); }).Names("<m>"));
}

void NetworkFileTest::aFileThatIsTooLargeIsRefused() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    const std::string blanks(std::size_t{1024} * 1024, ' ');
    const Refusal refusal = RefusalOf([&] { server.Network()->Load(Write(Head + blanks + Tail)); });
    QVERIFY2(refusal.Names("larger than 1 MB"), refusal.text.c_str());
}

void NetworkFileTest::unreadableFiles() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    const std::string missing = Path("missing.xml");
    const Refusal none = RefusalOf([&] { server.Network()->Load(missing); });
    QVERIFY(none.Names(missing) && none.Names("No such file"));
    const Refusal folderRefusal = RefusalOf([&] { server.Network()->Load(folder.path().toStdString()); });
    QVERIFY2(folderRefusal.Names("Is a directory"), folderRefusal.text.c_str());
}

void NetworkFileTest::savingKeepsTheFileWhenItFails() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    const std::string path = Path("net.xml");
    server.Network()->Save(path);
    QFile file(QString::fromStdString(path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    const int filesBefore = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size();

    // As on a full disk: nothing can be written beyond ten bytes.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit normal = {};
    getrlimit(RLIMIT_FSIZE, &normal);
    rlimit full = normal;
    full.rlim_cur = 10;
    setrlimit(RLIMIT_FSIZE, &full);
    const Refusal refusal = RefusalOf([&] { server.Network()->Save(path); });
    setrlimit(RLIMIT_FSIZE, &normal);

    QVERIFY(refusal.refused);
    QVERIFY(refusal.Names(path));
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), filesBefore);

    const Refusal nowhere = RefusalOf([&] { server.Network()->Save(Path("no/such/folder.xml")); });
    QVERIFY(nowhere.Names("No such file or directory"));
}

void NetworkFileTest::savingKeepsThePermissions() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    const QString path = QString::fromStdString(Path("shared.xml"));
    server.Network()->Save(path.toStdString());
    const QFile::Permissions shared = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
    QVERIFY(QFile::setPermissions(path, shared));
    const QFile::Permissions before = QFileInfo(path).permissions();
    server.Network()->Save(path.toStdString());
    QCOMPARE(QFileInfo(path).permissions(), before);
}

void NetworkFileTest::nothingIsLoadedOrSavedWhileNotConnected() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->Disconnect();
    const auto notConnected = TavikLibrary::eTavikErrors::NetworkNotConnected;
    QVERIFY(RefusalOf([&] { server.Network()->Load(Write(Head + Tail)); }).Is(notConnected));
    QVERIFY(RefusalOf([&] { server.Network()->Save(Path("off.xml")); }).Is(notConnected));
    QVERIFY(!QFile::exists(QString::fromStdString(Path("off.xml"))));
}

void NetworkFileTest::nothingIsLoadedDuringANotifyRun() {
    Use(OneNetwork(Three));
    ConnectedServer server;
    server.Network()->BeginNotifying();
    const Refusal refusal = RefusalOf([&] { server.Network()->Load(Write(Head + Tail)); });
    QVERIFY(refusal.Is(TavikLibrary::eTavikErrors::NotifyRunning));
}

QTEST_GUILESS_MAIN(NetworkFileTest)
#include "NetworkFileTest.moc"
