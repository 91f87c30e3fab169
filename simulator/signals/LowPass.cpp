#include "simulator/signals/LowPass.h"

#include <algorithm>
#include <cmath>

namespace TavikSimulator {

namespace {

constexpr double Pi = 3.14159265358979323846;
/// Time constants after which 0.03 % of a sample is left; older samples are ignored.
constexpr double TimeConstantsKept = 8.0;

} // namespace

LowPass::LowPass(double cutoffFrequency, Nanoseconds period)
    : cutoff(cutoffFrequency), samplePeriod(period), share(0.0), memory(1), anchors(), latest() {
    const double samplesPerTimeConstant = 1e9 / (2.0 * Pi * cutoff * static_cast<double>(period.count()));
    share = 1.0 - std::exp(-1.0 / samplesPerTimeConstant);
    memory = std::max<std::int64_t>(1, std::llround(TimeConstantsKept * samplesPerTimeConstant));
}

double LowPass::MeanOf(const Signal& signal, std::int64_t last, int samples) const {
    const std::int64_t first = last - samples + 1;
    double filtered = At(signal, first);
    double sum = filtered;
    for (std::int64_t index = first + 1; index <= last; ++index) {
        filtered = index % memory == 0 ? AtAnchor(signal, index) : Walk(signal, {index - 1, filtered}, index);
        sum += filtered;
    }
    return sum / samples;
}

// Each value is computed from the previous anchor, a sample at which the filter is restarted: results do not depend on
// the order of the calls.
double LowPass::At(const Signal& signal, std::int64_t index) const {
    const std::int64_t anchor = FloorDivision(index, memory) * memory;
    if (latest.index < anchor || latest.index > index) {
        latest = {anchor, AtAnchor(signal, anchor)};
    }
    latest = {index, Walk(signal, latest, index)};
    return latest.filtered;
}

double LowPass::AtAnchor(const Signal& signal, std::int64_t index) const {
    Value& kept = anchors[static_cast<std::size_t>((index / memory) & 1)];
    if (kept.index != index) {
        const std::int64_t start = index - memory;
        kept = {index, Walk(signal, {start, signal.At(start * samplePeriod)}, index)};
    }
    return kept.filtered;
}

double LowPass::Walk(const Signal& signal, Value from, std::int64_t to) const {
    for (std::int64_t index = from.index + 1; index <= to; ++index) {
        from.filtered += share * (signal.At(index * samplePeriod) - from.filtered);
    }
    return from.filtered;
}

} // namespace TavikSimulator
