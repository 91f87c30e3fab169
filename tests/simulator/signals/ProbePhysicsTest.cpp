#include "simulator/hardware/ProbePhysics.h"

#include "tests/simulator/signals/Threads.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>

using namespace TavikSimulator;
using TavikLibrary::eAveraging;
using TavikLibrary::eResolution;

namespace {

constexpr int UnderRange = 0x2112;
constexpr int OverRange = 0x2113;

using Change = std::function<void(ProbeDescription&)>;

// A probe of 2 mm about its middle, in front of a part that lies at the given position.
ProbeDescription ProbeAt(double position, int bits = 14) {
    ProbeDescription description;
    description.offset = -1.0;
    description.stroke = 2.0;
    description.resolutionBits = bits;
    description.signal.base = position;
    return description;
}

QString RefusalOf(const std::function<void()>& attempt) {
    try {
        attempt();
    } catch (const std::invalid_argument& refused) {
        return QString::fromUtf8(refused.what());
    }
    return QString();
}

} // namespace

Q_DECLARE_METATYPE(Change)

class ProbePhysicsTest : public QObject {
    Q_OBJECT

private slots:
    void resolutionsStandForBits();
    void averagingsStandForSamples();
    void impossibleProbesAreRefusedWithASentence_data();
    void impossibleProbesAreRefusedWithASentence();
    void impossibleSettingsAreRefusedAndChangeNothing();
    void readsAtEveryResolution_data();
    void readsAtEveryResolution();
    void nothingReadsBetweenTheSteps_data();
    void nothingReadsBetweenTheSteps();
    void limitsOfTheStroke_data();
    void limitsOfTheStroke();
    void samplesAtItsOwnPace();
    void everySampleComesOnTime();
    void sameSeedSameReadingsInAnyOrderFromAnyThread();
    void anotherSeedGivesOtherReadings();
};

void ProbePhysicsTest::resolutionsStandForBits() {
    int bits = 14;
    for (const eResolution resolution :
         {eResolution::Bits14, eResolution::Bits15, eResolution::Bits16, eResolution::Bits17, eResolution::Bits18}) {
        QVERIFY(BitsOf(resolution) == bits);
        QVERIFY(ResolutionOf(bits) == resolution);
        ++bits;
    }
    for (const int none : {-1, 5, 14, 1000000}) {
        QVERIFY(!BitsOf(static_cast<eResolution>(none)));
    }
    for (const int none : {-1, 0, 13, 19}) {
        QVERIFY(!ResolutionOf(none));
    }
}

void ProbePhysicsTest::averagingsStandForSamples() {
    int samples = 1;
    for (const eAveraging averaging :
         {eAveraging::Off, eAveraging::Samples2, eAveraging::Samples4, eAveraging::Samples8, eAveraging::Samples16,
          eAveraging::Samples32, eAveraging::Samples64, eAveraging::Samples128, eAveraging::Samples256}) {
        QVERIFY(SamplesOf(averaging) == samples);
        QVERIFY(AveragingOf(samples) == averaging);
        samples *= 2;
    }
    for (const int none : {-1, 9, 256}) {
        QVERIFY(!SamplesOf(static_cast<eAveraging>(none)));
    }
    for (const int none : {-2, 0, 3, 512}) {
        QVERIFY(!AveragingOf(none));
    }
}

void ProbePhysicsTest::impossibleProbesAreRefusedWithASentence_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, const Change& change, const QString& sentence) {
        QTest::newRow(name) << change << sentence;
    };
    using D = ProbeDescription;
    const QString offset = QStringLiteral("The offset must lie within +-1e9.");
    const QString stroke = QStringLiteral("The stroke must be 0.000001 to 1000000.");
    const QString samplePeriod = QStringLiteral("The sample period must be 0.000001 s to 1 s.");
    const QString bits = QStringLiteral("The resolution must be 14, 15, 16, 17 or 18 bits.");
    const QString samples = QStringLiteral("The averaging must be 1, 2, 4, 8, 16, 32, 64, 128 or 256 samples.");
    row(
        "offset", [](D& d) { d.offset = std::nan(""); }, offset);
    row(
        "no stroke", [](D& d) { d.stroke = 0.0; }, stroke);
    row(
        "stroke not a number", [](D& d) { d.stroke = std::nan(""); }, stroke);
    row(
        "too long a stroke", [](D& d) { d.stroke = 1.1e6; }, stroke);
    row(
        "sample period 0", [](D& d) { d.samplePeriod = 0.0; }, samplePeriod);
    row(
        "long sample period", [](D& d) { d.samplePeriod = 1.1; }, samplePeriod);
    row(
        "13 bits", [](D& d) { d.resolutionBits = 13; }, bits);
    row(
        "19 bits", [](D& d) { d.resolutionBits = 19; }, bits);
    row(
        "no samples", [](D& d) { d.averagingSamples = 0; }, samples);
    row(
        "3 samples", [](D& d) { d.averagingSamples = 3; }, samples);
    row(
        "signal", [](D& d) { d.signal.noise = -1.0; }, QStringLiteral("The noise must not be negative."));
}

