#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/hardware/AirGaugeDescription.h"

namespace TavikSimulator {

/// Reads the optional <air-gauge> of a <module>.
AirGaugeDescription ReadAirGauge(BenchElement& module);

} // namespace TavikSimulator
