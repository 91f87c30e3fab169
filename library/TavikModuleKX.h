#pragma once

#include "library/TavikModule.h"

#include <string>
#include <vector>

namespace TavikLibrary {

/// Resolution of a probe: into how many counts its stroke is divided.
enum class eResolution : int {
    Bits14 = 0,
    Bits15 = 1,
    Bits16 = 2,
    Bits17 = 3,
    Bits18 = 4,
};

/// How many samples a probe averages for one reading.
enum class eAveraging : int {
    Off = 0,
    Samples2 = 1,
    Samples4 = 2,
    Samples8 = 3,
    Samples16 = 4,
    Samples32 = 5,
    Samples64 = 6,
    Samples128 = 7,
    Samples256 = 8,
};

std::string eResolution_ToString(eResolution resolution);
/// The inverse of eResolution_ToString. Throws TavikException for a text that names no resolution.
eResolution eResolution_FromString(std::string text);
std::string eAveraging_ToString(eAveraging averaging);
/// The inverse of eAveraging_ToString. Throws TavikException for a text that names no averaging.
eAveraging eAveraging_FromString(std::string text);

/// A digital probe.
class TavikModuleKX : public TavikModule {
public:
    explicit TavikModuleKX(Implementation* implementation);
    ~TavikModuleKX() override;

    /// In display order.
    virtual std::vector<eAveraging> AvailableAveragings();
    /// In display order.
    virtual std::vector<eResolution> AvailableResolutions();

    eResolution Resolution();
    void setResolution(eResolution resolution);
    eAveraging Averaging();
    void setAveraging(eAveraging averaging);
};

} // namespace TavikLibrary
