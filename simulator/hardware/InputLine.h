#pragma once

#include "simulator/hardware/TypeDescriptions.h"

#include <cstdint>

namespace TavikSimulator {

/// Debounced input line: a level counts after it has lasted for the debounce time; shorter pulses are ignored.
class InputLine {
public:
    /// Sets the level of the line, 0 or 1, at a time not before the last change.
    void Take(int newLevel, Nanoseconds time, Nanoseconds debounceTime);
    /// Keeps the debounced level and the number of edges when the debounce time changes.
    void LatchLevel(Nanoseconds time, Nanoseconds debounceTime);
    int LevelAt(Nanoseconds time, Nanoseconds debounceTime) const;
    /// Number of debounced rising edges until a time not before the last change.
    std::int64_t RisesUntil(Nanoseconds time, Nanoseconds debounceTime) const;

private:
    int level = 0;
    Nanoseconds since{};
    int before = 0;         ///< debounced level before the last change
    std::int64_t rises = 0; ///< debounced rising edges until then
};

/// Debounced level of a line with pulses.
int LevelOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime);
/// Number of debounced rising edges of a line with pulses since bench time 0.
std::int64_t RisesOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime);

} // namespace TavikSimulator
