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

void AcquisitionState::StopDifference() {
    if (difference == DifferenceRunning || difference == DifferenceEnded) {
        difference = DifferenceFinished;
    }
}

void AcquisitionState::StopAll() {
    StopBuffered();
    StopDifference();
}

} // namespace TavikSimulator
