#include "library/TavikServer.h"

#include "simulator/boundary/CurrentBench.h"
#include "simulator/boundary/NetworksImplementation.h"
#include "simulator/hardware/ErrorTexts.h"

#include <memory>

namespace TavikLibrary {

/// A server keeps the bench that was current at its creation.
class TavikServer::Implementation {
public:
    Implementation() : bench(TavikSimulator::CurrentBench()) {}

    template <class Body, class... Args>
    auto Call(const char* operation, Body body, const Args&... args) {
        return bench->gate.Call(name, operation, TavikSimulator::NoWait{}, body, args...);
    }

    const std::shared_ptr<TavikSimulator::Bench> bench;
    const std::string name = "server"; ///< in the journal
};

TavikServer::TavikServer() : implementation(nullptr) {
    auto begun = std::make_unique<Implementation>();
    begun->Call("TavikServer", [&] {
        begun->bench->Attach();
        if (!begun->bench->object) {
            begun->bench->object = std::make_unique<TavikNetworks>(new TavikNetworks::Implementation(*begun->bench));
        }
    });
    implementation = begun.release();
}

TavikServer::~TavikServer() {
    implementation->bench->gate.UnfailingCall(implementation->name, "~TavikServer",
                                              [this] { implementation->bench->Detach(); });
    implementation->bench->EndThreadIfUnused();
    delete implementation;
}

// The front-end shows these three texts, which must mark readings as simulated.

std::string TavikServer::LibraryPartNumber() {
    return implementation->Call("LibraryPartNumber", [] { return std::string("SIMULATED-482000"); });
}

std::string TavikServer::LibraryVersion() {
    return implementation->Call("LibraryVersion", [] { return std::string("1.0.0 (simulated bench)"); });
}

std::string TavikServer::LibraryBuildDate() {
    return implementation->Call("LibraryBuildDate", [] { return std::string(__DATE__); });
}

TavikNetworks* TavikServer::Networks() {
    return implementation->Call("Networks", [this] { return implementation->bench->object.get(); });
}

std::string TavikServer::GetErrorDescription(int code) {
    return implementation->bench->gate.UnfailingCall(
        implementation->name, "GetErrorDescription", [code] { return TavikSimulator::ErrorDescription(code); }, code);
}

void TavikServer::StartAllDynamic(void (*collectionFinished)()) {
    implementation->Call(
        "StartAllDynamic", [&] { implementation->bench->StartDynamic(collectionFinished); }, collectionFinished);
    implementation->bench->WakeThread();
}

void TavikServer::StopAllDynamic() {
    implementation->Call("StopAllDynamic", [this] { implementation->bench->StopDynamic(); });
    implementation->bench->WakeThread();
}

} // namespace TavikLibrary
