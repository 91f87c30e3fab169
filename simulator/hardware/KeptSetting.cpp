#include "simulator/hardware/KeptSetting.h"

#include "simulator/hardware/ErrorTexts.h"

#include <array>
#include <charconv>
#include <cmath>

namespace TavikSimulator {

namespace {

template <class Number>
std::string Written(Number number) {
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

template <class Number>
bool ReadWhole(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && read == end;
}

[[noreturn]] void RejectText(const std::string& setting, const std::string& text, const char* needed) {
    Reject(TavikLibrary::eTavikErrors::InvalidArgument,
           "The setting \"" + setting + "\" needs " + needed + ", not \"" + text + "\".");
}

} // namespace

std::string NumberText(int number) {
    return Written(number);
}

std::string NumberText(double number) {
    return Written(number);
}

int WholeNumber(const std::string& setting, const std::string& text) {
    int number = 0;
    if (!ReadWhole(text, number)) {
        RejectText(setting, text, "a whole number");
    }
    return number;
}

double RealNumber(const std::string& setting, const std::string& text) {
    double number = 0.0;
    if (!ReadWhole(text, number) || !std::isfinite(number)) {
        RejectText(setting, text, "a number");
    }
    return number;
}

KeptSetting KeptSwitch(const std::string& name, const std::function<bool()>& get,
                       const std::function<void(bool)>& use) {
    const auto require = [name](const std::string& text) {
        if (text != "0" && text != "1") {
            RejectText(name, text, "0 or 1");
        }
    };
    return {name, [get] { return std::string(get() ? "1" : "0"); }, require,
            [use](const std::string& text) { use(text == "1"); }};
}

} // namespace TavikSimulator
