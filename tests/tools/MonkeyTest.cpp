#include "tools/monkey/Child.h"
#include "tools/monkey/Minimiser.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

Steps Numbered(int count) {
    Steps steps;
    for (int number = 0; number < count; ++number) {
        steps.push_back({{QStringLiteral("wait"), QString::number(number)}});
    }
    return steps;
}

bool Holds(const Steps& steps, int number) {
    return std::find(steps.begin(), steps.end(), Step{{QStringLiteral("wait"), QString::number(number)}}) !=
           steps.end();
}

struct Run {
    int exitCode = 0;
    QString output;
};

Run RunMonkey(const QStringList& arguments) {
    QProcess monkey;
    monkey.setProcessChannelMode(QProcess::MergedChannels);
    monkey.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("tavik-monkey")), arguments);
    monkey.waitForFinished(-1);
    return {monkey.exitStatus() == QProcess::NormalExit ? monkey.exitCode() : -1, QString::fromUtf8(monkey.readAll())};
}

/// The steps that a failed run names, without the bench.
QStringList StepsNamedIn(const QString& output) {
    QStringList steps;
    QRegularExpressionMatchIterator lines =
        QRegularExpression(QStringLiteral("^    (?!bench |#)(.*)$"), QRegularExpression::MultilineOption)
            .globalMatch(output);
    while (lines.hasNext()) {
        steps.append(lines.next().captured(1));
    }
    return steps;
}

const QStringList seededSteps = {QStringLiteral("click btnConnectAll"), QStringLiteral("tab qt_tabwidget_tabbar 1"),
                                 QStringLiteral("row listModules 0 0")};

QStringList WithSeededFault(const QStringList& arguments) {
    QStringList all = arguments;
    for (const QString& step : seededSteps) {
        all += {QStringLiteral("--seeded-fault"), step};
    }
    return all;
}

} // namespace

/// The monkey finds what is seeded, tells it in few steps, and does the same again for the same seed.
class MonkeyTest : public QObject {
    Q_OBJECT

private slots:
    void stepsSurviveBeingWritten();
    void minimisingFindsTheStepsThatMatter();
    void minimisingAFailureThatNeedsNoStep();
    void minimisingEndsWithTheTries();
    void endsOfRuns_data();
    void endsOfRuns();
    void seededFaultIsFoundAndMinimised();
    void seededCrashIsFoundAndMinimised();
    void sameSeedIsTheSameRun();
    void stepsThatDoNotFail();
    void fileThatNamesNoBench();
};

void MonkeyTest::stepsSurviveBeingWritten() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("steps"));
    const Steps steps = {{{QStringLiteral("click"), QStringLiteral("btnPing")}},
                         {{QStringLiteral("type"), QString()}},
                         {{QStringLiteral("answer"), QStringLiteral("yes"), QStringLiteral("<b>\"x\"\\n</b>\n y")}},
                         {{QStringLiteral("type"), QString::fromUtf8("\xc3\xa4 \xe2\x82\xac")}}};
    WriteSteps(file, steps);
    QVERIFY(ReadSteps(file) == steps);
    QCOMPARE(steps.front().ToText(), QStringLiteral("click btnPing"));
    QVERIFY_EXCEPTION_THROWN(ReadSteps(folder.filePath(QStringLiteral("none"))), std::runtime_error);
}

void MonkeyTest::minimisingFindsTheStepsThatMatter() {
    const auto fails = [](const Steps& steps) { return Holds(steps, 3) && Holds(steps, 41) && Holds(steps, 42); };
    QVERIFY(Minimise(Numbered(100), fails, 1000) == Steps({Numbered(4)[3], Numbered(42)[41], Numbered(43)[42]}));
}

void MonkeyTest::minimisingAFailureThatNeedsNoStep() {
    QVERIFY(Minimise(
                Numbered(10), [](const Steps&) { return true; }, 1000)
                .empty());
    QVERIFY(Minimise(
                {}, [](const Steps&) { return true; }, 1000)
                .empty());
}

