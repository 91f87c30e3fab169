#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleHardware.h"

#include <algorithm>

// A network's part in buffered mode.
namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

void SimulatedNetwork::RequireBufferedAtRest() const {
    if (acquisition.buffered == AcquisitionState::BufferedRunning) {
        Refuse(eTavikErrors::AcquisitionRunning,
               "Network \"" + Name() + "\" is collecting readings in buffered mode; stop that first.");
    }
}

int SimulatedNetwork::BufferedEnabledCount() {
    const auto listed = Modules().Listed();
    return static_cast<int>(std::count_if(listed.begin(), listed.end(),
                                          [](const ModuleHardware* module) { return module->buffered.Enabled(); }));
}

// The master is known by its identity: it stays the master when the list changes around it.
int SimulatedNetwork::BufferedMasterIndex() {
    return bufferedMaster.empty() ? -1 : Modules().IndexOf(bufferedMaster);
}

void SimulatedNetwork::SetBufferedMaster(int index) {
    RequireConnected();
    RequireBufferedAtRest();
    if (index == -1) {
        bufferedMaster.clear();
        return;
    }
    if (!description.capabilities.bufferedExternal) {
        Refuse(eTavikErrors::NotSupported,
               "Network \"" + Name() + "\" cannot take the triggers of buffered mode from a module.");
    }
    Modules().RequireIndex(index);
    const ModuleHardware& module = modules.HardwareAt(index);
    if (!module.Description().capabilities.bufferedMaster) {
        Refuse(eTavikErrors::NotSupported, "Module " + module.Identity() + " cannot trigger the samples of others.");
    }
    bufferedMaster = module.Identity();
}

void SimulatedNetwork::StartBuffered() {
    RequireConnected();
    if (!description.capabilities.buffered) {
        Refuse(eTavikErrors::NotSupported, "Network \"" + Name() + "\" has no buffered mode.");
    }
    Modules().RequireChangeable();
    if (BufferedEnabledCount() == 0) {
        Refuse(eTavikErrors::NotAvailable, "No module of network \"" + Name() + "\" is enabled for buffered mode.");
    }
    const int master = BufferedMasterIndex();
    const auto listed = modules.Listed();
    const double now = bench.clock.Now();
    for (int index = 0; index < modules.Count(); ++index) {
        const bool takesPart = index == master || listed[static_cast<std::size_t>(index)]->buffered.Enabled();
        if (takesPart) {
            modules.RequireAnswer(index, now);
        }
    }
    bufferedRun.emplace(listed, master, NanosecondsOf(now));
    acquisition.buffered = AcquisitionState::BufferedRunning;
}

void SimulatedNetwork::SampleBuffered() {
    RequireConnected();
    if (acquisition.buffered != AcquisitionState::BufferedRunning) {
        Refuse(eTavikErrors::NotRunning, "Network \"" + Name() + "\" is not collecting readings in buffered mode.");
    }
    const int master = BufferedMasterIndex();
    if (master >= 0) {
        Refuse(eTavikErrors::NotSupported,
               "Module " + bufferedMaster + " triggers the samples of network \"" + Name() + "\", not the controller.");
    }
    bufferedRun->Sample(NanosecondsOf(bench.clock.Now()));
}

void SimulatedNetwork::CollectUntil(double seconds) {
    if (acquisition.buffered == AcquisitionState::BufferedRunning) {
        bufferedRun->CollectUntil(NanosecondsOf(seconds));
    }
    difference.ProgressTo(seconds);
    dynamic.Progress(seconds);
}

} // namespace TavikSimulator
