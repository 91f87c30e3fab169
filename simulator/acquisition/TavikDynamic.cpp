#include "library/TavikDynamic.h"

#include "simulator/acquisition/DynamicMode.h"
#include "simulator/bench/EnumTexts.h"

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
    return implementation->Call("Enabled", [this] { return implementation->Collector().Enabled(); });
}

void TavikDynamic::setEnabled(bool enabled) {
    implementation->Telling(
        "setEnabled", [&] { enabled ? implementation->Collector().Enable() : implementation->Collector().Disable(); },
        enabled);
}

eDynamicMode TavikDynamic::DynamicMode() {
    return implementation->Call("DynamicMode", [this] { return implementation->Collector().Settings().mode; });
}

void TavikDynamic::setDynamicMode(eDynamicMode mode) {
    implementation->Call(
        "setDynamicMode", [&] { implementation->Collector().SetMode(mode); }, mode);
}

eDynamicRate TavikDynamic::DynamicRate() {
    return implementation->Call("DynamicRate", [this] { return implementation->Collector().Settings().rate; });
}

void TavikDynamic::setDynamicRate(eDynamicRate rate) {
    implementation->Call(
        "setDynamicRate", [&] { implementation->Collector().SetRate(rate); }, rate);
}

int TavikDynamic::DynamicInterval() {
    return implementation->Call("DynamicInterval", [this] { return implementation->Collector().Settings().interval; });
}

void TavikDynamic::setDynamicInterval(int microseconds) {
    implementation->Call(
        "setDynamicInterval", [&] { implementation->Collector().SetInterval(microseconds); }, microseconds);
}

int TavikDynamic::MinimumInterval() {
    return implementation->Call("MinimumInterval", [this] { return implementation->Collector().MinimumInterval(); });
}

int TavikDynamic::CollectionSize() {
    return implementation->Call("CollectionSize",
                                [this] { return implementation->Collector().Settings().collectionSize; });
}

void TavikDynamic::setCollectionSize(int syncs) {
    implementation->Call(
        "setCollectionSize", [&] { implementation->Collector().SetCollectionSize(syncs); }, syncs);
}

int TavikDynamic::NumberOfModules() {
    return implementation->Call("NumberOfModules", [this] { return implementation->Collector().NumberOfModules(); });
}

void TavikDynamic::setNumberOfModules(int count) {
    implementation->Call(
        "setNumberOfModules", [&] { implementation->Collector().SetNumberOfModules(count); }, count);
}

int TavikDynamic::MasterIndex() {
    return implementation->Call("MasterIndex", [this] { return implementation->Collector().Settings().masterIndex; });
}

void TavikDynamic::setMasterIndex(int index) {
    implementation->Call(
        "setMasterIndex", [&] { implementation->Collector().SetMasterIndex(index); }, index);
}

eDynamicState TavikDynamic::DynamicState() {
    return implementation->Call("DynamicState", [this] { return implementation->Collector().State(); });
}

void TavikDynamic::Prepare() {
    implementation->Telling("Prepare", [this] { implementation->Collector().Prepare(implementation->network.Now()); });
}

TavikDynamicData* TavikDynamic::DynamicData() {
    return implementation->Call("DynamicData", [this] { return &implementation->data; });
}

} // namespace TavikLibrary
