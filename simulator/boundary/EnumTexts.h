#pragma once

#include "simulator/hardware/ErrorTexts.h"

#include <cstddef>
#include <string>

namespace TavikSimulator {

/// One enumerator and its text.
template <class Enum>
struct EnumText {
    Enum value;
    const char* text;
};

/// Text of a value; a value without an enumerator by its number ("Unknown speed (7)").
template <class Enum, std::size_t Count>
std::string TextOf(Enum value, const EnumText<Enum> (&texts)[Count], const char* what) {
    for (const EnumText<Enum>& candidate : texts) {
        if (candidate.value == value) {
            return candidate.text;
        }
    }
    return std::string("Unknown ") + what + " (" + std::to_string(static_cast<int>(value)) + ")";
}

/// Value of a text; throws TavikException for an unknown one.
template <class Enum, std::size_t Count>
Enum ValueOf(const std::string& text, const EnumText<Enum> (&texts)[Count], const char* what) {
    for (const EnumText<Enum>& candidate : texts) {
        if (text == candidate.text) {
            return candidate.value;
        }
    }
    Reject(TavikLibrary::eTavikErrors::InvalidArgument, "\"" + text + "\" is not the name of a " + what + ".");
}

} // namespace TavikSimulator
