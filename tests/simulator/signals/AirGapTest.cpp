#include "simulator/signals/AirGap.h"

#include <QtTest>

#include <cmath>
#include <limits>

using TavikSimulator::AirCircuit;
using TavikSimulator::BackPressure;

namespace {

constexpr double Supply = 28.0; // psi
constexpr double Infinity = std::numeric_limits<double>::infinity();

bool Near(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

// How steep the curve is, in psi per mm.
double SlopeAt(double clearance) {
    constexpr double step = 1e-6;
    return (BackPressure(Supply, clearance + step, {}) - BackPressure(Supply, clearance, {})) / step;
}

} // namespace

class AirGapTest : public QObject {
    Q_OBJECT

private slots:
    void AClosedNozzleHasTheSupplyPressure();
    void AFreeNozzleIsLimitedByItsBore();
    void NearThePartItFollowsTheFlapper_data();
    void NearThePartItFollowsTheFlapper();
    void ItFallsAllTheWay();
    void ItIsSteepInTheMiddleAndFlatAtBothEnds();
    void ItIsNearlyStraightAroundThreeQuarters();
    void ItGoesWithTheSupplyPressure();
    void OnlyTheRatioOfTheDiametersCounts();
    void AnImpossibleCircuitIsNamed();
};

void AirGapTest::AClosedNozzleHasTheSupplyPressure() {
    QCOMPARE(BackPressure(Supply, 0.0, {}), Supply);
}

// Twice the orifice's diameter is four times its area: 1 / (1 + 4^2) of the supply pressure.
void AirGapTest::AFreeNozzleIsLimitedByItsBore() {
    QVERIFY(Near(BackPressure(Supply, Infinity, {}), Supply / 17.0, 1e-12));
    QVERIFY(Near(BackPressure(Supply, 10.0, {}), Supply / 17.0, 0.05));
}

void AirGapTest::NearThePartItFollowsTheFlapper_data() {
    QTest::addColumn<double>("clearance");
    QTest::addColumn<double>("share"); // 1 / (1 + 16 d^2 x^2 / D^4), worked out by hand
    QTest::addColumn<double>("tolerance");
    QTest::newRow("1 um") << 0.001 << 0.9998862 << 1e-6;
    QTest::newRow("10 um") << 0.010 << 0.9887501 << 2e-5;
    QTest::newRow("30 um") << 0.030 << 0.9071191 << 1e-3;
    QTest::newRow("50 um") << 0.050 << 0.7785525 << 4e-3;
}

void AirGapTest::NearThePartItFollowsTheFlapper() {
    QFETCH(double, clearance);
    QFETCH(double, share);
    QFETCH(double, tolerance);
    QVERIFY(Near(BackPressure(1.0, clearance, {}), share, tolerance));
}

void AirGapTest::ItFallsAllTheWay() {
    double previous = BackPressure(Supply, 0.0, {});
    for (int micrometres = 1; micrometres <= 2000; ++micrometres) {
        const double pressure = BackPressure(Supply, micrometres / 1000.0, {});
        QVERIFY2(pressure < previous, qPrintable(QString::number(micrometres)));
        previous = pressure;
    }
    QVERIFY(BackPressure(Supply, Infinity, {}) < previous);
}

void AirGapTest::ItIsSteepInTheMiddleAndFlatAtBothEnds() {
    const double middle = SlopeAt(0.055);
    QVERIFY(middle < -150.0);
    QVERIFY(SlopeAt(0.001) > middle / 20.0);
    QVERIFY(SlopeAt(0.5) > middle / 20.0);
    QVERIFY(SlopeAt(2.0) > middle / 500.0);
}

// Between 68 % and 81 % of the supply pressure, 20 um of clearance, the curve leaves its chord by less than
// half a percent of the pressure between the ends.
void AirGapTest::ItIsNearlyStraightAroundThreeQuarters() {
    constexpr double from = 0.045;
    constexpr double to = 0.065;
    const double first = BackPressure(Supply, from, {});
    const double last = BackPressure(Supply, to, {});
    QVERIFY(first / Supply > 0.81 && last / Supply < 0.69);
    double largest = 0.0;
    for (int step = 0; step <= 100; ++step) {
        const double share = step / 100.0;
        const double pressure = BackPressure(Supply, from + share * (to - from), {});
        largest = std::max(largest, std::abs(pressure - (first + share * (last - first))));
    }
    QVERIFY(largest < 0.005 * (first - last));
    QVERIFY(largest > 0.0005 * (first - last)); // it is a curve all the same
}

void AirGapTest::ItGoesWithTheSupplyPressure() {
    for (const double clearance : {0.01, 0.055, 0.3}) {
        QVERIFY(Near(BackPressure(14.0, clearance, {}), BackPressure(28.0, clearance, {}) / 2.0, 1e-12));
    }
}

void AirGapTest::OnlyTheRatioOfTheDiametersCounts() {
    const AirCircuit twice{1.5, 3.0};
    QVERIFY(Near(BackPressure(Supply, 0.11, twice), BackPressure(Supply, 0.055, {}), 1e-12));
    const AirCircuit wideOrifice{1.0, 1.5};
    QVERIFY(BackPressure(Supply, 0.055, wideOrifice) > BackPressure(Supply, 0.055, {}));
}

void AirGapTest::AnImpossibleCircuitIsNamed() {
    QVERIFY(Validate(AirCircuit{}).empty());
    QVERIFY(Validate(AirCircuit{0.0, 1.5}).find("orifice") != std::string::npos);
    QVERIFY(Validate(AirCircuit{0.75, 20.0}).find("nozzle") != std::string::npos);
    QVERIFY(!Validate(AirCircuit{std::nan(""), 1.5}).empty());
}

QTEST_APPLESS_MAIN(AirGapTest)
#include "AirGapTest.moc"
