#include "simulator/signals/Reading.h"

#include <QtTest>

using namespace TavikSimulator;

namespace {

constexpr int UnderRange = 0x2112;
constexpr int OverRange = 0x2113;

// Steps of 0.125 from -1 to 1: positions, steps and halves of steps are exact in binary.
constexpr MeasuringRange Coarse{-1.0, 2.0, 16};

} // namespace

class ReadingTest : public QObject {
    Q_OBJECT

private slots:
    void countsPerUnitDivideTheStroke();
    void everyCountReadsAsItself();
    void positionsReadAsTheNearestCount_data();
    void positionsReadAsTheNearestCount();
    void farBeyondTheStrokeIsStillItsLimit();
};

void ReadingTest::countsPerUnitDivideTheStroke() {
    QCOMPARE(CountsPerUnit(Coarse), 8.0);
    QCOMPARE(CountsPerUnit({0.0, 2.0, 16384}), 8192.0);
    QCOMPARE(CountsPerUnit({0.0, 360.0, 3600}), 10.0);
}

void ReadingTest::everyCountReadsAsItself() {
    for (int counts = 0; counts <= 16; ++counts) {
        const Reading reading = Digitise(-1.0 + 0.125 * counts, Coarse);
        QCOMPARE(reading.code, 0);
        QCOMPARE(reading.counts, counts);
        QVERIFY(reading.units == -1.0 + 0.125 * counts);
    }
}

void ReadingTest::positionsReadAsTheNearestCount_data() {
    QTest::addColumn<double>("position");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("counts");
    QTest::addColumn<double>("units");
    QTest::newRow("just below a step's middle") << 0.0624 << 0 << 8 << 0.0;
    QTest::newRow("a step's middle goes up") << 0.0625 << 0 << 9 << 0.125;
    QTest::newRow("just above a step's middle") << 0.0626 << 0 << 9 << 0.125;
    QTest::newRow("half a count below the stroke") << -1.0625 << 0 << 0 << -1.0;
    QTest::newRow("more than half a count below") << -1.0626 << UnderRange << 0 << -1.0;
    QTest::newRow("less than half a count above") << 1.0624 << 0 << 16 << 1.0;
    QTest::newRow("half a count above the stroke") << 1.0625 << OverRange << 16 << 1.0;
}

void ReadingTest::positionsReadAsTheNearestCount() {
    QFETCH(double, position);
    const Reading reading = Digitise(position, Coarse);
    QTEST(reading.code, "code");
    QTEST(reading.counts, "counts");
    QTEST(reading.units, "units");
}

// Beyond what an int can hold as well.
void ReadingTest::farBeyondTheStrokeIsStillItsLimit() {
    const Reading below = Digitise(-1e18, Coarse);
    QCOMPARE(below.code, UnderRange);
    QCOMPARE(below.counts, 0);
    QCOMPARE(below.units, -1.0);
    const Reading above = Digitise(1e18, Coarse);
    QCOMPARE(above.code, OverRange);
    QCOMPARE(above.counts, 16);
    QCOMPARE(above.units, 1.0);
}

QTEST_APPLESS_MAIN(ReadingTest)

#include "ReadingTest.moc"
