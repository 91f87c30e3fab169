#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/hardware/WirelessDescription.h"

#include <cstdint>

namespace TavikSimulator {

/// Reads the restart, slots and hand tools of a <module> of type RLK.
WirelessDescription ReadWireless(BenchElement& element, std::uint64_t seed);

} // namespace TavikSimulator
