#pragma once

#include "library/TavikRLKDevice.h"
#include "simulator/signals/Signal.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Wireless connection module and its hand tools in a bench file, as plain data.
namespace TavikSimulator {

constexpr int WirelessSlots = 6;
constexpr std::size_t LongestToolName = 20;

/// Number of characters of a text in UTF-8.
std::size_t CharacterCount(const std::string& text);

/// A gauge plugged into a hand tool. Lengths in mm.
struct ToolChannelDescription {
    std::string id;
    double stroke = 12.0;
    double offset = 0.0;
    SignalDescription signal;
};

/// Radio link of a tool. loss and repeat are probabilities, 0 to 1.
struct LinkDescription {
    Nanoseconds delay = std::chrono::milliseconds(30); ///< from a question to its answer
    Nanoseconds jitter{};                              ///< largest additional delay
    double loss = 0.0;                                 ///< of a request without an answer
    double repeat = 0.0;                               ///< of a read that returns the previous readings
    Nanoseconds connectTime{};                         ///< from a restart of the module until the tool is connected
};

struct ToolDescription {
    std::string identity;
    TavikLibrary::eRLK_DeviceType type = TavikLibrary::eRLK_DeviceType::KRV;
    std::string firmware = "2.70";
    std::optional<std::string> identifyReply; ///< in place of the default
    double battery = 100.0;                   ///< in percent, when the bench is created
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

/// Stored data of one slot.
struct SlotDescription {
    std::string identity;
    std::string name;
};

struct WirelessDescription {
    Nanoseconds restartTime = std::chrono::milliseconds(2500);
    int failedRestarts = 0; ///< that fail before one succeeds
    std::array<SlotDescription, WirelessSlots> slots;
    std::vector<ToolDescription> tools; ///< all tools that the module can connect to
};

} // namespace TavikSimulator
