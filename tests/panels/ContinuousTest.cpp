#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>

using namespace TavikSimulator;

namespace {

const QString readingError = QStringLiteral("Reading Error");

} // namespace

/// Continuous reading.
class ContinuousTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void readsUntilStopped();
    void onePassTakesATenthOfASecond();
    void stopEndsTheWaitAtOnce();
    void controlsWhileReading();
    void statusBarWhileReading();
    void startWhileReadingDoesNothing();
    void failingPassKeepsTheReading();
    void failingStatusEndsTheReading();
    void failureInsideThePanelsBoxStillEndsIt();
    void followsTheChoiceOfUnits();
    void newModuleEndsTheReading();
    void moduleThatLeavesAndComesBack();
    void windowThatClosesEndsTheReading();

private:
    /// Starts reading; once so many passes are complete, something happens while it goes on.
    void Start(int passes, const std::function<void()>& then) {
        bool happened = false;
        const auto watch = Repeatedly([&] {
            if (!happened && Calls::CountOf("ErrorString") >= passes) {
                happened = true;
                then();
            }
        });
        Calls::Mark();
        QVERIFY(Operator().Click("btnStartContinuous"));
        QVERIFY(happened);
    }
    void Stop() { QVERIFY(Operator().Click("btnStopContinuous")); }
    QString Activity() { return Window().statusBar()->currentMessage(); }
    void CompareIdle() {
        for (const char* name : {"gbReadIn", "btnRead", "btnStartContinuous", "btnTimeReadings", "btnGetStatus",
                                 "btnSetResolution", "btnSetAveraging", "tableNetworks", "listModules", "btnNotify"}) {
            QVERIFY2(Operator().Find(name)->isEnabled(), name);
        }
        QVERIFY(!Operator().IsEnabled("btnStopContinuous"));
        QVERIFY(!Activity().startsWith(QLatin1String("Reading")));
    }
};

void ContinuousTest::readsUntilStopped() {
    // Without pages of modes, which ask on their own behalf when the controls come back.
    OpenModule(Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" capabilities=\"\"/>"),
                             QStringLiteral("capabilities=\"\"")),
               0);
    Start(2, [this] { Stop(); });
    CompareIdle();
    const QString module = QStringLiteral("module KX00000001.");
    const QString status = QStringLiteral("status KX00000001.");
    const QStringList pass = {module + QStringLiteral("ReadInCounts()"), module + QStringLiteral("ModuleType()"),
                              module + QStringLiteral("Status()"),       status + QStringLiteral("UpdateStatus()"),
                              status + QStringLiteral("Status()"),       status + QStringLiteral("ErrorCode()"),
                              status + QStringLiteral("ErrorString()")};
    COMPARE_CALLS(Calls::Take(), pass + pass);
    QVERIFY(!Operator().Text("tbReading").isEmpty());
}

void ContinuousTest::onePassTakesATenthOfASecond() {
    OpenModule(Benches::Two(), 0);
    QElapsedTimer time;
    time.start();
    Start(8, [this] { Stop(); });
    const qint64 reads = Calls::TakeOperation("ReadInCounts").size();
    // A machine with other things to do may take longer over a pass, but never less than the wait.
    QCOMPARE(reads, qint64(8));
    QVERIFY2(time.elapsed() >= 700, qPrintable(QString::number(time.elapsed())));
}

void ContinuousTest::stopEndsTheWaitAtOnce() {
    OpenModule(Benches::Two(), 0);
    // What is left of the wait would have time for this.
    auto* part = new QTimer(this);
    part->setSingleShot(true);
    const auto atOnce = std::make_shared<bool>(false);
    connect(Window().statusBar(), &QStatusBar::messageChanged, this,
            [part, atOnce](const QString& text) { *atOnce = *atOnce || (text.isEmpty() && part->isActive()); });
    Start(2, [&] {
        QVERIFY(QMetaObject::invokeMethod(Operator().Find("moduleWidget"), "on_btnStopContinuous_clicked"));
        part->start(20);
    });
    QVERIFY(*atOnce);
    QCOMPARE(Calls::TakeOperation("ReadInCounts").size(), 2);
}

void ContinuousTest::controlsWhileReading() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(!Operator().IsEnabled("btnStopContinuous"));
    Start(1, [this] {
        QVERIFY(Operator().IsEnabled("btnStopContinuous"));
        for (const char* name : {"gbReadIn", "btnRead", "btnStartContinuous", "btnTimeReadings", "btnGetStatus",
                                 "btnSetResolution", "btnSetAveraging", "tableNetworks", "listModules", "btnNotify"}) {
            QVERIFY2(!Operator().IsEnabled(name), name);
        }
        QVERIFY(!Operator().IsEnabled("btnStopNotify"));
        Stop();
    });
    CompareIdle();
}

