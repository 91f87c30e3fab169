#include "simulator/files/ModuleElement.h"

#include "simulator/files/AirGaugeElement.h"
#include "simulator/files/SignalElement.h"
#include "simulator/files/TypeElements.h"
#include "simulator/files/WirelessElement.h"
#include "simulator/hardware/ModuleTypes.h"
#include "simulator/hardware/ProbePhysics.h"
#include "simulator/signals/Noise.h"

#include <algorithm>
#include <limits>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eNetSpeed;

namespace {

constexpr double LargestLength = 1e9;
constexpr double ShortestStroke = 1e-6;
constexpr double LongestAnnouncement = 3600.0; // seconds

bool IsProbe(const ModuleDescription& module) {
    return !module.resolutions.empty();
}

void ReadCapabilities(BenchElement& element, ModuleDescription& module) {
    if (!element.Has("capabilities")) {
        return;
    }
    using Member = bool ModuleCapabilities::*;
    static const std::vector<std::pair<std::string, Member>> words = {
        {"buffered", &ModuleCapabilities::buffered},     {"buffered-master", &ModuleCapabilities::bufferedMaster},
        {"difference", &ModuleCapabilities::difference}, {"dynamic", &ModuleCapabilities::dynamic},
        {"dynamic2", &ModuleCapabilities::dynamic2},     {"dynamic-master", &ModuleCapabilities::dynamicMaster},
        {"readburst", &ModuleCapabilities::readBurst},
    };
    module.capabilities = ModuleCapabilities();
    for (const std::string& word : element.Words("capabilities")) {
        module.capabilities.*element.Meaning("capabilities", word, words) = true;
    }
}

void ReadRange(BenchElement& element, ModuleDescription& module) {
    const bool moved = element.Has("stroke") || element.Has("offset");
    module.unit = element.Text("unit", module.unit);
    module.stroke = element.Number("stroke", module.stroke, ShortestStroke, LargestLength);
    module.offset = element.Number("offset", module.offset, -LargestLength, LargestLength);
    if (element.Has("counts-per-unit") && IsProbe(module)) {
        element.Fail("The counts-per-unit of a probe follow from its stroke and its resolution.");
    }
    module.countsPerUnit = element.Number("counts-per-unit", module.countsPerUnit, ShortestStroke, LargestLength);
    const double fullScale = module.stroke * module.countsPerUnit;
    if (!IsProbe(module) && (fullScale < 1.0 || fullScale > std::numeric_limits<int>::max())) {
        element.Fail("stroke times counts-per-unit must lie within 1 to 2147483647.");
    }
    if (moved) {
        module.signal.base = module.offset + module.stroke / 2.0;
    }
}

template <class Value, class FromNumber>
std::vector<Value> ReadOffer(BenchElement& element, const char* attribute, const std::vector<Value>& otherwise,
                             FromNumber fromNumber) {
    if (!element.Has(attribute)) {
        return otherwise;
    }
    std::vector<Value> offer;
    for (const std::string& word : element.Words(attribute)) {
        const double number = element.NumberIn(attribute, word);
        const auto value = fromNumber(static_cast<int>(std::clamp(number, 0.0, 1e6)));
        if (!value || number != static_cast<int>(number)) {
            element.Fail("\"" + word + "\" is not a value of " + attribute + ".");
        }
        offer.push_back(*value);
    }
    return offer;
}

void ReadProbeSettings(BenchElement& element, ModuleDescription& module) {
    if (!IsProbe(module)) {
        return;
    }
    module.resolutionBits = static_cast<int>(element.Whole("resolution", module.resolutionBits, 0, 64));
    module.averagingSamples = static_cast<int>(element.Whole("averaging", module.averagingSamples, 0, 4096));
    module.resolutions = ReadOffer(element, "resolutions", module.resolutions, ResolutionOf);
    module.averagings = ReadOffer(element, "averagings", module.averagings, AveragingOf);
}

void ReadPlugState(BenchElement& element, ModuleDescription& module) {
    module.plugState = element.OneOf<PlugState>(
        "place", PlugState::Listed,
        {{"list", PlugState::Listed}, {"wire", PlugState::OnBus}, {"absent", PlugState::Absent}});
    module.remembered = element.Flag("remembered", true);
    if (element.Has("announces")) {
        module.announcesAfter = element.Time("announces", Nanoseconds::zero(), 0.0, LongestAnnouncement);
        if (module.plugState == PlugState::Listed) {
            module.plugState = PlugState::OnBus;
        }
    }
}

void RequireBuildable(BenchElement& element, const ModuleDescription& module) {
    if (!IsProbe(module)) {
        return;
    }
    ProbeDescription probe;
    probe.offset = module.offset;
    probe.stroke = module.stroke;
    probe.resolutionBits = module.resolutionBits;
    probe.averagingSamples = module.averagingSamples;
    probe.signal = module.signal;
    const std::string reason = Validate(probe);
    if (!reason.empty()) {
        element.Fail(reason);
    }
}

ModuleDescription ReadOne(BenchElement& element) {
    element.Required("type");
    const auto type = element.OneOf<eModuleType>("type", eModuleType::Unknown, TypeWords());
    ModuleDescription module = TypeInfoOf(type).defaults();
    module.identity = ReadIdentity(element, "identity");
    module.deviceType = element.Text("device-type", module.deviceType);
    module.softwareVersion = element.Text("software-version", module.softwareVersion);
    module.probeIdentity = element.Text("probe-identity");
    module.hotSwappable = element.Flag("hot-swappable", module.hotSwappable);
    module.speeds = ReadSpeeds(element, "speeds", module.speeds);
    if (type == eModuleType::PNX) {
        module.display = element.Flag("display", module.display);
    }
    ReadCapabilities(element, module);
    module.bufferDepth = static_cast<int>(element.Whole("buffer-depth", module.bufferDepth, 1, LargestBufferDepth));
    ReadRange(element, module);
    ReadTypeAttributes(element, module);
    ReadProbeSettings(element, module);
    ReadPlugState(element, module);
    return module;
}

// Identity with its last digits increased: "KX20000001" and 2 give "KX20000003". Fails when the digits overflow.
std::string Following(const BenchElement& element, const std::string& identity, int step) {
    const std::size_t letters = identity.find_last_not_of("0123456789") + 1;
    const std::string digits = identity.substr(letters);
    const std::string counted = std::to_string((digits.empty() ? 0 : std::stoll(digits)) + step);
    if (counted.size() > digits.size()) {
        element.Fail("The digits at the end of " + identity + " do not suffice to count up " + std::to_string(step) +
                     " identities.");
    }
    return identity.substr(0, letters) + std::string(digits.size() - counted.size(), '0') + counted;
}

} // namespace

