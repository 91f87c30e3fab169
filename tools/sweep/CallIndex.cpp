#include "tools/sweep/CallIndex.h"

#include <algorithm>

using TavikSimulator::JournalEntry;

namespace {

/// The first call creates the library's server; without it there is no window to check.
constexpr std::uint64_t firstThatFails = 2;

std::vector<JournalEntry> CallsThatFail(const std::vector<JournalEntry>& journal) {
    std::vector<JournalEntry> calls;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(calls), CanFail);
    return calls;
}

} // namespace

CallIndex::CallIndex(const Scenario& scenario) {
    const TourBench bench = scenario.bench();
    ScenarioRun run(bench);
    for (const TourStep& step : AllSteps(scenario, bench)) {
        run.WithoutPainting();
        wrong += run.Perform(step);
        steps.push_back({step, calls + 1, CallsThatFail(run.CallsOfStep())});
        calls += steps.back().calls.size();
    }
    wrong += run.End();
}

std::optional<CallPosition> CallIndex::PositionOf(std::uint64_t call) const {
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const IndexedStep& indexed = steps[index];
        if (call >= indexed.first && call < indexed.first + indexed.calls.size()) {
            return CallPosition{index, call - indexed.first + 1};
        }
    }
    return std::nullopt;
}

const JournalEntry& CallIndex::CallAt(const CallPosition& place) const {
    return steps[place.step].calls[place.inStep - 1];
}

std::vector<Failure> CallIndex::Failures() const {
    std::vector<Failure> failures;
    for (const FaultType faultType : FaultTypes()) {
        for (std::uint64_t call = firstThatFails; call <= calls; ++call) {
            if (faultType != FaultType::Code || CallAt(*PositionOf(call)).takesCode) {
                failures.push_back({faultType, call});
            }
        }
    }
    return failures;
}
