#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <memory>
#include <optional>

namespace TavikSimulator {

class ModuleHardware;

/// When the syncs of a dynamic collection fall.
class SyncSource {
public:
    virtual ~SyncSource() = default;
    /// The next sync that falls no later than a time; each sync is given once, in order.
    virtual std::optional<Nanoseconds> Next(Nanoseconds until) = 0;
    /// Whether a trigger came before the modules were ready for it, and was lost.
    virtual bool Missed() const { return false; }
};

/// The controller triggers at a fixed interval (above 0); the first sync comes one interval after the
/// beginning.
std::unique_ptr<SyncSource> ControllerSyncs(Nanoseconds beginning, Nanoseconds interval);

/// A master module triggers, as its settings say at the beginning; it has to be a module that can. Triggers closer
/// together than the shortest interval are lost.
std::unique_ptr<SyncSource> MasterSyncs(ModuleHardware& master, Nanoseconds beginning, Nanoseconds shortestInterval);

} // namespace TavikSimulator
