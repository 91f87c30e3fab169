#include "app/Connections.h"

#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/common/LastResort.h"
#include "panels/common/Wait.h"

using TavikLibrary::TavikNetwork;
using TavikLibrary::TavikNetworks;
using TavikLibrary::TavikServer;

namespace {

/// What the buffered controller's Status() answers during a collection.
constexpr int bufferedRunning = 1;

template <class Calls>
void ForEachNetwork(TavikServer& server, Calls&& calls) {
    LastResort::Run([&] {
        TavikNetworks* networks = server.Networks();
        const int count = networks->Count();
        // A count that is wrong ends here, and not in a box for each network that does not exist.
        constexpr int mostFailuresInARow = 4;
        int failures = 0;
        for (int index = 0; index < count && failures < mostFailuresInARow; ++index) {
            calls([networks, index, &failures] {
                ++failures;
                TavikNetwork* network = networks->Network(static_cast<unsigned int>(index));
                failures = 0;
                return network;
            });
        }
    });
}

void StopAcquisition(TavikNetwork* network) {
    LastResort::Run([network] {
        if (network->Buffered()->Status() == bufferedRunning) {
            network->Buffered()->Stop();
        }
    });
    LastResort::Run([network] { network->Difference()->Stop(); });
}

/// A network that cannot say whether it is connected may be.
bool MayBeConnected(TavikNetwork* network) {
    bool connected = true;
    LastResort::Run([&] { connected = network->IsConnected(); });
    return connected;
}

void StopAllDynamic(TavikServer& server) {
    LastResort::Run([&server] { server.StopAllDynamic(); });
}

} // namespace

bool ToggleConnection(TavikServer& server, TavikNetwork* network) {
    if (network->IsConnected()) {
        StopAcquisition(network);
        StopAllDynamic(server);
        network->Disconnect();
        return true;
    }
    network->Connect();
    return network->IsConnected();
}

void DisconnectAllNetworks(TavikServer& server) {
    ForEachNetwork(server, [](auto&& network) {
        LastResort::Run([&] {
            TavikNetwork* stopped = network();
            if (MayBeConnected(stopped)) {
                StopAcquisition(stopped);
            }
        });
    });
    StopAllDynamic(server);
    LastResort::Run([&server] { server.Networks()->DisconnectAll(); });
}

bool ReconnectAllNetworks(TavikServer& server) {
    DisconnectAllNetworks(server);
    LastResort::Run([&server] { server.Networks()->FindNetworks(); });
    bool allConnected = true;
    LastResort::Run([&] {
        TavikNetworks* networks = server.Networks();
        networks->ConnectAll();
        for (int index = 0; allConnected && index < networks->Count(); ++index) {
            allConnected = networks->Network(static_cast<unsigned int>(index))->IsConnected();
        }
    });
    return allConnected;
}

void ShutDown(TavikServer& server) {
    constexpr unsigned int windDownMicroseconds = 500000;
    ForEachNetwork(server, [](auto&& network) {
        LastResort::Run([&] { network()->CancelNotifying(); });
        LastResort::Run([&] { StopAcquisition(network()); });
    });
    StopAllDynamic(server);
    SleepMicroseconds(windDownMicroseconds);
    LastResort::Run([&server] { server.Networks()->DisconnectAll(); });
}
