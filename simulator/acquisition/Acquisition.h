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
    /// Takes the readings that are due until a bench time, in seconds.
    void CollectUntil(Nanoseconds time);
    /// Ends what runs because the network is disconnected.
    void Disconnect();
    /// A module leaves the list: what the library keeps of it is lost.
    void Forget(const ModuleHardware& module) { difference.Forget(module); }
    /// The library ends: what it keeps of the network is lost.
    void Reset();

    BufferedMode buffered;
    DifferenceMode difference;
    DynamicMode dynamic;
};

} // namespace TavikSimulator
