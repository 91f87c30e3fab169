#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QWheelEvent>

#include <functional>
#include <vector>

// The controls in which an operator chooses or enters something, used in every form. What is chosen or entered is what
// the operator did: the focus chooses nothing, the wheel changes nothing without the focus, and a number that is typed
// is one change, reported when it is complete and differs from the one before.

/// A list with one row chosen at most. The current row is always shown as selected.
class ChoiceList : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    QStyleOptionViewItem viewOptions() const override;
};

/// A control whose value the wheel changes only while it has the focus; otherwise the wheel scrolls the page. While it
/// is disabled it shows no selection.
template <class Control>
class WheelWithFocus : public Control {
public:
    using Control::Control;

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (this->hasFocus()) {
            Control::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
    void changeEvent(QEvent* event) override {
        Control::changeEvent(event);
        auto* field = this->template findChild<QLineEdit*>();
        if (event->type() == QEvent::EnabledChange && !this->isEnabled() && field != nullptr) {
            field->deselect();
        }
    }
};

/// A box for numbers. A group separator cannot be typed: taken for a decimal point, it would give a far larger number.
template <class Box>
class NumberEntry : public WheelWithFocus<Box> {
public:
    using WheelWithFocus<Box>::WheelWithFocus;

protected:
    QValidator::State validate(QString& text, int& position) const override {
        return text.contains(this->locale().groupSeparator()) ? QValidator::Invalid : Box::validate(text, position);
    }
};

/// A combo box whose rows stand for the library's values from a first one on.
class ChoiceBox : public WheelWithFocus<QComboBox> {
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    /// Selects the row of a value. A value without a row selects none and is kept.
    void ShowValue(int value, int firstValue = 0);
    /// The value of the chosen row; while none is chosen, the value that was shown last.
    int Value() const;

private:
    int first = 0;
    int shown = -1;
};

/// A whole number. It is entered in the digits 0 to 9 in every language of the computer, without group separators.
class NumberBox : public NumberEntry<QSpinBox> {
    Q_OBJECT

public:
    explicit NumberBox(QWidget* parent = nullptr);
};

/// A number with a decimal point. It keeps the number it was given or that was entered when fewer decimals are shown.
class DecimalBox : public NumberEntry<QDoubleSpinBox> {
    Q_OBJECT

public:
    explicit DecimalBox(QWidget* parent = nullptr);

    /// A value beyond the box's range becomes the nearest one within it.
    void ShowExact(double value);
    /// The number that was entered or given to ShowExact() last, with all its decimals.
    double Exact() const { return exact; }
    /// Without decimals, the shown number is the exact one truncated toward zero.
    void ShowDecimals(int decimals);

private:
    double exact = 0.0;
    bool typed = false;
};

/// The values of the whole-number boxes, combo boxes, lists and radio buttons below a widget at one time.
class InputValues {
public:
    InputValues() = default;
    explicit InputValues(const QWidget* page);

    /// Gives the inputs these values. They signal the changes.
    void Restore() const;

private:
    std::vector<std::function<void()>> restorers;
};
