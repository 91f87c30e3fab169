#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QStatusBar>
#include <QTemporaryDir>

/// Saving a network's description to a file and loading it back.
class NetworkFilesTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void saveNames_data();
    void saveNames();
    void saveCancelled();
    void saveThatFails();
    void savedNetworkIsLoaded();
    void loadCancelled();
    void loadThatFails();
    void namesAreUtf8();
    void existingFileIsReplacedOnlyWhenConfirmed_data();
    void existingFileIsReplacedOnlyWhenConfirmed();
    void outcomeIsShown();
    void fileChosenWhileTheWindowClosesIsNotUsed();

private:
    void Save(const QString& name, bool accept = true) {
        Choose(BoxKind::SaveFile, QStringLiteral("Save Tavik XML"), name, accept);
        QVERIFY(Operator().Click("btnSaveXML"));
    }
    void Load(const QString& name, bool accept = true) {
        Choose(BoxKind::OpenFile, QStringLiteral("Open Tavik XML"), name, accept);
        QVERIFY(Operator().Click("btnLoadXML"));
    }
    void Choose(BoxKind kind, const QString& title, const QString& name, bool accept) {
        BoxReply reply;
        reply.accept = accept;
        reply.typed = name;
        boxes.ExpectFile(kind, &Window(), title, QStringLiteral("Tavik XML files (*.xml)"), reply);
    }
    QString Path(const QString& name) const { return folder.filePath(name); }
    static bool Refreshed(const QStringList& calls) {
        return calls.contains(QStringLiteral("network Alpha.AvailableSpeeds()"));
    }

    QTemporaryDir folder;
};

void NetworkFilesTest::saveNames_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::newRow("as it is") << QStringLiteral("a.xml") << QStringLiteral("a.xml");
    QTest::newRow("without an ending") << QStringLiteral("b") << QStringLiteral("b.xml");
    QTest::newRow("in capitals") << QStringLiteral("net.XML") << QStringLiteral("net.XML.xml");
}

void NetworkFilesTest::saveNames() {
    QFETCH(QString, typed);
    QFETCH(QString, file);
    OpenNetwork(Benches::Two());
    Calls::Take();
    Save(Path(typed));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.Save(\"%1\")").arg(Path(file)));
    QVERIFY(Refreshed(calls));
    QVERIFY(QFile::exists(Path(file)));
}

void NetworkFilesTest::saveCancelled() {
    OpenNetwork(Benches::Two());
    Calls::Take();
    Save(Path(QStringLiteral("never.xml")), false);
    QCOMPARE(Calls::Take(), QStringList());
    QVERIFY(!QFile::exists(Path(QStringLiteral("never.xml"))));
}

void NetworkFilesTest::saveThatFails() {
    OpenNetwork(Benches::Two());
    FailNext("Save", QStringLiteral("The disk is full."));
    boxes.Take();
    Calls::Take();
    Choose(BoxKind::SaveFile, QStringLiteral("Save Tavik XML"), Path(QStringLiteral("c.xml")), true);
    boxes.ExpectError(&Window(), QStringLiteral("Error Saving File"), QStringLiteral("Error: The disk is full."));
    QVERIFY(Operator().Click("btnSaveXML"));
    QVERIFY(Refreshed(Calls::Take()));
}

void NetworkFilesTest::savedNetworkIsLoaded() {
    OpenNetwork(Benches::Two());
    const QStringList before = Rows("listModules");
    const QString file = Path(QStringLiteral("net.xml"));
    Save(file);
    QVERIFY(Operator().SelectRow("listModules", 1));
    QVERIFY(Operator().Click("btnDeleteModule"));
    QVERIFY(Rows("listModules") != before);
    Calls::Take();
    Load(file);
    QCOMPARE(Rows("listModules"), before);
    QCOMPARE(Calls::Take().constFirst(), QStringLiteral("network Alpha.Load(\"%1\")").arg(file));
}

void NetworkFilesTest::loadCancelled() {
    OpenNetwork(Benches::Two());
    Calls::Take();
    Load(QString(), false);
    QCOMPARE(Calls::Take(), QStringList());
}

