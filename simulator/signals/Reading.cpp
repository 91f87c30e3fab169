#include "simulator/signals/Reading.h"

#include "library/TavikEnums.h"

#include <cmath>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

Reading ReadingOf(eTavikErrors code, int counts, const MeasuringRange& range) {
    return {static_cast<int>(code), counts, UnitsOf(counts, range)};
}

} // namespace

double CountsPerUnit(const MeasuringRange& range) {
    return range.fullScale / range.stroke;
}

double UnitsOf(int counts, const MeasuringRange& range) {
    return range.offset + counts * range.stroke / range.fullScale;
}

Reading Digitise(double position, const MeasuringRange& range) {
    const double counts = std::floor((position - range.offset) * CountsPerUnit(range) + 0.5);
    if (counts < 0.0) {
        return ReadingOf(eTavikErrors::UnderRange, 0, range);
    }
    if (counts > range.fullScale) {
        return ReadingOf(eTavikErrors::OverRange, range.fullScale, range);
    }
    return ReadingOf(eTavikErrors::NoError, static_cast<int>(counts), range);
}

} // namespace TavikSimulator
