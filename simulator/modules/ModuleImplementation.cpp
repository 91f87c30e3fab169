#include "simulator/modules/ModuleImplementation.h"

#include "library/TavikException.h"
#include "simulator/acquisition/BufferedMode.h"
#include "simulator/acquisition/DifferenceMode.h"
#include "simulator/bench/ErrorTexts.h"
#include "simulator/modules/StatusImplementation.h"

#include <utility>

namespace TavikLibrary {

TavikModule::Implementation::Implementation(TavikSimulator::Bench& ownerBench,
                                            TavikSimulator::SimulatedNetwork& ownerNetwork,
                                            std::shared_ptr<TavikSimulator::ModuleHardware> moduleHardware)
    : bench(ownerBench),
      network(ownerNetwork),
      hardware(std::move(moduleHardware)),
      name("module " + hardware->Identity()),
      status(std::make_unique<TavikModuleStatus>(new TavikModuleStatus::Implementation(*this))),
      buffered(std::make_unique<ModuleBuffered>(new ModuleBuffered::Implementation(*this))),
      difference(std::make_unique<ModuleDifference>(new ModuleDifference::Implementation(*this))) {}

TavikModule::Implementation::~Implementation() = default;

const TavikSimulator::Reading& TavikModule::Implementation::Read(std::optional<int> code) {
    if (network.acquisition.difference == TavikSimulator::AcquisitionState::DifferenceRunning) {
        // The modules are busy with readings of their own.
        network.RequireNotCollecting();
    }
    hardware->RequireReadable();
    last = hardware->ReadAt(bench.clock.Now());
    if (!code && TavikSimulator::ComesWithoutReading(last.code)) {
        TavikSimulator::Refuse(static_cast<eTavikErrors>(last.code), "Module " + hardware->Identity() +
                                                                         " gives no reading. " +
                                                                         TavikSimulator::ErrorDescription(last.code));
    }
    last.code = code.value_or(last.code);
    return last;
}

void TavikModule::Implementation::KeepReadingOf(double seconds) {
    if (!hardware->Answers(seconds)) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        return;
    }
    try {
        hardware->RequireReadable();
        last = hardware->ReadAt(seconds);
    } catch (const TavikException& exception) {
        last.code = exception.errorCode;
    }
}

void TavikModule::Implementation::RequireListed() {
    if (removed) {
        bench.callsOnRemovedModules.fetch_add(1);
        TavikSimulator::Refuse(eTavikErrors::ModuleRemoved, "Module " + hardware->Identity() +
                                                                " has been removed from the list of network \"" +
                                                                network.Name() + "\".");
    }
}

void TavikModule::Implementation::RequireAnswer() {
    RequireListed();
    network.RequireConnected();
    if (!hardware->Answers(bench.clock.Now())) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        TavikSimulator::Refuse(eTavikErrors::ModuleNotResponding, "Module " + hardware->Identity() + " on network \"" +
                                                                      network.Name() + "\" does not answer.");
    }
}

} // namespace TavikLibrary
