#include "simulator/hardware/ModuleTypes.h"

#include "simulator/hardware/AirGaugeHardware.h"
#include "simulator/hardware/DigitalIO2Hardware.h"
#include "simulator/hardware/DigitalIOHardware.h"
#include "simulator/hardware/EncoderHardware.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/LaserHardware.h"
#include "simulator/hardware/LinearEncoderHardware.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/hardware/ProbeHardware.h"
#include "simulator/hardware/ReadModeHardware.h"
#include "simulator/hardware/WirelessHardware.h"

namespace TavikSimulator {

using TavikLibrary::eAveraging;
using TavikLibrary::eMeasuringRate;
using TavikLibrary::eModuleType;
using TavikLibrary::eNetSpeed;
using TavikLibrary::eResolution;

namespace {

template <class Hardware>
std::shared_ptr<ModuleHardware> MakeHardware(const ModuleDescription& description) {
    return std::make_shared<Hardware>(description);
}

std::shared_ptr<ModuleHardware> MakeEightPins(const ModuleDescription& description) {
    return std::make_shared<DigitalIOHardware>(description, 8, description.pins.outputs);
}

ModuleDescription Basic(eModuleType type, const char* deviceType, const char* version, const char* unit) {
    ModuleDescription module;
    module.type = type;
    module.deviceType = deviceType;
    module.softwareVersion = version;
    module.unit = unit;
    module.speeds = {eNetSpeed::Low, eNetSpeed::Medium, eNetSpeed::High};
    return module;
}

void MeasureFrom(ModuleDescription& module, double offset, double stroke) {
    module.offset = offset;
    module.stroke = stroke;
    module.signal.base = offset + stroke / 2.0;
}

void TakePartInAcquisition(ModuleDescription& module) {
    module.capabilities.buffered = true;
    module.capabilities.difference = true;
    module.capabilities.dynamic = true;
    module.capabilities.dynamic2 = true;
    module.capabilities.readBurst = true;
}

void OfferAll(ModuleDescription& module) {
    module.resolutions = {eResolution::Bits14, eResolution::Bits15, eResolution::Bits16, eResolution::Bits17,
                          eResolution::Bits18};
    module.averagings = {eAveraging::Off,       eAveraging::Samples2,   eAveraging::Samples4,
                         eAveraging::Samples8,  eAveraging::Samples16,  eAveraging::Samples32,
                         eAveraging::Samples64, eAveraging::Samples128, eAveraging::Samples256};
}

ModuleDescription Probe() {
    ModuleDescription module = Basic(eModuleType::KX, "Digital Probe", "2.14", "mm");
    MeasureFrom(module, 0.0, 2.0);
    TakePartInAcquisition(module);
    OfferAll(module);
    module.speeds.push_back(eNetSpeed::UltraHigh);
    module.hotSwappable = true;
    module.signal.noise = 0.00005;
    return module;
}

ModuleDescription LinearEncoder() {
    ModuleDescription module = Basic(eModuleType::RN, "Linear Encoder", "1.08", "mm");
    MeasureFrom(module, 0.0, 12.0);
    module.countsPerUnit = 10000.0;
    TakePartInAcquisition(module);
    module.speeds.push_back(eNetSpeed::UltraHigh);
    return module;
}

ModuleDescription EncoderInterface() {
    ModuleDescription module = Basic(eModuleType::QTA, "Encoder Interface", "3.02", "counts");
    MeasureFrom(module, -1000000000.0, 2000000000.0);
    TakePartInAcquisition(module);
    module.capabilities.bufferedMaster = true;
    module.capabilities.dynamicMaster = true;
    module.speeds.push_back(eNetSpeed::UltraHigh);
    return module;
}

ModuleDescription ReadModeModule() {
    ModuleDescription module = Basic(eModuleType::HVX, "Read-Mode Module", "1.21", "mm");
    MeasureFrom(module, 0.0, 25.0);
    module.countsPerUnit = 1000.0;
    module.capabilities.buffered = true;
    return module;
}

ModuleDescription EightPins() {
    ModuleDescription module = Basic(eModuleType::SWAX, "Digital I/O", "1.05", "bits");
    MeasureFrom(module, 0.0, 255.0);
    return module;
}

ModuleDescription TenPins() {
    ModuleDescription module = Basic(eModuleType::SWAX2, "Digital I/O 2", "2.01", "bits");
    MeasureFrom(module, 0.0, 1023.0);
    module.capabilities.bufferedMaster = true;
    module.capabilities.dynamicMaster = true;
    module.speeds.push_back(eNetSpeed::UltraHigh);
    return module;
}

ModuleDescription Laser(eModuleType type, const char* deviceType, double offset, double stroke) {
    ModuleDescription module = Basic(type, deviceType, "1.30", "mm");
    MeasureFrom(module, offset, stroke);
    TakePartInAcquisition(module);
    OfferAll(module);
    module.signal.noise = 0.0005;
    return module;
}

ModuleDescription SwitchedLaser() {
    return Laser(eModuleType::BW, "Laser", 20.0, 10.0);
}

ModuleDescription FilteredLaser() {
    ModuleDescription module = Laser(eModuleType::BWR, "Laser with Filter", 25.0, 10.0);
    module.laser.model = "SIM-BWR";
    module.laser.serial = "000001";
    module.laser.firmware = "1.04";
    return module;
}

ModuleDescription RatedLaser() {
    ModuleDescription module = Laser(eModuleType::BWK, "Laser with Measuring Rates", 28.0, 4.0);
    module.laser.rates = {eMeasuringRate::Rate100Hz, eMeasuringRate::Rate500Hz, eMeasuringRate::Rate1KHz,
                          eMeasuringRate::Rate2KHz, eMeasuringRate::Rate4KHz};
    return module;
}

ModuleDescription WirelessModule() {
    ModuleDescription module = Basic(eModuleType::RLK, "Wireless Connection Module", "4.00", "mm");
    // The module has no measurand of its own; its hand tools have.
    module.signal.base = module.offset;
    return module;
}

ModuleDescription AirGauge() {
    ModuleDescription module = Basic(eModuleType::PNX, "Air Gauge", "1.12", "mm");
    MeasureFrom(module, -0.05, 0.1);
    module.capabilities.buffered = true;
    module.capabilities.difference = true;
    module.capabilities.readBurst = true;
    OfferAll(module);
    module.resolutions = {eResolution::Bits14};
    module.averagingSamples = 16;
    module.display = true;
    return module;
}

} // namespace

const std::vector<ModuleTypeInfo>& ModuleTypes() {
    static const std::vector<ModuleTypeInfo> kinds = {
        {eModuleType::KX, "KX", Probe, MakeHardware<ProbeHardware>},
        {eModuleType::RN, "RN", LinearEncoder, MakeHardware<LinearEncoderHardware>},
        {eModuleType::QTA, "QTA", EncoderInterface, MakeHardware<EncoderHardware>},
        {eModuleType::HVX, "HVX", ReadModeModule, MakeHardware<ReadModeHardware>},
        {eModuleType::SWAX, "SWAX", EightPins, MakeEightPins},
        {eModuleType::BW, "BW", SwitchedLaser, MakeHardware<LaserHardware>},
        {eModuleType::BWR, "BWR", FilteredLaser, MakeHardware<FilteredLaserHardware>},
        {eModuleType::BWK, "BWK", RatedLaser, MakeHardware<RatedLaserHardware>},
        {eModuleType::RLK, "RLK", WirelessModule, MakeHardware<WirelessHardware>},
        {eModuleType::SWAX2, "SWAX2", TenPins, MakeHardware<DigitalIO2Hardware>},
        {eModuleType::PNX, "PNX", AirGauge, MakeHardware<AirGaugeHardware>},
    };
    return kinds;
}

const ModuleTypeInfo& TypeInfoOf(eModuleType type) {
    for (const ModuleTypeInfo& kind : ModuleTypes()) {
        if (kind.type == type) {
            return kind;
        }
    }
    Reject(TavikLibrary::eTavikErrors::InvalidArgument,
           "There is no kind of module " + TavikLibrary::eModuleType_ToString(type) + ".");
}

} // namespace TavikSimulator
