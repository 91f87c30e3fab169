#include "tools/tour/Tour.h"

#include "app/Application.h"
#include "tests/support/Calls.h"
#include "tests/support/ProgramTest.h"
#include "tools/hand/Complaints.h"

#include <QStatusBar>

using namespace TavikSimulator;

namespace {

/// The failures of the tour's calls are shared out among this many runs of the test, so that they can be
/// made side by side.
constexpr std::uint64_t parts = 4;
std::uint64_t part = 1;

/// The way that the failures are met on.
struct Course {
    TourBench (*bench)();
    std::vector<TourStep> (*steps)(const TourBench& bench);
};
const Course mainCourse{SmallTourBench, TourSteps};
const Course wirelessCourse{WirelessTourBench, WirelessTourSteps};
const Course modesCourse{ModesTourBench, ModesTourSteps};
Course course = mainCourse;

/// Closing a window takes half a second; after failures in earlier steps only every so many are closed.
constexpr std::uint64_t closedAfter = 16;

const char* const failureText = "Gauge <b>3</b> – größte Störung & mehr.";
constexpr int failureCode = 0x2101;

QString Now(const TourStep& step, std::uint64_t call) {
    return QStringLiteral("at \"%1\", call %2: ").arg(step.name).arg(call);
}

/// What is wrong with the state that every step must leave behind.
QStringList Disorder(Tour& tour) {
    QStringList wrong;
    if (QApplication::overrideCursor() != nullptr) {
        wrong.append(QStringLiteral("the cursor is still there"));
    }
    if (QApplication::activeModalWidget() != nullptr) {
        wrong.append(QStringLiteral("a box is still open"));
    }
    Hand hand = tour.Operator();
    for (const char* name : {"tableNetworks", "listModules", "btnConnectAll", "btnNotify", "btnSetSpeed", "btnRead",
                             "btnStartContinuous", "btnGetStatus", "gbReadIn"}) {
        if (!hand.Find(name)->isEnabledTo(&tour.Window())) {
            wrong.append(QStringLiteral("%1 is disabled").arg(QLatin1String(name)));
        }
    }
    for (const char* name : {"btnStopNotify", "btnStopContinuous"}) {
        if (hand.IsEnabled(name)) {
            wrong.append(QStringLiteral("%1 is enabled").arg(QLatin1String(name)));
        }
    }
    if (!tour.Window().statusBar()->currentMessage().isEmpty()) {
        wrong.append(QStringLiteral("the status bar still shows something"));
    }
    return wrong;
}

/// The critical boxes among those that the operator has seen.
QVector<SeenBox> Failures(const QVector<SeenBox>& boxes) {
    QVector<SeenBox> failures;
    for (const SeenBox& box : boxes) {
        if (box.kind == BoxKind::Critical) {
            failures.append(box);
        }
    }
    return failures;
}

} // namespace

/// The operator's whole way, and what becomes of it when any one call of the library fails.
class TourTest : public QObject {
    Q_OBJECT

private slots:
    void wholeTour_data();
    void wholeTour();
    void everyCallFailsOnce();
    void everyCallForAPanelFailsOnce_data();
    void everyCallForAPanelFailsOnce();
    void slowStepsFail();

private:
    /// Takes these steps with the k-th call failing (none for 0), on a window of its own. Returns what is wrong.
    QStringList RunWith(std::uint64_t k, const TourBench& bench, const std::vector<TourStep>& steps);
    QStringList FailAll(const TourBench& bench, const std::vector<TourStep>& steps, std::uint64_t from,
                        std::uint64_t every);
    QStringList RunStep(Tour& tour, const TourStep& step);
    /// Does one step with its k-th call failing.
    QStringList FailIn(Tour& tour, const TourStep& step, std::uint64_t k);
    QStringList JudgeFailure(Tour& tour, const TourStep& step);
    QStringList TryAgain(Tour& tour, const TourStep& step);
    QStringList OpenWindow(Tour& tour);
};

QStringList TourTest::OpenWindow(Tour& tour) {
    TourStep start;
    start.name = QStringLiteral("start");
    start.act = [](Tour& opening) {
        if (opening.HasWindow()) {
            opening.Operator().Click("btnConnectAll");
        } else {
            opening.OpenWindow();
        }
    };
    start.seen = [](Tour& opened) { return !opened.Cell(opened.bench.otherNetwork, 0).isEmpty(); };
    start.failure = [](const std::vector<JournalEntry>&) { return FailureBox(); };
    return RunStep(tour, start);
}

