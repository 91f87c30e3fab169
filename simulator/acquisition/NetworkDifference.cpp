#include "library/TavikDifference.h"
#include "simulator/acquisition/DifferenceMode.h"

namespace TavikLibrary {

NetworkDifference::NetworkDifference(Implementation* network) : implementation(network) {}

NetworkDifference::~NetworkDifference() {
    delete implementation;
}

int NetworkDifference::Status() {
    Implementation& self = *implementation;
    return self.network.Call(self.name, "Status",
                             [&self] { return static_cast<int>(self.network.acquisition.difference); });
}

void NetworkDifference::Stop() {
    Implementation& self = *implementation;
    self.network.Call(self.name, "Stop", [&self] { self.network.acquisition.StopDifference(); });
}

} // namespace TavikLibrary
