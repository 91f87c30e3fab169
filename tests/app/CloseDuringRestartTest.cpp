#include "app/Program.h"
#include "panels/common/HostWindow.h"
#include "simulator/control/BenchControl.h"
#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/GuardedTest.h"
#include "tools/driver/WidgetDriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListWidget>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstring>

using namespace TavikSimulator;

namespace {

/// What the program says when it has taken everything down before it ends.
const char* const leftInOrder = "left in order";

/// How the program is to be run as its own child; none for the test itself.
QString scenario;

HostWindow* MainWindowOfTheProgram() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* host = qobject_cast<HostWindow*>(window)) {
            return host;
        }
    }
    return nullptr;
}

void AddRestartFault(FaultEffect effect, double delay) {
    Fault fault;
    fault.operation = "Restart";
    fault.effect = effect;
    fault.delay = delay;
    fault.text = "The restart failed.";
    AddFault(fault);
}

void SetRestart() {
    if (scenario == QLatin1String("fails-while-closing")) {
        AddRestartFault(FaultEffect::Slow, 1.0);
        AddRestartFault(FaultEffect::ThrowLibrary, 0.0);
    } else if (scenario == QLatin1String("fails-before")) {
        AddRestartFault(FaultEffect::ThrowPlain, 0.0);
    } else if (scenario == QLatin1String("never-ends")) {
        AddRestartFault(FaultEffect::Slow, 3600.0);
    } else {
        AddRestartFault(FaultEffect::Slow, 1.0);
    }
}

/// What the operator does: connects, chooses the module, applies the settings and closes the window.
void Operate() {
    HostWindow* window = MainWindowOfTheProgram();
    const WidgetDriver driver(*window);
    WidgetDriver(*window).Click("btnConnectAll");
    WidgetDriver(*window).SelectPage("tabNetwork");
    driver.The<QListWidget>("listModules")->setCurrentRow(0);
    WidgetDriver(*window).SelectPage("tabModule");
    SetRestart();
    // Said before the click, which does not come back while a box is open.
    When(
        window, [driver] { return driver.Find("lblWait")->isVisible(); },
        [window] { QTimer::singleShot(500, window, &QWidget::close); });
    WidgetDriver(*window).Click("btnApplySettings");
}

bool RestartedOnce() {
    int restarts = 0;
    for (const JournalEntry& entry : Journal()) {
        restarts += entry.operation == "Restart";
    }
    return restarts == 1;
}

int RunAsProgram(int argc, char* argv[]) {
    UseBenchText(WirelessBench::Usual().toStdString(), "bench of the test");
    SetLatency(false);
    StartJournal();
    const int exitCode = RunProgram(argc, argv);
    std::puts(leftInOrder);
    return RestartedOnce() ? exitCode : 3;
}

void Schedule() {
    if (!scenario.isEmpty()) {
        QTimer::singleShot(200, qApp, Operate);
    }
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Schedule)

/// The program is closed while a wireless connection module restarts.
class CloseDuringRestartTest : public QObject {
    Q_OBJECT

private slots:
    void endsCleanly_data();
    void endsCleanly();
};

void CloseDuringRestartTest::endsCleanly_data() {
    QTest::addColumn<int>("atLeastMilliseconds");
    QTest::addColumn<bool>("inOrder");
    QTest::newRow("succeeds-while-closing") << 1000 << true;
    QTest::newRow("fails-while-closing") << 1000 << true;
    QTest::newRow("fails-before") << 0 << true;
    QTest::newRow("never-ends") << 5000 << false;
}

void CloseDuringRestartTest::endsCleanly() {
    QFETCH(int, atLeastMilliseconds);
    QFETCH(bool, inOrder);
    QElapsedTimer sinceStart;
    sinceStart.start();
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--program"), QString::fromLatin1(QTest::currentDataTag())});
    QVERIFY2(program.waitForFinished(60000), qPrintable(program.errorString()));
    const QByteArray output = program.readAll();
    QVERIFY2(program.exitStatus() == QProcess::NormalExit, output.constData());
    QVERIFY2(program.exitCode() == 0, output.constData());
    QVERIFY2(!output.contains("Sanitizer"), output.constData());
    QVERIFY(sinceStart.elapsed() > atLeastMilliseconds);
    QCOMPARE(output.contains(leftInOrder), inOrder);
}

int main(int argc, char* argv[]) {
    if (argc == 3 && std::strcmp(argv[1], "--program") == 0) {
        scenario = QString::fromLocal8Bit(argv[2]);
        return RunAsProgram(1, argv);
    }
    const QApplication application(argc, argv);
    GuardedTest<CloseDuringRestartTest> test;
    return QTest::qExec(&test, argc, argv);
}

#include "CloseDuringRestartTest.moc"