QStringList TourTest::RunStep(Tour& tour, const TourStep& step) {
    const std::uint64_t failuresBefore = FaultsTriggered();
    Calls::Mark();
    tour.boxes.Take();
    tour.boxes.Tolerate(true);
    step.act(tour);
    if (FaultsTriggered() > failuresBefore) {
        return JudgeFailure(tour, step);
    }
    QCoreApplication::processEvents();
    tour.boxes.Finish();
    QStringList wrong = Complaints::Take();
    if (!step.seen(tour)) {
        wrong.append(QStringLiteral("the operator does not see what he should"));
    }
    return step.closes ? wrong : wrong + Disorder(tour);
}

QStringList TourTest::JudgeFailure(Tour& tour, const TourStep& step) {
    std::vector<JournalEntry> calls = Calls::Entries();
    const std::uint64_t hit = LastFaultedCall().number;
    while (!calls.empty() && calls.back().number > hit) {
        calls.pop_back();
    }
    const FailureBox due = step.failure(calls);
    WaitUntil([&] { return !due.shown || !Failures(tour.boxes.Peek()).isEmpty(); }, 1000);
    WaitUntil([] { return QApplication::activeModalWidget() == nullptr; }, 1000);
    Settle();
    QStringList wrong;
    const QVector<SeenBox> shown = Failures(tour.boxes.Take());
    if (shown.size() != (due.shown ? 1 : 0)) {
        wrong.append(QStringLiteral("%1 boxes").arg(shown.size()));
    }
    for (const SeenBox& box : shown) {
        if (box.title != due.title || box.text != due.prefix + QString::fromUtf8(failureText) || box.markup ||
            box.buttons != QLatin1String("OK")) {
            wrong.append(QStringLiteral("the box is a %1").arg(ToText(box)));
        }
    }
    // What the operator would have done next in this step may have had no chance.
    tour.boxes.Finish();
    Complaints::Take();
    if (!step.closes) {
        wrong += Disorder(tour) + TryAgain(tour, step);
    }
    const QString call = QString::fromStdString(CallText(LastFaultedCall()));
    return wrong.isEmpty() ? wrong : QStringList{call + QStringLiteral(" fails: ") + wrong.join(QStringLiteral("; "))};
}

QStringList TourTest::TryAgain(Tour& tour, const TourStep& step) {
    tour.GoTo(step.place);
    if (!step.seen(tour)) {
        step.act(tour);
    }
    QCoreApplication::processEvents();
    tour.boxes.Finish();
    QStringList wrong = Complaints::Take();
    if (!step.seen(tour)) {
        wrong.append(QStringLiteral("trying again does not help"));
    }
    if (!Failures(tour.boxes.Take()).isEmpty()) {
        wrong.append(QStringLiteral("trying again shows boxes"));
    }
    return wrong;
}

QStringList TourTest::RunWith(std::uint64_t k, const TourBench& bench, const std::vector<TourStep>& steps) {
    QStringList wrong;
    {
        Tour tour(bench);
        tour.PrepareBench();
        if (k > 0) {
            FailCall(k, failureCode, failureText);
        }
        wrong += OpenWindow(tour);
        // Painting is no part of what can fail here, and takes most of the time.
        tour.Window().setUpdatesEnabled(k == 0);
        for (const TourStep& step : steps) {
            if (step.slow || (step.closes && FaultsTriggered() > 0 && k % closedAfter != 0)) {
                continue;
            }
            const QStringList wrongHere = RunStep(tour, step);
            if (!wrongHere.isEmpty()) {
                wrong.append(Now(step, k) + wrongHere.join(QStringLiteral("; ")));
            }
        }
        tour.DropWindow();
    }
    return wrong + Complaints::Take() + Leftovers();
}

void TourTest::wholeTour_data() {
    QTest::addColumn<bool>("small");
    QTest::newRow("small bench") << true;
    if (course.bench == mainCourse.bench) {
        QTest::newRow("default bench") << false;
    }
}

