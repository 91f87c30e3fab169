#include "library/TavikNetwork.h"
#include "simulator/bench/NetworkImplementation.h"
#include "simulator/modules/ModuleImplementation.h"

#include <mutex>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

double ReadBurstTime(TavikLibrary::eNetSpeed speed, int modules) {
    // A transaction is a question, a pause and an answer. The command takes as long as a question, and an answer
    // takes half of that, because nothing has to be waited for.
    constexpr double command = 0.5;
    constexpr double answer = 0.25;
    return (command + answer * modules) * TransactionTime(speed);
}

void SimulatedNetwork::SpendReadBurst(int count) {
    bench.clock.WaitOn(bus, ReadBurstTime(Speed(), count));
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
    const double instant = bench.clock.Now();
    const int capable = ReadBurstCapableCount();
    for (int i = 0; i < capable; ++i) {
        modules.ImplementationAt(i).KeepReadingOf(instant);
    }
    count = capable;
    return static_cast<int>(eTavikErrors::NoError);
}

} // namespace TavikSimulator

namespace TavikLibrary {

void TavikNetwork::Implementation::SpendReadBurst() {
    int modules = 0;
    {
        const std::lock_guard lock(bench.gate.mutex);
        modules = network.ReadBurstCapableCount();
    }
    network.SpendReadBurst(modules);
}

int TavikNetwork::Readburst(int& count) {
    return implementation->ConnectedAfter(
        "Readburst", [this] { implementation->SpendReadBurst(); },
        [&] { return implementation->network.ReadBurst(count); });
}

} // namespace TavikLibrary
