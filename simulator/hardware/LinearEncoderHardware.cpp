#include "simulator/hardware/LinearEncoderHardware.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/signals/SignalSteps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace TavikSimulator {

using TavikLibrary::eDirection;
using TavikLibrary::eReferenceMarkMode;
using TavikLibrary::eTavikErrors;

namespace {

/// Largest count of a preset, positive or negative.
constexpr int MostCounts = 1000000000;

constexpr std::chrono::seconds OperatorTime{1}; // for the travel over the mark and back
constexpr std::chrono::milliseconds OperatorStep{10};
constexpr double OperatorOvershoot = 0.05; // of the span
constexpr double DefaultMark = 0.25;       // of the span

/// A count limited to the register of the encoder, with the code of the exceeded limit.
Reading Registered(std::int64_t count, int code) {
    constexpr auto least = std::int64_t{std::numeric_limits<int>::min()};
    constexpr auto most = std::int64_t{std::numeric_limits<int>::max()};
    if (count < least || count > most) {
        code = static_cast<int>(count < least ? eTavikErrors::UnderRange : eTavikErrors::OverRange);
    }
    return {code, static_cast<int>(std::clamp(count, least, most)), 0.0};
}

/// Share of the operator's travel over the mark: rises to 1 and returns to 0.
double ShareOfWay(Nanoseconds time) {
    const double share = ToSeconds(time) / ToSeconds(OperatorTime);
    return share <= 0.0 || share >= 1.0 ? 0.0 : 1.0 - std::abs(2.0 * share - 1.0);
}

} // namespace

LinearEncoderHardware::LinearEncoderHardware(const ModuleDescription& description)
    : ModuleHardware(description),
      mark(description.linearEncoder.mark.value_or(description.offset + DefaultMark * description.stroke)) {}

Reading LinearEncoderHardware::ReadAt(Nanoseconds time) const {
    Follow(time);
    const Reading position = PositionAt(time);
    Reading reading = Registered(CountAt(position.counts), position.code);
    reading.units = UnitsOf(reading.counts, Range());
    return reading;
}

void LinearEncoderHardware::PowerOn(Nanoseconds time) {
    search.reset();
    foundCount.reset();
    simulatedOperator.reset();
    datum = {0, PositionAt(time).counts};
}

void LinearEncoderHardware::RequireDirection(eDirection newDirection) const {
    if (newDirection != eDirection::Normal && newDirection != eDirection::Reversed) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " has no counting direction " +
                                                  std::to_string(static_cast<int>(newDirection)) + ".");
    }
}

void LinearEncoderHardware::SetDirection(eDirection newDirection, Nanoseconds time) {
    RequireDirection(newDirection);
    Follow(time);
    const int position = PositionAt(time).counts;
    datum = {CountAt(position), position};
    direction = newDirection;
}

std::vector<KeptSetting> LinearEncoderHardware::KeptSettings(Nanoseconds time) {
    return {KeptNumber<eDirection>(
        "direction", [this] { return direction; }, [this](eDirection wanted) { RequireDirection(wanted); },
        [this, time](eDirection wanted) { SetDirection(wanted, time); })};
}

void LinearEncoderHardware::PresetInCounts(int counts, Nanoseconds time) {
    RequireCount(counts);
    Follow(time);
    datum = {counts, PositionAt(time).counts};
}

void LinearEncoderHardware::PresetInUnits(double value, Nanoseconds time) {
    PresetInCounts(CountsOf(value), time);
}

void LinearEncoderHardware::FindMarkInCounts(eReferenceMarkMode mode, int recallValue, Nanoseconds time) {
    RequireKnown(mode);
    if (mode == eReferenceMarkMode::Learn) {
        Find(std::nullopt, time);
        return;
    }
    RequireCount(recallValue);
    Find(recallValue, time);
}

void LinearEncoderHardware::FindMarkInUnits(eReferenceMarkMode mode, double recallValue, Nanoseconds time) {
    RequireKnown(mode);
    Find(mode == eReferenceMarkMode::Recall ? std::optional(CountsOf(recallValue)) : std::nullopt, time);
}

bool LinearEncoderHardware::IsSearching(Nanoseconds time) const {
    Follow(time);
    return search.has_value();
}

