#include "simulator/files/BenchElement.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <locale>
#include <sstream>

namespace TavikSimulator {

BenchSource::BenchSource(std::string benchText, std::string benchName)
    : text(std::move(benchText)), name(std::move(benchName)) {}

int BenchSource::LineAt(std::ptrdiff_t offset) const {
    const auto size = static_cast<std::ptrdiff_t>(text.size());
    const auto end = text.begin() + std::clamp<std::ptrdiff_t>(offset, 0, size);
    return 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
}

void BenchSource::Fail(std::ptrdiff_t offset, const std::string& reason) const {
    Reject(TavikLibrary::eTavikErrors::InvalidArgument,
           name + ", line " + std::to_string(LineAt(offset)) + ": " + reason);
}

BenchElement::BenchElement(const BenchSource& benchSource, pugi::xml_node benchNode)
    : source(&benchSource), node(benchNode) {
    RejectDoubleAttributes();
}

int BenchElement::Line() const {
    return source->LineAt(node.offset_debug());
}

void BenchElement::Fail(const std::string& reason) const {
    source->Fail(node.offset_debug(), reason);
}

void BenchElement::RejectDoubleAttributes() const {
    std::set<std::string> seen;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        if (!seen.insert(attribute.name()).second) {
            Fail(std::string("<") + node.name() + "> has the attribute " + attribute.name() + " twice.");
        }
    }
}

bool BenchElement::Has(const char* attribute) {
    known.insert(attribute);
    return !node.attribute(attribute).empty();
}

std::string BenchElement::Required(const char* attribute) {
    std::string text = Text(attribute, std::string());
    if (text.empty()) {
        Fail(std::string("<") + node.name() + "> needs the attribute " + attribute + ".");
    }
    return text;
}

std::optional<std::string> BenchElement::Text(const char* attribute) {
    return Has(attribute) ? std::optional<std::string>(node.attribute(attribute).value()) : std::nullopt;
}

std::string BenchElement::Text(const char* attribute, const std::string& otherwise) {
    return Text(attribute).value_or(otherwise);
}

double BenchElement::NumberIn(const char* attribute, const std::string& text) const {
    // Parsed in the "C" locale: bench files use a decimal point.
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    if (stream.fail() || !stream.eof() || !std::isfinite(value)) {
        Fail(std::string(attribute) + "=\"" + text + "\" is not a number.");
    }
    return value;
}

double BenchElement::Number(const char* attribute, double otherwise, double least, double most) {
    const std::optional<std::string> text = Text(attribute);
    if (!text) {
        return otherwise;
    }
    const double value = NumberIn(attribute, *text);
    if (value < least || value > most) {
        std::ostringstream range;
        range.imbue(std::locale::classic());
        range << attribute << "=\"" << *text << "\" lies outside " << least << " to " << most << ".";
        Fail(range.str());
    }
    return value;
}

Nanoseconds BenchElement::Time(const char* attribute, Nanoseconds otherwise, double least, double most) {
    return FromSeconds(Number(attribute, ToSeconds(otherwise), least, most));
}

long long BenchElement::Whole(const char* attribute, long long otherwise, long long least, long long most) {
    const std::optional<std::string> text = Text(attribute);
    if (!text) {
        return otherwise;
    }
    char* end = nullptr;
    errno = 0;
    const long long value = std::strtoll(text->c_str(), &end, 0);
    if (text->empty() || *end != '\0' || errno != 0) {
        Fail(std::string(attribute) + "=\"" + *text + "\" is not a whole number.");
    }
    if (value < least || value > most) {
        Fail(std::string(attribute) + "=\"" + *text + "\" lies outside " + std::to_string(least) + " to " +
             std::to_string(most) + ".");
    }
    return value;
}

bool BenchElement::Flag(const char* attribute, bool otherwise) {
    return OneOf<bool>(attribute, otherwise, {{"yes", true}, {"no", false}});
}

std::vector<std::string> BenchElement::Words(const char* attribute) {
    std::istringstream stream(Text(attribute, std::string()));
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        if (std::find(words.begin(), words.end(), word) != words.end()) {
            Fail(std::string(attribute) + " names \"" + word + "\" twice.");
        }
        words.push_back(word);
    }
    return words;
}

std::vector<BenchElement> BenchElement::Children(const char* name) {
    knownChildren.insert(name);
    std::vector<BenchElement> children;
    for (const pugi::xml_node& child : node.children(name)) {
        children.emplace_back(*source, child);
    }
    return children;
}

void BenchElement::Finish() const {
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        if (known.count(attribute.name()) == 0) {
            Fail(std::string("<") + node.name() + "> knows no attribute " + attribute.name() + ".");
        }
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element) {
            source->Fail(child.offset_debug(), std::string("There is text inside <") + node.name() + ">.");
        }
        if (knownChildren.count(child.name()) == 0) {
            source->Fail(child.offset_debug(),
                         std::string("<") + node.name() + "> knows no element <" + child.name() + ">.");
        }
    }
}

} // namespace TavikSimulator
