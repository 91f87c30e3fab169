#pragma once

#include "library/TavikModuleHVX.h"
#include "simulator/hardware/ModuleHardware.h"

#include <optional>

namespace TavikSimulator {

/// A module that takes a reading all the time, when somebody presses its switch, or on command. Times are
/// seconds of bench time. Setters throw TavikException, and change nothing, for what cannot be done.
class ReadModeHardware : public ModuleHardware {
public:
    explicit ReadModeHardware(const ModuleDescription& description);

    /// The reading taken last; none (ReadingNotAvailable) before the first in this mode.
    Reading ReadAt(double seconds) const override;

    TavikLibrary::eHvxReadMode ReadMode() const { return mode; }
    void SetReadMode(TavikLibrary::eHvxReadMode mode, double seconds);
    void Sample(double seconds);
    /// True once for each reading.
    bool TakeNewReadingReady(double seconds);
    /// Takes over what the module says of itself by now.
    void UpdateInformation(double seconds);

protected:
    std::vector<KeptSetting> KeptSettings(double seconds) override;

private:
    void RequireReadMode(TavikLibrary::eHvxReadMode mode) const;
    /// When the reading was taken that the module has at this time.
    std::optional<double> TakenAt(double seconds) const;
    std::optional<double> LastPress(double seconds) const;

    TavikLibrary::eHvxReadMode mode;
    double modeSince = 0.0;
    std::optional<double> sampledAt;
    std::optional<double> reported;
};

} // namespace TavikSimulator
