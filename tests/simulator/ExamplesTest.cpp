#include "tests/simulator/Bench.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

/// The examples in the documents about the simulated bench do what the documents say.
class ExamplesTest : public QObject {
    Q_OBJECT

private slots:
    void benchFilesAreTaken_data() { AddExamples(QStringLiteral("module")); }
    void benchFilesAreTaken();
    void networkFilesAreTaken_data() { AddExamples(QStringLiteral("tavik-network")); }
    void networkFilesAreTaken();

private:
    /// The XML examples whose outermost element has this name.
    static void AddExamples(const QString& element);
};

void ExamplesTest::AddExamples(const QString& element) {
    QTest::addColumn<QByteArray>("example");
    const QRegularExpression block(QStringLiteral("```xml\\n(.*?)```"), QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression beginning(QStringLiteral("^(<\\?xml[^>]*>\\s*)?<%1[\\s>]").arg(element));
    const QDir documents(QStringLiteral(TAVIK_DOCUMENTS));
    const QStringList names = documents.entryList({QStringLiteral("simulator*.md")});
    for (const QString& name : names) {
        QFile file(documents.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        auto examples = block.globalMatch(QString::fromUtf8(file.readAll()));
        for (int number = 1; examples.hasNext(); ++number) {
            const QString example = examples.next().captured(1).trimmed();
            if (beginning.match(example).hasMatch()) {
                QTest::addRow("%s, example %d", qPrintable(name), number) << example.toUtf8();
            }
        }
    }
}

void ExamplesTest::benchFilesAreTaken() {
    QFETCH(QByteArray, example);
    Use(OneNetwork(example.toStdString()));
    ConnectedServer server;
    QCOMPARE(server.Network()->ModuleCount(), 1);
    QVERIFY(example.contains(QByteArray::fromStdString(server.Module(0)->Identity())));
}

void ExamplesTest::networkFilesAreTaken() {
    QFETCH(QByteArray, example);
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("network.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(example);
    file.close();
    server.Network()->Load(file.fileName().toStdString());
    QCOMPARE(server.Network()->ModuleCount(), example.count("<module "));
}

QTEST_GUILESS_MAIN(ExamplesTest)
#include "ExamplesTest.moc"
