#pragma once

#include "library/TavikModuleKX.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/hardware/ProbePhysics.h"

namespace TavikSimulator {

/// A module that samples, averages and digitises as a probe does: the probe itself, and the lasers and
/// air gauges that are built like one.
class ProbeHardware : public ModuleHardware {
public:
    explicit ProbeHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    /// The time in which all samples of a reading are collected anew, and never less than that of 4 samples.
    Nanoseconds ReadingPeriod() const override;
    double CountsPerUnit() const override;
    void PowerOn(Nanoseconds time) override;

    TavikLibrary::eResolution Resolution() const;
    TavikLibrary::eAveraging Averaging() const;
    /// Both throw TavikException, and change nothing, for a value that is not on offer.
    void SetResolution(TavikLibrary::eResolution resolution, Nanoseconds time);
    void SetAveraging(TavikLibrary::eAveraging averaging, Nanoseconds time);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    /// Filters the samples from now on; in Hz.
    void UseLowPass(double cutoff) { physics.SetLowPassCutoff(cutoff); }
    void UseSignal(const SignalDescription& signal) override;
    const ProbePhysics& Physics() const { return physics; }

private:
    void RequireOnOffer(TavikLibrary::eResolution resolution) const;
    void RequireOnOffer(TavikLibrary::eAveraging averaging) const;

    ProbePhysics physics;
};

} // namespace TavikSimulator
