#pragma once

#include "library/TavikRLKDevice.h"
#include "simulator/hardware/ToolSettings.h"
#include "simulator/hardware/WirelessDescription.h"
#include "simulator/signals/Signal.h"

#include <cstdint>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Reading of one channel.
struct ToolReading {
    std::string id;
    double stroke = 0.0;
    double reading = 0.0;
    TavikLibrary::eTavikErrors status = TavikLibrary::eTavikErrors::NoError;
    int tag = 0;
};

/// A battery-driven hand tool. Its own events (battery drain, automatic switch-off, presses by its user) are computed
/// when it is used: operations take the bench time, which never decreases. Guarded by the bench's lock.
class HandTool {
public:
    /// Throws std::invalid_argument for an invalid signal.
    explicit HandTool(const ToolDescription& description);

    const ToolDescription& Description() const { return description; }
    const std::string& Identity() const { return description.identity; }
    bool IsSingleChannel() const { return description.type == TavikLibrary::eRLK_DeviceType::KRV; }
    int ChannelCount() const { return static_cast<int>(channels.size()); }
    const ToolChannelDescription& Channel(int channel) const;

    // The tool and its radio.
    bool IsInRange() const;
    bool IsAsleep(Nanoseconds now);
    /// Percent, 0 to 100; a tool at 0 does not answer.
    int Battery(Nanoseconds now);
    /// Delay of the next answer.
    Nanoseconds NextDelay();
    void CarryAway(bool away) { carriedAway = away; }

    /// Switches the tool off and on again.
    void PowerCycle(Nanoseconds now);
    /// Presses button 1 or 2. A press only wakes a sleeping tool.
    void Press(int button, Nanoseconds now);

    /// Reads all channels and wakes the tool. The code is that of the library; a tagged read returns the readings of
    /// the last press of a tag button, none before the first.
    std::vector<ToolReading> Read(TavikLibrary::eRead3_ControlCode code, Nanoseconds now);
    /// Throws TavikException when the tool does not answer; counts as use of the tool.
    void RequireAnswer(Nanoseconds now);

    // Configuration mode.
    void AskForConfigMode(Nanoseconds now);
    void LeaveConfigMode(Nanoseconds now);
    bool InConfigMode(Nanoseconds now);
    void DropConfigMode() { configMode = false; }
    /// Throws TavikException outside configuration mode.
    void RequireConfigMode(Nanoseconds now);
    std::string Reply(const std::string& command) const;

    // The datum and the memory of a single-channel tool.
    void Zero(Nanoseconds now);
    void Preset(Nanoseconds now);
    void Absolute();
    void SaveDatum();
    void ResetMinMax(Nanoseconds now);
    /// Effective when the tool is switched on next.
    void ResetToFactory() { resetPending = true; }

    KRVSettings krv;
    KRVXSettings krvx;

private:
    struct ChannelState {
        explicit ChannelState(const ToolChannelDescription& description);
        ToolChannelDescription description;
        Signal signal;
        double datum = 0.0; ///< subtracted from a position to give its reading
        double least = 0.0;
        double greatest = 0.0;
    };
    struct Position {
        double value;
        TavikLibrary::eTavikErrors status;
    };

    void CatchUp(Nanoseconds now);
    void WatchUntil(Nanoseconds time);
    void Watch(Nanoseconds time);
    Nanoseconds SwitchesOffAt() const;
    void SwitchOff();
    void SwitchOn(Nanoseconds now);
    void Tag(Nanoseconds now);
    bool Happens(double chance);

    static Position PositionOf(const ChannelState& channel, Nanoseconds time);
    ToolReading Measure(const ChannelState& channel, int index, Nanoseconds now) const;
    double Computed(const ChannelState& channel, double position) const;
    std::vector<ToolReading> Current(Nanoseconds now) const;
    bool HoldsTagged() const;
    TavikLibrary::eTavikErrors LimitStatus(double reading) const;
    int Decimals(int channel) const;

    ToolDescription description;
    std::vector<ChannelState> channels;
    TavikLibrary::eKRV_BluetoothClass radioClass = TavikLibrary::eKRV_BluetoothClass::Class2;
    double savedDatum = 0.0;

    bool asleep = false;
    bool carriedAway = false;
    bool resetPending = false;
    bool configMode = false;
    int configTries = 0;
    int configCalls = 0;
    Nanoseconds caughtUp{};
    Nanoseconds nextSample{};
    Nanoseconds nextPress{};
    Nanoseconds lastUse{};
    Nanoseconds used{};
    int tags = 0;
    std::vector<ToolReading> tagged;
    std::vector<ToolReading> delivered;
    std::int64_t draws = 0;
};

} // namespace TavikSimulator
