#include "simulator/control/BenchControl.h"

#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/CurrentBench.h"
#include "simulator/files/BenchFile.h"
#include "simulator/hardware/AirGaugeHardware.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/hardware/ModuleTypes.h"

#include <cmath>
#include <mutex>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eTavikErrors;

namespace {

void Require(bool fulfilled, const char* sentence) {
    if (!fulfilled) {
        Reject(eTavikErrors::InvalidArgument, sentence);
    }
}

// Calls an action under the bench's lock, after the bench has been advanced to now.
template <class Action>
auto OnBench(Action action) {
    const std::shared_ptr<Bench> bench = CurrentBench();
    const std::lock_guard lock(bench->gate.mutex);
    bench->AdvanceToNow();
    return action(*bench);
}

template <class Action>
auto OnNetwork(const std::string& name, Action action) {
    return OnBench([&](Bench& bench) { return action(bench.NetworkNamed(name), bench); });
}

eModuleType TypeNamed(const std::string& name) {
    for (const ModuleTypeInfo& kind : ModuleTypes()) {
        if (name == kind.name) {
            return kind.type;
        }
    }
    Reject(eTavikErrors::InvalidArgument, "There is no kind of module \"" + name + "\".");
}

void Replace(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity,
             eModuleType type) {
    OnNetwork(networkName, [&](SimulatedNetwork& network, Bench&) {
        network.Modules().All().Replace(oldIdentity, newIdentity, type);
    });
}

template <class Action>
void OnAirGauge(const std::string& networkName, const std::string& identity, Action action) {
    OnNetwork(networkName, [&](SimulatedNetwork& network, Bench&) {
        auto* gauge = dynamic_cast<AirGaugeHardware*>(&network.Modules().All().At(identity));
        Require(gauge != nullptr, "Only an air gauge has a nozzle and a display.");
        action(*gauge);
    });
}

} // namespace

void UseDefaultBench() {
    ReplaceCurrentBench(ReadBenchText(CompiledInBench(), "compiled-in bench"));
}

void UseBenchFile(const std::string& path) {
    ReplaceCurrentBench(ReadBenchFile(path));
}

void UseBenchText(const std::string& text, const std::string& name) {
    ReplaceCurrentBench(ReadBenchText(text, name));
}

void UseStillBenchText(const std::string& text, const std::string& name) {
    BenchDescription bench = ReadBenchText(text, name);
    bench.manualClock = true;
    bench.latency = false;
    ReplaceCurrentBench(bench);
}

std::string DefaultBenchText() {
    return CompiledInBench();
}

void UseRealClock(double speed) {
    Require(std::isfinite(speed) && speed > 0.0, "The speed of a clock must be above 0.");
    CurrentBench()->clock.RunReal(speed);
}

void UseManualClock() {
    CurrentBench()->clock.Stop();
}

void AdvanceClock(double seconds) {
    const std::shared_ptr<Bench> bench = CurrentBench();
    Require(std::isfinite(seconds) && seconds >= 0.0, "Time passes forwards only.");
    Require(bench->clock.IsManual(), "Only a manual clock can be advanced.");
    bench->clock.Advance(FromSeconds(seconds));
}

double BenchTime() {
    return ToSeconds(CurrentBench()->clock.Now());
}

void SetLatency(bool on) {
    CurrentBench()->gate.SetLatency(on);
}

void StartJournal(std::size_t capacity) {
    CurrentBench()->gate.journal.Start(capacity);
}

void StopJournal() {
    CurrentBench()->gate.journal.Stop();
}

void ClearJournal() {
    CurrentBench()->gate.journal.Clear();
}

std::vector<JournalEntry> Journal() {
    return CurrentBench()->gate.journal.Entries();
}

std::uint64_t JournalDropped() {
    return CurrentBench()->gate.journal.Dropped();
}

int AddFault(const Fault& fault) {
    const std::shared_ptr<Bench> bench = CurrentBench();
    return bench->gate.faults.Add(fault, bench->clock.Now());
}

void RemoveFault(int number) {
    CurrentBench()->gate.faults.Remove(number);
}

void ClearFaults() {
    CurrentBench()->gate.faults.Clear();
}

void FailCall(std::uint64_t k, int code, const std::string& text, bool everyCallAfter) {
    Fault fault;
    fault.code = code;
    fault.text = text;
    CurrentBench()->gate.faults.FailCall(k, everyCallAfter, fault);
}

void FailCallPlainly(std::uint64_t k, const std::string& text, bool everyCallAfter) {
    Fault fault;
    fault.effect = FaultEffect::ThrowPlain;
    fault.text = text;
    CurrentBench()->gate.faults.FailCall(k, everyCallAfter, fault);
}

std::uint64_t FaultsTriggered() {
    return CurrentBench()->gate.faults.Triggered();
}

std::uint64_t FaultsTriggered(int number) {
    return CurrentBench()->gate.faults.Triggered(number);
}

JournalEntry LastFaultedCall() {
    return CurrentBench()->gate.faults.LastFaulted();
}

std::uint64_t CallCount() {
    return CurrentBench()->gate.CallCount();
}

void SetModulePresent(const std::string& networkName, const std::string& identity, bool present) {
    OnNetwork(networkName, [&](SimulatedNetwork& network, Bench& bench) {
        network.Modules().All().SetPresent(identity, present, bench.clock.Now());
    });
}

void SetNetworkPresent(const std::string& networkName, bool present) {
    OnNetwork(networkName, [&](SimulatedNetwork& network, Bench&) { network.SetPresent(present); });
}

void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity) {
    Replace(networkName, oldIdentity, newIdentity, eModuleType::Unknown);
}

void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity,
                   const std::string& newType) {
    Replace(networkName, oldIdentity, newIdentity, TypeNamed(newType));
}

void HoldPosition(const std::string& networkName, const std::string& identity, double position) {
    Require(std::fabs(position) <= 1e9, "A position must lie within +-1e9.");
    OnNetwork(networkName,
              [&](SimulatedNetwork& network, Bench&) { network.Modules().All().At(identity).Hold(position); });
}

void ReleasePosition(const std::string& networkName, const std::string& identity) {
    OnNetwork(networkName, [&](SimulatedNetwork& network, Bench&) { network.Modules().All().At(identity).Release(); });
}

void PutInNozzle(const std::string& networkName, const std::string& identity, NozzlePart part) {
    OnAirGauge(networkName, identity, [&](AirGaugeHardware& gauge) { gauge.PutInNozzle(part); });
}

void ChangeUnitAtDisplay(const std::string& networkName, const std::string& identity, TavikLibrary::ePNX_UOM unit,
                         int passcode) {
    OnAirGauge(networkName, identity, [&](AirGaugeHardware& gauge) { gauge.ChangeUnitAtDisplay(unit, passcode); });
}

std::vector<std::string> ListedModules(const std::string& networkName) {
    return OnNetwork(networkName, [](SimulatedNetwork& network, Bench&) { return network.Modules().Identities(); });
}

std::uint64_t CallsOnRemovedModules() {
    return CurrentBench()->callsOnRemovedModules;
}

} // namespace TavikSimulator
