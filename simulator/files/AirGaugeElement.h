#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/hardware/AirGaugeDescription.h"

namespace TavikSimulator {

/// Reads the <air-gauge> of a <module>, which may be left out.
AirGaugeDescription ReadAirGauge(BenchElement& module);

} // namespace TavikSimulator
