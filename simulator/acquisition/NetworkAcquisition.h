#pragma once

#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikDynamic.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/SimulatedNetwork.h"

#include <string>

/// Buffered mode of a network.
class TavikLibrary::NetworkBuffered::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("buffered " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Difference mode of a network.
class TavikLibrary::NetworkDifference::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("difference " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Dynamic mode of a network.
class TavikLibrary::TavikDynamic::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("dynamic " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};
