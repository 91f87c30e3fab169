#pragma once

#include "panels/common/Fields.h"

#include <optional>
#include <utility>

class QComboBox;
class QRadioButton;

// What the panels of both generations of digital I/O modules have in common.

/// Two radio buttons of which at most one is checked.
struct RadioPair {
    QRadioButton* low;
    QRadioButton* high;
};

/// Shows a level: 0 checks the low button, 1 the high one, any other level neither. Each button has the
/// level read for itself, so a level that changes in between shows as it is last.
template <class ReadLevel>
void ShowLevel(const RadioPair& pair, ReadLevel&& readLevel) {
    Check(pair.low, readLevel() == 0);
    Check(pair.high, readLevel() == 1);
}

/// Selects the entry of a debounce time. A time without an entry leaves the selection as it is.
void ShowDebounceTime(QComboBox* combo, int milliseconds);

/// The time in milliseconds that the selected entry stands for; none for an entry without a time.
std::optional<int> SelectedDebounceTime(const QComboBox* combo);
