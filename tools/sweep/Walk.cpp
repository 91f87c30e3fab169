#include "tools/sweep/Walk.h"

#include "tests/support/ProgramFixture.h"
#include "tools/driver/FailureLog.h"
#include "tools/sweep/Judge.h"

#include <QStatusBar>

#include <algorithm>

using namespace TavikSimulator;

namespace {

constexpr double slowSeconds = 3.0;

/// So many boxes one after another, and whoever runs the library has seen to it that it works again. What can only be
/// ended by the library would otherwise never end.
constexpr int boxesUntilRepaired = 10;

void Arm(const FailureInStep& failure) {
    Fault fault;
    fault.trigger = FaultTrigger::Nth;
    fault.n = failure.inStep;
    fault.code = failureCode;
    switch (failure.variant) {
    case Variant::Once:
    case Variant::On:
        FailCall(failure.inStep, failureCode, failureText, failure.variant == Variant::On);
        return;
    case Variant::OncePlainly:
    case Variant::OnPlainly:
        FailCallPlainly(failure.inStep, failureText, failure.variant == Variant::OnPlainly);
        return;
    case Variant::Slow:
        fault.effect = FaultEffect::Slow;
        fault.delay = slowSeconds;
        break;
    case Variant::Code:
        fault.effect = FaultEffect::Result;
        fault.n = failure.coded;
        break;
    }
    AddFault(fault);
}

/// What could not be stopped while the library failed still runs, with the controls disabled but for what stops it.
void StopWhatStillRuns(Tour& tour) {
    WidgetDriver driver = tour.Operator();
    const QWidget* modules = driver.Find("listModules");
    for (const char* stop : {"btnStopNotify", "btnStopContinuous", "btnStopDiff", "btnStop"}) {
        const QWidget* button = driver.Find(stop);
        if (!modules->isEnabledTo(&tour.Window()) && button->isVisible() && button->isEnabled()) {
            driver.Click(stop);
            WaitUntil([&] { return modules->isEnabledTo(&tour.Window()); });
        }
    }
    if (!modules->isEnabledTo(&tour.Window())) {
        // Where the library told of a state that does not exist there may be no button to stop it by; it ends in time.
        constexpr double longest = 10.0;
        AdvanceClock(longest);
        WaitUntil([&] { return modules->isEnabledTo(&tour.Window()); });
    }
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
    WidgetDriver driver = tour.Operator();
    for (const char* name : {"tableNetworks", "listModules", "btnConnectAll", "btnNotify", "btnSetSpeed", "btnRead",
                             "btnStartContinuous", "btnGetStatus", "gbReadIn"}) {
        if (!driver.Find(name)->isEnabledTo(&tour.Window())) {
            wrong.append(QStringLiteral("%1 is disabled").arg(QLatin1String(name)));
        }
    }
    for (const char* name : {"btnStopNotify", "btnStopContinuous"}) {
        if (driver.IsEnabled(name)) {
            wrong.append(QStringLiteral("%1 is enabled").arg(QLatin1String(name)));
        }
    }
    if (!tour.Window().statusBar()->currentMessage().isEmpty()) {
        wrong.append(QStringLiteral("the status bar still shows something"));
    }
    return wrong;
}

/// The call of the step that failed first.
std::optional<JournalEntry> FirstStruck() {
    const std::vector<JournalEntry> calls = Journal();
    const auto struck = std::find_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    return struck == calls.end() ? std::nullopt : std::make_optional(*struck);
}

} // namespace

bool CanFail(const JournalEntry& call) {
    return call.operation != "GetErrorDescription" && call.operation.front() != '~';
}

Walk::Walk(const TourBench& bench) : tour(bench) {
    tour.PrepareBench();
}

void Walk::Begin() {
    ClearJournal();
    tour.boxes.Take();
    tour.boxes.Tolerate(true);
}

