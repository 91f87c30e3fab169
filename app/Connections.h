#pragma once

namespace TavikLibrary {
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

// Connecting and disconnecting. Before a network is disconnected its acquisition is stopped: a running buffered
// collection, difference mode, and the dynamic collections, which are the server's. All but ShutDown throw what the
// library throws.

void DisconnectNetwork(TavikLibrary::TavikServer& server, TavikLibrary::TavikNetwork* network);
void DisconnectAllNetworks(TavikLibrary::TavikServer& server);

/// Disconnects every network, looks for networks and connects them.
void ReconnectAllNetworks(TavikLibrary::TavikServer& server);

/// Cancels, stops and disconnects everything, as the program ends. A step that fails does not keep the later
/// ones from being made; nobody is left to be told of it. Takes half a second, so that runs wind down.
void ShutDown(TavikLibrary::TavikServer& server);
