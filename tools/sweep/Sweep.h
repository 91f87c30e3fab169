#pragma once

#include "tools/sweep/Outline.h"
#include "tools/sweep/Walk.h"

#include <deque>
#include <map>
#include <set>

/// What came of the failures of one variant in one course.
struct Tally {
    std::uint64_t failures = 0;
    std::uint64_t wrong = 0;
};

/// Makes calls of one course fail. A tour takes failures in many of its steps, and several, one after another, in a
/// step that makes the same calls when it is taken again; between two steps with failures there are steps without. A
/// failure that does not meet the call that it is meant for, or shows something wrong, is made once more alone: that is
/// what counts.
class Sweep {
public:
    explicit Sweep(const Course& course) : course(course), outline(course) {}

    const Outline& Way() const { return outline; }
    const std::map<Variant, Tally>& Tallies() const { return tallies; }

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
    Outcome TakeStep(Walk& walk, const Failure& failure, bool again);
    void Isolate(const std::vector<Failure>& failures);
    void Count(const Outcome& outcome, const QStringList& elsewhere);
    std::uint64_t WrongOnes() const;
    void Report(const std::vector<Failure>& failures, const QStringList& wrong) const;
    FailureInStep InStep(const Failure& failure) const;
    std::size_t StepOf(const Failure& failure) const { return outline.PlaceOf(failure.call)->step; }

    const Course& course;
    const Outline outline;
    std::map<Variant, Tally> tallies;
    std::map<std::size_t, std::deque<Failure>> pending; ///< by step
    std::set<std::size_t> changing;                     ///< steps that make other calls when they are taken again
};
