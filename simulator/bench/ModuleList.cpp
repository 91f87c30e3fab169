#include "simulator/bench/ModuleList.h"

#include "simulator/bench/Bench.h"
#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleHardware.h"
#include "simulator/modules/ModuleImplementation.h"
#include "simulator/modules/ModuleKinds.h"

#include <algorithm>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eTavikErrors;
using TavikLibrary::TavikModule;

ModuleList::ModuleList(Bench& ownerBench, SimulatedNetwork& ownerNetwork,
                       const std::vector<ModuleDescription>& descriptions)
    : bench(ownerBench), network(ownerNetwork) {
    for (const ModuleDescription& description : descriptions) {
        modules.push_back(KindOf(description.type).makeHardware(description));
        if (description.place == Place::Listed) {
            Append(modules.back());
            list.back().connector = description.remembered ? description.identity : std::string();
        }
    }
}

ModuleList::~ModuleList() = default;

TavikModule* ModuleList::At(unsigned int index) {
    if (index >= list.size()) {
        Refuse(eTavikErrors::ModuleIndexOutOfRange, "There is no module at position " + std::to_string(index) +
                                                        " of network \"" + network.Name() + "\", which has " +
                                                        std::to_string(list.size()) + " modules.");
    }
    Entry& entry = list[index];
    if (!entry.module) {
        entry.implementation = new TavikModule::Implementation(bench, network, entry.hardware);
        entry.module = KindOf(entry.hardware->Description().type).makeModule(entry.implementation);
    }
    return entry.module.get();
}

TavikModule::Implementation& ModuleList::ImplementationAt(int index) {
    At(static_cast<unsigned int>(index));
    return *list[static_cast<std::size_t>(index)].implementation;
}

int ModuleList::IndexOf(const std::string& identity) const {
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].hardware->Identity() == identity) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

const ModuleHardware& ModuleList::HardwareAt(int index) const {
    return *list[static_cast<std::size_t>(index)].hardware;
}

std::vector<std::string> ModuleList::Identities() const {
    std::vector<std::string> identities;
    for (const Entry& entry : list) {
        identities.push_back(entry.hardware->Identity());
    }
    return identities;
}

std::vector<ModuleHardware*> ModuleList::Listed() const {
    std::vector<ModuleHardware*> listed;
    for (const Entry& entry : list) {
        listed.push_back(entry.hardware.get());
    }
    return listed;
}

void ModuleList::RequireChangeable() const {
    if (notify) {
        Refuse(eTavikErrors::NotifyRunning,
               "A notify run is going on on network \"" + network.Name() + "\"; stop it first.");
    }
    network.RequireNotCollecting();
    if (network.dynamic.Enabled()) {
        Refuse(eTavikErrors::DynamicEnabled,
               "Network \"" + network.Name() + "\" is enabled for dynamic mode; disable that first.");
    }
}

void ModuleList::RequireIndex(int index) const {
    if (index < 0 || index >= Count()) {
        Refuse(eTavikErrors::ModuleIndexOutOfRange, "There is no module at position " + std::to_string(index) +
                                                        " of network \"" + network.Name() + "\", which has " +
                                                        std::to_string(Count()) + " modules.");
    }
}

void ModuleList::Append(const std::shared_ptr<ModuleHardware>& hardware) {
    Entry entry;
    entry.hardware = hardware;
    hardware->listed = true;
    hardware->replaces.clear();
    list.push_back(std::move(entry));
}

// The front-end may hold on to a module for too long. The object stays, so that a call on it can be
// refused with a sentence.
void ModuleList::Retire(Entry& entry) {
    entry.hardware->listed = false;
    if (entry.module) {
        entry.implementation->removed = true;
        removed.push_back(std::move(entry.module));
    }
}

void ModuleList::PutBackOnWire(Entry& entry) {
    Retire(entry);
    entry.hardware->announcesWhenAsked = true;
}

// A connector whose module does not answer keeps what it remembers.
void ModuleList::WriteConnectors() {
    for (Entry& entry : list) {
        if (entry.hardware->present) {
            entry.connector = entry.hardware->Identity();
        }
    }
}

std::shared_ptr<ModuleHardware> ModuleList::FindOnBench(const std::string& identity) const {
    const auto found = std::find_if(modules.begin(), modules.end(),
                                    [&](const auto& hardware) { return hardware->Identity() == identity; });
    return found == modules.end() ? nullptr : *found;
}

