#pragma once

namespace TavikLibrary {
class TavikNetwork;
class TavikNetworks;
class TavikServer;
} // namespace TavikLibrary

// Connecting and disconnecting networks. Before a connected network is disconnected its acquisition is stopped: a
// running buffered collection, difference mode, and the dynamic collections, which are the server's. Each step is made
// whether or not an earlier one failed; failures go to the top-level exception handler..

/// Disconnects a network that is connected and connects one that is not. Returns false if the library did not throw and
/// the network is not connected all the same.
bool ToggleConnection(TavikLibrary::TavikServer& server, TavikLibrary::TavikNetwork* network);

void DisconnectAllNetworks(TavikLibrary::TavikServer& server);

/// Disconnects every network, looks for networks and connects them. Returns false if the library did not throw and a
/// network is not connected all the same.
bool ReconnectAllNetworks(TavikLibrary::TavikServer& server);

/// Cancels, stops and disconnects everything, as the program ends. Takes half a second, so that runs wind down.
void ShutDown(TavikLibrary::TavikServer& server);
