#include "simulator/boundary/ModuleImplementation.h"

#include "simulator/boundary/BufferedImplementation.h"
#include "simulator/boundary/DifferenceImplementation.h"
#include "simulator/boundary/StatusImplementation.h"
#include "simulator/hardware/ErrorTexts.h"

namespace TavikLibrary {

TavikModule::Implementation::Implementation(TavikSimulator::Bench& ownerBench,
                                            TavikSimulator::SimulatedNetwork& ownerNetwork,
                                            TavikSimulator::ListedModule& listedModule)
    : bench(ownerBench),
      network(ownerNetwork),
      listed(listedModule),
      hardware(listed.hardware),
      name("module " + hardware->Identity()),
      status(std::make_unique<TavikModuleStatus>(new TavikModuleStatus::Implementation(*this))),
      buffered(std::make_unique<ModuleBuffered>(new ModuleBuffered::Implementation(*this))),
      difference(std::make_unique<ModuleDifference>(new ModuleDifference::Implementation(*this))) {}

TavikModule::Implementation::~Implementation() = default;

const TavikSimulator::Reading& TavikModule::Implementation::Read(std::optional<int> code) {
    if (network.acquisition.difference.Running()) {
        // In difference mode the modules read by themselves.
        network.RequireNotCollecting();
    }
    hardware->RequireReadable();
    TavikSimulator::Reading& last = listed.last;
    last = hardware->ReadAt(bench.clock.Now());
    if (!code && TavikSimulator::ComesWithoutReading(last.code)) {
        TavikSimulator::Reject(static_cast<eTavikErrors>(last.code), "Module " + hardware->Identity() +
                                                                         " gives no reading. " +
                                                                         TavikSimulator::ErrorDescription(last.code));
    }
    last.code = code.value_or(last.code);
    return last;
}

void TavikModule::Implementation::RequireListed() {
    if (listed.removed) {
        bench.callsOnRemovedModules.fetch_add(1);
        TavikSimulator::Reject(eTavikErrors::ModuleRemoved, "Module " + hardware->Identity() +
                                                                " has been removed from the list of network \"" +
                                                                network.Name() + "\".");
    }
}

void TavikModule::Implementation::RequireAnswer() {
    RequireListed();
    network.RequireConnected();
    listed.RequireAnswer(bench.clock.Now(), network.Name());
}

} // namespace TavikLibrary
