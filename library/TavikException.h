#pragma once

#include <stdexcept>
#include <string>

namespace TavikLibrary {

/// What every library operation throws when it fails. what() is a sentence in UTF-8. It is copied when it is thrown on,
/// so that its size is part of the binary interface.
class TavikException : public std::runtime_error {
public:
    TavikException(int errorCode, const std::string& text);
    ~TavikException() override;

    /// The result code behind the text; 255 means that this module does not have the value asked for.
    int errorCode;
};

} // namespace TavikLibrary
