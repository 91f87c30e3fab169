#include "library/TavikException.h"

namespace TavikLibrary {

TavikException::TavikException(int code, const std::string& text) : std::runtime_error(text), errorCode(code) {}

TavikException::~TavikException() = default;

} // namespace TavikLibrary
