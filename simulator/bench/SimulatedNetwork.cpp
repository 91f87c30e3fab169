#include "simulator/bench/SimulatedNetwork.h"

#include "library/TavikException.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eNetSpeed;
using TavikLibrary::eTavikErrors;

Nanoseconds TransactionTime(eNetSpeed speed) {
    using std::chrono::microseconds;
    switch (speed) {
    case eNetSpeed::Low:
        return microseconds(2500);
    case eNetSpeed::Medium:
        return microseconds(1200);
    case eNetSpeed::High:
        return microseconds(350);
    case eNetSpeed::UltraHigh:
        return microseconds(200);
    }
    return Nanoseconds::zero();
}

Nanoseconds ReadBurstTime(eNetSpeed speed, int modules) {
    // A transaction is a question, a pause and an answer. The command takes half a transaction, as a question does; an
    // answer takes a quarter, because there is no pause.
    return TransactionTime(speed) / 2 + modules * TransactionTime(speed) / 4;
}

SimulatedNetwork::SimulatedNetwork(Bench& ownerBench, const NetworkDescription& networkDescription)
    : bench(ownerBench),
      description(networkDescription),
      controllerID(description.controller),
      text(description.description),
      speed(description.speed),
      present(description.present),
      failedTriesLeft(description.failedTries),
      modules(ownerBench, *this, description.modules) {}

SimulatedNetwork::~SimulatedNetwork() = default;

void SimulatedNetwork::RequireConnected() const {
    if (!connected) {
        Reject(eTavikErrors::NetworkNotConnected, "Network \"" + Name() + "\" is not connected.");
    }
}

void SimulatedNetwork::RequireNotCollecting() const {
    if (acquisition.Running()) {
        Reject(eTavikErrors::AcquisitionRunning, "Network \"" + Name() + "\" is collecting readings; stop that first.");
    }
}

void SimulatedNetwork::Connect() {
    if (connected || !present || !description.connects) {
        return;
    }
    if (failedTriesLeft > 0) {
        --failedTriesLeft;
        return;
    }
    connected = true;
    controllerID = description.connectedController.value_or(controllerID);
    text = description.connectedDescription.value_or(text);
}

void SimulatedNetwork::Disconnect() {
    connected = false;
    modules.CancelNotifying();
    acquisition.Disconnect();
}

void SimulatedNetwork::SetPresent(bool nowPresent) {
    present = nowPresent;
    if (!present) {
        Disconnect();
    }
}

bool SimulatedNetwork::ControllerCanWorkAt(eNetSpeed wanted) const {
    const auto& speeds = description.speeds;
    return std::find(speeds.begin(), speeds.end(), wanted) != speeds.end();
}

void SimulatedNetwork::SetSpeed(eNetSpeed wanted) {
    const std::string name = TavikLibrary::eNetSpeed_ToString(wanted);
    if (Modules().Notifying()) {
        Reject(eTavikErrors::NotifyRunning,
               "A notify run is going on on network \"" + Name() + "\"; stop it before setting the speed.");
    }
    RequireNotCollecting();
    if (!ControllerCanWorkAt(wanted)) {
        Reject(eTavikErrors::SpeedNotAvailable,
               "The controller of network \"" + Name() + "\" cannot work at the speed " + name + ".");
    }
    for (int i = 0; i < modules.Count(); ++i) {
        if (!modules.HardwareAt(i).CanWorkAt(wanted)) {
            Reject(eTavikErrors::SpeedNotAvailable, "Module " + modules.HardwareAt(i).Identity() + " on network \"" +
                                                        Name() + "\" cannot work at the speed " + name + ".");
        }
    }
    speed = wanted;
}

StoredNetwork SimulatedNetwork::Stored() {
    return {Name(), speed, Modules().Stored(bench.clock.Now()), 0};
}

void SimulatedNetwork::Restore(const StoredNetwork& stored, const std::string& file) {
    WithFileAndLine(file, stored.line, [&] {
        if (stored.name != Name()) {
            Reject(eTavikErrors::InvalidArgument,
                   "It describes the network \"" + stored.name + "\", not \"" + Name() + "\".");
        }
        if (!ControllerCanWorkAt(stored.speed)) {
            Reject(eTavikErrors::SpeedNotAvailable,
                   "The controller cannot work at the speed " + TavikLibrary::eNetSpeed_ToString(stored.speed) + ".");
        }
        Modules().RequireRestorable(stored.modules);
    });
    const Nanoseconds now = bench.clock.Now();
    for (const StoredModule& module : stored.modules) {
        WithFileAndLine(file, module.line, [&] { Modules().RequireRestorable(module, stored.speed, now); });
    }
    Modules().Restore(stored.modules, now);
    speed = stored.speed;
}

void SimulatedNetwork::SpendTransactions(int count) {
    bench.clock.WaitOn(bus, count * TransactionTime(Speed()));
}

void SimulatedNetwork::SpendReadBurst(int count) {
    bench.clock.WaitOn(bus, ReadBurstTime(Speed(), count));
}

ModuleList& SimulatedNetwork::Modules() {
    if (modules.Notifying()) {
        modules.ProgressNotifying(bench.clock.Now());
    }
    return modules;
}

int SimulatedNetwork::ReadBurstCapableCount() {
    const ModuleList& list = Modules();
    int count = 0;
    while (count < list.Count() && list.HardwareAt(count).Description().capabilities.readBurst) {
        ++count;
    }
    return count;
}

int SimulatedNetwork::ReadBurst(int& count) {
    if (!description.capabilities.readBurst) {
        return static_cast<int>(eTavikErrors::NotSupported);
    }
    if (Modules().Notifying()) {
        return static_cast<int>(eTavikErrors::NotifyRunning);
    }
    if (acquisition.Running()) {
        return static_cast<int>(eTavikErrors::AcquisitionRunning);
    }
    const Nanoseconds instant = bench.clock.Now();
    const int capable = ReadBurstCapableCount();
    for (int i = 0; i < capable; ++i) {
        modules.At(static_cast<unsigned int>(i)).KeepReadingOf(instant);
    }
    count = capable;
    return static_cast<int>(eTavikErrors::NoError);
}

void SimulatedNetwork::EndObjects() {
    acquisition.Reset();
    modules.EndObjects();
    object.reset();
}

} // namespace TavikSimulator
