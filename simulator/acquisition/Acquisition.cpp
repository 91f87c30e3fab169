#include "simulator/acquisition/Acquisition.h"

namespace TavikSimulator {

bool Acquisition::Running() const {
    return buffered.Running() || difference.Running() || dynamic.Running();
}

void Acquisition::CollectUntil(Nanoseconds time) {
    buffered.CollectUntil(time);
    difference.CollectUntil(time);
    dynamic.CollectUntil(time);
}

void Acquisition::Disconnect() {
    buffered.Stop();
    difference.Abandon();
    dynamic.Disconnect();
}

void Acquisition::Reset() {
    difference.Reset();
    dynamic.Reset();
}

} // namespace TavikSimulator
