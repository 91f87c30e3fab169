#include "panels/common/Inputs.h"

#include "panels/common/Fields.h"

#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>
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

NumberBox::NumberBox(QWidget* parent) : NumberEntry(parent) {
    SetUpNumbers(this);
}

DecimalBox::DecimalBox(QWidget* parent) : NumberEntry(parent) {
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
    exact = qBound(minimum(), value, maximum());
}

void DecimalBox::ShowDecimals(int decimals) {
    const double kept = exact;
    const QSignalBlocker sameNumber(this);
    setDecimals(decimals);
    ShowExact(kept);
}

InputValues::InputValues(const QWidget* page) {
    const auto numbers = page->findChildren<QSpinBox*>();
    for (QSpinBox* box : numbers) {
        restorers.emplace_back([box, value = box->value()] { box->setValue(value); });
    }
    const auto choices = page->findChildren<QComboBox*>();
    for (QComboBox* box : choices) {
        restorers.emplace_back([box, index = box->currentIndex()] { box->setCurrentIndex(index); });
    }
    const auto lists = page->findChildren<QListWidget*>();
    for (QListWidget* list : lists) {
        restorers.emplace_back([list, row = list->currentRow()] { list->setCurrentRow(row); });
    }
    const auto buttons = page->findChildren<QRadioButton*>();
    for (QRadioButton* button : buttons) {
        restorers.emplace_back([button, checked = button->isChecked()] { Check(button, checked); });
    }
}

void InputValues::Restore() const {
    for (const auto& restore : restorers) {
        restore();
    }
}
