#include "simulator/hardware/ProbePhysics.h"
#include "tests/simulator/signals/Statistics.h"

#include <QtTest>

#include <cmath>
#include <vector>

using namespace TavikSimulator;
using namespace Statistics;

namespace {

constexpr int OverRange = 0x2113;
constexpr int Unsettled = 0x10001;
constexpr double SamplePeriod = 256e-6;
constexpr double Noise = 0.01; // mm: 1300 counts, so that rounding to counts plays no part

ProbeDescription NoisyProbe(int samples) {
    ProbeDescription description;
    description.resolutionBits = 18;
    description.averagingSamples = samples;
    description.samplePeriod = SamplePeriod;
    description.signal.base = 1.0;
    description.signal.noise = Noise;
    description.signal.seed = 5;
    return description;
}

std::vector<double> Readings(const ProbePhysics& probe, std::size_t count, int samplesApart) {
    std::vector<double> readings(count);
    for (std::size_t i = 0; i < count; ++i) {
        readings[i] = probe.ReadAt(FromSeconds(static_cast<double>(i) * samplesApart * SamplePeriod)).units;
    }
    return readings;
}

} // namespace

class ProbeAveragingTest : public QObject {
    Q_OBJECT

private slots:
    void loweringTheDeviationBySquareRoot_data();
    void loweringTheDeviationBySquareRoot();
    void windowsThatOverlapShareTheirSamples();
    void motionIsAveragedOverTheWindow();
    void steadyMotionIsSeenLate_data();
    void steadyMotionIsSeenLate();
    void limitsApplyToTheMean();
    void readingsAreUnsettledUntilTheWindowIsFull_data();
    void readingsAreUnsettledUntilTheWindowIsFull();
    void unsettledReadingsAverageWhatThereIs();
    void everySettingAndPowerOnStartAnew();
    void withoutAveragingReadingsAreSettledAtOnce();
    void beyondTheStrokeStaysBeyondWhileUnsettled();
};

void ProbeAveragingTest::loweringTheDeviationBySquareRoot_data() {
    QTest::addColumn<int>("samples");
    for (int samples = 1; samples <= 256; samples *= 2) {
        QTest::newRow(qPrintable(QString::number(samples))) << samples;
    }
}

void ProbeAveragingTest::loweringTheDeviationBySquareRoot() {
    QFETCH(int, samples);
    constexpr std::size_t count = 4000;
    const std::vector<double> readings = Readings(ProbePhysics(NoisyProbe(samples)), count, samples);
    const double expected = Noise / std::sqrt(samples);
    QVERIFY(std::fabs(Mean(readings) - 1.0) < BoundOfMean(expected, count));
    // The bound is 5 %; one step of averaging more or less would be 41 %.
    QVERIFY2(std::fabs(Deviation(readings) - expected) < BoundOfDeviation(expected, count),
             qPrintable(QString::number(Deviation(readings) / expected)));
}

// Means over n samples whose windows are k samples apart have n - k samples in common.
void ProbeAveragingTest::windowsThatOverlapShareTheirSamples() {
    constexpr std::size_t count = 20000;
    const std::vector<double> readings = Standardised(Readings(ProbePhysics(NoisyProbe(16)), count, 1));
    for (std::size_t apart = 1; apart <= 24; ++apart) {
        const double expected = apart < 16 ? 1.0 - static_cast<double>(apart) / 16.0 : 0.0;
        // The readings hang together over 16 samples: a 16th of them counts as independent.
        QVERIFY2(std::fabs(Correlation(readings, readings, apart) - expected) < BoundOfNoCorrelation(count / 16),
                 qPrintable(QString::number(apart)));
    }
}

void ProbeAveragingTest::motionIsAveragedOverTheWindow() {
    ProbeDescription description = NoisyProbe(64);
    description.signal.noise = 0.0;
    description.signal.motion = Motion::Sine;
    description.signal.amplitude = 0.5;
    description.signal.period = 64 * SamplePeriod;
    const ProbePhysics averaging(description);
    description.averagingSamples = 1;
    const ProbePhysics quick(description);
    const double step = 1.0 / averaging.CountsPerUnit();

    double highest = 0.0;
    for (int sample = 0; sample < 200; ++sample) {
        // A window as long as the period sees the whole swing, and so none of it.
        QVERIFY(std::fabs(averaging.ReadAt(FromSeconds(sample * SamplePeriod)).units - 1.0) <= step);
        highest = std::fmax(highest, quick.ReadAt(FromSeconds(sample * SamplePeriod)).units);
    }
    QVERIFY(std::fabs(highest - 1.5) <= step);
}

void ProbeAveragingTest::steadyMotionIsSeenLate_data() {
    loweringTheDeviationBySquareRoot_data();
}

