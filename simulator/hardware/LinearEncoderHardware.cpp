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

/// What the encoder can be set to, up and down.
constexpr int MostCounts = 1000000000;

constexpr double HandTime = 1.0;         // seconds for the way over the mark and back
constexpr double HandStep = 0.01;        // seconds between two looks at the hand
constexpr double HandOvershoot = 0.05;   // of the stroke
constexpr double MarkWithoutWord = 0.25; // of the stroke

/// A count as the encoder's register holds it, and whether it does.
Reading Registered(std::int64_t count, int code) {
    constexpr auto least = std::int64_t{std::numeric_limits<int>::min()};
    constexpr auto most = std::int64_t{std::numeric_limits<int>::max()};
    if (count < least || count > most) {
        code = static_cast<int>(count < least ? eTavikErrors::UnderRange : eTavikErrors::OverRange);
    }
    return {code, static_cast<int>(std::clamp(count, least, most)), 0.0};
}

/// How much of its way the hand has gone: it goes there and back again.
double ShareOfWay(double seconds) {
    const double share = seconds / HandTime;
    return share <= 0.0 || share >= 1.0 ? 0.0 : 1.0 - std::abs(2.0 * share - 1.0);
}

double SecondsOf(std::int64_t nanoseconds) {
    return static_cast<double>(nanoseconds) * 1e-9;
}

} // namespace

LinearEncoderHardware::LinearEncoderHardware(const ModuleDescription& description)
    : ModuleHardware(description),
      mark(description.linearEncoder.mark.value_or(description.offset + MarkWithoutWord * description.stroke)) {}

Reading LinearEncoderHardware::ReadAt(double seconds) const {
    Follow(seconds);
    const Reading position = PositionAt(seconds);
    Reading reading = Registered(CountAt(position.counts), position.code);
    reading.units = UnitsOf(reading.counts, Range());
    return reading;
}

void LinearEncoderHardware::PowerOn(double seconds) {
    search.reset();
    foundCount.reset();
    hand.reset();
    datum = {0, PositionAt(seconds).counts};
}

void LinearEncoderHardware::RequireDirection(eDirection newDirection) const {
    if (newDirection != eDirection::Normal && newDirection != eDirection::Reversed) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() + " has no counting direction " +
                                                  std::to_string(static_cast<int>(newDirection)) + ".");
    }
}

void LinearEncoderHardware::SetDirection(eDirection newDirection, double seconds) {
    RequireDirection(newDirection);
    Follow(seconds);
    const int position = PositionAt(seconds).counts;
    datum = {CountAt(position), position};
    direction = newDirection;
}

std::vector<KeptSetting> LinearEncoderHardware::KeptSettings(double seconds) {
    return {KeptNumber<eDirection>(
        "direction", [this] { return direction; }, [this](eDirection wanted) { RequireDirection(wanted); },
        [this, seconds](eDirection wanted) { SetDirection(wanted, seconds); })};
}

void LinearEncoderHardware::PresetInCounts(int counts, double seconds) {
    RequireCount(counts);
    Follow(seconds);
    datum = {counts, PositionAt(seconds).counts};
}

void LinearEncoderHardware::PresetInUnits(double value, double seconds) {
    PresetInCounts(CountsOf(value), seconds);
}

void LinearEncoderHardware::FindMarkInCounts(eReferenceMarkMode mode, int recallValue, double seconds) {
    RequireKnown(mode);
    if (mode == eReferenceMarkMode::Learn) {
        Find(std::nullopt, seconds);
        return;
    }
    RequireCount(recallValue);
    Find(recallValue, seconds);
}

void LinearEncoderHardware::FindMarkInUnits(eReferenceMarkMode mode, double recallValue, double seconds) {
    RequireKnown(mode);
    Find(mode == eReferenceMarkMode::Recall ? std::optional(CountsOf(recallValue)) : std::nullopt, seconds);
}

