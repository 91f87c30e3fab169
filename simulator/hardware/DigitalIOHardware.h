#pragma once

#include "simulator/hardware/InputLine.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <vector>

namespace TavikSimulator {

/// The pins of a digital I/O module and what is connected to them. Every operation throws TavikException,
/// and changes nothing, for a pin that the module does not have. Times are seconds of bench time.
class DigitalIOHardware : public ModuleHardware {
public:
    /// Pins are inputs but for those that the mask names.
    DigitalIOHardware(const ModuleDescription& description, int pinCount, int outputs);

    /// Counts: bit i tells of pin i.
    Reading ReadAt(Nanoseconds time) const override;
    /// Outputs rest again.
    void PowerOn(Nanoseconds time) override;

    bool IsInput(int pin) const;
    virtual void SetInput(int pin, bool input, Nanoseconds time);
    /// The level of an input; an output shows the level that it drives.
    int InputState(int pin, Nanoseconds time) const;
    int OutputState(int pin) const;
    void SetOutputState(int pin, int state, Nanoseconds time);
    int DebounceTime() const { return debounceTime; }
    void SetDebounceTime(int milliseconds, Nanoseconds time);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    KeptSetting KeptDebounceTime(Nanoseconds time);
    /// The level that an output in this state gives a line; the pull is what the line has when it is let go.
    virtual int DrivenLevel(int pin, int state, int pull) const;
    /// What the module's reading tells of a pin.
    virtual int ReadingBit(int pin, Nanoseconds time) const;
    /// How often the level of an input was seen going high until a bench time; never less than before.
    std::int64_t RisesOfInput(int pin, Nanoseconds time) const;
    /// Brings the lines of all wires up to date after a change of the pins.
    void DriveWires(Nanoseconds time);

private:
    /// Refuses a debounce time that there is not, in milliseconds.
    void RequireDebounceTime(int milliseconds) const;

    struct Pin {
        bool input = true;
        int state = 0;                ///< as an output
        std::int64_t risesMissed = 0; ///< what another debounce time would have made of pulses gone by
    };
    struct Wire {
        WireDescription ends;
        InputLine line;
    };
    Pin& At(int pin);
    const Pin& At(int pin) const;
    int PullOf(int pin) const;
    int LevelOfInput(int pin, Nanoseconds time) const;
    std::int64_t SeenRises(int pin, Nanoseconds time) const;
    Nanoseconds DebounceSpan() const { return std::chrono::milliseconds(debounceTime); }

    std::vector<Pin> pins;
    std::vector<Wire> wires;
    int debounceTime;
};

} // namespace TavikSimulator
