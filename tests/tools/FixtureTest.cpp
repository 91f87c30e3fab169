#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QProcess>

#include <cstring>

/// Played in a process of its own, because its functions fail.
class FailingTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void helperFails() {
        Check(false);
        qInfo("continued after the failed helper");
    }
    void openFails() {
        OpenModule(Benches::Two(), 99);
        qInfo("continued without a module");
    }
    void nextFunctionRuns() {
        QVERIFY(!IsOpen());
        qInfo("next function entered");
    }

private:
    static void Check(bool holds) { QVERIFY(holds); }
};

class FixtureTest : public QObject {
    Q_OBJECT

private slots:
    void failedHelperEndsTheTestFunction();
};

void FixtureTest::failedHelperEndsTheTestFunction() {
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--failing")});
    QVERIFY(program.waitForFinished(waitTimeoutMs));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    const QByteArray output = program.readAllStandardOutput();
    QVERIFY2(output.contains("FAIL!  : FailingTest::helperFails()"), output.constData());
    QVERIFY2(output.contains("FAIL!  : FailingTest::openFails()"), output.constData());
    QVERIFY2(!output.contains("continued"), output.constData());
    QVERIFY2(output.contains("next function entered"), output.constData());
    QVERIFY(program.exitCode() > 0);
}

int main(int argc, char* argv[]) {
    const Application application(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], "--failing") == 0) {
        GuardedTest<FailingTest> test;
        return QTest::qExec(&test);
    }
    GuardedTest<FixtureTest> test;
    return QTest::qExec(&test, argc, argv);
}

#include "FixtureTest.moc"
