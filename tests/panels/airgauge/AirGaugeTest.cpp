#include "tests/panels/airgauge/AirGaugeTest.h"

#include "simulator/signals/AirGap.h"

#include <cmath>

using namespace TavikSimulator;

namespace {

const char* const network = "Alpha";
const char* const identity = "PNX0000001";

QString Gauge(const QString& moduleAttributes, const QString& attributes, const QString& content) {
    return QStringLiteral("<module type=\"PNX\" identity=\"PNX0000001\" %1><air-gauge %2>%3</air-gauge></module>")
        .arg(moduleAttributes, attributes, content);
}

QString Still() {
    return QStringLiteral("<supply noise=\"0\" drift-amplitude=\"0\"/>");
}

} // namespace

void AirGaugeTest::OpenGauge(const QString& attributes, const QString& moduleAttributes) {
    OpenModule(Benches::With(Gauge(moduleAttributes, attributes, Still())), 0);
    QVERIFY(Panel() != nullptr);
}

void AirGaugeTest::OpenNoisyGauge() {
    OpenModule(Benches::With(Gauge(QString(), QString(), QString())), 0);
    QVERIFY(Panel() != nullptr);
}

void AirGaugeTest::OpenList(const QString& attributes, const QString& moduleAttributes) {
    OpenNetwork(Benches::With(Gauge(moduleAttributes, attributes, Still())));
}

QWidget* AirGaugeTest::Panel() {
    return Window().findChild<QWidget*>(QStringLiteral("ModulePNXWidget"));
}

QWidget* AirGaugeTest::ModulePanel() {
    return Window().findChild<QWidget*>(QStringLiteral("moduleWidget"));
}

void AirGaugeTest::DuringDialog(const char* button, const QString& title,
                                const std::function<void(QDialog& dialog)>& use) {
    boxes.ExpectUse(Panel(), title, use);
    QVERIFY(OnPanel().Click(button));
}

void AirGaugeTest::DuringConfiguration(const std::function<void(QDialog& dialog)>& use) {
    DuringDialog("btnConfigure", QStringLiteral("PNX Configuration"), [&use](QDialog& dialog) {
        use(dialog);
        if (dialog.isVisible()) {
            QVERIFY(WidgetDriver(dialog).Click("btnClose"));
        }
    });
}

void AirGaugeTest::PutIn(NozzlePart part) {
    PutInNozzle(network, identity, part);
    AdvanceClock(0.1);
}

void AirGaugeTest::PutInWorkPiece(double size) {
    HoldPosition(network, identity, size);
    AdvanceClock(0.1);
}

QStringList TakeGaugeCalls() {
    QStringList calls = Calls::TakeObject("module PNX0000001");
    return calls.replaceInStrings(QStringLiteral("module PNX0000001."), QString());
}

QStringList TakeAirGaugeCalls() {
    const char* const ofTheBase[] = {"BufferedCapable",
                                     "BufferedMasterCapable",
                                     "CountsPerUnitOfMeasure",
                                     "DeviceType",
                                     "DifferenceCapable",
                                     "DynamicCapable",
                                     "Dynamic2Capable",
                                     "DynamicMasterCapable",
                                     "HotSwappable",
                                     "ProbeIdentity",
                                     "Identity",
                                     "Status",
                                     "ModuleType",
                                     "Offset",
                                     "ReadBurstCapable",
                                     "SpeedAvailable",
                                     "SoftwareVersion",
                                     "Stroke",
                                     "UnitsOfMeasure",
                                     "Resolution",
                                     "AvailableResolutions",
                                     "Averaging",
                                     "AvailableAveragings",
                                     "Buffered",
                                     "Difference"};
    QStringList calls;
    const auto taken = TakeGaugeCalls();
    for (const QString& call : taken) {
        const QString operation = call.section(QLatin1Char('('), 0, 0);
        const auto same = [&](const char* name) { return operation == QLatin1String(name); };
        if (std::none_of(std::begin(ofTheBase), std::end(ofTheBase), same)) {
            calls.append(call);
        }
    }
    return calls;
}

QString PressureShownFor(double size) {
    const double pressure = BackPressure(28.0, std::max(0.0, 0.055 + size / 2.0), {});
    return QString::number(std::round(pressure / 30.0 * 16383.0) / 16383.0 * 30.0, 'f', 2);
}

void Answer(const char* operation, int number) {
    Fault fault;
    fault.operation = operation;
    fault.trigger = FaultTrigger::FromNth;
    fault.effect = FaultEffect::Result;
    fault.code = number;
    AddFault(fault);
}
