#pragma once

#include "tools/sweep/CallIndex.h"
#include "tools/sweep/ScenarioRun.h"

#include <deque>
#include <map>
#include <set>

/// What came of the failures of one fault type in one scenario.
struct Tally {
    std::uint64_t failures = 0;
    std::uint64_t wrong = 0;
};

/// Makes calls of one scenario fail. A tour takes failures in many of its steps, and several, one after another, in a
/// step that makes the same calls when it is taken again; between two steps with failures there are steps without. A
/// failure that does not meet the call that it is meant for, or shows something wrong, is made once more alone: that is
/// what counts.
class Sweep {
public:
    explicit Sweep(const Scenario& scenario) : scenario(scenario), callIndex(scenario) {}

    const CallIndex& Index() const { return callIndex; }
    const std::map<FaultType, Tally>& Tallies() const { return tallies; }

    /// Makes these failures, in as many tours as it takes. What is wrong is reported on standard output, with how to
    /// repeat it.
    void Make(const std::vector<Failure>& failures);
    /// Takes one tour with all of these failures. Returns what is wrong.
    QStringList TakeTour(const std::vector<Failure>& failures);

private:
    struct Outcome {
        Failure failure;
        bool again = false; ///< not the first of its step in the tour
        bool met = false;   ///< the call that failed is the one that was meant
        QStringList wrong;
    };
    struct TourOutcome {
        std::vector<Outcome> outcomes;
        QStringList elsewhere; ///< what is wrong in steps in which nothing failed, and at the end
    };

    std::vector<Failure> NextTour();
    TourOutcome Take(const std::vector<Failure>& failures);
    Outcome TakeStep(ScenarioRun& run, const Failure& failure, bool again);
    void Isolate(const std::vector<Failure>& failures);
    void Count(const Outcome& outcome, const QStringList& elsewhere);
    std::uint64_t WrongOnes() const;
    void Report(const std::vector<Failure>& failures, const QStringList& wrong) const;
    FailureInStep InStep(const Failure& failure) const;
    std::size_t StepOf(const Failure& failure) const { return callIndex.PositionOf(failure.call)->step; }

    const Scenario& scenario;
    const CallIndex callIndex;
    std::map<FaultType, Tally> tallies;
    std::map<std::size_t, std::deque<Failure>> pending; ///< by step
    std::set<std::size_t> changing;                     ///< steps that make other calls when they are taken again
};
