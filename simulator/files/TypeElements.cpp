#include "simulator/files/TypeElements.h"

#include "simulator/hardware/Laser.h"

#include <string>

namespace TavikSimulator {

using TavikLibrary::eEncoderInterfaceType;
using TavikLibrary::eHvxReadMode;
using TavikLibrary::eModuleType;

namespace {

constexpr double FarthestLine = 1e9;
constexpr double LongestTime = 1e6;   // seconds
constexpr double ShortestTime = 1e-4; // seconds
constexpr int TenPinsMask = 0x3FF;

void ReadEncoder(BenchElement& element, EncoderDescription& encoder) {
    encoder.output = element.OneOf<EncoderOutput>("encoder", encoder.output,
                                                  {{"quadrature", EncoderOutput::Quadrature},
                                                   {"up-down", EncoderOutput::UpDown},
                                                   {"count-direction", EncoderOutput::CountDirection}});
    encoder.wiring = element.OneOf<eEncoderInterfaceType>(
        "wiring", encoder.wiring,
        {{"differential", eEncoderInterfaceType::Differential}, {"single-ended", eEncoderInterfaceType::SingleEnded}});
    if (element.Has("mark")) {
        encoder.mark = element.Number("mark", 0.0, -FarthestLine, FarthestLine);
    }
    encoder.markEvery = element.Number("mark-every", 0.0, 0.0, FarthestLine);
    if (encoder.markEvery > 0.0 && (!encoder.mark || encoder.markEvery < 1.0)) {
        element.Fail("Marks repeat every line at most, and need a first one (mark).");
    }
}

void ReadLinearEncoder(BenchElement& element, ModuleDescription& module) {
    LinearEncoderDescription& encoder = module.linearEncoder;
    if (element.Has("mark")) {
        encoder.mark = element.Number("mark", 0.0, -FarthestLine, FarthestLine);
        if (*encoder.mark < module.offset || *encoder.mark > module.offset + module.stroke) {
            element.Fail("The reference mark lies within the measuring range.");
        }
    }
    if (element.Text("hand") == "never") {
        encoder.operatorDelay.reset();
    } else if (element.Has("hand")) {
        encoder.operatorDelay = element.Time("hand", Nanoseconds::zero(), 0.0, LongestTime);
    }
}

/// Pins that can be outputs and pins that can be inputs: bit i is pin i.
struct PinMasks {
    int outputs;
    int inputs;
};

int ReadPin(BenchElement& element, const char* attribute, int mask) {
    const int pin = static_cast<int>(element.Whole(attribute, 0, 0, 15));
    if (((mask >> pin) & 1) == 0) {
        element.Fail("The module has no pin " + std::to_string(pin) + " for this.");
    }
    return pin;
}

void RequireFree(BenchElement& element, int& taken, int pin) {
    if ((taken >> pin) & 1) {
        element.Fail("Pin " + std::to_string(pin) + " is connected to something else already.");
    }
    taken |= 1 << pin;
}

void ReadConnections(BenchElement& element, const PinMasks& masks, PinsDescription& pins) {
    int taken = 0;
    for (BenchElement& child : element.Children("wire")) {
        WireDescription wire;
        child.Required("from");
        child.Required("to");
        wire.from = ReadPin(child, "from", masks.outputs);
        wire.to = ReadPin(child, "to", masks.inputs);
        if (wire.from == wire.to) {
            child.Fail("A wire leads from one pin to another.");
        }
        RequireFree(child, taken, wire.to);
        child.Finish();
        pins.wires.push_back(wire);
    }
    for (BenchElement& child : element.Children("pulses")) {
        PulsesDescription pulses;
        child.Required("pin");
        pulses.pin = ReadPin(child, "pin", masks.inputs);
        pulses.period = child.Time("period", pulses.period, ShortestTime, LongestTime);
        pulses.high = child.Time("high", pulses.period / 2, 0.0, LongestTime);
        pulses.start = child.Time("start", Nanoseconds::zero(), 0.0, LongestTime);
        if (pulses.high <= Nanoseconds::zero() || pulses.high >= pulses.period) {
            child.Fail("A pulse is shorter than its period, and longer than nothing.");
        }
        RequireFree(child, taken, pulses.pin);
        child.Finish();
        pins.pulses.push_back(pulses);
    }
}

void ReadPins(BenchElement& element, ModuleDescription& module) {
    const bool eightPins = module.type == eModuleType::SWAX;
    const PinMasks masks = eightPins ? PinMasks{0xFF, 0xFF} : PinMasks{0x00F, 0x3F0};
    PinsDescription& pins = module.pins;
    pins.inputs = static_cast<int>(element.Whole("inputs", pins.inputs, 0, TenPinsMask));
    pins.debounceTime = static_cast<int>(element.Whole("debounce", pins.debounceTime, 0, 1000));
    if (eightPins) {
        pins.outputs = static_cast<int>(element.Whole("outputs", pins.outputs, 0, masks.outputs));
    } else {
        pins.pullUps = static_cast<int>(element.Whole("pull-ups", pins.pullUps, 0, TenPinsMask));
        pins.outputPolarity =
            static_cast<unsigned short>(element.Whole("output-polarity", pins.outputPolarity, 0, 0xFFFF));
        pins.inputPolarity =
            static_cast<unsigned short>(element.Whole("input-polarity", pins.inputPolarity, 0, 0xFFFF));
    }
    ReadConnections(element, masks, pins);
}

void ReadFilter(BenchElement& element, LaserDescription& laser) {
    laser.model = element.Text("model", laser.model);
    laser.serial = element.Text("serial", laser.serial);
    laser.firmware = element.Text("firmware", laser.firmware);
    laser.filter = element.OneOf("filter", laser.filter, FilterWords());
    laser.levelCutTimeMax = static_cast<int>(element.Whole("level-cut-max", laser.levelCutTimeMax, 0, 32767));
    laser.levelCutTime = static_cast<int>(element.Whole("level-cut", laser.levelCutTime, 0, laser.levelCutTimeMax));
}

void ReadRates(BenchElement& element, LaserDescription& laser) {
    if (element.Has("rates")) {
        laser.rates.clear();
        for (const std::string& word : element.Words("rates")) {
            laser.rates.push_back(element.Meaning("rates", word, RateWords()));
        }
        if (laser.rates.empty()) {
            element.Fail("rates names no measuring rate.");
        }
        laser.rate = laser.rates.front();
    }
    laser.rate = element.OneOf("rate", laser.rate, RateWords());
    if (!Offers(laser, laser.rate)) {
        element.Fail("The laser's rate is not among its rates.");
    }
}

void ReadLaser(BenchElement& element, ModuleDescription& module) {
    module.laser.beamOn = element.Flag("beam", module.laser.beamOn);
    if (module.type == eModuleType::BWR) {
        ReadFilter(element, module.laser);
    } else if (module.type == eModuleType::BWK) {
        ReadRates(element, module.laser);
    }
}

InformationChange ReadChange(BenchElement& element) {
    InformationChange change;
    change.at = element.Time("at", Nanoseconds::zero(), 0.0, LongestTime);
    change.deviceType = element.Text("device-type");
    change.softwareVersion = element.Text("software-version");
    change.probeIdentity = element.Text("probe-identity");
    if (!change.deviceType && !change.softwareVersion && !change.probeIdentity) {
        element.Fail("A change changes something.");
    }
    element.Finish();
    return change;
}

void ReadReadMode(BenchElement& element, ReadModeDescription& readMode) {
    readMode.mode = element.OneOf<eHvxReadMode>("read-mode", readMode.mode,
                                                {{"continuous", eHvxReadMode::ReadContinuous},
                                                 {"switch", eHvxReadMode::ReadOnSwitch},
                                                 {"sample", eHvxReadMode::ReadOnSample}});
    if (element.Has("switch-every")) {
        readMode.switchEvery = element.Time("switch-every", Nanoseconds::zero(), ShortestTime, LongestTime);
    }
    std::vector<BenchElement> changes = element.Children("change");
    if (changes.size() > 1) {
        changes[1].Fail("A module has one <change> only.");
    }
    if (!changes.empty()) {
        readMode.change = ReadChange(changes.front());
    }
}

} // namespace

void ReadTypeAttributes(BenchElement& element, ModuleDescription& module) {
    switch (module.type) {
    case eModuleType::RN:
        return ReadLinearEncoder(element, module);
    case eModuleType::QTA:
        return ReadEncoder(element, module.encoder);
    case eModuleType::SWAX:
    case eModuleType::SWAX2:
        return ReadPins(element, module);
    case eModuleType::BW:
    case eModuleType::BWR:
    case eModuleType::BWK:
        return ReadLaser(element, module);
    case eModuleType::HVX:
        return ReadReadMode(element, module.readMode);
    default:
        return;
    }
}

} // namespace TavikSimulator
