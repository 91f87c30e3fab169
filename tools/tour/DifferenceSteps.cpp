#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QDialog>

using TavikSimulator::JournalEntry;

namespace {

using Calls = std::vector<JournalEntry>;

const FailureRule ownBox = Always(QStringLiteral("Difference Mode"), QStringLiteral("Error: "));

/// The page's own box. While the controls of the window are enabled again, after the page has shown the result of the
/// stopped run, it is the last resort. Then the page is refreshed once more, without a box.
FailureBox OfRun(const Calls& calls) {
    enum { Running, Showing, Enabling, Enabled, Looking } phase = Running;
    for (const JournalEntry& call : calls) {
        const bool failing = &call == &calls.back();
        if (phase == Enabled && call.operation == "Difference" && call.object.rfind("module ", 0) == 0) {
            phase = Looking;
        } else if (phase == Running && call.operation == "Stop" && !failing) {
            phase = Showing;
        } else if (phase == Showing && call.operation == "Count" && !failing) {
            phase = Enabling;
        } else if (phase == Enabling && call.operation == "Count" && !failing) {
            phase = Enabled;
        }
    }
    if (phase == Looking) {
        return Swallowed(calls);
    }
    return phase == Enabling || phase == Enabled ? FailureBox() : ownBox(calls);
}

void Run(Tour& tour) {
    tour.Operator().SelectPage("tabDifference");
    if (tour.Operator().IsEnabled("btnStopDiff")) {
        // It is still running from a try at which nothing could stop it.
        tour.Operator().Click("btnStopDiff");
    }
    int looks = 0;
    const auto operation = Repeatedly([&] {
        LetTimePass(1.0);
        if (++looks == 2) {
            tour.ReportDialog(tour.Window(), QStringLiteral("difference-running"));
        }
        if (looks >= 2 && tour.Operator().IsEnabled("btnStopDiff")) {
            tour.Operator().Click("btnStopDiff");
        }
    });
    tour.Operator().Click("btnStartDiff");
    if (tour.Operator().IsEnabled("btnStopDiff")) {
        // A look at the run failed; it goes on.
        tour.Operator().Click("btnStopDiff");
    }
}

void ShowResults(Tour& tour) {
    tour.Operator().SelectPage("tabDifference");
    BoxReply reply;
    reply.meanwhile = [&tour](QDialog& dialog) {
        tour.ReportDialog(dialog, QStringLiteral("difference-results-dialog"));
        WidgetDriver(dialog).Click("btnClose");
    };
    tour.boxes.ExpectDialog(tour.Operator().Find("differenceModeWidget"), QStringLiteral("Difference Mode Results"),
                            reply);
    tour.Operator().Click("btnDisplayAllModuleResults");
}

void AddEnabling(std::vector<TourStep>& steps, const Location& place, const char* button, const QString& enabled) {
    TourStep step;
    step.name = QStringLiteral("difference-%1-%2").arg(enabled.toLower(), place.module);
    step.place = place;
    step.act = [button, enabled](Tour& tour) {
        tour.Operator().SelectPage("tabDifference");
        if (tour.Operator().Text("tbEnabled") != enabled) {
            tour.Operator().Click(button);
        }
    };
    step.seen = [enabled](Tour& tour) { return tour.Operator().Text("tbEnabled") == enabled; };
    step.failure = ownBox;
    steps.push_back(step);
}

} // namespace

void AddDifferenceSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.probe.isEmpty()) {
        return;
    }
    const Location probe{Location::Module, bench.shown, bench.probe};
    const Location other{Location::Module, bench.shown, bench.visited.value(0)};
    steps.push_back({QStringLiteral("connected-for-modes"), Location{Location::Server, bench.shown, QString()},
                     [](Tour& tour) {
                         tour.Operator().SelectPage("tabServer");
                         tour.Operator().Click("btnConnectAll");
                     },
                     [probe, other](Tour& tour) {
                         const QStringList rows = tour.Rows("listModules");
                         return tour.HasPage("tabNetwork") && rows.contains(probe.module) &&
                                rows.contains(other.module);
                     },
                     LastResortOnly});
    AddPage(steps, other, LastResortOnly);
    AddEnabling(steps, other, "btnEnable", QStringLiteral("True"));
    AddPage(steps, probe, LastResortOnly);
    AddEnabling(steps, probe, "btnEnable", QStringLiteral("True"));
    steps.push_back({QStringLiteral("difference-run"), probe, Run,
                     [](Tour& tour) { return tour.Operator().IsEnabled("btnDisplayAllModuleResults"); }, OfRun});
    steps.push_back({QStringLiteral("difference-results"), probe, ShowResults,
                     [](Tour& tour) { return tour.Operator().IsEnabled("btnDisplayAllModuleResults"); }, ownBox});
    AddEnabling(steps, probe, "btnDisable", QStringLiteral("False"));
}
