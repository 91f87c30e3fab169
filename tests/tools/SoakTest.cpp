#include "tools/soak/Soak.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/oracle/Oracle.h"
#include "tools/tour/Steps.h"

#include <QTemporaryFile>

#include <cmath>

namespace {

using Values = std::vector<double>;

/// A value a round, made by a function of the round's number.
Values Series(int rounds, const std::function<double(int)>& value) {
    Values values;
    for (int round = 0; round < rounds; ++round) {
        values.push_back(value(round));
    }
    return values;
}

/// The same scatter each time: numbers between -1 and 1 that do not follow each other.
double Scatter(int round) {
    return std::sin(round * 12.9898) * std::cos(round * 78.233);
}

} // namespace

/// What a soak makes of its samples, and that it can go round.
class SoakTest : public QObject {
    Q_OBJECT

private slots:
    void lineThroughPointsOnALine();
    void lineThroughKnownPoints();
    void fewPointsHaveNoLine();
    void results_data();
    void results();
    void fewerValuesThanNeededAreInconclusive();
    void warmUpIsTheFirstQuarter();
    void samplesSeeWhatIsHeld();
    void shortRun();
    void whatGoesWrongIsTold();
};

void SoakTest::lineThroughPointsOnALine() {
    const Trend trend = TrendOf(Series(20, [](int round) { return 7.0 + 2.5 * round; }));
    QVERIFY(std::abs(trend.slope - 2.5) < 1e-12);
    QVERIFY(trend.margin < 1e-9);
}

void SoakTest::lineThroughKnownPoints() {
    // By hand: mean 4, squares 10, products 8; the residuals' squares are 1.6, over 3 degrees of freedom.
    const Trend trend = TrendOf({2.0, 4.0, 4.0, 4.0, 6.0});
    QVERIFY(std::abs(trend.slope - 0.8) < 1e-12);
    // Student's quantile for 3 degrees of freedom is 3.182; so few are the worst case of the series.
    QVERIFY(std::abs(trend.margin - 3.182 * std::sqrt(1.6 / 3.0 / 10.0)) < 0.03);
}

void SoakTest::fewPointsHaveNoLine() {
    for (const Values& values : {Values{}, Values{1.0}, Values{1.0, 5.0}}) {
        QCOMPARE(TrendOf(values).slope, 0.0);
        QCOMPARE(TrendOf(values).margin, 0.0);
    }
}

void SoakTest::results_data() {
    QTest::addColumn<Values>("values");
    QTest::addColumn<QString>("result");
    constexpr int rounds = 40;
    QTest::newRow("always the same") << Series(rounds, [](int) { return 5000.0; }) << QStringLiteral("pass");
    QTest::newRow("scatters about a mean")
        << Series(rounds, [](int round) { return 5000.0 + 3.0 * Scatter(round); }) << QStringLiteral("pass");
    QTest::newRow("shrinks") << Series(rounds, [](int round) { return 5000.0 - 4.0 * round; })
                             << QStringLiteral("pass");
    QTest::newRow("grows by less than the limit")
        << Series(rounds, [](int round) { return 5000.0 + 0.5 * round; }) << QStringLiteral("pass");
    QTest::newRow("grows") << Series(rounds, [](int round) { return 5000.0 + 2.0 * round; }) << QStringLiteral("fail");
    QTest::newRow("grows and scatters") << Series(rounds, [](int round) {
        return 5000.0 + 2.0 * round + 5.0 * Scatter(round);
    }) << QStringLiteral("fail");
    QTest::newRow("one object every other round")
        << Series(rounds, [](int round) { return std::floor(1.5 * round); }) << QStringLiteral("fail");
    QTest::newRow("scatters too much") << Series(rounds, [](int round) { return 5000.0 + 900.0 * Scatter(round); })
                                       << QStringLiteral("inconclusive");
    QTest::newRow("grows by about the limit")
        << Series(rounds, [](int round) { return 5000.0 + 1.0 * round + 9.0 * Scatter(round); })
        << QStringLiteral("inconclusive");
}

