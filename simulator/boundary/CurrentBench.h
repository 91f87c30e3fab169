#pragma once

#include "simulator/bench/Bench.h"

#include <memory>

namespace TavikSimulator {

/// Current bench of this process; created if there is none. Throws TavikException when that fails.
std::shared_ptr<Bench> CurrentBench();
/// Replaces the current bench by a new one.
void ReplaceCurrentBench(const BenchDescription& description);

} // namespace TavikSimulator
