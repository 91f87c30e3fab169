#pragma once

#include "library/TavikModule.h"

#include <memory>

namespace TavikSimulator {

/// Creates an object of the library's class for a module type; it owns its implementation. Null for Unknown.
std::unique_ptr<TavikLibrary::TavikModule> MakeModule(TavikLibrary::eModuleType type,
                                                      TavikLibrary::TavikModule::Implementation* implementation);

} // namespace TavikSimulator
