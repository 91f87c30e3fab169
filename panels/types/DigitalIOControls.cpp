#include "panels/types/DigitalIOControls.h"

#include <QComboBox>
#include <QRadioButton>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// What the entries stand for, by index. Deliberate: the texts of the entries are 0, 5, 10, 15, 25 and 50, so that
/// from the fourth on an entry stands for the next longer time, and the last one for none.
constexpr std::array<int, 5> debounceMilliseconds{0, 5, 10, 25, 50};

QRadioButton* FindButton(const QWidget* panel, const char* name, int number) {
    return panel->findChild<QRadioButton*>(QLatin1String(name) + QString::number(number));
}

} // namespace

RadioPair FindPair(const QWidget* panel, const char* low, const char* high, int number) {
    return {FindButton(panel, low, number), FindButton(panel, high, number)};
}

RadioPair FindInputPair(const QWidget* panel, int number) {
    const RadioPair pair = FindPair(panel, "radioInputLow", "radioInputHigh", number);
    constexpr QRgb lightGray = 0xefefef;
    for (QRadioButton* button : {pair.low, pair.high}) {
        button->setPalette(QPalette(QColor(lightGray)));
        button->setAutoFillBackground(true);
    }
    return pair;
}

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
