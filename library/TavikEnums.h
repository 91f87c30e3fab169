#pragma once

#include <string>

// Enumerations that the whole library shares, and their texts.
//
// Every enumeration has the underlying type int: a value that has no enumerator (such as -1) may be
// handed to any operation, which refuses it with a TavikException if it cannot use it.
namespace TavikLibrary {

/// Signalling speed of a network.
enum class eNetSpeed : int {
    Low = 0,
    Medium = 3,
    High = 5,
    UltraHigh = 6,
};

/// How a network's controller is attached to the computer.
enum class eNetworkType : int {
    Usb = 0,
    Ethernet = 1,
    Serial = 2,
};

/// Kind of a module.
enum class eModuleType : int {
    Unknown = 0,
    KX = 1,     ///< digital probe
    RN = 2,     ///< linear encoder
    QTA = 3,    ///< encoder interface
    HVX = 4,    ///< module with selectable read modes
    SWAX = 5,   ///< digital input/output, 8 pins
    BW = 6,     ///< laser with a beam switch
    BWR = 7,    ///< laser with a low-pass filter
    BWK = 8,    ///< laser with selectable measuring rates
    RLK = 9,    ///< wireless connection module
    SWAX2 = 12, ///< digital input/output of the second generation
    PNX = 13,   ///< air gauge
};

/// Result codes. Codes from 0x10000 on are warnings: the result that comes with them is usable.
enum class eTavikErrors : int {
    NoError = 0,
    NotAvailable = 255, ///< the value that was asked for does not exist on this module
    NetworkNotConnected = 0x1001,
    NetworkNotResponding = 0x1002,
    ControllerNotFound = 0x1003,
    SpeedNotAvailable = 0x1004,
    NotifyRunning = 0x1005,
    AcquisitionRunning = 0x1006,
    IdentityMalformed = 0x1007,
    IdentityUnknown = 0x1008,
    IdentityDuplicate = 0x1009,
    ModuleIndexOutOfRange = 0x100A,
    PositionInvalid = 0x100B,
    NetworkFull = 0x100C,
    HotSwapMismatch = 0x100D,
    ModuleNotResponding = 0x2101,
    ModuleRemoved = 0x2102,
    ReadingNotAvailable = 0x2103,
    InvalidArgument = 0x2104,
    NotSupported = 0x2105,
    UnderRange = 0x2112,      ///< the reading lies below the stroke; its value is the lower limit
    OverRange = 0x2113,       ///< the reading lies above the stroke; its value is the upper limit
    SignalFault = 0x2114,     ///< no reading: the encoder's signals make no sense
    BeamOff = 0x2115,         ///< no reading: the laser's beam is off
    NoModuleEnabled = 0x2118, ///< a run was to start for which no module is enabled
    StopAwaited = 0x2119,     ///< a run has ended by itself and has to be stopped before the next one
    BufferOverrun = 0x2120,   ///< the buffer was full; what came after this reading was lost
    DroppedOut = 0x2121,      ///< the module dropped out of a collection; there are no readings from here on
    NoSuchReading = 0x2122,
    NotRunning = 0x2123,
    MarkNotFound = 0x2128, ///< no reading at the reference mark: it has not been found
    DynamicEnabled = 0x2130,
    DynamicNotPossible = 0x2131, ///< the settings of dynamic mode do not go together
    DynamicNotReady = 0x2132,    ///< dynamic mode has not been enabled or prepared
    SyncsDropped = 0x2133,       ///< the oldest syncs of a dynamic collection made room for later ones
    SyncsMissed = 0x2134,        ///< a master triggered faster than the modules can answer
    ReadingUnsettled = 0x10001,  ///< warning: the reading was taken before the module had settled
    NotMastered = 0x10002,       ///< warning: the reading was taken by an air gauge that is not mastered
    BelowLimit = 0x10003,        ///< warning: the reading lies below the limit that is set on a hand tool
    AboveLimit = 0x10004,        ///< warning: the reading lies above the limit that is set on a hand tool
};

std::string eNetSpeed_ToString(eNetSpeed speed);
/// The inverse of eNetSpeed_ToString. Throws TavikException for a text that names no speed.
eNetSpeed eNetSpeed_FromString(std::string text);
std::string eNetworkType_ToString(eNetworkType type);
std::string eModuleType_ToString(eModuleType type);
/// Answers for every value; never throws.
std::string eTavikErrors_ToString(eTavikErrors error);

} // namespace TavikLibrary
