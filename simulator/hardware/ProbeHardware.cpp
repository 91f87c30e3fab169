#include "simulator/hardware/ProbeHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <string>

namespace TavikSimulator {

using TavikLibrary::eAveraging;
using TavikLibrary::eResolution;
using TavikLibrary::eTavikErrors;

namespace {

ProbeDescription ProbeOf(const ModuleDescription& module, const SignalDescription& signal) {
    ProbeDescription probe;
    probe.offset = module.offset;
    probe.stroke = module.stroke;
    probe.resolutionBits = module.resolutionBits;
    probe.averagingSamples = module.averagingSamples;
    probe.signal = signal;
    return probe;
}

template <class Value>
bool Offers(const std::vector<Value>& offered, Value value) {
    return std::find(offered.begin(), offered.end(), value) != offered.end();
}

} // namespace

ProbeHardware::ProbeHardware(const ModuleDescription& description)
    : ModuleHardware(description), physics(ProbeOf(description, description.signal)) {}

Reading ProbeHardware::ReadAt(Nanoseconds time) const {
    return physics.ReadAt(time);
}

Nanoseconds ProbeHardware::ReadingPeriod() const {
    constexpr int fewestSamples = 4;
    return std::max(fewestSamples, physics.AveragingSamples()) * physics.SamplePeriod();
}

double ProbeHardware::CountsPerUnit() const {
    return physics.CountsPerUnit();
}

void ProbeHardware::PowerOn(Nanoseconds time) {
    physics.Restart(time);
}

eResolution ProbeHardware::Resolution() const {
    return *ResolutionOf(physics.ResolutionBits());
}

eAveraging ProbeHardware::Averaging() const {
    return *AveragingOf(physics.AveragingSamples());
}

void ProbeHardware::RequireOnOffer(eResolution resolution) const {
    if (!BitsOf(resolution) || !Offers(Description().resolutions, resolution)) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " does not offer the resolution " +
                                                  TavikLibrary::eResolution_ToString(resolution) + ".");
    }
}

void ProbeHardware::RequireOnOffer(eAveraging averaging) const {
    if (!SamplesOf(averaging) || !Offers(Description().averagings, averaging)) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " does not offer the averaging " +
                                                  TavikLibrary::eAveraging_ToString(averaging) + ".");
    }
}

void ProbeHardware::SetResolution(eResolution resolution, Nanoseconds time) {
    RequireOnOffer(resolution);
    physics.SetResolutionBits(*BitsOf(resolution), time);
}

void ProbeHardware::SetAveraging(eAveraging averaging, Nanoseconds time) {
    RequireOnOffer(averaging);
    physics.SetAveragingSamples(*SamplesOf(averaging), time);
}

std::vector<KeptSetting> ProbeHardware::KeptSettings(Nanoseconds time) {
    return {
        KeptNumber<int>(
            "resolution", [this] { return physics.ResolutionBits(); },
            [this](int bits) { RequireOnOffer(ResolutionOf(bits).value_or(eResolution(-1))); },
            [this, time](int bits) { physics.SetResolutionBits(bits, time); }),
        KeptNumber<int>(
            "averaging", [this] { return physics.AveragingSamples(); },
            [this](int samples) { RequireOnOffer(AveragingOf(samples).value_or(eAveraging(-1))); },
            [this, time](int samples) { physics.SetAveragingSamples(samples, time); }),
    };
}

void ProbeHardware::UseSignal(const SignalDescription& signal) {
    ProbeDescription probe = ProbeOf(Description(), signal);
    probe.resolutionBits = physics.ResolutionBits();
    probe.averagingSamples = physics.AveragingSamples();
    probe.lowPassCutoff = physics.LowPassCutoff();
    physics = ProbePhysics(probe);
}

} // namespace TavikSimulator
