#pragma once

#include "library/TavikBuffered.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleImplementation.h"

#include <string>

/// Buffered mode of a network.
class TavikLibrary::NetworkBuffered::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("buffered " + owner.Name()) {}

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Buffered mode of one module.
class TavikLibrary::ModuleBuffered::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner), name("buffered " + owner.hardware->Identity()) {}

    TavikModule::Implementation& module;
    const std::string name; ///< in the journal
};
