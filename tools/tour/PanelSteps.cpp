#include "library/TavikModuleHVX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModuleQTA.h"
#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSpinBox>

#include <algorithm>

// What the operator does on the panels of the kinds of modules.

namespace {

using Act = std::function<void(WidgetDriver driver)>;
using Seen = std::function<bool(WidgetDriver driver)>;

/// Adds steps on the page of one module.
class PanelSteps {
public:
    PanelSteps(std::vector<TourStep>& steps, const Location& place, const QString& title)
        : steps(steps), place(place), title(title) {}

    void Add(const char* name, const Act& act, const Seen& seen) { Add(name, act, seen, Always(title, QString())); }

    void Add(const char* name, const Act& act, const Seen& seen, const FailureRule& failure) {
        steps.push_back({place.module + QLatin1Char('-') + QLatin1String(name), place,
                         [act](Tour& tour) { act(tour.Operator()); },
                         [seen](Tour& tour) { return seen(tour.Operator()); }, failure});
    }

    /// Taking the last step once more turns round what it did.
    void LastChanges() { steps.back().changes = true; }

    /// A row of a list is chosen and set; the field shows it with this text afterwards.
    void AddSet(const char* name, const char* list, int row, const char* button, const char* field,
                const std::string& text) {
        const QString shown = QString::fromStdString(text);
        Add(
            name,
            [=](WidgetDriver driver) {
                driver.SelectRow(list, row);
                driver.Click(button);
            },
            [=](WidgetDriver driver) { return driver.Text(field) == shown; });
    }

    /// A button is clicked and checked afterwards.
    void AddClick(const char* name, const char* button) {
        Add(
            name, [=](WidgetDriver driver) { driver.Click(button); },
            [=](WidgetDriver driver) { return IsChecked(driver, button); });
    }

    /// An entry of a combo box is chosen and set.
    void AddEntry(const char* name, const char* combo, int index, const char* button) {
        Add(
            name,
            [=](WidgetDriver driver) {
                driver.Choose(combo, index);
                driver.Click(button);
            },
            [=](WidgetDriver driver) { return driver.Value(combo, "currentIndex") == index; });
    }

    void AddRead() {
        Add(
            "read", [](WidgetDriver driver) { driver.Click("btnRead"); },
            [](WidgetDriver driver) { return !driver.Text("tbReading").isEmpty(); }, ReadingOrPanel(title));
    }

