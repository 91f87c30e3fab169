#pragma once

#include "library/TavikModuleKX.h"

#include <string>
#include <vector>

namespace TavikLibrary {

/// Cut-off frequency of a laser's low-pass filter.
enum class eFilter : int {
    Filter20KHz = 0,
    Filter4KHz = 1,
    Filter1KHz = 2,
    Filter200Hz = 3,
    Filter25Hz = 4,
    Filter1Hz = 5,
    Filter0_1Hz = 6,
};

/// How often a laser has a new value.
enum class eMeasuringRate : int {
    Rate100Hz = 0,
    Rate500Hz = 1,
    Rate1KHz = 2,
    Rate2KHz = 3,
    Rate4KHz = 4,
};

std::string eFilter_ToString(eFilter filter);
std::string eMeasuringRate_ToString(eMeasuringRate rate);
/// The inverse of eMeasuringRate_ToString. Throws TavikException for a text that names no rate.
eMeasuringRate eMeasuringRate_FromString(std::string text);

/// A laser whose beam can be switched.
class TavikModuleBW : public TavikModuleKX {
public:
    explicit TavikModuleBW(Implementation* implementation);
    ~TavikModuleBW() override;

    bool BeamOn();
    void setBeamOn(bool on);
};

/// A laser with a low-pass filter.
class TavikModuleBWR : public TavikModuleBW {
public:
    explicit TavikModuleBWR(Implementation* implementation);
    ~TavikModuleBWR() override;

    std::string ModelNumber();
    std::string SerialNumber();
    std::string FirmwareNumber();
    eFilter Filter();
    void setFilter(eFilter filter);
    /// In steps of 0.1 ms.
    short LevelCutTime();
    /// In steps of 0.1 ms, 0 to LevelCutTimeMax().
    void setLevelCutTime(unsigned short time);
    int LevelCutTimeMax();
};

/// A laser with selectable measuring rates.
class TavikModuleBWK : public TavikModuleBW {
public:
    explicit TavikModuleBWK(Implementation* implementation);
    ~TavikModuleBWK() override;

    /// In display order.
    virtual std::vector<eMeasuringRate> AvailableMeasuringRates();
    eMeasuringRate MeasuringRate();
    void setMeasuringRate(eMeasuringRate rate);
};

} // namespace TavikLibrary
