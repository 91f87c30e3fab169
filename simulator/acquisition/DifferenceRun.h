#pragma once

#include "library/TavikModule.h"

#include <memory>

namespace TavikSimulator {

class Bench;
class SimulatedNetwork;

/// Difference mode of a network: every module that takes part accumulates its readings by itself, at a rate of its
/// own, from Start to Stop. The run ends by itself when one of them does not answer any more; it has to be stopped
/// then, too. Guarded by the bench's lock.
class DifferenceRun {
public:
    DifferenceRun(Bench& bench, SimulatedNetwork& network);
    ~DifferenceRun();
    DifferenceRun(const DifferenceRun&) = delete;
    DifferenceRun& operator=(const DifferenceRun&) = delete;

    /// How many modules of the list are enabled.
    int EnabledCount() const;
    /// How many modules take part in the run that is on, or is still to be stopped; 0 without one.
    int TakingPart() const;
    /// Throws TavikException, and begins nothing, when it cannot begin.
    void Start();
    /// Ends the run, and fetches what its modules have accumulated. Does nothing when there is none.
    void Stop();
    /// The network is gone; what was not fetched is lost.
    void Abandon();
    /// Takes the readings that were due until a bench time.
    void ProgressTo(double seconds);
    /// Fetches what a module has accumulated so far. Throws TavikException when it does not answer. Does nothing for
    /// a module that takes no part.
    void Fetch(TavikLibrary::TavikModule::Implementation& module);

private:
    class Collection;

    void RequireStartable() const;

    Bench& bench;
    SimulatedNetwork& network;
    std::unique_ptr<Collection> collection; ///< from Start to Stop
};

} // namespace TavikSimulator
