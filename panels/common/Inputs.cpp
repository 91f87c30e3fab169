#include "panels/common/Inputs.h"

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

void ChoiceTable::SetRowButton(int row, QAbstractButton* button) {
    button->setFocusPolicy(Qt::NoFocus);
    setCellWidget(row, columnCount() - 1, button);
}

QAbstractButton* ChoiceTable::RowButton(int row) const {
    return qobject_cast<QAbstractButton*>(cellWidget(row, columnCount() - 1));
}

void ChoiceTable::keyPressEvent(QKeyEvent* event) {
    const bool presses =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!presses) {
        ChoiceView::keyPressEvent(event);
        return;
    }
    QAbstractButton* button = RowButton(currentRow());
    if (button != nullptr && !event->isAutoRepeat()) {
        button->click();
    }
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
