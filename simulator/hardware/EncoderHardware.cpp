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
        Reject(eTavikErrors::InvalidArgument,
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
    seen.position = Measurand().WithoutNoise(Nanoseconds::zero());
    seen.straightFrom = seen.position;
    way.push_back(seen);
}

Reading EncoderHardware::ReadAt(Nanoseconds time) const {
    if (interfaceType != Description().encoder.wiring) {
        return {static_cast<int>(eTavikErrors::SignalFault), 0, 0.0};
    }
    const auto lowest = static_cast<std::int64_t>(std::ceil(Description().offset));
    const auto highest = static_cast<std::int64_t>(std::floor(Description().offset + Description().stroke));
    const std::int64_t count = StateAt(time).count;
    const std::int64_t limited = std::clamp(count, lowest, highest);
    eTavikErrors code = eTavikErrors::NoError;
    if (count != limited) {
        code = count < lowest ? eTavikErrors::UnderRange : eTavikErrors::OverRange;
    }
    return {static_cast<int>(code), static_cast<int>(limited),
            static_cast<double>(limited) / Description().countsPerUnit};
}

void EncoderHardware::PowerOn(Nanoseconds time) {
    Arrive(time);
    way.back().count = 0;
    seen = way.back();
}

eRefAction EncoderHardware::RefAction(Nanoseconds time) const {
    return StateAt(time).action;
}

void EncoderHardware::SetRefAction(eRefAction action, Nanoseconds time) {
    RequireKnown(action, eRefAction::Preset, Identity(), "reference action");
    Arrive(time);
    way.back().action = action;
    seen = way.back();
}

void EncoderHardware::SetQuadratureMode(eQuadratureMode newMode, Nanoseconds time) {
    RequireKnown(newMode, eQuadratureMode::CountDIR, Identity(), "quadrature mode");
    Arrive(time);
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
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " counts from " +
                                                  std::to_string(static_cast<long long>(std::ceil(lowest))) + " to " +
                                                  std::to_string(static_cast<long long>(std::floor(highest))) +
                                                  " and cannot be preset to " + std::to_string(counts) + ".");
    }
}

void EncoderHardware::SetPresetInCounts(int counts, Nanoseconds time) {
    RequirePreset(counts);
    Arrive(time);
    preset = counts;
}

std::vector<KeptSetting> EncoderHardware::KeptSettings(Nanoseconds time) {
    std::vector<KeptSetting> kept = {
        KeptNumber<eQuadratureMode>(
            "quadrature-mode", [this] { return mode; },
            [this](eQuadratureMode wanted) {
                RequireKnown(wanted, eQuadratureMode::CountDIR, Identity(), "quadrature mode");
            },
            [this, time](eQuadratureMode wanted) { SetQuadratureMode(wanted, time); }),
        KeptNumber<eEncoderInterfaceType>(
            "encoder-type", [this] { return interfaceType; },
            [this](eEncoderInterfaceType wanted) {
                RequireKnown(wanted, eEncoderInterfaceType::SingleEnded, Identity(), "encoder type");
            },
            [this](eEncoderInterfaceType wanted) { SetInterfaceType(wanted); }),
        KeptNumber<int>(
            "preset", [this] { return preset; }, [this](int counts) { RequirePreset(counts); },
            [this, time](int counts) { SetPresetInCounts(counts, time); }),
        KeptNumber<eRefAction>(
            "reference-action", [this, time] { return RefAction(time); },
            [this](eRefAction wanted) { RequireKnown(wanted, eRefAction::Preset, Identity(), "reference action"); },
            [this, time](eRefAction wanted) { SetRefAction(wanted, time); }),
    };
    for (KeptSetting& setting : master.Kept()) {
        kept.push_back(std::move(setting));
    }
    return kept;
}

// A changed signal turns the encoder at once.
void EncoderHardware::UseSignal(const SignalDescription& signal) {
    step = StepFor(signal);
    way.assign(1, seen);
    State& from = way.back();
    const double position = Measurand().WithoutNoise(from.instant);
    from.travel += CountsTravelled(from.position, position, Description().encoder.output, mode);
    from.straightFrom = position;
}

std::int64_t EncoderHardware::TriggerCountAt(Nanoseconds time) const {
    return time > seen.instant ? StateAt(time).travel : TravelAt(CheckpointBefore(time), time);
}

// Within a step the encoder moves straight on, so that its travel never decreases.
std::int64_t EncoderHardware::TravelAt(const State& checkpoint, Nanoseconds instant) const {
    if (instant <= checkpoint.instant) {
        return checkpoint.travel;
    }
    const double from = checkpoint.straightFrom;
    const double to = Measurand().WithoutNoise(checkpoint.instant + step);
    const double part = static_cast<double>((instant - checkpoint.instant).count()) / static_cast<double>(step.count());
    const double reached = std::clamp(from + part * (to - from), std::min(from, to), std::max(from, to));
    return checkpoint.travel + CountsTravelled(from, reached, Description().encoder.output, mode);
}

const EncoderHardware::State& EncoderHardware::CheckpointBefore(Nanoseconds instant) const {
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

EncoderHardware::State EncoderHardware::StateAt(Nanoseconds time) const {
    State state = CheckpointBefore(time);
    // Also at the same instant: a changed signal can have turned the encoder.
    StepTo(state, std::max(state.instant, time));
    if (state.instant >= seen.instant) {
        seen = state;
    }
    return state;
}

void EncoderHardware::StepTo(State& state, Nanoseconds instant) const {
    state.travel = TravelAt(state, instant);
    const double position = Measurand().WithoutNoise(instant);
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

void EncoderHardware::Arrive(Nanoseconds time) {
    way.assign(1, StateAt(time));
}

} // namespace TavikSimulator
