#include "tests/simulator/hardware/AirGauge.h"

#include <cmath>
#include <limits>
#include <thread>

using TavikLibrary::eAveraging;
using TavikLibrary::eTavikErrors;
using TavikSimulator::AdvanceClock;
using TavikSimulator::NozzlePart;

namespace {

/// How a pressure that is read over and over scatters.
struct Scatter {
    double mean = 0.0;
    double deviation = 0.0;
};

Scatter ScatterOfPressure(const GaugeOnBench& gauge, int readings, double pause) {
    double sum = 0.0;
    double squares = 0.0;
    for (int i = 0; i < readings; ++i) {
        AdvanceClock(pause);
        const double pressure = gauge->PressureReading();
        sum += pressure;
        squares += pressure * pressure;
    }
    const double mean = sum / readings;
    return {mean, std::sqrt(squares / readings - mean * mean)};
}

bool Near(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

/// By how much the curve leaves the line through two masters, at a size.
double CurveOffLine(double size, double a, double b) {
    const double slope = (b - a) / (PressureFor(b) - PressureFor(a));
    return a + (PressureFor(size) - PressureFor(a)) * slope - size;
}

} // namespace

/// What an air gauge reads.
class AirGaugeReadingTest : public QObject {
    Q_OBJECT

private slots:
    void ThePressureIsThatOfThePartInTheNozzle();
    void ThePressureComesInCountsOf14Bits();
    void TheOperatorChangesThePartsInTurn();
    void WithoutStepsThereIsAWorkPiece();
    void AMasteredGaugeReadsTheSize();
    void MasteredTheWrongWayRoundTheSignIsWrong();
    void MasteringSetsTheMeasuringRange();
    void TheLineHoldsUntilTheNextMastering();
    void MastersOfNearlyEqualPressureAreRefused();
    void MastersOfNearlyEqualSizeAreRefused();
    void AnUnmasteredGaugeReadsButSaysSo();
    void BeyondTheRangeTheReadingIsLimited();
    void AsPressureTheCountsAre14BitsOver30Psi();
    void TheSupplyIsNoisyAndDrifts();
    void AveragingQuietsTheReading();
    void AFreshAveragingHasToSettle();
    void TheSameBenchGivesTheSameReadings();
    void SeveralThreadsMayAsk();
};

void AirGaugeReadingTest::ThePressureIsThatOfThePartInTheNozzle() {
    const GaugeOnBench gauge(StillGauge("master-a=\"-0.03\" master-b=\"0.01\" clearance=\"0.06\""));
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    QVERIFY(Near(gauge->PressureReading(), PressureFor(-0.03, 0.06), PressureCount));
    GaugeOnBench::PutIn(NozzlePart::MasterB);
    QVERIFY(Near(gauge->PressureReading(), PressureFor(0.01, 0.06), PressureCount));
    GaugeOnBench::PutInWorkPiece(0.004);
    QVERIFY(Near(gauge->PressureReading(), PressureFor(0.004, 0.06), PressureCount));
    GaugeOnBench::PutInWorkPiece(-1.0); // too tight: it closes the nozzles
    QVERIFY(Near(gauge->PressureReading(), 28.0, PressureCount));
    GaugeOnBench::PutIn(NozzlePart::Nothing);
    QVERIFY(Near(gauge->PressureReading(), 28.0 / 17.0, PressureCount));
}

void AirGaugeReadingTest::ThePressureComesInCountsOf14Bits() {
    const GaugeOnBench gauge(StillGauge());
    for (int i = 0; i < 50; ++i) {
        GaugeOnBench::PutInWorkPiece(-0.02 + i * 0.0007);
        const double counts = gauge->PressureReading() / PressureCount;
        QVERIFY(Near(counts, std::round(counts), 1e-6));
    }
}

void AirGaugeReadingTest::TheOperatorChangesThePartsInTurn() {
    const GaugeOnBench gauge(StillGauge("", "<part what=\"master-a\" seconds=\"5\"/>"
                                            "<part what=\"master-b\" seconds=\"3\"/>"
                                            "<part what=\"nothing\" seconds=\"2\"/>"));
    const double a = PressureFor(-0.02);
    const double b = PressureFor(0.02);
    const double none = 28.0 / 17.0;
    const double expected[] = {a, a, a, a, a, b, b, b, none, none, a, a, a, a, a, b};
    AdvanceClock(0.5);
    for (const double pressure : expected) {
        QVERIFY(Near(gauge->PressureReading(), pressure, PressureCount));
        AdvanceClock(1.0);
    }
    // What is put in by hand stays; taken back, the operator goes on in time.
    GaugeOnBench::PutIn(NozzlePart::Nothing);
    AdvanceClock(4.0);
    QVERIFY(Near(gauge->PressureReading(), none, PressureCount));
    TavikSimulator::ReleasePosition("N", "PNX0000001");
    QVERIFY(Near(gauge->PressureReading(), a, PressureCount)); // 20.6 s
}

void AirGaugeReadingTest::WithoutStepsThereIsAWorkPiece() {
    const GaugeOnBench gauge("<module type=\"PNX\" identity=\"PNX0000001\"><signal base=\"0.012\"/>"
                             "<air-gauge><supply noise=\"0\" drift-amplitude=\"0\"/></air-gauge></module>");
    AdvanceClock(1.0);
    QVERIFY(Near(gauge->PressureReading(), PressureFor(0.012), PressureCount));
}

// What the pressure's counts and the two masters' leave open, and the curve between the masters.
void AirGaugeReadingTest::AMasteredGaugeReadsTheSize() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(-0.02, 0.02);
    QVERIFY(gauge->IsMastered());
    constexpr double countInMillimetres = PressureCount / 93.0;
    for (const double size : {-0.03, -0.02, -0.0137, 0.0, 0.009, 0.02, 0.03}) {
        GaugeOnBench::PutInWorkPiece(size);
        QVERIFY(Near(gauge->ReadInUnits(), size + CurveOffLine(size, -0.02, 0.02), 2.0 * countInMillimetres));
        QCOMPARE(gauge->LastResultCode(), 0);
    }
}

