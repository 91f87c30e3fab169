#include "simulator/bench/AllModules.h"

#include "simulator/bench/Bench.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/hardware/ModuleTypes.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eTavikErrors;

AllModules::AllModules(Bench& ownerBench, const SimulatedNetwork& ownerNetwork,
                       const std::vector<ModuleDescription>& descriptions)
    : bench(ownerBench), network(ownerNetwork) {
    for (const ModuleDescription& description : descriptions) {
        modules.push_back(TypeInfoOf(description.type).makeHardware(description));
    }
}

std::shared_ptr<ModuleHardware> AllModules::Find(const std::string& identity) const {
    const auto found = std::find_if(modules.begin(), modules.end(),
                                    [&](const auto& hardware) { return hardware->Identity() == identity; });
    return found == modules.end() ? nullptr : *found;
}

ModuleHardware& AllModules::At(const std::string& identity) const {
    const auto hardware = Find(identity);
    if (!hardware) {
        Reject(eTavikErrors::IdentityUnknown,
               "Network \"" + network.Name() + "\" of the bench has no module " + identity + ".");
    }
    return *hardware;
}

std::shared_ptr<ModuleHardware> AllModules::ReplacementOf(const std::string& identity) const {
    const auto found = std::find_if(modules.begin(), modules.end(), [&](const auto& hardware) {
        return hardware->present && hardware->replaces == identity;
    });
    return found == modules.end() ? nullptr : *found;
}

void AllModules::SetPresent(const std::string& identity, bool present, Nanoseconds now) {
    ModuleHardware& hardware = At(identity);
    if (present && !hardware.present) {
        for (const auto& other : modules) {
            if (other->replaces == identity) {
                // A T-connector takes one module at a time.
                other->present = false;
            }
        }
        hardware.PowerOn(now);
    }
    hardware.present = present;
}

void AllModules::Replace(const std::string& oldIdentity, const std::string& newIdentity, eModuleType type) {
    ModuleHardware& old = At(oldIdentity);
    if (!old.listed) {
        Reject(eTavikErrors::IdentityUnknown,
               "Module " + oldIdentity + " is not in the list of network \"" + network.Name() + "\".");
    }
    if (!IsIdentity(newIdentity)) {
        Reject(eTavikErrors::IdentityMalformed, "\"" + newIdentity + "\" is not a module identity.");
    }
    if (bench.HasModule(newIdentity)) {
        Reject(eTavikErrors::IdentityDuplicate, "The bench has a module " + newIdentity + " already.");
    }
    const bool sameKind = type == eModuleType::Unknown || type == old.Description().type;
    ModuleDescription description = sameKind ? old.Description() : TypeInfoOf(type).defaults();
    description.identity = newIdentity;
    description.plugState = PlugState::OnBus;
    description.announcesAfter.reset();
    description.signal.seed = bench.SeedOf(newIdentity);
    for (const auto& other : modules) {
        if (other->replaces == oldIdentity) {
            other->present = false;
            other->replaces.clear();
        }
    }
    modules.push_back(TypeInfoOf(description.type).makeHardware(description));
    modules.back()->replaces = oldIdentity;
    old.present = false;
}

} // namespace TavikSimulator
