#pragma once

#include "simulator/bench/BenchElement.h"
#include "simulator/control/BenchControl.h"

namespace TavikSimulator {

/// Reads a <fault>.
Fault ReadFault(BenchElement& element);

} // namespace TavikSimulator
