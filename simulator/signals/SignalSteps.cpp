#include "simulator/signals/SignalSteps.h"

#include <algorithm>

namespace TavikSimulator {

namespace {

constexpr double ShortestStep = 0.001; // seconds
constexpr double LongestStep = 1.0;    // seconds

} // namespace

Nanoseconds StepFor(const SignalDescription& signal) {
    constexpr double stepsPerPeriod = 256.0;
    double shortest = LongestStep * stepsPerPeriod;
    if (signal.motion != Motion::Still && signal.motion != Motion::Ramp) {
        shortest = std::min(shortest, signal.period);
    }
    for (const Harmonic& harmonic : signal.harmonics) {
        shortest = std::min(shortest, signal.revolution / harmonic.lobes);
    }
    return FromSeconds(std::clamp(shortest / stepsPerPeriod, ShortestStep, LongestStep));
}

} // namespace TavikSimulator
