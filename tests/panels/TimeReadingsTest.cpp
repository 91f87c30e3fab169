#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QElapsedTimer>
#include <QStatusBar>

using namespace TavikSimulator;

namespace {

constexpr int timedMilliseconds = 5000;

} // namespace

/// Readings against the clock, over the five seconds that they really take.
class TimeReadingsTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void countsWholeReadingsPerSecond();
    void roundsDown();
    void failureEndsItWithoutARate();
    void statusBarSaysFirstWhatBlocks();
};

void TimeReadingsTest::countsWholeReadingsPerSecond() {
    OpenModule(Benches::Two(), 0);
    StopJournal();
    const std::uint64_t before = CallCount();
    boxes.Tolerate(true);
    QElapsedTimer time;
    time.start();
    QVERIFY(Operator().Click("btnTimeReadings"));
    QCOMPARE(boxes.Count(), 1);
    const qint64 elapsed = time.elapsed();
    const SeenBox box = boxes.Take().constFirst();
    const std::uint64_t reads = CallCount() - before;
    QCOMPARE(box.kind, BoxKind::Information);
    QCOMPARE(box.title, QStringLiteral("Reading Timer"));
    QCOMPARE(box.text, QString(QString::number(reads / 5) + QStringLiteral(" readings per second.")));
    QCOMPARE(box.parent, Operator().Find("moduleWidget"));
    QVERIFY(reads > 1000);
    QVERIFY(elapsed >= timedMilliseconds);
    QCOMPARE(Operator().Text("tbReading"), QString());
}

void TimeReadingsTest::roundsDown() {
    OpenModule(Benches::Two(), 0);
    UseRealClock();
    Fault slow;
    slow.operation = "ReadInCounts";
    slow.effect = FaultEffect::Slow;
    slow.trigger = FaultTrigger::FromNth;
    slow.delay = 0.43;
    AddFault(slow);
    QTimer duringTheRun;
    bool eventsWereProcessed = false;
    connect(&duringTheRun, &QTimer::timeout, this,
            [&] { eventsWereProcessed = eventsWereProcessed || QApplication::overrideCursor() != nullptr; });
    duringTheRun.start(100);
    boxes.ExpectInformation(Operator().Find("moduleWidget"), QStringLiteral("Reading Timer"),
                            QStringLiteral("2 readings per second."));
    QVERIFY(Operator().Click("btnTimeReadings"));
    QCOMPARE(Calls::TakeOperation("ReadInCounts").size(), 12);
    QVERIFY(!eventsWereProcessed);
}

void TimeReadingsTest::failureEndsItWithoutARate() {
    OpenModule(Benches::Two(), 0);
    FailCall(3, 0x2101, "Gone after two.");
    bool cursor = true;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) { cursor = QApplication::overrideCursor() != nullptr; };
    boxes.ExpectError(Operator().Find("moduleWidget"), QStringLiteral("Reading Error"),
                      QStringLiteral("Gone after two."), reply);
    QVERIFY(Operator().Click("btnTimeReadings"));
    QVERIFY(!cursor);
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(Operator().IsEnabled("btnRead"));
}

void TimeReadingsTest::statusBarSaysFirstWhatBlocks() {
    OpenModule(Benches::Two(), 0);
    FailNext("ReadInCounts", QStringLiteral("Gone."));
    QStringList shown;
    connect(Window().statusBar(), &QStatusBar::messageChanged, this, [&](const QString& text) {
        if (!text.isEmpty() && Calls::CountOf("ReadInCounts") == 0) {
            shown.append(text);
        }
    });
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) { QCOMPARE(Window().statusBar()->currentMessage(), QString()); };
    boxes.ExpectError(Operator().Find("moduleWidget"), QStringLiteral("Reading Error"), QStringLiteral("Gone."), reply);
    QVERIFY(Operator().Click("btnTimeReadings"));
    QCOMPARE(shown, QStringList{QStringLiteral("Counting readings for 5 s")});
}

TAVIK_TEST_MAIN(TimeReadingsTest)

#include "TimeReadingsTest.moc"
