#pragma once

#include "tests/simulator/Bench.h"

/// A bench with one module of a kind, connected, its clock standing still.
template <class Module>
class OneModule {
public:
    OneModule(const std::string& type, const std::string& attributes, const std::string& content = std::string())
        : server(Prepared(type, attributes, content)), module(dynamic_cast<Module*>(server->Module(0))) {}

    Module* operator->() const { return module; }

    /// The module's last result code after a reading that may be refused.
    int CodeOfReading() const {
        RefusalOf([this] { module->ReadInCounts(); });
        return module->LastResultCode();
    }

private:
    static std::unique_ptr<ConnectedServer> Prepared(const std::string& type, const std::string& attributes,
                                                     const std::string& content) {
        Use(OneNetwork("<module type=\"" + type + "\" identity=\"MODULE0001\" " + attributes + ">" + content +
                       "</module>"));
        return std::make_unique<ConnectedServer>();
    }

    std::unique_ptr<ConnectedServer> server;
    Module* module;
};

inline void Hold(double position) {
    TavikSimulator::HoldPosition("N", "MODULE0001", position);
}
