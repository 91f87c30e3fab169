#include "panels/common/Inputs.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>

#include <cmath>

namespace {

void SetUpNumbers(QAbstractSpinBox* box) {
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    box->setLocale(locale);
    box->setKeyboardTracking(false);
    // The wheel must not give the focus.
    box->setFocusPolicy(Qt::StrongFocus);
}

} // namespace

void ChoiceList::focusInEvent(QFocusEvent* event) {
    // A list view would make its first row current here, though nobody chose it.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    if (!index.isValid() || (event != nullptr && event->type() == QEvent::MouseButtonRelease)) {
        return QItemSelectionModel::NoUpdate;
    }
    // Also with Ctrl, which would take the highlight off the row that the buttons act on.
    return QItemSelectionModel::ClearAndSelect;
}

QStyleOptionViewItem ChoiceList::viewOptions() const {
    QStyleOptionViewItem options = QListWidget::viewOptions();
    options.palette.setBrush(QPalette::Disabled, QPalette::Highlight, options.palette.base());
    options.palette.setBrush(QPalette::Disabled, QPalette::HighlightedText,
                             options.palette.brush(QPalette::Disabled, QPalette::Text));
    return options;
}

ChoiceBox::ChoiceBox(QWidget* parent) : WheelWithFocus(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void ChoiceBox::ShowValue(int value, int firstValue) {
    first = firstValue;
    shown = value;
    const int row = value - first;
    setCurrentIndex(row >= 0 && row < count() ? row : -1);
}

int ChoiceBox::Value() const {
    return currentIndex() >= 0 ? currentIndex() + first : shown;
}

NumberBox::NumberBox(QWidget* parent) : WheelWithFocus(parent) {
    SetUpNumbers(this);
}

DecimalBox::DecimalBox(QWidget* parent) : WheelWithFocus(parent) {
    SetUpNumbers(this);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double value) { exact = value; });
    // Typing the number that is shown rounded is an entry, too.
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { typed = true; });
    connect(this, &QDoubleSpinBox::editingFinished, this, [this] {
        if (typed) {
            exact = value();
        }
        typed = false;
    });
}

void DecimalBox::ShowExact(double value) {
    setValue(decimals() == 0 ? std::trunc(value) : value);
    exact = value;
}

void DecimalBox::ShowDecimals(int decimals) {
    const double kept = exact;
    const QSignalBlocker sameNumber(this);
    setDecimals(decimals);
    ShowExact(kept);
}
