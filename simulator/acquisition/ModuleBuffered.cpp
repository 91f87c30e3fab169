#include "library/TavikBuffered.h"
#include "simulator/acquisition/BufferedMode.h"

namespace TavikLibrary {

ModuleBuffered::ModuleBuffered(Implementation* module) : implementation(module) {}

ModuleBuffered::~ModuleBuffered() {
    delete implementation;
}

} // namespace TavikLibrary
