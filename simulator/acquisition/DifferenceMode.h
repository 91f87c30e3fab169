#pragma once

#include "library/TavikDifference.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleImplementation.h"

#include <string>

/// Difference mode of a network.
class TavikLibrary::NetworkDifference::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("difference " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Difference mode of one module.
class TavikLibrary::ModuleDifference::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner), name("difference " + owner.hardware->Identity()) {}

    TavikModule::Implementation& module;
    const std::string name; ///< in the journal
};
