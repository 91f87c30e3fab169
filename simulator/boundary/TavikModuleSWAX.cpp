#include "library/TavikModuleDigitalIO.h"

namespace TavikLibrary {

TavikModuleSWAX::TavikModuleSWAX(Implementation* module) : TavikModuleDigitalIO(module) {}

TavikModuleSWAX::~TavikModuleSWAX() = default;

} // namespace TavikLibrary
