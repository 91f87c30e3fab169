#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

namespace TavikSimulator {

/// Reads what a <module> says that only its kind can say.
void ReadTypeAttributes(BenchElement& element, ModuleDescription& module);

} // namespace TavikSimulator
