#include "library/TavikException.h"

namespace TavikLibrary {

TavikException::TavikException(int code, const std::string& text) : std::runtime_error(text), errorCode(code) {}

TavikException::TavikException(const TavikException& other) = default;

TavikException& TavikException::operator=(const TavikException& other) = default;

TavikException::~TavikException() = default;

int TavikException::ErrorCode() const {
    return errorCode;
}

} // namespace TavikLibrary
