#pragma once

#include "simulator/signals/Signal.h"

#include <cstdint>

namespace TavikSimulator {

/// The steps in which the way of a signal is followed, in nanoseconds: short against everything that the signal does
/// (1/256 of the shortest period), at least 1 ms and at most 1 s.
std::int64_t StepFor(const SignalDescription& signal);

} // namespace TavikSimulator
