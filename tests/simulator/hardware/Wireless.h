#pragma once

#include "library/TavikModuleRLK.h"
#include "library/TavikRLKSettings.h"
#include "simulator/control/HandToolControl.h"
#include "tests/simulator/Bench.h"

#include <cmath>
#include <set>
#include <string>
#include <vector>

// A bench with one wireless connection module, RLK0000001.

inline std::string Slot(int number, const std::string& identity, const std::string& name = std::string()) {
    return "<slot number=\"" + std::to_string(number) + "\" identity=\"" + identity + "\" name=\"" + name + "\"/>";
}

inline std::string Tool(const std::string& identity, const std::string& type,
                        const std::string& attributes = std::string(), const std::string& channels = std::string()) {
    return "<tool identity=\"" + identity + "\" type=\"" + type + "\" " + attributes + ">" + channels + "</tool>";
}

/// A gauge of stroke 12 from 0 on, at this position; without noise.
inline std::string Still(const std::string& position) {
    return "<channel id=\"GA00000001\"><signal base=\"" + position + "\" noise=\"0\"/></channel>";
}

inline std::string Wireless(const std::string& slotsAndTools, const std::string& attributes = std::string()) {
    return OneNetwork("<module type=\"RLK\" identity=\"RLK0000001\" " + attributes + ">" + slotsAndTools + "</module>");
}

/// A single-channel tool, KRV0000001, in slot 1.
inline std::string SingleChannel(const std::string& attributes = std::string(),
                                 const std::string& channel = Still("5")) {
    return Wireless(Slot(1, "KRV0000001", "Gauge") + Tool("KRV0000001", "KRV", attributes, channel));
}

/// An eight-channel tool, KRX0000001, in slot 1.
inline std::string EightChannels(const std::string& attributes = std::string(),
                                 const std::string& channels = std::string()) {
    return Wireless(Slot(1, "KRX0000001") + Tool("KRX0000001", "KRV-X", attributes, channels));
}

/// Makes its bench the current one before the server begins.
struct ChosenBench {
    explicit ChosenBench(const std::string& text) { Use(text); }
};

/// A server on a bench with a wireless connection module.
class WirelessServer : private ChosenBench, public ConnectedServer {
public:
    explicit WirelessServer(const std::string& benchText) : ChosenBench(benchText) {}

    TavikLibrary::TavikModuleRLK* Wireless() { return dynamic_cast<TavikLibrary::TavikModuleRLK*>(Module(0)); }
    /// The slot of a number, from 1.
    TavikLibrary::RLK_Device* Device(int number = 1) { return Wireless()->Devices()->GetDevice(number - 1); }
    TavikLibrary::RLK_DeviceSettings_KRV* KRV() {
        return dynamic_cast<TavikLibrary::RLK_DeviceSettings_KRV*>(Device()->Settings());
    }
    TavikLibrary::RLK_DeviceSettings_KRVX* KRVX() {
        return dynamic_cast<TavikLibrary::RLK_DeviceSettings_KRVX*>(Device()->Settings());
    }
    double Reading(TavikLibrary::eRead3_ControlCode code = TavikLibrary::eRead3_ControlCode::Normal) {
        return Device()->ReadAllChannels(code)[0].reading;
    }
};