void ProbePhysicsTest::impossibleProbesAreRefusedWithASentence() {
    QFETCH(Change, change);
    QFETCH(QString, sentence);
    ProbeDescription description = ProbeAt(0.0);
    QCOMPARE(QString::fromStdString(Validate(description)), QString());
    change(description);
    QCOMPARE(QString::fromStdString(Validate(description)), sentence);
    QCOMPARE(RefusalOf([&] { const ProbePhysics probe(description); }), sentence);
}

void ProbePhysicsTest::impossibleSettingsAreRefusedAndChangeNothing() {
    ProbePhysics probe(ProbeAt(0.25));
    QCOMPARE(RefusalOf([&] { probe.SetResolutionBits(20, FromSeconds(1.0)); }),
             QStringLiteral("The resolution must be 14, 15, 16, 17 or 18 bits."));
    QCOMPARE(RefusalOf([&] { probe.SetAveragingSamples(-1, FromSeconds(1.0)); }),
             QStringLiteral("The averaging must be 1, 2, 4, 8, 16, 32, 64, 128 or 256 samples."));
    QCOMPARE(probe.ResolutionBits(), 14);
    QCOMPARE(probe.AveragingSamples(), 1);
    QCOMPARE(probe.CountsPerUnit(), 8192.0);
    QCOMPARE(probe.ReadAt(FromSeconds(1.0)).counts, 10240);
}

void ProbePhysicsTest::readsAtEveryResolution_data() {
    QTest::addColumn<int>("bits");
    for (int bits = 14; bits <= 18; ++bits) {
        QTest::newRow(qPrintable(QStringLiteral("%1 bits").arg(bits))) << bits;
    }
}

void ProbePhysicsTest::readsAtEveryResolution() {
    QFETCH(int, bits);
    ProbePhysics probe(ProbeAt(0.3));
    probe.SetResolutionBits(bits, FromSeconds(0.0));
    QCOMPARE(probe.ResolutionBits(), bits);
    QCOMPARE(probe.Offset(), -1.0);
    QCOMPARE(probe.Stroke(), 2.0);
    QCOMPARE(probe.CountsPerUnit(), std::pow(2.0, bits) / 2.0);

    const Reading reading = probe.ReadAt(FromSeconds(1.0));
    QCOMPARE(reading.code, 0);
    QCOMPARE(reading.counts, static_cast<int>(std::lround(1.3 * std::pow(2.0, bits - 1))));
    QVERIFY(std::fabs(reading.units - 0.3) <= 0.5 / probe.CountsPerUnit());
}

void ProbePhysicsTest::nothingReadsBetweenTheSteps_data() {
    readsAtEveryResolution_data();
}

// A part that creeps by a seventh of a step between readings, across 300 steps.
void ProbePhysicsTest::nothingReadsBetweenTheSteps() {
    QFETCH(int, bits);
    ProbeDescription description = ProbeAt(-0.8, bits);
    const double step = 2.0 / std::pow(2.0, bits);
    description.signal.motion = Motion::Ramp;
    description.signal.period = 0.0;
    description.signal.rate = step / 7.0 / description.samplePeriod;
    const ProbePhysics probe(description);
    const Signal signal(description.signal);

    std::set<int> seen;
    for (int i = 0; i <= 2100; ++i) {
        const double time = i * description.samplePeriod;
        const Reading reading = probe.ReadAt(FromSeconds(time));
        const double steps = (reading.units - -1.0) / step;
        QVERIFY(steps == std::floor(steps));
        QVERIFY(steps == reading.counts);
        QVERIFY(std::fabs(reading.units - signal.At(FromSeconds(time))) <= step * 0.5000001);
        seen.insert(reading.counts);
    }
    QCOMPARE(*seen.rbegin() - *seen.begin(), 300);
    QCOMPARE(seen.size(), std::size_t(301));
}

