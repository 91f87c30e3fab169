#include "app/Application.h"
#include "tests/support/QtMessages.h"
#include "tools/driver/FailureLog.h"
#include "tools/sweep/Choice.h"
#include "tools/sweep/Sweep.h"

#include <cstdio>
#include <functional>

// Makes calls of the library fail on the way through the program's screens.

namespace {

constexpr std::uint64_t defaultSeed = 20407;

const char* const usage = R"(usage:
  tavik-sweep courses                  the courses, and how many calls and failures there are in each
  tavik-sweep full COURSE [PART OF]    every failure of a course, or every OF-th of them from the PART-th
  tavik-sweep sample COURSE=COUNT...   so many failures of each course, chosen by the seed in TAVIK_SWEEP_SEED
  tavik-sweep tour COURSE FAILURE...   one tour with these failures, such as once@17; it says what is wrong
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

/// How many of the failures went wrong; a course that goes wrong without any counts as one.
std::uint64_t Make(const Course& course, const std::function<std::vector<Failure>(const Outline& outline)>& choose) {
    Sweep sweep(course);
    std::uint64_t wrong = Print(sweep.Way().Wrong()) > 0 ? 1 : 0;
    sweep.Make(choose(sweep.Way()));
    for (const auto& [variant, tally] : sweep.Tallies()) {
        const QString what = QStringLiteral("%1 %2").arg(course.name, WordOf(variant));
        Print({Numbers(what, sweep.Way().Calls(), tally.failures, tally.wrong)});
        wrong += tally.wrong;
    }
    return wrong + static_cast<std::uint64_t>(Print(FailureLog::Take()));
}

int ListCourses() {
    for (const Course& course : Courses()) {
        const Outline outline(course);
        Print(outline.Wrong());
        Print({QStringLiteral("%1 %2 %3").arg(course.name).arg(outline.Calls()).arg(outline.Failures().size())});
    }
    return 0;
}

int MakeAll(const QStringList& arguments) {
    const Course* course = FindCourse(arguments.value(0));
    const std::size_t part = arguments.value(1, QStringLiteral("1")).toUInt();
    const std::size_t parts = arguments.value(2, QStringLiteral("1")).toUInt();
    if (course == nullptr || part < 1 || part > parts) {
        return Refuse(QStringLiteral("there is no such course or part of it."));
    }
    const auto all = [=](const Outline& outline) { return Share(outline.Failures(), part, parts); };
    return Make(*course, all) == 0 ? 0 : 1;
}

int MakeSample(const QStringList& arguments) {
    const QString given = qEnvironmentVariable("TAVIK_SWEEP_SEED");
    const std::uint64_t seed = given.isEmpty() ? defaultSeed : given.toULongLong();
    Print({QStringLiteral("seed %1").arg(seed)});
    std::uint64_t wrong = 0;
    for (const QString& argument : arguments) {
        const Course* course = FindCourse(argument.section(QLatin1Char('='), 0, 0));
        const std::size_t count = argument.section(QLatin1Char('='), 1).toUInt();
        if (course == nullptr || count == 0) {
            return Refuse(QStringLiteral("\"%1\" is not COURSE=COUNT.").arg(argument));
        }
        wrong += Make(*course, [=](const Outline& outline) { return Choose(outline.Failures(), count, seed); });
    }
    return wrong == 0 ? 0 : 1;
}

int TakeTour(const QStringList& arguments) {
    const Course* course = FindCourse(arguments.value(0));
    if (course == nullptr || arguments.size() < 2) {
        return Refuse(QStringLiteral("a tour needs a course and failures."));
    }
    Sweep sweep(*course);
    std::vector<Failure> failures;
    const auto given = arguments.mid(1);
    for (const QString& argument : given) {
        const std::optional<Failure> failure = FailureFromText(argument);
        if (!failure || !sweep.Way().PlaceOf(failure->call)) {
            return Refuse(QStringLiteral("\"%1\" is no failure of this course.").arg(argument));
        }
        failures.push_back(*failure);
    }
    return Print(sweep.TakeTour(failures) + FailureLog::Take()) == 0 ? 0 : 1;
}

int Run(const QStringList& arguments) {
    const QString command = arguments.value(1);
    if (command == QLatin1String("courses")) {
        return ListCourses();
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
