#pragma once

#include "tools/sweep/Failure.h"
#include "tools/tour/Tour.h"

#include <optional>

/// Whether a call of the library can fail at all.
bool CanFail(const TavikSimulator::JournalEntry& call);

/// A step, and the calls of the library that it makes when nothing fails.
struct IndexedStep {
    TourStep step;
    std::uint64_t first = 1; ///< the number of its first call in the scenario
    std::vector<TavikSimulator::JournalEntry> calls;
};

/// What came of a failure in a step.
struct StepResult {
    std::optional<TavikSimulator::JournalEntry> failedCall; ///< the first call that failed
    QStringList wrong;
};

/// A failure in a step.
struct FailureInStep {
    FaultType faultType = FaultType::Once;
    std::uint64_t inStep = 1; ///< the number of the call among those of the step
    std::uint64_t coded = 1;  ///< its number among those that take a code
};

/// Performs the steps of a scenario on a new bench and checks the program after each.
class ScenarioRun {
public:
    explicit ScenarioRun(const TourBench& bench);

    /// A step in which nothing fails. Returns what is wrong.
    QStringList Perform(const TourStep& step);
    /// A step with a failing call: what the operator sees of it, whether everything can be used afterwards, and whether
    /// the step succeeds when it is tried again.
    StepResult PerformFailing(const IndexedStep& indexed, const FailureInStep& failure);
    /// Drops the window. Returns what is left of it that should not be.
    QStringList End();

    /// The calls of the library that the last step made.
    std::vector<TavikSimulator::JournalEntry> CallsOfStep() const { return TavikSimulator::Journal(); }
    Tour& CurrentTour() { return tour; }
    /// From now on nothing is painted, if there is a window: that takes most of the time, and no call depends on it.
    void WithoutPainting();

private:
    void Begin();
    QStringList Finish(const TourStep& step);
    QStringList TryAgain(const TourStep& step, FaultType faultType);

    Tour tour;
};
