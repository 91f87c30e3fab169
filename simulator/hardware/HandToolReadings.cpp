#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/HandTool.h"

#include <algorithm>
#include <cmath>

// Readings of a hand tool: positions, operation modes, tags and datum.
namespace TavikSimulator {

using TavikLibrary::eKRV_OperationMode;
using TavikLibrary::eRead3_ControlCode;
using TavikLibrary::eTavikErrors;

namespace {

/// First operation mode that shows the readings of the last tag.
constexpr int FirstTaggedMode = 4;

double RoundTo(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

} // namespace

HandTool::Position HandTool::PositionOf(const ChannelState& channel, Nanoseconds time) {
    const double least = channel.description.offset;
    const double greatest = least + channel.description.stroke;
    const double value = channel.signal.At(time);
    if (value < least) {
        return {least, eTavikErrors::UnderRange};
    }
    if (value > greatest) {
        return {greatest, eTavikErrors::OverRange};
    }
    return {value, eTavikErrors::NoError};
}

double HandTool::Computed(const ChannelState& channel, double position) const {
    if (!IsSingleChannel()) {
        return position;
    }
    switch (static_cast<int>(krv.mode) % FirstTaggedMode) {
    case static_cast<int>(eKRV_OperationMode::Max):
        return channel.greatest - channel.datum;
    case static_cast<int>(eKRV_OperationMode::Min):
        return channel.least - channel.datum;
    case static_cast<int>(eKRV_OperationMode::Diff):
        return channel.greatest - channel.least;
    default:
        return position - channel.datum;
    }
}

eTavikErrors HandTool::LimitStatus(double reading) const {
    if (IsSingleChannel() && krv.limitsEnabled) {
        if (reading > krv.upperLimit) {
            return eTavikErrors::AboveLimit;
        }
        if (reading < krv.lowerLimit) {
            return eTavikErrors::BelowLimit;
        }
    }
    return eTavikErrors::NoError;
}

int HandTool::Decimals(int channel) const {
    return IsSingleChannel() ? krv.resolution : krvx.resolutions[static_cast<std::size_t>(channel)];
}

ToolReading HandTool::Measure(const ChannelState& channel, int index, Nanoseconds now) const {
    const Position position = PositionOf(channel, now);
    ToolReading reading;
    reading.id = channel.description.id;
    reading.stroke = channel.description.stroke;
    reading.reading = RoundTo(Computed(channel, position.value), Decimals(index));
    reading.status = position.status == eTavikErrors::NoError ? LimitStatus(reading.reading) : position.status;
    return reading;
}

std::vector<ToolReading> HandTool::Current(Nanoseconds now) const {
    std::vector<ToolReading> readings;
    for (int index = 0; index < ChannelCount(); ++index) {
        readings.push_back(Measure(channels[static_cast<std::size_t>(index)], index, now));
    }
    return readings;
}

bool HandTool::HoldsTagged() const {
    return IsSingleChannel() && static_cast<int>(krv.mode) >= FirstTaggedMode;
}

void HandTool::Tag(Nanoseconds now) {
    Watch(now);
    ++tags;
    tagged = Current(now);
    for (ToolReading& reading : tagged) {
        reading.tag = tags;
    }
}

std::vector<ToolReading> HandTool::Read(eRead3_ControlCode code, Nanoseconds now) {
    if (code != eRead3_ControlCode::Normal && code != eRead3_ControlCode::Tagged) {
        Reject(eTavikErrors::InvalidArgument, "A hand tool is read with the code 1 (normal) or 3 (tagged), not " +
                                                  std::to_string(static_cast<int>(code)) + ".");
    }
    if (IsAsleep(now) && IsInRange() && Battery(now) > 0) {
        SwitchOn(now);
    }
    RequireAnswer(now);
    if (!delivered.empty() && Happens(description.link.repeat)) {
        return delivered;
    }
    Watch(now);
    delivered = code == eRead3_ControlCode::Tagged || HoldsTagged() ? tagged : Current(now);
    return delivered;
}

// The datum

void HandTool::Zero(Nanoseconds now) {
    for (ChannelState& channel : channels) {
        channel.datum = PositionOf(channel, now).value;
    }
}

void HandTool::Preset(Nanoseconds now) {
    for (ChannelState& channel : channels) {
        channel.datum = PositionOf(channel, now).value - krv.preset;
    }
}

void HandTool::Absolute() {
    for (ChannelState& channel : channels) {
        channel.datum = 0.0;
    }
}

void HandTool::SaveDatum() {
    savedDatum = channels.front().datum;
}

void HandTool::ResetMinMax(Nanoseconds now) {
    for (ChannelState& channel : channels) {
        channel.least = channel.greatest = PositionOf(channel, now).value;
    }
    nextSample = now;
}

} // namespace TavikSimulator
