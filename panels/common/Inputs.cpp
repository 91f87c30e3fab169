#include "panels/common/Inputs.h"

#include "panels/common/Fields.h"

#include <QFocusEvent>
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

void ChoiceList::focusInEvent(QFocusEvent* event) {
    // A list view would make its first row current here, though nobody chose it.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ChoiceList::mousePressEvent(QMouseEvent* event) {
    QListWidget::mousePressEvent(event);
    // A slot of the row change may have taken the change back, but the view selects the pressed row after it.
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
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
