#pragma once

#include "library/TavikModule.h"

#include <memory>

namespace TavikSimulator {

/// An object of the class by which the library represents modules of a type; it owns its implementation. Null
/// for Unknown.
std::unique_ptr<TavikLibrary::TavikModule> MakeModule(TavikLibrary::eModuleType type,
                                                      TavikLibrary::TavikModule::Implementation* implementation);

} // namespace TavikSimulator
