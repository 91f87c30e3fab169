#include "library/TavikModuleQTA.h"

#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/EncoderHardware.h"

namespace TavikLibrary {

using TavikSimulator::EncoderHardware;

namespace {

const TavikSimulator::EnumText<eRefAction> RefActions[] = {
    {eRefAction::None, "None"},
    {eRefAction::ContinuousReset, "Continuous reset"},
    {eRefAction::ContinuousPreset, "Continuous preset"},
    {eRefAction::Reset, "Reset"},
    {eRefAction::Preset, "Preset"},
};

const TavikSimulator::EnumText<eQuadratureMode> QuadratureModes[] = {
    {eQuadratureMode::quadX1, "Quadrature x1"},     {eQuadratureMode::quadX2, "Quadrature x2"},
    {eQuadratureMode::quadX4, "Quadrature x4"},     {eQuadratureMode::CountAB, "Count A/B"},
    {eQuadratureMode::CountDIR, "Count/direction"},
};

const TavikSimulator::EnumText<eEncoderInterfaceType> InterfaceTypes[] = {
    {eEncoderInterfaceType::Differential, "Differential"},
    {eEncoderInterfaceType::SingleEnded, "Single-ended"},
};

} // namespace

std::string eRefAction_ToString(eRefAction action) {
    return TavikSimulator::TextOf(action, RefActions, "reference action");
}

std::string eQuadratureMode_ToString(eQuadratureMode mode) {
    return TavikSimulator::TextOf(mode, QuadratureModes, "quadrature mode");
}

std::string eEncoderInterfaceType_ToString(eEncoderInterfaceType type) {
    return TavikSimulator::TextOf(type, InterfaceTypes, "encoder type");
}

TavikModuleQTA::TavikModuleQTA(Implementation* module) : TavikModule(module) {}

TavikModuleQTA::~TavikModuleQTA() = default;

eRefAction TavikModuleQTA::RefAction() {
    return implementation->OnBus("RefAction", [this] {
        return implementation->As<EncoderHardware>().RefAction(implementation->bench.clock.Now());
    });
}

void TavikModuleQTA::setRefAction(eRefAction action) {
    implementation->OnBus(
        "setRefAction",
        [&] { implementation->As<EncoderHardware>().SetRefAction(action, implementation->bench.clock.Now()); }, action);
}

eQuadratureMode TavikModuleQTA::QuadratureMode() {
    return implementation->Known("QuadratureMode",
                                 [this] { return implementation->As<EncoderHardware>().QuadratureMode(); });
}

void TavikModuleQTA::setQuadratureMode(eQuadratureMode mode) {
    implementation->OnBus(
        "setQuadratureMode",
        [&] { implementation->As<EncoderHardware>().SetQuadratureMode(mode, implementation->bench.clock.Now()); },
        mode);
}

eEncoderInterfaceType TavikModuleQTA::QtaInterfaceType() {
    return implementation->Known("QtaInterfaceType",
                                 [this] { return implementation->As<EncoderHardware>().InterfaceType(); });
}

void TavikModuleQTA::setQtaInterfaceType(eEncoderInterfaceType type) {
    implementation->OnBus(
        "setQtaInterfaceType", [&] { implementation->As<EncoderHardware>().SetInterfaceType(type); }, type);
}

int TavikModuleQTA::PresetInCounts() {
    return implementation->Known("PresetInCounts",
                                 [this] { return implementation->As<EncoderHardware>().PresetInCounts(); });
}

void TavikModuleQTA::setPresetInCounts(int counts) {
    implementation->OnBus(
        "setPresetInCounts",
        [&] { implementation->As<EncoderHardware>().SetPresetInCounts(counts, implementation->bench.clock.Now()); },
        counts);
}

short TavikModuleQTA::TxSample() {
    return implementation->Known(
        "TxSample", [this] { return static_cast<short>(implementation->As<EncoderHardware>().master.TxSample()); });
}

void TavikModuleQTA::setTxSample(short counts) {
    implementation->OnBus(
        "setTxSample", [&] { implementation->As<EncoderHardware>().master.SetTxSample(counts); }, counts);
}

eDynamicMasterMode TavikModuleQTA::DynamicMasterMode() {
    return implementation->Known("DynamicMasterMode",
                                 [this] { return implementation->As<EncoderHardware>().master.Mode(); });
}

void TavikModuleQTA::setDynamicMasterMode(eDynamicMasterMode mode) {
    implementation->OnBus(
        "setDynamicMasterMode", [&] { implementation->As<EncoderHardware>().master.SetMode(mode); }, mode);
}

short TavikModuleQTA::TxSync() {
    return implementation->Known(
        "TxSync", [this] { return static_cast<short>(implementation->As<EncoderHardware>().master.TxSync()); });
}

void TavikModuleQTA::setTxSync(short counts) {
    implementation->OnBus(
        "setTxSync", [&] { implementation->As<EncoderHardware>().master.SetTxSync(counts); }, counts);
}

int TavikModuleQTA::HoldOff() {
    return implementation->Known("HoldOff", [this] { return implementation->As<EncoderHardware>().master.HoldOff(); });
}

void TavikModuleQTA::setHoldOff(int counts) {
    implementation->OnBus(
        "setHoldOff", [&] { implementation->As<EncoderHardware>().master.SetHoldOff(counts); }, counts);
}

} // namespace TavikLibrary
