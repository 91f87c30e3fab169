#pragma once

#include "tools/sweep/Scenario.h"
#include "tools/sweep/ScenarioRun.h"

/// A call's place in a scenario.
struct CallPosition {
    std::size_t step = 0;
    std::uint64_t inStep = 1; ///< its number among the calls of the step
};

/// The steps of a scenario and their calls: first those of all steps that every tour takes, then those of the slow
/// ones, which only tours take in which they fail. Calls that never fail are left out.
class CallIndex {
public:
    /// Takes the scenario once, with nothing failing; goes wrong only with the program.
    explicit CallIndex(const Scenario& scenario);

    const std::vector<IndexedStep>& Steps() const { return steps; }
    /// How many calls there are to fail.
    std::uint64_t Calls() const { return calls; }
    /// What went wrong on the way without any failure.
    const QStringList& Wrong() const { return wrong; }

    /// Where a call stands; nothing for one beyond the last.
    std::optional<CallPosition> PositionOf(std::uint64_t call) const;
    const TavikSimulator::JournalEntry& CallAt(const CallPosition& place) const;
    /// Every failure that can be made, sorted by fault type and call.
    std::vector<Failure> Failures() const;

private:
    std::vector<IndexedStep> steps;
    std::uint64_t calls = 0;
    QStringList wrong;
};
