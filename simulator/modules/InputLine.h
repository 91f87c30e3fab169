#pragma once

#include "simulator/bench/TypeDescriptions.h"

namespace TavikSimulator {

/// A line on an input pin, and what the module makes of it: a level counts once it has lasted for the
/// debounce time, so that pulses shorter than that are never seen. Times in seconds of bench time.
class InputLine {
public:
    /// The line takes a level, 0 or 1, at a time that is not before the last one.
    void Take(int newLevel, double seconds, double debounceTime);
    /// What is seen now stays seen under another debounce time.
    void Settle(double seconds, double debounceTime);
    int LevelAt(double seconds, double debounceTime) const;

private:
    int level = 0;
    double since = 0.0;
    int before = 0; ///< what the module saw last before the line took its level
};

/// What a module sees of a line with pulses.
int LevelOf(const PulsesDescription& pulses, double seconds, double debounceTime);

} // namespace TavikSimulator
