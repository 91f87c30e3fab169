#include "simulator/hardware/InputLine.h"

namespace TavikSimulator {

void InputLine::Take(int newLevel, Nanoseconds time, Nanoseconds debounceTime) {
    if (newLevel != level) {
        LatchLevel(time, debounceTime);
        level = newLevel;
        since = time;
    }
}

void InputLine::LatchLevel(Nanoseconds time, Nanoseconds debounceTime) {
    rises = RisesUntil(time, debounceTime);
    before = LevelAt(time, debounceTime);
}

int InputLine::LevelAt(Nanoseconds time, Nanoseconds debounceTime) const {
    return time - since >= debounceTime ? level : before;
}

std::int64_t InputLine::RisesUntil(Nanoseconds time, Nanoseconds debounceTime) const {
    return rises + (LevelAt(time, debounceTime) > before ? 1 : 0);
}

namespace {

bool SeesPulses(const PulsesDescription& pulses, Nanoseconds debounceTime) {
    return pulses.high >= debounceTime && pulses.period - pulses.high >= debounceTime;
}

} // namespace

int LevelOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime) {
    if (!SeesPulses(pulses, debounceTime)) {
        return pulses.high >= debounceTime ? 1 : 0;
    }
    return WithinPeriod(time - debounceTime - pulses.start, pulses.period) < pulses.high ? 1 : 0;
}

std::int64_t RisesOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime) {
    if (!SeesPulses(pulses, debounceTime)) {
        return 0;
    }
    const Nanoseconds first = pulses.start + debounceTime;
    return PeriodsUntil(time - first, pulses.period) - PeriodsUntil(-first, pulses.period);
}

} // namespace TavikSimulator
