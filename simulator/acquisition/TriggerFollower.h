#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <cstdint>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// Finds when a module that triggers a collection has gone on by so many counts. The controller looks at it once
/// every timing unit (102.4 us) from the beginning on: a trigger takes effect at the next look, and of several
/// between two looks only one.
class TriggerFollower {
public:
    TriggerFollower(const ModuleHardware& master, int countsPerTrigger, Nanoseconds from);

    const ModuleHardware& Master() const { return master; }
    /// When the module triggered after what was told before, until an instant, in order. To be asked at least
    /// twice in a second of bench time.
    std::vector<Nanoseconds> Until(Nanoseconds instant);

private:
    Nanoseconds InstantOf(std::int64_t poll) const;
    std::int64_t CountAt(std::int64_t poll) const;
    std::int64_t FirstPollWith(std::int64_t count, std::int64_t before, std::int64_t last) const;

    const ModuleHardware& master;
    const std::int64_t step;
    const Nanoseconds begin;
    std::int64_t polls = 0; ///< made so far
    std::int64_t due;       ///< the count that triggers next
};

} // namespace TavikSimulator
