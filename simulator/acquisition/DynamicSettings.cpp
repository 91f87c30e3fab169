#include "simulator/acquisition/DynamicCollector.h"
#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/MasterSettings.h"
#include "simulator/modules/ModuleHardware.h"

#include <algorithm>

// Dynamic mode: what can be set, and what of it goes together.

namespace TavikSimulator {

using TavikLibrary::eDynamicMasterMode;
using TavikLibrary::eDynamicMode;
using TavikLibrary::eDynamicRate;
using TavikLibrary::eDynamicState;
using TavikLibrary::eTavikErrors;

namespace {

void RequireNotNegative(int value, const std::string& what) {
    if (value < 0) {
        Refuse(eTavikErrors::InvalidArgument, what + " must be 0 or more, not " + std::to_string(value) + ".");
    }
}

bool CanBeCollected(const ModuleCapabilities& capabilities, eDynamicRate rate) {
    return rate == eDynamicRate::Dynamic2Custom ? capabilities.dynamic2 : capabilities.dynamic;
}

} // namespace

std::string DynamicCollector::Name() const {
    return "Network \"" + network.Name() + "\"";
}

ModuleHardware& DynamicCollector::ModuleAt(int index) const {
    ModuleList& list = network.Modules();
    return list.OnBench(list.HardwareAt(index).Identity());
}

// The modules and the controller have taken the settings in when the network was enabled.
void DynamicCollector::RequireDisabled() const {
    network.RequireConnected();
    if (enabled) {
        Refuse(eTavikErrors::DynamicEnabled,
               Name() + " is enabled for dynamic mode; disable that before changing its settings.");
    }
}

bool DynamicCollector::IsBusy() const {
    return state == eDynamicState::Running || state == eDynamicState::Stopping;
}

void DynamicCollector::RequireIdle() const {
    if (network.acquisition.Running()) {
        Refuse(eTavikErrors::AcquisitionRunning, Name() + " is collecting readings; stop that first.");
    }
}

void DynamicCollector::SetMode(eDynamicMode mode) {
    RequireDisabled();
    if (mode != eDynamicMode::Normal && mode != eDynamicMode::External) {
        Refuse(eTavikErrors::InvalidArgument,
               Name() + " has no dynamic mode " + std::to_string(static_cast<int>(mode)) + ".");
    }
    settings.mode = mode;
}

void DynamicCollector::SetRate(eDynamicRate rate) {
    RequireDisabled();
    if (rate < eDynamicRate::Rate4K || rate > eDynamicRate::Dynamic2Custom) {
        Refuse(eTavikErrors::InvalidArgument,
               Name() + " has no dynamic rate " + std::to_string(static_cast<int>(rate)) + ".");
    }
    settings.rate = rate;
}

void DynamicCollector::SetInterval(int microseconds) {
    RequireDisabled();
    RequireNotNegative(microseconds, "The interval between syncs");
    settings.interval = microseconds;
}

void DynamicCollector::SetCollectionSize(int syncs) {
    RequireDisabled();
    RequireNotNegative(syncs, "The number of syncs");
    settings.collectionSize = syncs;
}

void DynamicCollector::SetNumberOfModules(int count) {
    RequireDisabled();
    RequireNotNegative(count, "The number of modules");
    if (count > network.Modules().Count()) {
        Refuse(eTavikErrors::InvalidArgument, Name() + " lists " + std::to_string(network.Modules().Count()) +
                                                  " modules; " + std::to_string(count) + " cannot be collected.");
    }
    settings.numberOfModules = count;
}

void DynamicCollector::SetMasterIndex(int index) {
    RequireDisabled();
    if (index < -1 || index >= network.Modules().Count()) {
        Refuse(eTavikErrors::ModuleIndexOutOfRange,
               Name() + " has no module at position " + std::to_string(index) + " that could be its master.");
    }
    if (index >= 0 && !ModuleAt(index).Description().capabilities.dynamicMaster) {
        Refuse(eTavikErrors::NotSupported, "Module " + ModuleAt(index).Identity() + " cannot be a master.");
    }
    settings.masterIndex = index;
}

int DynamicCollector::NumberOfModules() const {
    const ModuleList& list = network.Modules();
    if (settings.numberOfModules) {
        return std::min(*settings.numberOfModules, list.Count());
    }
    int count = 0;
    while (count < list.Count() && list.HardwareAt(count).Description().capabilities.dynamic) {
        ++count;
    }
    return count;
}

int DynamicCollector::MinimumInterval() const {
    // A sync message, and the answer of each module.
    constexpr int syncMessage = 100;
    constexpr int answer = 6;
    return syncMessage + answer * NumberOfModules();
}

int DynamicCollector::SyncInterval() const {
    switch (settings.rate) {
    case eDynamicRate::Rate4K:
        return 250;
    case eDynamicRate::Rate2K:
        return 500;
    case eDynamicRate::Rate1K:
        return 1000;
    case eDynamicRate::Dynamic2Custom:
        break;
    }
    return settings.interval > 0 ? settings.interval : MinimumInterval();
}

void DynamicCollector::RefuseTogether(const std::string& sentence) const {
    Refuse(eTavikErrors::DynamicNotPossible, Name() + " cannot be enabled for dynamic mode: " + sentence);
}

// The settings can be made in any order, so whether they go together is seen here.
void DynamicCollector::Enable() {
    network.RequireConnected();
    if (enabled) {
        return;
    }
    RequireIdle();
    if (network.Modules().Notifying()) {
        Refuse(eTavikErrors::NotifyRunning,
               "A notify run is going on on network \"" + network.Name() + "\"; stop it before enabling dynamic mode.");
    }
    RequireAbleModules();
    if (IsExternal()) {
        RequireAbleMaster();
    } else {
        RequirePossibleInterval();
    }
    enabled = true;
}

void DynamicCollector::Disable() {
    network.RequireConnected();
    if (IsBusy()) {
        Refuse(eTavikErrors::AcquisitionRunning, Name() + " is collecting readings; stop that first.");
    }
    enabled = false;
    if (state == eDynamicState::Prepared) {
        state = eDynamicState::Idle;
    }
}

void DynamicCollector::RequireAbleModules() const {
    const NetworkCapabilities& able = network.Description().capabilities;
    const bool custom = settings.rate == eDynamicRate::Dynamic2Custom;
    const std::string rate = TavikLibrary::eDynamicRate_ToString(settings.rate);
    if (custom ? !able.dynamic2 : !able.dynamic) {
        RefuseTogether("its controller does not offer the rate " + rate + ".");
    }
    if (NumberOfModules() == 0) {
        RefuseTogether("there are no modules to collect.");
    }
    for (int index = 0; index < NumberOfModules(); ++index) {
        const ModuleDescription& module = network.Modules().HardwareAt(index).Description();
        if (!CanBeCollected(module.capabilities, settings.rate)) {
            RefuseTogether("module " + module.identity + " cannot be collected at the rate " + rate + ".");
        }
    }
}

void DynamicCollector::RequirePossibleInterval() const {
    if (SyncInterval() < MinimumInterval()) {
        RefuseTogether(std::to_string(NumberOfModules()) + " modules need " + std::to_string(MinimumInterval()) +
                       " us between two syncs, but there are " + std::to_string(SyncInterval()) + " us.");
    }
}

void DynamicCollector::RequireAbleMaster() const {
    if (!network.Description().capabilities.dynamicExternal) {
        RefuseTogether("its controller cannot let a module trigger the syncs.");
    }
    const int index = settings.masterIndex;
    if (index < 0 || index >= network.Modules().Count()) {
        RefuseTogether("no module is chosen as the master.");
    }
    ModuleHardware& module = ModuleAt(index);
    if (module.Master() == nullptr || !module.Description().capabilities.dynamicMaster) {
        RefuseTogether("module " + module.Identity() + " cannot be a master.");
    }
    if (index < NumberOfModules()) {
        RefuseTogether("the master " + module.Identity() + " triggers only modules before it, which are " +
                       std::to_string(index) + ", not " + std::to_string(NumberOfModules()) + ".");
    }
    if (module.Master()->Mode() == eDynamicMasterMode::NotMaster) {
        RefuseTogether("module " + module.Identity() + " is not set to any master mode.");
    }
}

} // namespace TavikSimulator
