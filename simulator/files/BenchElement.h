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

/// The text of a bench file and where its lines begin.
class BenchSource {
public:
    BenchSource(std::string text, std::string name);

    const std::string& Text() const { return text; }
    /// The line, from 1, in which a place of the text is.
    int LineAt(std::ptrdiff_t offset) const;
    /// Throws TavikException: "<name>, line <n>: <reason>".
    [[noreturn]] void Fail(std::ptrdiff_t offset, const std::string& reason) const;

private:
    std::string text;
    std::string name;
};

/// One element of a bench file. Every attribute and every child element must be asked for: Finish refuses
/// what nobody knows, so that a misspelt word is never passed over in silence.
class BenchElement {
public:
    BenchElement(const BenchSource& source, pugi::xml_node node);

    std::string Name() const { return node.name(); }
    int Line() const;
    [[noreturn]] void Fail(const std::string& reason) const;

    bool Has(const char* attribute);
    /// The attribute, which has to be there.
    std::string Required(const char* attribute);
    std::optional<std::string> Text(const char* attribute);
    std::string Text(const char* attribute, const std::string& otherwise);
    double Number(const char* attribute, double otherwise, double least, double most);
    /// A number of seconds.
    Nanoseconds Time(const char* attribute, Nanoseconds otherwise, double least, double most);
    long long Whole(const char* attribute, long long otherwise, long long least, long long most);
    /// "yes" or "no".
    bool Flag(const char* attribute, bool otherwise);
    /// The attribute as one of several words.
    template <class Value>
    Value OneOf(const char* attribute, Value otherwise, const std::vector<std::pair<std::string, Value>>& words) {
        const std::optional<std::string> text = Text(attribute);
        return text ? Meaning(attribute, *text, words) : otherwise;
    }
    /// The attribute's words, separated by blanks; each at most once.
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

    /// The child elements of one name, in order.
    std::vector<BenchElement> Children(const char* name);
    /// Refuses attributes and elements that were not asked for, and text.
    void Finish() const;

private:
    void RejectDoubleAttributes() const;

    const BenchSource* source;
    pugi::xml_node node;
    std::set<std::string> known;
    std::set<std::string> knownChildren;
};

} // namespace TavikSimulator
