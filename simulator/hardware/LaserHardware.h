#pragma once

#include "library/TavikModuleLaser.h"
#include "simulator/hardware/ProbeHardware.h"

namespace TavikSimulator {

/// A laser with a switched beam; without its beam it has no reading (BeamOff).
class LaserHardware : public ProbeHardware {
public:
    explicit LaserHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;

    bool BeamOn() const { return beamOn; }
    void SetBeamOn(bool on) { beamOn = on; }

private:
    bool beamOn;
};

/// A laser with a low-pass filter. For the level-cut time after the part has left the measuring range it repeats its
/// last reading.
class FilteredLaserHardware : public LaserHardware {
public:
    explicit FilteredLaserHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;

    TavikLibrary::eFilter Filter() const { return filter; }
    int LevelCutTime() const { return levelCutTime; }
    /// Both throw TavikException, and change nothing, for a value that the laser does not have.
    void SetFilter(TavikLibrary::eFilter filter);
    void SetLevelCutTime(int steps);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireFilter(TavikLibrary::eFilter filter) const;
    void RequireLevelCutTime(int steps) const;

    TavikLibrary::eFilter filter;
    int levelCutTime; ///< in steps of 0.1 ms
};

/// A laser with new values at its measuring rate.
class RatedLaserHardware : public LaserHardware {
public:
    explicit RatedLaserHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    Nanoseconds ReadingPeriod() const override;

    TavikLibrary::eMeasuringRate MeasuringRate() const { return rate; }
    /// Throws TavikException, and changes nothing, for a rate that is not on offer.
    void SetMeasuringRate(TavikLibrary::eMeasuringRate rate);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireOnOffer(TavikLibrary::eMeasuringRate rate) const;

    TavikLibrary::eMeasuringRate rate;
};

} // namespace TavikSimulator
