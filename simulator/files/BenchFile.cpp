#include "simulator/files/BenchFile.h"

#include "simulator/files/BenchElement.h"
#include "simulator/files/FaultElement.h"
#include "simulator/files/NetworkElement.h"
#include "simulator/hardware/ErrorTexts.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <limits>
#include <set>
#include <sstream>

namespace TavikSimulator {

namespace {

pugi::xml_node RootOf(const pugi::xml_document& document, const BenchSource& source) {
    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), "bench") != 0) {
        source.Fail(root.offset_debug(), std::string("A bench file holds <bench>, not <") + root.name() + ">.");
    }
    for (const pugi::xml_node& node : document.children()) {
        if (node != root) {
            source.Fail(node.offset_debug(), "There is something beside <bench>.");
        }
    }
    return root;
}

void RequireOwnName(BenchElement& element, const char* attribute, const std::string& value,
                    std::set<std::string>& taken) {
    if (!value.empty() && !taken.insert(value).second) {
        element.Fail("There are two networks with the " + std::string(attribute) + " \"" + value + "\".");
    }
}

void ReadClock(BenchElement& root, BenchDescription& bench) {
    constexpr double SlowestClock = 0.001;
    constexpr double FastestClock = 1000000.0;
    bench.manualClock = root.OneOf<bool>("clock", false, {{"real", false}, {"manual", true}});
    bench.clockSpeed = root.Number("clock-speed", 1.0, SlowestClock, FastestClock);
    bench.latency = root.OneOf<bool>("latency", true, {{"on", true}, {"off", false}});
}

BenchDescription ReadRoot(BenchElement root) {
    BenchDescription bench;
    bench.seed = static_cast<std::uint64_t>(root.Whole("seed", 1, 0, std::numeric_limits<long long>::max()));
    ReadClock(root, bench);
    std::set<std::string> names;
    std::set<std::string> controllers;
    std::set<std::string> identities;
    for (BenchElement& element : root.Children("network")) {
        bench.networks.push_back(ReadNetwork(element, bench.seed, identities));
        RequireOwnName(element, "name", bench.networks.back().name, names);
        RequireOwnName(element, "controller", bench.networks.back().controller, controllers);
    }
    for (BenchElement& element : root.Children("fault")) {
        bench.faults.push_back(ReadFault(element));
    }
    root.Finish();
    return bench;
}

} // namespace

BenchDescription ReadBenchText(const std::string& text, const std::string& name) {
    const BenchSource source(text, name);
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) {
        source.Fail(result.offset, std::string("This is not well-formed XML: ") + result.description() + ".");
    }
    return ReadRoot(BenchElement(source, RootOf(document, source)));
}

BenchDescription ReadBenchFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (file) {
        text << file.rdbuf();
    }
    if (!file || !text) {
        const int reason = errno;
        Reject(TavikLibrary::eTavikErrors::InvalidArgument,
               "The bench file \"" + path + "\" cannot be read: " + std::strerror(reason) + ".");
    }
    return ReadBenchText(text.str(), path);
}

} // namespace TavikSimulator
