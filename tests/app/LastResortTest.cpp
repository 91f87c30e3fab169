#include "panels/common/LastResort.h"

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

TAVIK_TEST_MAIN(LastResortTest)

#include "LastResortTest.moc"
