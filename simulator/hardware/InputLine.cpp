#include "simulator/hardware/InputLine.h"

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
    rises = RisesUntil(seconds, debounceTime);
    before = LevelAt(seconds, debounceTime);
}

// Compared in whole nanoseconds, so that a level counts from the very end of the debounce time on.
int InputLine::LevelAt(double seconds, double debounceTime) const {
    return NanosecondsOf(seconds - since) >= NanosecondsOf(debounceTime) ? level : before;
}

std::int64_t InputLine::RisesUntil(double seconds, double debounceTime) const {
    return rises + (LevelAt(seconds, debounceTime) > before ? 1 : 0);
}

namespace {

bool SeesPulses(const PulsesDescription& pulses, double debounceTime) {
    return pulses.high >= debounceTime && pulses.period - pulses.high >= debounceTime;
}

} // namespace

int LevelOf(const PulsesDescription& pulses, double seconds, double debounceTime) {
    if (!SeesPulses(pulses, debounceTime)) {
        return pulses.high >= debounceTime ? 1 : 0;
    }
    const double periods = (seconds - debounceTime - pulses.start) / pulses.period;
    return (periods - std::floor(periods)) * pulses.period < pulses.high ? 1 : 0;
}

std::int64_t RisesOf(const PulsesDescription& pulses, double seconds, double debounceTime) {
    if (!SeesPulses(pulses, debounceTime)) {
        return 0;
    }
    // In whole nanoseconds, so that a pulse counts from the very end of the debounce time on.
    const std::int64_t period = NanosecondsOf(pulses.period);
    const auto begunBy = [&](double time) {
        const std::int64_t since = NanosecondsOf(time - debounceTime - pulses.start);
        return since >= 0 ? since / period : -((period - 1 - since) / period);
    };
    return begunBy(seconds) - begunBy(0.0);
}

} // namespace TavikSimulator
