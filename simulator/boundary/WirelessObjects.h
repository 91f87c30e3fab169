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

/// One slot of a listed wireless connection module, as the library's objects of the slot see it.
struct SlotAccess {
    TavikLibrary::TavikModule::Implementation& module;
    int slot; ///< from 0

    WirelessHardware& Hardware() const { return module.As<WirelessHardware>(); }
    Nanoseconds Now() const { return module.bench.clock.Now(); }
    /// "device RLK0000112.1": an object of this slot in the journal, where slots are numbered from 1.
    std::string Named(const std::string& kind) const {
        return kind + " " + module.hardware->Identity() + "." + std::to_string(slot + 1);
    }

    /// Takes the time of a question to the tool: over the network's wires, then by radio.
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

    /// A call that asks the tool by radio; the body is given the tool.
    template <class Body, class... Args>
    auto ByRadio(const std::string& object, const char* operation, Body body, const Args&... args) const {
        return module.Asking(
            object, operation, [this] { SpendRadioTime(); },
            [&] { return body(Hardware().ConnectedTool(slot, Now())); }, args...);
    }
};

/// The library's objects of a wireless connection module: its six slots.
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

/// One slot and what the library keeps of it.
class TavikLibrary::RLK_Device::Implementation {
public:
    explicit Implementation(TavikSimulator::SlotAccess access);

    const TavikSimulator::SlotAccess access;
    const std::string name; ///< in the journal
    /// One for each type of tool that the slot may hold.
    RLK_DeviceSettings_KRV krvSettings;
    RLK_DeviceSettings_KRVX krvxSettings;
};
