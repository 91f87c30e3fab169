#include "library/TavikModuleDigitalIO.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/DigitalIO2Hardware.h"

namespace TavikLibrary {

using TavikSimulator::DigitalIO2Hardware;

TavikModuleSWAX2::TavikModuleSWAX2(Implementation* module) : TavikModuleDigitalIO(module) {}

TavikModuleSWAX2::~TavikModuleSWAX2() = default;

unsigned short TavikModuleSWAX2::OutPolarityMask() {
    return implementation->Known("OutPolarityMask",
                                 [this] { return implementation->As<DigitalIO2Hardware>().OutPolarityMask(); });
}

void TavikModuleSWAX2::setOutPolarityMask(unsigned short mask) {
    implementation->OnBus(
        "setOutPolarityMask",
        [&] { implementation->As<DigitalIO2Hardware>().SetOutPolarityMask(mask, implementation->bench.clock.Now()); },
        mask);
}

unsigned short TavikModuleSWAX2::InPolarityMask() {
    return implementation->Known("InPolarityMask",
                                 [this] { return implementation->As<DigitalIO2Hardware>().InPolarityMask(); });
}

void TavikModuleSWAX2::setInPolarityMask(unsigned short mask) {
    implementation->OnBus(
        "setInPolarityMask", [&] { implementation->As<DigitalIO2Hardware>().SetInPolarityMask(mask); }, mask);
}

eDIOOutputMode TavikModuleSWAX2::OutputMode() {
    return implementation->Known("OutputMode",
                                 [this] { return implementation->As<DigitalIO2Hardware>().OutputMode(); });
}

void TavikModuleSWAX2::setOutputMode(eDIOOutputMode mode) {
    implementation->OnBus(
        "setOutputMode",
        [&] { implementation->As<DigitalIO2Hardware>().SetOutputMode(mode, implementation->bench.clock.Now()); }, mode);
}

short TavikModuleSWAX2::TxSample() {
    return implementation->Known(
        "TxSample", [this] { return static_cast<short>(implementation->As<DigitalIO2Hardware>().master.TxSample()); });
}

void TavikModuleSWAX2::setTxSample(short counts) {
    implementation->OnBus(
        "setTxSample", [&] { implementation->As<DigitalIO2Hardware>().master.SetTxSample(counts); }, counts);
}

eDynamicMasterMode TavikModuleSWAX2::DynamicMasterMode() {
    return implementation->Known("DynamicMasterMode",
                                 [this] { return implementation->As<DigitalIO2Hardware>().master.Mode(); });
}

void TavikModuleSWAX2::setDynamicMasterMode(eDynamicMasterMode mode) {
    implementation->OnBus(
        "setDynamicMasterMode", [&] { implementation->As<DigitalIO2Hardware>().master.SetMode(mode); }, mode);
}

short TavikModuleSWAX2::TxSync() {
    return implementation->Known(
        "TxSync", [this] { return static_cast<short>(implementation->As<DigitalIO2Hardware>().master.TxSync()); });
}

void TavikModuleSWAX2::setTxSync(short counts) {
    implementation->OnBus(
        "setTxSync", [&] { implementation->As<DigitalIO2Hardware>().master.SetTxSync(counts); }, counts);
}

} // namespace TavikLibrary
