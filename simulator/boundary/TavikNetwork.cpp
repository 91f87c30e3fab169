#include "library/TavikNetwork.h"

#include "simulator/boundary/ModuleClasses.h"
#include "simulator/boundary/NetworkImplementation.h"
#include "simulator/files/NetworkFile.h"

namespace TavikLibrary {

TavikModule* TavikNetwork::Implementation::ModuleObject(unsigned int index) {
    TavikSimulator::ListedModule& listed = network.Modules().At(index);
    if (!listed.object) {
        listed.object = TavikSimulator::MakeModule(listed.hardware->Description().type,
                                                   new TavikModule::Implementation(bench, network, listed));
    }
    return listed.object.get();
}

TavikNetwork::TavikNetwork(Implementation* network) : implementation(network) {}

TavikNetwork::~TavikNetwork() {
    delete implementation;
}

void TavikNetwork::Connect() {
    const auto wait = [this] { implementation->bench.clock.Wait(implementation->network.ConnectTime()); };
    implementation->bench.gate.Call(implementation->name, "Connect", wait,
                                    [this] { implementation->network.Connect(); });
}

void TavikNetwork::Disconnect() {
    implementation->Always("Disconnect", [this] { implementation->network.Disconnect(); });
}

bool TavikNetwork::DynamicCapable() {
    return implementation->Connected("DynamicCapable",
                                     [this] { return implementation->network.Description().capabilities.dynamic; });
}

bool TavikNetwork::Dynamic2Capable() {
    return implementation->Connected("Dynamic2Capable",
                                     [this] { return implementation->network.Description().capabilities.dynamic2; });
}

bool TavikNetwork::DynamicExternalSourceCapable() {
    return implementation->Connected("DynamicExternalSourceCapable", [this] {
        return implementation->network.Description().capabilities.dynamicExternal;
    });
}

std::string TavikNetwork::NetworkName() {
    return implementation->Always("NetworkName", [this] { return implementation->network.Name(); });
}

std::string TavikNetwork::ControllerID() {
    return implementation->Always("ControllerID", [this] { return implementation->network.ControllerID(); });
}

std::string TavikNetwork::Description() {
    return implementation->Always("Description", [this] { return implementation->network.Text(); });
}

eNetworkType TavikNetwork::NetworkType() {
    return implementation->Always("NetworkType", [this] { return implementation->network.Description().type; });
}

bool TavikNetwork::IsConnected() {
    return implementation->Always("IsConnected", [this] { return implementation->network.IsConnected(); });
}

int TavikNetwork::ModuleCount() {
    return implementation->Connected("ModuleCount", [this] { return implementation->network.Modules().Count(); });
}

TavikModule* TavikNetwork::GetModule(unsigned int index) {
    return implementation->Connected(
        "GetModule", [&] { return implementation->ModuleObject(index); }, index);
}

int TavikNetwork::GetModuleIndexByID(std::string identity) {
    return implementation->Connected(
        "GetModuleIndexByID", [&] { return implementation->network.Modules().IndexOf(identity); }, identity);
}

void TavikNetwork::BeginNotifying() {
    implementation->Connected("BeginNotifying", [this] {
        implementation->network.Modules().BeginNotifying(implementation->bench.clock.Now());
    });
}

bool TavikNetwork::Notifying() {
    return implementation->Always("Notifying", [this] { return implementation->network.Modules().Notifying(); });
}

void TavikNetwork::CancelNotifying() {
    implementation->Always("CancelNotifying", [this] { implementation->network.Modules().CancelNotifying(); });
}

void TavikNetwork::AddModule(std::string identity, std::string probeIdentity) {
    implementation->ConnectedAfter(
        "AddModule", [this] { implementation->network.SpendTransactions(1); },
        [&] { implementation->network.Modules().Add(identity, probeIdentity); }, identity, probeIdentity);
}

void TavikNetwork::DeleteModule(int index) {
    implementation->Connected(
        "DeleteModule", [&] { implementation->network.Modules().Delete(index); }, index);
}

void TavikNetwork::ClearModules() {
    implementation->Connected("ClearModules", [this] { implementation->network.Modules().Clear(); });
}

void TavikNetwork::ClearTCons() {
    implementation->Connected("ClearTCons", [this] { implementation->network.Modules().ClearConnectors(); });
}

void TavikNetwork::ApplyRemap() {
    implementation->Connected("ApplyRemap", [this] { implementation->network.Modules().ApplyPositions(); });
}

void TavikNetwork::FindHotswapped() {
    implementation->ConnectedAfter(
        "FindHotswapped", [this] { implementation->SpendTransactionPerModule(); },
        [this] { implementation->network.Modules().TakeInReplacements(); });
}

void TavikNetwork::Ping() {
    implementation->ConnectedAfter(
        "Ping", [this] { implementation->SpendTransactionPerModule(); },
        [this] { implementation->network.Modules().RequireAllAnswer(); });
}

bool TavikNetwork::BufferedCapable() {
    return implementation->Connected("BufferedCapable",
                                     [this] { return implementation->network.Description().capabilities.buffered; });
}

bool TavikNetwork::BufferedExternalSourceCapable() {
    return implementation->Connected("BufferedExternalSourceCapable", [this] {
        return implementation->network.Description().capabilities.bufferedExternal;
    });
}

bool TavikNetwork::ReadBurstCapable() {
    return implementation->Connected("ReadBurstCapable",
                                     [this] { return implementation->network.Description().capabilities.readBurst; });
}

int TavikNetwork::ReadBurstCapableCount() {
    return implementation->Connected("ReadBurstCapableCount",
                                     [this] { return implementation->network.ReadBurstCapableCount(); });
}

int TavikNetwork::Readburst(int& count) {
    return implementation->ConnectedAfter(
        "Readburst", [this] { implementation->SpendReadBurst(); },
        [&] { return implementation->network.ReadBurst(count); });
}

bool TavikNetwork::SpeedAvailable(eNetSpeed speed) {
    return implementation->Connected(
        "SpeedAvailable", [&] { return implementation->network.ControllerCanWorkAt(speed); }, speed);
}

std::vector<eNetSpeed> TavikNetwork::AvailableSpeeds() {
    return implementation->Connected("AvailableSpeeds",
                                     [this] { return implementation->network.Description().speeds; });
}

eNetSpeed TavikNetwork::NetSpeed() {
    return implementation->Connected("NetSpeed", [this] { return implementation->network.Speed(); });
}

void TavikNetwork::setNetSpeed(eNetSpeed speed) {
    implementation->ConnectedAfter(
        "setNetSpeed", [this] { implementation->network.SpendTransactions(1); },
        [&] { implementation->network.SetSpeed(speed); }, speed);
}

void TavikNetwork::Load(std::string path) {
    implementation->Connected(
        "Load", [&] { implementation->network.Restore(TavikSimulator::ReadNetworkFile(path), path); }, path);
}

void TavikNetwork::Save(std::string path) {
    implementation->Connected(
        "Save", [&] { TavikSimulator::WriteNetworkFile(implementation->network.Stored(), path); }, path);
}

NetworkBuffered* TavikNetwork::Buffered() {
    return implementation->Always("Buffered", [this] { return &implementation->buffered; });
}

NetworkDifference* TavikNetwork::Difference() {
    return implementation->Always("Difference", [this] { return &implementation->difference; });
}

TavikDynamic* TavikNetwork::Dynamic() {
    return implementation->Always("Dynamic", [this] { return &implementation->dynamic; });
}

} // namespace TavikLibrary
