#include "panels/common/LastResort.h"

#include "panels/common/MessageBoxes.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <stdexcept>
#include <thread>

namespace {

const QString title = QStringLiteral("Tavik Library Test");

} // namespace

/// What becomes of a failure that nobody has an answer to.
class LastResortTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void exceptionInAnEventIsShown();
    void exceptionOfAnUnknownKind();
    void severalFailuresComeOneAfterAnother();
    void failureWhileABoxIsOpenWaits();
    void reportFromAnotherThread();
    void nothingIsShownWhileTheWindowCloses();
    void nothingIsShownAfterTheWindowHasGone();
    void equalTextsAreShownOnce();
    void textOfAPageIsNotShownAgain();
    void pulledCableDuringReadingShowsOneBox();
    void anyExceptionEndsARun();

private:
    void ExpectBox(const QString& text) { boxes.ExpectError(&Window(), title, text); }
    void WaitForBoxes(int count) {
        QTRY_COMPARE(boxes.Count(), count);
        QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    }
};

void LastResortTest::exceptionInAnEventIsShown() {
    Open(Benches::Two());
    ExpectBox(QStringLiteral("Größer <b>als</b> gedacht."));
    QTimer::singleShot(0, this, [] { throw std::runtime_error("Größer <b>als</b> gedacht."); });
    WaitForBoxes(1);
    QVERIFY(Operator().Click("btnConnectAll"));
}

void LastResortTest::exceptionOfAnUnknownKind() {
    Open(Benches::Two());
    ExpectBox(QStringLiteral("An error of an unknown kind has occurred."));
    QTimer::singleShot(0, this, [] { throw 1; });
    WaitForBoxes(1);
}

void LastResortTest::severalFailuresComeOneAfterAnother() {
    Open(Benches::Two());
    for (const QString& text : {QStringLiteral("First."), QStringLiteral("Second."), QStringLiteral("Third.")}) {
        ExpectBox(text);
        LastResort::Report(text);
    }
    WaitForBoxes(3);
}

void LastResortTest::failureWhileABoxIsOpenWaits() {
    Open(Benches::Two());
    BoxReply reply;
    reply.meanwhile = [](QDialog& box) {
        LastResort::Report(QStringLiteral("Second."));
        ProcessAllEvents();
        QCOMPARE(QApplication::activeModalWidget(), &box);
    };
    boxes.ExpectError(&Window(), title, QStringLiteral("First."), reply);
    ExpectBox(QStringLiteral("Second."));
    LastResort::Report(QStringLiteral("First."));
    WaitForBoxes(2);
}

void LastResortTest::reportFromAnotherThread() {
    Open(Benches::Two());
    ExpectBox(QStringLiteral("From afar."));
    std::thread([] { LastResort::Report(QStringLiteral("From afar.")); }).join();
    WaitForBoxes(1);
}

void LastResortTest::nothingIsShownWhileTheWindowCloses() {
    Open(Benches::Two());
    LastResort::Report(QStringLiteral("Too late."));
    Window().close();
    ProcessAllEvents();
    QCOMPARE(boxes.Count(), 0);
}

void LastResortTest::nothingIsShownAfterTheWindowHasGone() {
    Open(Benches::Two());
    Window().close();
    LastResort::Report(QStringLiteral("Too late."));
    Drop();
    QCOMPARE(boxes.Count(), 0);
}

void LastResortTest::equalTextsAreShownOnce() {
    Open(Benches::Two());
    BoxReply reply;
    reply.meanwhile = [](QDialog&) {
        LastResort::Report(QStringLiteral("Silence."));
        ProcessAllEvents();
    };
    boxes.ExpectError(&Window(), title, QStringLiteral("Silence."), reply);
    for (int time = 0; time < 3; ++time) {
        LastResort::Report(QStringLiteral("Silence."));
    }
    WaitForBoxes(1);
    ProcessAllEvents();
    QCOMPARE(boxes.Count(), 1);
    // A later failure is told, though its text is the same.
    ExpectBox(QStringLiteral("Silence."));
    LastResort::Report(QStringLiteral("Silence."));
    WaitForBoxes(2);
}

void LastResortTest::textOfAPageIsNotShownAgain() {
    Open(Benches::Two());
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), QStringLiteral("Silence."));
    ErrorBox(&Window(), QStringLiteral("Error!")).Try([] { throw std::runtime_error("Silence."); });
    LastResort::Report(QStringLiteral("Silence."));
    ProcessAllEvents();
    WaitForBoxes(1);
}

void LastResortTest::pulledCableDuringReadingShowsOneBox() {
    OpenModule(Benches::Two(), 0);
    boxes.Tolerate(true);
    When(
        this, [this] { return Calls::CountOf("ReadInCounts") > 1; },
        [] { TavikSimulator::SetNetworkPresent("Alpha", false); });
    When(
        this, [this] { return boxes.Count() > 0 && QApplication::activeModalWidget() == nullptr; },
        [this] {
            if (Operator().IsEnabled("btnStopContinuous")) {
                QVERIFY(Operator().Click("btnStopContinuous"));
            }
        });
    QVERIFY(Operator().Click("btnStartContinuous"));
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    for (int turn = 0; turn < 20; ++turn) {
        ProcessAllEvents();
        QTest::qWait(1);
    }
    QStringList texts;
    const QVector<SeenBox> seen = boxes.Take();
    for (const SeenBox& box : seen) {
        texts.append(box.text);
    }
    QVERIFY(!texts.isEmpty());
    QVERIFY2(texts.removeDuplicates() == 0, qPrintable(texts.join(QLatin1Char('|'))));
    QCOMPARE(texts.size(), 1);
}

/// Of whatever type an exception is, the steps after the one that threw it are made.
void LastResortTest::anyExceptionEndsARun() {
    Open(Benches::Two());
    ExpectBox(QStringLiteral("An error of an unknown kind has occurred."));
    QVERIFY(!LastResort::Run([] { throw 1; }));
    QVERIFY(!ErrorBox(&Window(), QStringLiteral("Error!")).Try([] { throw 1; }));
    WaitForBoxes(1);
    ExpectBox(QStringLiteral("Beyond the list."));
    QVERIFY(!ErrorBox(&Window(), QStringLiteral("Error!")).Try([] { throw std::out_of_range("Beyond the list."); }));
    WaitForBoxes(2);
}

TAVIK_TEST_MAIN(LastResortTest)

#include "LastResortTest.moc"
