#pragma once

#include "simulator/signals/Reading.h"

#include <cstdint>

namespace TavikSimulator {

/// Results of difference mode for one module.
struct DifferenceValues {
    int code = 0; ///< result code of the run
    int maxCounts = 0;
    int minCounts = 0;
    int diffCounts = 0;
    std::int64_t sumCounts = 0;
    int readings = 0;
    double max = 0.0; ///< this and the next three: in the module's unit
    double min = 0.0;
    double diff = 0.0;
    double sum = 0.0;
};

/// Extremes, sum and number of the readings of one module. The result code is that of the worst reading, the first of
/// equally bad ones: no reading is worse than a range limit, and that is worse than a warning.
class DifferenceTally {
public:
    /// Adds a reading weighted by the readings it replaces, 1 or more. A reading without a value adds its code only.
    void Add(const Reading& reading, std::int64_t alike);
    /// Adds a result code only.
    void AddCode(int code);

    /// Results so far; ReadingNotAvailable before the first reading.
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
