#pragma once

#include "simulator/acquisition/BufferedModule.h"
#include "simulator/acquisition/TriggerFollower.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace TavikSimulator {

/// A run of buffered mode: which reading is due when. Readings are computed when the bench is next brought up to date,
/// each for the instant at which it was due. Instants are bench time in whole nanoseconds. Guarded by the bench's lock.
class BufferedCollection {
public:
    /// A module of the list, enabled or not. Pointers outlast the collection.
    struct Participant {
        ModuleHardware* hardware;
        BufferedModule* buffer;
    };
    /// Starts a run with the enabled ones of a network's modules. The trigger master is the list position of the module
    /// that triggers those before it, or -1.
    BufferedCollection(const std::vector<Participant>& modules, int master, std::int64_t start);

    /// Takes the readings that are due until an instant.
    void CollectUntil(std::int64_t instant);
    /// The controller triggers one reading of each module in sample mode.
    void Sample(std::int64_t instant);

private:
    struct SyncModule {
        Participant module;
        std::int64_t period;
        std::int64_t next;
    };
    void CollectStretch(std::int64_t until);
    void FollowTriggers(std::int64_t until);

    std::int64_t collected;
    std::vector<SyncModule> syncs;
    std::vector<Participant> samples;
    std::optional<TriggerFollower> triggers;
};

} // namespace TavikSimulator
