#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/hardware/WirelessDescription.h"

#include <cstdint>

namespace TavikSimulator {

/// Reads what a <module> of type RLK says besides what every module says: its restart, its slots and the
/// hand tools around it.
WirelessDescription ReadWireless(BenchElement& element, std::uint64_t seed);

} // namespace TavikSimulator
