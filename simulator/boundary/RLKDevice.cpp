#include "simulator/boundary/ChannelReadings.h"
#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/HandToolSettings.h"
#include "simulator/boundary/WirelessObjects.h"

#include <utility>
#include <vector>

namespace TavikSimulator {

std::string JournalText(const ToolReading& reading) {
    return reading.id + " " + JournalText(reading.reading);
}

WirelessObjects::WirelessObjects(TavikLibrary::TavikModule::Implementation& module)
    : devices(new TavikLibrary::RLK_Devices::Implementation(module)) {}

WirelessObjects::~WirelessObjects() = default;

} // namespace TavikSimulator

namespace TavikLibrary {

using TavikSimulator::HandTool;
using TavikSimulator::SlotAccess;
using TavikSimulator::ToolReading;
using TavikSimulator::WirelessHardware;

namespace {

const TavikSimulator::EnumText<eRLK_DeviceType> DeviceTypes[] = {
    {eRLK_DeviceType::None, "None"},
    {eRLK_DeviceType::KRV, "KRV"},
    {eRLK_DeviceType::KRVX, "KRV-X"},
};

const TavikSimulator::EnumText<eRLK_DeviceStatus> DeviceStates[] = {
    {eRLK_DeviceStatus::Empty, "Empty"},           {eRLK_DeviceStatus::Searching, "Searching"},
    {eRLK_DeviceStatus::Connecting, "Connecting"}, {eRLK_DeviceStatus::Connected, "Connected"},
    {eRLK_DeviceStatus::Asleep, "Asleep"},         {eRLK_DeviceStatus::OutOfRange, "Out of range"},
};

} // namespace

std::string eRLK_DeviceType_ToString(eRLK_DeviceType type) {
    return TavikSimulator::TextOf(type, DeviceTypes, "device type");
}

std::string eRLK_DeviceStatus_ToString(eRLK_DeviceStatus status) {
    return TavikSimulator::TextOf(status, DeviceStates, "device status");
}

// The slots

RLK_Devices::Implementation::Implementation(TavikModule::Implementation& owner)
    : module(owner), name("devices " + owner.hardware->Identity()) {
    for (int slot = 0; slot < TavikSimulator::WirelessSlots; ++slot) {
        devices[static_cast<std::size_t>(slot)] =
            std::make_unique<RLK_Device>(new RLK_Device::Implementation({module, slot}));
    }
}

RLK_Devices::RLK_Devices(Implementation* devices) : implementation(devices) {}

RLK_Devices::~RLK_Devices() {
    delete implementation;
}

RLK_Device* RLK_Devices::GetDevice(int index) {
    return implementation->module.LocalOf(
        implementation->name, "GetDevice",
        [&] {
            WirelessHardware::RequireSlot(index);
            return implementation->devices[static_cast<std::size_t>(index)].get();
        },
        index);
}

// One slot

RLK_Device::Implementation::Implementation(SlotAccess slotAccess)
    : access(slotAccess),
      name(access.Named("device")),
      krvSettings(new RLK_DeviceSettingsBase::Implementation(access, eRLK_DeviceType::KRV)),
      krvxSettings(new RLK_DeviceSettingsBase::Implementation(access, eRLK_DeviceType::KRVX)) {}

RLK_Device::RLK_Device(Implementation* device) : implementation(device) {}

RLK_Device::~RLK_Device() {
    delete implementation;
}

std::string RLK_Device::TavikIdentity() {
    const SlotAccess& access = implementation->access;
    return access.module.LocalOf(implementation->name, "TavikIdentity",
                                 [&] { return access.Hardware().IdentityIn(access.slot); });
}

void RLK_Device::setTavikIdentity(std::string identity) {
    const SlotAccess& access = implementation->access;
    access.module.OnBusOf(
        implementation->name, "setTavikIdentity", [&] { access.Hardware().SetIdentityIn(access.slot, identity); },
        identity);
}

std::string RLK_Device::DeviceName() {
    const SlotAccess& access = implementation->access;
    return access.module.LocalOf(implementation->name, "DeviceName",
                                 [&] { return access.Hardware().NameOf(access.slot); });
}

void RLK_Device::setDeviceName(std::string name) {
    const SlotAccess& access = implementation->access;
    access.module.OnBusOf(
        implementation->name, "setDeviceName", [&] { access.Hardware().SetNameOf(access.slot, name); }, name);
}

eRLK_DeviceType RLK_Device::DeviceType() {
    const SlotAccess& access = implementation->access;
    return static_cast<eRLK_DeviceType>(access.module.LocalOf(implementation->name, "DeviceType", [&] {
        return static_cast<int>(access.Hardware().KnownType(access.slot));
    }));
}

eRLK_DeviceStatus RLK_Device::ConnectionStatus() {
    const SlotAccess& access = implementation->access;
    return static_cast<eRLK_DeviceStatus>(access.module.OnBusOf(implementation->name, "ConnectionStatus", [&] {
        return static_cast<int>(access.Hardware().StatusOf(access.slot, access.Now()));
    }));
}

int RLK_Device::NumChannels() {
    const SlotAccess& access = implementation->access;
    return access.module.OnBusOf(implementation->name, "NumChannels", [&] {
        const HandTool* tool = access.Hardware().ToolOf(access.slot);
        return tool ? tool->ChannelCount() : 0;
    });
}

int RLK_Device::BatteryStatus() {
    const SlotAccess& access = implementation->access;
    return access.module.OnBusOf(implementation->name, "BatteryStatus", [&] {
        HandTool* tool = access.Hardware().ToolOf(access.slot);
        return tool ? tool->Battery(access.Now()) : 0;
    });
}

TavikChannelReadings RLK_Device::ReadAllChannels(eRead3_ControlCode code) {
    const SlotAccess& access = implementation->access;
    const std::vector<ToolReading> readings = access.ByRadio(
        implementation->name, "ReadAllChannels", [&](HandTool& tool) { return tool.Read(code, access.Now()); }, code);
    return TavikChannelReadings(new TavikChannelReadings::Implementation(access, readings));
}

std::string RLK_Device::GetChannelData(int channel) {
    const SlotAccess& access = implementation->access;
    return access.module.OnBusOf(
        implementation->name, "GetChannelData",
        [&] { return access.Hardware().ConnectedTool(access.slot, access.Now()).Channel(channel).id; }, channel);
}

void RLK_Device::UpdateDeviceFieldData() {
    const SlotAccess& access = implementation->access;
    access.module.OnBusOf(implementation->name, "UpdateDeviceFieldData",
                          [&] { access.Hardware().UpdateFields(access.slot); });
}

RLK_DeviceSettingsBase* RLK_Device::Settings() {
    const SlotAccess& access = implementation->access;
    return access.module.LocalOf(implementation->name, "Settings", [&]() -> RLK_DeviceSettingsBase* {
        const HandTool* tool = access.Hardware().ToolOf(access.slot);
        if (!tool) {
            TavikSimulator::Reject(eTavikErrors::NotAvailable, "There is no hand tool in slot " +
                                                                   std::to_string(access.slot + 1) + " of module " +
                                                                   access.module.hardware->Identity() + ".");
        }
        if (tool->IsSingleChannel()) {
            return &implementation->krvSettings;
        }
        return &implementation->krvxSettings;
    });
}

} // namespace TavikLibrary
