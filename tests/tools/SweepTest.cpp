#include "tools/sweep/Sweep.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/driver/FailureLog.h"
#include "tools/sweep/Choice.h"

using namespace TavikSimulator;

namespace {

/// Connects the networks of a bench with one module, and nothing else, with this rule for failures.
Course ConnectingCourse(const FailureBox& due) {
    const auto steps = [due](const TourBench&) {
        return std::vector<TourStep>{{QStringLiteral("connected"), Place(),
                                      [](Tour& tour) { tour.Operator().Click("btnConnectAll"); },
                                      [](Tour& tour) { return tour.Cell(0, 4) == QLatin1String("Connected"); },
                                      [due](const std::vector<JournalEntry>&) { return due; }}};
    };
    return {QStringLiteral("connecting"), [] { return PanelTourBench(QStringLiteral("RN")); }, steps};
}

/// The first calls of the second step of a course, which comes after the start.
std::vector<Failure> OfSecondStep(const Sweep& sweep, Variant variant) {
    constexpr std::uint64_t few = 2;
    const OutlinedStep& step = sweep.Way().Steps().at(1);
    std::vector<Failure> failures;
    for (std::uint64_t call = step.first; call < step.first + few; ++call) {
        failures.push_back({variant, call});
    }
    return failures;
}

Tally TallyOf(const Course& course, Variant variant) {
    Sweep sweep(course);
    sweep.Make(OfSecondStep(sweep, variant));
    return sweep.Tallies().at(variant);
}

} // namespace

/// The sweep finds what is wrong, and only that.
class SweepTest : public QObject {
    Q_OBJECT

private slots:
    void rightRuleHolds_data();
    void rightRuleHolds();
    void wrongRuleIsFound_data();
    void wrongRuleIsFound();
    void stepThatCannotBeTakenAgainIsFound();
    void slowCallTakesBenchTime();
    void outlineNumbersEveryCall();
    void failuresHaveTexts();
    void choiceIsTheSeeds();
    void sharesMakeTheWhole();
};

void SweepTest::rightRuleHolds_data() {
    QTest::addColumn<int>("variant");
    for (const Variant variant : Variants()) {
        QTest::newRow(qPrintable(WordOf(variant))) << static_cast<int>(variant);
    }
}

void SweepTest::rightRuleHolds() {
    QFETCH(int, variant);
    const Course course = ConnectingCourse(FailureBox());
    Sweep sweep(course);
    QCOMPARE(sweep.Way().Wrong(), QStringList());
    std::vector<Failure> failures;
    for (const Failure& failure : sweep.Way().Failures()) {
        if (static_cast<int>(failure.variant) == variant && sweep.Way().PlaceOf(failure.call)->step == 1) {
            failures.push_back(failure);
        }
    }
    QVERIFY(!failures.empty());
    sweep.Make(failures);
    const Tally tally = sweep.Tallies().at(static_cast<Variant>(variant));
    QCOMPARE(tally.failures, static_cast<std::uint64_t>(failures.size()));
    QCOMPARE(tally.wrong, std::uint64_t{0});
}

void SweepTest::wrongRuleIsFound_data() {
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("another title") << true << QStringLiteral("Another") << QString();
    QTest::newRow("another text") << true << QStringLiteral("Tavik Library Test") << QStringLiteral("Error: ");
    QTest::newRow("no box") << false << QString() << QString();
}

void SweepTest::wrongRuleIsFound() {
    QFETCH(bool, shown);
    QFETCH(QString, title);
    QFETCH(QString, prefix);
    const Course course = ConnectingCourse({shown, title, prefix});
    const Tally once = TallyOf(course, Variant::Once);
    QVERIFY(once.failures > 0);
    QCOMPARE(once.wrong, once.failures);
    const Tally on = TallyOf(course, Variant::On);
    // Where no box is due, later failures may still have theirs.
    QCOMPARE(on.wrong, shown ? on.failures : std::uint64_t{0});
}

