#include "tools/sweep/ScenarioRun.h"

#include "tools/driver/FailureLog.h"
#include "tools/oracle/Oracle.h"
#include "tools/sweep/BoxRules.h"

#include <QApplication>

#include <algorithm>

using namespace TavikSimulator;

namespace {

constexpr double slowSeconds = 3.0;

/// Faults are cleared after 10 message boxes; otherwise a run that only the library can end never ends.
constexpr int boxesUntilRepaired = 10;

void Arm(const FailureInStep& failure) {
    Fault fault;
    fault.trigger = FaultTrigger::Nth;
    fault.n = failure.inStep;
    fault.code = failureCode;
    switch (failure.faultType) {
    case FaultType::Once:
    case FaultType::Persistent:
        FailCall(failure.inStep, failureCode, failureText, failure.faultType == FaultType::Persistent);
        return;
    case FaultType::OnceRuntimeError:
    case FaultType::PersistentRuntimeError:
        FailCallPlainly(failure.inStep, failureText, failure.faultType == FaultType::PersistentRuntimeError);
        return;
    case FaultType::Slow:
        fault.effect = FaultEffect::Slow;
        fault.delay = slowSeconds;
        break;
    case FaultType::Code:
        fault.effect = FaultEffect::Result;
        fault.n = failure.coded;
        break;
    }
    AddFault(fault);
}

/// A run that could not be stopped while the library failed still holds the controls of the window.
void StopWhatStillRuns(Tour& tour) {
    WidgetDriver driver = tour.Operator();
    const auto released = [&] { return !tour.Window().ControlsAreHeld(); };
    for (const char* stop : {"btnStopNotify", "btnStopContinuous", "btnStopDiff", "btnStop"}) {
        const QWidget* button = driver.Find(stop);
        if (!released() && button->isVisible() && button->isEnabled()) {
            driver.Click(stop);
            WaitUntil(released);
        }
    }
    if (!released()) {
        // A code in place of a state may leave no button to stop the run by; it ends in time.
        constexpr double longestSeconds = 10.0;
        AdvanceClock(longestSeconds);
        WaitUntil(released);
    }
}

/// Errors in the state that every step must leave behind.
QStringList StateErrors(Tour& tour) {
    QStringList errors = Oracle::IdleErrors(tour.Window()) + Oracle::PageErrors(tour.Window());
    if (QApplication::activeModalWidget() != nullptr) {
        errors.append(
            QStringLiteral("Dialog: expected none, got \"%1\".").arg(QApplication::activeModalWidget()->windowTitle()));
    }
    return errors;
}

/// The call of the step that failed first.
std::optional<JournalEntry> FirstFailedCall() {
    const std::vector<JournalEntry> calls = Journal();
    const auto failedCall =
        std::find_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    return failedCall == calls.end() ? std::nullopt : std::make_optional(*failedCall);
}

} // namespace

bool CanFail(const JournalEntry& call) {
    return call.operation != "GetErrorDescription" && call.operation.front() != '~';
}

ScenarioRun::ScenarioRun(const TourBench& bench) : tour(bench) {
    tour.PrepareBench();
}

void ScenarioRun::Begin() {
    ClearJournal();
    tour.boxes.Take();
    tour.boxes.Tolerate(true);
}

QStringList ScenarioRun::Perform(const TourStep& step) {
    Begin();
    step.act(tour);
    return Finish(step);
}

/// Returns the errors after a step without a failed call.
QStringList ScenarioRun::Finish(const TourStep& step) {
    QCoreApplication::processEvents();
    tour.boxes.Finish();
    QStringList wrong = FailureLog::Take();
    const auto critical = CriticalBoxes(tour.boxes.Peek());
    for (const SeenBox& box : critical) {
        if (!tour.bench.someNetworkDead) {
            wrong.append(QStringLiteral("Message box: expected none, got a %1.").arg(ToText(box)));
        }
    }
    if (!step.seen(tour)) {
        wrong.append(QStringLiteral("Postcondition of the step: expected true, got false."));
    }
    return step.closes ? wrong : wrong + StateErrors(tour);
}

StepResult ScenarioRun::PerformFailing(const IndexedStep& indexed, const FailureInStep& failure) {
    const TourStep& step = indexed.step;
    Begin();
    const double since = BenchTime();
    Arm(failure);
    QTimer repair;
    QObject::connect(&repair, &QTimer::timeout, &repair, [this] {
        if (CriticalBoxes(tour.boxes.Peek()).size() >= boxesUntilRepaired) {
            ClearFaults();
        }
    });
    constexpr int pollIntervalMs = 10;
    repair.start(pollIntervalMs);
    step.act(tour);
    StepResult result;
    result.failedCall = FirstFailedCall();
    if (!result.failedCall || failure.faultType == FaultType::Slow) {
        ClearFaults();
        result.wrong = Finish(step);
        if (result.failedCall && BenchTime() < since + slowSeconds) {
            result.wrong.append(
                QStringLiteral("Bench time of the slow call: expected %1 s or more, got less.").arg(slowSeconds));
        }
    } else {
        result.wrong = BoxErrors(tour.boxes, indexed, failure.faultType);
        ClearFaults();
        // The later actions of the step may not have been possible.
        tour.boxes.Finish();
        FailureLog::Take();
        if (!step.closes) {
            result.wrong += Oracle::PageErrors(tour.Window());
            StopWhatStillRuns(tour);
            tour.boxes.Take();
            result.wrong += StateErrors(tour) + TryAgain(step, failure.faultType);
        }
    }
    return result;
}

/// Returns to where the step begins and repeats it unless its postcondition holds.
QStringList ScenarioRun::TryAgain(const TourStep& step, FaultType faultType) {
    // While nothing worked the screen could not be shown anew; a button that does one thing or its opposite by what the
    // library says then begins by putting the screen right.
    const int tries = faultType == FaultType::Persistent || faultType == FaultType::PersistentRuntimeError ? 2 : 1;
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
        wrong.append(QStringLiteral("Repeated step: expected its postcondition to hold, got false."));
    }
    const auto unexpected = CriticalBoxes(tour.boxes.Take());
    for (const SeenBox& box : unexpected) {
        wrong.append(QStringLiteral("Repeated step: expected no error box, got a %1.").arg(ToText(box)));
    }
    return wrong;
}

void ScenarioRun::WithoutPainting() {
    if (tour.HasWindow()) {
        tour.Window().setUpdatesEnabled(false);
    }
}

QStringList ScenarioRun::End() {
    tour.DropWindow();
    return FailureLog::Take() + Oracle::TeardownErrors();
}
