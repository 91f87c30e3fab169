#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QSpinBox>
#include <QTableWidget>
#include <QWheelEvent>

#include <functional>
#include <vector>

// The controls in which an operator chooses or enters something, used in every form. What is chosen or entered is what
// the operator did: the focus chooses nothing, the wheel changes nothing without the focus, and a number that is typed
// is one change, reported when it is complete and differs from the one before.

/// What lists and tables of choices have in common: the focus chooses no row, Ctrl does not take the highlight off the
/// row that the buttons act on, and a disabled one shows no selection.
template <class View>
class ChoiceView : public View {
public:
    using View::View;

protected:
    QItemSelectionModel::SelectionFlags Selecting() const {
        const bool rows = this->selectionBehavior() == QAbstractItemView::SelectRows;
        return QItemSelectionModel::ClearAndSelect | (rows ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate);
    }
    /// The operator chose the row that was chosen already.
    virtual void ChosenAgain() = 0;

    void focusInEvent(QFocusEvent* event) override {
        // An item view would make its first row current here, though nobody chose it.
        QAbstractScrollArea::focusInEvent(event);
        this->viewport()->update();
    }
    void mousePressEvent(QMouseEvent* event) override {
        const bool again = event->button() == Qt::LeftButton && this->currentIndex().isValid() &&
                           this->indexAt(event->pos()).row() == this->currentIndex().row();
        View::mousePressEvent(event);
        // A slot of the row change may have taken the change back, but the view selects the pressed row after it.
        this->selectionModel()->select(this->currentIndex(), Selecting());
        if (again) {
            ChosenAgain();
        }
    }
    void keyPressEvent(QKeyEvent* event) override {
        View::keyPressEvent(event);
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && this->currentIndex().isValid()) {
            ChosenAgain();
        }
    }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override {
        if (!index.isValid() || (event != nullptr && event->type() == QEvent::MouseButtonRelease)) {
            return QItemSelectionModel::NoUpdate;
        }
        return Selecting();
    }
    QStyleOptionViewItem viewOptions() const override {
        QStyleOptionViewItem options = View::viewOptions();
        options.palette.setBrush(QPalette::Disabled, QPalette::Highlight, options.palette.base());
        options.palette.setBrush(QPalette::Disabled, QPalette::HighlightedText,
                                 options.palette.brush(QPalette::Disabled, QPalette::Text));
        return options;
    }
};

/// A list with one row chosen at most. The current row is always shown as selected.
class ChoiceList : public ChoiceView<QListWidget> {
    Q_OBJECT

public:
    using ChoiceView::ChoiceView;

signals:
    void chosenAgain();

protected:
    void ChosenAgain() override { emit chosenAgain(); }
};

/// A table with one row chosen at most, and in its last column a button that acts on the row. Space and Return press
/// the button of the current row. The buttons take no focus: a press chooses no row.
class ChoiceTable : public ChoiceView<QTableWidget> {
    Q_OBJECT

public:
    using ChoiceView::ChoiceView;

    /// The table takes the button.
    void SetRowButton(int row, QAbstractButton* button);
    QAbstractButton* RowButton(int row) const;

signals:
    void chosenAgain();

protected:
    void ChosenAgain() override { emit chosenAgain(); }
    void keyPressEvent(QKeyEvent* event) override;
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