ModuleHardware& ModuleList::OnBench(const std::string& identity) {
    const auto hardware = FindOnBench(identity);
    if (!hardware) {
        Refuse(eTavikErrors::IdentityUnknown,
               "Network \"" + network.Name() + "\" of the bench has no module " + identity + ".");
    }
    return *hardware;
}

std::shared_ptr<ModuleHardware> ModuleList::AddableOnWire(const std::string& identity,
                                                          const std::string& probeIdentity) const {
    if (!IsIdentity(identity)) {
        Refuse(eTavikErrors::IdentityMalformed,
               "\"" + identity + "\" is not a module identity: that has 10 characters, upper-case letters and digits.");
    }
    if (IndexOf(identity) >= 0) {
        Refuse(eTavikErrors::IdentityDuplicate,
               "Module " + identity + " is in the list of network \"" + network.Name() + "\" already.");
    }
    auto hardware = FindOnBench(identity);
    if (!hardware || !hardware->present) {
        Refuse(eTavikErrors::IdentityUnknown,
               "No module " + identity + " answers on network \"" + network.Name() + "\".");
    }
    const auto& probe = hardware->Description().probeIdentity;
    if (!probeIdentity.empty() && probe != probeIdentity) {
        Refuse(eTavikErrors::IdentityUnknown, "Module " + identity + " has the probe " + probe.value_or("(none)") +
                                                  " behind it, not " + probeIdentity + ".");
    }
    return hardware;
}

void ModuleList::Add(const std::string& identity, const std::string& probeIdentity) {
    RequireChangeable();
    const auto hardware = AddableOnWire(identity, probeIdentity);
    if (Count() >= MostModules) {
        Refuse(eTavikErrors::NetworkFull, "Module " + identity + " was not added: network \"" + network.Name() +
                                              "\" holds " + std::to_string(MostModules) + " modules and is full.");
    }
    if (!hardware->CanWorkAt(network.Speed())) {
        Refuse(eTavikErrors::SpeedNotAvailable, "Module " + identity + " cannot work at the speed " +
                                                    TavikLibrary::eNetSpeed_ToString(network.Speed()) +
                                                    " of network \"" + network.Name() + "\".");
    }
    Append(hardware);
    WriteConnectors();
}

void ModuleList::Delete(int index) {
    RequireChangeable();
    RequireIndex(index);
    PutBackOnWire(list[static_cast<std::size_t>(index)]);
    list.erase(list.begin() + index);
}

void ModuleList::Clear() {
    RequireChangeable();
    for (Entry& entry : list) {
        PutBackOnWire(entry);
    }
    list.clear();
}

void ModuleList::ClearConnectors() {
    RequireChangeable();
    for (Entry& entry : list) {
        entry.connector.clear();
    }
}

void ModuleList::RequirePosition(int position) const {
    if (position < 0 || position >= Count()) {
        Refuse(eTavikErrors::PositionInvalid, "There is no position " + std::to_string(position) + " on network \"" +
                                                  network.Name() + "\", which has " + std::to_string(Count()) +
                                                  " modules.");
    }
}

std::vector<int> ModuleList::WantedPositions() const {
    std::vector<int> wanted;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const auto* implementation = list[i].implementation;
        wanted.push_back(implementation ? implementation->position.value_or(static_cast<int>(i)) : static_cast<int>(i));
    }
    return wanted;
}

void ModuleList::ForgetWantedPositions() {
    for (Entry& entry : list) {
        if (entry.implementation) {
            entry.implementation->position.reset();
        }
    }
}

void ModuleList::ApplyPositions() {
    RequireChangeable();
    const std::vector<int> wanted = WantedPositions();
    // Also when they are refused: the next attempt starts from the list as it is.
    ForgetWantedPositions();
    std::vector<int> from(list.size(), -1);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto position = static_cast<std::size_t>(wanted[i]);
        if (position >= from.size() || from[position] >= 0) {
            Refuse(eTavikErrors::PositionInvalid, "The modules of network \"" + network.Name() +
                                                      "\" stay where they are: " + list[i].hardware->Identity() +
                                                      " was to go to position " + std::to_string(position) +
                                                      ", which is not free.");
        }
        from[position] = static_cast<int>(i);
    }
    std::vector<Entry> reordered;
    reordered.reserve(list.size());
    for (const int index : from) {
        reordered.push_back(std::move(list[static_cast<std::size_t>(index)]));
    }
    list = std::move(reordered);
    WriteConnectors();
}

