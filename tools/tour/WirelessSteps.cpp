#include "tools/tour/Steps.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

using TavikSimulator::JournalEntry;

namespace {

using Calls = std::vector<JournalEntry>;

const QString moduleTitle = QStringLiteral("RLK Module");
const QString configTitle = QStringLiteral("KRV Config");
const QString errorPrefix = QStringLiteral("Error: ");

constexpr int slotsOfAModule = 6;

FailureBox NoBox() {
    return {false, QString(), QString()};
}

int CountOf(const char* operation, Calls::const_iterator begin, Calls::const_iterator end) {
    return static_cast<int>(
        std::count_if(begin, end, [operation](const JournalEntry& call) { return call.operation == operation; }));
}

int CountOf(const char* operation, const Calls& calls) {
    return CountOf(operation, calls.begin(), calls.end());
}

/// While the panel is filled: tools are woken first, and one that does not answer is passed over.
FailureBox WhileFilling(Calls::const_iterator begin, const Calls& calls) {
    const std::string& last = calls.back().operation;
    const bool wakes = last == "Devices" || last == "GetDevice" || last == "ReadAllChannels";
    const bool allWoken = CountOf("ReadAllChannels", begin, calls.end() - 1) == slotsOfAModule;
    return wakes && !allWoken ? NoBox() : FailureBox();
}

FailureBox OfSelection(const Calls& calls) {
    return WhileFilling(calls.begin(), calls);
}

/// Until the restart is over its failures are the panel's own; then the buttons are enabled, for which each
/// slot's identity is asked for, and the panel is filled again.
FailureBox OfRestart(const Calls& calls) {
    const auto restart =
        std::find_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.operation == "Restart"; });
    if (restart == calls.end() || restart + 1 == calls.end()) {
        return {true, moduleTitle, QString()};
    }
    const bool enabled = CountOf("TavikIdentity", restart, calls.end() - 1) >= slotsOfAModule;
    return enabled ? WhileFilling(restart, calls) : FailureBox();
}

/// The last question of a read decides on a colour only; the dialog's own set-up has no answer to a failure.
FailureBox OfReading(const Calls& calls) {
    const std::string& last = calls.back().operation;
    if (last == "Devices" || last == "GetDevice" || last == "TavikIdentity" || last == "DeviceName") {
        return FailureBox();
    }
    const bool lastQuestion = last == "ConnectionStatus" && CountOf("ConnectionStatus", calls) % 2 == 0;
    return lastQuestion ? NoBox() : FailureBox{true, QStringLiteral("Read KRV"), QString()};
}

/// Opening the settings fails as a whole, but for the question for the firmware; what is written has its own box.
FailureBox OfSettings(const Calls& calls) {
    const std::string& last = calls.back().operation;
    const bool asksForFirmware = last == "SendCommand" || (last == "Settings" && CountOf("Settings", calls) == 2);
    if (asksForFirmware) {
        return NoBox();
    }
    const bool opened = CountOf("setConfigMode", calls.begin(), calls.end() - 1) == 2;
    const bool writes = opened || last == "SetDisplayedResolution";
    return writes ? FailureBox{true, configTitle, errorPrefix} : FailureBox{true, moduleTitle, QString()};
}

QWidget* Panel(Tour& tour) {
    return tour.Operator().Find("moduleRLKWidget");
}

void ReadTool(Tour& tour) {
    BoxReply reply;
    reply.meanwhile = [&tour](QDialog& dialog) {
        tour.ReportDialog(dialog, QStringLiteral("hand-tool-readings"));
        const auto stop = [&dialog] {
            if (WidgetDriver(dialog).Text("btnStartStopReading") == QLatin1String("Stop Reading")) {
                WidgetDriver(dialog).Click("btnStartStopReading");
            }
        };
        WidgetDriver(dialog).Click("radioTagged");
        WidgetDriver(dialog).Click("radioNormal");
        const auto operation = Repeatedly(stop);
        WidgetDriver(dialog).Click("btnStartStopReading");
        WidgetDriver(dialog).Click("btnClose");
    };
    tour.boxes.ExpectDialog(Panel(tour), QStringLiteral("KRV Channel Readings"), reply);
    tour.Operator().Click("btnRead1");
}

/// Every control that the operator can use at that moment, in the order in which the form lists them.
void UseEverything(QDialog& dialog) {
    const QList<QWidget*> widgets = dialog.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool changes = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                             qobject_cast<QComboBox*>(widget) != nullptr ||
                             qobject_cast<QAbstractSpinBox*>(widget) != nullptr;
        if (changes && widget->isVisible() && widget->isEnabled() &&
            widget->objectName() != QLatin1String("btnClose")) {
            WidgetDriver(dialog).Use(widget);
        }
    }
}

