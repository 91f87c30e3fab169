#pragma once

#include "simulator/acquisition/TriggerFollower.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// A run of buffered mode on a network: which reading comes when. Readings are taken from the modules when somebody
/// next looks at the bench, each for the instant at which it was due. Instants are bench time in whole nanoseconds.
/// Guarded by the bench's lock.
class BufferedCollection {
public:
    /// Begins a run with the enabled ones of a network's modules. The master is the list position of the module
    /// that triggers those before it, or -1.
    BufferedCollection(const std::vector<ModuleHardware*>& modules, int master, std::int64_t start);

    /// Takes the readings that were due until an instant.
    void CollectUntil(std::int64_t instant);
    /// The controller lets the modules in sample mode store a reading.
    void Sample(std::int64_t instant);

private:
    struct SyncModule {
        ModuleHardware* hardware;
        std::int64_t period;
        std::int64_t next;
    };
    void CollectStretch(std::int64_t until);
    void FollowTriggers(std::int64_t until);

    std::int64_t collected;
    std::vector<SyncModule> syncs;
    std::vector<ModuleHardware*> samples;
    std::optional<TriggerFollower> triggers;
};

} // namespace TavikSimulator
