#include "tests/simulator/hardware/AirGauge.h"

#include <cmath>

using TavikSimulator::AdvanceClock;

namespace {

std::string Gauge(const std::string& content) {
    return OneNetwork("\n<module type=\"PNX\" identity=\"PNX0000001\">\n" + content + "\n</module>");
}

} // namespace

/// What a bench file says about an air gauge.
class AirGaugeBenchTest : public QObject {
    Q_OBJECT

private slots:
    void ImpossibleGaugesAreRefused_data();
    void ImpossibleGaugesAreRefused();
    void OnlyAnAirGaugeHasOne();
    void TheCircuitReachesThePressure();
    void TheSupplyReachesThePressure();
    void AGaugeMayComeMastered();
    void TheDefaultBenchHasOneToMaster();
};

void AirGaugeBenchTest::ImpossibleGaugesAreRefused_data() {
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* content, const char* reason) {
        QTest::newRow(name) << QString::fromLatin1(content) << QString::fromLatin1(reason);
    };
    row("misspelt", "<air-gauge mastre-a=\"1\"/>", "mastre-a");
    row("two", "<air-gauge/><air-gauge/>", "one <air-gauge> only");
    row("two supplies", "<air-gauge><supply/><supply/></air-gauge>", "one <supply> only");
    row("same masters", "<air-gauge master-a=\"0.01\" master-b=\"0.01\"/>", "differ in size");
    row("large master", "<air-gauge master-a=\"11\"/>", "+-10 mm");
    row("no clearance", "<air-gauge clearance=\"0\"/>", "clearance");
    row("no orifice", "<air-gauge orifice=\"0\"/>", "orifice");
    row("wide nozzle", "<air-gauge nozzle=\"11\"/>", "nozzle");
    row("bad supply", "<air-gauge><supply noise=\"-1\"/></air-gauge>", "noise");
    row("no time", "<air-gauge><part what=\"master-a\" seconds=\"0\"/></air-gauge>", "more than 0 s");
    row("no part", "<air-gauge><part seconds=\"1\"/></air-gauge>", "what");
    row("unknown part", "<air-gauge><part what=\"master-c\"/></air-gauge>",
        "it is one of: nothing, master-a, master-b, work-piece");
    row("misspelt part", "<air-gauge><part what=\"master-a\" secnds=\"2\"/></air-gauge>", "secnds");
}

void AirGaugeBenchTest::ImpossibleGaugesAreRefused() {
    QFETCH(QString, content);
    QFETCH(QString, reason);
    const std::string text = Gauge(content.toStdString());
    const Refusal refusal = RefusalOf([&] { Use(text); });
    QVERIFY(refusal.refused);
    QVERIFY2(refusal.Names("test bench, line 3: "), refusal.text.c_str());
    QVERIFY2(refusal.Names(reason.toStdString()), refusal.text.c_str());
}

void AirGaugeBenchTest::OnlyAnAirGaugeHasOne() {
    const Refusal refusal =
        RefusalOf([] { Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"><air-gauge/></module>")); });
    QVERIFY(refusal.Names("<air-gauge>"));
}

void AirGaugeBenchTest::TheCircuitReachesThePressure() {
    const GaugeOnBench gauge(StillGauge("orifice=\"0.9\" nozzle=\"2\" clearance=\"0.04\""));
    GaugeOnBench::PutInWorkPiece(0.01);
    const double expected = TavikSimulator::BackPressure(28.0, 0.045, {0.9, 2.0});
    QVERIFY(std::abs(gauge->PressureReading() - expected) <= PressureCount);
}

void AirGaugeBenchTest::TheSupplyReachesThePressure() {
    const GaugeOnBench gauge("<module type=\"PNX\" identity=\"PNX0000001\"><air-gauge>"
                             "<supply base=\"20\" noise=\"0\" drift-amplitude=\"1\" drift-period=\"400\"/>"
                             "</air-gauge></module>");
    GaugeOnBench::PutInWorkPiece(-1.0);
    AdvanceClock(99.9);
    QVERIFY(std::abs(gauge->PressureReading() - 21.0) <= 0.01);
    AdvanceClock(200.0);
    QVERIFY(std::abs(gauge->PressureReading() - 19.0) <= 0.01);
}

void AirGaugeBenchTest::AGaugeMayComeMastered() {
    const GaugeOnBench gauge(StillGauge("mastered=\"yes\" master-a=\"0.01\" master-b=\"-0.015\""));
    QVERIFY(gauge->IsMastered());
    GaugeOnBench::PutIn(TavikSimulator::NozzlePart::MasterB);
    QVERIFY(std::abs(gauge->ReadInUnits() + 0.015) <= 0.0001);
    QVERIFY(std::abs(gauge->Offset() + 0.0275) <= 1e-12);
    QVERIFY(std::abs(gauge->Stroke() - 0.05) <= 1e-12);
}

void AirGaugeBenchTest::TheDefaultBenchHasOneToMaster() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::UseManualClock();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    std::vector<TavikLibrary::TavikModulePNX*> gauges;
    for (int i = 0; i < server.Network()->ModuleCount(); ++i) {
        auto* gauge = dynamic_cast<TavikLibrary::TavikModulePNX*>(server.Module(static_cast<unsigned int>(i)));
        if (gauge != nullptr) {
            gauges.push_back(gauge);
        }
    }
    QCOMPARE(gauges.size(), std::size_t(2));
    QVERIFY(gauges[0]->HasDisplay() && !gauges[0]->IsMastered());
    QVERIFY(!gauges[1]->HasDisplay() && gauges[1]->IsMastered());
    // The operator holds one master, then the other one.
    AdvanceClock(10.0);
    const double a = gauges[0]->PressureReading();
    AdvanceClock(20.0);
    QVERIFY(a - gauges[0]->PressureReading() > 2.0);
}

QTEST_APPLESS_MAIN(AirGaugeBenchTest)
#include "AirGaugeBenchTest.moc"
