#include "library/TavikNetworks.h"

#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/NetworkImplementation.h"
#include "simulator/boundary/NetworksImplementation.h"
#include "simulator/hardware/ErrorTexts.h"

#include <string>

namespace TavikLibrary {

using TavikSimulator::NoWait;

TavikNetwork* TavikNetworks::Implementation::NetworkObject(TavikSimulator::SimulatedNetwork& network) {
    if (!network.object) {
        network.object = std::make_unique<TavikNetwork>(new TavikNetwork::Implementation(bench, network));
    }
    return network.object.get();
}

TavikNetworks::TavikNetworks(Implementation* networks) : implementation(networks) {}

TavikNetworks::~TavikNetworks() {
    delete implementation;
}

void TavikNetworks::FindNetworks() {
    implementation->Call("FindNetworks", NoWait{}, [this] {
        for (const auto& network : implementation->bench.Networks()) {
            if (network->IsPresent() && !network->known) {
                network->known = true;
                implementation->found.push_back(network.get());
            }
        }
    });
}

int TavikNetworks::Count() {
    return implementation->Call("Count", NoWait{}, [this] { return static_cast<int>(implementation->found.size()); });
}

TavikNetwork* TavikNetworks::Network(unsigned int index) {
    return implementation->Call(
        "Network", NoWait{},
        [&] {
            const auto& found = implementation->found;
            if (index >= found.size()) {
                TavikSimulator::Reject(eTavikErrors::ControllerNotFound,
                                       "There is no network at position " + std::to_string(index) + "; " +
                                           std::to_string(found.size()) + " are known.");
            }
            return implementation->NetworkObject(*found[index]);
        },
        index);
}

void TavikNetworks::ConnectAll() {
    const auto wait = [this] {
        TavikSimulator::Nanoseconds time{};
        for (const auto* network : implementation->Found()) {
            time += network->ConnectTime();
        }
        implementation->bench.clock.Wait(time);
    };
    implementation->Call("ConnectAll", wait, [this] {
        for (auto* network : implementation->found) {
            network->Connect();
        }
    });
}

void TavikNetworks::DisconnectAll() {
    implementation->Call("DisconnectAll", NoWait{}, [this] {
        for (auto* network : implementation->found) {
            network->Disconnect();
        }
    });
}

} // namespace TavikLibrary
