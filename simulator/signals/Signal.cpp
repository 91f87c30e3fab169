#include "simulator/signals/Signal.h"

#include "simulator/signals/Noise.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace TavikSimulator {

namespace {

constexpr double TwoPi = 6.283185307179586476925;

SignalDescription Possible(SignalDescription description) {
    const std::string reason = Validate(description);
    if (!reason.empty()) {
        throw std::invalid_argument(reason);
    }
    return description;
}

// The share of its period that a repeating motion has completed, 0 to below 1.
double Turns(Nanoseconds time, Nanoseconds period) {
    return static_cast<double>(WithinPeriod(time, period).count()) / static_cast<double>(period.count());
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

double PartAt(const std::vector<double>& parts, Nanoseconds time, Nanoseconds period) {
    const auto count = static_cast<std::int64_t>(parts.size());
    const std::int64_t index = PeriodsUntil(time, period) % count;
    return parts[static_cast<std::size_t>(index < 0 ? index + count : index)];
}

Nanoseconds RampTime(Nanoseconds time, Nanoseconds period) {
    if (time <= Nanoseconds::zero()) {
        return Nanoseconds::zero();
    }
    return period > Nanoseconds::zero() ? WithinPeriod(time, period) : time;
}

} // namespace

Signal::Signal(SignalDescription signalDescription)
    : description(Possible(std::move(signalDescription))),
      period(FromSeconds(description.period)),
      revolution(FromSeconds(description.revolution)),
      driftPeriod(FromSeconds(description.driftPeriod)) {}

double Signal::At(Nanoseconds time) const {
    const double position = WithoutNoise(time);
    if (description.noise == 0.0) {
        return position;
    }
    return position + description.noise * NormalNoise(description.seed, time.count());
}

double Signal::WithoutNoise(Nanoseconds time) const {
    return description.base + MotionAt(time) + FormAt(time) + DriftAt(time);
}

double Signal::MotionAt(Nanoseconds time) const {
    const auto turns = [&] { return WithPhase(Turns(time, period), description.phase); };
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
        return PartAt(description.parts, time, period);
    case Motion::Ramp:
        return description.rate * ToSeconds(RampTime(time, period));
    }
    return 0.0;
}

// Out-of-roundness as a Fourier series over the angle of the part, the term of n undulations per
// revolution by term (the terms of ISO 12181-1; D. J. Whitehouse, Handbook of Surface and
// Nanometrology, the chapter on roundness).
double Signal::FormAt(Nanoseconds time) const {
    if (description.harmonics.empty()) {
        return 0.0;
    }
    const double angle = Turns(time, revolution);
    double deviation = 0.0;
    for (const Harmonic& harmonic : description.harmonics) {
        deviation += harmonic.amplitude * SineOfTurns(harmonic.lobes * angle + harmonic.phase);
    }
    return deviation;
}

double Signal::DriftAt(Nanoseconds time) const {
    double drift = 0.0;
    if (description.driftAmplitude != 0.0) {
        drift += description.driftAmplitude * SineOfTurns(Turns(time, driftPeriod));
    }
    if (description.warmUp != 0.0 && time > Nanoseconds::zero()) {
        // First-order lag: one heat capacity, one thermal resistance.
        drift -= description.warmUp * std::expm1(-ToSeconds(time) / description.warmUpTime);
    }
    return drift;
}

} // namespace TavikSimulator
