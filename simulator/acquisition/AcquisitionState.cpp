#include "simulator/acquisition/AcquisitionState.h"

namespace TavikSimulator {

using TavikLibrary::eDynamicState;

bool AcquisitionState::Running() const {
    return buffered == BufferedRunning || difference == DifferenceRunning || dynamic == eDynamicState::Running;
}

void AcquisitionState::StopBuffered() {
    if (buffered == BufferedRunning) {
        buffered = BufferedStopped;
    }
}

void AcquisitionState::StopDynamic() {
    if (dynamic == eDynamicState::Running || dynamic == eDynamicState::Stopping) {
        dynamic = eDynamicState::ResultsAvailable;
    }
}

void AcquisitionState::StopAll() {
    StopBuffered();
    StopDynamic();
}

} // namespace TavikSimulator
