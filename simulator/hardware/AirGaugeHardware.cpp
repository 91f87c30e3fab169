#include "simulator/hardware/AirGaugeHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::ePNX_RotateDisplay;
using TavikLibrary::ePNX_UOM;
using TavikLibrary::eTavikErrors;

namespace {

/// The pressure sensor: 14 bits.
constexpr MeasuringRange sensor{0.0, 30.0, 16383};

/// Text in network files for a gauge without mastering.
constexpr const char* NotMasteredText = "none";

constexpr const char* MasteringSetting = "mastering";

/// Reads sizes and pressures of both setting masters from a network file.
AirGaugeSettings ReadMasters(const std::string& text) {
    AirGaugeSettings masters;
    std::istringstream words(text);
    const auto next = [&words](double& value, void (*require)(double)) {
        std::string word;
        words >> word;
        value = RealNumber(MasteringSetting, word);
        require(value);
    };
    next(masters.masterMinSize, RequireLength);
    next(masters.masterMinPressure, RequirePressure);
    next(masters.masterMaxSize, RequireLength);
    next(masters.masterMaxPressure, RequirePressure);
    std::string more;
    if (words >> more) {
        Reject(eTavikErrors::InvalidArgument, "The setting \"mastering\" has four numbers.");
    }
    RequireMasters(masters);
    return masters;
}

} // namespace

double MasterLine::SizeAt(double pressure) const {
    return sizeA + (pressure - pressureA) * (sizeB - sizeA) / (pressureB - pressureA);
}

AirGaugeHardware::AirGaugeHardware(const ModuleDescription& description)
    : ProbeHardware(description), supply(description.airGauge.supply) {
    UseFactorySettings();
    settings.unit = description.airGauge.unit;
    settings.limitHigh = description.airGauge.limitHigh.value_or(settings.limitHigh);
    settings.limitLow = description.airGauge.limitLow.value_or(settings.limitLow);
    if (description.airGauge.mastered) {
        MasterBeforehand();
    }
    known = settings;
}

void AirGaugeHardware::UseFactorySettings() {
    const AirGaugeDescription& gauge = Description().airGauge;
    settings = AirGaugeSettings();
    settings.masterMinSize = gauge.masterA;
    settings.masterMaxSize = gauge.masterB;
    settings.limitLow = std::min(gauge.masterA, gauge.masterB);
    settings.limitHigh = std::max(gauge.masterA, gauge.masterB);
    UseDesignLine();
}

void AirGaugeHardware::UseDesignLine() {
    line = DesignLine();
    offset = Description().offset;
    stroke = Description().stroke;
    settings.mastered = false;
}

// Line of a nominal gauge of this make: the chord of its curve over the middle half of its range.
MasterLine AirGaugeHardware::DesignLine() const {
    const AirGaugeDescription drawn;
    MasterLine design;
    design.sizeA = Description().offset + Description().stroke / 4.0;
    design.sizeB = Description().offset + Description().stroke * 3.0 / 4.0;
    const auto pressure = [&](double size) {
        return BackPressure(drawn.supply.base, std::max(0.0, drawn.clearance + size / 2.0), drawn.circuit);
    };
    design.pressureA = pressure(design.sizeA);
    design.pressureB = pressure(design.sizeB);
    return design;
}

void AirGaugeHardware::MasterBeforehand() {
    const AirGaugeDescription& gauge = Description().airGauge;
    const auto pressure = [&](double size) {
        return BackPressure(gauge.supply.base, std::max(0.0, gauge.clearance + size / 2.0), gauge.circuit);
    };
    settings.masterMinPressure = pressure(gauge.masterA);
    settings.masterMaxPressure = pressure(gauge.masterB);
    UseMasters();
}

// Pressure

NozzlePart AirGaugeHardware::PartAt(Nanoseconds time) const {
    if (inNozzle) {
        return *inNozzle;
    }
    const std::vector<NozzleStep>& steps = Description().airGauge.steps;
    Nanoseconds round{};
    for (const NozzleStep& step : steps) {
        round += step.duration;
    }
    Nanoseconds within =
        round > Nanoseconds::zero() ? std::max(time, Nanoseconds::zero()) % round : Nanoseconds::zero();
    for (const NozzleStep& step : steps) {
        if (within < step.duration) {
            return step.part;
        }
        within -= step.duration;
    }
    return NozzlePart::WorkPiece;
}

double AirGaugeHardware::ClearanceAt(Nanoseconds time) const {
    const AirGaugeDescription& gauge = Description().airGauge;
    const auto around = [&](double size) { return std::max(0.0, gauge.clearance + size / 2.0); };
    switch (PartAt(time)) {
    case NozzlePart::MasterA:
        return around(gauge.masterA);
    case NozzlePart::MasterB:
        return around(gauge.masterB);
    case NozzlePart::WorkPiece:
        return around(Measurand().At(time));
    case NozzlePart::Nothing:
        break;
    }
    return std::numeric_limits<double>::infinity();
}

double AirGaugeHardware::PressureAt(Nanoseconds time) const {
    const SampleWindow window = Physics().WindowAt(time);
    double sum = 0.0;
    for (std::int64_t index = window.last - window.samples + 1; index <= window.last; ++index) {
        const Nanoseconds at = Physics().TimeOfSample(index);
        sum += BackPressure(supply.At(at), ClearanceAt(at), Description().airGauge.circuit);
    }
    return Digitise(sum / window.samples, sensor).units;
}

// Readings

