#include "simulator/hardware/AirGaugeDescription.h"

#include <cmath>

namespace TavikSimulator {

namespace {

constexpr double LargestDeviation = 10.0; // mm

bool IsDeviation(double millimetres) {
    return std::fabs(millimetres) <= LargestDeviation;
}

bool HasDuration(const NozzleStep& step) {
    return step.duration > Nanoseconds::zero() && step.duration <= std::chrono::seconds(1000000);
}

} // namespace

AirGaugeDescription::AirGaugeDescription() {
    supply.base = 28.0;
    supply.noise = 0.004;
    supply.driftAmplitude = 0.02;
    supply.driftPeriod = 1800.0;
}

std::string Validate(const AirGaugeDescription& description) {
    if (!IsDeviation(description.masterA) || !IsDeviation(description.masterB)) {
        return "The sizes of the masters must lie within +-10 mm of the nominal size.";
    }
    if (description.masterA == description.masterB) {
        return "The two masters must differ in size.";
    }
    if (!(description.clearance >= 0.001 && description.clearance <= 10.0)) {
        return "The clearance must be 0.001 mm to 10 mm.";
    }
    for (const NozzleStep& step : description.steps) {
        if (!HasDuration(step)) {
            return "A part must stay in the nozzle for more than 0 s and for 1000000 s at most.";
        }
    }
    const std::string reason = Validate(description.circuit);
    return reason.empty() ? Validate(description.supply) : reason;
}

} // namespace TavikSimulator
