#include "simulator/hardware/LaserHardware.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/Laser.h"

#include <cmath>
#include <cstdint>
#include <string>

namespace TavikSimulator {

using TavikLibrary::eFilter;
using TavikLibrary::eMeasuringRate;
using TavikLibrary::eTavikErrors;

namespace {

constexpr std::chrono::microseconds LevelCutStep{100};

bool IsOutOfRange(const Reading& reading) {
    return reading.code == static_cast<int>(eTavikErrors::UnderRange) ||
           reading.code == static_cast<int>(eTavikErrors::OverRange);
}

} // namespace

LaserHardware::LaserHardware(const ModuleDescription& description)
    : ProbeHardware(description), beamOn(description.laser.beamOn) {}

Reading LaserHardware::ReadAt(Nanoseconds time) const {
    if (!beamOn) {
        return {static_cast<int>(eTavikErrors::BeamOff), 0, 0.0};
    }
    return ProbeHardware::ReadAt(time);
}

FilteredLaserHardware::FilteredLaserHardware(const ModuleDescription& description)
    : LaserHardware(description), filter(description.laser.filter), levelCutTime(description.laser.levelCutTime) {
    UseLowPass(*CutoffOf(filter));
}

Reading FilteredLaserHardware::ReadAt(Nanoseconds time) const {
    const Reading now = LaserHardware::ReadAt(time);
    if (!IsOutOfRange(now)) {
        return now;
    }
    for (int steps = 1; steps <= levelCutTime; ++steps) {
        const Nanoseconds earlier = time - steps * LevelCutStep;
        const double position = Measurand().WithoutNoise(earlier) - Description().offset;
        if (position >= 0.0 && position <= Description().stroke) {
            return LaserHardware::ReadAt(earlier);
        }
    }
    return now;
}

void FilteredLaserHardware::RequireFilter(eFilter newFilter) const {
    if (!CutoffOf(newFilter)) {
        Reject(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no filter " + std::to_string(static_cast<int>(newFilter)) + ".");
    }
}

void FilteredLaserHardware::SetFilter(eFilter newFilter) {
    RequireFilter(newFilter);
    filter = newFilter;
    UseLowPass(*CutoffOf(newFilter));
}

void FilteredLaserHardware::RequireLevelCutTime(int steps) const {
    const int most = Description().laser.levelCutTimeMax;
    if (steps < 0 || steps > most) {
        Reject(eTavikErrors::InvalidArgument, "The level-cut time of module " + Identity() + " is 0 to " +
                                                  std::to_string(most) + " steps, not " + std::to_string(steps) + ".");
    }
}

void FilteredLaserHardware::SetLevelCutTime(int steps) {
    RequireLevelCutTime(steps);
    levelCutTime = steps;
}

std::vector<KeptSetting> FilteredLaserHardware::KeptSettings(Nanoseconds time) {
    std::vector<KeptSetting> kept = LaserHardware::KeptSettings(time);
    kept.push_back(KeptNumber<eFilter>(
        "filter", [this] { return filter; }, [this](eFilter wanted) { RequireFilter(wanted); },
        [this](eFilter wanted) { SetFilter(wanted); }));
    kept.push_back(KeptNumber<int>(
        "level-cut-time", [this] { return levelCutTime; }, [this](int steps) { RequireLevelCutTime(steps); },
        [this](int steps) { SetLevelCutTime(steps); }));
    return kept;
}

RatedLaserHardware::RatedLaserHardware(const ModuleDescription& description)
    : LaserHardware(description), rate(description.laser.rate) {}

Reading RatedLaserHardware::ReadAt(Nanoseconds time) const {
    return LaserHardware::ReadAt(time - WithinPeriod(time, ReadingPeriod()));
}

Nanoseconds RatedLaserHardware::ReadingPeriod() const {
    return FromSeconds(1.0 / *ValuesPerSecond(rate));
}

void RatedLaserHardware::RequireOnOffer(eMeasuringRate newRate) const {
    if (!Offers(Description().laser, newRate)) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " does not offer the measuring rate " +
                                                  TavikLibrary::eMeasuringRate_ToString(newRate) + ".");
    }
}

void RatedLaserHardware::SetMeasuringRate(eMeasuringRate newRate) {
    RequireOnOffer(newRate);
    rate = newRate;
}

std::vector<KeptSetting> RatedLaserHardware::KeptSettings(Nanoseconds time) {
    std::vector<KeptSetting> kept = LaserHardware::KeptSettings(time);
    kept.push_back(KeptNumber<eMeasuringRate>(
        "measuring-rate", [this] { return rate; }, [this](eMeasuringRate wanted) { RequireOnOffer(wanted); },
        [this](eMeasuringRate wanted) { SetMeasuringRate(wanted); }));
    return kept;
}

} // namespace TavikSimulator