void AirGaugeReadingTest::MasteredTheWrongWayRoundTheSignIsWrong() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(0.02, -0.02);
    GaugeOnBench::PutInWorkPiece(0.015);
    QVERIFY(Near(gauge->ReadInUnits(), -0.015, 0.0005));
    GaugeOnBench::PutInWorkPiece(-0.01);
    QVERIFY(Near(gauge->ReadInUnits(), 0.01, 0.0005));
}

void AirGaugeReadingTest::MasteringSetsTheMeasuringRange() {
    const GaugeOnBench gauge(StillGauge());
    QCOMPARE(gauge->Offset(), -0.05);
    QCOMPARE(gauge->Stroke(), 0.1);
    gauge.Master(1.01, 1.05);
    QVERIFY(Near(gauge->Offset(), 0.99, 1e-12));
    QVERIFY(Near(gauge->Stroke(), 0.08, 1e-12));
    QVERIFY(Near(gauge->CountsPerUnitOfMeasure(), 16384 / 0.08, 1e-6));
    GaugeOnBench::PutIn(NozzlePart::MasterB);
    QVERIFY(Near(gauge->ReadInUnits(), 1.05, 0.0001));
    QVERIFY(Near(gauge->ReadInCounts(), (1.05 - 0.99) / 0.08 * 16384, 10));
}

void AirGaugeReadingTest::TheLineHoldsUntilTheNextMastering() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(-0.02, 0.02);
    gauge->setMasterMinReadingInUOM(5.0);
    gauge->setMasterMaxPressure(1.0);
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    QVERIFY(Near(gauge->ReadInUnits(), -0.02, 0.0001));
    QCOMPARE(gauge->MasterMinReadingInUOM(), 5.0);
}

