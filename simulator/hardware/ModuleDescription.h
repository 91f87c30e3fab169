#pragma once

#include "library/TavikEnums.h"
#include "library/TavikModuleKX.h"
#include "simulator/hardware/AirGaugeDescription.h"
#include "simulator/hardware/TypeDescriptions.h"
#include "simulator/hardware/WirelessDescription.h"
#include "simulator/signals/Signal.h"

#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

/// State of a module when the bench is created.
enum class PlugState {
    Listed, ///< in its network's list
    OnBus,  ///< plugged in, but not in the list yet
    Absent, ///< not plugged in
};

struct ModuleCapabilities {
    bool buffered = false;
    bool bufferedMaster = false;
    bool difference = false;
    bool dynamic = false;
    bool dynamic2 = false;
    bool dynamicMaster = false;
    bool readBurst = false;
};

/// Readings in a module's buffer: default of a bench file, and maximum.
constexpr int DefaultBufferDepth = 16384;
constexpr int LargestBufferDepth = 4000000;

struct ModuleDescription {
    TavikLibrary::eModuleType type = TavikLibrary::eModuleType::Unknown;
    std::string identity;
    std::string deviceType;
    std::string softwareVersion;
    std::optional<std::string> probeIdentity;
    std::string unit;
    double stroke = 1.0;
    double offset = 0.0;
    double countsPerUnit = 1.0; ///< for probes computed from resolution and span
    bool hotSwappable = false;
    ModuleCapabilities capabilities;
    int bufferDepth = DefaultBufferDepth; ///< capacity of its buffer in readings
    std::vector<TavikLibrary::eNetSpeed> speeds;
    int resolutionBits = 14;
    int averagingSamples = 1;
    std::vector<TavikLibrary::eResolution> resolutions; ///< on offer, in display order
    std::vector<TavikLibrary::eAveraging> averagings;   ///< on offer, in display order
    bool display = false;                               ///< an air gauge with a display
    EncoderDescription encoder;
    LinearEncoderDescription linearEncoder;
    PinsDescription pins;
    LaserDescription laser;
    ReadModeDescription readMode;
    AirGaugeDescription airGauge; ///< of an air gauge
    WirelessDescription wireless; ///< of a wireless connection module
    SignalDescription signal;
    PlugState plugState = PlugState::Listed;
    std::optional<Nanoseconds> announcesAfter; ///< from the start of a notify run
    bool remembered = true;                    ///< its identity is stored in its T-connector
};

/// Whether a text is 10 characters, upper-case letters and digits.
bool IsIdentity(const std::string& text);

} // namespace TavikSimulator
