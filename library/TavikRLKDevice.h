#pragma once

#include "library/TavikEnums.h"

#include <string>

namespace TavikLibrary {

class RLK_DeviceSettingsBase;

/// Kind of a wireless hand tool.
enum class eRLK_DeviceType : int {
    None = 0,
    KRV = 1,  ///< one channel
    KRVX = 2, ///< eight channels
};

/// Connection state of a wireless hand tool.
enum class eRLK_DeviceStatus : int {
    Empty = 0,
    Searching = 1,
    Connecting = 2,
    Connected = 3,
    Asleep = 4,
    OutOfRange = 5,
};

/// What a read of all channels asks for.
enum class eRead3_ControlCode : int {
    Normal = 1,
    Tagged = 3,
};

std::string eRLK_DeviceType_ToString(eRLK_DeviceType type);
std::string eRLK_DeviceStatus_ToString(eRLK_DeviceStatus status);

/// One channel's part of a read of all channels.
struct TavikChannelReading {
    std::string id;
    double stroke;
    double reading;
    eTavikErrors status;
    int tag;
};

/// The readings of all channels of a hand tool, from one read. They are returned by value, so that their size is part
/// of the binary interface.
class TavikChannelReadings {
public:
    class Implementation;
    TavikChannelReadings();
    explicit TavikChannelReadings(Implementation* implementation);
    TavikChannelReadings(const TavikChannelReadings& other);
    TavikChannelReadings& operator=(const TavikChannelReadings& other);
    ~TavikChannelReadings();

    /// The number of channels read.
    int ReadingCount();
    /// The reading of a channel, 0 to ReadingCount() - 1. Throws TavikException beyond.
    const TavikChannelReading& operator[](int channel);

private:
    Implementation* implementation;
};

/// One slot of a wireless connection module and the hand tool in it.
class RLK_Device {
public:
    class Implementation;
    explicit RLK_Device(Implementation* implementation);
    ~RLK_Device();
    RLK_Device(const RLK_Device&) = delete;
    RLK_Device& operator=(const RLK_Device&) = delete;

    /// The 10-character radio identity; empty for an empty slot.
    std::string TavikIdentity();
    /// 10 characters, or none to empty the slot. Becomes effective with TavikModuleRLK::Restart.
    void setTavikIdentity(std::string identity);
    std::string DeviceName();
    /// Up to 20 characters.
    void setDeviceName(std::string name);
    eRLK_DeviceType DeviceType();
    eRLK_DeviceStatus ConnectionStatus();
    int NumChannels();
    /// In percent.
    int BatteryStatus();
    /// Wakes a tool that has switched itself off. Throws TavikException when the tool does not answer and when
    /// the slot is empty.
    TavikChannelReadings ReadAllChannels(eRead3_ControlCode code = eRead3_ControlCode::Normal);
    /// The identity of the gauge on a channel, 0 to NumChannels() - 1.
    std::string GetChannelData(int channel);
    /// Reads the tool's cached fields (type, name) again.
    void UpdateDeviceFieldData();
    /// The settings of the tool in the slot, of the class that goes with its type. Throws TavikException when
    /// there is no tool.
    RLK_DeviceSettingsBase* Settings();

private:
    Implementation* implementation;
};

/// The six slots of a wireless connection module.
class RLK_Devices {
public:
    class Implementation;
    explicit RLK_Devices(Implementation* implementation);
    ~RLK_Devices();
    RLK_Devices(const RLK_Devices&) = delete;
    RLK_Devices& operator=(const RLK_Devices&) = delete;

    /// The slot at an index, 0 to 5. Throws TavikException beyond.
    RLK_Device* GetDevice(int index);

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
