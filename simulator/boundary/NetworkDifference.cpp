#include "library/TavikDifference.h"
#include "simulator/bench/Bench.h"
#include "simulator/boundary/DifferenceImplementation.h"

#include <mutex>

namespace TavikLibrary {

NetworkDifference::NetworkDifference(Implementation* network) : implementation(network) {}

NetworkDifference::~NetworkDifference() {
    delete implementation;
}

int NetworkDifference::Status() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Status", [&self] { return static_cast<int>(self.Mode().CurrentState()); });
}

int NetworkDifference::Count() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Count", [&self] { return self.Mode().EnabledCount(); });
}

void NetworkDifference::Start() {
    Implementation& self = *implementation;
    self.bench.gate.Call(
        self.name, "Start", [&self] { self.network.SpendTransactions(1); }, [&self] { self.Mode().Start(); });
}

void NetworkDifference::Stop() {
    Implementation& self = *implementation;
    self.bench.gate.Call(
        self.name, "Stop", [&self] { self.SpendFetching(); }, [&self] { self.Mode().Stop(); });
}

void NetworkDifference::Implementation::SpendFetching() {
    int modules = 0;
    {
        const std::lock_guard lock(bench.gate.mutex);
        modules = Mode().TakingPart();
    }
    network.SpendTransactions(modules);
}

} // namespace TavikLibrary
