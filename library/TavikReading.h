#pragma once

namespace TavikLibrary {

/// One reading of a collection.
struct TavikReading {
    int resultCode; ///< 0 when the reading is good
    int counts;
    double units; ///< in the module's unit of measure
};

} // namespace TavikLibrary
