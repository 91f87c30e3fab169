#include "tools/sweep/Outline.h"

#include <algorithm>

using TavikSimulator::JournalEntry;

namespace {

/// Without the first call of all, which makes the library's server, there is no window to judge.
constexpr std::uint64_t firstThatFails = 2;

std::vector<JournalEntry> CallsThatFail(const std::vector<JournalEntry>& journal) {
    std::vector<JournalEntry> calls;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(calls), CanFail);
    return calls;
}

} // namespace

Outline::Outline(const Course& course) {
    const TourBench bench = course.bench();
    Walk walk(bench);
    for (const TourStep& step : WholeWay(course, bench)) {
        walk.WithoutPainting();
        // What is slow and shows nothing but the time that it takes makes the same call over and over.
        if (step.slow && !step.pictured) {
            steps.push_back({step, 1, walk.FirstCallOf(step)});
            continue;
        }
        wrong += walk.Take(step);
        steps.push_back({step, 1, CallsThatFail(walk.CallsOfStep())});
    }
    wrong += walk.End();
    NumberCalls();
}

void Outline::NumberCalls() {
    for (const bool slow : {false, true}) {
        for (OutlinedStep& outlined : steps) {
            if (outlined.step.slow == slow) {
                outlined.first = calls + 1;
                calls += outlined.calls.size();
            }
        }
    }
}

std::optional<CallPlace> Outline::PlaceOf(std::uint64_t call) const {
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const OutlinedStep& outlined = steps[index];
        if (call >= outlined.first && call < outlined.first + outlined.calls.size()) {
            return CallPlace{index, call - outlined.first + 1};
        }
    }
    return std::nullopt;
}

const JournalEntry& Outline::CallAt(const CallPlace& place) const {
    return steps[place.step].calls[place.inStep - 1];
}

std::vector<Failure> Outline::Failures() const {
    std::vector<Failure> failures;
    for (const Variant variant : Variants()) {
        for (std::uint64_t call = firstThatFails; call <= calls; ++call) {
            if (variant != Variant::Code || CallAt(*PlaceOf(call)).takesCode) {
                failures.push_back({variant, call});
            }
        }
    }
    return failures;
}
