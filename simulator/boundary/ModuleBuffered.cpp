#include "library/TavikBuffered.h"
#include "simulator/boundary/BufferedImplementation.h"
#include "simulator/boundary/EnumTexts.h"

namespace TavikLibrary {

namespace {

const TavikSimulator::EnumText<eBufferedMode> Modes[] = {
    {eBufferedMode::None, "None"},
    {eBufferedMode::Sync, "Sync"},
    {eBufferedMode::Sample, "Sample"},
};

} // namespace

std::string eBufferedMode_ToString(eBufferedMode mode) {
    return TavikSimulator::TextOf(mode, Modes, "buffered mode");
}

ModuleBuffered::ModuleBuffered(Implementation* module) : implementation(module) {}

ModuleBuffered::~ModuleBuffered() {
    delete implementation;
}

eBufferedMode ModuleBuffered::Mode() {
    return implementation->module.LocalOf(implementation->name, "Mode",
                                          [this] { return implementation->settings.Mode(); });
}

void ModuleBuffered::setMode(eBufferedMode mode) {
    implementation->SetSampling(
        "setMode", [&] { implementation->settings.SetMode(mode); }, mode);
}

bool ModuleBuffered::Enabled() {
    return implementation->module.LocalOf(implementation->name, "Enabled",
                                          [this] { return implementation->settings.Enabled(); });
}

void ModuleBuffered::setEnabled(bool enabled) {
    implementation->SetPart(
        "setEnabled", [&] { implementation->settings.SetEnabled(enabled); }, enabled);
}

int ModuleBuffered::ReadingInterval() {
    return implementation->module.LocalOf(implementation->name, "ReadingInterval",
                                          [this] { return implementation->settings.Interval(); });
}

void ModuleBuffered::setReadingInterval(int microseconds) {
    implementation->SetSampling(
        "setReadingInterval", [&] { implementation->settings.SetInterval(microseconds); }, microseconds);
}

int ModuleBuffered::ReadingIntervalErrorUs() {
    return implementation->module.LocalOf(implementation->name, "ReadingIntervalErrorUs",
                                          [this] { return implementation->settings.IntervalError(); });
}

int ModuleBuffered::TTUs() {
    return implementation->module.LocalOf(implementation->name, "TTUs",
                                          [this] { return implementation->settings.Units(); });
}

int ModuleBuffered::BufferedDataLength() {
    return implementation->module.LocalOf(implementation->name, "BufferedDataLength",
                                          [this] { return implementation->settings.Length(); });
}

TavikReading ModuleBuffered::GetBufferedItem(int index) {
    return implementation->module.LocalOf(
        implementation->name, "GetBufferedItem",
        [&](std::optional<int> code) {
            TavikReading reading = implementation->settings.At(index);
            reading.resultCode = code.value_or(reading.resultCode);
            return reading;
        },
        index);
}

} // namespace TavikLibrary