void TourTest::wholeTour() {
    QFETCH(bool, small);
    const QtMessages messages;
    Tour tour(small ? course.bench() : DefaultTourBench());
    tour.PrepareBench();
    QCOMPARE(OpenWindow(tour), QStringList());
    for (const TourStep& step : course.steps(tour.bench)) {
        if (!step.slow) {
            const QStringList wrong = RunStep(tour, step);
            QVERIFY2(wrong.isEmpty(), qPrintable(step.name + QStringLiteral(": ") + wrong.join(QStringLiteral("; "))));
        }
    }
    tour.DropWindow();
    QCOMPARE(Complaints::Take() + Leftovers(), QStringList());
}

/// Takes the steps once for each of their calls that is due, and lets that call fail.
QStringList TourTest::FailAll(const TourBench& bench, const std::vector<TourStep>& steps, std::uint64_t from,
                              std::uint64_t every) {
    QStringList wrong = RunWith(0, bench, steps);
    const std::uint64_t calls = CallCount();
    qInfo("The tour makes %llu calls.", static_cast<unsigned long long>(calls));
    // The first call makes the library's server: without it there is no window to see.
    for (std::uint64_t k = 2; k <= calls; ++k) {
        if (k % every != from % every) {
            continue;
        }
        wrong += RunWith(k, bench, steps);
        if (FaultsTriggered() != 1) {
            wrong.append(QStringLiteral("call %1 did not fail").arg(k));
        }
    }
    return wrong;
}

void TourTest::everyCallForAPanelFailsOnce_data() {
    QTest::addColumn<QString>("kind");
    std::uint64_t row = 0;
    for (const char* kind : {"QTA", "SWAX", "SWAX2", "BW", "BWR", "BWK", "HVX"}) {
        if (++row % parts == part % parts) {
            QTest::newRow(kind) << QString::fromLatin1(kind);
        }
    }
}

void TourTest::everyCallForAPanelFailsOnce() {
    QFETCH(QString, kind);
    const QtMessages messages;
    const TourBench bench = PanelTourBench(kind);
    const QStringList wrong = FailAll(bench, PanelTourSteps(bench), 0, 1);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

void TourTest::everyCallFailsOnce() {
    const QtMessages messages;
    const TourBench bench = course.bench();
    const QStringList wrong = FailAll(bench, course.steps(bench), part, parts);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

void TourTest::slowStepsFail() {
    const QtMessages messages;
    Tour tour(course.bench());
    tour.PrepareBench();
    QCOMPARE(OpenWindow(tour), QStringList());
    QStringList wrong;
    for (const TourStep& step : course.steps(tour.bench)) {
        const std::uint64_t before = CallCount();
        wrong += RunStep(tour, step);
        // A step that shows nothing but the time that it takes makes the same call over and over.
        const std::uint64_t failures = step.pictured ? CallCount() - before : 1;
        for (std::uint64_t k = 1; step.slow && k <= failures; ++k) {
            if (k % parts == part % parts) {
                wrong += FailIn(tour, step, k);
            }
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    tour.DropWindow();
    QCOMPARE(Complaints::Take() + Leftovers(), QStringList());
}

QStringList TourTest::FailIn(Tour& tour, const TourStep& step, std::uint64_t k) {
    const std::uint64_t failuresBefore = FaultsTriggered();
    tour.GoTo(step.place);
    FailCall(k, failureCode, failureText);
    QStringList wrong = RunStep(tour, step);
    if (FaultsTriggered() != failuresBefore + 1) {
        wrong.append(QStringLiteral("call %1 did not fail").arg(k));
    }
    return wrong;
}

/// "--wireless" or "--modes", and "--part N" before the arguments of every test choose the course and which of its
/// failures are made.
int main(int argc, char* argv[]) {
    const Application application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--wireless")) {
        course = wirelessCourse;
        arguments.removeAt(1);
    } else if (arguments.value(1) == QLatin1String("--modes")) {
        course = modesCourse;
        arguments.removeAt(1);
    }
    if (arguments.value(1) == QLatin1String("--part")) {
        part = arguments.value(2).toULongLong();
        arguments.erase(arguments.begin() + 1, arguments.begin() + 3);
    }
    TourTest test;
    return QTest::qExec(&test, arguments);
}

#include "TourTest.moc"