QStringList Walk::Take(const TourStep& step) {
    Begin();
    step.act(tour);
    return Finish(step);
}

/// What a step that has gone well leaves to be judged.
QStringList Walk::Finish(const TourStep& step) {
    QCoreApplication::processEvents();
    tour.boxes.Finish();
    QStringList wrong = FailureLog::Take();
    const auto critical = CriticalBoxes(tour.boxes.Peek());
    for (const SeenBox& box : critical) {
        if (!tour.bench.someNetworkDead) {
            wrong.append(QStringLiteral("there is a %1").arg(ToText(box)));
        }
    }
    if (!step.seen(tour)) {
        wrong.append(QStringLiteral("the operator does not see what he should"));
    }
    return step.closes ? wrong : wrong + Disorder(tour);
}

Verdict Walk::TakeFailing(const OutlinedStep& outlined, const FailureInStep& failure) {
    const TourStep& step = outlined.step;
    Begin();
    const double since = BenchTime();
    Arm(failure);
    QTimer repair;
    QObject::connect(&repair, &QTimer::timeout, &repair, [this] {
        if (CriticalBoxes(tour.boxes.Peek()).size() >= boxesUntilRepaired) {
            ClearFaults();
        }
    });
    constexpr int lookMilliseconds = 10;
    repair.start(lookMilliseconds);
    step.act(tour);
    Verdict verdict;
    verdict.struck = FirstStruck();
    if (!verdict.struck || failure.variant == Variant::Slow) {
        ClearFaults();
        verdict.wrong = Finish(step);
        if (verdict.struck && BenchTime() < since + slowSeconds) {
            verdict.wrong.append(QStringLiteral("no time has passed"));
        }
    } else {
        verdict.wrong = JudgeBoxes(tour.boxes, outlined, failure.variant);
        ClearFaults();
        // What the operator would have done next in this step may have had no chance.
        tour.boxes.Finish();
        FailureLog::Take();
        if (!step.closes) {
            StopWhatStillRuns(tour);
            tour.boxes.Take();
            verdict.wrong += Disorder(tour) + TryAgain(step, failure.variant);
        }
    }
    return verdict;
}

std::vector<JournalEntry> Walk::FirstCallOf(const TourStep& step) {
    Begin();
    FailCall(1, failureCode, failureText);
    step.act(tour);
    WaitUntil([] { return QApplication::activeModalWidget() == nullptr; });
    ClearFaults();
    tour.boxes.Finish();
    FailureLog::Take();
    const std::optional<JournalEntry> call = FirstStruck();
    return call ? std::vector<JournalEntry>{*call} : std::vector<JournalEntry>();
}

/// The operator goes back to where the step begins, and takes it again unless he sees that it is done.
QStringList Walk::TryAgain(const TourStep& step, Variant variant) {
    // While nothing worked the screen could not be shown anew; a button that does one thing or its opposite by what the
    // library says then begins by putting the screen right.
    const int tries = variant == Variant::On || variant == Variant::OnPlainly ? 2 : 1;
    tour.GoTo(step.place);
    for (int round = 0; round < tries && !step.seen(tour); ++round) {
        step.act(tour);
        if (round + 1 < tries) {
            tour.boxes.Take();
        }
    }
    QCoreApplication::processEvents();
    tour.boxes.Finish();
    QStringList wrong = FailureLog::Take();
    if (!step.seen(tour)) {
        wrong.append(QStringLiteral("trying again does not help"));
    }
    const auto unexpected = CriticalBoxes(tour.boxes.Take());
    for (const SeenBox& box : unexpected) {
        wrong.append(QStringLiteral("trying again shows a %1").arg(ToText(box)));
    }
    return wrong;
}

void Walk::WithoutPainting() {
    if (tour.HasWindow()) {
        tour.Window().setUpdatesEnabled(false);
    }
}

QStringList Walk::End() {
    tour.DropWindow();
    return FailureLog::Take() + TeardownErrors();
}
