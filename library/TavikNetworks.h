#pragma once

namespace TavikLibrary {

class TavikNetwork;

/// The networks found on this computer.
class TavikNetworks {
public:
    class Implementation;
    explicit TavikNetworks(Implementation* implementation);
    ~TavikNetworks();
    TavikNetworks(const TavikNetworks&) = delete;
    TavikNetworks& operator=(const TavikNetworks&) = delete;

    /// Looks for controllers. Networks already known keep their place and their pointers.
    void FindNetworks();
    int Count();
    /// The network at a position, 0 to Count() - 1. Throws TavikException beyond.
    TavikNetwork* Network(unsigned int index);
    /// Connects every network. One that cannot be connected stays disconnected, without an exception.
    void ConnectAll();
    void DisconnectAll();

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
