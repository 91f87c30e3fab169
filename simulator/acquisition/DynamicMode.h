#pragma once

#include "library/TavikEnums.h"
#include "simulator/acquisition/DynamicReadings.h"
#include "simulator/acquisition/DynamicSettings.h"
#include "simulator/acquisition/SyncSource.h"

#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Dynamic mode of one network: its settings, its state and the collection. Operations throw TavikException, and
/// change nothing, for what cannot be done. Guarded by the bench's lock.
class DynamicMode {
public:
    using Callback = void (*)();

    explicit DynamicMode(AcquiringNetwork& owner) : network(owner), settings(owner) {}

    const DynamicSettings& Settings() const { return settings; }
    /// Settings to change. Throws TavikException while the network is enabled for dynamic mode.
    DynamicSettings& ChangeableSettings();

    bool Enabled() const { return enabled; }
    /// Enables the network. Throws TavikException when the settings do not fit each other.
    void Enable();
    void Disable();
    TavikLibrary::eDynamicState State() const { return state; }
    /// Whether a collection runs, or has ended and is not announced yet.
    bool Running() const;
    /// Prepares a collection and discards the readings of the previous one.
    void Prepare();
    /// Starts the collection of a prepared network. The callback can be null.
    void Start(Callback collectionFinished);
    /// Takes the syncs that are due until a bench time.
    void CollectUntil(Nanoseconds time);
    /// Does nothing when no collection runs.
    void Stop() { End(TavikLibrary::eTavikErrors::NoError); }
    /// Ends the collection because the network is disconnected.
    void Disconnect();
    /// Makes the results of an ended collection available. Returns the callback to call, or null.
    Callback Announce();
    /// Discards settings, state and readings.
    void Reset();

    const DynamicReadings& Readings() const { return readings; }
    /// Result code of the collection.
    TavikLibrary::eTavikErrors Status() const;
    /// Throws TavikException for a module or reading that is not there.
    const TavikLibrary::TavikReading& Item(int module, int reading) const;

private:
    std::string Name() const;
    void TakeSync(Nanoseconds instant);
    bool AllAnswer(Nanoseconds instant) const;
    void End(TavikLibrary::eTavikErrors status);

    AcquiringNetwork& network;
    TavikLibrary::eDynamicState state = TavikLibrary::eDynamicState::Idle;
    DynamicSettings settings;
    bool enabled = false;
    std::vector<ModuleHardware*> modules; ///< those that are collected
    ModuleHardware* master = nullptr;     ///< the module that triggers syncs; null for the controller
    std::unique_ptr<SyncSource> syncs;    ///< while the collection runs
    int taken = 0;                        ///< syncs of a collection of a fixed size
    bool missed = false;
    TavikLibrary::eTavikErrors endStatus = TavikLibrary::eTavikErrors::NoError;
    Callback finished = nullptr;
    DynamicReadings readings;
};

} // namespace TavikSimulator
