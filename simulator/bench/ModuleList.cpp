#include "simulator/bench/ModuleList.h"

#include "simulator/bench/Bench.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

ModuleList::ModuleList(Bench& ownerBench, SimulatedNetwork& ownerNetwork,
                       const std::vector<ModuleDescription>& descriptions)
    : bench(ownerBench), network(ownerNetwork), all(ownerBench, ownerNetwork, descriptions) {
    for (const auto& hardware : all) {
        const ModuleDescription& description = hardware->Description();
        if (description.plugState == PlugState::Listed) {
            Append(hardware);
            list.back()->connector = description.remembered ? description.identity : std::string();
        }
    }
}

ModuleList::~ModuleList() = default;

ListedModule& ModuleList::At(unsigned int index) const {
    if (index >= list.size()) {
        Reject(eTavikErrors::ModuleIndexOutOfRange, "There is no module at position " + std::to_string(index) +
                                                        " of network \"" + network.Name() + "\", which has " +
                                                        std::to_string(list.size()) + " modules.");
    }
    return *list[index];
}

int ModuleList::IndexOf(const std::string& identity) const {
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i]->hardware->Identity() == identity) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

const ModuleHardware& ModuleList::HardwareAt(int index) const {
    return *list[static_cast<std::size_t>(index)]->hardware;
}

std::vector<std::string> ModuleList::Identities() const {
    std::vector<std::string> identities;
    for (const auto& entry : list) {
        identities.push_back(entry->hardware->Identity());
    }
    return identities;
}

std::vector<ModuleHardware*> ModuleList::Listed() const {
    std::vector<ModuleHardware*> listed;
    for (const auto& entry : list) {
        listed.push_back(entry->hardware.get());
    }
    return listed;
}

void ModuleList::RequireChangeable() const {
    if (notify) {
        Reject(eTavikErrors::NotifyRunning,
               "A notify run is going on on network \"" + network.Name() + "\"; stop it first.");
    }
    network.RequireNotCollecting();
    if (network.acquisition.dynamic.Enabled()) {
        Reject(eTavikErrors::DynamicEnabled,
               "Network \"" + network.Name() + "\" is enabled for dynamic mode; disable that first.");
    }
}

void ModuleList::RequireIndex(int index) const {
    if (index < 0 || index >= Count()) {
        Reject(eTavikErrors::ModuleIndexOutOfRange, "There is no module at position " + std::to_string(index) +
                                                        " of network \"" + network.Name() + "\", which has " +
                                                        std::to_string(Count()) + " modules.");
    }
}

void ModuleList::Append(const std::shared_ptr<ModuleHardware>& hardware) {
    hardware->listed = true;
    hardware->replaces.clear();
    list.push_back(std::make_unique<ListedModule>(hardware));
}

// The front-end may keep a removed module's object. It stays, so that a call on it is rejected with an error message.
void ModuleList::Retire(std::unique_ptr<ListedModule> module) {
    module->hardware->listed = false;
    module->removed = true;
    network.acquisition.Forget(*module->hardware);
    if (module->object) {
        removed.push_back(std::move(module));
    }
}

void ModuleList::PutBackOnBus(std::unique_ptr<ListedModule> module) {
    module->hardware->announcesWhenAsked = true;
    Retire(std::move(module));
}

// The T-connector of a module that does not answer keeps its identity.
void ModuleList::WriteConnectors() {
    for (const auto& entry : list) {
        if (entry->hardware->present) {
            entry->connector = entry->hardware->Identity();
        }
    }
}

std::shared_ptr<ModuleHardware> ModuleList::AddableOnBus(const std::string& identity,
                                                         const std::string& probeIdentity) const {
    if (!IsIdentity(identity)) {
        Reject(eTavikErrors::IdentityMalformed,
               "\"" + identity + "\" is not a module identity: that has 10 characters, upper-case letters and digits.");
    }
    if (IndexOf(identity) >= 0) {
        Reject(eTavikErrors::IdentityDuplicate,
               "Module " + identity + " is in the list of network \"" + network.Name() + "\" already.");
    }
    auto hardware = all.Find(identity);
    if (!hardware || !hardware->present) {
        Reject(eTavikErrors::IdentityUnknown,
               "No module " + identity + " answers on network \"" + network.Name() + "\".");
    }
    const auto& probe = hardware->Description().probeIdentity;
    if (!probeIdentity.empty() && probe != probeIdentity) {
        Reject(eTavikErrors::IdentityUnknown, "Module " + identity + " has the probe " + probe.value_or("(none)") +
                                                  " behind it, not " + probeIdentity + ".");
    }
    return hardware;
}

