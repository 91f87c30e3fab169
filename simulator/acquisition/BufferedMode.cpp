#include "simulator/acquisition/BufferedMode.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

void BufferedMode::RequireNotRunning() const {
    if (Running()) {
        Reject(eTavikErrors::AcquisitionRunning,
               "Network \"" + network.Name() + "\" is collecting readings in buffered mode; stop that first.");
    }
}

BufferedModule& BufferedMode::Of(const ModuleHardware& module) {
    const ModuleDescription& description = module.Description();
    return modules
        .try_emplace(&module, description.identity, description.capabilities.buffered, description.bufferDepth)
        .first->second;
}

int BufferedMode::EnabledCount() {
    const auto listed = network.Listed();
    return static_cast<int>(std::count_if(listed.begin(), listed.end(),
                                          [this](const ModuleHardware* module) { return Of(*module).Enabled(); }));
}

// The trigger master is stored by identity: it stays the master when the list changes.
int BufferedMode::MasterIndex() {
    const auto listed = network.Listed();
    const auto found = std::find_if(listed.begin(), listed.end(),
                                    [this](const ModuleHardware* module) { return module->Identity() == master; });
    return found == listed.end() ? -1 : static_cast<int>(found - listed.begin());
}

void BufferedMode::SetMaster(int index) {
    network.RequireConnected();
    RequireNotRunning();
    if (index == -1) {
        master.clear();
        return;
    }
    if (!network.Capabilities().bufferedExternal) {
        Reject(eTavikErrors::NotSupported,
               "Network \"" + network.Name() + "\" cannot take the triggers of buffered mode from a module.");
    }
    network.RequireIndex(index);
    const ModuleHardware& module = *network.Listed()[static_cast<std::size_t>(index)];
    if (!module.Description().capabilities.bufferedMaster) {
        Reject(eTavikErrors::NotSupported, "Module " + module.Identity() + " cannot trigger the samples of others.");
    }
    master = module.Identity();
}

void BufferedMode::Start() {
    network.RequireConnected();
    if (!network.Capabilities().buffered) {
        Reject(eTavikErrors::NotSupported, "Network \"" + network.Name() + "\" has no buffered mode.");
    }
    network.RequireChangeable();
    if (EnabledCount() == 0) {
        Reject(eTavikErrors::NotAvailable,
               "No module of network \"" + network.Name() + "\" is enabled for buffered mode.");
    }
    const int masterIndex = MasterIndex();
    const Nanoseconds now = network.Now();
    std::vector<BufferedCollection::Participant> participants;
    for (ModuleHardware* module : network.Listed()) {
        BufferedModule& settings = Of(*module);
        if (settings.Enabled() || static_cast<int>(participants.size()) == masterIndex) {
            module->RequireAnswer(now, network.Name());
        }
        participants.push_back({module, &settings});
    }
    run.emplace(participants, masterIndex, now);
    state = State::Running;
}

void BufferedMode::Sample() {
    network.RequireConnected();
    if (!Running()) {
        Reject(eTavikErrors::NotRunning,
               "Network \"" + network.Name() + "\" is not collecting readings in buffered mode.");
    }
    if (MasterIndex() >= 0) {
        Reject(eTavikErrors::NotSupported,
               "Module " + master + " triggers the samples of network \"" + network.Name() + "\", not the controller.");
    }
    run->Sample(network.Now());
}

void BufferedMode::Stop() {
    if (Running()) {
        state = State::Stopped;
    }
}

void BufferedMode::CollectUntil(Nanoseconds time) {
    if (Running()) {
        run->CollectUntil(time);
    }
}

} // namespace TavikSimulator
