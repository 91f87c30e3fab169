#pragma once

#include "library/TavikDynamic.h"
#include "library/TavikModule.h"

#include <string>

namespace TavikLibrary {

/// How the outputs of a digital I/O module of the second generation are driven.
enum class eDIOOutputMode : int {
    NPN = 0,
    PNP = 1,
    TTL = 2,
};

/// What both generations of digital I/O modules offer. Pins are numbered from 0.
class TavikModuleDigitalIO : public TavikModule {
public:
    ~TavikModuleDigitalIO() override;

    /// 1 for an input, any other value for an output.
    virtual int PinConfiguration(int pin);
    /// Level of an input pin: 0 low, 1 high.
    virtual int InputState(int pin);
    /// State of an output pin: 0 low or inactive, 1 high or active.
    virtual int OutputState(int pin);
    virtual void setOutputState(int pin, int state);
    virtual void ReservedInputOutput1();
    /// In milliseconds.
    virtual int DebounceTime();
    virtual void setDebounceTime(int milliseconds);
    virtual void ReservedInputOutput2();
    /// 1 for an input, 0 for an output.
    virtual void setPinConfiguration(int pin, int configuration);

protected:
    explicit TavikModuleDigitalIO(Implementation* implementation);
};

/// Digital I/O with 8 pins, each an input or an output.
class TavikModuleSWAX : public TavikModuleDigitalIO {
public:
    explicit TavikModuleSWAX(Implementation* implementation);
    ~TavikModuleSWAX() override;
};

/// Digital I/O with 4 outputs (pins 0 to 3) and 6 inputs (pins 4 to 9).
class TavikModuleSWAX2 : public TavikModuleDigitalIO {
public:
    explicit TavikModuleSWAX2(Implementation* implementation);
    ~TavikModuleSWAX2() override;

    /// Bit i is 1 when the active state of output i is the high level.
    unsigned short OutPolarityMask();
    void setOutPolarityMask(unsigned short mask);
    /// Bit i is 1 when the active state of input i is the high level.
    unsigned short InPolarityMask();
    void setInPolarityMask(unsigned short mask);
    eDIOOutputMode OutputMode();
    void setOutputMode(eDIOOutputMode mode);

    /// Input pulses between two samples of a buffered collection that this module triggers.
    short TxSample();
    void setTxSample(short counts);
    eDynamicMasterMode DynamicMasterMode();
    void setDynamicMasterMode(eDynamicMasterMode mode);
    /// Input pulses between two syncs of a dynamic collection that this module triggers.
    short TxSync();
    void setTxSync(short counts);
};

} // namespace TavikLibrary
