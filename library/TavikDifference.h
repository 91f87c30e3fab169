#pragma once

#include <cstdint>

namespace TavikLibrary {

/// Difference mode of one module: extremes, sum and number of its readings from start to stop.
class ModuleDifference {
public:
    class Implementation;
    explicit ModuleDifference(Implementation* implementation);
    ~ModuleDifference();
    ModuleDifference(const ModuleDifference&) = delete;
    ModuleDifference& operator=(const ModuleDifference&) = delete;

    bool Enabled();
    /// Throws TavikException for a module that is not difference capable, and while a run is on.
    void setEnabled(bool enabled);
    /// Fetches the current values from a module that is in a run; the others answer from the last fetch.
    void ReadDifference();
    int MaxCounts();
    int MinCounts();
    int DiffCounts();
    std::int64_t SumCounts();
    int ReadingCount();
    double Max();
    double Min();
    double Sum();
    double Diff();
    /// Result code of the run.
    int Error();

private:
    Implementation* implementation;
};

/// Difference mode of a whole network.
class NetworkDifference {
public:
    class Implementation;
    explicit NetworkDifference(Implementation* implementation);
    ~NetworkDifference();
    NetworkDifference(const NetworkDifference&) = delete;
    NetworkDifference& operator=(const NetworkDifference&) = delete;

    /// 0 idle, 2 running, 3 finished with results, 5 ended but still to be stopped.
    int Status();
    /// Number of enabled modules.
    int Count();
    /// Begins a run of all enabled modules. Throws TavikException, and begins nothing, when there is none, when one
    /// of them does not answer, and while the network collects readings already.
    void Start();
    /// Ends the run and fetches the results of all modules that took part. Does nothing when no run is on.
    void Stop();

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
