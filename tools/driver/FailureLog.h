#pragma once

#include <QStringList>

// What went wrong while the program was driven: a control that could not be reached, a box that nobody
// expected. Whoever drives the program looks here after each step.
namespace FailureLog {

void Add(const QString& text);
/// The failures since the last call, which are forgotten by it.
QStringList Take();

} // namespace FailureLog
