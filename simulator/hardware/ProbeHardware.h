#pragma once

#include "library/TavikModuleKX.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/hardware/ProbePhysics.h"

namespace TavikSimulator {

/// A module that samples, averages and digitises: a probe, laser or air gauge.
class ProbeHardware : public ModuleHardware {
public:
    explicit ProbeHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    /// Duration of all samples of a reading, at least 4 samples.
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
    /// Sets the cut-off frequency of the low-pass filter, in Hz.
    void UseLowPass(double cutoff) { physics.SetLowPassCutoff(cutoff); }
    void UseSignal(const SignalDescription& signal) override;
    const ProbePhysics& Physics() const { return physics; }

private:
    void RequireOnOffer(TavikLibrary::eResolution resolution) const;
    void RequireOnOffer(TavikLibrary::eAveraging averaging) const;

    ProbePhysics physics;
};

} // namespace TavikSimulator
