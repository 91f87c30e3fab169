#pragma once

#include "library/TavikModuleKX.h"
#include "simulator/signals/LowPass.h"
#include "simulator/signals/Reading.h"
#include "simulator/signals/Signal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace TavikSimulator {

/// Bits of a resolution (14 to 18); none for a value without an enumerator.
std::optional<int> BitsOf(TavikLibrary::eResolution resolution);
/// Resolution of so many bits; none for a number that no probe has.
std::optional<TavikLibrary::eResolution> ResolutionOf(int bits);
/// Samples of an averaging (1 to 256); none for a value without an enumerator.
std::optional<int> SamplesOf(TavikLibrary::eAveraging averaging);
/// Averaging over so many samples; none for a number that no probe has.
std::optional<TavikLibrary::eAveraging> AveragingOf(int samples);

/// Digital probe and its signal.
struct ProbeDescription {
    double offset = 0.0;          ///< lower range limit, in the module's unit; within +-1e9
    double stroke = 2.0;          ///< span, in the module's unit; 1e-6 to 1e6
    int resolutionBits = 14;      ///< 14 to 18
    int averagingSamples = 1;     ///< 1, 2, 4, ... 256
    double samplePeriod = 256e-6; ///< between two internal samples, in seconds; 1 µs to 1 s, whole ns
    double lowPassCutoff = 0.0;   ///< of a filter over the internal samples, in Hz, 0.01 to 1e6; 0 for none
    SignalDescription signal;
};

/// Returns why the description is invalid; empty if valid.
std::string Validate(const ProbeDescription& description);

/// Internal samples of a reading.
struct SampleWindow {
    std::int64_t last = 0; ///< number of the latest sample; sample 0 is taken at bench time 0
    int samples = 1;       ///< how many samples up to that one
    bool settled = true;   ///< the averaging is complete
};

/// Computes readings of a probe from its measurand.
///
/// A probe samples continuously. A reading is the mean of the last samples (their number is the averaging), limited to
/// the measuring range and rounded to the nearest count. After power on and after a change of a setting the probe
/// collects new samples. Until they are complete, a reading is the mean of the samples so far with the warning
/// ReadingUnsettled; a reading outside the measuring range keeps the code of the range limit.
///
/// Readings depend on settings and time only. Settings are changed, and readings through a low-pass filter are taken,
/// under the bench's lock.
class ProbePhysics {
public:
    /// The probe starts with complete samples. Throws std::invalid_argument with the result of Validate for an invalid
    /// description.
    explicit ProbePhysics(const ProbeDescription& description);

    /// Reading at a bench time.
    Reading ReadAt(Nanoseconds time) const;

    /// Samples of the reading at a bench time, and the time of a sample.
    SampleWindow WindowAt(Nanoseconds time) const;
    Nanoseconds TimeOfSample(std::int64_t index) const { return index * samplePeriod; }

    /// Throw std::invalid_argument, and change nothing, for a value that no probe has. The time is that of the change.
    void SetResolutionBits(int bits, Nanoseconds time);
    void SetAveragingSamples(int samples, Nanoseconds time);
    /// 0 for none. The filter also applies to samples before the change.
    void SetLowPassCutoff(double hertz);
    /// Switches power on at this time.
    void Restart(Nanoseconds time);

    int ResolutionBits() const { return resolutionBits; }
    int AveragingSamples() const { return averagingSamples; }
    /// Between two samples.
    Nanoseconds SamplePeriod() const { return samplePeriod; }
    double LowPassCutoff() const { return lowPass ? lowPass->Cutoff() : 0.0; }
    double Offset() const { return range.offset; }
    double Stroke() const { return range.stroke; }
    double CountsPerUnit() const;
    /// Time from the change of a setting until readings are settled.
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
    std::optional<std::int64_t> firstSample; ///< since the last restart; none without a restart
};

} // namespace TavikSimulator
