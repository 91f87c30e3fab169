#include "tools/soak/Soak.h"

#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPixmapCache>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// As much as the steps ask for.
constexpr std::size_t journalCapacity = 500;

constexpr int kibibytesOfPixmaps = 1024;

constexpr double kibibyte = 1024.0;

/// A quantity of a sample, and its growth limit per round.
struct Quantity {
    const char* name;
    double Sample::*value;
    double growthLimit;
};
constexpr Quantity quantities[] = {
    {"resident memory, bytes", &Sample::residentBytes, 16 * kibibyte},
    {"heap in use, bytes", &Sample::heapBytes, kibibyte},
    {"threads", &Sample::threads, 0.05},
    {"file descriptors", &Sample::files, 0.05},
    {"Qt objects", &Sample::objects, 0.25},
};

/// Reads until that many passes are in the status bar's text, or anything ended the reading.
void ReadForAWhile(Tour& tour) {
    constexpr int looks = 1000;
    int looked = 0;
    tour.Operator().SelectPage("tabModule");
    const auto operation = Repeatedly([&] {
        if (++looked == looks) {
            tour.Operator().Click("btnStopContinuous");
        }
    });
    tour.Operator().Click("btnStartContinuous");
}

/// Steps that have another result the second time.
bool IsForOneTimeOnly(const TourStep& step) {
    const QStringList names = {QStringLiteral("air-gauge-updated"), QStringLiteral("reference-mark-given-up"),
                               QStringLiteral("network-again"), QStringLiteral("modules-cleared")};
    return step.closes || names.contains(step.name);
}

} // namespace

Soak::Soak(const TourBench& bench, std::vector<TourStep> newSteps, double speed)
    : run(bench), steps(std::move(newSteps)) {
    TavikSimulator::StartJournal(journalCapacity);
    TavikSimulator::UseRealClock(speed);
    SetTourClockSpeed(speed);
    // Qt's own limit is reached after hours only.
    QPixmapCache::setCacheLimit(kibibytesOfPixmaps);
    run.CurrentTour().OpenWindow();
}

void Soak::Round() {
    for (const TourStep& step : steps) {
        const QStringList errors = run.Perform(step);
        for (const QString& error : errors) {
            failures.append(QStringLiteral("round %1, %2: %3").arg(samples.size() + 1).arg(step.name, error));
        }
    }
    run.CurrentTour().Operator().SelectPage("tabServer");
    ProcessAllEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Its entries are not all of the same length.
    TavikSimulator::ClearJournal();
    samples.push_back(TakeSample());
}

void Soak::Close() {
    run.CurrentTour().Window().close();
    failures += run.End();
    SetTourClockSpeed(0.0);
}

std::vector<Finding> Soak::Findings() const {
    std::vector<Finding> findings;
    for (const Quantity& quantity : quantities) {
        std::vector<double> values;
        std::transform(samples.begin(), samples.end(), std::back_inserter(values),
                       [&](const Sample& sample) { return sample.*quantity.value; });
        values = AfterWarmUp(values);
        Finding finding;
        finding.quantity = quantity.name;
        if (!values.empty()) {
            finding.first = values.front();
            finding.last = values.back();
        }
        finding.trend = TrendOf(values);
        finding.growthLimit = quantity.growthLimit;
        finding.result = ResultOf(values, quantity.growthLimit);
        findings.push_back(finding);
    }
    return findings;
}

double Soak::BenchSeconds() {
    return TavikSimulator::BenchTime();
}

std::vector<TourStep> SoakSteps(const TourBench& bench) {
    std::vector<TourStep> steps;
    AddServerSteps(steps, bench);
    AddModuleSteps(steps, bench);
    const Location probe{Location::Module, bench.shown, bench.probe};
    AddPage(steps, probe, LastResortOnly);
    steps.push_back({QStringLiteral("read-for-a-while"), probe, ReadForAWhile,
                     [](Tour& tour) { return !tour.Operator().Text("tbReading").isEmpty(); }, LastResortOnly});
    AddAirGaugeSteps(steps, bench);
    AddWirelessSteps(steps, bench);
    const std::vector<TourStep> modes = ModesTourSteps(bench);
    steps.insert(steps.end(), modes.begin(), modes.end());
    AddMenuSteps(steps, bench);
    return RepeatedSteps(std::move(steps));
}

std::vector<TourStep> RepeatedSteps(std::vector<TourStep> steps) {
    // A collection that was stopped holds as much as there was time for, the one before it always the same.
    const auto named = [&](const char* name) {
        return std::find_if(steps.begin(), steps.end(),
                            [&](const TourStep& step) { return step.name == QLatin1String(name); });
    };
    if (named("dynamic-stopped") != steps.end()) {
        std::iter_swap(named("dynamic-stopped"), named("dynamic-collected"));
    }
    steps.erase(std::remove_if(steps.begin(), steps.end(), IsForOneTimeOnly), steps.end());
    return steps;
}
