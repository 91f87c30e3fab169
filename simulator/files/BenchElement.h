#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace TavikSimulator {

/// Text of a bench file and its line numbers.
class BenchSource {
public:
    BenchSource(std::string text, std::string name);

    const std::string& Text() const { return text; }
    /// Line number, from 1, of an offset.
    int LineAt(std::ptrdiff_t offset) const;
    /// Throws TavikException: "<name>, line <n>: <reason>".
    [[noreturn]] void Fail(std::ptrdiff_t offset, const std::string& reason) const;

private:
    std::string text;
    std::string name;
};

/// One element of a bench file. Finish rejects attributes and child elements that were not read before, so that a
/// misspelt word is an error.
class BenchElement {
public:
    BenchElement(const BenchSource& source, pugi::xml_node node);

    std::string Name() const { return node.name(); }
    int Line() const;
    [[noreturn]] void Fail(const std::string& reason) const;

    bool Has(const char* attribute);
    /// A required attribute.
    std::string Required(const char* attribute);
    std::optional<std::string> Text(const char* attribute);
    std::string Text(const char* attribute, const std::string& otherwise);
    double Number(const char* attribute, double otherwise, double least, double most);
    /// A number of seconds.
    Nanoseconds Time(const char* attribute, Nanoseconds otherwise, double least, double most);
    long long Whole(const char* attribute, long long otherwise, long long least, long long most);
    /// "yes" or "no".
    bool Flag(const char* attribute, bool otherwise);
    /// The value of an attribute that is one of several words.
    template <class Value>
    Value OneOf(const char* attribute, Value otherwise, const std::vector<std::pair<std::string, Value>>& words) {
        const std::optional<std::string> text = Text(attribute);
        return text ? Meaning(attribute, *text, words) : otherwise;
    }
    /// Words of an attribute, separated by blanks; each at most once.
    std::vector<std::string> Words(const char* attribute);
    template <class Value>
    Value Meaning(const char* attribute, const std::string& word,
                  const std::vector<std::pair<std::string, Value>>& words) const {
        std::string known;
        for (const auto& [text, value] : words) {
            if (text == word) {
                return value;
            }
            known += (known.empty() ? "" : ", ") + text;
        }
        Fail(std::string("\"") + word + "\" is not a value of " + attribute + "; it is one of: " + known + ".");
    }
    double NumberIn(const char* attribute, const std::string& text) const;

    /// Child elements of one name, in order.
    std::vector<BenchElement> Children(const char* name);
    /// Rejects text, and attributes and elements that were not read.
    void Finish() const;

private:
    void RejectDoubleAttributes() const;

    const BenchSource* source;
    pugi::xml_node node;
    std::set<std::string> known;
    std::set<std::string> knownChildren;
};

} // namespace TavikSimulator