bool LinearEncoderHardware::IsSearching(double seconds) const {
    Follow(seconds);
    return search.has_value();
}

bool LinearEncoderHardware::MarkFound(double seconds) const {
    Follow(seconds);
    return foundCount.has_value();
}

int LinearEncoderHardware::CountsAtMark(double seconds) const {
    RequireFound(seconds);
    return *foundCount;
}

double LinearEncoderHardware::UnitsAtMark(double seconds) const {
    return UnitsOf(CountsAtMark(seconds), Range());
}

void LinearEncoderHardware::StopSearch(double seconds) {
    Follow(seconds);
    search.reset();
    if (hand && hand->comes > NanosecondsOf(seconds)) {
        hand.reset();
    }
}

double LinearEncoderHardware::TipFor(double part, std::int64_t instant) const {
    return hand ? part + (hand->beyond - part) * ShareOfWay(SecondsOf(instant - hand->comes)) : part;
}

double LinearEncoderHardware::TipWithoutNoise(std::int64_t instant) const {
    return TipFor(Felt().WithoutNoise(instant), instant);
}

Reading LinearEncoderHardware::PositionAt(double seconds) const {
    return Digitise(TipFor(Felt().At(seconds), NanosecondsOf(seconds)), Range());
}

std::int64_t LinearEncoderHardware::CountAt(std::int64_t position) const {
    const std::int64_t way = position - datum.position;
    return datum.count + (direction == eDirection::Normal ? way : -way);
}

int LinearEncoderHardware::CountsOf(double value) const {
    const double counts = std::round((value - Range().offset) * TavikSimulator::CountsPerUnit(Range()));
    if (!(std::abs(counts) <= MostCounts)) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() +
                                                  " counts from -1000000000 to 1000000000 and cannot be set to " +
                                                  std::to_string(value) + " " + Unit() + ".");
    }
    return static_cast<int>(counts);
}

void LinearEncoderHardware::RequireCount(int counts) const {
    if (counts < -MostCounts || counts > MostCounts) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() +
                                                  " counts from -1000000000 to 1000000000 and cannot be set to " +
                                                  std::to_string(counts) + ".");
    }
}

void LinearEncoderHardware::RequireFound(double seconds) const {
    if (!MarkFound(seconds)) {
        Refuse(eTavikErrors::MarkNotFound, "The reference mark of module " + Identity() + " has not been found.");
    }
}

void LinearEncoderHardware::RequireKnown(eReferenceMarkMode mode) const {
    if (mode != eReferenceMarkMode::Learn && mode != eReferenceMarkMode::Recall) {
        Refuse(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no reference mark mode " + std::to_string(static_cast<int>(mode)) + ".");
    }
}

void LinearEncoderHardware::Find(std::optional<int> recall, double seconds) {
    Follow(seconds);
    const std::int64_t instant = NanosecondsOf(seconds);
    foundCount.reset();
    // A hand that has not finished yet lets go.
    hand.reset();
    const double tip = TipWithoutNoise(instant);
    search = {recall, instant, tip};
    if (const auto& comesAfter = Description().linearEncoder.hand) {
        const double overshoot = HandOvershoot * Range().stroke;
        hand = Hand{instant + NanosecondsOf(*comesAfter), tip < mark ? mark + overshoot : mark - overshoot};
    }
}

void LinearEncoderHardware::Follow(double seconds) const {
    const std::int64_t now = NanosecondsOf(seconds);
    std::int64_t step = StepFor(Felt().Description());
    if (hand) {
        step = std::min(step, NanosecondsOf(HandStep));
    }
    while (search && search->instant + step <= now) {
        StepTo(search->instant + step);
    }
    if (search && search->instant <= now) {
        // Also at the same instant: somebody may have moved the tip.
        StepTo(now);
    }
}

void LinearEncoderHardware::StepTo(std::int64_t instant) const {
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
