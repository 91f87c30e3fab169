#include "simulator/files/NetworkFile.h"

#include "library/TavikException.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/files/BenchFile.h"
#include "tests/fuzz/Fuzz.h"

using TavikSimulator::StoredModule;
using TavikSimulator::StoredNetwork;

namespace {

const char* const Bench = R"(<bench clock="manual" latency="off"><network name="N" controller="C1">
<module type="KX" identity="MODULE0001"/><module type="QTA" identity="MODULE0002"/>
<module type="SWAX" identity="MODULE0003"/><module type="SWAX2" identity="MODULE0004"/>
<module type="BWR" identity="MODULE0005"/><module type="BWK" identity="MODULE0006"/>
<module type="HVX" identity="MODULE0007"/><module type="PNX" identity="MODULE0008" display="yes"/>
<module type="RLK" identity="MODULE0009"/><module type="RN" identity="MODULE0010"/></network></bench>)";

bool Same(const StoredNetwork& one, const StoredNetwork& other) {
    if (one.name != other.name || one.speed != other.speed || one.modules.size() != other.modules.size()) {
        return false;
    }
    for (std::size_t i = 0; i < one.modules.size(); ++i) {
        const StoredModule& a = one.modules[i];
        const StoredModule& b = other.modules[i];
        if (a.identity != b.identity || a.type != b.type || a.settings != b.settings) {
            return false;
        }
    }
    return true;
}

} // namespace

// A network file is either taken, and then saving and loading again gives the same network, or refused with a
// sentence that names it, and then the network is as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = "network.xml";
    TavikSimulator::Bench bench(TavikSimulator::ReadBenchText(Bench, "bench"));
    TavikSimulator::SimulatedNetwork& network = bench.NetworkNamed("N");
    network.Connect();
    const StoredNetwork before = network.Stored();
    try {
        network.Restore(TavikSimulator::ReadNetworkText(TextOfInput(data, size), file), file);
    } catch (const TavikLibrary::TavikException& refusal) {
        RequireOfInput(std::string(refusal.what()).rfind(file + ", line ", 0) == 0, "a refusal without file and line");
        RequireOfInput(Same(network.Stored(), before), "a refused file that changed the network");
        return 0;
    }
    const StoredNetwork taken = network.Stored();
    const std::string text = TavikSimulator::NetworkText(taken);
    network.Restore(before, file);
    network.Restore(TavikSimulator::ReadNetworkText(text, file), file);
    RequireOfInput(Same(network.Stored(), taken), "a network that does not come back as it was saved");
    return 0;
}
