#include "simulator/files/WirelessElement.h"

#include "simulator/files/ModuleElement.h"
#include "simulator/files/SignalElement.h"
#include "simulator/signals/Noise.h"

#include <algorithm>
#include <set>

namespace TavikSimulator {

using TavikLibrary::eRLK_DeviceType;

namespace {

constexpr double LongestTime = 86400.0; // seconds
constexpr double LongestStroke = 1000.0;
constexpr int MostFailures = 1000;
constexpr int ChannelsOfMultiChannelTool = 8;

/// Default channel of a tool.
ToolChannelDescription UsualChannel(const ToolDescription& tool, int number) {
    ToolChannelDescription channel;
    channel.id = "CH" + std::to_string(number) + tool.identity.substr(3);
    channel.signal.base = channel.offset + channel.stroke / 2.0;
    channel.signal.noise = 0.0002;
    return channel;
}

ToolChannelDescription ReadChannel(BenchElement& element, const ToolDescription& tool, int number) {
    ToolChannelDescription channel = UsualChannel(tool, number);
    channel.id = element.Text("id", channel.id);
    channel.stroke = element.Number("stroke", channel.stroke, 0.001, LongestStroke);
    channel.offset = element.Number("offset", channel.offset, -LongestStroke, LongestStroke);
    channel.signal.base = channel.offset + channel.stroke / 2.0;
    std::vector<BenchElement> signals = element.Children("signal");
    if (signals.size() > 1) {
        signals[1].Fail("A channel has one <signal> only.");
    }
    element.Finish();
    if (!signals.empty()) {
        channel.signal = ReadSignal(signals.front(), channel.signal);
    }
    return channel;
}

void ReadChannels(BenchElement& element, ToolDescription& tool, std::uint64_t seed) {
    const bool single = tool.type == eRLK_DeviceType::KRV;
    const int most = single ? 1 : ChannelsOfMultiChannelTool;
    std::vector<BenchElement> channels = element.Children("channel");
    for (BenchElement& channel : channels) {
        const int number = static_cast<int>(tool.channels.size()) + 1;
        if (number > most) {
            channel.Fail(single ? "A KRV has one <channel>." : "A KRV-X has 8 <channel>s at most.");
        }
        tool.channels.push_back(ReadChannel(channel, tool, number));
    }
    while (static_cast<int>(tool.channels.size()) < most) {
        tool.channels.push_back(UsualChannel(tool, static_cast<int>(tool.channels.size()) + 1));
    }
    for (ToolChannelDescription& channel : tool.channels) {
        channel.signal.seed = SeedFor(seed, tool.identity + channel.id);
    }
}

LinkDescription ReadLink(BenchElement& element) {
    LinkDescription link;
    link.delay = element.Time("delay", link.delay, 0.0, LongestTime);
    link.jitter = element.Time("jitter", link.jitter, 0.0, LongestTime);
    link.loss = element.Number("loss", link.loss, 0.0, 1.0);
    link.repeat = element.Number("repeat", link.repeat, 0.0, 1.0);
    link.connectTime = element.Time("connect-time", link.connectTime, 0.0, LongestTime);
    return link;
}

void ReadConfigMode(BenchElement& element, ToolDescription& tool) {
    const std::string tries = element.Text("config-tries", "1");
    tool.configTries = tries == "never" ? 0 : static_cast<int>(element.Whole("config-tries", 1, 1, MostFailures));
    tool.configCalls = static_cast<int>(element.Whole("config-drops-after", 0, 0, MostFailures));
}

int ReadAutoPowerOff(BenchElement& element, const ToolDescription& tool) {
    const int seconds = static_cast<int>(element.Whole("auto-power-off", tool.autoPowerOff, 0, 9999));
    const int least = tool.type == eRLK_DeviceType::KRV ? 15 : 30;
    if (seconds != 0 && seconds < least) {
        element.Fail("auto-power-off must be 0 or at least " + std::to_string(least) + " for this tool.");
    }
    return seconds;
}

ToolDescription ReadTool(BenchElement& element, std::uint64_t seed) {
    ToolDescription tool;
    tool.identity = ReadIdentity(element, "identity");
    element.Required("type");
    tool.type = element.OneOf<eRLK_DeviceType>("type", tool.type,
                                               {{"KRV", eRLK_DeviceType::KRV}, {"KRV-X", eRLK_DeviceType::KRVX}});
    tool.firmware = element.Text("firmware", tool.firmware);
    tool.identifyReply = element.Text("identify");
    tool.battery = element.Number("battery", tool.battery, 0.0, 100.0);
    tool.batteryHours = element.Number("battery-hours", tool.batteryHours, 0.001, 1e6);
    tool.distance = element.Number("distance", tool.distance, 0.0, 1e6);
    tool.autoPowerOff = ReadAutoPowerOff(element, tool);
    tool.pressEvery = element.Time("press-every", Nanoseconds::zero(), 0.0, LongestTime);
    if (tool.pressEvery > Nanoseconds::zero() && tool.pressEvery < std::chrono::seconds(1)) {
        element.Fail("press-every must be 0 or at least 1.");
    }
    tool.link = ReadLink(element);
    ReadConfigMode(element, tool);
    tool.seed = SeedFor(seed, tool.identity);
    ReadChannels(element, tool, seed);
    element.Finish();
    return tool;
}

void ReadSlots(BenchElement& element, WirelessDescription& wireless) {
    std::set<int> read;
    for (BenchElement& child : element.Children("slot")) {
        child.Required("number");
        const int number = static_cast<int>(child.Whole("number", 0, 1, WirelessSlots));
        if (!read.insert(number).second) {
            child.Fail("Slot " + std::to_string(number) + " is described twice.");
        }
        SlotDescription& slot = wireless.slots[static_cast<std::size_t>(number - 1)];
        slot.identity = child.Text("identity", std::string());
        slot.name = child.Text("name", std::string());
        if (CharacterCount(slot.name) > LongestToolName) {
            child.Fail("name has more than 20 characters.");
        }
        child.Finish();
    }
}

} // namespace

WirelessDescription ReadWireless(BenchElement& element, std::uint64_t seed) {
    WirelessDescription wireless;
    wireless.restartTime = element.Time("restart-time", wireless.restartTime, 0.0, LongestTime);
    wireless.failedRestarts = static_cast<int>(element.Whole("failed-restarts", 0, 0, MostFailures));
    ReadSlots(element, wireless);
    for (BenchElement& child : element.Children("tool")) {
        wireless.tools.push_back(ReadTool(child, seed));
        const std::string& identity = wireless.tools.back().identity;
        const auto same = [&](const ToolDescription& tool) { return tool.identity == identity; };
        if (std::count_if(wireless.tools.begin(), wireless.tools.end(), same) > 1) {
            child.Fail("There are two hand tools " + identity + ".");
        }
    }
    return wireless;
}

} // namespace TavikSimulator