void SoakTest::results() {
    QFETCH(Values, values);
    QFETCH(QString, result);
    QCOMPARE(QString::fromLatin1(ToText(ResultOf(values, 1.0))), result);
}

void SoakTest::fewerValuesThanNeededAreInconclusive() {
    const auto growing = [](int round) { return 100.0 * round; };
    const int fewest = static_cast<int>(fewestValues);
    QCOMPARE(ResultOf({}, 1.0), TrendResult::Inconclusive);
    QCOMPARE(ResultOf(Series(fewest - 1, growing), 1.0), TrendResult::Inconclusive);
    QCOMPARE(ResultOf(Series(fewest, growing), 1.0), TrendResult::Fail);
}

void SoakTest::warmUpIsTheFirstQuarter() {
    QCOMPARE(AfterWarmUp({}), Values());
    QCOMPARE(AfterWarmUp({1.0}), Values());
    QCOMPARE(AfterWarmUp({1.0, 2.0, 3.0, 4.0}), Values({2.0, 3.0, 4.0}));
    QCOMPARE(AfterWarmUp({1.0, 2.0, 3.0, 4.0, 5.0}), Values({3.0, 4.0, 5.0}));
}

void SoakTest::samplesSeeWhatIsHeld() {
    const Sample before = TakeSample();
    QVERIFY(before.residentBytes > before.heapBytes);
    QVERIFY(before.threads >= 1.0);
    QVERIFY(before.files >= 3.0);
    {
        QObject first;
        QObject second(&first);
        QTemporaryFile file;
        QVERIFY(file.open());
        const Sample during = TakeSample();
        // The file is an object too.
        QCOMPARE(during.objects - before.objects, 3.0);
        QCOMPARE(during.files - before.files, 1.0);
        QCOMPARE(during.threads, before.threads);
    }
    const Sample after = TakeSample();
    QCOMPARE(after.objects, before.objects);
    QCOMPARE(after.files, before.files);
}

void SoakTest::shortRun() {
    const TourBench bench = DifferenceTourBench();
    constexpr double speed = 1000.0;
    Soak soak(bench, RepeatedSteps(ModesTourSteps(bench)), speed);
    soak.Round();
    soak.Round();
    soak.Close();
    QVERIFY2(soak.Failures().isEmpty(), qPrintable(soak.Failures().join(QLatin1Char('\n'))));
    QCOMPARE(soak.Samples().size(), std::size_t{2});
    QVERIFY(soak.Samples().back().objects > 100.0);
    QVERIFY(Soak::BenchSeconds() > 0.0);
    const std::vector<Finding> findings = soak.Findings();
    QCOMPARE(findings.size(), std::size_t{5});
    for (const Finding& finding : findings) {
        QCOMPARE(finding.result, TrendResult::Inconclusive);
        QCOMPARE(finding.first, finding.last);
    }
    QCOMPARE(Oracle::TeardownErrors(), QStringList());
}

void SoakTest::whatGoesWrongIsTold() {
    const TourBench bench = DifferenceTourBench();
    const std::vector<TourStep> steps = {{QStringLiteral("impossible"), Location(),
                                          [](Tour& tour) { tour.Operator().Click("btnNowhere"); },
                                          [](Tour&) { return false; }, LastResortOnly}};
    Soak soak(bench, steps, 1.0);
    soak.Round();
    soak.Close();
    QCOMPARE(soak.Failures().size(), 2);
    QVERIFY(soak.Failures().first().contains(QLatin1String("btnNowhere")));
    QVERIFY(soak.Failures().last().startsWith(QLatin1String("round 1, impossible: ")));
}

int main(int argc, char* argv[]) {
    const bool counted = CountObjects();
    const Application application(argc, argv);
    if (!counted) {
        qWarning("This Qt build has no object hooks.");
        return 1;
    }
    GuardedTest<SoakTest> test;
    return QTest::qExec(&test, argc, argv);
}

#include "SoakTest.moc"
