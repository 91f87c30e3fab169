#pragma once

#include "simulator/bench/Bench.h"

#include <memory>

namespace TavikSimulator {

/// The bench of this process; makes one if there is none. Throws TavikException when that fails.
std::shared_ptr<Bench> CurrentBench();
/// Puts a fresh bench in the place of the current one.
void ReplaceCurrentBench(const BenchDescription& description);

} // namespace TavikSimulator
