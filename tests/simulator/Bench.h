#pragma once

#include "library/TavikException.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "simulator/control/BenchControl.h"

#include <QtTest>

#include <string>
#include <vector>

namespace QTest {

template <>
inline char* toString(const std::string& text) {
    return qstrdup(text.c_str());
}

template <>
inline char* toString(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += text + " ";
    }
    return qstrdup(all.c_str());
}

} // namespace QTest

/// What a call was refused with.
struct Refusal {
    bool refused = false;
    int code = 0;
    std::string text;

    bool Names(const std::string& word) const { return text.find(word) != std::string::npos; }
    bool Is(TavikLibrary::eTavikErrors error) const { return refused && code == static_cast<int>(error); }
};

template <class Call>
Refusal RefusalOf(Call call) {
    try {
        call();
    } catch (const TavikLibrary::TavikException& exception) {
        return {true, exception.errorCode, exception.what()};
    }
    return {};
}

/// A bench file of one network "N", on a manual clock and without latency.
inline std::string OneNetwork(const std::string& content, const std::string& attributes = std::string()) {
    return "<bench clock=\"manual\" latency=\"off\"><network name=\"N\" controller=\"C1\" " + attributes + ">" +
           content + "</network></bench>";
}

inline void Use(const std::string& benchText) {
    TavikSimulator::UseBenchText(benchText, "test bench");
}

/// A server whose networks have been found and connected.
class ConnectedServer {
public:
    ConnectedServer() {
        server.Networks()->FindNetworks();
        server.Networks()->ConnectAll();
    }
    TavikLibrary::TavikNetwork* Network(unsigned int index = 0) { return server.Networks()->Network(index); }
    TavikLibrary::TavikModule* Module(unsigned int index) { return Network()->GetModule(index); }

    TavikLibrary::TavikServer server;
};

using Identities = std::vector<std::string>;

/// The identities in the first network's list, through the library.
inline Identities Listed(TavikLibrary::TavikNetwork* network) {
    Identities identities;
    for (int i = 0; i < network->ModuleCount(); ++i) {
        identities.push_back(network->GetModule(static_cast<unsigned int>(i))->Identity());
    }
    return identities;
}
