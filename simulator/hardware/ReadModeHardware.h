#pragma once

#include "library/TavikModuleHVX.h"
#include "simulator/hardware/ModuleHardware.h"

#include <optional>

namespace TavikSimulator {

/// A module that takes a reading continuously, at a press of its switch, or on command. Setters throw TavikException,
/// and change nothing, for a value that the module does not support.
class ReadModeHardware : public ModuleHardware {
public:
    explicit ReadModeHardware(const ModuleDescription& description);

    /// The last reading; none (ReadingNotAvailable) before the first one in this mode.
    Reading ReadAt(Nanoseconds time) const override;

    TavikLibrary::eHvxReadMode ReadMode() const { return mode; }
    void SetReadMode(TavikLibrary::eHvxReadMode mode, Nanoseconds time);
    void Sample(Nanoseconds time);
    /// True once for each reading.
    bool TakeNewReadingReady(Nanoseconds time);
    /// Updates the information about the module to a bench time.
    void UpdateInformation(Nanoseconds time);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireReadMode(TavikLibrary::eHvxReadMode mode) const;
    /// Time of the last reading before a time.
    std::optional<Nanoseconds> TakenAt(Nanoseconds time) const;
    std::optional<Nanoseconds> LastPress(Nanoseconds time) const;

    TavikLibrary::eHvxReadMode mode;
    Nanoseconds modeSince{};
    std::optional<Nanoseconds> sampledAt;
    std::optional<Nanoseconds> reported;
};

} // namespace TavikSimulator
