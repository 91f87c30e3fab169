#include "simulator/acquisition/DynamicSettings.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/MasterSettings.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicMasterMode;
using TavikLibrary::eDynamicMode;
using TavikLibrary::eDynamicRate;
using TavikLibrary::eTavikErrors;

namespace {

void RequireNotNegative(int value, const std::string& what) {
    if (value < 0) {
        Reject(eTavikErrors::InvalidArgument, what + " must be 0 or more, not " + std::to_string(value) + ".");
    }
}

bool CanBeCollected(const ModuleCapabilities& capabilities, eDynamicRate rate) {
    return rate == eDynamicRate::Dynamic2Custom ? capabilities.dynamic2 : capabilities.dynamic;
}

} // namespace

std::string DynamicSettings::Name() const {
    return "Network \"" + network->Name() + "\"";
}

int DynamicSettings::ListedCount() const {
    return static_cast<int>(network->Listed().size());
}

ModuleHardware& DynamicSettings::ModuleAt(int index) const {
    return *network->Listed()[static_cast<std::size_t>(index)];
}

std::vector<ModuleHardware*> DynamicSettings::Modules() const {
    auto modules = network->Listed();
    modules.resize(static_cast<std::size_t>(NumberOfModules()));
    return modules;
}

ModuleHardware* DynamicSettings::Master() const {
    return IsExternal() ? &ModuleAt(masterIndex) : nullptr;
}

void DynamicSettings::SetMode(eDynamicMode newMode) {
    if (newMode != eDynamicMode::Normal && newMode != eDynamicMode::External) {
        Reject(eTavikErrors::InvalidArgument,
               Name() + " has no dynamic mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
    mode = newMode;
}

void DynamicSettings::SetRate(eDynamicRate newRate) {
    if (newRate < eDynamicRate::Rate4K || newRate > eDynamicRate::Dynamic2Custom) {
        Reject(eTavikErrors::InvalidArgument,
               Name() + " has no dynamic rate " + std::to_string(static_cast<int>(newRate)) + ".");
    }
    rate = newRate;
}

void DynamicSettings::SetInterval(int microseconds) {
    RequireNotNegative(microseconds, "The interval between syncs");
    interval = microseconds;
}

void DynamicSettings::SetCollectionSize(int syncs) {
    RequireNotNegative(syncs, "The number of syncs");
    collectionSize = syncs;
}

void DynamicSettings::SetNumberOfModules(int count) {
    RequireNotNegative(count, "The number of modules");
    if (count > ListedCount()) {
        Reject(eTavikErrors::InvalidArgument, Name() + " lists " + std::to_string(ListedCount()) + " modules; " +
                                                  std::to_string(count) + " cannot be collected.");
    }
    numberOfModules = count;
}

void DynamicSettings::SetMasterIndex(int index) {
    if (index < -1 || index >= ListedCount()) {
        Reject(eTavikErrors::ModuleIndexOutOfRange,
               Name() + " has no module at position " + std::to_string(index) + " that could be its master.");
    }
    if (index >= 0 && !ModuleAt(index).Description().capabilities.dynamicMaster) {
        Reject(eTavikErrors::NotSupported, "Module " + ModuleAt(index).Identity() + " cannot be a master.");
    }
    masterIndex = index;
}

int DynamicSettings::NumberOfModules() const {
    const auto listed = network->Listed();
    if (numberOfModules) {
        return std::min(*numberOfModules, static_cast<int>(listed.size()));
    }
    const auto end = std::find_if(listed.begin(), listed.end(), [](const ModuleHardware* module) {
        return !module->Description().capabilities.dynamic;
    });
    return static_cast<int>(end - listed.begin());
}

int DynamicSettings::MinimumInterval() const {
    // A sync message and the answer of each module, in µs.
    constexpr int syncMessage = 100;
    constexpr int answer = 6;
    return syncMessage + answer * NumberOfModules();
}

int DynamicSettings::SyncInterval() const {
    switch (rate) {
    case eDynamicRate::Rate4K:
        return 250;
    case eDynamicRate::Rate2K:
        return 500;
    case eDynamicRate::Rate1K:
        return 1000;
    case eDynamicRate::Dynamic2Custom:
        break;
    }
    return interval > 0 ? interval : MinimumInterval();
}

void DynamicSettings::RejectTogether(const std::string& sentence) const {
    Reject(eTavikErrors::DynamicNotPossible, Name() + " cannot be enabled for dynamic mode: " + sentence);
}

void DynamicSettings::RequirePossible() const {
    RequireAbleModules();
    if (IsExternal()) {
        RequireAbleMaster();
    } else {
        RequirePossibleInterval();
    }
}

void DynamicSettings::RequireAbleModules() const {
    const NetworkCapabilities& able = network->Capabilities();
    const bool custom = rate == eDynamicRate::Dynamic2Custom;
    const std::string name = TavikLibrary::eDynamicRate_ToString(rate);
    if (custom ? !able.dynamic2 : !able.dynamic) {
        RejectTogether("its controller does not offer the rate " + name + ".");
    }
    if (NumberOfModules() == 0) {
        RejectTogether("there are no modules to collect.");
    }
    for (int index = 0; index < NumberOfModules(); ++index) {
        const ModuleDescription& module = ModuleAt(index).Description();
        if (!CanBeCollected(module.capabilities, rate)) {
            RejectTogether("module " + module.identity + " cannot be collected at the rate " + name + ".");
        }
    }
}

void DynamicSettings::RequirePossibleInterval() const {
    if (SyncInterval() < MinimumInterval()) {
        RejectTogether(std::to_string(NumberOfModules()) + " modules need " + std::to_string(MinimumInterval()) +
                       " us between two syncs, but there are " + std::to_string(SyncInterval()) + " us.");
    }
}

void DynamicSettings::RequireAbleMaster() const {
    if (!network->Capabilities().dynamicExternal) {
        RejectTogether("its controller cannot let a module trigger the syncs.");
    }
    const int index = masterIndex;
    if (index < 0 || index >= ListedCount()) {
        RejectTogether("no module is chosen as the master.");
    }
    ModuleHardware& module = ModuleAt(index);
    if (module.Master() == nullptr || !module.Description().capabilities.dynamicMaster) {
        RejectTogether("module " + module.Identity() + " cannot be a master.");
    }
    if (index < NumberOfModules()) {
        RejectTogether("the master " + module.Identity() + " triggers only modules before it, which are " +
                       std::to_string(index) + ", not " + std::to_string(NumberOfModules()) + ".");
    }
    if (module.Master()->Mode() == eDynamicMasterMode::NotMaster) {
        RejectTogether("module " + module.Identity() + " is not set to any master mode.");
    }
}

} // namespace TavikSimulator