std::shared_ptr<ModuleHardware> ModuleList::ReplacementFor(const Entry& entry) const {
    const std::string& identity = entry.hardware->Identity();
    if (entry.connector != identity) {
        return nullptr;
    }
    const auto found = std::find_if(modules.begin(), modules.end(), [&](const auto& hardware) {
        return hardware->present && hardware->replaces == identity;
    });
    return found == modules.end() ? nullptr : *found;
}

void ModuleList::RequireFits(const Entry& entry, const ModuleHardware& replacement) const {
    const ModuleDescription& old = entry.hardware->Description();
    const ModuleDescription& now = replacement.Description();
    if (old.type != now.type) {
        Refuse(eTavikErrors::HotSwapMismatch,
               "Module " + old.identity + " (" + TavikLibrary::eModuleType_ToString(old.type) + ") was replaced by " +
                   now.identity + " (" + TavikLibrary::eModuleType_ToString(now.type) + "), which is of another kind.");
    }
    if (!old.hotSwappable || !now.hotSwappable) {
        Refuse(eTavikErrors::HotSwapMismatch, "Module " + old.identity + " was replaced by " + now.identity +
                                                  ", but modules of this kind cannot be swapped.");
    }
}

void ModuleList::TakeInReplacements() {
    RequireChangeable();
    std::vector<std::pair<Entry*, std::shared_ptr<ModuleHardware>>> swaps;
    for (Entry& entry : list) {
        if (const auto replacement = ReplacementFor(entry)) {
            RequireFits(entry, *replacement);
            swaps.emplace_back(&entry, replacement);
        }
    }
    for (auto& [entry, replacement] : swaps) {
        Retire(*entry);
        *entry = Entry();
        entry->hardware = replacement;
        entry->connector = replacement->Identity();
        replacement->listed = true;
        replacement->replaces.clear();
    }
}

void ModuleList::RequireAllAnswer() const {
    const double now = bench.clock.Now();
    for (int index = 0; index < Count(); ++index) {
        RequireAnswer(index, now);
    }
}

void ModuleList::RequireAnswer(int index, double now) const {
    const ModuleHardware& hardware = HardwareAt(index);
    if (!hardware.Answers(now)) {
        Refuse(eTavikErrors::ModuleNotResponding,
               "Module " + hardware.Identity() + " on network \"" + network.Name() + "\" does not answer.");
    }
}

void ModuleList::BeginNotifying(double now) {
    RequireChangeable();
    notify.emplace(modules, now);
    ProgressNotifying(now);
}

void ModuleList::ProgressNotifying(double now) {
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

std::vector<ModuleHardware*> ModuleList::OnBench() const {
    std::vector<ModuleHardware*> all;
    for (const auto& hardware : modules) {
        all.push_back(hardware.get());
    }
    return all;
}

void ModuleList::SetPresent(const std::string& identity, bool present, double now) {
    ModuleHardware& hardware = OnBench(identity);
    if (present && !hardware.present) {
        for (const auto& other : modules) {
            if (other->replaces == identity) {
                // Its connector takes one module at a time.
                other->present = false;
            }
        }
        hardware.PowerOn(now);
    }
    hardware.present = present;
}

void ModuleList::Replace(const std::string& oldIdentity, const std::string& newIdentity, eModuleType type) {
    ModuleHardware& old = OnBench(oldIdentity);
    if (IndexOf(oldIdentity) < 0) {
        Refuse(eTavikErrors::IdentityUnknown,
               "Module " + oldIdentity + " is not in the list of network \"" + network.Name() + "\".");
    }
    if (!IsIdentity(newIdentity)) {
        Refuse(eTavikErrors::IdentityMalformed, "\"" + newIdentity + "\" is not a module identity.");
    }
    if (bench.HasModule(newIdentity)) {
        Refuse(eTavikErrors::IdentityDuplicate, "The bench has a module " + newIdentity + " already.");
    }
    const bool sameKind = type == eModuleType::Unknown || type == old.Description().type;
    ModuleDescription description = sameKind ? old.Description() : KindOf(type).defaults();
    description.identity = newIdentity;
    description.place = Place::Wire;
    description.announcesAfter.reset();
    description.signal.seed = bench.SeedOf(newIdentity);
    for (const auto& other : modules) {
        if (other->replaces == oldIdentity) {
            other->present = false;
            other->replaces.clear();
        }
    }
    modules.push_back(KindOf(description.type).makeHardware(description));
    modules.back()->replaces = oldIdentity;
    old.present = false;
}

void ModuleList::EndObjects() {
    for (Entry& entry : list) {
        entry.module.reset();
        entry.implementation = nullptr;
    }
    removed.clear();
}

} // namespace TavikSimulator