void AirGaugeReadingTest::MastersOfNearlyEqualPressureAreRefused() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(-0.02, 0.02);
    gauge->setMasterMinPressure(20.0);
    gauge->setMasterMaxPressure(20.24);
    gauge->setMasterMinReadingInUOM(0.5);
    const Refusal refusal = RefusalOf([&] { gauge->ApplyMastering(); });
    QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
    QCOMPARE(refusal.text, std::string("The air pressures of the two masters, 20.00 psi and 20.24 psi, are too close "
                                       "to each other: they must differ by 0.25 psi at least."));
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    QVERIFY(Near(gauge->ReadInUnits(), -0.02, 0.0001)); // the old line
    QCOMPARE(gauge->MasterMinReadingInUOM(), 0.5);      // what was written stays
    gauge->setMasterMaxPressure(20.26);
    gauge->ApplyMastering();
}

void AirGaugeReadingTest::MastersOfNearlyEqualSizeAreRefused() {
    const GaugeOnBench gauge(StillGauge());
    gauge->setMasterMinPressure(18.0);
    gauge->setMasterMaxPressure(22.0);
    gauge->setMasterMinReadingInUOM(0.01);
    gauge->setMasterMaxReadingInUOM(0.0109);
    const Refusal refusal = RefusalOf([&] { gauge->ApplyMastering(); });
    QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
    QVERIFY(refusal.Names("0.0100 mm and 0.0109 mm"));
    QVERIFY(!gauge->IsMastered());
}

// By the line of its design: this one has a wider clearance than it was drawn with.
void AirGaugeReadingTest::AnUnmasteredGaugeReadsButSaysSo() {
    const GaugeOnBench gauge(StillGauge("clearance=\"0.058\""));
    GaugeOnBench::PutInWorkPiece(0.0);
    QVERIFY(!gauge->IsMastered());
    QVERIFY(Near(gauge->ReadInUnits(), 0.006, 0.0005));
    QCOMPARE(gauge->LastResultCode(), static_cast<int>(eTavikErrors::NotMastered));
    gauge->Status()->UpdateStatus();
    QCOMPARE(gauge->Status()->ErrorCode(), static_cast<int>(eTavikErrors::NotMastered));
    QVERIFY(gauge->Status()->ErrorString().find("not mastered") != std::string::npos);
    gauge.Master(-0.02, 0.02);
    GaugeOnBench::PutInWorkPiece(0.0);
    QVERIFY(Near(gauge->ReadInUnits(), 0.0, 0.0005));
    QCOMPARE(gauge->LastResultCode(), 0);
}

void AirGaugeReadingTest::BeyondTheRangeTheReadingIsLimited() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(-0.02, 0.02);
    GaugeOnBench::PutInWorkPiece(0.09);
    QVERIFY(Near(gauge->ReadInUnits(), 0.04, 1e-12));
    QCOMPARE(gauge->LastResultCode(), static_cast<int>(eTavikErrors::OverRange));
    GaugeOnBench::PutInWorkPiece(-0.09);
    QVERIFY(Near(gauge->ReadInUnits(), -0.04, 1e-12));
    QCOMPARE(gauge->LastResultCode(), static_cast<int>(eTavikErrors::UnderRange));
}

void AirGaugeReadingTest::AsPressureTheCountsAre14BitsOver30Psi() {
    const GaugeOnBench gauge(StillGauge());
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    gauge->setOutputReadingAsPressure(true);
    QCOMPARE(gauge->UnitsOfMeasure(), std::string("psi"));
    QCOMPARE(gauge->Offset(), 0.0);
    QCOMPARE(gauge->Stroke(), 30.0);
    QVERIFY(Near(gauge->CountsPerUnitOfMeasure(), 546.1, 1e-9));
    QCOMPARE(gauge->ReadInCounts(), static_cast<int>(std::lround(PressureFor(-0.02) / PressureCount)));
    QCOMPARE(gauge->LastResultCode(), 0);
    QCOMPARE(gauge->ReadInUnits(), gauge->PressureReading());
    gauge->setOutputReadingAsPressure(false);
    QCOMPARE(gauge->UnitsOfMeasure(), std::string("mm"));
    QVERIFY(Near(gauge->ReadInUnits(), -0.02, 0.005));
}

