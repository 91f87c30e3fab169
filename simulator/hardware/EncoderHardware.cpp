#include "simulator/hardware/EncoderHardware.h"

#include "simulator/hardware/EncoderCounter.h"
#include "simulator/hardware/ErrorTexts.h"
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

constexpr std::size_t StepsRemembered = 1024;

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
    seen.position = Felt().WithoutNoise(0);
    seen.straightFrom = seen.position;
    way.push_back(seen);
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
    way.back().count = 0;
    seen = way.back();
}

eRefAction EncoderHardware::RefAction(double seconds) const {
    return StateAt(seconds).action;
}

void EncoderHardware::SetRefAction(eRefAction action, double seconds) {
    RequireKnown(action, eRefAction::Preset, Identity(), "reference action");
    Arrive(seconds);
    way.back().action = action;
    seen = way.back();
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

// Somebody turned the encoder by hand, at once.
void EncoderHardware::UseSignal(const SignalDescription& signal) {
    step = StepFor(signal);
    way.assign(1, seen);
    State& from = way.back();
    const double position = Felt().WithoutNoise(from.instant);
    from.gone += CountsGone(from.position, position, Description().encoder.output, mode);
    from.straightFrom = position;
}

std::int64_t EncoderHardware::TriggerCountAt(double seconds) const {
    const std::int64_t instant = NanosecondsOf(seconds);
    return instant > seen.instant ? StateAt(seconds).gone : GoneAt(CheckpointBefore(instant), instant);
}

// Within a step the encoder goes straight on, so that the way that it has gone never gets shorter.
std::int64_t EncoderHardware::GoneAt(const State& checkpoint, std::int64_t instant) const {
    if (instant <= checkpoint.instant) {
        return checkpoint.gone;
    }
    const double from = checkpoint.straightFrom;
    const double to = Felt().WithoutNoise(checkpoint.instant + step);
    const double part = static_cast<double>(instant - checkpoint.instant) / static_cast<double>(step);
    const double reached = std::clamp(from + part * (to - from), std::min(from, to), std::max(from, to));
    return checkpoint.gone + CountsGone(from, reached, Description().encoder.output, mode);
}

const EncoderHardware::State& EncoderHardware::CheckpointBefore(std::int64_t instant) const {
    while (way.back().instant + step <= instant) {
        State next = way.back();
        StepTo(next, next.instant + step);
        way.push_back(next);
        if (way.size() > StepsRemembered) {
            way.pop_front();
        }
    }
    const std::int64_t index = std::max<std::int64_t>((instant - way.front().instant) / step, 0);
    return way[static_cast<std::size_t>(index)];
}

EncoderHardware::State EncoderHardware::StateAt(double seconds) const {
    State state = CheckpointBefore(NanosecondsOf(seconds));
    // Also at the same instant: somebody may have turned the encoder by hand.
    StepTo(state, std::max(state.instant, NanosecondsOf(seconds)));
    if (state.instant >= seen.instant) {
        seen = state;
    }
    return state;
}

void EncoderHardware::StepTo(State& state, std::int64_t instant) const {
    state.gone = GoneAt(state, instant);
    const double position = Felt().WithoutNoise(instant);
    const double before = state.position;
    if (position != before) {
        state.count += CountsBetween(before, position, Description().encoder.output, mode);
        PassMarks(state, position);
    }
    state.position = position;
    state.straightFrom = position;
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
    way.assign(1, StateAt(seconds));
}

} // namespace TavikSimulator
