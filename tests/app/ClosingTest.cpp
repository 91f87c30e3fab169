#include "app/Program.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"
#include "tools/driver/FailureLog.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QProcess>

using namespace TavikSimulator;

namespace {

/// The scenario that this process is to play as the program; empty in the test itself.
QString& Scenario() {
    static QString scenario;
    return scenario;
}

DialogResponder* answerer = nullptr;
bool refusalSeen = false;

MainWindow* ProgramWindow() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* widget : windows) {
        if (auto* window = qobject_cast<MainWindow*>(widget)) {
            return window;
        }
    }
    return nullptr;
}

void CloseWhen(const std::function<bool()>& condition) {
    When(qApp, condition, [] { ProgramWindow()->close(); });
}

bool ABoxIsOpen() {
    return QApplication::activeModalWidget() != nullptr;
}

void GoToFirstModule(WidgetDriver& driver) {
    driver.Click("btnConnectAll");
    driver.SelectPage("tabNetwork");
    driver.SelectRow("listModules", 0);
}

/// While a box is open the window manager, or a signal to the program, can still close the window.
void CloseUnderABox(WidgetDriver& driver, const char* operation, const char* page, const char* button) {
    FailNext(operation, QStringLiteral("Silence."));
    delete answerer;
    CloseWhen(ABoxIsOpen);
    driver.SelectPage(page);
    driver.Click(button);
}

void Play() {
    WidgetDriver driver(*ProgramWindow());
    if (Scenario() == QLatin1String("exit")) {
        driver.Trigger("menuFile", "actionE_xit");
        return;
    }
    GoToFirstModule(driver);
    if (Scenario() == QLatin1String("notify")) {
        CloseWhen([driver] { return driver.IsEnabled("btnStopNotify"); });
        driver.Click("btnNotify");
    } else if (Scenario() == QLatin1String("notify that cannot be cancelled")) {
        FailNext("CancelNotifying", QStringLiteral("Cannot cancel."));
        FailNext("DisconnectAll", QStringLiteral("Cannot disconnect."));
        CloseWhen([driver] { return driver.IsEnabled("btnStopNotify"); });
        driver.Click("btnNotify");
    } else if (Scenario() == QLatin1String("continuous")) {
        CloseWhen([driver] { return driver.IsEnabled("btnStopContinuous"); });
        driver.SelectPage("tabModule");
        driver.Click("btnStartContinuous");
    } else if (Scenario() == QLatin1String("input box")) {
        delete answerer;
        CloseWhen(ABoxIsOpen);
        driver.Click("btnAddModule");
    } else if (Scenario() == QLatin1String("error box")) {
        CloseUnderABox(driver, "Ping", "tabNetwork", "btnPing");
    } else if (Scenario() == QLatin1String("reading error box")) {
        CloseUnderABox(driver, "ReadInCounts", "tabModule", "btnStartContinuous");
    } else if (Scenario() == QLatin1String("last resort box")) {
        CloseUnderABox(driver, "UpdateStatus", "tabModule", "btnGetStatus");
    } else if (Scenario() == QLatin1String("nothing works")) {
        FailCall(1, 0x2101, "Nothing works.", true);
        CloseWhen([] { return true; });
    } else {
        FailureLog::Add(QStringLiteral("There is no scenario ") + Scenario());
    }
}

void StartPlaying() {
    if (Scenario().isEmpty()) {
        return;
    }
    answerer = new DialogResponder;
    answerer->setParent(qApp);
    if (Scenario() == QLatin1String("refused bench")) {
        BoxReply reply;
        reply.meanwhile = [](QDialog&) { refusalSeen = true; };
        answerer->ExpectError(nullptr, QStringLiteral("Tavik Library Test"),
                              QStringLiteral("The bench file \"no such bench.xml\" cannot be read: "
                                             "No such file or directory."),
                              reply);
    } else {
        answerer->Tolerate(true);
        QTimer::singleShot(100, qApp, Play);
    }
}

int PlayProgram(int argc, char* argv[]) {
    Scenario() = QString::fromLocal8Bit(argv[2]);
    if (Scenario() == QLatin1String("refused bench")) {
        qputenv("TAVIK_BENCH", "no such bench.xml");
    } else {
        // A notify run that does not end by itself.
        const QString bench =
            Benches::Two().replace(QStringLiteral("announces=\"1\""), QStringLiteral("announces=\"3600\""));
        UseBenchText(bench.toStdString(), "bench of the test");
    }
    const int code = RunProgram(argc, argv);
    if (code == 1 && !refusalSeen) {
        FailureLog::Add(QStringLiteral("The operator was not told why."));
    }
    const QStringList failures = FailureLog::Take();
    if (!failures.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(failures.join(QLatin1Char('\n'))));
        return 99;
    }
    return code;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(StartPlaying)

/// How the program ends.
class ClosingTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void everythingIsStoppedInOrder();
    void runningCollectionIsStopped();
    void stepThatFailsDoesNotKeepTheOthers_data();
    void stepThatFailsDoesNotKeepTheOthers();
    void secondCloseDoesNothing();
    void programEnds_data();
    void programEnds();
    void programWithoutALibrary();