Reading AirGaugeHardware::ReadAt(Nanoseconds time) const {
    const double pressure = PressureAt(time);
    if (settings.outputPressure) {
        return Digitise(pressure, sensor);
    }
    const MeasuringRange range{offset, stroke, 1 << Physics().ResolutionBits()};
    Reading reading = Digitise(line.SizeAt(pressure), range);
    if (reading.code == static_cast<int>(eTavikErrors::NoError)) {
        if (!Physics().WindowAt(time).settled) {
            reading.code = static_cast<int>(eTavikErrors::ReadingUnsettled);
        } else if (!settings.mastered) {
            reading.code = static_cast<int>(eTavikErrors::NotMastered);
        }
    }
    return reading;
}

double AirGaugeHardware::CountsPerUnit() const {
    return settings.outputPressure ? TavikSimulator::CountsPerUnit(sensor) : (1 << Physics().ResolutionBits()) / stroke;
}

double AirGaugeHardware::Offset() const {
    return settings.outputPressure ? sensor.offset : offset;
}

double AirGaugeHardware::Stroke() const {
    return settings.outputPressure ? sensor.stroke : stroke;
}

std::string AirGaugeHardware::Unit() const {
    return settings.outputPressure ? "psi" : Description().unit;
}

void AirGaugeHardware::RequireReadable() const {
    if (changedAtDisplay) {
        Reject(eTavikErrors::ReadingNotAvailable, "Module Information needs reading.");
    }
}

// Settings

void AirGaugeHardware::ReadSettings() {
    known = settings;
    changedAtDisplay = false;
}

void AirGaugeHardware::ApplyMastering() {
    RequireMasters(settings);
    UseMasters();
    known.mastered = true;
}

// The measuring range exceeds the setting masters by half of their distance on either side.
void AirGaugeHardware::UseMasters() {
    line = {settings.masterMinPressure, settings.masterMinSize, settings.masterMaxPressure, settings.masterMaxSize};
    const double distance = std::fabs(line.sizeB - line.sizeA);
    offset = std::min(line.sizeA, line.sizeB) - distance / 2.0;
    stroke = 2.0 * distance;
    settings.mastered = true;
}

KeptSetting AirGaugeHardware::KeptLength(const char* name, double AirGaugeSettings::*length) {
    return KeptNumber<double>(
        name, [this, length] { return settings.*length; }, RequireLength,
        [this, length](double millimetres) { Set(length, millimetres); });
}

// Sizes and pressures are stored together: a line needs all four.
KeptSetting AirGaugeHardware::KeptMastering() {
    const auto write = [this] {
        return settings.mastered
                   ? NumberText(settings.masterMinSize) + " " + NumberText(settings.masterMinPressure) + " " +
                         NumberText(settings.masterMaxSize) + " " + NumberText(settings.masterMaxPressure)
                   : NotMasteredText;
    };
    const auto require = [](const std::string& text) {
        if (text != NotMasteredText) {
            ReadMasters(text);
        }
    };
    const auto use = [this](const std::string& text) {
        if (text == NotMasteredText) {
            UseDesignLine();
            known = settings;
            return;
        }
        const AirGaugeSettings masters = ReadMasters(text);
        settings.masterMinSize = masters.masterMinSize;
        settings.masterMinPressure = masters.masterMinPressure;
        settings.masterMaxSize = masters.masterMaxSize;
        settings.masterMaxPressure = masters.masterMaxPressure;
        UseMasters();
        known = settings;
    };
    return {MasteringSetting, write, require, use};
}

// The pass code is left out: a network file can be read by anybody.
std::vector<KeptSetting> AirGaugeHardware::KeptSettings(Nanoseconds time) {
    std::vector<KeptSetting> kept = ProbeHardware::KeptSettings(time);
    kept.push_back(KeptMastering());
    kept.push_back(KeptSwitch(
        "output-as-pressure", [this] { return settings.outputPressure; },
        [this](bool on) { Set(&AirGaugeSettings::outputPressure, on); }));
    if (!HasDisplay()) {
        return kept;
    }
    kept.push_back(KeptNumber<ePNX_UOM>(
        "display-unit", [this] { return settings.unit; }, RequireUnit,
        [this](ePNX_UOM unit) { Set(&AirGaugeSettings::unit, unit); }));
    kept.push_back(KeptNumber<ePNX_RotateDisplay>(
        "display-rotation", [this] { return settings.rotation; }, RequireRotation,
        [this](ePNX_RotateDisplay rotation) { Set(&AirGaugeSettings::rotation, rotation); }));
    kept.push_back(KeptSwitch(
        "rotate-keyboard", [this] { return settings.rotateKeyboard; },
        [this](bool on) { Set(&AirGaugeSettings::rotateKeyboard, on); }));
    kept.push_back(KeptSwitch(
        "show-pressure", [this] { return settings.showPressure; },
        [this](bool on) { Set(&AirGaugeSettings::showPressure, on); }));
    kept.push_back(KeptLength("limit-high", &AirGaugeSettings::limitHigh));
    kept.push_back(KeptLength("limit-low", &AirGaugeSettings::limitLow));
    return kept;
}

void AirGaugeHardware::ResetToFactory() {
    UseFactorySettings();
    ReadSettings();
}

// Operation at the gauge

void AirGaugeHardware::Hold(double position) {
    ProbeHardware::Hold(position);
    PutInNozzle(NozzlePart::WorkPiece);
}

void AirGaugeHardware::Release() {
    ProbeHardware::Release();
    inNozzle.reset();
}

void AirGaugeHardware::ChangeUnitAtDisplay(ePNX_UOM unit, int passcode) {
    if (!HasDisplay()) {
        Reject(eTavikErrors::NotSupported, "Module " + Identity() + " has no display.");
    }
    if (settings.passcode != 0 && passcode != settings.passcode) {
        Reject(eTavikErrors::InvalidArgument,
               "The display of module " + Identity() + " does not accept the pass code.");
    }
    settings.unit = unit;
    changedAtDisplay = true;
}

} // namespace TavikSimulator
