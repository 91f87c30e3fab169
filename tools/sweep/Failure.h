#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// How a call of the library fails.
enum class Variant {
    Once,        ///< throws a TavikException
    OncePlainly, ///< throws a std::runtime_error
    On,          ///< throws a TavikException, and so do all after it until the operator's step has been judged
    OnPlainly,   ///< the same with a std::runtime_error
    Slow,        ///< takes three seconds
    Code,        ///< returns an error's code in place of its result
};

/// All of them.
const std::vector<Variant>& Variants();
/// The word for it on the command line and in reports.
QString WordOf(Variant variant);

/// One failure in a course: its calls are numbered from 1 in the order in which they are made when nothing fails.
struct Failure {
    Variant variant = Variant::Once;
    std::uint64_t call = 0;
};

/// "once@17"
QString ToText(const Failure& failure);
QString ToText(const std::vector<Failure>& failures);
std::optional<Failure> FailureFromText(const QString& text);
