#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QComboBox>

#include <algorithm>

using TavikSimulator::JournalEntry;

namespace {

const QString boxTitle = QStringLiteral("Buffered Mode");
const QString boxPrefix = QStringLiteral("Error: ");

QWidget* Page(Tour& tour) {
    return tour.Window().findChild<QWidget*>(QStringLiteral("bufferedModeWidget"));
}

/// What the operator does on the page of buffered mode.
WidgetDriver OnPage(Tour& tour) {
    tour.Operator().SelectPage("tabBuffered");
    return WidgetDriver(*Page(tour));
}

void SetInterval(Tour& tour) {
    WidgetDriver driver = OnPage(tour);
    driver.Click("radioSync");
    driver.Enter("sbInterval", QStringLiteral("40000"));
    tour.Operator().Press(Qt::Key_Return);
}

void ChooseMaster(Tour& tour) {
    WidgetDriver driver = OnPage(tour);
    driver.Click("radioSample");
    driver.Choose("cbMasterAddress", 1);
    driver.Enter("sbCountsPerSample", QStringLiteral("50"));
    tour.Operator().Press(Qt::Key_Return);
}

void ChooseController(Tour& tour) {
    OnPage(tour).Choose("cbMasterAddress", 0);
}

/// A run with two samples. Whatever fails in it, the operator sees to it that it is stopped.
void Run(Tour& tour) {
    WidgetDriver driver = OnPage(tour);
    if (driver.IsEnabled("btnStop")) {
        // It is still running from a try at which nothing could stop it.
        driver.Click("btnStop");
    }
    driver.Click("btnStart");
    for (int sample = 0; sample < 2 && driver.IsEnabled("btnSample"); ++sample) {
        LetTimePass(0.5);
        driver.Click("btnSample");
    }
    tour.ReportDialog(tour.Window(), QStringLiteral("buffered-running"));
    for (int press = 0; press < 2 && driver.IsEnabled("btnStop"); ++press) {
        driver.Click("btnStop");
    }
}

void ShowResults(Tour& tour, const char* button, const QString& title, const QString& picture) {
    WidgetDriver driver = OnPage(tour);
    tour.boxes.ExpectUse(Page(tour), title, [&tour, picture](QDialog& dialog) {
        tour.ReportDialog(dialog, picture);
        WidgetDriver(dialog).Click("btnClose");
    });
    driver.Click(button);
}

/// After the stop the page is refreshed once by itself and once because the window enables its controls, which shows
/// failures in a box of its own.
FailureBox FailureOfRun(const std::vector<JournalEntry>& calls) {
    int refreshes = 0;
    for (const JournalEntry& call : calls) {
        if (call.operation == "Stop" && !call.failed) {
            refreshes = 0;
        } else if (call.operation == "IsConnected") {
            ++refreshes;
        }
    }
    const bool stopped = std::any_of(calls.begin(), calls.end(),
                                     [](const JournalEntry& call) { return call.operation == "Stop" && !call.failed; });
    return stopped && refreshes > 1 ? FailureBox() : FailureBox{true, boxTitle, boxPrefix};
}

std::function<bool(Tour& tour)> Shows(const char* field, const QString& text) {
    return [=](Tour& tour) { return OnPage(tour).Text(field) == text; };
}

bool HasResults(Tour& tour) {
    WidgetDriver driver = OnPage(tour);
    return driver.IsEnabled("btnCurrentModule") && !driver.IsEnabled("btnStop");
}

} // namespace

void AddBufferedSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.buffered.isEmpty()) {
        return;
    }
    const Location module{Location::Module, bench.shown, bench.buffered};
    const FailureRule failure = Always(boxTitle, boxPrefix);
    const auto master = [](int row) {
        return [row](Tour& tour) { return OnPage(tour).Value("cbMasterAddress", "currentIndex") == row; };
    };
    AddPage(steps, module, LastResortOnly);
    const auto add = [&](const char* name, const auto& act, const auto& seen, const FailureRule& rule) {
        steps.push_back({QStringLiteral("buffered-") + QLatin1String(name), module, act, seen, rule});
    };
    add(
        "page", [](Tour& tour) { OnPage(tour); }, Shows("tbModuleID", bench.buffered), LastResortOnly);
    add("interval", SetInterval, Shows("tbTTU", QStringLiteral("400")), failure);
    add("master", ChooseMaster, master(1), failure);
    add("controller", ChooseController, master(0), failure);
    add(
        "enabled", [](Tour& tour) { OnPage(tour).Click("btnEnable"); }, Shows("tbEnabled", QStringLiteral("True")),
        failure);
    add("run", Run, HasResults, FailureOfRun);
    add(
        "results",
        [](Tour& tour) {
            ShowResults(tour, "btnCurrentModule", QStringLiteral("Results"), QStringLiteral("buffered-current-module"));
        },
        HasResults, failure);
    add(
        "all-results",
        [](Tour& tour) {
            ShowResults(tour, "btnAllModules", QStringLiteral("Results (in each module's unit of measure)."),
                        QStringLiteral("buffered-all-modules"));
        },
        HasResults, failure);
    add(
        "disabled", [](Tour& tour) { OnPage(tour).Click("btnDisable"); }, Shows("tbEnabled", QStringLiteral("False")),
        failure);
}
