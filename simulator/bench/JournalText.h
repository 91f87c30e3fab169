#pragma once

#include "library/TavikEnums.h"
#include "library/TavikModuleKX.h"
#include "library/TavikReading.h"

#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

// Journal texts of arguments and results.
namespace TavikSimulator {

inline std::string JournalText(bool value) {
    return value ? "true" : "false";
}

inline std::string JournalText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

inline std::string JournalText(const std::string& value) {
    return "\"" + value + "\"";
}

inline std::string JournalText(TavikLibrary::eNetSpeed value) {
    return TavikLibrary::eNetSpeed_ToString(value);
}

inline std::string JournalText(TavikLibrary::eNetworkType value) {
    return TavikLibrary::eNetworkType_ToString(value);
}

inline std::string JournalText(TavikLibrary::eModuleType value) {
    return TavikLibrary::eModuleType_ToString(value);
}

inline std::string JournalText(TavikLibrary::eResolution value) {
    return TavikLibrary::eResolution_ToString(value);
}

inline std::string JournalText(TavikLibrary::eAveraging value) {
    return TavikLibrary::eAveraging_ToString(value);
}

inline std::string JournalText(const TavikLibrary::TavikReading& value) {
    return std::to_string(value.counts) + " (" + JournalText(value.units) + "), code " +
           std::to_string(value.resultCode);
}

/// Whole numbers, and enumerations without a text of their own.
template <class Value, std::enable_if_t<std::is_integral_v<Value> || std::is_enum_v<Value>, int> = 0>
std::string JournalText(Value value) {
    return std::to_string(static_cast<long long>(value));
}

template <class Object>
std::string JournalText(Object* object) {
    return object ? "object" : "null";
}

template <class Value>
std::string JournalText(const std::vector<Value>& values) {
    std::string text = "[";
    for (const Value& value : values) {
        text += (text.size() > 1 ? ", " : "") + JournalText(value);
    }
    return text + "]";
}

inline std::string ArgumentsText() {
    return {};
}

template <class First, class... Rest>
std::string ArgumentsText(const First& first, const Rest&... rest) {
    std::string text = JournalText(first);
    ((text += ", " + JournalText(rest)), ...);
    return text;
}

} // namespace TavikSimulator
