#include "simulator/acquisition/DynamicMode.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicState;
using TavikLibrary::eTavikErrors;

std::string DynamicMode::Name() const {
    return "Network \"" + network.Name() + "\"";
}

// Enabling transfers the settings to the modules and the controller.
DynamicSettings& DynamicMode::ChangeableSettings() {
    network.RequireConnected();
    if (enabled) {
        Reject(eTavikErrors::DynamicEnabled,
               Name() + " is enabled for dynamic mode; disable that before changing its settings.");
    }
    return settings;
}

bool DynamicMode::Running() const {
    return state == eDynamicState::Running || state == eDynamicState::Stopping;
}

void DynamicMode::Enable() {
    network.RequireConnected();
    if (enabled) {
        return;
    }
    network.RequireNotCollecting();
    if (network.Notifying()) {
        Reject(eTavikErrors::NotifyRunning,
               "A notify run is going on on network \"" + network.Name() + "\"; stop it before enabling dynamic mode.");
    }
    settings.RequirePossible();
    enabled = true;
}

void DynamicMode::Disable() {
    network.RequireConnected();
    if (Running()) {
        Reject(eTavikErrors::AcquisitionRunning, Name() + " is collecting readings; stop that first.");
    }
    enabled = false;
    if (state == eDynamicState::Prepared) {
        state = eDynamicState::Idle;
    }
}

void DynamicMode::Prepare() {
    network.RequireConnected();
    if (!enabled) {
        Reject(eTavikErrors::DynamicNotReady, Name() + " cannot be prepared before dynamic mode is enabled.");
    }
    network.RequireNotCollecting();
    modules = settings.Modules();
    master = settings.Master();
    if (!AllAnswer(network.Now())) {
        Reject(eTavikErrors::ModuleNotResponding, Name() + " cannot be prepared: one of its modules does not answer.");
    }
    readings.Begin(static_cast<int>(modules.size()));
    missed = false;
    endStatus = eTavikErrors::NoError;
    state = eDynamicState::Prepared;
}

void DynamicMode::Start(Callback collectionFinished) {
    const Nanoseconds now = network.Now();
    syncs = master != nullptr ? MasterSyncs(*master, now, std::chrono::microseconds(settings.MinimumInterval()))
                              : ControllerSyncs(now, std::chrono::microseconds(settings.SyncInterval()));
    taken = 0;
    finished = collectionFinished;
    state = eDynamicState::Running;
}

void DynamicMode::CollectUntil(Nanoseconds time) {
    while (state == eDynamicState::Running) {
        const auto instant = syncs->Next(time);
        missed = syncs->Missed();
        if (!AllAnswer(instant.value_or(time))) {
            End(eTavikErrors::ModuleNotResponding);
        } else if (instant) {
            TakeSync(*instant);
        } else {
            return;
        }
    }
}

bool DynamicMode::AllAnswer(Nanoseconds instant) const {
    const auto answers = [instant](const ModuleHardware* module) { return module->Answers(instant); };
    return std::all_of(modules.begin(), modules.end(), answers) && (master == nullptr || answers(master));
}

void DynamicMode::TakeSync(Nanoseconds instant) {
    readings.BeginSync();
    for (const ModuleHardware* module : modules) {
        const Reading reading = module->ReadAt(instant);
        readings.Append({reading.code, reading.counts, reading.units});
    }
    if (settings.CollectionSize() > 0 && ++taken == settings.CollectionSize()) {
        End(eTavikErrors::NoError);
    }
}

void DynamicMode::End(eTavikErrors status) {
    if (state == eDynamicState::Running) {
        endStatus = status;
        syncs.reset();
        state = eDynamicState::Stopping;
    }
}

DynamicMode::Callback DynamicMode::Announce() {
    if (state != eDynamicState::Stopping) {
        return nullptr;
    }
    state = eDynamicState::ResultsAvailable;
    return finished;
}

void DynamicMode::Disconnect() {
    End(eTavikErrors::NetworkNotConnected);
    if (state == eDynamicState::Prepared) {
        state = eDynamicState::Idle;
    }
    enabled = false;
}

void DynamicMode::Reset() {
    settings = DynamicSettings(network);
    enabled = false;
    state = eDynamicState::Idle;
    syncs.reset();
    missed = false;
    endStatus = eTavikErrors::NoError;
    readings.Begin(0);
}

eTavikErrors DynamicMode::Status() const {
    if (endStatus != eTavikErrors::NoError) {
        return endStatus;
    }
    if (missed) {
        return eTavikErrors::SyncsMissed;
    }
    return readings.Overwritten() ? eTavikErrors::SyncsDropped : eTavikErrors::NoError;
}

const TavikLibrary::TavikReading& DynamicMode::Item(int module, int reading) const {
    if (module < 0 || module >= readings.Modules()) {
        Reject(eTavikErrors::ModuleIndexOutOfRange,
               "There is no module " + std::to_string(module) + " in the dynamic collection of network \"" +
                   network.Name() + "\", which has " + std::to_string(readings.Modules()) + " modules.");
    }
    if (reading < 0 || reading >= readings.Syncs()) {
        Reject(eTavikErrors::ModuleIndexOutOfRange,
               "There is no reading " + std::to_string(reading) + " in the dynamic collection of network \"" +
                   network.Name() + "\", which has " + std::to_string(readings.Syncs()) + " readings of each module.");
    }
    return readings.At(module, reading);
}

} // namespace TavikSimulator
