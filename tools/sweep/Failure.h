#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// How a call of the library fails.
enum class FaultType {
    Once,                   ///< throws a TavikException
    OnceRuntimeError,       ///< throws a std::runtime_error
    Persistent,             ///< throws a TavikException, as do all later calls until the step has been checked
    PersistentRuntimeError, ///< the same with a std::runtime_error
    Slow,                   ///< takes three seconds
    Code,                   ///< returns an error's code in place of its result
};

/// All of them.
const std::vector<FaultType>& FaultTypes();
/// The word for it on the command line and in reports.
QString WordOf(FaultType faultType);

/// One failure in a scenario: its calls are numbered from 1 in the order in which they are made when nothing fails.
struct Failure {
    FaultType faultType = FaultType::Once;
    std::uint64_t call = 0;
};

/// "once@17"
QString ToText(const Failure& failure);
QString ToText(const std::vector<Failure>& failures);
std::optional<Failure> FailureFromText(const QString& text);
