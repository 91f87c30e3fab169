#include "simulator/signals/Noise.h"

#include "tests/simulator/signals/Statistics.h"

#include <QtTest>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

using namespace TavikSimulator;
using namespace Statistics;

namespace {

constexpr std::size_t Samples = 200000;
// Probes ask for noise at the instants of their samples, in nanoseconds.
constexpr std::int64_t SampleStep = 256000;

std::vector<double> NoiseOf(std::uint64_t seed, std::int64_t step) {
    std::vector<double> values(Samples);
    for (std::size_t i = 0; i < Samples; ++i) {
        values[i] = NormalNoise(seed, static_cast<std::int64_t>(i) * step);
    }
    return values;
}

double NormalDistribution(double x) {
    return 0.5 * std::erfc(-x / std::sqrt(2.0));
}

double NormalDensity(double x) {
    return std::exp(-0.5 * x * x) / std::sqrt(2.0 * std::acos(-1.0));
}

} // namespace

class NoiseTest : public QObject {
    Q_OBJECT

private slots:
    void bitsAreThoseOfSplitMix64();
    void quantileInvertsTheNormalDistribution_data();
    void quantileInvertsTheNormalDistribution();
    void isStandardNormal_data();
    void isStandardNormal();
    void isWhite_data();
    void isWhite();
    void neighbouringSeedsShareNothing();
    void everyNameHasASeedOfItsOwn();
};

// This seed mixes to 1234567, for which the generator's sequence is published.
void NoiseTest::bitsAreThoseOfSplitMix64() {
    constexpr std::uint64_t seed = 0xA53C84059609E98EULL;
    QCOMPARE(RandomBits(seed, 1), 6457827717110365317ULL);
    QCOMPARE(RandomBits(seed, 2), 3203168211198807973ULL);
    QCOMPARE(RandomBits(seed, 3), 9817491932198370423ULL);
    QCOMPARE(RandomBits(seed, 4), 4593380528125082431ULL);
    QCOMPARE(RandomBits(seed, 5), 16408922859458223821ULL);
}

void NoiseTest::quantileInvertsTheNormalDistribution_data() {
    QTest::addColumn<double>("probability");
    for (const double probability : {0x1p-53, 1e-12, 1e-6, 0.001, 0.02424, 0.02426, 0.1, 0.3, 0.49, 0.5, 0.51, 0.8,
                                     0.97574, 0.97576, 0.999, 0.999999}) {
        QTest::newRow(qPrintable(QString::number(probability, 'g', 12))) << probability;
    }
}

void NoiseTest::quantileInvertsTheNormalDistribution() {
    QFETCH(double, probability);
    const double x = NormalQuantile(probability);
    // A relative error e of x moves the probability by e * x * density; the rest is the rounding of erfc.
    const double bound = 1.2e-9 * std::fabs(x) * NormalDensity(x) + 1e-13 * probability;
    QVERIFY2(std::fabs(NormalDistribution(x) - probability) <= bound,
             qPrintable(QString::number(NormalDistribution(x) - probability)));
}

void NoiseTest::isStandardNormal_data() {
    QTest::addColumn<quint64>("seed");
    QTest::addColumn<qint64>("step");
    QTest::newRow("neighbouring counters") << quint64(0) << qint64(1);
    QTest::newRow("a probe's samples") << quint64(1) << qint64(SampleStep);
    QTest::newRow("a named seed") << quint64(SeedFor(7, "0123456789")) << qint64(SampleStep);
}

void NoiseTest::isStandardNormal() {
    QFETCH(quint64, seed);
    QFETCH(qint64, step);
    const std::vector<double> values = NoiseOf(seed, step);

    QVERIFY(std::fabs(Mean(values)) < BoundOfMean(1.0, Samples));
    QVERIFY(std::fabs(Deviation(values) - 1.0) < BoundOfDeviation(1.0, Samples));
    // Third and fourth moment of n normal values have the variances 15 / n and 96 / n.
    QVERIFY(std::fabs(Moment(values, 0.0, 3)) < BoundOfMean(std::sqrt(15.0), Samples));
    QVERIFY(std::fabs(Moment(values, 0.0, 4) - 3.0) < BoundOfMean(std::sqrt(96.0), Samples));

    for (const double limit : {-3.0, -2.0, -1.0, 0.0, 1.0, 2.0, 3.0}) {
        std::size_t below = 0;
        for (const double value : values) {
            below += value < limit ? 1 : 0;
        }
        const double expected = NormalDistribution(limit);
        const double error = static_cast<double>(below) / static_cast<double>(Samples) - expected;
        QVERIFY(std::fabs(error) < BoundOfMean(std::sqrt(expected * (1.0 - expected)), Samples));
    }
}

void NoiseTest::isWhite_data() {
    isStandardNormal_data();
}

void NoiseTest::isWhite() {
    QFETCH(quint64, seed);
    QFETCH(qint64, step);
    const std::vector<double> values = Standardised(NoiseOf(seed, step));
    for (std::size_t lag = 1; lag <= 40; ++lag) {
        QVERIFY2(std::fabs(Correlation(values, values, lag)) < BoundOfNoCorrelation(Samples - lag),
                 qPrintable(QStringLiteral("lag %1").arg(lag)));
    }
}

void NoiseTest::neighbouringSeedsShareNothing() {
    const std::vector<double> one = Standardised(NoiseOf(1, 1));
    for (const std::uint64_t seed : {0ULL, 2ULL, 1ULL + 0x9E3779B97F4A7C15ULL}) {
        const std::vector<double> other = Standardised(NoiseOf(seed, 1));
        for (std::size_t lag = 0; lag <= 10; ++lag) {
            QVERIFY(std::fabs(Correlation(one, other, lag)) < BoundOfNoCorrelation(Samples - lag));
            QVERIFY(std::fabs(Correlation(other, one, lag)) < BoundOfNoCorrelation(Samples - lag));
        }
    }
}

void NoiseTest::everyNameHasASeedOfItsOwn() {
    std::set<std::uint64_t> seeds;
    for (std::uint64_t bench = 0; bench < 10; ++bench) {
        for (int module = 0; module < 1000; ++module) {
            seeds.insert(SeedFor(bench, "module " + std::to_string(module)));
        }
    }
    QCOMPARE(seeds.size(), std::size_t(10000));
    QCOMPARE(SeedFor(3, "module 5"), SeedFor(3, std::string("module 5")));
    QVERIFY(seeds.count(SeedFor(3, "module 5")) == 1);
}

QTEST_APPLESS_MAIN(NoiseTest)

#include "NoiseTest.moc"
