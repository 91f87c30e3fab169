#pragma once

#include "library/TavikRLKDevice.h"
#include "library/TavikRLKSettings.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/WirelessHardware.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace TavikSimulator {

/// A reading as it stands in the journal.
std::string JournalText(const ToolReading& reading);

/// Access of the library objects to one slot of a listed wireless connection module.
struct SlotAccess {
    TavikLibrary::TavikModule::Implementation& module;
    int slot; ///< from 0

    WirelessHardware& Hardware() const { return module.As<WirelessHardware>(); }
    Nanoseconds Now() const { return module.bench.clock.Now(); }
    /// "device RLK0000112.1": an object of this slot in the journal, where slots are numbered from 1.
    std::string Named(const std::string& kind) const {
        return kind + " " + module.hardware->Identity() + "." + std::to_string(slot + 1);
    }

    /// Waits for a request to the tool: over the bus, then by radio.
    void SpendRadioTime() const {
        module.network.SpendTransactions(1);
        Nanoseconds delay{};
        {
            const std::lock_guard lock(module.bench.gate.mutex);
            HandTool* tool = Hardware().ToolOf(slot);
            delay = tool ? tool->NextDelay() : Nanoseconds::zero();
        }
        module.bench.clock.Wait(delay);
    }

    /// A call that asks the tool by radio; the body receives the tool.
    template <class Body, class... Args>
    auto ByRadio(const std::string& object, const char* operation, Body body, const Args&... args) const {
        return module.Asking(
            object, operation, [this] { SpendRadioTime(); },
            [&] { return body(Hardware().ConnectedTool(slot, Now())); }, args...);
    }
};

/// Library objects of a wireless connection module: its six slots.
class WirelessObjects : public ModuleExtras {
public:
    explicit WirelessObjects(TavikLibrary::TavikModule::Implementation& module);
    ~WirelessObjects() override;

    TavikLibrary::RLK_Devices* Devices() { return &devices; }

private:
    TavikLibrary::RLK_Devices devices;
};

} // namespace TavikSimulator

/// The six slots.
class TavikLibrary::RLK_Devices::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& module);

    TavikModule::Implementation& module;
    const std::string name; ///< in the journal
    std::array<std::unique_ptr<RLK_Device>, TavikSimulator::WirelessSlots> devices;
};

/// One slot and its library state.
class TavikLibrary::RLK_Device::Implementation {
public:
    explicit Implementation(TavikSimulator::SlotAccess access);

    const TavikSimulator::SlotAccess access;
    const std::string name; ///< in the journal
    /// One object per type of tools that the slot can hold.
    RLK_DeviceSettings_KRV krvSettings;
    RLK_DeviceSettings_KRVX krvxSettings;
};
