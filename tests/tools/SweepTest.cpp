#include "tools/sweep/Sweep.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/driver/FailureLog.h"
#include "tools/sweep/FaultSample.h"

using namespace TavikSimulator;

namespace {

/// Connects the networks of a bench with one module, and nothing else, with this rule for failures.
Scenario ConnectingScenario(const FailureBox& due) {
    const auto steps = [due](const TourBench&) {
        return std::vector<TourStep>{{QStringLiteral("connected"), Location(),
                                      [](Tour& tour) { tour.Operator().Click("btnConnectAll"); },
                                      [](Tour& tour) { return tour.Cell(0, 4) == QLatin1String("Connected"); },
                                      [due](const std::vector<JournalEntry>&) { return due; }}};
    };
    return {QStringLiteral("connecting"), [] { return PanelTourBench(QStringLiteral("RN")); }, steps};
}

/// The first calls of the second step of a scenario, which comes after the start.
std::vector<Failure> OfSecondStep(const Sweep& sweep, FaultType faultType) {
    constexpr std::uint64_t few = 2;
    const IndexedStep& step = sweep.Index().Steps().at(1);
    std::vector<Failure> failures;
    for (std::uint64_t call = step.first; call < step.first + few; ++call) {
        failures.push_back({faultType, call});
    }
    return failures;
}

Tally TallyOf(const Scenario& scenario, FaultType faultType) {
    Sweep sweep(scenario);
    sweep.Make(OfSecondStep(sweep, faultType));
    return sweep.Tallies().at(faultType);
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
    void stepThatCannotBeRepeatedIsFound();
    void slowCallTakesBenchTime();
    void indexNumbersEveryCall();
    void scenarioMakesTheSameCalls();
    void failuresHaveTexts();
    void sampleIsTheSeeds();
    void shardsMakeTheWhole();
};

void SweepTest::rightRuleHolds_data() {
    QTest::addColumn<int>("faultType");
    for (const FaultType faultType : FaultTypes()) {
        QTest::newRow(qPrintable(WordOf(faultType))) << static_cast<int>(faultType);
    }
}

void SweepTest::rightRuleHolds() {
    QFETCH(int, faultType);
    const Scenario scenario = ConnectingScenario(FailureBox());
    Sweep sweep(scenario);
    QCOMPARE(sweep.Index().Wrong(), QStringList());
    std::vector<Failure> failures;
    for (const Failure& failure : sweep.Index().Failures()) {
        if (static_cast<int>(failure.faultType) == faultType && sweep.Index().PositionOf(failure.call)->step == 1) {
            failures.push_back(failure);
        }
    }
    QVERIFY(!failures.empty());
    sweep.Make(failures);
    const Tally tally = sweep.Tallies().at(static_cast<FaultType>(faultType));
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
    const Scenario scenario = ConnectingScenario({shown, title, prefix});
    const Tally once = TallyOf(scenario, FaultType::Once);
    QVERIFY(once.failures > 0);
    QCOMPARE(once.wrong, once.failures);
    const Tally on = TallyOf(scenario, FaultType::Persistent);
    // Where no box is due, later failures may still have theirs.
    QCOMPARE(on.wrong, shown ? on.failures : std::uint64_t{0});
}

void SweepTest::stepThatCannotBeRepeatedIsFound() {
    Scenario scenario = ConnectingScenario(FailureBox());
    const auto steps = scenario.steps;
    scenario.steps = [steps](const TourBench& bench) {
        std::vector<TourStep> spoilt = steps(bench);
        spoilt.front().seen = [](Tour&) { return FaultsTriggered() == 0; };
        return spoilt;
    };
    const Tally tally = TallyOf(scenario, FaultType::OnceRuntimeError);
    QVERIFY(tally.failures > 0);
    QCOMPARE(tally.wrong, tally.failures);
}

void SweepTest::slowCallTakesBenchTime() {
    const Scenario scenario = ConnectingScenario(FailureBox());
    const CallIndex callIndex(scenario);
    ScenarioRun run(scenario.bench());
    QCOMPARE(run.Perform(callIndex.Steps().at(0).step), QStringList());
    const double before = BenchTime();
    const StepResult result = run.PerformFailing(callIndex.Steps().at(1), {FaultType::Slow, 2, 1});
    QVERIFY(result.failedCall.has_value());
    QCOMPARE(result.wrong, QStringList());
    QCOMPARE(BenchTime() - before, 3.0);
    QCOMPARE(run.End(), QStringList());
}

void SweepTest::indexNumbersEveryCall() {
    const CallIndex callIndex(*FindScenario(QStringLiteral("panel-RN")));
    QVERIFY(callIndex.Calls() > 100);
    for (std::uint64_t call = 1; call <= callIndex.Calls(); ++call) {
        const std::optional<CallPosition> place = callIndex.PositionOf(call);
        QVERIFY(place.has_value());
        QCOMPARE(callIndex.Steps().at(place->step).first + place->inStep - 1, call);
    }
    QVERIFY(!callIndex.PositionOf(0).has_value());
    QVERIFY(!callIndex.PositionOf(callIndex.Calls() + 1).has_value());
}

void SweepTest::scenarioMakesTheSameCalls() {
    const auto calls = [] {
        QStringList texts;
        const CallIndex index(*FindScenario(QStringLiteral("difference")));
        for (const IndexedStep& step : index.Steps()) {
            for (const JournalEntry& call : step.calls) {
                texts.append(step.step.name + QLatin1Char(' ') + QString::fromStdString(CallText(call)));
            }
        }
        return texts;
    };
    const QStringList first = calls();
    // The step counts readings for 5 s by the date, which advances by 200 ms with each query.
    const int timed = first.filter(QRegularExpression(QStringLiteral("^readburst-timed "))).size();
    QVERIFY2(timed > 20 && timed < 100, qPrintable(QString::number(timed)));
    QCOMPARE(calls(), first);
}

void SweepTest::failuresHaveTexts() {
    for (const FaultType faultType : FaultTypes()) {
        const std::optional<Failure> again = FailureFromText(ToText(Failure{faultType, 17}));
        QVERIFY(again.has_value());
        QCOMPARE(again->faultType, faultType);
        QCOMPARE(again->call, std::uint64_t{17});
    }
    for (const char* text : {"", "once", "once@", "once@0", "once@x", "twice@3", "@3"}) {
        QVERIFY2(!FailureFromText(QLatin1String(text)).has_value(), text);
    }
}

void SweepTest::sampleIsTheSeeds() {
    std::vector<Failure> failures;
    for (const FaultType faultType : FaultTypes()) {
        for (std::uint64_t call = 1; call <= (faultType == FaultType::Code ? 3 : 50); ++call) {
            failures.push_back({faultType, call});
        }
    }
    const std::vector<Failure> chosen = SampleOf(failures, 60, 1);
    QCOMPARE(chosen.size(), std::size_t{60});
    QCOMPARE(ToText(SampleOf(failures, 60, 1)), ToText(chosen));
    QVERIFY(ToText(SampleOf(failures, 60, 2)) != ToText(chosen));
    std::map<FaultType, int> counts;
    QSet<QString> different;
    for (const Failure& failure : chosen) {
        ++counts[failure.faultType];
        different.insert(ToText(failure));
    }
    QCOMPARE(different.size(), 60);
    QCOMPARE(counts[FaultType::Code], 3);
    for (const FaultType faultType : {FaultType::Once, FaultType::OnceRuntimeError, FaultType::Persistent,
                                      FaultType::PersistentRuntimeError, FaultType::Slow}) {
        QVERIFY(counts[faultType] == 11 || counts[faultType] == 12);
    }
    QCOMPARE(SampleOf(failures, 1000, 1).size(), failures.size());
}

void SweepTest::shardsMakeTheWhole() {
    std::vector<Failure> failures;
    for (std::uint64_t call = 1; call <= 10; ++call) {
        failures.push_back({FaultType::Once, call});
    }
    QCOMPARE(ToText(ShardOf(failures, 1, 3)), QStringLiteral("once@1 once@4 once@7 once@10"));
    QCOMPARE(ToText(ShardOf(failures, 3, 3)), QStringLiteral("once@3 once@6 once@9"));
    QCOMPARE(ToText(ShardOf(failures, 1, 1)), ToText(failures));
}

TAVIK_TEST_MAIN(SweepTest)
#include "SweepTest.moc"
