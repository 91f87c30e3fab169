#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

namespace TavikSimulator {

/// Reads the attributes and elements of a <module> that only its type has.
void ReadTypeAttributes(BenchElement& element, ModuleDescription& module);

} // namespace TavikSimulator
