#include "panels/common/BlockingOperation.h"
#include "panels/common/MessageBoxes.h"
#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"

#include <stdexcept>
#include <thread>

namespace {

const QString title = QStringLiteral("Some Page");
const QString lastResort = QStringLiteral("Tavik Library Test");
const QString lost = QStringLiteral("Lost.");

[[noreturn]] void Lose() {
    throw std::runtime_error("Lost.");
}

} // namespace

/// Failures that pages show, and those that nothing but the top-level exception handler shows.
class ErrorBoxTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void runtimeErrorIsShownUnderThePagesTitle();
    void otherExceptionsGoToTheLastResort();
    void successShowsNothing();
    void textShownByAPageIsNotReportedAgain();
    void textIsReportedInALaterEvent();
    void textReportedWhileThePageShowsIt();
    void equalTextsThatWaitAreOne();
    void equalTextsOfSeveralThreadsAreOne();
    void boxWhoseParentIsDeleted();

private:
    /// Processes the events in which reports become boxes, and waits for this many boxes.
    void CompareBoxes(int count) {
        QVERIFY(WaitUntil([&] { return boxes.Count() >= count && QApplication::activeModalWidget() == nullptr; }));
        ProcessAllEvents();
        QCOMPARE(boxes.Count(), count);
    }
};

void ErrorBoxTest::runtimeErrorIsShownUnderThePagesTitle() {
    FakeHostWindow window;
    boxes.ExpectError(&window, title, QStringLiteral("Error: Lost."));
    QVERIFY(!ErrorBox(&window, title, QStringLiteral("Error: ")).Try(Lose));
    CompareBoxes(1);
}

void ErrorBoxTest::otherExceptionsGoToTheLastResort() {
    FakeHostWindow window;
    const ErrorBox errors(&window, title);
    boxes.ExpectError(&window, lastResort, QStringLiteral("Beyond."));
    boxes.ExpectError(&window, lastResort, QStringLiteral("An error of an unknown kind has occurred."));
    QVERIFY(!errors.Try([] { throw std::out_of_range("Beyond."); }));
    QVERIFY(!errors.Try([] { throw 1; }));
    CompareBoxes(2);
}

void ErrorBoxTest::successShowsNothing() {
    FakeHostWindow window;
    QVERIFY(ErrorBox(&window, title).Try([] {}));
    CompareBoxes(0);
}

void ErrorBoxTest::textShownByAPageIsNotReportedAgain() {
    FakeHostWindow window;
    boxes.ExpectError(&window, title, lost);
    // What the page does after its box fails in the same way.
    ErrorBox(&window, title).Try(Lose);
    LastResort::Run(Lose);
    LastResort::Run(Lose);
    CompareBoxes(1);
}

void ErrorBoxTest::textIsReportedInALaterEvent() {
    FakeHostWindow window;
    boxes.ExpectError(&window, title, lost);
    boxes.ExpectError(&window, lastResort, lost);
    ErrorBox(&window, title).Try(Lose);
    ProcessAllEvents();
    LastResort::Run(Lose);
    CompareBoxes(2);
}

void ErrorBoxTest::textReportedWhileThePageShowsIt() {
    FakeHostWindow window;
    BoxReply reply;
    reply.meanwhile = [](QDialog&) {
        LastResort::Report(lost);
        ProcessAllEvents();
    };
    boxes.ExpectError(&window, title, lost, reply);
    ErrorBox(&window, title).Try(Lose);
    CompareBoxes(1);
}

void ErrorBoxTest::equalTextsThatWaitAreOne() {
    FakeHostWindow window;
    BoxReply reply;
    reply.meanwhile = [](QDialog&) {
        LastResort::Report(lost);
        LastResort::Report(QStringLiteral("Other."));
    };
    boxes.ExpectError(&window, lastResort, lost, reply);
    boxes.ExpectError(&window, lastResort, QStringLiteral("Other."));
    for (int report = 0; report < 3; ++report) {
        LastResort::Report(lost);
    }
    CompareBoxes(2);
}

void ErrorBoxTest::equalTextsOfSeveralThreadsAreOne() {
    FakeHostWindow window;
    boxes.ExpectError(&window, lastResort, lost);
    std::thread first([] { LastResort::Report(lost); });
    std::thread second([] { LastResort::Report(lost); });
    first.join();
    second.join();
    LastResort::Report(lost);
    CompareBoxes(1);
}

void ErrorBoxTest::boxWhoseParentIsDeleted() {
    FakeHostWindow window;
    auto* page = new QWidget(&window);
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [page](QDialog&) { delete page; };
    boxes.ExpectError(page, title, lost, reply);
    ErrorBox(page, title).Try(Lose);
    CompareBoxes(1);
}

TAVIK_TEST_MAIN(ErrorBoxTest)
#include "ErrorBoxTest.moc"
