#pragma once

#include "simulator/bench/BenchElement.h"
#include "simulator/modules/AirGaugeDescription.h"

namespace TavikSimulator {

/// Reads the <air-gauge> of a <module>, which may be left out.
AirGaugeDescription ReadAirGauge(BenchElement& module);

} // namespace TavikSimulator