// The mean of the last n samples of a part on the move is where it was (n - 1) / 2 samples ago.
void ProbeAveragingTest::steadyMotionIsSeenLate() {
    QFETCH(int, samples);
    ProbeDescription description = NoisyProbe(samples);
    description.signal.noise = 0.0;
    description.signal.base = 0.0;
    description.signal.motion = Motion::Ramp;
    description.signal.period = 0.0;
    description.signal.rate = 0.5;
    const ProbePhysics probe(description);
    for (int sample = 1000; sample < 5000; sample += 37) {
        const double late = (samples - 1) / 2.0 * SamplePeriod;
        const double expected = 0.5 * (sample * SamplePeriod - late);
        QVERIFY(std::fabs(probe.ReadAt(FromSeconds(sample * SamplePeriod)).units - expected) <=
                0.5001 / probe.CountsPerUnit());
    }
}

// Samples of a noisy part at the very end of the stroke lie on both sides of it; their mean settles
// there and is not pulled inwards.
void ProbeAveragingTest::limitsApplyToTheMean() {
    ProbeDescription description = NoisyProbe(256);
    description.signal.base = 2.0 - Noise / 4.0;
    const std::vector<double> readings = Readings(ProbePhysics(description), 200, 256);
    QVERIFY(std::fabs(Mean(readings) - description.signal.base) < BoundOfMean(Noise / 16.0, 200));
}

void ProbeAveragingTest::readingsAreUnsettledUntilTheWindowIsFull_data() {
    QTest::addColumn<int>("samples");
    for (const int samples : {2, 16, 256}) {
        QTest::newRow(qPrintable(QString::number(samples))) << samples;
    }
}

void ProbeAveragingTest::readingsAreUnsettledUntilTheWindowIsFull() {
    QFETCH(int, samples);
    const double change = 1000 * SamplePeriod;
    ProbePhysics probe(NoisyProbe(1));
    probe.SetAveragingSamples(samples, FromSeconds(change));
    QCOMPARE(probe.AveragingSamples(), samples);
    QCOMPARE(ToSeconds(probe.SettlingTime()), (samples - 1) * SamplePeriod);

    for (int sample = 0; sample < 2 * samples; ++sample) {
        const int expected = sample < samples - 1 ? Unsettled : 0;
        QCOMPARE(probe.ReadAt(FromSeconds(change + sample * SamplePeriod)).code, expected);
    }
    const ProbePhysics longRunning(NoisyProbe(samples));
    const double settled = change + ToSeconds(probe.SettlingTime());
    QCOMPARE(longRunning.ReadAt(FromSeconds(settled)).code, 0);
    QCOMPARE(probe.ReadAt(FromSeconds(settled)).counts, longRunning.ReadAt(FromSeconds(settled)).counts);
}

void ProbeAveragingTest::unsettledReadingsAverageWhatThereIs() {
    const double change = 1000 * SamplePeriod;
    ProbePhysics probe(NoisyProbe(1));
    probe.SetAveragingSamples(64, FromSeconds(change));
    for (const int collected : {1, 2, 4, 8, 16, 32}) {
        const double time = change + (collected - 1) * SamplePeriod;
        QCOMPARE(probe.ReadAt(FromSeconds(time)).code, Unsettled);
        QCOMPARE(probe.ReadAt(FromSeconds(time)).counts,
                 ProbePhysics(NoisyProbe(collected)).ReadAt(FromSeconds(time)).counts);
    }
}

void ProbeAveragingTest::everySettingAndPowerOnStartAnew() {
    ProbePhysics probe(NoisyProbe(4));
    QCOMPARE(probe.ReadAt(FromSeconds(0.0)).code, 0);
    QCOMPARE(probe.ReadAt(FromSeconds(1.0)).code, 0);

    probe.SetResolutionBits(16, FromSeconds(1.0));
    QCOMPARE(probe.ReadAt(FromSeconds(1.0)).code, Unsettled);
    QCOMPARE(probe.ReadAt(FromSeconds(1.0 + ToSeconds(probe.SettlingTime()))).code, 0);
    probe.SetAveragingSamples(8, FromSeconds(2.0));
    QCOMPARE(probe.ReadAt(FromSeconds(2.0)).code, Unsettled);
    QCOMPARE(probe.ReadAt(FromSeconds(2.0 + ToSeconds(probe.SettlingTime()))).code, 0);
    probe.Restart(FromSeconds(3.0));
    QCOMPARE(probe.ReadAt(FromSeconds(3.0)).code, Unsettled);
    QCOMPARE(probe.ReadAt(FromSeconds(3.0 + ToSeconds(probe.SettlingTime()))).code, 0);
}

void ProbeAveragingTest::withoutAveragingReadingsAreSettledAtOnce() {
    ProbePhysics probe(NoisyProbe(1));
    probe.SetResolutionBits(14, FromSeconds(1.0));
    QCOMPARE(ToSeconds(probe.SettlingTime()), 0.0);
    QCOMPARE(probe.ReadAt(FromSeconds(1.0)).code, 0);
}

void ProbeAveragingTest::beyondTheStrokeStaysBeyondWhileUnsettled() {
    ProbeDescription description = NoisyProbe(8);
    description.signal.base = 3.0;
    ProbePhysics probe(description);
    probe.Restart(FromSeconds(1.0));
    QCOMPARE(probe.ReadAt(FromSeconds(1.0)).code, OverRange);
}

QTEST_APPLESS_MAIN(ProbeAveragingTest)

#include "ProbeAveragingTest.moc"
