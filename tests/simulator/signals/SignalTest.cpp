#include "simulator/signals/Signal.h"

#include "tests/simulator/signals/Statistics.h"
#include "tests/simulator/signals/Threads.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <complex>
#include <vector>

using namespace TavikSimulator;
using namespace Statistics;

namespace {

constexpr std::int64_t Second = 1000000000;
// Rounding of sums of a few numbers around 1.
constexpr double Rounding = 1e-14;

SignalDescription Moving(Motion motion) {
    SignalDescription description;
    description.base = 1.0;
    description.motion = motion;
    description.amplitude = 0.25;
    description.period = 2.0;
    return description;
}

SignalDescription EverythingAtOnce() {
    SignalDescription description = Moving(Motion::Sine);
    description.harmonics = {{1, 0.02, 0.1}, {3, 0.005, 0.7}};
    description.driftAmplitude = 0.01;
    description.warmUp = 0.004;
    description.noise = 0.001;
    description.seed = 42;
    return description;
}

// The amplitude and phase of one term of the series that describes one revolution of a part.
std::complex<double> TermOf(const std::vector<double>& revolution, int lobes) {
    const double turn = 2.0 * std::acos(-1.0);
    std::complex<double> sum = 0.0;
    for (std::size_t i = 0; i < revolution.size(); ++i) {
        const double angle = turn * static_cast<double>(i) / static_cast<double>(revolution.size());
        sum += revolution[i] * std::polar(1.0, -lobes * angle);
    }
    // A sine of phase 0 turns out at -90 degrees; turn it to 0.
    return sum * 2.0 / static_cast<double>(revolution.size()) * std::complex<double>(0.0, 1.0);
}

} // namespace

Q_DECLARE_METATYPE(TavikSimulator::Motion)

class SignalTest : public QObject {
    Q_OBJECT

private slots:
    void motionsPassThroughTheirPoints_data();
    void motionsPassThroughTheirPoints();
    void periodicMotionsRepeatToTheBit_data();
    void periodicMotionsRepeatToTheBit();
    void periodicMotionsSwingAboutTheBase_data();
    void periodicMotionsSwingAboutTheBase();
    void stepsPresentPartAfterPart();
    void rampLeavesTheBaseAtItsRate();
    void rampStartsAgainAfterEachPeriod();
    void formHasTheDescribedHarmonicsOnly();
    void driftSwingsSlowly();
    void warmUpFollowsAFirstOrderLag();
    void partsAddUp();
    void noiseHasTheDescribedDeviationAboutTheSignal();
    void timesAreResolvedToNanoseconds();
    void sameSeedSameValuesInAnyOrderFromAnyThread();
    void anotherSeedGivesOtherValues();
};

void SignalTest::motionsPassThroughTheirPoints_data() {
    QTest::addColumn<Motion>("motion");
    QTest::addColumn<double>("phase");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("position");
    const auto row = [](const char* name, Motion motion, double phase, double seconds, double position) {
        QTest::newRow(name) << motion << phase << seconds << position;
    };
    row("still", Motion::Still, 0.0, 0.7, 1.0);
    row("sine begins at the base", Motion::Sine, 0.0, 0.0, 1.0);
    row("sine rises", Motion::Sine, 0.0, 1.0 / 6.0, 1.125);
    row("sine at its top", Motion::Sine, 0.0, 0.5, 1.25);
    row("sine through the base", Motion::Sine, 0.0, 1.0, 1.0);
    row("sine at its bottom", Motion::Sine, 0.0, 1.5, 0.75);
    row("sine a quarter turn on", Motion::Sine, 0.25, 0.0, 1.25);
    row("sine a quarter turn back", Motion::Sine, -0.25, 0.0, 0.75);
    row("triangle begins at the base", Motion::Triangle, 0.0, 0.0, 1.0);
    row("triangle rises in a line", Motion::Triangle, 0.0, 0.1, 1.05);
    row("triangle at its top", Motion::Triangle, 0.0, 0.5, 1.25);
    row("triangle falls in a line", Motion::Triangle, 0.0, 1.2, 0.9);
    row("triangle at its bottom", Motion::Triangle, 0.0, 1.5, 0.75);
    row("triangle rises again", Motion::Triangle, 0.0, 1.8, 0.9);
    row("triangle half a turn on", Motion::Triangle, 2.5, 0.1, 0.95);
    row("square begins high", Motion::Square, 0.0, 0.0, 1.25);
    row("square is high to the middle", Motion::Square, 0.0, 0.999999999, 1.25);
    row("square is low from the middle", Motion::Square, 0.0, 1.0, 0.75);
    row("square is low to the end", Motion::Square, 0.0, 1.999999999, 0.75);
    row("square is high again", Motion::Square, 0.0, 2.0, 1.25);
    row("square half a turn on", Motion::Square, 0.5, 0.0, 0.75);
    row("before bench time 0", Motion::Square, 0.0, -0.5, 0.75);
}

