#include "simulator/modules/EncoderHardware.h"

#include "simulator/bench/ErrorTexts.h"
#include "simulator/modules/EncoderCounter.h"
#include "simulator/signals/SignalSteps.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eEncoderInterfaceType;
using TavikLibrary::eQuadratureMode;
using TavikLibrary::eRefAction;
using TavikLibrary::eTavikErrors;

namespace {

template <class Value>
void RequireKnown(Value value, Value last, const std::string& identity, const char* what) {
    const int number = static_cast<int>(value);
    if (number < 0 || number > static_cast<int>(last)) {
        Refuse(eTavikErrors::InvalidArgument,
               "Module " + identity + " has no " + what + " " + std::to_string(number) + ".");
    }
}

bool IsReset(eRefAction action) {
    return action == eRefAction::Reset || action == eRefAction::ContinuousReset;
}

bool HappensOnce(eRefAction action) {
    return action == eRefAction::Reset || action == eRefAction::Preset;
}

} // namespace

EncoderHardware::EncoderHardware(const ModuleDescription& description)
    : ModuleHardware(description), master(description.identity, true), step(StepFor(description.signal)) {
    made.position = Felt().WithoutNoise(0);
    seen = made;
}

Reading EncoderHardware::ReadAt(double seconds) const {
    if (interfaceType != Description().encoder.wiring) {
        return {static_cast<int>(eTavikErrors::SignalFault), 0, 0.0};
    }
    const auto lowest = static_cast<std::int64_t>(std::ceil(Description().offset));
    const auto highest = static_cast<std::int64_t>(std::floor(Description().offset + Description().stroke));
    const std::int64_t count = StateAt(seconds).count;
    const std::int64_t limited = std::clamp(count, lowest, highest);
    eTavikErrors code = eTavikErrors::NoError;
    if (count != limited) {
        code = count < lowest ? eTavikErrors::UnderRange : eTavikErrors::OverRange;
    }
    return {static_cast<int>(code), static_cast<int>(limited),
            static_cast<double>(limited) / Description().countsPerUnit};
}

void EncoderHardware::PowerOn(double seconds) {
    Arrive(seconds);
    made.count = 0;
    seen = made;
}

eRefAction EncoderHardware::RefAction(double seconds) const {
    return StateAt(seconds).action;
}

void EncoderHardware::SetRefAction(eRefAction action, double seconds) {
    RequireKnown(action, eRefAction::Preset, Identity(), "reference action");
    Arrive(seconds);
    made.action = action;
    seen = made;
}

void EncoderHardware::SetQuadratureMode(eQuadratureMode newMode, double seconds) {
    RequireKnown(newMode, eQuadratureMode::CountDIR, Identity(), "quadrature mode");
    Arrive(seconds);
    mode = newMode;
}

void EncoderHardware::SetInterfaceType(eEncoderInterfaceType type) {
    RequireKnown(type, eEncoderInterfaceType::SingleEnded, Identity(), "encoder type");
    interfaceType = type;
}

void EncoderHardware::RequirePreset(int counts) const {
    const double lowest = Description().offset;
    const double highest = lowest + Description().stroke;
    if (counts < lowest || counts > highest) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() + " counts from " +
                                                  std::to_string(static_cast<long long>(std::ceil(lowest))) + " to " +
                                                  std::to_string(static_cast<long long>(std::floor(highest))) +
                                                  " and cannot be preset to " + std::to_string(counts) + ".");
    }
}

void EncoderHardware::SetPresetInCounts(int counts, double seconds) {
    RequirePreset(counts);
    Arrive(seconds);
    preset = counts;
}

std::vector<KeptSetting> EncoderHardware::KeptSettings(double seconds) {
    std::vector<KeptSetting> kept = {
        KeptNumber<eQuadratureMode>(
            "quadrature-mode", [this] { return mode; },
            [this](eQuadratureMode wanted) {
                RequireKnown(wanted, eQuadratureMode::CountDIR, Identity(), "quadrature mode");
            },
            [this, seconds](eQuadratureMode wanted) { SetQuadratureMode(wanted, seconds); }),
        KeptNumber<eEncoderInterfaceType>(
            "encoder-type", [this] { return interfaceType; },
            [this](eEncoderInterfaceType wanted) {
                RequireKnown(wanted, eEncoderInterfaceType::SingleEnded, Identity(), "encoder type");
            },
            [this](eEncoderInterfaceType wanted) { SetInterfaceType(wanted); }),
        KeptNumber<int>(
            "preset", [this] { return preset; }, [this](int counts) { RequirePreset(counts); },
            [this, seconds](int counts) { SetPresetInCounts(counts, seconds); }),
        KeptNumber<eRefAction>(
            "reference-action", [this, seconds] { return RefAction(seconds); },
            [this](eRefAction wanted) { RequireKnown(wanted, eRefAction::Preset, Identity(), "reference action"); },
            [this, seconds](eRefAction wanted) { SetRefAction(wanted, seconds); }),
    };
    for (KeptSetting& setting : master.Kept()) {
        kept.push_back(std::move(setting));
    }
    return kept;
}

void EncoderHardware::UseSignal(const SignalDescription& signal) {
    made = seen;
    step = StepFor(signal);
}

EncoderHardware::State EncoderHardware::StateAt(double seconds) const {
    const std::int64_t instant = NanosecondsOf(seconds);
    while (made.instant + step <= instant) {
        StepTo(made, made.instant + step);
    }
    State state = made;
    // Also at the same instant: somebody may have turned the encoder by hand.
    StepTo(state, instant);
    seen = state;
    return state;
}

void EncoderHardware::StepTo(State& state, std::int64_t instant) const {
    const double position = Felt().WithoutNoise(instant);
    const double before = state.position;
    if (position != before) {
        state.count += CountsBetween(before, position, Description().encoder.output, mode);
        PassMarks(state, position);
    }
    state.position = position;
    state.instant = instant;
}

void EncoderHardware::PassMarks(State& state, double position) const {
    if (state.action == eRefAction::None) {
        return;
    }
    const EncoderDescription& encoder = Description().encoder;
    const MarksPassed marks = MarksBetween(state.position, position, encoder);
    if (!marks.any) {
        return;
    }
    const bool once = HappensOnce(state.action);
    state.count = IsReset(state.action) ? 0 : preset;
    state.count += CountsBetween(once ? marks.first : marks.last, position, encoder.output, mode);
    if (once) {
        state.action = eRefAction::None;
    }
}

void EncoderHardware::Arrive(double seconds) {
    made = StateAt(seconds);
}

} // namespace TavikSimulator
