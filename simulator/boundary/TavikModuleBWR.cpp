#include "library/TavikModuleLaser.h"
#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/LaserHardware.h"

namespace TavikLibrary {

using TavikSimulator::FilteredLaserHardware;

namespace {

const TavikSimulator::EnumText<eFilter> FilterTexts[] = {
    {eFilter::Filter20KHz, "20 kHz"}, {eFilter::Filter4KHz, "4 kHz"}, {eFilter::Filter1KHz, "1 kHz"},
    {eFilter::Filter200Hz, "200 Hz"}, {eFilter::Filter25Hz, "25 Hz"}, {eFilter::Filter1Hz, "1 Hz"},
    {eFilter::Filter0_1Hz, "0.1 Hz"},
};

} // namespace

std::string eFilter_ToString(eFilter filter) {
    return TavikSimulator::TextOf(filter, FilterTexts, "filter");
}

TavikModuleBWR::TavikModuleBWR(Implementation* module) : TavikModuleBW(module) {}

TavikModuleBWR::~TavikModuleBWR() = default;

std::string TavikModuleBWR::ModelNumber() {
    return implementation->Known("ModelNumber", [this] { return implementation->hardware->Description().laser.model; });
}

std::string TavikModuleBWR::SerialNumber() {
    return implementation->Known("SerialNumber",
                                 [this] { return implementation->hardware->Description().laser.serial; });
}

std::string TavikModuleBWR::FirmwareNumber() {
    return implementation->Known("FirmwareNumber",
                                 [this] { return implementation->hardware->Description().laser.firmware; });
}

eFilter TavikModuleBWR::Filter() {
    return implementation->Known("Filter", [this] { return implementation->As<FilteredLaserHardware>().Filter(); });
}

void TavikModuleBWR::setFilter(eFilter filter) {
    implementation->OnBus(
        "setFilter", [&] { implementation->As<FilteredLaserHardware>().SetFilter(filter); }, filter);
}

short TavikModuleBWR::LevelCutTime() {
    return implementation->Known("LevelCutTime", [this] {
        return static_cast<short>(implementation->As<FilteredLaserHardware>().LevelCutTime());
    });
}

void TavikModuleBWR::setLevelCutTime(unsigned short time) {
    implementation->OnBus(
        "setLevelCutTime", [&] { implementation->As<FilteredLaserHardware>().SetLevelCutTime(time); }, time);
}

int TavikModuleBWR::LevelCutTimeMax() {
    return implementation->Known("LevelCutTimeMax",
                                 [this] { return implementation->hardware->Description().laser.levelCutTimeMax; });
}

} // namespace TavikLibrary
