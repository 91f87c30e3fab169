#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <memory>
#include <optional>

namespace TavikSimulator {

class ModuleHardware;

/// Source of the syncs of a dynamic collection.
class SyncSource {
public:
    virtual ~SyncSource() = default;
    /// Returns the next sync that is due by a time; each sync once, in order.
    virtual std::optional<Nanoseconds> Next(Nanoseconds until) = 0;
    /// Whether a trigger was lost because the modules were not ready.
    virtual bool Missed() const { return false; }
};

/// Syncs that the controller triggers at a fixed interval (above 0); the first one interval after the start.
std::unique_ptr<SyncSource> ControllerSyncs(Nanoseconds beginning, Nanoseconds interval);

/// Syncs that a trigger master triggers by its settings at the start. Triggers closer together than the shortest
/// interval are lost.
std::unique_ptr<SyncSource> MasterSyncs(ModuleHardware& master, Nanoseconds beginning, Nanoseconds shortestInterval);

} // namespace TavikSimulator
