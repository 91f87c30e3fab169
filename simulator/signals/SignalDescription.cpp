#include "simulator/signals/Signal.h"

#include <array>
#include <cmath>
#include <utility>

namespace TavikSimulator {

namespace {

// Beyond any gauge, and small enough for sums of doubles and for whole nanoseconds.
constexpr double LargestNumber = 1e9;
constexpr double ShortestPeriod = 1e-6;
constexpr int MostLobes = 500;
constexpr std::size_t MostHarmonics = 64;

// Keeps the first reason; the order of the checks is the order of the description.
class Fault {
public:
    void Number(const char* name, double value) {
        Unless(std::fabs(value) <= LargestNumber, std::string("The ") + name + " must lie within +-1e9.");
    }
    void NotNegative(const char* name, double value) {
        Number(name, value);
        Unless(value >= 0.0, std::string("The ") + name + " must not be negative.");
    }
    void Period(const char* name, double value) {
        Number(name, value);
        Unless(value >= ShortestPeriod, std::string("The ") + name + " must be 0.000001 s or longer.");
    }
    void Unless(bool fulfilled, const std::string& reason) {
        if (!fulfilled && sentence.empty()) {
            sentence = reason;
        }
    }
    const std::string& Sentence() const { return sentence; }

private:
    std::string sentence;
};

void CheckMotion(Fault& reason, const SignalDescription& description) {
    reason.Number("base", description.base);
    reason.NotNegative("amplitude", description.amplitude);
    if (description.motion != Motion::Ramp || description.period != 0.0) {
        reason.Period("period", description.period);
    }
    reason.Number("phase", description.phase);
    reason.Number("rate", description.rate);
    reason.Unless(description.motion != Motion::Steps || !description.parts.empty(), "Steps need at least one part.");
    for (const double part : description.parts) {
        reason.Number("deviation of a part", part);
    }
}

void CheckForm(Fault& reason, const SignalDescription& description) {
    reason.Period("revolution", description.revolution);
    reason.Unless(description.harmonics.size() <= MostHarmonics, "The form must not have more than 64 harmonics.");
    for (const Harmonic& harmonic : description.harmonics) {
        reason.Unless(harmonic.lobes >= 1 && harmonic.lobes <= MostLobes, "The lobes of a harmonic must be 1 to 500.");
        reason.NotNegative("amplitude of a harmonic", harmonic.amplitude);
        reason.Number("phase of a harmonic", harmonic.phase);
    }
}

void CheckDriftAndNoise(Fault& reason, const SignalDescription& description) {
    reason.NotNegative("drift amplitude", description.driftAmplitude);
    reason.Period("drift period", description.driftPeriod);
    reason.Number("warm-up", description.warmUp);
    reason.Period("warm-up time", description.warmUpTime);
    reason.NotNegative("noise", description.noise);
}

} // namespace

std::optional<Motion> MotionFromName(std::string_view name) {
    static constexpr std::array<std::pair<std::string_view, Motion>, 6> Names{{
        {"still", Motion::Still},
        {"sine", Motion::Sine},
        {"triangle", Motion::Triangle},
        {"square", Motion::Square},
        {"steps", Motion::Steps},
        {"ramp", Motion::Ramp},
    }};
    for (const auto& [known, motion] : Names) {
        if (known == name) {
            return motion;
        }
    }
    return std::nullopt;
}

std::string Validate(const SignalDescription& description) {
    Fault reason;
    CheckMotion(reason, description);
    CheckForm(reason, description);
    CheckDriftAndNoise(reason, description);
    return reason.Sentence();
}

} // namespace TavikSimulator