private:
    QStringList Closed() {
        Calls::Mark();
        QElapsedTimer time;
        time.start();
        Window().close();
        if (time.elapsed() < 500) {
            FailureLog::Add(QStringLiteral("Running acquisitions were given no time to wind down."));
        }
        return Calls::Take();
    }
};

void ClosingTest::everythingIsStoppedInOrder() {
    OpenNetwork(Benches::Two());
    COMPARE_CALLS(Closed(), {QStringLiteral("server.Networks()"), QStringLiteral("networks.Count()"),
                             QStringLiteral("networks.Network(0)"), QStringLiteral("network Alpha.CancelNotifying()"),
                             QStringLiteral("networks.Network(0)"), QStringLiteral("network Alpha.Buffered()"),
                             QStringLiteral("buffered Alpha.Status()"), QStringLiteral("network Alpha.Difference()"),
                             QStringLiteral("difference Alpha.Stop()"), QStringLiteral("networks.Network(1)"),
                             QStringLiteral("network Beta.CancelNotifying()"), QStringLiteral("networks.Network(1)"),
                             QStringLiteral("network Beta.Buffered()"), QStringLiteral("buffered Beta.Status()"),
                             QStringLiteral("network Beta.Difference()"), QStringLiteral("difference Beta.Stop()"),
                             QStringLiteral("server.StopAllDynamic()"), QStringLiteral("server.Networks()"),
                             QStringLiteral("networks.DisconnectAll()")});
    QVERIFY(!Window().isVisible());
}

void ClosingTest::runningCollectionIsStopped() {
    OpenNetwork(Benches::Two());
    Fault running;
    running.object = "buffered Alpha";
    running.operation = "Status";
    running.effect = FaultEffect::Result;
    running.trigger = FaultTrigger::FromNth;
    running.code = 1;
    AddFault(running);
    QStringList calls = Closed();
    QCOMPARE(calls.count(QStringLiteral("buffered Alpha.Stop()")), 1);
    QCOMPARE(calls.count(QStringLiteral("buffered Beta.Stop()")), 0);
    const int stop = calls.indexOf(QStringLiteral("buffered Alpha.Stop()"));
    QVERIFY(stop > calls.indexOf(QStringLiteral("network Alpha.CancelNotifying()")));
    QVERIFY(stop < calls.indexOf(QStringLiteral("difference Alpha.Stop()")));
}

void ClosingTest::stepThatFailsDoesNotKeepTheOthers_data() {
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("operation");
    QTest::newRow("cancelling") << QByteArray("network Alpha") << QByteArray("CancelNotifying");
    QTest::newRow("buffered status") << QByteArray("buffered Alpha") << QByteArray("Status");
    QTest::newRow("difference stop") << QByteArray("difference Alpha") << QByteArray("Stop");
    QTest::newRow("dynamic stop") << QByteArray("server") << QByteArray("StopAllDynamic");
    QTest::newRow("counting") << QByteArray("networks") << QByteArray("Count");
}

void ClosingTest::stepThatFailsDoesNotKeepTheOthers() {
    QFETCH(QByteArray, object);
    QFETCH(QByteArray, operation);
    OpenNetwork(Benches::Two());
    FailNext(operation.constData(), QStringLiteral("Silence."), object.constData());
    const QStringList calls = Closed();
    if (operation != "Count") {
        QVERIFY(calls.contains(QStringLiteral("difference Alpha.Stop()")));
        QVERIFY(calls.contains(QStringLiteral("network Beta.CancelNotifying()")));
        QVERIFY(calls.contains(QStringLiteral("difference Beta.Stop()")));
    }
    QVERIFY(calls.contains(QStringLiteral("server.StopAllDynamic()")));
    QCOMPARE(calls.last(), QStringLiteral("networks.DisconnectAll()"));
    ProcessAllEvents();
    QCOMPARE(boxes.Count(), 0);
}

void ClosingTest::secondCloseDoesNothing() {
    OpenNetwork(Benches::Two());
    Closed();
    Window().close();
    COMPARE_CALLS(Calls::Take(), {});
}

void ClosingTest::programEnds_data() {
    QTest::addColumn<QString>("scenario");
    for (const char* name : {"exit", "notify", "notify that cannot be cancelled", "continuous", "input box",
                             "error box", "reading error box", "last resort box", "nothing works"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void ClosingTest::programEnds() {
    QFETCH(QString, scenario);
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--program"), scenario});
    QVERIFY(program.waitForFinished(60000));
    const QByteArray output = program.readAll();
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QVERIFY2(program.exitCode() == 0, output.constData());
    QVERIFY2(!output.contains("ERROR: ") && !output.contains("runtime error"), output.constData());
}

void ClosingTest::programWithoutALibrary() {
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--program"), QStringLiteral("refused bench")});
    QVERIFY(program.waitForFinished(60000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
}

/// "--program SCENARIO" makes this process the program itself, used as the scenario says.
int main(int argc, char* argv[]) {
    if (argc > 2 && qstrcmp(argv[1], "--program") == 0) {
        return PlayProgram(argc, argv);
    }
    const Application application(argc, argv);
    GuardedTest<ClosingTest> test;
    return QTest::qExec(&test, argc, argv);
}

#include "ClosingTest.moc"
