#include "library/TavikModuleLaser.h"
#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/LaserHardware.h"

namespace TavikLibrary {

using TavikSimulator::RatedLaserHardware;

namespace {

const TavikSimulator::EnumText<eMeasuringRate> RateTexts[] = {
    {eMeasuringRate::Rate100Hz, "100 Hz"}, {eMeasuringRate::Rate500Hz, "500 Hz"}, {eMeasuringRate::Rate1KHz, "1 kHz"},
    {eMeasuringRate::Rate2KHz, "2 kHz"},   {eMeasuringRate::Rate4KHz, "4 kHz"},
};

} // namespace

std::string eMeasuringRate_ToString(eMeasuringRate rate) {
    return TavikSimulator::TextOf(rate, RateTexts, "measuring rate");
}

eMeasuringRate eMeasuringRate_FromString(std::string text) {
    return TavikSimulator::ValueOf(text, RateTexts, "measuring rate");
}

TavikModuleBWK::TavikModuleBWK(Implementation* module) : TavikModuleBW(module) {}

TavikModuleBWK::~TavikModuleBWK() = default;

std::vector<eMeasuringRate> TavikModuleBWK::AvailableMeasuringRates() {
    return implementation->Known("AvailableMeasuringRates",
                                 [this] { return implementation->hardware->Description().laser.rates; });
}

eMeasuringRate TavikModuleBWK::MeasuringRate() {
    return implementation->Known("MeasuringRate",
                                 [this] { return implementation->As<RatedLaserHardware>().MeasuringRate(); });
}

void TavikModuleBWK::setMeasuringRate(eMeasuringRate rate) {
    implementation->OnBus(
        "setMeasuringRate", [&] { implementation->As<RatedLaserHardware>().SetMeasuringRate(rate); }, rate);
}

} // namespace TavikLibrary
