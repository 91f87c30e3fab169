#pragma once

#include "library/TavikRLKSettings.h"
#include "simulator/boundary/WirelessObjects.h"
#include "simulator/hardware/ErrorTexts.h"

#include <string>

/// Settings of the tool in a slot, for one type of tools.
class TavikLibrary::RLK_DeviceSettingsBase::Implementation {
public:
    Implementation(const TavikSimulator::SlotAccess& access, eRLK_DeviceType type);

    /// A call that reads from the tool; in configuration mode only.
    template <class Body, class... Args>
    auto Get(const char* operation, Body body, const Args&... args) {
        return GetOf(name, operation, body, args...);
    }
    template <class Body, class... Args>
    auto GetOf(const std::string& object, const char* operation, Body body, const Args&... args) {
        const auto inConfigMode = [&](TavikSimulator::HandTool& tool) {
            tool.RequireConfigMode(access.Now());
            return body(tool);
        };
        return AskOf(object, operation, inConfigMode, args...);
    }

    /// A call that reads an enumeration from the tool.
    template <class Enum, class Body, class... Args>
    Enum GetEnum(const char* operation, Body body, const Args&... args) {
        const auto number = [&](TavikSimulator::HandTool& tool) { return static_cast<int>(body(tool)); };
        return static_cast<Enum>(Get(operation, number, args...));
    }

    /// A call that writes to the tool.
    template <class Body, class... Args>
    auto Ask(const char* operation, Body body, const Args&... args) {
        return AskOf(name, operation, body, args...);
    }
    template <class Body, class... Args>
    auto AskOf(const std::string& object, const char* operation, Body body, const Args&... args) {
        const auto answering = [&](TavikSimulator::HandTool& tool) {
            RequireType(tool);
            tool.RequireAnswer(access.Now());
            return body(tool);
        };
        return access.ByRadio(object, operation, answering, args...);
    }

    /// Throws TavikException for a value outside a range.
    template <class Value>
    void RequireWithin(const char* what, Value value, double least, double most) const {
        const double number = static_cast<double>(value);
        if (!(number >= least && number <= most)) {
            RejectValue(what, number, least, most);
        }
    }

    /// Throws TavikException when the slot holds a tool of another type.
    void RequireType(const TavikSimulator::HandTool& tool) const;

    const TavikSimulator::SlotAccess access;
    const std::string name; ///< in the journal
    const eRLK_DeviceType type;
    KRV_Limits limits;

private:
    [[noreturn]] void RejectValue(const char* what, double value, double least, double most) const;
};
