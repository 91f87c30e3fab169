#pragma once

#include "simulator/bench/BenchElement.h"
#include "simulator/bench/Description.h"

namespace TavikSimulator {

/// Reads what a <module> says that only its kind can say.
void ReadKindOfModule(BenchElement& element, ModuleDescription& module);

} // namespace TavikSimulator
