#include "simulator/modules/InputLine.h"

#include "simulator/signals/Signal.h"

#include <cmath>

namespace TavikSimulator {

void InputLine::Take(int newLevel, double seconds, double debounceTime) {
    if (newLevel != level) {
        Settle(seconds, debounceTime);
        level = newLevel;
        since = seconds;
    }
}

void InputLine::Settle(double seconds, double debounceTime) {
    before = LevelAt(seconds, debounceTime);
}

// Compared in whole nanoseconds, so that a level counts from the very end of the debounce time on.
int InputLine::LevelAt(double seconds, double debounceTime) const {
    return NanosecondsOf(seconds - since) >= NanosecondsOf(debounceTime) ? level : before;
}

int LevelOf(const PulsesDescription& pulses, double seconds, double debounceTime) {
    const bool seesHigh = pulses.high >= debounceTime;
    const bool seesLow = pulses.period - pulses.high >= debounceTime;
    if (!seesHigh || !seesLow) {
        return seesHigh ? 1 : 0;
    }
    const double periods = (seconds - debounceTime - pulses.start) / pulses.period;
    return (periods - std::floor(periods)) * pulses.period < pulses.high ? 1 : 0;
}

} // namespace TavikSimulator
