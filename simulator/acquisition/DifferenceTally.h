#pragma once

#include "simulator/signals/Reading.h"

#include <cstdint>

namespace TavikSimulator {

/// What difference mode says of one module.
struct DifferenceValues {
    int code = 0; ///< result code of the run
    int maxCounts = 0;
    int minCounts = 0;
    int diffCounts = 0;
    std::int64_t sumCounts = 0;
    int readings = 0;
    double max = 0.0; ///< this and the next three in the module's unit
    double min = 0.0;
    double diff = 0.0;
    double sum = 0.0;
};

/// Extremes, sum and number of the readings of one module. The result code of the whole is that of its worst
/// reading: no reading at all is worse than one beyond the stroke, and that is worse than a warning; of equally bad
/// ones it is the first.
class DifferenceTally {
public:
    /// Takes a reading that stands for so many like it, 1 or more. One whose code says that it has no value counts
    /// with its code only.
    void Add(const Reading& reading, std::int64_t alike);
    /// Takes only a result code.
    void AddCode(int code);

    /// The code says that there is no reading until there is one.
    DifferenceValues Values() const;

private:
    std::int64_t readings = 0;
    int code = 0;
    Reading highest;
    Reading lowest;
    std::int64_t sumCounts = 0;
    double sumUnits = 0.0;
};

} // namespace TavikSimulator
