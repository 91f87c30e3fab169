#pragma once

#include "simulator/signals/Signal.h"

namespace TavikSimulator {

/// Interval at which the travel of a signal is followed: 1/256 of its shortest period, limited to 1 ms to 1 s.
Nanoseconds StepFor(const SignalDescription& signal);

} // namespace TavikSimulator
