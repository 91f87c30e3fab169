#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>

using namespace TavikSimulator;

namespace {

const QString panelTitle = QStringLiteral("PNX Module");
const QString wizardTitle = QStringLiteral("PNX Mastering");

QWidget* Panel(Tour& tour) {
    return tour.Window().findChild<QWidget*>(QStringLiteral("ModulePNXWidget"));
}

/// The panel; the window while the panel is not shown, where its controls are then reported as missing.
WidgetDriver OnPanel(Tour& tour) {
    QWidget* panel = Panel(tour);
    return WidgetDriver(panel != nullptr ? *panel : tour.Window());
}

QString Field(Tour& tour, const char* name) {
    return OnPanel(tour).Text(name);
}

void PutIn(Tour& tour, NozzlePart part) {
    PutInNozzle(tour.bench.networkName.toStdString(), tour.bench.airGauge.toStdString(), part);
    LetTimePass(0.1);
}

auto CountOf(const std::vector<JournalEntry>& calls, const char* operation) {
    return std::count_if(calls.begin(), calls.end(),
                         [operation](const JournalEntry& call) { return call.operation == operation; });
}

/// A reading in units that fails shows as a length of 0 only, when it is the panel's own; the others are all boxes.
FailureRule ButForThePanelsReading(const FailureRule& others) {
    return [others](const std::vector<JournalEntry>& calls) {
        return calls.back().operation == "ReadInUnits" ? Swallowed(calls) : others(calls);
    };
}

/// The dialog's question for the output, the first one, may fail: it offers no choice of the output then.
FailureBox ConfigurationFailure(const std::vector<JournalEntry>& calls) {
    if (calls.back().operation == "OutputReadingAsPressure" && CountOf(calls, "OutputReadingAsPressure") == 1) {
        return Swallowed(calls);
    }
    return {true, panelTitle, QString()};
}

FailureBox MasteringFailure(const std::vector<JournalEntry>& calls) {
    const std::string& operation = calls.back().operation;
    if (CountOf(calls, "UpdateInfo") > 0) {
        return {true, panelTitle, QString()};
    }
    if (operation == "PressureReading") {
        return {true, wizardTitle, QStringLiteral("Error reading PNX:\n")};
    }
    const bool writes = operation == "ApplyMastering" || operation.rfind("set", 0) == 0;
    return {true, wizardTitle, writes ? QStringLiteral("Error writing to PNX:\n") : QString()};
}

void Read(Tour& tour) {
    PutIn(tour, NozzlePart::WorkPiece);
    tour.Operator().Click("radioCounts");
    tour.Operator().Click("btnRead");
}

void Configure(Tour& tour) {
    tour.boxes.ExpectUse(Panel(tour), QStringLiteral("PNX Configuration"), [&tour](QDialog& dialog) {
        WidgetDriver driver(dialog);
        tour.ReportDialog(dialog, QStringLiteral("air-gauge-configuration"));
        driver.Choose("cbScreenRotation", 2);
        driver.Click("cbRotateKeyboard");
        driver.Click("cbShowPSIReading");
        driver.Click("cbOutputPressure");
        driver.Choose("cbDisplayUOM", 2);
        driver.Enter("sbHighLimit", QStringLiteral("9"));
        driver.Enter("sbLowLimit", QStringLiteral("3"));
        BoxReply passcode;
        passcode.typed = QStringLiteral("0");
        tour.boxes.ExpectNumberInput(&dialog, QStringLiteral("Enter Passcode"),
                                     QStringLiteral("Enter the pascode (0 to 99999999)."), passcode);
        driver.Click("btnSetPassCode");
        driver.Click("btnClose");
    });
    OnPanel(tour).Click("btnConfigure");
}

void ResetToFactory(Tour& tour) {
    tour.boxes.ExpectUse(Panel(tour), QStringLiteral("PNX Configuration"), [](QDialog& dialog) {
        WidgetDriver(dialog).Click("btnResetToFactory");
        WidgetDriver(dialog).Click("btnClose");
    });
    OnPanel(tour).Click("btnConfigure");
}

void PressNext(Tour& tour, QDialog& wizard, int stage) {
    if (WidgetDriver(wizard).IsEnabled("btnNext")) {
        tour.ReportDialog(wizard, QStringLiteral("mastering-%1").arg(stage));
        WidgetDriver(wizard).Click("btnNext");
    }
}

/// Presses Next at stage 2 and, when the pressure has been read once, at stage 3.
void PassLivePressure(Tour& tour, QDialog& wizard) {
    const auto operation = Repeatedly([&] {
        const QWidget* live = wizard.findChild<QWidget*>(QStringLiteral("stage3"));
        if (QApplication::activeModalWidget() == &wizard && live->isVisible()) {
            PressNext(tour, wizard, 3);
        }
    });
    PressNext(tour, wizard, 2);
}

/// Goes on and back again, and gives the mastering up at the start.
void CancelMastering(Tour& tour) {
    tour.boxes.ExpectUse(Panel(tour), wizardTitle, [&tour](QDialog& wizard) {
        WidgetDriver(wizard).Click("btnNext");
        if (WidgetDriver(wizard).IsEnabled("btnBack")) {
            WidgetDriver(wizard).Click("btnBack");
        }
        tour.boxes.ExpectQuestion(&wizard, QStringLiteral("Cancel Mastering"), QStringLiteral("Are you sure?"), {});
        WidgetDriver(wizard).Click("btnCancel");
    });
    OnPanel(tour).Click("btnMaster");
}

/// Closes a wizard that a failure keeps from being finished.
void GiveUp(Tour& tour, QDialog& wizard) {
    if (!wizard.isVisible()) {
        return;
    }
    if (!wizard.findChild<QWidget*>(QStringLiteral("stage5"))->isVisible()) {
        tour.boxes.ExpectQuestion(&wizard, QStringLiteral("Cancel Mastering"), QStringLiteral("Are you sure?"), {});
    }
    WidgetDriver(wizard).Click("btnCancel");
}

void Master(Tour& tour) {
    tour.boxes.ExpectUse(Panel(tour), wizardTitle, [&tour](QDialog& wizard) {
        WidgetDriver(wizard).Enter("sbMasterA", QStringLiteral("-0.02"));
        WidgetDriver(wizard).Enter("sbMasterB", QStringLiteral("0.02"));
        PressNext(tour, wizard, 1);
        PutIn(tour, NozzlePart::MasterA);
        PassLivePressure(tour, wizard);
        PutIn(tour, NozzlePart::MasterB);
        PressNext(tour, wizard, 4);
        PressNext(tour, wizard, 5);
        GiveUp(tour, wizard);
    });
    OnPanel(tour).Click("btnMaster");
}

} // namespace

void AddAirGaugeSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location gauge{Location::Module, bench.shown, bench.airGauge};
    AddPage(steps, gauge, ButForThePanelsReading(LastResortOnly));
    steps.push_back({QStringLiteral("air-gauge-read"), gauge, Read,
                     [](Tour& tour) { return !tour.Operator().Text("tbReading").isEmpty(); },
                     ButForThePanelsReading(Always(QStringLiteral("Reading Error"), QString()))});
    steps.push_back({QStringLiteral("air-gauge-updated"), gauge,
                     [](Tour& tour) { OnPanel(tour).Click("btnUpdateModuleInfo"); },
                     [](Tour& tour) { return Field(tour, "tbPNXStatus") == QLatin1String("Not Mastered"); },
                     Always(panelTitle, QString())});
    steps.push_back({QStringLiteral("air-gauge-configured"), gauge, Configure,
                     [](Tour& tour) { return Field(tour, "tbLimitHigh") == QLatin1String("354.33 mils"); },
                     ButForThePanelsReading(ConfigurationFailure)});
    steps.push_back({QStringLiteral("air-gauge-reset"), gauge, ResetToFactory,
                     [](Tour& tour) { return Field(tour, "tbLimitHigh") == QLatin1String("0.0200 mm"); },
                     ButForThePanelsReading(ConfigurationFailure)});
    steps.push_back({QStringLiteral("air-gauge-mastering-cancelled"), gauge, CancelMastering,
                     [](Tour& tour) { return tour.Operator().Value("ModulePNXWidget", "visible").toBool(); },
                     MasteringFailure});
    steps.push_back({QStringLiteral("air-gauge-mastered"), gauge, Master,
                     [](Tour& tour) { return Field(tour, "tbPNXStatus") == QLatin1String("Mastered"); },
                     MasteringFailure});
}
