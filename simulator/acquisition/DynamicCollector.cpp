#include "simulator/acquisition/DynamicCollector.h"

#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicState;
using TavikLibrary::eTavikErrors;

void DynamicCollector::Prepare(double now) {
    network.RequireConnected();
    if (!enabled) {
        Refuse(eTavikErrors::DynamicNotReady, Name() + " cannot be prepared before dynamic mode is enabled.");
    }
    RequireIdle();
    modules.clear();
    for (int index = 0; index < NumberOfModules(); ++index) {
        modules.push_back(&ModuleAt(index));
    }
    master = IsExternal() ? &ModuleAt(settings.masterIndex) : nullptr;
    if (!AllAnswer(now)) {
        Refuse(eTavikErrors::ModuleNotResponding, Name() + " cannot be prepared: one of its modules does not answer.");
    }
    readings.Begin(NumberOfModules());
    missed = false;
    endStatus = eTavikErrors::NoError;
    state = eDynamicState::Prepared;
}

void DynamicCollector::Start(double now, Callback toTell) {
    constexpr double secondsPerMicrosecond = 1e-6;
    syncs = master != nullptr ? MasterSyncs(*master, now, MinimumInterval() * secondsPerMicrosecond)
                              : ControllerSyncs(now, SyncInterval() * secondsPerMicrosecond);
    taken = 0;
    finished = toTell;
    state = eDynamicState::Running;
}

void DynamicCollector::Progress(double now) {
    while (state == eDynamicState::Running) {
        const auto instant = syncs->Next(now);
        missed = syncs->Missed();
        if (!AllAnswer(instant.value_or(now))) {
            End(eTavikErrors::ModuleNotResponding);
        } else if (instant) {
            TakeSync(*instant);
        } else {
            return;
        }
    }
}

bool DynamicCollector::AllAnswer(double instant) const {
    const auto answers = [instant](const ModuleHardware* module) { return module->Answers(instant); };
    return std::all_of(modules.begin(), modules.end(), answers) && (master == nullptr || answers(master));
}

void DynamicCollector::TakeSync(double instant) {
    readings.BeginSync();
    for (const ModuleHardware* module : modules) {
        const Reading reading = module->ReadAt(instant);
        readings.Append({reading.code, reading.counts, reading.units});
    }
    if (settings.collectionSize > 0 && ++taken == settings.collectionSize) {
        End(eTavikErrors::NoError);
    }
}

void DynamicCollector::End(eTavikErrors status) {
    if (state == eDynamicState::Running) {
        endStatus = status;
        syncs.reset();
        state = eDynamicState::Stopping;
    }
}

DynamicCollector::Callback DynamicCollector::Announce() {
    if (state != eDynamicState::Stopping) {
        return nullptr;
    }
    state = eDynamicState::ResultsAvailable;
    return finished;
}

void DynamicCollector::Disconnect() {
    End(eTavikErrors::NetworkNotConnected);
    if (state == eDynamicState::Prepared) {
        state = eDynamicState::Idle;
    }
    enabled = false;
}

void DynamicCollector::Reset() {
    settings = {};
    enabled = false;
    state = eDynamicState::Idle;
    syncs.reset();
    missed = false;
    endStatus = eTavikErrors::NoError;
    readings.Begin(0);
}

eTavikErrors DynamicCollector::Status() const {
    if (endStatus != eTavikErrors::NoError) {
        return endStatus;
    }
    if (missed) {
        return eTavikErrors::SyncsMissed;
    }
    return readings.Dropped() ? eTavikErrors::SyncsDropped : eTavikErrors::NoError;
}

const TavikLibrary::TavikReading& DynamicCollector::Item(int module, int reading) const {
    if (module < 0 || module >= readings.Modules()) {
        Refuse(eTavikErrors::ModuleIndexOutOfRange,
               "There is no module " + std::to_string(module) + " in the dynamic collection of network \"" +
                   network.Name() + "\", which has " + std::to_string(readings.Modules()) + " modules.");
    }
    if (reading < 0 || reading >= readings.Syncs()) {
        Refuse(eTavikErrors::ModuleIndexOutOfRange,
               "There is no reading " + std::to_string(reading) + " in the dynamic collection of network \"" +
                   network.Name() + "\", which has " + std::to_string(readings.Syncs()) + " readings of each module.");
    }
    return readings.At(module, reading);
}

} // namespace TavikSimulator
