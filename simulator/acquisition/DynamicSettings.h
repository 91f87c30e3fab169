#pragma once

#include "library/TavikDynamic.h"
#include "simulator/acquisition/AcquiringNetwork.h"

#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Settings of dynamic mode. The setters throw TavikException, and change nothing, for a value that the network does
/// not have. Their order is free; RequirePossible checks the settings against each other.
class DynamicSettings {
public:
    explicit DynamicSettings(AcquiringNetwork& owner) : network(&owner) {}

    TavikLibrary::eDynamicMode Mode() const { return mode; }
    void SetMode(TavikLibrary::eDynamicMode newMode);
    TavikLibrary::eDynamicRate Rate() const { return rate; }
    void SetRate(TavikLibrary::eDynamicRate newRate);
    /// In microseconds; 0 for full speed.
    int Interval() const { return interval; }
    void SetInterval(int microseconds);
    /// In syncs; 0 for a continuous collection.
    int CollectionSize() const { return collectionSize; }
    void SetCollectionSize(int syncs);
    /// Never more than the network lists.
    int NumberOfModules() const;
    void SetNumberOfModules(int count);
    /// List position of the trigger master; -1 for none.
    int MasterIndex() const { return masterIndex; }
    void SetMasterIndex(int index);

    /// Shortest interval between syncs in microseconds: 100, and 6 for each module that is collected.
    int MinimumInterval() const;
    /// Interval between syncs that the controller triggers, in microseconds.
    int SyncInterval() const;
    /// The modules that are collected.
    std::vector<ModuleHardware*> Modules() const;
    /// The module that triggers syncs; null for the controller.
    ModuleHardware* Master() const;
    /// Throws TavikException when the settings do not fit each other.
    void RequirePossible() const;

private:
    bool IsExternal() const { return mode == TavikLibrary::eDynamicMode::External; }
    std::string Name() const;
    int ListedCount() const;
    ModuleHardware& ModuleAt(int index) const;
    [[noreturn]] void RejectTogether(const std::string& sentence) const;
    void RequireAbleModules() const;
    void RequirePossibleInterval() const;
    void RequireAbleMaster() const;

    AcquiringNetwork* network;
    TavikLibrary::eDynamicMode mode = TavikLibrary::eDynamicMode::Normal;
    TavikLibrary::eDynamicRate rate = TavikLibrary::eDynamicRate::Rate4K;
    int interval = 1000;
    int collectionSize = 1000;
    std::optional<int> numberOfModules; ///< unset: all modules from the first on that can be collected
    int masterIndex = -1;
};

} // namespace TavikSimulator