// 0.004 psi of noise on the supply are 0.004 times the pressure's share of it. Over half of the drift's period
// of 1800 s the supply falls by 0.04 psi from its height to its depth.
void AirGaugeReadingTest::TheSupplyIsNoisyAndDrifts() {
    const GaugeOnBench gauge(NoisyGauge());
    gauge->setAveraging(eAveraging::Off);
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    const double share = PressureFor(-0.02) / 28.0;
    AdvanceClock(449.0);
    const Scatter high = ScatterOfPressure(gauge, 2000, 0.001);
    // Rounding to counts adds a twelfth of a count's square; 2000 readings know a deviation to 1.6 %.
    const double expected = std::sqrt(std::pow(0.004 * share, 2) + PressureCount * PressureCount / 12.0);
    QVERIFY(Near(high.deviation, expected, 0.08 * expected));
    AdvanceClock(898.0);
    const Scatter low = ScatterOfPressure(gauge, 2000, 0.001);
    QVERIFY(Near(high.mean - low.mean, 0.04 * share, 5.0 * expected * std::sqrt(2.0 / 2000.0)));
}

// On a noisy supply, so that the rounding to counts does not show.
void AirGaugeReadingTest::AveragingQuietsTheReading() {
    const GaugeOnBench gauge("<module type=\"PNX\" identity=\"PNX0000001\"><air-gauge><supply noise=\"0.2\"/>"
                             "</air-gauge></module>");
    gauge->setAveraging(eAveraging::Off);
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    const double single = ScatterOfPressure(gauge, 2000, 0.1).deviation;
    gauge->setAveraging(eAveraging::Samples64);
    const double averaged = ScatterOfPressure(gauge, 2000, 0.1).deviation;
    QVERIFY(Near(single / averaged, 8.0, 0.6));
}

void AirGaugeReadingTest::AFreshAveragingHasToSettle() {
    const GaugeOnBench gauge(StillGauge("mastered=\"yes\""));
    AdvanceClock(1.0);
    gauge->setAveraging(eAveraging::Samples256);
    gauge->ReadInUnits();
    QCOMPARE(gauge->LastResultCode(), static_cast<int>(eTavikErrors::ReadingUnsettled));
    AdvanceClock(0.0654);
    gauge->ReadInUnits();
    QCOMPARE(gauge->LastResultCode(), 0);
}

void AirGaugeReadingTest::TheSameBenchGivesTheSameReadings() {
    std::vector<double> first;
    std::vector<double> other;
    for (const auto& [identity, readings] :
         {std::pair("PNX0000001", &first), std::pair("PNX0000001", &first), std::pair("PNX0000002", &other)}) {
        Use(OneNetwork("<module type=\"PNX\" identity=\"" + std::string(identity) + "\"/>"));
        ConnectedServer server;
        std::vector<double> seen;
        for (int i = 0; i < 100; ++i) {
            AdvanceClock(0.01);
            seen.push_back(server.Module(0)->ReadInUnits());
        }
        QVERIFY(readings->empty() || *readings == seen);
        *readings = seen;
    }
    QVERIFY(first != other);
}

void AirGaugeReadingTest::SeveralThreadsMayAsk() {
    const GaugeOnBench gauge(NoisyGauge("mastered=\"yes\""));
    const auto ask = [&] {
        for (int i = 0; i < 300; ++i) {
            gauge->ReadInUnits();
            gauge->PressureReading();
            gauge->setLimitHigh(0.001 * i);
            gauge->UpdateInfo();
            TavikSimulator::PutInNozzle("N", "PNX0000001", i % 2 ? NozzlePart::MasterA : NozzlePart::WorkPiece);
        }
    };
    std::thread other(ask);
    ask();
    other.join();
    QVERIFY(gauge->LimitHigh() >= 0.0 && gauge->LimitHigh() <= 0.3);
}

QTEST_APPLESS_MAIN(AirGaugeReadingTest)
#include "AirGaugeReadingTest.moc"
