#pragma once

#include "simulator/hardware/InputLine.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <vector>

namespace TavikSimulator {

/// Pins of a digital I/O module and their connections. Operations throw TavikException, and change nothing, for a pin
/// that the module does not have.
class DigitalIOHardware : public ModuleHardware {
public:
    /// The mask names the outputs; the other pins are inputs.
    DigitalIOHardware(const ModuleDescription& description, int pinCount, int outputs);

    /// Reading in counts: bit i is pin i.
    Reading ReadAt(Nanoseconds time) const override;
    /// Sets all outputs to 0.
    void PowerOn(Nanoseconds time) override;

    bool IsInput(int pin) const;
    virtual void SetInput(int pin, bool input, Nanoseconds time);
    /// Level of an input, or the level that an output drives.
    int InputState(int pin, Nanoseconds time) const;
    int OutputState(int pin) const;
    void SetOutputState(int pin, int state, Nanoseconds time);
    int DebounceTime() const { return debounceTime; }
    void SetDebounceTime(int milliseconds, Nanoseconds time);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    KeptSetting KeptDebounceTime(Nanoseconds time);
    /// Level of a line that an output in this state drives; `pull` is the level of a line that it does not drive.
    virtual int DrivenLevel(int pin, int state, int pull) const;
    /// Bit of a pin in the reading.
    virtual int ReadingBit(int pin, Nanoseconds time) const;
    /// Number of debounced rising edges of an input until a bench time; never decreases.
    std::int64_t RisesOfInput(int pin, Nanoseconds time) const;
    /// Updates the lines of all wires after a change of the pins.
    void DriveWires(Nanoseconds time);

private:
    /// Throws for a debounce time that the module does not have.
    void RequireDebounceTime(int milliseconds) const;

    struct Pin {
        bool input = true;
        int state = 0;                ///< as an output
        std::int64_t risesMissed = 0; ///< correction for pulses before the last change of the debounce time
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