void ModuleList::Add(const std::string& identity, const std::string& probeIdentity) {
    RequireChangeable();
    const auto hardware = AddableOnBus(identity, probeIdentity);
    if (Count() >= MostModules) {
        Reject(eTavikErrors::NetworkFull, "Module " + identity + " was not added: network \"" + network.Name() +
                                              "\" holds " + std::to_string(MostModules) + " modules and is full.");
    }
    if (!hardware->CanWorkAt(network.Speed())) {
        Reject(eTavikErrors::SpeedNotAvailable, "Module " + identity + " cannot work at the speed " +
                                                    TavikLibrary::eNetSpeed_ToString(network.Speed()) +
                                                    " of network \"" + network.Name() + "\".");
    }
    Append(hardware);
    WriteConnectors();
}

void ModuleList::Delete(int index) {
    RequireChangeable();
    RequireIndex(index);
    PutBackOnBus(std::move(list[static_cast<std::size_t>(index)]));
    list.erase(list.begin() + index);
}

void ModuleList::Clear() {
    RequireChangeable();
    for (auto& entry : list) {
        PutBackOnBus(std::move(entry));
    }
    list.clear();
}

void ModuleList::ClearConnectors() {
    RequireChangeable();
    for (const auto& entry : list) {
        entry->connector.clear();
    }
}

void ModuleList::RequirePosition(int position) const {
    if (position < 0 || position >= Count()) {
        Reject(eTavikErrors::PositionInvalid, "There is no position " + std::to_string(position) + " on network \"" +
                                                  network.Name() + "\", which has " + std::to_string(Count()) +
                                                  " modules.");
    }
}

std::vector<int> ModuleList::TakeWantedPositions() {
    std::vector<int> wanted;
    for (const auto& entry : list) {
        wanted.push_back(entry->position.value_or(static_cast<int>(wanted.size())));
        entry->position.reset();
    }
    return wanted;
}

void ModuleList::ApplyPositions() {
    RequireChangeable();
    // Taken also when they are rejected: the next attempt starts from the list as it is.
    const std::vector<int> wanted = TakeWantedPositions();
    std::vector<int> from(list.size(), -1);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto position = static_cast<std::size_t>(wanted[i]);
        if (position >= from.size() || from[position] >= 0) {
            Reject(eTavikErrors::PositionInvalid, "The modules of network \"" + network.Name() +
                                                      "\" stay where they are: " + list[i]->hardware->Identity() +
                                                      " was to go to position " + std::to_string(position) +
                                                      ", which is not free.");
        }
        from[position] = static_cast<int>(i);
    }
    std::vector<std::unique_ptr<ListedModule>> reordered;
    reordered.reserve(list.size());
    for (const int index : from) {
        reordered.push_back(std::move(list[static_cast<std::size_t>(index)]));
    }
    list = std::move(reordered);
    WriteConnectors();
}

std::shared_ptr<ModuleHardware> ModuleList::ReplacementFor(const ListedModule& module) const {
    const std::string& identity = module.hardware->Identity();
    return module.connector == identity ? all.ReplacementOf(identity) : nullptr;
}

void ModuleList::RequireFits(const ModuleDescription& old, const ModuleDescription& now) {
    if (old.type != now.type) {
        Reject(eTavikErrors::HotSwapMismatch,
               "Module " + old.identity + " (" + TavikLibrary::eModuleType_ToString(old.type) + ") was replaced by " +
                   now.identity + " (" + TavikLibrary::eModuleType_ToString(now.type) + "), which is of another kind.");
    }
    if (!old.hotSwappable || !now.hotSwappable) {
        Reject(eTavikErrors::HotSwapMismatch, "Module " + old.identity + " was replaced by " + now.identity +
                                                  ", but modules of this kind cannot be swapped.");
    }
}

