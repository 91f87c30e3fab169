#include "tools/sweep/Scenario.h"

#include "tools/tour/Steps.h"

#include <algorithm>

namespace {

Scenario PanelScenario(const char* kind) {
    const QString name = QLatin1String(kind);
    return {QStringLiteral("panel-") + name, [name] { return PanelTourBench(name); }, PanelTourSteps};
}

std::vector<Scenario> MakeScenarios() {
    std::vector<Scenario> scenarios{{QStringLiteral("main"), SmallTourBench, TourSteps},
                                    {QStringLiteral("wireless"), WirelessTourBench, WirelessTourSteps},
                                    {QStringLiteral("difference"), DifferenceTourBench, ModesTourSteps},
                                    {QStringLiteral("reference-mark"), ReferenceMarkTourBench, ModesTourSteps},
                                    {QStringLiteral("buffered"), BufferedTourBench, ModesTourSteps},
                                    {QStringLiteral("dynamic"), DynamicTourBench, ModesTourSteps}};
    for (const char* kind : {"RN", "QTA", "SWAX", "SWAX2", "BW", "BWR", "BWK", "HVX"}) {
        scenarios.push_back(PanelScenario(kind));
    }
    return scenarios;
}

/// A step that is repeated after a failure finds the window open and connects the networks instead.
void OpenOrConnect(Tour& tour) {
    if (tour.HasWindow()) {
        tour.Operator().Click("btnConnectAll");
    } else {
        tour.OpenWindow();
    }
}

} // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> scenarios = MakeScenarios();
    return scenarios;
}

const Scenario* FindScenario(const QString& name) {
    const auto found = std::find_if(Scenarios().begin(), Scenarios().end(),
                                    [&name](const Scenario& scenario) { return scenario.name == name; });
    return found == Scenarios().end() ? nullptr : &*found;
}

std::vector<TourStep> AllSteps(const Scenario& scenario, const TourBench& bench) {
    std::vector<TourStep> steps{{QStringLiteral("start"), Location(), OpenOrConnect,
                                 [](Tour& tour) { return !tour.Cell(tour.bench.otherNetwork, 0).isEmpty(); },
                                 LastResortOnly}};
    const std::vector<TourStep> tour = scenario.steps(bench);
    steps.insert(steps.end(), tour.begin(), tour.end());
    if (!steps.back().closes) {
        TourStep close{QStringLiteral("closed"), Location{Location::Nowhere, 0, QString()},
                       [](Tour& closing) { closing.Window().close(); },
                       [](Tour& closed) { return !closed.Window().isVisible(); }, Swallowed};
        close.closes = true;
        steps.push_back(close);
    }
    return steps;
}
