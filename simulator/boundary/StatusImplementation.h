#pragma once

#include "simulator/boundary/ModuleImplementation.h"

#include <string>

/// Status of a module at its last update.
class TavikLibrary::TavikModuleStatus::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner), name("status " + owner.hardware->Identity()) {}

    TavikModule::Implementation& module;
    const std::string name; ///< in the journal
    int status = 0;
    int errorCode = 0;
};