void ProbePhysicsTest::limitsOfTheStroke_data() {
    QTest::addColumn<int>("bits");
    QTest::addColumn<double>("stepsBeyond");
    QTest::addColumn<bool>("above");
    QTest::addColumn<int>("code");
    for (const int bits : {14, 18}) {
        const auto row = [bits](const char* name, double steps, bool above, int code) {
            QTest::addRow("%d bits, %s", bits, name) << bits << steps << above << code;
        };
        row("at the lower limit", 0.0, false, 0);
        row("a little below", 0.49, false, 0);
        row("below", 0.51, false, UnderRange);
        row("far below", 1e6, false, UnderRange);
        row("at the upper limit", 0.0, true, 0);
        row("a little above", 0.49, true, 0);
        row("above", 0.51, true, OverRange);
        row("far above", 1e6, true, OverRange);
    }
}

void ProbePhysicsTest::limitsOfTheStroke() {
    QFETCH(int, bits);
    QFETCH(double, stepsBeyond);
    QFETCH(bool, above);
    const double beyond = stepsBeyond * 2.0 / std::pow(2.0, bits);
    const Reading reading = ProbePhysics(ProbeAt(above ? 1.0 + beyond : -1.0 - beyond, bits)).ReadAt(FromSeconds(1.0));
    QTEST(reading.code, "code");
    QCOMPARE(reading.counts, above ? 1 << bits : 0);
    QVERIFY(reading.units == (above ? 1.0 : -1.0));
}

// Two readings between which the probe took no sample are the same one.
void ProbePhysicsTest::samplesAtItsOwnPace() {
    ProbeDescription description = ProbeAt(0.0, 18);
    description.signal.noise = 0.1;
    const ProbePhysics probe(description);
    for (int sample = -5; sample < 1000; ++sample) {
        const double begin = sample * 256e-6;
        const double reading = probe.ReadAt(FromSeconds(begin)).units;
        QVERIFY(probe.ReadAt(FromSeconds(begin + 100e-6)).units == reading);
        QVERIFY(probe.ReadAt(FromSeconds(begin + 255.9e-6)).units == reading);
        QVERIFY(probe.ReadAt(FromSeconds(begin + 256e-6)).units != reading);
    }
}

// Each sample finds the part one count further; times given as seconds hit their samples.
void ProbePhysicsTest::everySampleComesOnTime() {
    ProbeDescription description = ProbeAt(-1.0, 18);
    description.signal.motion = Motion::Ramp;
    description.signal.period = 0.0;
    description.signal.rate = 2.0 / 262144.0 / 256e-6;
    const ProbePhysics probe(description);
    for (int sample = 0; sample <= 262144; ++sample) {
        QCOMPARE(probe.ReadAt(FromSeconds(sample * 256e-6)).counts, sample);
    }
}

void ProbePhysicsTest::sameSeedSameReadingsInAnyOrderFromAnyThread() {
    ProbeDescription description = ProbeAt(0.1, 18);
    description.averagingSamples = 8;
    description.signal.motion = Motion::Triangle;
    description.signal.amplitude = 0.5;
    description.signal.noise = 0.01;
    description.signal.seed = 9;
    const ProbePhysics probe(description);
    const ProbePhysics again(description);
    const std::size_t count = 1U << 13U;
    const auto answers = AskedFromThreads(
        count, [&](std::size_t i) { return probe.ReadAt(FromSeconds(static_cast<double>(i) * 3e-4)).units; });
    for (std::size_t i = 0; i < count; ++i) {
        const Reading reading = again.ReadAt(FromSeconds(static_cast<double>(i) * 3e-4));
        for (const std::vector<double>& thread : answers) {
            QVERIFY(thread[i] == reading.units);
        }
    }
}

void ProbePhysicsTest::anotherSeedGivesOtherReadings() {
    ProbeDescription description = ProbeAt(0.1, 18);
    description.signal.noise = 0.01;
    const ProbePhysics probe(description);
    ++description.signal.seed;
    const ProbePhysics other(description);
    int same = 0;
    for (int sample = 0; sample < 1000; ++sample) {
        same += probe.ReadAt(FromSeconds(sample * 256e-6)).counts == other.ReadAt(FromSeconds(sample * 256e-6)).counts
                    ? 1
                    : 0;
    }
    // Two readings that scatter over some thousand counts agree by chance once in 4600.
    QVERIFY2(same <= 4, qPrintable(QString::number(same)));
}

QTEST_APPLESS_MAIN(ProbePhysicsTest)

#include "ProbePhysicsTest.moc"
