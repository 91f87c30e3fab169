#pragma once

#include "simulator/files/BenchElement.h"
#include "simulator/signals/Signal.h"

namespace TavikSimulator {

/// Reads a <signal>; missing attributes keep their values of the given description.
SignalDescription ReadSignal(BenchElement& element, SignalDescription signal);

} // namespace TavikSimulator
