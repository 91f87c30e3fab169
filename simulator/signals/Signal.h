#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TavikSimulator {

/// Motion of the part in front of a gauge. Amplitudes are half of peak to peak.
enum class Motion {
    Still,    ///< stays at the base position
    Sine,     ///< base + amplitude * sin, rising through the base at phase 0
    Triangle, ///< base +- amplitude, in straight lines, rising through the base at phase 0
    Square,   ///< base + amplitude for the first half of a period, base - amplitude for the second
    Steps,    ///< one part after another, each for a period, over and over
    Ramp,     ///< leaves the base at bench time 0 at a constant rate; starts again after each period
};

/// The motion that a bench file calls "still", "sine", "triangle", "square", "steps" or "ramp".
std::optional<Motion> MotionFromName(std::string_view name);

/// One term of the Fourier series that describes the form of a rotating part.
struct Harmonic {
    int lobes = 2;          ///< undulations per revolution, 1 to 500: 1 is eccentricity, 2 is oval, ...
    double amplitude = 0.0; ///< in the module's unit, 0 or above
    double phase = 0.0;     ///< of this term, in turns of its own wave
};

/// Measurand of a gauge. Lengths are in the module's unit (mm by default), on the module's scale: a gauge with offset
/// -1 and span 2 measures -1 to 1. Times are in seconds; Signal rounds periods, 1 µs or longer, to whole nanoseconds.
/// All values are within +-1e9. Motion, form, drift and noise add up.
struct SignalDescription {
    double base = 0.0; ///< position of the part at rest

    Motion motion = Motion::Still;
    double amplitude = 0.0;    ///< of sine, triangle and square; 0 or above
    double period = 1.0;       ///< of sine, triangle, square and ramp, and the time of one part of steps.
                               ///< For a ramp 0 means that it never starts again.
    double phase = 0.0;        ///< of sine, triangle and square, in turns
    double rate = 0.0;         ///< of a ramp, in units per second
    std::vector<double> parts; ///< of steps: deviation of each part from the base; at least one

    double revolution = 1.0;         ///< time in which the part turns once
    std::vector<Harmonic> harmonics; ///< form error of the part; at most 64 terms

    double driftAmplitude = 0.0; ///< sine of drift, such as by room temperature; 0 or above
    double driftPeriod = 86400.0;
    double warmUp = 0.0;       ///< warm-up drift of the reading from power on
    double warmUpTime = 600.0; ///< time constant of the warm-up (63 % of it done)

    double noise = 0.0;     ///< standard deviation of one sample; 0 or above
    std::uint64_t seed = 0; ///< of the noise
};

/// Returns why the description is invalid; empty if valid.
std::string Validate(const SignalDescription& description);

/// A signal as a pure function of bench time: the same description and time give the same value, bit by bit, in any
/// order and from any thread.
class Signal {
public:
    /// Throws std::invalid_argument with the result of Validate for an invalid description.
    explicit Signal(SignalDescription description);

    /// The value at a bench time. Two different times have independent noise.
    double At(Nanoseconds time) const;
    /// The value without noise: the reading of an ideal gauge.
    double WithoutNoise(Nanoseconds time) const;

    const SignalDescription& Description() const { return description; }

private:
    double MotionAt(Nanoseconds time) const;
    double FormAt(Nanoseconds time) const;
    double DriftAt(Nanoseconds time) const;

    SignalDescription description;
    // In whole nanoseconds: a motion begins each period on time, however long the bench runs.
    Nanoseconds period;
    Nanoseconds revolution;
    Nanoseconds driftPeriod;
};

} // namespace TavikSimulator
