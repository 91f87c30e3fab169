#pragma once

#include "library/TavikEnums.h"

#include <string>

namespace TavikSimulator {

/// Short name of a result code, for example "Under range".
std::string ErrorName(int code);

/// Description of a result code; any code has one.
std::string ErrorDescription(int code);

/// Whether a module that returns this result code has no reading.
bool ComesWithoutReading(int code);

/// Throws TavikException with a code and an error message for the operator.
[[noreturn]] void Reject(TavikLibrary::eTavikErrors error, const std::string& sentence);

} // namespace TavikSimulator
