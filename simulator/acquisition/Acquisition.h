#pragma once

#include "simulator/acquisition/BufferedMode.h"
#include "simulator/acquisition/DifferenceMode.h"
#include "simulator/acquisition/DynamicMode.h"

namespace TavikSimulator {

/// The acquisition modes of one network, of which one runs at a time. Guarded by the bench's lock.
class Acquisition {
public:
    explicit Acquisition(AcquiringNetwork& network) : buffered(network), difference(network), dynamic(network) {}

    bool Running() const;
    /// Takes the readings that are due until a bench time.
    void CollectUntil(Nanoseconds time);
    /// Ends the running mode because the network is disconnected.
    void Disconnect();
    /// Discards the library's state of a module that leaves the list.
    void Forget(const ModuleHardware& module) { difference.Forget(module); }
    /// Discards the library's state of the network.
    void Reset();

    BufferedMode buffered;
    DifferenceMode difference;
    DynamicMode dynamic;
};

} // namespace TavikSimulator
