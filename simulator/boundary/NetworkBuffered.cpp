#include "library/TavikBuffered.h"
#include "simulator/boundary/BufferedImplementation.h"

namespace TavikLibrary {

NetworkBuffered::NetworkBuffered(Implementation* network) : implementation(network) {}

NetworkBuffered::~NetworkBuffered() {
    delete implementation;
}

int NetworkBuffered::EnabledCount() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "EnabledCount", [&self] { return self.Mode().EnabledCount(); });
}

int NetworkBuffered::Status() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Status", [&self] { return static_cast<int>(self.Mode().CurrentState()); });
}

int NetworkBuffered::MasterIndex() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "MasterIndex", [&self] { return self.Mode().MasterIndex(); });
}

void NetworkBuffered::setMasterIndex(int index) {
    Implementation& self = *implementation;
    self.network.Call(
        self.name, "setMasterIndex", [&] { self.Mode().SetMaster(index); }, index);
}

void NetworkBuffered::Start() {
    Implementation& self = *implementation;
    self.network.CallTaking(
        self.name, "Start", [&self] { return self.Mode().EnabledCount(); }, [&self] { self.Mode().Start(); });
}

void NetworkBuffered::Sample() {
    Implementation& self = *implementation;
    self.network.CallAfter(
        self.name, "Sample", [&self] { self.network.SpendTransactions(1); }, [&self] { self.Mode().Sample(); });
}

void NetworkBuffered::Stop() {
    Implementation& self = *implementation;
    self.network.Call(self.name, "Stop", [&self] { self.Mode().Stop(); });
}

} // namespace TavikLibrary
