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
    Reading ReadAt(Nanoseconds time) const override;

    TavikLibrary::eHvxReadMode ReadMode() const { return mode; }
    void SetReadMode(TavikLibrary::eHvxReadMode mode, Nanoseconds time);
    void Sample(Nanoseconds time);
    /// True once for each reading.
    bool TakeNewReadingReady(Nanoseconds time);
    /// Takes over what the module says of itself by now.
    void UpdateInformation(Nanoseconds time);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireReadMode(TavikLibrary::eHvxReadMode mode) const;
    /// When the reading was taken that the module has at this time.
    std::optional<Nanoseconds> TakenAt(Nanoseconds time) const;
    std::optional<Nanoseconds> LastPress(Nanoseconds time) const;

    TavikLibrary::eHvxReadMode mode;
    Nanoseconds modeSince{};
    std::optional<Nanoseconds> sampledAt;
    std::optional<Nanoseconds> reported;
};

} // namespace TavikSimulator
