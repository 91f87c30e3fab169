#include "simulator/hardware/HandTool.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/signals/Noise.h"

#include <algorithm>
#include <cmath>

namespace TavikSimulator {

using TavikLibrary::eKRV_BluetoothClass;
using TavikLibrary::eKRV_ButtonFunction;
using TavikLibrary::eKRV_X_ButtonFunction;
using TavikLibrary::eTavikErrors;

namespace {

/// Sampling period for minimum and maximum.
constexpr std::chrono::milliseconds SamplePeriod{100};

/// Longest time for which minimum and maximum are computed later.
constexpr std::chrono::seconds LongestHindsight{600};

/// Range of a radio class, in metres.
double Reach(eKRV_BluetoothClass radioClass) {
    switch (radioClass) {
    case eKRV_BluetoothClass::Class1:
        return 100.0;
    case eKRV_BluetoothClass::Class2:
        return 10.0;
    case eKRV_BluetoothClass::Class3:
        return 1.0;
    }
    return 0.0;
}

[[noreturn]] void RejectAnswer(const std::string& identity, const std::string& why) {
    Reject(eTavikErrors::ModuleNotResponding, "Hand tool " + identity + " does not answer: " + why + ".");
}

} // namespace

HandTool::ChannelState::ChannelState(const ToolChannelDescription& channel)
    : description(channel), signal(channel.signal) {}

HandTool::HandTool(const ToolDescription& toolDescription)
    : description(toolDescription), nextPress(toolDescription.pressEvery) {
    for (const ToolChannelDescription& channel : description.channels) {
        channels.emplace_back(channel);
    }
    krv.autoPowerDownTime = description.autoPowerOff;
    krvx.offTime = description.autoPowerOff;
    ResetMinMax(Nanoseconds::zero());
}

const ToolChannelDescription& HandTool::Channel(int channel) const {
    if (channel < 0 || channel >= ChannelCount()) {
        Reject(eTavikErrors::InvalidArgument, "Hand tool " + Identity() + " has the channels 0 to " +
                                                  std::to_string(ChannelCount() - 1) + ", but no channel " +
                                                  std::to_string(channel) + ".");
    }
    return channels[static_cast<std::size_t>(channel)].description;
}

// Events of the tool itself

void HandTool::CatchUp(Nanoseconds now) {
    while (description.pressEvery > Nanoseconds::zero() && nextPress <= now) {
        const Nanoseconds pressed = nextPress;
        nextPress += description.pressEvery;
        WatchUntil(pressed);
        Press(1, pressed);
    }
    WatchUntil(now);
}

void HandTool::WatchUntil(Nanoseconds time) {
    if (time <= caughtUp) {
        return;
    }
    if (!asleep) {
        const Nanoseconds end = std::min(time, SwitchesOffAt());
        nextSample = std::max<Nanoseconds>(nextSample, end - LongestHindsight);
        for (; nextSample <= end; nextSample += SamplePeriod) {
            Watch(nextSample);
        }
        used += std::max(Nanoseconds::zero(), end - caughtUp);
        if (end < time) {
            SwitchOff();
        }
    }
    caughtUp = time;
}

void HandTool::Watch(Nanoseconds time) {
    for (ChannelState& channel : channels) {
        const double value = PositionOf(channel, time).value;
        channel.least = std::min(channel.least, value);
        channel.greatest = std::max(channel.greatest, value);
    }
}

Nanoseconds HandTool::SwitchesOffAt() const {
    const std::chrono::seconds unused(IsSingleChannel() ? krv.autoPowerDownTime : krvx.offTime);
    return unused.count() > 0 ? lastUse + unused : LatestTime;
}

void HandTool::SwitchOff() {
    asleep = true;
    configMode = false;
    configTries = 0;
}

void HandTool::SwitchOn(Nanoseconds now) {
    if (resetPending) {
        resetPending = false;
        krv = KRVSettings();
        krvx = KRVXSettings();
        savedDatum = 0.0;
    }
    radioClass = krv.bluetoothClass;
    asleep = false;
    lastUse = now;
    nextSample = now;
    for (ChannelState& channel : channels) {
        channel.datum = savedDatum;
    }
    ResetMinMax(now);
}

void HandTool::PowerCycle(Nanoseconds now) {
    CatchUp(now);
    SwitchOff();
    SwitchOn(now);
}

void HandTool::Press(int button, Nanoseconds now) {
    if (button != 1 && button != 2) {
        Reject(eTavikErrors::InvalidArgument,
               "A hand tool has the buttons 1 and 2, but no button " + std::to_string(button) + ".");
    }
    WatchUntil(now);
    if (asleep) {
        SwitchOn(now);
        return;
    }
    lastUse = now;
    const auto index = static_cast<std::size_t>(button - 1);
    if (!IsSingleChannel()) {
        if (krvx.buttons[index] == eKRV_X_ButtonFunction::Tag) {
            Tag(now);
        } else if (krvx.buttons[index] == eKRV_X_ButtonFunction::PowerOff) {
            SwitchOff();
        }
    } else if (krv.buttons[index] == eKRV_ButtonFunction::Tag) {
        Tag(now);
    } else if (krv.buttons[index] == eKRV_ButtonFunction::Zero) {
        Zero(now);
    } else {
        Preset(now);
    }
}

// The radio

bool HandTool::IsInRange() const {
    return !carriedAway && description.distance <= Reach(radioClass);
}

bool HandTool::IsAsleep(Nanoseconds now) {
    CatchUp(now);
    return asleep;
}

int HandTool::Battery(Nanoseconds now) {
    CatchUp(now);
    const double drained = 100.0 * ToSeconds(used) / (description.batteryHours * 3600.0);
    return static_cast<int>(std::ceil(std::clamp(description.battery - drained, 0.0, 100.0)));
}

bool HandTool::Happens(double chance) {
    return std::ldexp(static_cast<double>(RandomBits(description.seed, ++draws)), -64) < chance;
}

Nanoseconds HandTool::NextDelay() {
    const double late = std::ldexp(static_cast<double>(RandomBits(description.seed, ++draws)), -64);
    return description.link.delay + FromSeconds(late * ToSeconds(description.link.jitter));
}

void HandTool::RequireAnswer(Nanoseconds now) {
    if (!IsInRange()) {
        RejectAnswer(Identity(), "it is out of range");
    }
    if (Battery(now) == 0) {
        RejectAnswer(Identity(), "its battery is empty");
    }
    if (asleep) {
        RejectAnswer(Identity(), "it has switched itself off");
    }
    if (Happens(description.link.loss)) {
        RejectAnswer(Identity(), "the radio link is weak");
    }
    lastUse = now;
}

// Configuration mode

void HandTool::AskForConfigMode(Nanoseconds now) {
    CatchUp(now);
    if (!IsInRange() || Battery(now) == 0 || configMode) {
        return;
    }
    if (asleep) {
        // Wakes up; the next request is answered.
        SwitchOn(now);
        return;
    }
    lastUse = now;
    ++configTries;
    if (description.configTries > 0 && configTries >= description.configTries) {
        configMode = true;
        configTries = 0;
        configCalls = 0;
    }
}

void HandTool::LeaveConfigMode(Nanoseconds now) {
    RequireAnswer(now);
    configMode = false;
    configTries = 0;
}

bool HandTool::InConfigMode(Nanoseconds now) {
    CatchUp(now);
    return configMode;
}

void HandTool::RequireConfigMode(Nanoseconds now) {
    if (!InConfigMode(now)) {
        Reject(eTavikErrors::NotSupported, "Hand tool " + Identity() + " is not in configuration mode.");
    }
    ++configCalls;
    if (configCalls == description.configCalls) {
        configMode = false;
    }
}

std::string HandTool::Reply(const std::string& command) const {
    if (command != "IDENTIFY") {
        Reject(eTavikErrors::InvalidArgument,
               "Hand tool " + Identity() + " does not know the command \"" + command + "\".");
    }
    if (description.identifyReply) {
        return *description.identifyReply;
    }
    std::string reply = (IsSingleChannel() ? "KRV SIMULATED " : "KRV-X SIMULATED ") + Identity();
    reply.resize(IsSingleChannel() ? 25 : 27, ' ');
    return reply + description.firmware;
}

} // namespace TavikSimulator