void SweepTest::stepThatCannotBeTakenAgainIsFound() {
    Course course = ConnectingCourse(FailureBox());
    const auto steps = course.steps;
    course.steps = [steps](const TourBench& bench) {
        std::vector<TourStep> spoilt = steps(bench);
        spoilt.front().seen = [](Tour&) { return FaultsTriggered() == 0; };
        return spoilt;
    };
    const Tally tally = TallyOf(course, Variant::OncePlainly);
    QVERIFY(tally.failures > 0);
    QCOMPARE(tally.wrong, tally.failures);
}

void SweepTest::slowCallTakesBenchTime() {
    const Course course = ConnectingCourse(FailureBox());
    const Outline outline(course);
    Walk walk(course.bench());
    QCOMPARE(walk.Take(outline.Steps().at(0).step), QStringList());
    const double before = BenchTime();
    const Verdict verdict = walk.TakeFailing(outline.Steps().at(1), {Variant::Slow, 2, 1});
    QVERIFY(verdict.struck.has_value());
    QCOMPARE(verdict.wrong, QStringList());
    QCOMPARE(BenchTime() - before, 3.0);
    QCOMPARE(walk.End(), QStringList());
}

void SweepTest::outlineNumbersEveryCall() {
    const Outline outline(*FindCourse(QStringLiteral("panel-RN")));
    QVERIFY(outline.Calls() > 100);
    for (std::uint64_t call = 1; call <= outline.Calls(); ++call) {
        const std::optional<CallPlace> place = outline.PlaceOf(call);
        QVERIFY(place.has_value());
        QCOMPARE(outline.Steps().at(place->step).first + place->inStep - 1, call);
    }
    QVERIFY(!outline.PlaceOf(0).has_value());
    QVERIFY(!outline.PlaceOf(outline.Calls() + 1).has_value());
}

void SweepTest::failuresHaveTexts() {
    for (const Variant variant : Variants()) {
        const std::optional<Failure> again = FailureFromText(ToText(Failure{variant, 17}));
        QVERIFY(again.has_value());
        QCOMPARE(again->variant, variant);
        QCOMPARE(again->call, std::uint64_t{17});
    }
    for (const char* text : {"", "once", "once@", "once@0", "once@x", "twice@3", "@3"}) {
        QVERIFY2(!FailureFromText(QLatin1String(text)).has_value(), text);
    }
}

void SweepTest::choiceIsTheSeeds() {
    std::vector<Failure> failures;
    for (const Variant variant : Variants()) {
        for (std::uint64_t call = 1; call <= (variant == Variant::Code ? 3 : 50); ++call) {
            failures.push_back({variant, call});
        }
    }
    const std::vector<Failure> chosen = Choose(failures, 60, 1);
    QCOMPARE(chosen.size(), std::size_t{60});
    QCOMPARE(ToText(Choose(failures, 60, 1)), ToText(chosen));
    QVERIFY(ToText(Choose(failures, 60, 2)) != ToText(chosen));
    std::map<Variant, int> counts;
    QSet<QString> different;
    for (const Failure& failure : chosen) {
        ++counts[failure.variant];
        different.insert(ToText(failure));
    }
    QCOMPARE(different.size(), 60);
    QCOMPARE(counts[Variant::Code], 3);
    for (const Variant variant :
         {Variant::Once, Variant::OncePlainly, Variant::On, Variant::OnPlainly, Variant::Slow}) {
        QVERIFY(counts[variant] == 11 || counts[variant] == 12);
    }
    QCOMPARE(Choose(failures, 1000, 1).size(), failures.size());
}

void SweepTest::sharesMakeTheWhole() {
    std::vector<Failure> failures;
    for (std::uint64_t call = 1; call <= 10; ++call) {
        failures.push_back({Variant::Once, call});
    }
    QCOMPARE(ToText(Share(failures, 1, 3)), QStringLiteral("once@1 once@4 once@7 once@10"));
    QCOMPARE(ToText(Share(failures, 3, 3)), QStringLiteral("once@3 once@6 once@9"));
    QCOMPARE(ToText(Share(failures, 1, 1)), ToText(failures));
}

TAVIK_TEST_MAIN(SweepTest)
#include "SweepTest.moc"
