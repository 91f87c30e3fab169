#include "library/TavikDynamic.h"

#include "simulator/boundary/DynamicImplementation.h"
#include "simulator/boundary/EnumTexts.h"

namespace TavikLibrary {

namespace {

const TavikSimulator::EnumText<eDynamicRate> Rates[] = {
    {eDynamicRate::Rate4K, "Rate4K"},
    {eDynamicRate::Rate2K, "Rate2K"},
    {eDynamicRate::Rate1K, "Rate1K"},
    {eDynamicRate::Dynamic2Custom, "Dynamic2Custom"},
};

const TavikSimulator::EnumText<eDynamicState> States[] = {
    {eDynamicState::Idle, "Idle"},
    {eDynamicState::Prepared, "Prepared"},
    {eDynamicState::Running, "Running"},
    {eDynamicState::Stopping, "Stopping"},
    {eDynamicState::ResultsAvailable, "Results available"},
};

const TavikSimulator::EnumText<eDynamicMasterMode> MasterModes[] = {
    {eDynamicMasterMode::NotMaster, "NotMaster"},
    {eDynamicMasterMode::Instant, "Instant"},
    {eDynamicMasterMode::HoldOff, "HoldOff"},
    {eDynamicMasterMode::Refaction_Reset, "Refaction_Reset"},
    {eDynamicMasterMode::Refaction_Preset, "Refaction_Preset"},
};

} // namespace

std::string eDynamicRate_ToString(eDynamicRate rate) {
    return TavikSimulator::TextOf(rate, Rates, "dynamic rate");
}

std::string eDynamicState_ToString(eDynamicState state) {
    return TavikSimulator::TextOf(state, States, "dynamic state");
}

std::string eDynamicMasterMode_ToString(eDynamicMasterMode mode) {
    return TavikSimulator::TextOf(mode, MasterModes, "master mode");
}

TavikDynamic::TavikDynamic(Implementation* network) : implementation(network) {}

TavikDynamic::~TavikDynamic() {
    delete implementation;
}

bool TavikDynamic::Enabled() {
    return implementation->Call("Enabled", [this] { return implementation->Mode().Enabled(); });
}

void TavikDynamic::setEnabled(bool enabled) {
    implementation->Telling(
        "setEnabled", [&] { enabled ? implementation->Mode().Enable() : implementation->Mode().Disable(); }, enabled);
}

eDynamicMode TavikDynamic::DynamicMode() {
    return implementation->Call("DynamicMode", [this] { return implementation->Mode().Settings().Mode(); });
}

void TavikDynamic::setDynamicMode(eDynamicMode mode) {
    implementation->Call(
        "setDynamicMode", [&] { implementation->Mode().ChangeableSettings().SetMode(mode); }, mode);
}

eDynamicRate TavikDynamic::DynamicRate() {
    return implementation->Call("DynamicRate", [this] { return implementation->Mode().Settings().Rate(); });
}

void TavikDynamic::setDynamicRate(eDynamicRate rate) {
    implementation->Call(
        "setDynamicRate", [&] { implementation->Mode().ChangeableSettings().SetRate(rate); }, rate);
}

int TavikDynamic::DynamicInterval() {
    return implementation->Call("DynamicInterval", [this] { return implementation->Mode().Settings().Interval(); });
}

void TavikDynamic::setDynamicInterval(int microseconds) {
    implementation->Call(
        "setDynamicInterval", [&] { implementation->Mode().ChangeableSettings().SetInterval(microseconds); },
        microseconds);
}

int TavikDynamic::MinimumInterval() {
    return implementation->Call("MinimumInterval",
                                [this] { return implementation->Mode().Settings().MinimumInterval(); });
}

int TavikDynamic::CollectionSize() {
    return implementation->Call("CollectionSize",
                                [this] { return implementation->Mode().Settings().CollectionSize(); });
}

void TavikDynamic::setCollectionSize(int syncs) {
    implementation->Call(
        "setCollectionSize", [&] { implementation->Mode().ChangeableSettings().SetCollectionSize(syncs); }, syncs);
}

int TavikDynamic::NumberOfModules() {
    return implementation->Call("NumberOfModules",
                                [this] { return implementation->Mode().Settings().NumberOfModules(); });
}

void TavikDynamic::setNumberOfModules(int count) {
    implementation->Call(
        "setNumberOfModules", [&] { implementation->Mode().ChangeableSettings().SetNumberOfModules(count); }, count);
}

int TavikDynamic::MasterIndex() {
    return implementation->Call("MasterIndex", [this] { return implementation->Mode().Settings().MasterIndex(); });
}

void TavikDynamic::setMasterIndex(int index) {
    implementation->Call(
        "setMasterIndex", [&] { implementation->Mode().ChangeableSettings().SetMasterIndex(index); }, index);
}

eDynamicState TavikDynamic::DynamicState() {
    return implementation->Call("DynamicState", [this] { return implementation->Mode().State(); });
}

void TavikDynamic::Prepare() {
    implementation->Telling("Prepare", [this] { implementation->Mode().Prepare(); });
}

TavikDynamicData* TavikDynamic::DynamicData() {
    return implementation->Call("DynamicData", [this] { return &implementation->data; });
}

} // namespace TavikLibrary
