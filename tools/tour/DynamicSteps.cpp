#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QComboBox>
#include <QDialog>
#include <QSpinBox>

// What the operator does on the page of dynamic mode.

using namespace TavikSimulator;

namespace {

const QString title = QStringLiteral("Dynamic Mode");
const QString results = QStringLiteral("Results available");

void GoToPage(Tour& tour) {
    tour.Operator().SelectPage("dynamicWidget");
}

bool StatusIs(Tour& tour, const QString& status) {
    return tour.Operator().Text("lblStatus") == status;
}

void Click(Tour& tour, const char* button) {
    if (tour.Operator().IsEnabled(button)) {
        tour.Operator().Click(button);
    }
}

void Enter(Tour& tour, const char* box, int value) {
    if (tour.Operator().IsEnabled(box) && tour.Operator().Value(box, "value") != value) {
        tour.Operator().Enter(box, QString::number(value));
        tour.Operator().Press(Qt::Key_Return);
    }
}

void UseMaster(Tour& tour) {
    GoToPage(tour);
    WidgetDriver driver = tour.Operator();
    Click(tour, "radioSyncExternal");
    auto* masters = driver.The<QComboBox>("cbExternalMaster");
    driver.Choose("cbExternalMaster", masters->findText(tour.bench.master));
    Enter(tour, "sbModulesInCollection", tour.Rows("listModules").indexOf(tour.bench.master));
    if (driver.IsEnabled("listDynamicMasterMode")) {
        driver.SelectRow("listDynamicMasterMode", 1);
    }
    Enter(tour, "sbCountsPerSync", 40);
    Enter(tour, "sbHoldOffCounts", 200);
}

bool MasterIsUsed(Tour& tour) {
    return tour.Operator().Text("lblDynamicMasterMode") == QLatin1String("HoldOff") &&
           tour.Operator().Value("sbHoldOffCounts", "value") == 200 &&
           tour.Operator().Value("sbCountsPerSync", "value") == 40;
}

void UseController(Tour& tour) {
    GoToPage(tour);
    Click(tour, "radioSyncNormal");
    const int modules = tour.Operator().Value("sbModulesInCollection", "value").toInt();
    Enter(tour, "sbModulesInCollection", modules + 1);
    Enter(tour, "sbModulesInCollection", modules);
    if (tour.Operator().IsEnabled("listDynamicModules")) {
        tour.Operator().SelectRow("listDynamicModules", 0);
    }
    if (tour.Operator().IsEnabled("listRate")) {
        tour.Operator().SelectRow("listRate", 0);
    }
    Enter(tour, "sbNumSyncs", tour.bench.syncs);
}

bool ControllerIsUsed(Tour& tour) {
    return tour.Operator().Text("lblDynamicMasterMode") == QLatin1String("NotMaster") &&
           tour.Operator().Value("sbNumSyncs", "value") == tour.bench.syncs;
}

void Prepare(Tour& tour) {
    GoToPage(tour);
    Click(tour, "btnEnable");
    Click(tour, "btnPrepare");
}

void WaitForTheEnd(Tour& tour) {
    WaitUntil([&tour] { return tour.Operator().Find("listModules")->isEnabledTo(&tour.Window()); });
}

void Collect(Tour& tour) {
    GoToPage(tour);
    Click(tour, "btnPrepare");
    Click(tour, "btnStart");
    LetTimePass(0.0001);
    tour.ReportDialog(tour.Window(), QStringLiteral("dynamic-collection-running"));
    LetTimePass(2.0);
    WaitForTheEnd(tour);
}

void StopACollection(Tour& tour) {
    GoToPage(tour);
    Click(tour, "btnPrepare");
    Click(tour, "btnStart");
    // Once more for the stop that fails.
    Click(tour, "btnStop");
    Click(tour, "btnStop");
    WaitForTheEnd(tour);
}

/// The last of so many stops is that after the collection's end. Then the window's controls are enabled, for which
/// every page is shown anew, before it is this page's own turn.
FailureRule UntilStops(int stops) {
    return [stops](const std::vector<JournalEntry>& calls) {
        int stopped = 0;
        bool shown = false;
        for (std::size_t index = 0; index + 1 < calls.size(); ++index) {
            stopped += calls[index].operation == "StopAllDynamic" ? 1 : 0;
            shown = shown || (stopped == stops && calls[index].operation == "GetErrorDescription");
        }
        return stopped < stops || shown ? FailureBox{true, title, QString()} : FailureBox();
    };
}

TourStep ResultsStep(const QString& name, const Location& place, const char* button, const QString& dialogTitle) {
    const auto act = [=](Tour& tour) {
        GoToPage(tour);
        tour.boxes.ExpectUse(tour.Operator().Find("dynamicWidget"), dialogTitle, [&tour, name](QDialog& dialog) {
            tour.ReportDialog(dialog, name + QStringLiteral("-dialog"));
            dialog.close();
        });
        Click(tour, button);
    };
    return {name, place, act, [](Tour& tour) { return StatusIs(tour, results); }, Always(title, QString())};
}

} // namespace

void AddDynamicSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.collected.isEmpty()) {
        return;
    }
    const Location place{Location::Module, bench.shown, bench.collected};
    const FailureRule failure = Always(title, QString());
    AddPage(steps, place, LastResortOnly);
    steps.push_back({QStringLiteral("dynamic-mode"), place, GoToPage,
                     [](Tour& tour) { return !tour.Operator().Text("lblStatus").isEmpty(); }, LastResortOnly});
    steps.push_back({QStringLiteral("dynamic-external-master"), place, UseMaster, MasterIsUsed, failure});
    steps.push_back({QStringLiteral("dynamic-settings"), place, UseController, ControllerIsUsed, failure});
    steps.push_back({QStringLiteral("dynamic-prepared"), place, Prepare,
                     [](Tour& tour) { return StatusIs(tour, QStringLiteral("Prepared")); }, failure});
    steps.push_back({QStringLiteral("dynamic-collected"), place, Collect,
                     [](Tour& tour) { return StatusIs(tour, results); }, UntilStops(1)});
    steps.push_back(ResultsStep(QStringLiteral("dynamic-results-of-the-module"), place, "btnModuleResults",
                                QStringLiteral("Results")));
    steps.push_back(ResultsStep(QStringLiteral("dynamic-results-of-all"), place, "btnAllResults",
                                QStringLiteral("Results (in each module's unit of measure).")));
    steps.push_back({QStringLiteral("dynamic-stopped"), place, StopACollection,
                     [](Tour& tour) { return StatusIs(tour, results); }, UntilStops(2)});
    steps.push_back({QStringLiteral("dynamic-disabled"), place,
                     [](Tour& tour) {
                         GoToPage(tour);
                         Click(tour, "btnDisable");
                     },
                     [](Tour& tour) { return tour.Operator().Text("lblNetEnabled") == QLatin1String("False"); },
                     failure});
}
