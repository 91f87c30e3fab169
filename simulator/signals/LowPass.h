#pragma once

#include "simulator/signals/Signal.h"

#include <array>
#include <cstdint>
#include <limits>

namespace TavikSimulator {

/// First-order low-pass filter over the samples of a signal. A value depends only on the signal's samples, not on
/// earlier calls. Results are cached, so one filter must not be used by two threads at once.
class LowPass {
public:
    /// Cut-off frequency in Hz and sample period, both above 0.
    LowPass(double cutoff, Nanoseconds samplePeriod);

    /// The mean of the filtered samples that end with this one.
    double MeanOf(const Signal& signal, std::int64_t last, int samples) const;
    double Cutoff() const { return cutoff; }

private:
    struct Value {
        std::int64_t index = std::numeric_limits<std::int64_t>::min();
        double filtered = 0.0;
    };
    double At(const Signal& signal, std::int64_t index) const;
    double AtAnchor(const Signal& signal, std::int64_t index) const;
    double Walk(const Signal& signal, Value from, std::int64_t to) const;

    double cutoff;
    Nanoseconds samplePeriod;
    double share;        ///< of a new sample in the filtered value
    std::int64_t memory; ///< samples after which an old sample is ignored
    mutable std::array<Value, 2> anchors;
    mutable Value latest;
};

} // namespace TavikSimulator
