#pragma once

#include "simulator/hardware/HandTool.h"
#include "simulator/hardware/ModuleHardware.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

/// A wireless connection module: six slots and the hand tools that it can reach. A written identity becomes effective
/// at the next restart. Operations throw TavikException, and change nothing, for values that they do not support. Slots
/// are numbered from 0 here and from 1 in error messages. Guarded by the bench's lock.
class WirelessHardware : public ModuleHardware {
public:
    explicit WirelessHardware(const ModuleDescription& description);

    bool Answers(Nanoseconds time) const override;
    void PowerOn(Nanoseconds time) override;

    static void RequireSlot(int slot);
    const std::string& IdentityIn(int slot) const { return At(slot).written; }
    void SetIdentityIn(int slot, const std::string& identity);
    const std::string& NameOf(int slot) const { return At(slot).name; }
    void SetNameOf(int slot, const std::string& name);
    /// Tool type at the last update of the fields.
    TavikLibrary::eRLK_DeviceType KnownType(int slot) const { return At(slot).knownType; }
    void UpdateFields(int slot);
    TavikLibrary::eRLK_DeviceStatus StatusOf(int slot, Nanoseconds now);
    /// Tool of the slot, in range or not; null when there is none.
    HandTool* ToolOf(int slot);
    /// Tool that the slot is connected to. Throws TavikException when there is none.
    HandTool& ConnectedTool(int slot, Nanoseconds now);

    Nanoseconds RestartTime() const { return Description().wireless.restartTime; }
    /// The module does not answer for the duration of its restart.
    void GoDown(Nanoseconds now) { downUntil = now + RestartTime(); }
    void ComeUp();
    /// Connects to the tools after a restart. Throws TavikException when the restart fails.
    void Reconnect(Nanoseconds now);

    /// Returns null when the module has no such tool.
    HandTool* ToolNamed(const std::string& identity);

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    struct Slot {
        std::string written;
        std::string effective;
        std::string name;
        TavikLibrary::eRLK_DeviceType knownType = TavikLibrary::eRLK_DeviceType::None;
    };
    const Slot& At(int slot) const;
    Slot& At(int slot);
    void Connect(Nanoseconds now);

    std::array<Slot, WirelessSlots> slots;
    std::vector<std::unique_ptr<HandTool>> tools;
    Nanoseconds downUntil;
    Nanoseconds connectingSince;
    int failedRestartsLeft;
};

} // namespace TavikSimulator
