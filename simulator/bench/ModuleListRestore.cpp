#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/ModuleList.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleHardware.h"

#include <algorithm>
#include <utility>

// The module list out of a network file and into it.
namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

std::vector<StoredModule> ModuleList::Stored(double now) const {
    std::vector<StoredModule> stored;
    for (const Entry& entry : list) {
        stored.push_back(
            {entry.hardware->Identity(), entry.hardware->Description().type, entry.hardware->Settings(now)});
    }
    return stored;
}

void ModuleList::RequireRestorable(const StoredModule& stored, TavikLibrary::eNetSpeed speed, double now) const {
    const auto hardware = FindOnBench(stored.identity);
    if (!hardware || !hardware->present) {
        Refuse(eTavikErrors::IdentityUnknown,
               "No module " + stored.identity + " answers on network \"" + network.Name() + "\".");
    }
    if (hardware->Description().type != stored.type) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + stored.identity + " is not of the kind " +
                                                  TavikLibrary::eModuleType_ToString(stored.type) + ".");
    }
    if (!hardware->CanWorkAt(speed)) {
        Refuse(eTavikErrors::SpeedNotAvailable, "Module " + stored.identity + " cannot work at the speed " +
                                                    TavikLibrary::eNetSpeed_ToString(speed) + ".");
    }
    hardware->RequireSettings(stored.settings, now);
}

void ModuleList::RequireRestorable(const std::vector<StoredModule>& stored) const {
    RequireChangeable();
    if (stored.size() > static_cast<std::size_t>(MostModules)) {
        Refuse(eTavikErrors::NetworkFull, "A network holds " + std::to_string(MostModules) + " modules at most.");
    }
}

void ModuleList::Restore(const std::vector<StoredModule>& stored, double now) {
    std::vector<Entry> before = std::move(list);
    list.clear();
    for (const StoredModule& module : stored) {
        const auto hardware = FindOnBench(module.identity);
        const auto kept =
            std::find_if(before.begin(), before.end(), [&](const Entry& entry) { return entry.hardware == hardware; });
        if (kept == before.end()) {
            Append(hardware);
        } else {
            list.push_back(std::move(*kept));
            before.erase(kept);
        }
        hardware->UseSettings(module.settings, now);
    }
    for (Entry& entry : before) {
        PutBackOnWire(entry);
    }
    WriteConnectors();
}

} // namespace TavikSimulator
