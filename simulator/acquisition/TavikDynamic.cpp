#include "library/TavikDynamic.h"

#include "simulator/acquisition/DynamicMode.h"

namespace TavikLibrary {

TavikDynamic::TavikDynamic(Implementation* network) : implementation(network) {}

TavikDynamic::~TavikDynamic() {
    delete implementation;
}

} // namespace TavikLibrary
