#pragma once

#include <QPalette>
#include <QStringList>

class QWidget;

/// The colours of a dark desktop.
QPalette DarkPalette();

/// The texts of enabled controls in a window, as it is painted, whose contrast with their background is below this
/// ratio (WCAG 2.1, contrast ratio 1 to 21).
QStringList LowContrastTexts(QWidget& window, double leastRatio);
