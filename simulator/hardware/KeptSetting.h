#pragma once

#include <functional>
#include <map>
#include <string>
#include <type_traits>

namespace TavikSimulator {

/// A module's settings in a network file: texts by name.
using StoredSettings = std::map<std::string, std::string>;

/// Access to one setting of a module as a text in a network file.
struct KeptSetting {
    std::string name;
    std::function<std::string()> text;
    /// Throws TavikException, and changes nothing, for a text that the module does not support.
    std::function<void(const std::string& text)> require;
    /// Sets a text that `require` has accepted.
    std::function<void(const std::string& text)> use;
};

/// Numbers in network files: written numbers read back as equal numbers. Reading throws TavikException with the name of
/// the setting for another text.
std::string NumberText(int number);
std::string NumberText(double number);
int WholeNumber(const std::string& setting, const std::string& text);
double RealNumber(const std::string& setting, const std::string& text);

/// Access to a whole number, an enumeration or a real number.
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

/// Access to a setting that is on (1) or off (0).
KeptSetting KeptSwitch(const std::string& name, const std::function<bool()>& get, const std::function<void(bool)>& use);

} // namespace TavikSimulator