const std::vector<std::pair<std::string, eNetSpeed>>& SpeedWords() {
    static const std::vector<std::pair<std::string, eNetSpeed>> words = {{"low", eNetSpeed::Low},
                                                                         {"medium", eNetSpeed::Medium},
                                                                         {"high", eNetSpeed::High},
                                                                         {"ultra-high", eNetSpeed::UltraHigh}};
    return words;
}

const std::vector<std::pair<std::string, eModuleType>>& TypeWords() {
    static const std::vector<std::pair<std::string, eModuleType>> words = [] {
        std::vector<std::pair<std::string, eModuleType>> all;
        for (const ModuleTypeInfo& kind : ModuleTypes()) {
            all.emplace_back(kind.name, kind.type);
        }
        return all;
    }();
    return words;
}

std::vector<eNetSpeed> ReadSpeeds(BenchElement& element, const char* attribute,
                                  const std::vector<eNetSpeed>& otherwise) {
    if (!element.Has(attribute)) {
        return otherwise;
    }
    std::vector<eNetSpeed> speeds;
    for (const std::string& word : element.Words(attribute)) {
        speeds.push_back(element.Meaning(attribute, word, SpeedWords()));
    }
    if (speeds.empty()) {
        element.Fail(std::string(attribute) + " names no speed.");
    }
    return speeds;
}

std::string ReadIdentity(BenchElement& element, const char* attribute) {
    std::string identity = element.Required(attribute);
    if (!IsIdentity(identity)) {
        element.Fail("\"" + identity +
                     "\" is not a module identity: that has 10 characters, upper-case letters and digits.");
    }
    return identity;
}

std::vector<ModuleDescription> ReadModules(BenchElement& element, std::uint64_t seed) {
    ModuleDescription module = ReadOne(element);
    if (module.type == eModuleType::RLK) {
        module.wireless = ReadWireless(element, seed);
    }
    const int count = static_cast<int>(element.Whole("count", 1, 1, MostModules));
    std::vector<BenchElement> signals = element.Children("signal");
    if (signals.size() > 1) {
        signals[1].Fail("A module has one <signal> only.");
    }
    if (module.type == eModuleType::PNX) {
        module.airGauge = ReadAirGauge(element);
    }
    element.Finish();
    if (!signals.empty()) {
        module.signal = ReadSignal(signals.front(), module.signal);
    }
    RequireBuildable(element, module);
    std::vector<ModuleDescription> modules;
    for (int i = 0; i < count; ++i) {
        modules.push_back(module);
        modules.back().identity = i == 0 ? module.identity : Following(element, module.identity, i);
        modules.back().signal.seed = SeedFor(seed, modules.back().identity);
        modules.back().airGauge.supply.seed = SeedFor(seed, modules.back().identity + " supply");
        if (i > 0 && module.probeIdentity) {
            modules.back().probeIdentity = Following(element, *module.probeIdentity, i);
        }
    }
    return modules;
}

} // namespace TavikSimulator
