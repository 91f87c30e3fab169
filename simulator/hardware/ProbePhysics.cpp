#include "simulator/hardware/ProbePhysics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eAveraging;
using TavikLibrary::eResolution;
using TavikLibrary::eTavikErrors;

namespace {

constexpr std::array<std::pair<eResolution, int>, 5> Resolutions{{
    {eResolution::Bits14, 14},
    {eResolution::Bits15, 15},
    {eResolution::Bits16, 16},
    {eResolution::Bits17, 17},
    {eResolution::Bits18, 18},
}};

constexpr std::array<std::pair<eAveraging, int>, 9> Averagings{{
    {eAveraging::Off, 1},
    {eAveraging::Samples2, 2},
    {eAveraging::Samples4, 4},
    {eAveraging::Samples8, 8},
    {eAveraging::Samples16, 16},
    {eAveraging::Samples32, 32},
    {eAveraging::Samples64, 64},
    {eAveraging::Samples128, 128},
    {eAveraging::Samples256, 256},
}};

template <typename Table, typename Value>
std::optional<int> NumberOf(const Table& table, Value value) {
    for (const auto& [known, number] : table) {
        if (known == value) {
            return number;
        }
    }
    return std::nullopt;
}

template <typename Table>
auto ValueOf(const Table& table, int number) -> std::optional<typename Table::value_type::first_type> {
    for (const auto& [value, known] : table) {
        if (known == number) {
            return value;
        }
    }
    return std::nullopt;
}

std::string ResolutionError(int bits) {
    return ResolutionOf(bits) ? std::string() : "The resolution must be 14, 15, 16, 17 or 18 bits.";
}

std::string LowPassError(double hertz) {
    const bool possible = hertz == 0.0 || (hertz >= 0.01 && hertz <= 1e6);
    return possible ? std::string() : "The low-pass filter must be 0.01 Hz to 1 MHz.";
}

std::string AveragingError(int samples) {
    return AveragingOf(samples) ? std::string() : "The averaging must be 1, 2, 4, 8, 16, 32, 64, 128 or 256 samples.";
}

void ThrowIfAny(const std::string& reason) {
    if (!reason.empty()) {
        throw std::invalid_argument(reason);
    }
}

const ProbeDescription& Possible(const ProbeDescription& description) {
    ThrowIfAny(Validate(description));
    return description;
}

} // namespace

std::optional<int> BitsOf(eResolution resolution) {
    return NumberOf(Resolutions, resolution);
}
std::optional<eResolution> ResolutionOf(int bits) {
    return ValueOf(Resolutions, bits);
}
std::optional<int> SamplesOf(eAveraging averaging) {
    return NumberOf(Averagings, averaging);
}
std::optional<eAveraging> AveragingOf(int samples) {
    return ValueOf(Averagings, samples);
}

std::string Validate(const ProbeDescription& description) {
    if (!(std::fabs(description.offset) <= 1e9)) {
        return "The offset must lie within +-1e9.";
    }
    if (!(description.stroke >= 1e-6 && description.stroke <= 1e6)) {
        return "The stroke must be 0.000001 to 1000000.";
    }
    if (!(description.samplePeriod >= 1e-6 && description.samplePeriod <= 1.0)) {
        return "The sample period must be 0.000001 s to 1 s.";
    }
    for (const std::string& reason :
         {ResolutionError(description.resolutionBits), AveragingError(description.averagingSamples),
          LowPassError(description.lowPassCutoff)}) {
        if (!reason.empty()) {
            return reason;
        }
    }
    return Validate(description.signal);
}

ProbePhysics::ProbePhysics(const ProbeDescription& description)
    : signal(Possible(description).signal),
      range{description.offset, description.stroke, 1 << description.resolutionBits},
      resolutionBits(description.resolutionBits),
      averagingSamples(description.averagingSamples),
      samplePeriod(FromSeconds(description.samplePeriod)) {
    SetLowPassCutoff(description.lowPassCutoff);
}

Reading ProbePhysics::ReadAt(Nanoseconds time) const {
    const SampleWindow window = WindowAt(time);
    Reading reading = Digitise(MeanOfSamples(window), range);
    if (!window.settled && reading.code == static_cast<int>(eTavikErrors::NoError)) {
        reading.code = static_cast<int>(eTavikErrors::ReadingUnsettled);
    }
    return reading;
}

SampleWindow ProbePhysics::WindowAt(Nanoseconds time) const {
    SampleWindow window{SampleIndexAt(time), averagingSamples, true};
    if (firstSample) {
        const std::int64_t collected = std::max<std::int64_t>(window.last - *firstSample + 1, 1);
        window.settled = collected >= averagingSamples;
        window.samples = static_cast<int>(std::min<std::int64_t>(averagingSamples, collected));
    }
    return window;
}

void ProbePhysics::SetResolutionBits(int bits, Nanoseconds time) {
    ThrowIfAny(ResolutionError(bits));
    resolutionBits = bits;
    range.fullScale = 1 << bits;
    Restart(time);
}

void ProbePhysics::SetAveragingSamples(int samples, Nanoseconds time) {
    ThrowIfAny(AveragingError(samples));
    averagingSamples = samples;
    Restart(time);
}

void ProbePhysics::SetLowPassCutoff(double hertz) {
    ThrowIfAny(LowPassError(hertz));
    lowPass.reset();
    if (hertz > 0.0) {
        lowPass.emplace(hertz, samplePeriod);
    }
}

void ProbePhysics::Restart(Nanoseconds time) {
    firstSample = SampleIndexAt(time);
}

double ProbePhysics::CountsPerUnit() const {
    return TavikSimulator::CountsPerUnit(range);
}

double ProbePhysics::MeanOfSamples(const SampleWindow& window) const {
    if (lowPass) {
        return lowPass->MeanOf(signal, window.last, window.samples);
    }
    double sum = 0.0;
    for (std::int64_t index = window.last - window.samples + 1; index <= window.last; ++index) {
        sum += signal.At(TimeOfSample(index));
    }
    return sum / window.samples;
}

} // namespace TavikSimulator
