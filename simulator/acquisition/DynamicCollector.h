#pragma once

#include "library/TavikDynamic.h"
#include "library/TavikEnums.h"
#include "simulator/acquisition/DynamicReadings.h"
#include "simulator/acquisition/SyncSource.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;
class SimulatedNetwork;

/// How a network is to collect.
struct DynamicSettings {
    TavikLibrary::eDynamicMode mode = TavikLibrary::eDynamicMode::Normal;
    TavikLibrary::eDynamicRate rate = TavikLibrary::eDynamicRate::Rate4K;
    int interval = 1000;                ///< in microseconds; 0 for full speed
    int collectionSize = 1000;          ///< in syncs; 0 for continuous
    std::optional<int> numberOfModules; ///< unset: all from the first on that can be collected
    int masterIndex = -1;
};

/// Dynamic mode of one network: its settings, its state and the collection. Guarded by the bench's lock. What an
/// operator may not do now, or cannot do at all, is refused with a TavikException and changes nothing.
class DynamicCollector {
public:
    using Callback = void (*)();

    /// The state is kept where the network's other ways of collecting see it.
    DynamicCollector(SimulatedNetwork& network, TavikLibrary::eDynamicState& state) : network(network), state(state) {}

    const DynamicSettings& Settings() const { return settings; }
    void SetMode(TavikLibrary::eDynamicMode mode);
    void SetRate(TavikLibrary::eDynamicRate rate);
    void SetInterval(int microseconds);
    void SetCollectionSize(int syncs);
    void SetNumberOfModules(int count);
    void SetMasterIndex(int index);
    /// Never more than the network lists.
    int NumberOfModules() const;
    /// In microseconds: 100, and 6 for each module that is collected.
    int MinimumInterval() const;

    bool Enabled() const { return enabled; }
    /// Checks whether the settings go together.
    void Enable();
    void Disable();
    TavikLibrary::eDynamicState State() const { return state; }
    /// Discards what was collected before.
    void Prepare(double now);
    /// Refuses while the network collects in any way.
    void RequireIdle() const;
    /// Only on a prepared network. The callback may be null.
    void Start(double now, Callback finished);
    /// Takes the syncs that fall until a bench time.
    void Progress(double now);
    /// Does nothing when nothing runs.
    void Stop() { End(TavikLibrary::eTavikErrors::NoError); }
    /// The controller has let go of the network.
    void Disconnect();
    /// After a collection's end: its results can be had now. Returns whom to tell, or null.
    Callback Announce();
    /// Forgets everything, as a library that has just been started.
    void Reset();

    const DynamicReadings& Readings() const { return readings; }
    /// Result code of the collection.
    TavikLibrary::eTavikErrors Status() const;
    /// Throws TavikException for a module or reading that is not there.
    const TavikLibrary::TavikReading& Item(int module, int reading) const;

private:
    bool IsExternal() const { return settings.mode == TavikLibrary::eDynamicMode::External; }
    bool IsBusy() const;
    std::string Name() const;
    [[noreturn]] void RefuseTogether(const std::string& sentence) const;
    void RequireDisabled() const;
    void RequireAbleModules() const;
    void RequirePossibleInterval() const;
    void RequireAbleMaster() const;
    /// A module of the network's list.
    ModuleHardware& ModuleAt(int index) const;
    /// Between two syncs that the controller triggers, in microseconds.
    int SyncInterval() const;
    void TakeSync(double instant);
    bool AllAnswer(double instant) const;
    void End(TavikLibrary::eTavikErrors status);

    SimulatedNetwork& network;
    TavikLibrary::eDynamicState& state;
    DynamicSettings settings;
    bool enabled = false;
    std::vector<ModuleHardware*> modules; ///< those that are collected
    ModuleHardware* master = nullptr;     ///< an external one
    std::unique_ptr<SyncSource> syncs;    ///< while the collection runs
    int taken = 0;                        ///< syncs of a collection of a fixed size
    bool missed = false;
    TavikLibrary::eTavikErrors endStatus = TavikLibrary::eTavikErrors::NoError;
    Callback finished = nullptr;
    DynamicReadings readings;
};

} // namespace TavikSimulator
