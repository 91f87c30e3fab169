#pragma once

#include "library/TavikModuleDigitalIO.h"
#include "simulator/hardware/DigitalIOHardware.h"
#include "simulator/hardware/MasterSettings.h"

namespace TavikSimulator {

/// Digital I/O of the second generation: outputs 0 to 3, inputs 4 to 9. Output states and readings are active or
/// inactive; the polarity masks assign the levels.
class DigitalIO2Hardware : public DigitalIOHardware {
public:
    explicit DigitalIO2Hardware(const ModuleDescription& description);

    /// Rejected for a pin of the other direction.
    void SetInput(int pin, bool input, Nanoseconds time) override;

    unsigned short OutPolarityMask() const { return outPolarity; }
    void SetOutPolarityMask(unsigned short mask, Nanoseconds time);
    unsigned short InPolarityMask() const { return inPolarity; }
    void SetInPolarityMask(unsigned short mask) { inPolarity = mask; }
    TavikLibrary::eDIOOutputMode OutputMode() const { return outputMode; }
    /// Throws TavikException, and changes nothing, for a mode that the module does not have.
    void SetOutputMode(TavikLibrary::eDIOOutputMode mode, Nanoseconds time);

    MasterSettings* Master() override { return &master; }
    /// The first input (pin 4) triggers at each debounced rising edge, independent of the polarity masks.
    std::int64_t TriggerCountAt(Nanoseconds time) const override;

    MasterSettings master;

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    int DrivenLevel(int pin, int state, int pull) const override;
    int ReadingBit(int pin, Nanoseconds time) const override;

private:
    void RequireOutputMode(TavikLibrary::eDIOOutputMode mode) const;

    unsigned short outPolarity;
    unsigned short inPolarity;
    TavikLibrary::eDIOOutputMode outputMode = TavikLibrary::eDIOOutputMode::TTL;
};

} // namespace TavikSimulator
