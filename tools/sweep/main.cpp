#include "app/Application.h"
#include "tools/driver/FailureLog.h"
#include "tools/driver/QtMessages.h"
#include "tools/sweep/FaultSample.h"
#include "tools/sweep/Sweep.h"

#include <cstdio>
#include <functional>

// Makes calls of the library fail on the way through the program's screens.

namespace {

constexpr std::uint64_t defaultSeed = 20407;

const char* const usage = R"(usage:
  tavik-sweep scenarios                  the scenarios, and how many calls and failures there are in each
  tavik-sweep full SCENARIO [PART OF]    every failure of a scenario, or every OF-th of them from the PART-th
  tavik-sweep sample SCENARIO=COUNT...   so many failures of each scenario, chosen by the seed in TAVIK_SWEEP_SEED
  tavik-sweep tour SCENARIO FAILURE...   one tour with these failures, such as once@17; it says what is wrong
)";

int Refuse(const QString& reason) {
    std::fprintf(stderr, "tavik-sweep: %s\n%s", qPrintable(reason), usage);
    return 2;
}

int Print(const QStringList& lines) {
    for (const QString& line : lines) {
        std::printf("%s\n", qPrintable(line));
    }
    std::fflush(stdout);
    return static_cast<int>(lines.size());
}

QString Numbers(const QString& what, std::uint64_t calls, std::uint64_t failures, std::uint64_t wrong) {
    return QStringLiteral("%1: %2 calls, %3 failures made, %4 wrong").arg(what).arg(calls).arg(failures).arg(wrong);
}

/// How many of the failures went wrong; a scenario that goes wrong without any counts as one.
std::uint64_t Make(const Scenario& scenario,
                   const std::function<std::vector<Failure>(const CallIndex& callIndex)>& choose) {
    Sweep sweep(scenario);
    std::uint64_t wrong = Print(sweep.Index().Wrong()) > 0 ? 1 : 0;
    sweep.Make(choose(sweep.Index()));
    for (const auto& [faultType, tally] : sweep.Tallies()) {
        const QString what = QStringLiteral("%1 %2").arg(scenario.name, WordOf(faultType));
        Print({Numbers(what, sweep.Index().Calls(), tally.failures, tally.wrong)});
        wrong += tally.wrong;
    }
    return wrong + static_cast<std::uint64_t>(Print(FailureLog::Take()));
}

int ListScenarios() {
    for (const Scenario& scenario : Scenarios()) {
        const CallIndex callIndex(scenario);
        Print(callIndex.Wrong());
        Print({QStringLiteral("%1 %2 %3").arg(scenario.name).arg(callIndex.Calls()).arg(callIndex.Failures().size())});
    }
    return 0;
}

int MakeAll(const QStringList& arguments) {
    const Scenario* scenario = FindScenario(arguments.value(0));
    const std::size_t part = arguments.value(1, QStringLiteral("1")).toUInt();
    const std::size_t parts = arguments.value(2, QStringLiteral("1")).toUInt();
    if (scenario == nullptr || part < 1 || part > parts) {
        return Refuse(QStringLiteral("there is no such scenario or part of it."));
    }
    const auto all = [=](const CallIndex& callIndex) { return ShardOf(callIndex.Failures(), part, parts); };
    return Make(*scenario, all) == 0 ? 0 : 1;
}

int MakeSample(const QStringList& arguments) {
    const QString given = qEnvironmentVariable("TAVIK_SWEEP_SEED");
    const std::uint64_t seed = given.isEmpty() ? defaultSeed : given.toULongLong();
    Print({QStringLiteral("seed %1").arg(seed)});
    std::uint64_t wrong = 0;
    for (const QString& argument : arguments) {
        const Scenario* scenario = FindScenario(argument.section(QLatin1Char('='), 0, 0));
        const std::size_t count = argument.section(QLatin1Char('='), 1).toUInt();
        if (scenario == nullptr || count == 0) {
            return Refuse(QStringLiteral("\"%1\" is not SCENARIO=COUNT.").arg(argument));
        }
        wrong +=
            Make(*scenario, [=](const CallIndex& callIndex) { return SampleOf(callIndex.Failures(), count, seed); });
    }
    return wrong == 0 ? 0 : 1;
}

int TakeTour(const QStringList& arguments) {
    const Scenario* scenario = FindScenario(arguments.value(0));
    if (scenario == nullptr || arguments.size() < 2) {
        return Refuse(QStringLiteral("a tour needs a scenario and failures."));
    }
    Sweep sweep(*scenario);
    std::vector<Failure> failures;
    const auto given = arguments.mid(1);
    for (const QString& argument : given) {
        const std::optional<Failure> failure = FailureFromText(argument);
        if (!failure || !sweep.Index().PositionOf(failure->call)) {
            return Refuse(QStringLiteral("\"%1\" is no failure of this scenario.").arg(argument));
        }
        failures.push_back(*failure);
    }
    return Print(sweep.TakeTour(failures) + FailureLog::Take()) == 0 ? 0 : 1;
}

int Run(const QStringList& arguments) {
    const QString command = arguments.value(1);
    if (command == QLatin1String("scenarios")) {
        return ListScenarios();
    }
    if (command == QLatin1String("full")) {
        return MakeAll(arguments.mid(2));
    }
    if (command == QLatin1String("sample")) {
        return MakeSample(arguments.mid(2));
    }
    if (command == QLatin1String("tour")) {
        return TakeTour(arguments.mid(2));
    }
    return Refuse(QStringLiteral("it needs one of these commands."));
}

} // namespace

int main(int argc, char* argv[]) {
    const Application application(argc, argv);
    const QtMessages messages;
    return Run(QCoreApplication::arguments());
}
