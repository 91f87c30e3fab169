#include "library/TavikModuleRN.h"

namespace TavikLibrary {

TavikModuleRN::TavikModuleRN(Implementation* module) : TavikModule(module) {}

TavikModuleRN::~TavikModuleRN() = default;

} // namespace TavikLibrary
