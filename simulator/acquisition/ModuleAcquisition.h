#pragma once

#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "simulator/modules/ModuleImplementation.h"

/// Buffered mode of one module.
class TavikLibrary::ModuleBuffered::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner), name("buffered " + owner.hardware->Identity()) {}

    TavikModule::Implementation& module;
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
