#pragma once

#include "tools/soak/Sample.h"
#include "tools/soak/Trend.h"
#include "tools/sweep/ScenarioRun.h"

#include <QStringList>

#include <string>
#include <vector>

/// The trend of one quantity of the samples.
struct Finding {
    std::string quantity;
    double first = 0.0; ///< after the warm-up
    double last = 0.0;
    Trend trend;
    double growthLimit = 0.0; ///< per round
    TrendResult result = TrendResult::Inconclusive;
};

/// Repeats the tour in one window, on a bench whose time runs fast.
class Soak {
public:
    /// The bench's time runs this many times as fast as the computer's.
    Soak(const TourBench& bench, std::vector<TourStep> steps, double speed);

    /// One round; a sample is taken at its end.
    void Round();
    /// Closes the window, as every run of the program ends.
    void Close();

    const std::vector<Sample>& Samples() const { return samples; }
    std::vector<Finding> Findings() const;
    /// The errors of all steps.
    const QStringList& Failures() const { return failures; }
    /// Seconds on the bench since the beginning.
    static double BenchSeconds();

private:
    ScenarioRun run;
    std::vector<TourStep> steps;
    std::vector<Sample> samples;
    QStringList failures;
};

/// Connecting, reading once and continuously, every kind of module, every dialog, all acquisition modes: what of the
/// tour can be done again and again on the bench that is compiled in.
std::vector<TourStep> SoakSteps(const TourBench& bench);
/// Those of some steps that can be done again and again.
std::vector<TourStep> RepeatedSteps(std::vector<TourStep> steps);
