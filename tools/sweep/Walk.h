#pragma once

#include "tools/sweep/Failure.h"
#include "tools/tour/Tour.h"

#include <optional>

/// Whether a call of the library can fail at all.
bool CanFail(const TavikSimulator::JournalEntry& call);

/// A step, and the calls of the library that it makes when nothing fails.
struct OutlinedStep {
    TourStep step;
    std::uint64_t first = 1; ///< the number of its first call in the course
    std::vector<TavikSimulator::JournalEntry> calls;
};

/// What came of a failure in a step.
struct Verdict {
    std::optional<TavikSimulator::JournalEntry> struck; ///< the first call that failed
    QStringList wrong;
};

/// A failure in a step.
struct FailureInStep {
    Variant variant = Variant::Once;
    std::uint64_t inStep = 1; ///< the number of the call among those of the step
    std::uint64_t coded = 1;  ///< its number among those that take a code
};

/// One operator's way through a course on a fresh bench, step by step. Every step is judged.
class Walk {
public:
    explicit Walk(const TourBench& bench);

    /// A step in which nothing fails. Returns what is wrong.
    QStringList Take(const TourStep& step);
    /// A step with a failing call: what the operator sees of it, whether everything can be used afterwards, and whether
    /// the step succeeds when it is tried again.
    Verdict TakeFailing(const OutlinedStep& outlined, const FailureInStep& failure);
    /// The call that a step begins with, which fails for that; empty when it makes none.
    std::vector<TavikSimulator::JournalEntry> FirstCallOf(const TourStep& step);
    /// Drops the window. Returns what is left of it that should not be.
    QStringList End();

    /// The calls of the library that the last step made.
    std::vector<TavikSimulator::JournalEntry> CallsOfStep() const { return TavikSimulator::Journal(); }
    Tour& Way() { return tour; }
    /// From now on nothing is painted, if there is a window: that takes most of the time, and no call depends on it.
    void WithoutPainting();

private:
    void Begin();
    QStringList Finish(const TourStep& step);
    QStringList TryAgain(const TourStep& step, Variant variant);

    Tour tour;
};