void NetworkFilesTest::loadThatFails() {
    OpenNetwork(Benches::Two());
    const QStringList before = Rows("listModules");
    const QString name = Path(QStringLiteral("broken.xml"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<tavik-network format=\"1\" name=\"Beta\" speed=\"high\"/>");
    file.close();
    Choose(BoxKind::OpenFile, QStringLiteral("Open Tavik XML"), name, true);
    boxes.ExpectError(&Window(), QStringLiteral("Error Loading File"),
                      QStringLiteral("Error: %1, line 1: It describes the network \"Beta\", not \"Alpha\".").arg(name));
    Calls::Take();
    QVERIFY(Operator().Click("btnLoadXML"));
    QVERIFY(Refreshed(Calls::Take()));
    QCOMPARE(Rows("listModules"), before);
}

void NetworkFilesTest::namesAreUtf8() {
    OpenNetwork(Benches::Two());
    const QString file = Path(QStringLiteral("Meßplatz 7 µm.xml"));
    Save(file);
    QVERIFY(QFile::exists(file));
}

void NetworkFilesTest::existingFileIsReplacedOnlyWhenConfirmed_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("confirmed");
    for (const bool confirmed : {false, true}) {
        const char* answer = confirmed ? "Yes" : "No";
        QTest::addRow("a.xml, %s", answer) << QStringLiteral("a.xml") << QStringLiteral("a.xml") << confirmed;
        QTest::addRow("b, %s", answer) << QStringLiteral("b") << QStringLiteral("b.xml") << confirmed;
        QTest::addRow("c.XML, %s", answer) << QStringLiteral("c.XML") << QStringLiteral("c.XML.xml") << confirmed;
    }
}

/// The question names the file that is written, not the name that was typed.
void NetworkFilesTest::existingFileIsReplacedOnlyWhenConfirmed() {
    QFETCH(QString, typed);
    QFETCH(QString, file);
    QFETCH(bool, confirmed);
    OpenNetwork(Benches::Two());
    QFile existing(Path(file));
    QVERIFY(existing.open(QIODevice::WriteOnly | QIODevice::Truncate));
    existing.write("kept");
    existing.close();
    BoxReply name;
    name.leave = true;
    name.meanwhile = [this, typed](QDialog& box) {
        // Not typed: the list of names that begin like this would take the click for itself.
        box.findChild<QLineEdit*>()->setText(Path(typed));
        QMetaObject::invokeMethod(&box, "accept", Qt::QueuedConnection);
    };
    boxes.ExpectFile(BoxKind::SaveFile, &Window(), QStringLiteral("Save Tavik XML"),
                     QStringLiteral("Tavik XML files (*.xml)"), name);
    BoxReply reply;
    reply.accept = confirmed;
    boxes.ExpectQuestion(&Window(), QStringLiteral("Save Tavik XML"),
                         Path(file) + QStringLiteral(" already exists.\nDo you want to replace it?"), reply);
    Calls::Take();
    QVERIFY(Operator().Click("btnSaveXML"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.contains(QStringLiteral("network Alpha.Save(\"%1\")").arg(Path(file))), confirmed);
    QCOMPARE(calls.isEmpty(), !confirmed);
    QVERIFY(existing.open(QIODevice::ReadOnly));
    QCOMPARE(existing.readAll() == "kept", !confirmed);
}

void NetworkFilesTest::outcomeIsShown() {
    OpenNetwork(Benches::Two());
    const QString file = Path(QStringLiteral("outcome %1.xml"));
    Save(file);
    QCOMPARE(Window().statusBar()->currentMessage(), QString(QStringLiteral("Saved: ") + file));
    Load(file);
    QCOMPARE(Window().statusBar()->currentMessage(), QString(QStringLiteral("Loaded: ") + file));
}

void NetworkFilesTest::fileChosenWhileTheWindowClosesIsNotUsed() {
    OpenNetwork(Benches::Two());
    BoxReply reply;
    reply.typed = Path(QStringLiteral("late.xml"));
    reply.meanwhile = [this](QDialog&) {
        Window().close();
        Calls::Mark();
    };
    boxes.ExpectFile(BoxKind::SaveFile, &Window(), QStringLiteral("Save Tavik XML"),
                     QStringLiteral("Tavik XML files (*.xml)"), reply);
    QVERIFY(Operator().Click("btnSaveXML"));
    COMPARE_CALLS(Calls::Take(), {});
}

TAVIK_TEST_MAIN(NetworkFilesTest)
#include "NetworkFilesTest.moc"
