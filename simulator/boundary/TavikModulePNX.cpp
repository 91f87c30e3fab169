#include "library/TavikModulePNX.h"

#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/AirGaugeHardware.h"

#include <cmath>
#include <string>

namespace TavikLibrary {

using TavikSimulator::AirGaugeHardware;
using TavikSimulator::AirGaugeSettings;
using TavikSimulator::Reject;
using TavikSimulator::RequireLength;
using TavikSimulator::RequirePasscode;
using TavikSimulator::RequirePressure;
using TavikSimulator::RequireRotation;
using TavikSimulator::RequireUnit;

namespace {

const TavikSimulator::EnumText<ePNX_UOM> Units[] = {
    {ePNX_UOM::mm, "mm"},
    {ePNX_UOM::inches, "inches"},
    {ePNX_UOM::mils, "mils"},
};

void RequireDisplay(const AirGaugeHardware& gauge) {
    if (!gauge.HasDisplay()) {
        Reject(eTavikErrors::NotSupported, "Module " + gauge.Identity() + " has no display.");
    }
}

/// A setting as known by the library.
template <class Module, class Value>
Value Ask(Module& module, const char* operation, Value AirGaugeSettings::*setting) {
    return module.Known(operation, [&] { return module.template As<AirGaugeHardware>().Known().*setting; });
}

/// A setting, as known by the library, that requires a display.
template <class Module, class Value>
Value AskDisplay(Module& module, const char* operation, Value AirGaugeSettings::*setting) {
    return module.Known(operation, [&] {
        RequireDisplay(module.template As<AirGaugeHardware>());
        return module.template As<AirGaugeHardware>().Known().*setting;
    });
}

/// Changes a setting that every gauge has.
template <class Module, class Value, class Check>
void Change(Module& module, const char* operation, Value AirGaugeSettings::*setting, Value value, Check check) {
    module.OnBus(
        operation,
        [&] {
            check(value);
            module.template As<AirGaugeHardware>().Set(setting, value);
        },
        value);
}

/// Changes a setting that only a gauge with a display has.
template <class Module, class Value, class Check>
void ChangeDisplay(Module& module, const char* operation, Value AirGaugeSettings::*setting, Value value, Check check) {
    module.OnBus(
        operation,
        [&] {
            RequireDisplay(module.template As<AirGaugeHardware>());
            check(value);
            module.template As<AirGaugeHardware>().Set(setting, value);
        },
        value);
}

void AcceptEither(bool) {}

} // namespace

std::string ePNX_UOM_ToString(ePNX_UOM unit) {
    return TavikSimulator::TextOf(unit, Units, "unit");
}

TavikModulePNX::TavikModulePNX(Implementation* module) : TavikModuleKX(module) {}

TavikModulePNX::~TavikModulePNX() = default;

void TavikModulePNX::UpdateInfo() {
    implementation->OnBus("UpdateInfo", [this] { implementation->As<AirGaugeHardware>().ReadSettings(); });
}

bool TavikModulePNX::IsMastered() {
    return Ask(*implementation, "IsMastered", &AirGaugeSettings::mastered);
}

bool TavikModulePNX::HasDisplay() {
    return implementation->Known("HasDisplay", [this] { return implementation->As<AirGaugeHardware>().HasDisplay(); });
}

// Handled as int, so that an injected code can be an invalid unit.
ePNX_UOM TavikModulePNX::DisplayUnitsOfMeasure() {
    return static_cast<ePNX_UOM>(implementation->Known("DisplayUnitsOfMeasure", [this] {
        return static_cast<int>(implementation->As<AirGaugeHardware>().Known().unit);
    }));
}

void TavikModulePNX::setDisplayUnitsOfMeasure(ePNX_UOM unit) {
    ChangeDisplay(*implementation, "setDisplayUnitsOfMeasure", &AirGaugeSettings::unit, unit, RequireUnit);
}

double TavikModulePNX::MasterMinReadingInUOM() {
    return Ask(*implementation, "MasterMinReadingInUOM", &AirGaugeSettings::masterMinSize);
}

void TavikModulePNX::setMasterMinReadingInUOM(double millimetres) {
    Change(*implementation, "setMasterMinReadingInUOM", &AirGaugeSettings::masterMinSize, millimetres, RequireLength);
}

double TavikModulePNX::MasterMaxReadingInUOM() {
    return Ask(*implementation, "MasterMaxReadingInUOM", &AirGaugeSettings::masterMaxSize);
}

void TavikModulePNX::setMasterMaxReadingInUOM(double millimetres) {
    Change(*implementation, "setMasterMaxReadingInUOM", &AirGaugeSettings::masterMaxSize, millimetres, RequireLength);
}

void TavikModulePNX::setMasterMinPressure(double psi) {
    Change(*implementation, "setMasterMinPressure", &AirGaugeSettings::masterMinPressure, psi, RequirePressure);
}

void TavikModulePNX::setMasterMaxPressure(double psi) {
    Change(*implementation, "setMasterMaxPressure", &AirGaugeSettings::masterMaxPressure, psi, RequirePressure);
}

void TavikModulePNX::ApplyMastering() {
    implementation->OnBus("ApplyMastering", [this] { implementation->As<AirGaugeHardware>().ApplyMastering(); });
}

double TavikModulePNX::LimitHigh() {
    return Ask(*implementation, "LimitHigh", &AirGaugeSettings::limitHigh);
}

void TavikModulePNX::setLimitHigh(double millimetres) {
    ChangeDisplay(*implementation, "setLimitHigh", &AirGaugeSettings::limitHigh, millimetres, RequireLength);
}

double TavikModulePNX::LimitLow() {
    return Ask(*implementation, "LimitLow", &AirGaugeSettings::limitLow);
}

void TavikModulePNX::setLimitLow(double millimetres) {
    ChangeDisplay(*implementation, "setLimitLow", &AirGaugeSettings::limitLow, millimetres, RequireLength);
}

double TavikModulePNX::PressureReading() {
    return implementation->OnBus("PressureReading", [this] {
        return implementation->As<AirGaugeHardware>().PressureAt(implementation->bench.clock.Now());
    });
}

bool TavikModulePNX::OutputReadingAsPressure() {
    return Ask(*implementation, "OutputReadingAsPressure", &AirGaugeSettings::outputPressure);
}

void TavikModulePNX::setOutputReadingAsPressure(bool asPressure) {
    Change(*implementation, "setOutputReadingAsPressure", &AirGaugeSettings::outputPressure, asPressure, AcceptEither);
}

// Handled as int, so that an injected code can be an invalid rotation.
ePNX_RotateDisplay TavikModulePNX::RotateDisplay() {
    return static_cast<ePNX_RotateDisplay>(implementation->Known("RotateDisplay", [this] {
        RequireDisplay(implementation->As<AirGaugeHardware>());
        return static_cast<int>(implementation->As<AirGaugeHardware>().Known().rotation);
    }));
}

void TavikModulePNX::setRotateDisplay(ePNX_RotateDisplay rotation) {
    ChangeDisplay(*implementation, "setRotateDisplay", &AirGaugeSettings::rotation, rotation, RequireRotation);
}

bool TavikModulePNX::RotateKeyboard() {
    return AskDisplay(*implementation, "RotateKeyboard", &AirGaugeSettings::rotateKeyboard);
}

void TavikModulePNX::setRotateKeyboard(bool rotate) {
    ChangeDisplay(*implementation, "setRotateKeyboard", &AirGaugeSettings::rotateKeyboard, rotate, AcceptEither);
}

bool TavikModulePNX::ShowPSIReading() {
    return AskDisplay(*implementation, "ShowPSIReading", &AirGaugeSettings::showPressure);
}

void TavikModulePNX::setShowPSIReading(bool show) {
    ChangeDisplay(*implementation, "setShowPSIReading", &AirGaugeSettings::showPressure, show, AcceptEither);
}

void TavikModulePNX::setPasscode(int passcode) {
    ChangeDisplay(*implementation, "setPasscode", &AirGaugeSettings::passcode, passcode, RequirePasscode);
}

void TavikModulePNX::ResetFactorySettings() {
    implementation->OnBus("ResetFactorySettings", [this] { implementation->As<AirGaugeHardware>().ResetToFactory(); });
}

} // namespace TavikLibrary
