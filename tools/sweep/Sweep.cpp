#include "tools/sweep/Sweep.h"

#include <algorithm>
#include <cstdio>

using TavikSimulator::CallText;
using TavikSimulator::JournalEntry;

namespace {

/// Steps that nothing disturbs between two with failures.
constexpr std::size_t quietSteps = 1;
/// Failures of one step in one tour.
constexpr std::size_t failuresOfAStep = 8;

const QString missed = QStringLiteral("the call that failed is not the one that was meant");

QString At(const TourStep& step, const QStringList& wrong) {
    return QStringLiteral("at \"%1\": %2").arg(step.name, wrong.join(QStringLiteral("; ")));
}

} // namespace

void Sweep::Make(const std::vector<Failure>& failures) {
    for (const Failure& failure : failures) {
        pending[StepOf(failure)].push_back(failure);
    }
    while (!pending.empty()) {
        Isolate(NextTour());
    }
}

QStringList Sweep::TakeTour(const std::vector<Failure>& failures) {
    const TourOutcome tour = Take(failures);
    QStringList wrong;
    for (const Outcome& outcome : tour.outcomes) {
        wrong += outcome.wrong;
        if (!outcome.met) {
            wrong.append(ToText(outcome.failure) + QStringLiteral(": ") + missed);
        }
    }
    return wrong + tour.elsewhere;
}

/// Takes failures for one tour out of those that are still to be made, steps in order.
std::vector<Failure> Sweep::NextTour() {
    std::vector<Failure> tour;
    std::size_t free = 0;
    for (auto step = pending.begin(); step != pending.end();) {
        auto& [index, failures] = *step;
        const bool once = callIndex.Steps()[index].step.changes || changing.count(index) > 0;
        const std::size_t most = once ? 1 : failuresOfAStep;
        for (std::size_t taken = 0; index >= free && taken < most && !failures.empty(); ++taken) {
            tour.push_back(failures.front());
            failures.pop_front();
        }
        if (!tour.empty() && StepOf(tour.back()) == index) {
            free = index + quietSteps + 1;
        }
        step = failures.empty() ? pending.erase(step) : std::next(step);
    }
    return tour;
}

FailureInStep Sweep::InStep(const Failure& failure) const {
    const CallPosition place = *callIndex.PositionOf(failure.call);
    const auto& calls = callIndex.Steps()[place.step].calls;
    const auto coded = std::count_if(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(place.inStep),
                                     [](const JournalEntry& call) { return call.takesCode; });
    return {failure.faultType, place.inStep, static_cast<std::uint64_t>(coded)};
}

Sweep::Outcome Sweep::TakeStep(ScenarioRun& run, const Failure& failure, bool again) {
    const CallPosition place = *callIndex.PositionOf(failure.call);
    const TourStep& step = callIndex.Steps()[place.step].step;
    if (again) {
        run.CurrentTour().GoTo(step.place);
    }
    const StepResult result = run.PerformFailing(callIndex.Steps()[place.step], InStep(failure));
    const JournalEntry& meant = callIndex.CallAt(place);
    Outcome outcome{failure, again, false, {}};
    if (result.failedCall) {
        outcome.met = result.failedCall->object == meant.object && result.failedCall->operation == meant.operation;
    }
    if (!result.wrong.isEmpty()) {
        const QString call = QString::fromStdString(CallText(result.failedCall.value_or(meant)));
        outcome.wrong.append(At(step, QStringList{call} + result.wrong));
    }
    return outcome;
}

Sweep::TourOutcome Sweep::Take(const std::vector<Failure>& failures) {
    TourOutcome tour;
    ScenarioRun run(scenario.bench());
    auto next = failures.begin();
    for (std::size_t index = 0; index < callIndex.Steps().size(); ++index) {
        const TourStep& step = callIndex.Steps()[index].step;
        const auto isHere = [&] { return next != failures.end() && StepOf(*next) == index; };
        const bool quiet = !isHere();
        run.WithoutPainting();
        for (bool again = false; isHere(); ++next, again = true) {
            tour.outcomes.push_back(TakeStep(run, *next, again));
        }
        const QStringList wrong = quiet && !step.slow ? run.Perform(step) : QStringList();
        if (!wrong.isEmpty()) {
            tour.elsewhere.append(At(step, wrong));
        }
    }
    tour.elsewhere += run.End();
    return tour;
}

/// Takes a tour and counts what came of it. What is not clear from it is made with fewer failures at once.
void Sweep::Isolate(const std::vector<Failure>& failures) {
    const TourOutcome tour = Take(failures);
    if (!tour.elsewhere.isEmpty() && failures.size() > 1) {
        const std::uint64_t wrongBefore = WrongOnes();
        const auto middle = failures.begin() + static_cast<std::ptrdiff_t>(failures.size() / 2);
        Isolate({failures.begin(), middle});
        Isolate({middle, failures.end()});
        if (WrongOnes() == wrongBefore) {
            // Each half alone goes well, so that it takes both to go wrong.
            ++tallies[failures.front().faultType].wrong;
            Report(failures, tour.elsewhere);
        }
        return;
    }
    for (const Outcome& outcome : tour.outcomes) {
        if (outcome.again && !outcome.met) {
            changing.insert(StepOf(outcome.failure));
            pending[StepOf(outcome.failure)].push_back(outcome.failure);
        } else if (failures.size() == 1 || (outcome.met && outcome.wrong.isEmpty())) {
            Count(outcome, tour.elsewhere);
        } else {
            Isolate({outcome.failure});
        }
    }
}

std::uint64_t Sweep::WrongOnes() const {
    std::uint64_t wrong = 0;
    for (const auto& [faultType, tally] : tallies) {
        wrong += tally.wrong;
    }
    return wrong;
}

void Sweep::Count(const Outcome& outcome, const QStringList& elsewhere) {
    Tally& tally = tallies[outcome.failure.faultType];
    ++tally.failures;
    QStringList wrong = outcome.wrong + elsewhere;
    if (!outcome.met) {
        wrong.append(missed);
    }
    if (!wrong.isEmpty()) {
        ++tally.wrong;
        Report({outcome.failure}, wrong);
    }
}

void Sweep::Report(const std::vector<Failure>& failures, const QStringList& wrong) const {
    std::printf("WRONG: tavik-sweep tour %s %s\n", qPrintable(scenario.name), qPrintable(ToText(failures)));
    for (const QString& text : wrong) {
        std::printf("  %s\n", qPrintable(text));
    }
    std::fflush(stdout);
}
