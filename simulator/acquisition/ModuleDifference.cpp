#include "library/TavikDifference.h"
#include "simulator/acquisition/DifferenceMode.h"

namespace TavikLibrary {

ModuleDifference::ModuleDifference(Implementation* module) : implementation(module) {}

ModuleDifference::~ModuleDifference() {
    delete implementation;
}

} // namespace TavikLibrary
