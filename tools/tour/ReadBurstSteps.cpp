#include "tools/tour/Steps.h"

#include <QTableWidget>

namespace {

/// Presses a button of the page of read bursts.
std::function<void(Tour& tour)> Press(const char* button) {
    return [button](Tour& tour) {
        tour.Operator().SelectPage("tabReadburst");
        tour.Operator().Click(button);
    };
}

bool HasReadings(Tour& tour) {
    const auto* table = tour.Operator().The<QTableWidget>("tableReadings");
    return table != nullptr && table->rowCount() > 0 && table->item(table->rowCount() - 1, 2) != nullptr;
}

} // namespace

void AddReadBurstSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.probe.isEmpty()) {
        return;
    }
    const Location probe{Location::Module, bench.shown, bench.probe};
    const FailureRule box = Always(QStringLiteral("Readburst"), QStringLiteral("Error: "));
    steps.push_back({QStringLiteral("readburst-in-counts"), probe, Press("btnReadInCounts"), HasReadings, box});
    steps.push_back({QStringLiteral("readburst-in-units"), probe, Press("btnReadInUnits"), HasReadings, box});
    steps.push_back({QStringLiteral("readburst-timed"), probe, Press("btnTimeReadings"),
                     [](Tour& tour) { return tour.Operator().Value("tableReadings", "visible").toBool(); },
                     Always(QStringLiteral("Readburst Error"), QString())});
}
