#pragma once

#include "library/TavikRLKDevice.h"
#include "simulator/signals/Signal.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What a bench file says of a wireless connection module and the hand tools around it, as plain data.
namespace TavikSimulator {

constexpr int WirelessSlots = 6;
constexpr std::size_t LongestToolName = 20;

/// How many characters a text in UTF-8 has.
std::size_t CharacterCount(const std::string& text);

/// A gauge plugged into a hand tool. Lengths in mm.
struct ToolChannelDescription {
    std::string id;
    double stroke = 12.0;
    double offset = 0.0;
    SignalDescription signal;
};

/// How a tool's radio behaves. Chances are from 0 to 1.
struct LinkDescription {
    Nanoseconds delay = std::chrono::milliseconds(30); ///< from a question to its answer
    Nanoseconds jitter{};                              ///< the most that an answer is late
    double loss = 0.0;                                 ///< that a question gets no answer
    double repeat = 0.0;                               ///< that a read gets the readings of the one before
    Nanoseconds connectTime{};                         ///< from a restart of the module until the tool is connected
};

struct ToolDescription {
    std::string identity;
    TavikLibrary::eRLK_DeviceType type = TavikLibrary::eRLK_DeviceType::KRV;
    std::string firmware = "2.70";
    std::optional<std::string> identifyReply; ///< in place of the usual one
    double battery = 100.0;                   ///< in percent, when the bench is made
    double batteryHours = 40.0;               ///< from full to empty, switched on
    double distance = 3.0;                    ///< from the module, in metres
    int autoPowerOff = 300;                   ///< in seconds; 0 for never
    int configTries = 1;                      ///< until the tool enters configuration mode; 0 for never
    int configCalls = 0;                      ///< after which it leaves that mode by itself; 0 for never
    Nanoseconds pressEvery{};                 ///< from one press of button 1 by its user to the next; 0 for never
    LinkDescription link;
    std::vector<ToolChannelDescription> channels;
    std::uint64_t seed = 1;
};

/// What a module remembers of one slot.
struct SlotDescription {
    std::string identity;
    std::string name;
};

struct WirelessDescription {
    Nanoseconds restartTime = std::chrono::milliseconds(2500);
    int failedRestarts = 0; ///< that fail before one succeeds
    std::array<SlotDescription, WirelessSlots> slots;
    std::vector<ToolDescription> tools; ///< all that the module could connect to
};

} // namespace TavikSimulator
