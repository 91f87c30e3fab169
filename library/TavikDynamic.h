#pragma once

#include "library/TavikReading.h"

#include <string>

namespace TavikLibrary {

/// What triggers the syncs of a dynamic collection.
enum class eDynamicMode : int {
    Normal = 0,
    External = 3,
};

enum class eDynamicRate : int {
    Rate4K = 0,
    Rate2K = 1,
    Rate1K = 2,
    Dynamic2Custom = 3,
};

enum class eDynamicState : int {
    Idle = 0,
    Prepared = 1,
    Running = 2,
    Stopping = 3,
    ResultsAvailable = 4,
};

/// How a master module triggers syncs.
enum class eDynamicMasterMode : int {
    NotMaster = -1,
    Instant = 0,
    HoldOff = 1,
    Refaction_Reset = 5,
    Refaction_Preset = 6,
};

std::string eDynamicRate_ToString(eDynamicRate rate);
std::string eDynamicState_ToString(eDynamicState state);
std::string eDynamicMasterMode_ToString(eDynamicMasterMode mode);

/// The readings of a dynamic collection.
class TavikDynamicData {
public:
    class Implementation;
    explicit TavikDynamicData(Implementation* implementation);
    ~TavikDynamicData();
    TavikDynamicData(const TavikDynamicData&) = delete;
    TavikDynamicData& operator=(const TavikDynamicData&) = delete;

    /// Result code of the collection.
    int CollectionStatus();
    int ModuleCount();
    int ReadingCount();
    /// Throws TavikException for a module or reading that is not there.
    TavikReading GetItem(int module, int reading);

private:
    Implementation* implementation;
};

/// Dynamic mode of a whole network.
class TavikDynamic {
public:
    class Implementation;
    explicit TavikDynamic(Implementation* implementation);
    ~TavikDynamic();
    TavikDynamic(const TavikDynamic&) = delete;
    TavikDynamic& operator=(const TavikDynamic&) = delete;

    bool Enabled();
    void setEnabled(bool enabled);
    eDynamicMode DynamicMode();
    void setDynamicMode(eDynamicMode mode);
    eDynamicRate DynamicRate();
    void setDynamicRate(eDynamicRate rate);
    /// Time between two syncs, in microseconds; 0 for full speed.
    int DynamicInterval();
    void setDynamicInterval(int microseconds);
    /// In microseconds; depends on the number of modules.
    int MinimumInterval();
    /// Number of syncs; 0 for continuous.
    int CollectionSize();
    void setCollectionSize(int syncs);
    /// How many modules, from the first on, are collected.
    int NumberOfModules();
    void setNumberOfModules(int count);
    /// List position of the module that triggers syncs; -1 for the controller.
    int MasterIndex();
    void setMasterIndex(int index);
    eDynamicState DynamicState();
    void Prepare();
    TavikDynamicData* DynamicData();

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
