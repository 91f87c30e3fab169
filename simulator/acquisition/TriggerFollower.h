#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <cstdint>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// Finds the triggers of a trigger master by its count. The controller polls the count every timing unit (102.4 µs)
/// from the start: a trigger takes effect at the next poll, and several triggers between two polls count as one.
class TriggerFollower {
public:
    TriggerFollower(const ModuleHardware& master, int countsPerTrigger, Nanoseconds from);

    const ModuleHardware& Master() const { return master; }
    /// Returns the instants of triggers since the previous call, until an instant, in order. Must be called at least
    /// every 500 ms of bench time.
    std::vector<Nanoseconds> Until(Nanoseconds instant);

private:
    Nanoseconds InstantOf(std::int64_t poll) const;
    std::int64_t CountAt(std::int64_t poll) const;
    std::int64_t FirstPollWith(std::int64_t count, std::int64_t before, std::int64_t last) const;

    const ModuleHardware& master;
    const std::int64_t step;
    const Nanoseconds begin;
    std::int64_t polls = 0; ///< number of polls so far
    std::int64_t due;       ///< the count that triggers next
};

} // namespace TavikSimulator