/// Opens the settings of a slot, writes one number that the form shows, and closes them.
void ChangeSettings(Tour& tour, const char* button, const QString& title, const char* field, const QString& picture) {
    BoxReply reply;
    reply.meanwhile = [&](QDialog& dialog) {
        tour.ReportDialog(dialog, picture);
        UseEverything(dialog);
        // The time can be set again only when the box beside it is on again.
        WidgetDriver(dialog).Click("cbAutoPowerOffEnabled");
        if (WidgetDriver(dialog).IsEnabled("sbAutoPowerOffTime")) {
            WidgetDriver(dialog).Use(WidgetDriver(dialog).Find("sbAutoPowerOffTime"));
        }
        WidgetDriver(dialog).Use(WidgetDriver(dialog).Find(field));
        WidgetDriver(dialog).Click("btnClose");
    };
    tour.boxes.ExpectDialog(&tour.Window(), title, reply);
    tour.Operator().Click(button);
}

void ConnectAnotherTool(Tour& tour) {
    WidgetDriver driver = tour.Operator();
    driver.Click("tbTavikID6");
    driver.Press(Qt::Key_A, Qt::ControlModifier);
    driver.Type(tour.bench.freeTool);
    driver.Enter("tbName6", QStringLiteral("Another"));
    driver.Click("btnApplySettings");
    const auto* wait = driver.The<QLabel>("lblWait");
    if (wait->isVisible()) {
        tour.ReportDialog(tour.Window(), QStringLiteral("wireless-module-restarting"));
    }
    WaitUntil([wait] { return !wait->isVisible(); });
}

bool AnotherToolIsConnected(Tour& tour) {
    return tour.Operator().Text("tbTavikID6") == tour.bench.freeTool &&
           tour.Operator().Text("tbDeviceType6") == QLatin1String("KRV");
}

TourStep SettingsStep(const QString& name, const Location& place, const char* button, const QString& title,
                      const char* field) {
    TourStep step;
    step.name = name;
    step.place = place;
    step.act = [=](Tour& tour) { ChangeSettings(tour, button, title, field, name + QStringLiteral("-dialog")); };
    step.seen = [](Tour& tour) { return tour.Operator().Value("moduleRLKWidget", "visible").toBool(); };
    step.failure = OfSettings;
    step.unusable = {true, QStringLiteral("RLK Config"), QStringLiteral("Unsupported KRV type")};
    step.slow = true;
    return step;
}

} // namespace

void AddWirelessSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.wireless.isEmpty()) {
        return;
    }
    const QString identity = bench.wireless;
    const Location network{Location::Network, bench.shown, QString()};
    const Location module{Location::Module, bench.shown, identity};
    // The list of modules takes the focus, and with it its first module, which may be the wireless one.
    steps.push_back({QStringLiteral("modules-with-the-wireless-one"), network,
                     [network](Tour& tour) { tour.GoTo(network); },
                     [](Tour& tour) { return tour.Operator().Value("tabNetwork", "visible").toBool(); }, OfSelection});
    steps.push_back({QStringLiteral("selected-") + identity, module,
                     [identity](Tour& tour) { tour.Operator().SelectRow("listModules", identity); },
                     [identity](Tour& tour) { return tour.Operator().Text("tbTavikIdentity") == identity; },
                     OfSelection});
    steps.push_back({QStringLiteral("wireless-module"), module,
                     [](Tour& tour) { tour.Operator().SelectPage("tabModule"); },
                     [](Tour& tour) { return !tour.Operator().Text("tbTavikID1").isEmpty(); }, LastResortOnly});
    steps.push_back({QStringLiteral("hand-tool-read"), module, ReadTool,
                     [](Tour& tour) { return tour.Operator().Value("moduleRLKWidget", "visible").toBool(); },
                     OfReading});
    steps.push_back(SettingsStep(QStringLiteral("single-channel-settings"), module, "btnConfig1",
                                 QStringLiteral("KRV Settings"), "sbResolution"));
    steps.push_back(SettingsStep(QStringLiteral("multi-channel-settings"), module, "btnConfig2",
                                 QStringLiteral("KRV-X Configuration"), "sbChRes5"));
    steps.push_back(
        {QStringLiteral("another-tool-connected"), module, ConnectAnotherTool, AnotherToolIsConnected, OfRestart});
}

std::vector<TourStep> WirelessTourSteps(const TourBench& bench) {
    std::vector<TourStep> steps;
    AddWirelessSteps(steps, bench);
    return steps;
}