    static bool IsChecked(WidgetDriver driver, const char* button) { return driver.Value(button, "checked").toBool(); }

private:
    std::vector<TourStep>& steps;
    const Location place;
    const QString title;
};

/// For commands that show nothing when they succeed.
bool LastCallWas(const char* operation) {
    const std::vector<TavikSimulator::JournalEntry> journal = TavikSimulator::Journal();
    return !journal.empty() && journal.back().operation == operation && !journal.back().failed;
}

void AddEncoder(PanelSteps panel) {
    using namespace TavikLibrary;
    panel.AddSet("ref-action-set", "listRefActions", 1, "btnSetRefAction", "tbCurrentRefAction",
                 eRefAction_ToString(eRefAction::ContinuousReset));
    panel.AddSet("quad-mode-set", "listQuadModes", 1, "btnSetQuadMode", "tbCurrentQuadMode",
                 eQuadratureMode_ToString(eQuadratureMode::quadX2));
    panel.AddSet("encoder-set", "listEncoders", 0, "btnSetEncoder", "tbCurrentEncoder",
                 eEncoderInterfaceType_ToString(eEncoderInterfaceType::Differential));
    panel.Add(
        "preset",
        [](WidgetDriver driver) {
            driver.Enter("sbPreset", QStringLiteral("4711"));
            driver.Click("btnPresetinCounts");
        },
        [](WidgetDriver driver) { return driver.Value("sbPreset", "value") == 4711; });
    panel.AddRead();
}

void AddLinearEncoder(PanelSteps panel) {
    const auto preset = [](double value, const char* button) {
        return [value, button](WidgetDriver driver) {
            driver.Enter("sbPreset", QString::number(value));
            driver.Click(button);
        };
    };
    panel.Add("preset-in-counts", preset(4711.5, "btnPresetinCounts"),
              [](WidgetDriver) { return LastCallWas("setPresetInCounts"); });
    panel.Add("preset-in-units", preset(0.0, "btnPresetinUnits"),
              [](WidgetDriver) { return LastCallWas("setPresetInUnits"); });
    panel.AddClick("reversed", "radioReversed");
    panel.AddClick("normal", "radioNormal");
    panel.AddRead();
}

void AddEightPins(PanelSteps panel) {
    panel.AddClick("pin-3-is-an-output", "radioConfigOutput3");
    panel.AddClick("pin-3-is-high", "radioOutputHigh3");
    panel.AddClick("pin-3-is-low", "radioOutputLow3");
    panel.AddClick("pin-3-is-an-input", "radioConfigInput3");
    panel.AddEntry("debounce-set", "cbDebouncetime", 2, "btnSetDebounce");
    panel.AddRead();
}

void AddTenPins(PanelSteps panel) {
    panel.AddClick("output-2-is-active", "radioOutputHigh2");
    panel.AddClick("output-2-is-inactive", "radioOutputLow2");
    panel.AddClick("output-1-is-active-low", "radioActiveStateLowOut1");
    panel.AddClick("output-1-is-active-high", "radioActiveStateHighOut1");
    panel.AddClick("input-3-is-active-low", "radioActiveStateLowIn3");
    panel.AddClick("input-3-is-active-high", "radioActiveStateHighIn3");
    panel.AddEntry("output-mode-set", "cbOutputMode", 1, "btnSetOutputMode");
    panel.AddEntry("debounce-set", "cbDebouncetime", 2, "btnSetDebounce");
    panel.AddRead();
}

void AddBeam(PanelSteps panel) {
    const auto isOn = [](WidgetDriver driver) { return PanelSteps::IsChecked(driver, "cbBeamOn"); };
    const auto click = [](WidgetDriver driver) { driver.Click("cbBeamOn"); };
    panel.Add("beam-off", click, [isOn](WidgetDriver driver) { return !isOn(driver); });
    panel.LastChanges();
    panel.Add("beam-on", click, isOn);
    panel.LastChanges();
}

void AddFilter(PanelSteps panel) {
    using namespace TavikLibrary;
    panel.AddSet("filter-set", "listAvailableFilters", 5, "btnSetFilter", "tbCurrentFilter",
                 eFilter_ToString(eFilter::Filter1Hz));
    panel.Add(
        "level-cut-set",
        [](WidgetDriver driver) {
            driver.Enter("sbAvailableLevelCutTime", QStringLiteral("25"));
            driver.Click("btnSetLevelCut");
        },
        [](WidgetDriver driver) { return driver.Text("tbCurrentLevelCutTime") == QLatin1String("25"); });
}

void AddRate(PanelSteps panel) {
    using namespace TavikLibrary;
    panel.AddSet("rate-set", "listAvailableMeasuringRates", 0, "btnSetMeasuringRate", "tbCurrentMeasuringRate",
                 eMeasuringRate_ToString(eMeasuringRate::Rate100Hz));
}

void AddReadMode(std::vector<TourStep>& steps, PanelSteps panel, const Location& place, const QString& title) {
    using namespace TavikLibrary;
    panel.AddSet("read-mode-set", "listAvailableReadMode", 2, "btnSetReadMode", "tbCurrentReadMode",
                 eHvxReadMode_ToString(eHvxReadMode::ReadOnSample));
    panel.Add(
        "sampled", [](WidgetDriver driver) { driver.Click("btnSample"); },
        [](WidgetDriver) { return LastCallWas("SampleReading"); });
    panel.AddRead();
    steps.push_back({place.module + QStringLiteral("-new-reading-ready"), place,
                     [](Tour& tour) { tour.Operator().Click("btnNewReadingReady"); },
                     [title](Tour& tour) {
                         const QVector<SeenBox> boxes = tour.boxes.Peek();
                         return std::any_of(boxes.begin(), boxes.end(), [&](const SeenBox& box) {
                             return box.kind == BoxKind::Information && box.title == title;
                         });
                     },
                     Always(title, QString())});
    panel.Add(
        "information-updated",
        [](WidgetDriver driver) {
            LetTimePass(60.0);
            driver.Click("btnUpdateReadingInfo");
        },
        [](WidgetDriver driver) { return driver.Text("tbSoftwareVersion") == QLatin1String("1.22"); });
}

QString KindOf(const QString& identity) {
    for (const char* kind : {"RN", "QTA", "SWAX2", "SWAX", "BWR", "BWK", "BW", "HVX"}) {
        if (identity.startsWith(QLatin1String(kind))) {
            return QLatin1String(kind);
        }
    }
    return QString();
}

bool IsDigitalIO(const QString& kind) {
    return kind == QLatin1String("SWAX") || kind == QLatin1String("SWAX2");
}

} // namespace

QString TitleOfOwnFilling(const QString& identity) {
    const QString kind = KindOf(identity);
    return IsDigitalIO(kind) ? kind + QStringLiteral(" Module") : QString();
}

void AddPanelSteps(std::vector<TourStep>& steps, const Location& place) {
    const QString kind = KindOf(place.module);
    const auto titled = [&](const QString& area) { return PanelSteps(steps, place, area + QStringLiteral(" Module")); };
    if (kind == QLatin1String("QTA")) {
        AddEncoder(titled(kind));
    } else if (kind == QLatin1String("RN")) {
        AddLinearEncoder(titled(kind));
    } else if (kind == QLatin1String("SWAX")) {
        AddEightPins(titled(kind));
    } else if (kind == QLatin1String("SWAX2")) {
        AddTenPins(titled(kind));
    } else if (kind == QLatin1String("HVX")) {
        AddReadMode(steps, titled(kind), place, kind + QStringLiteral(" Module"));
    } else if (kind.startsWith(QLatin1String("BW"))) {
        AddBeam(titled(QStringLiteral("BW")));
        if (kind == QLatin1String("BWR")) {
            AddFilter(titled(kind));
        } else if (kind == QLatin1String("BWK")) {
            AddRate(titled(kind));
        }
    }
}