void SignalTest::motionsPassThroughTheirPoints() {
    QFETCH(Motion, motion);
    QFETCH(double, phase);
    QFETCH(double, seconds);
    QFETCH(double, position);
    SignalDescription description = Moving(motion);
    description.phase = phase;
    // Times are rounded to nanoseconds, in which the steepest motion covers 0.8e-9.
    QVERIFY2(std::fabs(Signal(description).At(FromSeconds(seconds)) - position) < 1e-9,
             qPrintable(QString::number(Signal(description).At(FromSeconds(seconds)), 'g', 17)));
}

void SignalTest::periodicMotionsRepeatToTheBit_data() {
    QTest::addColumn<Motion>("motion");
    QTest::newRow("sine") << Motion::Sine;
    QTest::newRow("triangle") << Motion::Triangle;
    QTest::newRow("square") << Motion::Square;
}

// However long the bench has been running: a billion periods are 63 years.
void SignalTest::periodicMotionsRepeatToTheBit() {
    QFETCH(Motion, motion);
    const Signal signal(Moving(motion));
    for (std::int64_t time = 0; time < 2 * Second; time += 12345678) {
        const double value = signal.WithoutNoise(Nanoseconds(time));
        for (const std::int64_t periods : {-1LL, 1LL, 1000LL, 1000000000LL}) {
            QVERIFY(signal.WithoutNoise(Nanoseconds(time + periods * 2 * Second)) == value);
        }
    }
}

void SignalTest::periodicMotionsSwingAboutTheBase_data() {
    periodicMotionsRepeatToTheBit_data();
}

void SignalTest::periodicMotionsSwingAboutTheBase() {
    QFETCH(Motion, motion);
    const Signal signal(Moving(motion));
    std::vector<double> values;
    for (std::int64_t time = 0; time < 2 * Second; time += Second / 1000) {
        values.push_back(signal.WithoutNoise(Nanoseconds(time)));
    }
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    QVERIFY(std::fabs(*lowest - 0.75) < Rounding);
    QVERIFY(std::fabs(*highest - 1.25) < Rounding);
    QVERIFY(std::fabs(Mean(values) - 1.0) < Rounding);
}

void SignalTest::stepsPresentPartAfterPart() {
    SignalDescription description = Moving(Motion::Steps);
    description.period = 0.1;
    description.parts = {0.0, 0.003, -0.002};
    const Signal signal(description);
    for (std::int64_t part = -6; part < 3000; ++part) {
        const double deviation = description.parts[static_cast<std::size_t>((part + 6) % 3)];
        QVERIFY(signal.WithoutNoise(Nanoseconds(part * Second / 10)) == 1.0 + deviation);
        QVERIFY(signal.WithoutNoise(Nanoseconds((part + 1) * Second / 10 - 1)) == 1.0 + deviation);
    }
}