void ModuleList::TakeInReplacements() {
    RequireChangeable();
    std::vector<std::shared_ptr<ModuleHardware>> replacements;
    for (const auto& entry : list) {
        replacements.push_back(ReplacementFor(*entry));
        if (replacements.back()) {
            RequireFits(entry->hardware->Description(), replacements.back()->Description());
        }
    }
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (replacements[i]) {
            Retire(std::move(list[i]));
            list[i] = std::make_unique<ListedModule>(replacements[i]);
            list[i]->connector = replacements[i]->Identity();
            replacements[i]->listed = true;
            replacements[i]->replaces.clear();
        }
    }
}

void ModuleList::RequireAllAnswer() const {
    const Nanoseconds now = bench.clock.Now();
    for (const auto& entry : list) {
        entry->hardware->RequireAnswer(now, network.Name());
    }
}

void ModuleList::RequireAnswer(const ModuleHardware& module) const {
    list[static_cast<std::size_t>(IndexOf(module.Identity()))]->RequireAnswer(bench.clock.Now(), network.Name());
}

void ModuleList::BeginNotifying(Nanoseconds now) {
    RequireChangeable();
    notify.emplace(all, now);
    ProgressNotifying(now);
}

void ModuleList::ProgressNotifying(Nanoseconds now) {
    if (!notify) {
        return;
    }
    for (const auto& hardware : notify->Arrivals(now, network.Speed())) {
        if (Count() < MostModules) {
            Append(hardware);
            WriteConnectors();
        }
    }
    if (notify->IsOver(now)) {
        notify.reset();
    }
}

std::vector<StoredModule> ModuleList::Stored(Nanoseconds now) const {
    std::vector<StoredModule> stored;
    for (const auto& entry : list) {
        stored.push_back(
            {entry->hardware->Identity(), entry->hardware->Description().type, entry->hardware->Settings(now)});
    }
    return stored;
}

void ModuleList::RequireRestorable(const StoredModule& stored, TavikLibrary::eNetSpeed speed, Nanoseconds now) const {
    const auto hardware = all.Find(stored.identity);
    if (!hardware || !hardware->present) {
        Reject(eTavikErrors::IdentityUnknown,
               "No module " + stored.identity + " answers on network \"" + network.Name() + "\".");
    }
    if (hardware->Description().type != stored.type) {
        Reject(eTavikErrors::InvalidArgument, "Module " + stored.identity + " is not of the kind " +
                                                  TavikLibrary::eModuleType_ToString(stored.type) + ".");
    }
    if (!hardware->CanWorkAt(speed)) {
        Reject(eTavikErrors::SpeedNotAvailable, "Module " + stored.identity + " cannot work at the speed " +
                                                    TavikLibrary::eNetSpeed_ToString(speed) + ".");
    }
    hardware->RequireSettings(stored.settings, now);
}

void ModuleList::RequireRestorable(const std::vector<StoredModule>& stored) const {
    RequireChangeable();
    if (stored.size() > static_cast<std::size_t>(MostModules)) {
        Reject(eTavikErrors::NetworkFull, "A network holds " + std::to_string(MostModules) + " modules at most.");
    }
}

void ModuleList::Restore(const std::vector<StoredModule>& stored, Nanoseconds now) {
    std::vector<std::unique_ptr<ListedModule>> before = std::move(list);
    list.clear();
    for (const StoredModule& module : stored) {
        const auto hardware = all.Find(module.identity);
        const auto kept =
            std::find_if(before.begin(), before.end(), [&](const auto& entry) { return entry->hardware == hardware; });
        if (kept == before.end()) {
            Append(hardware);
        } else {
            list.push_back(std::move(*kept));
            before.erase(kept);
        }
        hardware->UseSettings(module.settings, now);
    }
    for (auto& entry : before) {
        PutBackOnBus(std::move(entry));
    }
    WriteConnectors();
}

void ModuleList::EndObjects() {
    for (const auto& entry : list) {
        entry->EndObject();
    }
    removed.clear();
}

} // namespace TavikSimulator
