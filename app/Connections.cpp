#include "app/Connections.h"

#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Wait.h"

using TavikLibrary::TavikNetwork;
using TavikLibrary::TavikNetworks;
using TavikLibrary::TavikServer;

namespace {

/// What the buffered controller's Status() answers during a collection.
constexpr int bufferedRunning = 1;

TavikNetwork* NetworkAt(TavikNetworks* networks, int index) {
    return networks->Network(static_cast<unsigned int>(index));
}

void StopAcquisition(TavikNetwork* network) {
    if (network->Buffered()->Status() == bufferedRunning) {
        network->Buffered()->Stop();
    }
    network->Difference()->Stop();
}

} // namespace

void DisconnectNetwork(TavikServer& server, TavikNetwork* network) {
    StopAcquisition(network);
    server.StopAllDynamic();
    network->Disconnect();
}

void DisconnectAllNetworks(TavikServer& server) {
    TavikNetworks* networks = server.Networks();
    for (int index = 0; index < networks->Count(); ++index) {
        StopAcquisition(NetworkAt(networks, index));
    }
    server.StopAllDynamic();
    networks->DisconnectAll();
}

void ReconnectAllNetworks(TavikServer& server) {
    DisconnectAllNetworks(server);
    TavikNetworks* networks = server.Networks();
    networks->FindNetworks();
    networks->ConnectAll();
}

void ShutDown(TavikServer& server) {
    constexpr unsigned int windDownMicroseconds = 500000;
    IgnoreErrors([&] {
        TavikNetworks* networks = server.Networks();
        const int count = networks->Count();
        for (int index = 0; index < count; ++index) {
            IgnoreErrors([&] { NetworkAt(networks, index)->CancelNotifying(); });
            IgnoreErrors([&] { StopAcquisition(NetworkAt(networks, index)); });
        }
    });
    IgnoreErrors([&] { server.StopAllDynamic(); });
    SleepMicroseconds(windDownMicroseconds);
    IgnoreErrors([&] { server.Networks()->DisconnectAll(); });
}
