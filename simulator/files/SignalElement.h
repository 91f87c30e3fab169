#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/signals/Signal.h"

namespace TavikSimulator {

/// Reads a <signal>: what it does not say stays as it is in the given description.
SignalDescription ReadSignal(BenchElement& element, SignalDescription signal);

} // namespace TavikSimulator
