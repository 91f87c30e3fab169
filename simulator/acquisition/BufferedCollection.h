#pragma once

#include "simulator/acquisition/BufferedModule.h"
#include "simulator/acquisition/TriggerFollower.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace TavikSimulator {

/// A run of buffered mode. Readings are computed when the bench is advanced, each for the instant at which it was due.
/// Guarded by the bench's lock.
class BufferedCollection {
public:
    /// A module of the list, enabled or not. Pointers outlast the collection.
    struct Participant {
        ModuleHardware* hardware;
        BufferedModule* buffer;
    };
    /// Starts a run with the enabled modules. The trigger master is the list position of the module that triggers those
    /// before it, or -1.
    BufferedCollection(const std::vector<Participant>& modules, int master, Nanoseconds start);

    /// Takes the readings that are due until an instant.
    void CollectUntil(Nanoseconds instant);
    /// The controller triggers one reading of each module in sample mode.
    void Sample(Nanoseconds instant);

private:
    struct SyncModule {
        Participant module;
        Nanoseconds period;
        Nanoseconds next;
    };
    void CollectStretch(Nanoseconds until);
    void FollowTriggers(Nanoseconds until);

    Nanoseconds collected;
    std::vector<SyncModule> syncs;
    std::vector<Participant> samples;
    std::optional<TriggerFollower> triggers;
};

} // namespace TavikSimulator
