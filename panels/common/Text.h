#pragma once

#include <QString>

#include <string>

// Text and numbers on their way between the library, which speaks UTF-8, and the screen.

QString FromLibrary(const std::string& text);
std::string ToLibrary(const QString& text);

/// The text of a tool tip that shows this text as it is, also where it looks like markup.
QString PlainToolTip(const QString& text);

/// A value in a unit of measure, in fixed notation with 5 decimals.
QString FormatUnits(double value);

/// A count with its noun, which is given in the singular: "1 module", "1,200 readings".
QString FormatCount(int count, const QString& noun);
