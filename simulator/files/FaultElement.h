#pragma once

#include "simulator/bench/Fault.h"
#include "simulator/files/BenchElement.h"

namespace TavikSimulator {

/// Reads a <fault>.
Fault ReadFault(BenchElement& element);

} // namespace TavikSimulator
