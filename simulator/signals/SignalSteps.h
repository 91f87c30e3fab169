#pragma once

#include "simulator/signals/Signal.h"

namespace TavikSimulator {

/// The interval at which the travel of a signal is followed: 1/256 of its shortest period, 1 ms to 1 s.
Nanoseconds StepFor(const SignalDescription& signal);

} // namespace TavikSimulator
