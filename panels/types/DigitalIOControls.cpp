#include "panels/types/DigitalIOControls.h"

#include <QComboBox>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// What the entries stand for, by index. The texts of the entries are 0, 5, 10, 15, 25 and 50: operators
/// know that from the fourth on an entry stands for the next longer time, and the last one for none.
constexpr std::array<int, 5> debounceMilliseconds{0, 5, 10, 25, 50};

} // namespace

void ShowDebounceTime(QComboBox* combo, int milliseconds) {
    const auto entry = std::find(debounceMilliseconds.begin(), debounceMilliseconds.end(), milliseconds);
    if (entry != debounceMilliseconds.end()) {
        combo->setCurrentIndex(static_cast<int>(std::distance(debounceMilliseconds.begin(), entry)));
    }
}

std::optional<int> SelectedDebounceTime(const QComboBox* combo) {
    const int index = combo->currentIndex();
    if (index < 0 || index >= static_cast<int>(debounceMilliseconds.size())) {
        return std::nullopt;
    }
    return debounceMilliseconds[static_cast<std::size_t>(index)];
}
