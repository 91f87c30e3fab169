#pragma once

#include "simulator/hardware/TypeDescriptions.h"

#include <cstdint>

namespace TavikSimulator {

/// A line on an input pin, and what the module makes of it: a level counts once it has lasted for the
/// debounce time, so that pulses shorter than that are never seen.
class InputLine {
public:
    /// The line takes a level, 0 or 1, at a time that is not before the last one.
    void Take(int newLevel, Nanoseconds time, Nanoseconds debounceTime);
    /// What is seen now stays seen under another debounce time.
    void LatchLevel(Nanoseconds time, Nanoseconds debounceTime);
    int LevelAt(Nanoseconds time, Nanoseconds debounceTime) const;
    /// How often the module has seen the line go high until a time that is not before the last change.
    std::int64_t RisesUntil(Nanoseconds time, Nanoseconds debounceTime) const;

private:
    int level = 0;
    Nanoseconds since{};
    int before = 0;         ///< what the module saw last before the line took its level
    std::int64_t rises = 0; ///< seen until then
};

/// What a module sees of a line with pulses.
int LevelOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime);
/// How often a module has seen a line with pulses go high since bench time 0.
std::int64_t RisesOf(const PulsesDescription& pulses, Nanoseconds time, Nanoseconds debounceTime);

} // namespace TavikSimulator
