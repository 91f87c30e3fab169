#pragma once

#include <functional>
#include <map>
#include <string>
#include <type_traits>

namespace TavikSimulator {

/// A module's settings as a network file keeps them: texts by name.
using StoredSettings = std::map<std::string, std::string>;

/// A setting that network files keep, as a text.
struct KeptSetting {
    std::string name;
    std::function<std::string()> text;
    /// Throws TavikException, and changes nothing, for a text that the module cannot be set to.
    std::function<void(const std::string& text)> require;
    /// Sets what require has passed.
    std::function<void(const std::string& text)> use;
};

/// Numbers as network files write them: whatever is written reads back as the same number. Reading throws
/// TavikException for another text, naming the setting.
std::string NumberText(int number);
std::string NumberText(double number);
int WholeNumber(const std::string& setting, const std::string& text);
double RealNumber(const std::string& setting, const std::string& text);

/// A setting of a module that is a whole number, a choice of an enumeration, or a real number.
template <class Value, class Get, class Require, class Use>
KeptSetting KeptNumber(const std::string& name, Get get, Require require, Use use) {
    const auto read = [name](const std::string& text) {
        if constexpr (std::is_floating_point_v<Value>) {
            return RealNumber(name, text);
        } else {
            return static_cast<Value>(WholeNumber(name, text));
        }
    };
    const auto write = [get] {
        if constexpr (std::is_floating_point_v<Value>) {
            return NumberText(get());
        } else {
            return NumberText(static_cast<int>(get()));
        }
    };
    return {name, write, [=](const std::string& text) { require(read(text)); },
            [=](const std::string& text) { use(read(text)); }};
}

/// A setting that is on (1) or off (0).
KeptSetting KeptSwitch(const std::string& name, const std::function<bool()>& get, const std::function<void(bool)>& use);

} // namespace TavikSimulator
