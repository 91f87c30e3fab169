#include "library/TavikBuffered.h"
#include "simulator/acquisition/BufferedMode.h"

namespace TavikLibrary {

NetworkBuffered::NetworkBuffered(Implementation* network) : implementation(network) {}

NetworkBuffered::~NetworkBuffered() {
    delete implementation;
}

int NetworkBuffered::Status() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Status",
                             [&self] { return static_cast<int>(self.network.acquisition.buffered); });
}

void NetworkBuffered::Stop() {
    Implementation& self = *implementation;
    self.network.Call(self.name, "Stop", [&self] { self.network.acquisition.StopBuffered(); });
}

} // namespace TavikLibrary
