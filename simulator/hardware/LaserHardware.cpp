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

constexpr std::int64_t LevelCutStep = 100000; // nanoseconds

bool IsOutOfRange(const Reading& reading) {
    return reading.code == static_cast<int>(eTavikErrors::UnderRange) ||
           reading.code == static_cast<int>(eTavikErrors::OverRange);
}

} // namespace

LaserHardware::LaserHardware(const ModuleDescription& description)
    : ProbeHardware(description), beamOn(description.laser.beamOn) {}

Reading LaserHardware::ReadAt(double seconds) const {
    if (!beamOn) {
        return {static_cast<int>(eTavikErrors::BeamOff), 0, 0.0};
    }
    return ProbeHardware::ReadAt(seconds);
}

FilteredLaserHardware::FilteredLaserHardware(const ModuleDescription& description)
    : LaserHardware(description), filter(description.laser.filter), levelCutTime(description.laser.levelCutTime) {
    UseLowPass(*CutoffOf(filter));
}

Reading FilteredLaserHardware::ReadAt(double seconds) const {
    const Reading now = LaserHardware::ReadAt(seconds);
    if (!IsOutOfRange(now)) {
        return now;
    }
    const std::int64_t instant = NanosecondsOf(seconds);
    for (int steps = 1; steps <= levelCutTime; ++steps) {
        const std::int64_t earlier = instant - steps * LevelCutStep;
        const double position = Felt().WithoutNoise(earlier) - Description().offset;
        if (position >= 0.0 && position <= Description().stroke) {
            return LaserHardware::ReadAt(static_cast<double>(earlier) / 1e9);
        }
    }
    return now;
}

void FilteredLaserHardware::RequireFilter(eFilter newFilter) const {
    if (!CutoffOf(newFilter)) {
        Refuse(eTavikErrors::InvalidArgument,
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
        Refuse(eTavikErrors::InvalidArgument, "The level-cut time of module " + Identity() + " is 0 to " +
                                                  std::to_string(most) + " steps, not " + std::to_string(steps) + ".");
    }
}

void FilteredLaserHardware::SetLevelCutTime(int steps) {
    RequireLevelCutTime(steps);
    levelCutTime = steps;
}

std::vector<KeptSetting> FilteredLaserHardware::KeptSettings(double seconds) {
    std::vector<KeptSetting> kept = LaserHardware::KeptSettings(seconds);
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

Reading RatedLaserHardware::ReadAt(double seconds) const {
    const auto period = static_cast<std::int64_t>(1e9 / *ValuesPerSecond(rate));
    const std::int64_t instant = NanosecondsOf(seconds);
    return LaserHardware::ReadAt(static_cast<double>(instant - instant % period) / 1e9);
}

double RatedLaserHardware::ReadingPeriod() const {
    return 1.0 / *ValuesPerSecond(rate);
}

void RatedLaserHardware::RequireOnOffer(eMeasuringRate newRate) const {
    if (!Offers(Description().laser, newRate)) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() + " does not offer the measuring rate " +
                                                  TavikLibrary::eMeasuringRate_ToString(newRate) + ".");
    }
}

void RatedLaserHardware::SetMeasuringRate(eMeasuringRate newRate) {
    RequireOnOffer(newRate);
    rate = newRate;
}

std::vector<KeptSetting> RatedLaserHardware::KeptSettings(double seconds) {
    std::vector<KeptSetting> kept = LaserHardware::KeptSettings(seconds);
    kept.push_back(KeptNumber<eMeasuringRate>(
        "measuring-rate", [this] { return rate; }, [this](eMeasuringRate wanted) { RequireOnOffer(wanted); },
        [this](eMeasuringRate wanted) { SetMeasuringRate(wanted); }));
    return kept;
}

} // namespace TavikSimulator
