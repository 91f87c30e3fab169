#include "library/TavikBuffered.h"
#include "simulator/acquisition/BufferedMode.h"

namespace TavikLibrary {

NetworkBuffered::NetworkBuffered(Implementation* network) : implementation(network) {}

NetworkBuffered::~NetworkBuffered() {
    delete implementation;
}

int NetworkBuffered::EnabledCount() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "EnabledCount", [&self] { return self.network.BufferedEnabledCount(); });
}

int NetworkBuffered::Status() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Status",
                             [&self] { return static_cast<int>(self.network.acquisition.buffered); });
}

int NetworkBuffered::MasterIndex() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "MasterIndex", [&self] { return self.network.BufferedMasterIndex(); });
}

void NetworkBuffered::setMasterIndex(int index) {
    Implementation& self = *implementation;
    self.network.Call(
        self.name, "setMasterIndex", [&] { self.network.SetBufferedMaster(index); }, index);
}

void NetworkBuffered::Start() {
    Implementation& self = *implementation;
    self.network.CallTaking(
        self.name, "Start", [&self] { return self.network.BufferedEnabledCount(); },
        [&self] { self.network.StartBuffered(); });
}

void NetworkBuffered::Sample() {
    Implementation& self = *implementation;
    self.network.CallAfter(
        self.name, "Sample", [&self] { self.network.SpendTransactions(1); },
        [&self] { self.network.SampleBuffered(); });
}

void NetworkBuffered::Stop() {
    Implementation& self = *implementation;
    self.network.Call(self.name, "Stop", [&self] { self.network.acquisition.StopBuffered(); });
}

} // namespace TavikLibrary
