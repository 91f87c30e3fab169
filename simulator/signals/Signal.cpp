#include "simulator/signals/Signal.h"

#include "simulator/signals/Noise.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace TavikSimulator {

namespace {

constexpr double NanosecondsPerSecond = 1e9;
constexpr double TwoPi = 6.283185307179586476925;

SignalDescription Possible(SignalDescription description) {
    const std::string complaint = Validate(description);
    if (!complaint.empty()) {
        throw std::invalid_argument(complaint);
    }
    return description;
}

double SecondsOf(std::int64_t nanoseconds) {
    return static_cast<double>(nanoseconds) / NanosecondsPerSecond;
}

// The rest that is left over whole periods counted from 0 in both directions: 0 to below the period.
std::int64_t Since(std::int64_t value, std::int64_t period) {
    const std::int64_t rest = value % period;
    return rest < 0 ? rest + period : rest;
}

// How much of its period a repeating thing has done, 0 to below 1.
double Turns(std::int64_t nanoseconds, std::int64_t period) {
    return static_cast<double>(Since(nanoseconds, period)) / static_cast<double>(period);
}

double SineOfTurns(double turns) {
    return std::sin(TwoPi * turns);
}

double TriangleOfTurns(double turns) {
    if (turns < 0.25) {
        return 4.0 * turns;
    }
    return turns < 0.75 ? 2.0 - 4.0 * turns : 4.0 * turns - 4.0;
}

double SquareOfTurns(double turns) {
    return turns < 0.5 ? 1.0 : -1.0;
}

double WithPhase(double turns, double phase) {
    const double sum = turns + phase;
    return sum - std::floor(sum);
}

double PartAt(const std::vector<double>& parts, std::int64_t nanoseconds, std::int64_t period) {
    const std::int64_t partsBefore = (nanoseconds - Since(nanoseconds, period)) / period;
    return parts[static_cast<std::size_t>(Since(partsBefore, static_cast<std::int64_t>(parts.size())))];
}

double RampSeconds(std::int64_t nanoseconds, std::int64_t period) {
    if (nanoseconds <= 0) {
        return 0.0;
    }
    return SecondsOf(period > 0 ? Since(nanoseconds, period) : nanoseconds);
}

} // namespace

std::int64_t NanosecondsOf(double seconds) {
    return static_cast<std::int64_t>(std::floor(seconds * NanosecondsPerSecond + 0.5));
}

Signal::Signal(SignalDescription signalDescription)
    : description(Possible(std::move(signalDescription))),
      period(NanosecondsOf(description.period)),
      revolution(NanosecondsOf(description.revolution)),
      driftPeriod(NanosecondsOf(description.driftPeriod)) {}

double Signal::At(double seconds) const {
    return AtNanoseconds(NanosecondsOf(seconds));
}

double Signal::AtNanoseconds(std::int64_t nanoseconds) const {
    const double position = WithoutNoise(nanoseconds);
    if (description.noise == 0.0) {
        return position;
    }
    return position + description.noise * NormalNoise(description.seed, nanoseconds);
}

double Signal::WithoutNoise(std::int64_t nanoseconds) const {
    return description.base + MotionAt(nanoseconds) + FormAt(nanoseconds) + DriftAt(nanoseconds);
}

double Signal::MotionAt(std::int64_t nanoseconds) const {
    const auto turns = [&] { return WithPhase(Turns(nanoseconds, period), description.phase); };
    switch (description.motion) {
    case Motion::Still:
        return 0.0;
    case Motion::Sine:
        return description.amplitude * SineOfTurns(turns());
    case Motion::Triangle:
        return description.amplitude * TriangleOfTurns(turns());
    case Motion::Square:
        return description.amplitude * SquareOfTurns(turns());
    case Motion::Steps:
        return PartAt(description.parts, nanoseconds, period);
    case Motion::Ramp:
        return description.rate * RampSeconds(nanoseconds, period);
    }
    return 0.0;
}

// Out-of-roundness as a Fourier series over the angle of the part, the term of n undulations per
// revolution by term (the terms of ISO 12181-1; D. J. Whitehouse, Handbook of Surface and
// Nanometrology, the chapter on roundness).
double Signal::FormAt(std::int64_t nanoseconds) const {
    if (description.harmonics.empty()) {
        return 0.0;
    }
    const double angle = Turns(nanoseconds, revolution);
    double deviation = 0.0;
    for (const Harmonic& harmonic : description.harmonics) {
        deviation += harmonic.amplitude * SineOfTurns(harmonic.lobes * angle + harmonic.phase);
    }
    return deviation;
}

double Signal::DriftAt(std::int64_t nanoseconds) const {
    double drift = 0.0;
    if (description.driftAmplitude != 0.0) {
        drift += description.driftAmplitude * SineOfTurns(Turns(nanoseconds, driftPeriod));
    }
    if (description.warmUp != 0.0 && nanoseconds > 0) {
        // One body that warms up through one resistance: the first-order lag.
        drift -= description.warmUp * std::expm1(-SecondsOf(nanoseconds) / description.warmUpTime);
    }
    return drift;
}

} // namespace TavikSimulator
