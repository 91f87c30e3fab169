#pragma once

#include "library/TavikDynamic.h"
#include "simulator/bench/SimulatedNetwork.h"

#include <string>

/// Dynamic mode of a network.
class TavikLibrary::TavikDynamic::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("dynamic " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};
