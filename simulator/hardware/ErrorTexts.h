#pragma once

#include "library/TavikEnums.h"

#include <string>

namespace TavikSimulator {

/// The short name of a result code, for example "Under range".
std::string ErrorName(int code);

/// A sentence for a result code; answers for every code.
std::string ErrorDescription(int code);

/// Whether a module that answers with this result code has no reading to go with it.
bool ComesWithoutReading(int code);

/// Throws TavikException with a code and a sentence for the operator.
[[noreturn]] void Reject(TavikLibrary::eTavikErrors error, const std::string& sentence);

} // namespace TavikSimulator