void SignalTest::rampLeavesTheBaseAtItsRate() {
    SignalDescription description = Moving(Motion::Ramp);
    description.rate = -0.5;
    description.period = 0.0;
    const Signal signal(description);
    QVERIFY(signal.At(FromSeconds(-3.0)) == 1.0);
    QVERIFY(signal.At(FromSeconds(0.0)) == 1.0);
    QVERIFY(signal.At(FromSeconds(0.5)) == 0.75);
    QVERIFY(signal.At(FromSeconds(1000.0)) == -499.0);
}

void SignalTest::rampStartsAgainAfterEachPeriod() {
    SignalDescription description = Moving(Motion::Ramp);
    description.rate = 0.5;
    const Signal signal(description);
    QVERIFY(signal.At(FromSeconds(1.5)) == 1.75);
    QVERIFY(signal.At(FromSeconds(2.0)) == 1.0);
    QVERIFY(signal.At(FromSeconds(3.5)) == 1.75);
    QVERIFY(std::fabs(signal.At(FromSeconds(1.999999999)) - 2.0) < 1e-9);
}

void SignalTest::formHasTheDescribedHarmonicsOnly() {
    SignalDescription description;
    description.revolution = 0.72;
    description.harmonics = {{1, 0.03, 0.0}, {2, 0.004, 0.25}, {5, 0.002, 0.6}, {100, 0.001, 0.1}};
    const Signal signal(description);
    std::vector<double> revolution(720);
    for (std::size_t i = 0; i < revolution.size(); ++i) {
        revolution[i] = signal.WithoutNoise(Nanoseconds(static_cast<std::int64_t>(i) * Second / 1000));
    }
    for (int lobes = 1; lobes <= 200; ++lobes) {
        std::complex<double> expected = 0.0;
        for (const Harmonic& harmonic : description.harmonics) {
            if (harmonic.lobes == lobes) {
                expected = std::polar(harmonic.amplitude, 2.0 * std::acos(-1.0) * harmonic.phase);
            }
        }
        QVERIFY2(std::abs(TermOf(revolution, lobes) - expected) < Rounding,
                 qPrintable(QStringLiteral("%1 lobes").arg(lobes)));
    }
    QVERIFY(std::fabs(Mean(revolution)) < Rounding);
}

void SignalTest::driftSwingsSlowly() {
    SignalDescription description;
    description.base = 0.5;
    description.driftAmplitude = 0.01;
    description.driftPeriod = 3600.0;
    const Signal signal(description);
    QVERIFY(signal.At(FromSeconds(0.0)) == 0.5);
    QVERIFY(std::fabs(signal.At(FromSeconds(300.0)) - 0.505) < Rounding);
    QVERIFY(std::fabs(signal.At(FromSeconds(900.0)) - 0.51) < Rounding);
    QVERIFY(std::fabs(signal.At(FromSeconds(2700.0)) - 0.49) < Rounding);
    QVERIFY(std::fabs(signal.At(FromSeconds(3600.0)) - 0.5) < Rounding);
}

void SignalTest::warmUpFollowsAFirstOrderLag() {
    SignalDescription description;
    description.warmUp = -0.02;
    description.warmUpTime = 600.0;
    const Signal signal(description);
    QVERIFY(signal.At(FromSeconds(-100.0)) == 0.0);
    QVERIFY(signal.At(FromSeconds(0.0)) == 0.0);
    QVERIFY(std::fabs(signal.At(FromSeconds(600.0)) - -0.02 * (1.0 - std::exp(-1.0))) < Rounding);
    // After ln 2 time constants half of it is done.
    QVERIFY(std::fabs(signal.At(FromSeconds(600.0 * std::log(2.0))) - -0.01) < 1e-12);
    QVERIFY(std::fabs(signal.At(FromSeconds(1e5)) - -0.02) < Rounding);
}