bool LinearEncoderHardware::MarkFound(Nanoseconds time) const {
    Follow(time);
    return foundCount.has_value();
}

int LinearEncoderHardware::CountsAtMark(Nanoseconds time) const {
    RequireFound(time);
    return *foundCount;
}

double LinearEncoderHardware::UnitsAtMark(Nanoseconds time) const {
    return UnitsOf(CountsAtMark(time), Range());
}

void LinearEncoderHardware::StopSearch(Nanoseconds time) {
    Follow(time);
    search.reset();
    if (simulatedOperator && simulatedOperator->comes > time) {
        simulatedOperator.reset();
    }
}

double LinearEncoderHardware::TipFor(double part, Nanoseconds instant) const {
    return simulatedOperator
               ? part + (simulatedOperator->beyond - part) * ShareOfWay(instant - simulatedOperator->comes)
               : part;
}

double LinearEncoderHardware::TipWithoutNoise(Nanoseconds instant) const {
    return TipFor(Measurand().WithoutNoise(instant), instant);
}

Reading LinearEncoderHardware::PositionAt(Nanoseconds time) const {
    return Digitise(TipFor(Measurand().At(time), time), Range());
}

std::int64_t LinearEncoderHardware::CountAt(std::int64_t position) const {
    const std::int64_t way = position - datum.position;
    return datum.count + (direction == eDirection::Normal ? way : -way);
}

int LinearEncoderHardware::CountsOf(double value) const {
    const double counts = std::round((value - Range().offset) * TavikSimulator::CountsPerUnit(Range()));
    if (!(std::abs(counts) <= MostCounts)) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() +
                                                  " counts from -1000000000 to 1000000000 and cannot be set to " +
                                                  std::to_string(value) + " " + Unit() + ".");
    }
    return static_cast<int>(counts);
}

void LinearEncoderHardware::RequireCount(int counts) const {
    if (counts < -MostCounts || counts > MostCounts) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() +
                                                  " counts from -1000000000 to 1000000000 and cannot be set to " +
                                                  std::to_string(counts) + ".");
    }
}

void LinearEncoderHardware::RequireFound(Nanoseconds time) const {
    if (!MarkFound(time)) {
        Reject(eTavikErrors::MarkNotFound, "The reference mark of module " + Identity() + " has not been found.");
    }
}

void LinearEncoderHardware::RequireKnown(eReferenceMarkMode mode) const {
    if (mode != eReferenceMarkMode::Learn && mode != eReferenceMarkMode::Recall) {
        Reject(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no reference mark mode " + std::to_string(static_cast<int>(mode)) + ".");
    }
}

void LinearEncoderHardware::Find(std::optional<int> recall, Nanoseconds time) {
    Follow(time);
    foundCount.reset();
    // A movement in progress ends.
    simulatedOperator.reset();
    const double tip = TipWithoutNoise(time);
    search = {recall, time, tip};
    if (const auto& comesAfter = Description().linearEncoder.operatorDelay) {
        const double overshoot = OperatorOvershoot * Range().stroke;
        simulatedOperator = Operator{time + *comesAfter, tip < mark ? mark + overshoot : mark - overshoot};
    }
}

void LinearEncoderHardware::Follow(Nanoseconds time) const {
    Nanoseconds step = StepFor(Measurand().Description());
    if (simulatedOperator) {
        step = std::min<Nanoseconds>(step, OperatorStep);
    }
    while (search && search->instant + step <= time) {
        StepTo(search->instant + step);
    }
    if (search && search->instant <= time) {
        // Also at the same instant: the signal can have changed.
        StepTo(time);
    }
}

void LinearEncoderHardware::StepTo(Nanoseconds instant) const {
    const double tip = TipWithoutNoise(instant);
    if ((search->tip < mark) != (tip < mark)) {
        EndAtMark();
        return;
    }
    search->instant = instant;
    search->tip = tip;
}

void LinearEncoderHardware::EndAtMark() const {
    const std::int64_t position = Digitise(mark, Range()).counts;
    if (search->recall) {
        datum = {*search->recall, position};
    }
    foundCount = Registered(CountAt(position), 0).counts;
    search.reset();
}

} // namespace TavikSimulator
