#include "simulator/hardware/ModuleDescription.h"

#include <cstddef>

namespace TavikSimulator {

bool IsIdentity(const std::string& text) {
    constexpr std::size_t Length = 10;
    return text.size() == Length && text.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string::npos;
}

} // namespace TavikSimulator