void MonkeyTest::minimisingEndsWithTheTries() {
    int questions = 0;
    const Steps rest = Minimise(
        Numbered(64),
        [&questions](const Steps& steps) {
            ++questions;
            return Holds(steps, 7);
        },
        5);
    QCOMPARE(questions, 5);
    QVERIFY(Holds(rest, 7));
}

void MonkeyTest::endsOfRuns_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("crashed");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("kind");
    QTest::newRow("well") << QStringLiteral("100 events\n") << false << 0 << QString();
    QTest::newRow("failure") << QStringLiteral("Qt: 5\nfailure: Module 12 said \"no 5\".\nfailure: b\n") << false << 3
                             << QStringLiteral("failure: Module N said N.");
    QTest::newRow("sanitizer") << QStringLiteral("==7==ERROR: AddressSanitizer: heap-use-after-free on 0x1\n") << false
                               << 1 << QStringLiteral("ERROR: AddressSanitizer: heap-use-after-free");
    QTest::newRow("crash") << QStringLiteral("x\n") << true << 11 << QStringLiteral("crash");
    QTest::newRow("other end") << QString() << false << 4 << QStringLiteral("exit code 4");
}

void MonkeyTest::endsOfRuns() {
    QFETCH(QString, output);
    QFETCH(bool, crashed);
    QFETCH(int, exitCode);
    QFETCH(QString, kind);
    const Outcome outcome = OutcomeOf(output, crashed, exitCode);
    QCOMPARE(outcome.failed, !kind.isEmpty());
    QCOMPARE(outcome.kind, kind);
}

void MonkeyTest::seededFaultIsFoundAndMinimised() {
    const Run run = RunMonkey(WithSeededFault(
        {QStringLiteral("--seed"), QStringLiteral("3"), QStringLiteral("--events"), QStringLiteral("3000")}));
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.output.contains(QLatin1String("failure: Seeded fault reached.")), qPrintable(run.output));
    QVERIFY2(run.output.contains(QLatin1String("of seed 3")), qPrintable(run.output));
    QCOMPARE(StepsNamedIn(run.output), seededSteps);
    // The command that it names does the same again.
    const QString file = QRegularExpression(QStringLiteral("--replay (\\S+)")).match(run.output).captured(1);
    QCOMPARE(RunMonkey(WithSeededFault({QStringLiteral("--replay"), file})).exitCode, 3);
}

void MonkeyTest::seededCrashIsFoundAndMinimised() {
    const Run run =
        RunMonkey(WithSeededFault({QStringLiteral("--seed"), QStringLiteral("4"), QStringLiteral("--events"),
                                   QStringLiteral("3000"), QStringLiteral("--seeded-crash")}));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(StepsNamedIn(run.output), seededSteps);
}

void MonkeyTest::sameSeedIsTheSameRun() {
    const QStringList arguments = {QStringLiteral("--seed"), QStringLiteral("6"), QStringLiteral("--sessions"),
                                   QStringLiteral("6"), QStringLiteral("--digests")};
    const Run first = RunMonkey(arguments);
    QCOMPARE(first.exitCode, 0);
    QCOMPARE(first.output.count(QLatin1String("session ")), 6);
    QCOMPARE(RunMonkey(arguments).output, first.output);
}

void MonkeyTest::stepsThatDoNotFail() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("steps"));
    WriteSteps(file, {Step::FromText(QStringLiteral("bench small")), Step::FromText(seededSteps.first())});
    QCOMPARE(RunMonkey({QStringLiteral("--replay"), file}).exitCode, 0);
}

void MonkeyTest::fileThatNamesNoBench() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("steps"));
    WriteSteps(file, {Step::FromText(seededSteps.first())});
    QCOMPARE(RunMonkey({QStringLiteral("--replay"), file}).exitCode, 2);
}

QTEST_GUILESS_MAIN(MonkeyTest)

#include "MonkeyTest.moc"
