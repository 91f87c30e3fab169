#include "simulator/acquisition/AcquisitionState.h"

namespace TavikSimulator {

using TavikLibrary::eDynamicState;

bool AcquisitionState::Running() const {
    return buffered == BufferedRunning || difference == DifferenceRunning || dynamic == eDynamicState::Running ||
           dynamic == eDynamicState::Stopping;
}

void AcquisitionState::StopBuffered() {
    if (buffered == BufferedRunning) {
        buffered = BufferedStopped;
    }
}

} // namespace TavikSimulator
