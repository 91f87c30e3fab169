#pragma once

#include "library/TavikDynamic.h"

namespace TavikSimulator {

/// What a network is collecting at the moment.
struct AcquisitionState {
    enum Buffered { BufferedIdle = 0, BufferedRunning = 1, BufferedStopped = 2 };
    enum Difference { DifferenceIdle = 0, DifferenceRunning = 2, DifferenceFinished = 3, DifferenceEnded = 5 };

    Buffered buffered = BufferedIdle;
    Difference difference = DifferenceIdle;
    TavikLibrary::eDynamicState dynamic = TavikLibrary::eDynamicState::Idle;

    bool Running() const;
    /// Does nothing when buffered mode does not run.
    void StopBuffered();
};

} // namespace TavikSimulator
