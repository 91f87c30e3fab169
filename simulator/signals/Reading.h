#pragma once

namespace TavikSimulator {

/// One reading as a module hands it out.
struct Reading {
    int code = 0;   ///< a value of eTavikErrors; 0 when the reading is good
    int counts = 0; ///< 0 at the lower limit of the stroke
    double units = 0.0;
};

/// Where a module measures, and how finely.
struct MeasuringRange {
    double offset = 0.0; ///< where the stroke begins, in the module's unit
    double stroke = 1.0; ///< its length, in the module's unit; above 0
    int fullScale = 1;   ///< counts over the whole stroke; above 0
};

double CountsPerUnit(const MeasuringRange& range);
/// The value of a count, in the module's unit.
double UnitsOf(int counts, const MeasuringRange& range);

/// The reading that a module gives of a position (in its unit, on the scale its readings are on): the
/// nearest count, and the unit value of that count. A position that rounds below the stroke reads as
/// its lower limit with the code UnderRange, one that rounds above it as its upper limit with OverRange.
Reading Digitise(double position, const MeasuringRange& range);

} // namespace TavikSimulator
