#pragma once

namespace TavikSimulator {

/// One reading of a module.
struct Reading {
    int code = 0;   ///< a value of eTavikErrors; 0 when the reading is good
    int counts = 0; ///< 0 at the lower range limit
    double units = 0.0;
};

/// Measuring range and resolution of a module.
struct MeasuringRange {
    double offset = 0.0; ///< lower range limit, in the module's unit
    double stroke = 1.0; ///< span, in the module's unit; above 0
    int fullScale = 1;   ///< counts over the span; above 0
};

double CountsPerUnit(const MeasuringRange& range);
/// The value of a count, in the module's unit.
double UnitsOf(int counts, const MeasuringRange& range);

/// Reading of a position (in the module's unit): the nearest count and the value of that count. A position that rounds
/// to outside the measuring range gives the range limit with the code UnderRange or OverRange.
Reading Digitise(double position, const MeasuringRange& range);

} // namespace TavikSimulator