void ContinuousTest::statusBarWhileReading() {
    OpenModule(Benches::Two(), 0);
    const QSignalSpy messages(Window().statusBar(), &QStatusBar::messageChanged);
    Start(3, [this] { Stop(); });
    QStringList seen;
    for (const QList<QVariant>& message : messages) {
        seen.append(message.constFirst().toString());
    }
    const QRegularExpression pattern(
        QStringLiteral("^Reading continuously: 2 passes, ([0-9]+\\.[0-9]) readings per second$"));
    const QStringList matching = seen.filter(pattern);
    QCOMPARE(matching.size(), 1);
    const double rate = pattern.match(matching.first()).captured(1).toDouble();
    QVERIFY(rate > 0.0 && rate <= 10.0);
    CompareIdle();
}

void ContinuousTest::startWhileReadingDoesNothing() {
    OpenModule(Benches::Two(), 0);
    Start(1, [this] {
        QVERIFY(QMetaObject::invokeMethod(Operator().Find("moduleWidget"), "on_btnStartContinuous_clicked"));
        QVERIFY(Operator().IsEnabled("btnStopContinuous"));
        Stop();
    });
    QCOMPARE(Calls::TakeOperation("ReadInCounts").size(), 1);
    CompareIdle();
}

void ContinuousTest::failingPassKeepsTheReading() {
    OpenModule(Benches::Two(), 0);
    HoldPosition("Alpha", "KX00000001", 1.0);
    FailCall(8, 0x2101, "Lost – <b>gone</b>.");
    QString reading;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) {
        reading = Operator().Text("tbReading");
        QVERIFY(QApplication::overrideCursor() == nullptr);
    };
    boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("Lost – <b>gone</b>."), reply);
    QVERIFY(Operator().Click("btnStartContinuous"));
    QVERIFY(!reading.isEmpty());
    QCOMPARE(Operator().Text("tbReading"), reading);
    QCOMPARE(boxes.Count(), 1);
    CompareIdle();
}

void ContinuousTest::failingStatusEndsTheReading() {
    OpenModule(Benches::Two(), 0);
    FailNext("UpdateStatus", QStringLiteral("No status."));
    boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("No status."));
    QVERIFY(Operator().Click("btnStartContinuous"));
    QVERIFY(!Operator().Text("tbReading").isEmpty());
    CompareIdle();
}

void ContinuousTest::failureInsideThePanelsBoxStillEndsIt() {
    OpenModule(Benches::Two(), 0);
    FailNext("ReadInCounts", QStringLiteral("First."));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) {
        QVERIFY(QMetaObject::invokeMethod(Operator().Find("moduleWidget"), "on_btnStopContinuous_clicked"));
    };
    boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("First."), reply);
    QVERIFY(Operator().Click("btnStartContinuous"));
    CompareIdle();
    Start(1, [this] { Stop(); });
    CompareIdle();
}

void ContinuousTest::followsTheChoiceOfUnits() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().Click("radioUnits"));
    Start(1, [this] { Stop(); });
    QVERIFY(Operator().Text("tbReading").endsWith(QStringLiteral(" mm")));
    QCOMPARE(Calls::TakeOperation("ReadInUnits").size(), 1);
}

void ContinuousTest::newModuleEndsTheReading() {
    OpenModule(Benches::Two(), 0);
    Start(1, [this] { Operator().The<QListWidget>("listModules")->setCurrentRow(1); });
    CompareIdle();
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
}

void ContinuousTest::moduleThatLeavesAndComesBack() {
    OpenModule(Benches::Two(), 0);
    boxes.Tolerate(true);
    Start(1, [] { SetModulePresent("Alpha", "KX00000001", false); });
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(boxes.Take().constFirst().title, readingError);
    CompareIdle();
    SetModulePresent("Alpha", "KX00000001", true);
    Start(1, [this] { Stop(); });
    QCOMPARE(boxes.Count(), 0);
}

void ContinuousTest::windowThatClosesEndsTheReading() {
    OpenModule(Benches::Two(), 0);
    Start(1, [this] { Window().close(); });
    QVERIFY(!Window().isVisible());
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.count(QStringLiteral("module KX00000001.ReadInCounts()")), 1);
    QCOMPARE(calls.last(), QStringLiteral("networks.DisconnectAll()"));
}

TAVIK_TEST_MAIN(ContinuousTest)

#include "ContinuousTest.moc"
