#pragma once

#include <QStringList>

// Failures while the program is driven: a control that cannot be reached, an unexpected box. A test takes them at its
// end, the tools after each step.
namespace FailureLog {

void Add(const QString& text);
/// Returns the failures since the last call.
QStringList Take();

} // namespace FailureLog