void SignalTest::partsAddUp() {
    const SignalDescription all = EverythingAtOnce();
    SignalDescription motion = Moving(Motion::Sine);
    SignalDescription form;
    form.harmonics = all.harmonics;
    SignalDescription drift;
    drift.driftAmplitude = all.driftAmplitude;
    SignalDescription warmUp;
    warmUp.warmUp = all.warmUp;
    for (const std::int64_t time : {0 * Second, Second / 7, 4000 * Second, 86400 * Second}) {
        double sum = 0.0;
        for (const SignalDescription& part : {motion, form, drift, warmUp}) {
            sum += Signal(part).At(Nanoseconds(time));
        }
        QVERIFY(std::fabs(Signal(all).WithoutNoise(Nanoseconds(time)) - sum) < Rounding);
    }
}

void SignalTest::noiseHasTheDescribedDeviationAboutTheSignal() {
    const Signal signal(EverythingAtOnce());
    std::vector<double> noise(100000);
    for (std::size_t i = 0; i < noise.size(); ++i) {
        const auto time = static_cast<std::int64_t>(i) * 1024000;
        noise[i] = signal.At(Nanoseconds(time)) - signal.WithoutNoise(Nanoseconds(time));
    }
    QVERIFY(std::fabs(Mean(noise)) < BoundOfMean(0.001, noise.size()));
    QVERIFY(std::fabs(Deviation(noise) - 0.001) < BoundOfDeviation(0.001, noise.size()));
}

void SignalTest::timesAreResolvedToNanoseconds() {
    QVERIFY(FromSeconds(0.0) == Nanoseconds(0));
    QVERIFY(FromSeconds(256e-6) == Nanoseconds(256000));
    QVERIFY(FromSeconds(1.4e-9) == Nanoseconds(1));
    QVERIFY(FromSeconds(1.6e-9) == Nanoseconds(2));
    QVERIFY(FromSeconds(-1.6e-9) == Nanoseconds(-2));
    QVERIFY(FromSeconds(1e6) == Nanoseconds(1000000 * Second));

    const Signal signal(EverythingAtOnce());
    QVERIFY(signal.At(FromSeconds(0.7)) == signal.At(Nanoseconds(700000000)));
    QVERIFY(signal.At(FromSeconds(0.7 + 0.4e-9)) == signal.At(FromSeconds(0.7)));

    SignalDescription noiseOnly;
    noiseOnly.noise = 1.0;
    const Signal noise(noiseOnly);
    for (std::int64_t time = 700000000; time < 700000100; ++time) {
        QVERIFY(noise.At(Nanoseconds(time)) != noise.At(Nanoseconds(time + 1)));
    }
}

void SignalTest::sameSeedSameValuesInAnyOrderFromAnyThread() {
    const std::size_t count = 1U << 14U;
    const Signal signal(EverythingAtOnce());
    const Signal again(EverythingAtOnce());
    const auto answers =
        AskedFromThreads(count, [&](std::size_t i) { return signal.At(FromSeconds(static_cast<double>(i) * 1e-4)); });
    for (std::size_t i = 0; i < count; ++i) {
        const double value = again.At(FromSeconds(static_cast<double>(i) * 1e-4));
        for (const std::vector<double>& thread : answers) {
            QVERIFY(thread[i] == value);
        }
    }
}

void SignalTest::anotherSeedGivesOtherValues() {
    SignalDescription description = EverythingAtOnce();
    const Signal signal(description);
    ++description.seed;
    const Signal other(description);
    for (std::int64_t time = 0; time < 1000; ++time) {
        QVERIFY(signal.At(Nanoseconds(time)) != other.At(Nanoseconds(time)));
        QVERIFY(signal.WithoutNoise(Nanoseconds(time)) == other.WithoutNoise(Nanoseconds(time)));
    }
}

QTEST_APPLESS_MAIN(SignalTest)

#include "SignalTest.moc"
