#include "panels/wireless/FirmwareNumber.h"

#include <charconv>
#include <system_error>

QString FirmwareNumber(const std::string& reply, std::size_t position) {
    constexpr std::size_t length = 4;
    if (reply.size() < position) {
        return {};
    }
    const std::string field = reply.substr(position, length);
    std::size_t begin = field.find_first_not_of(" \t\n\v\f\r");
    if (begin == std::string::npos) {
        return {};
    }
    if (field[begin] == '+' && field.find('-') == std::string::npos) {
        ++begin;
    }
    // Not std::stod, which would take a comma for the decimal point where the operator's language does.
    double number = 0.0;
    const std::from_chars_result result = std::from_chars(field.data() + begin, field.data() + field.size(), number);
    return result.ec == std::errc() ? QString::number(number, 'f', 2) : QString();
}
