#pragma once

#include "library/TavikModule.h"

#include <string>

namespace TavikLibrary {

/// When a read-mode module takes a reading.
enum class eHvxReadMode : int {
    ReadContinuous = 0,
    ReadOnSwitch = 1,
    ReadOnSample = 2,
};

std::string eHvxReadMode_ToString(eHvxReadMode mode);

/// A module with selectable read modes.
class TavikModuleHVX : public TavikModule {
public:
    explicit TavikModuleHVX(Implementation* implementation);
    ~TavikModuleHVX() override;

    eHvxReadMode ReadMode();
    void setReadMode(eHvxReadMode mode);
    /// Reads the module's information again into this object.
    void UpdateInfo();
    void SampleReading();
    /// True once for each new reading.
    bool NewReadingReady();
};

} // namespace TavikLibrary
