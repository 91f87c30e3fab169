#pragma once

#include "library/TavikModuleKX.h"
#include "simulator/signals/LowPass.h"
#include "simulator/signals/Reading.h"
#include "simulator/signals/Signal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace TavikSimulator {

/// Bits that a resolution stands for (14 to 18); nothing for a value without an enumerator.
std::optional<int> BitsOf(TavikLibrary::eResolution resolution);
/// The resolution of that many bits; nothing for a number of bits that no probe has.
std::optional<TavikLibrary::eResolution> ResolutionOf(int bits);
/// Samples that an averaging stands for (1 to 256); nothing for a value without an enumerator.
std::optional<int> SamplesOf(TavikLibrary::eAveraging averaging);
/// The averaging over that many samples; nothing for a number that no probe offers.
std::optional<TavikLibrary::eAveraging> AveragingOf(int samples);

/// What a digital probe is and what stands in front of it.
struct ProbeDescription {
    double offset = 0.0;          ///< where the stroke begins, in the module's unit; within +-1e9
    double stroke = 2.0;          ///< its length, in the module's unit; 1e-6 to 1e6
    int resolutionBits = 14;      ///< 14 to 18
    int averagingSamples = 1;     ///< 1, 2, 4, ... 256
    double samplePeriod = 256e-6; ///< between two internal samples, in seconds; 1 us to 1 s, whole ns
    double lowPassCutoff = 0.0;   ///< of a filter over the internal samples, in Hz, 0.01 to 1e6; 0 for none
    SignalDescription signal;
};

/// What is impossible about a description, as a sentence for whoever wrote it; empty if nothing is.
std::string Validate(const ProbeDescription& description);

/// The internal samples that a reading is made of.
struct SampleWindow {
    std::int64_t last = 0; ///< number of the latest sample; sample 0 is that of bench time 0
    int samples = 1;       ///< how many samples up to that one
    bool settled = true;   ///< as many as the averaging asks for
};

/// From what a probe feels to the reading it hands out.
///
/// A probe samples at its own pace, whether it is asked or not. A reading is the mean of the last
/// samples (as many as the averaging says), limited to the stroke and rounded to the nearest count.
/// After power on and after a change of a setting the probe collects its samples anew; until it has
/// them all, its readings are the mean of what there is and carry the warning ReadingUnsettled (a
/// reading beyond the stroke keeps the code that says so).
///
/// Reading is pure: same settings and time, same reading. Settings are changed under the bench's lock,
/// and so are readings taken that go through a low-pass filter.
class ProbePhysics {
public:
    /// The probe has been running for long. Throws std::invalid_argument with the sentence of Validate
    /// for an impossible description.
    explicit ProbePhysics(const ProbeDescription& description);

    /// The probe's reading at a bench time in seconds.
    Reading ReadAt(Nanoseconds time) const;

    /// The samples of the reading at a bench time in seconds, and when a sample was taken.
    SampleWindow WindowAt(Nanoseconds time) const;
    Nanoseconds TimeOfSample(std::int64_t index) const { return index * samplePeriod; }

    /// Both throw std::invalid_argument, and change nothing, for a value that no probe has. The time is
    /// that of the change, in seconds of bench time.
    void SetResolutionBits(int bits, Nanoseconds time);
    void SetAveragingSamples(int samples, Nanoseconds time);
    /// 0 for none. What was felt before counts as if it had always been filtered like this.
    void SetLowPassCutoff(double hertz);
    /// Power is applied at this time, in seconds of bench time.
    void Restart(Nanoseconds time);

    int ResolutionBits() const { return resolutionBits; }
    int AveragingSamples() const { return averagingSamples; }
    /// Between two samples.
    Nanoseconds SamplePeriod() const { return samplePeriod; }
    double LowPassCutoff() const { return lowPass ? lowPass->Cutoff() : 0.0; }
    double Offset() const { return range.offset; }
    double Stroke() const { return range.stroke; }
    double CountsPerUnit() const;
    /// From the change of a setting until readings are settled.
    Nanoseconds SettlingTime() const { return (averagingSamples - 1) * samplePeriod; }

private:
    std::int64_t SampleIndexAt(Nanoseconds time) const { return PeriodsUntil(time, samplePeriod); }
    double MeanOfSamples(const SampleWindow& window) const;

    Signal signal;
    MeasuringRange range;
    int resolutionBits;
    int averagingSamples;
    Nanoseconds samplePeriod;
    std::optional<LowPass> lowPass;
    std::optional<std::int64_t> firstSample; ///< since the last restart; none if that was long ago
};

} // namespace TavikSimulator
