#include "library/TavikDynamic.h"

#include "simulator/acquisition/NetworkAcquisition.h"

namespace TavikLibrary {

TavikDynamic::TavikDynamic(Implementation* network) : implementation(network) {}

TavikDynamic::~TavikDynamic() {
    delete implementation;
}

} // namespace TavikLibrary
