#pragma once

#include "tools/hand/Patience.h"

#include <QString>
#include <QTabBar>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

/// Processes events until the condition holds. Returns whether it came to hold within the time.
bool WaitUntil(const std::function<bool()>& condition, int milliseconds = patience);

/// Does something once, as soon as a condition holds while events are processed; complains of one that does not come
/// to hold, and does it all the same, so that no loop waits for ever. Nothing is done once the context is gone.
void When(QObject* context, const std::function<bool()>& condition, const std::function<void()>& deed);

/// Calls a function again and again, for as long as the timer lives, whenever events are processed.
std::unique_ptr<QTimer> Repeatedly(const std::function<void()>& function);

/// Processes events until nothing is left to be laid out, painted or deleted.
void Settle();

/// Types a text, of whatever letters, into a control that has the focus.
void TypeInto(QWidget* widget, const QString& text);

/// An operator's hand on one window. It finds controls by object name and uses them as mouse and keyboard do:
/// only what can be seen, is enabled and is not covered. What it cannot do goes to the Complaints, and the
/// function answers false or null.
class Hand {
public:
    explicit Hand(QWidget& window) : window(window) {}

    /// A control of this name; one that can be seen goes before one that cannot.
    QWidget* Find(const char* name) const;
    template <class Widget>
    Widget* The(const char* name) const {
        auto* widget = qobject_cast<Widget*>(Find(name));
        if (widget == nullptr) {
            ComplainOf(name, QStringLiteral("is of another class"));
        }
        return widget;
    }

    bool Click(const char* name);
    bool Click(QWidget* widget);
    bool ClickAt(QWidget* widget, const QPoint& position);

    /// Brings the page with this control, or the page itself, to the front by its tab.
    bool SelectPage(const char* name);
    bool SelectRow(const char* list, int row);
    bool SelectRow(const char* list, const QString& text);
    bool SelectTableRow(const char* table, int row);
    /// The button that stands in a table's cell.
    QWidget* CellButton(const char* table, int row, int column) const;
    bool ClickCellButton(const char* table, int row, int column);
    /// Opens a combo box and takes one of its rows.
    bool Choose(const char* comboBox, int row);
    /// Replaces what stands in a field or a spin box, letter by letter.
    bool Enter(const char* field, const QString& text);
    /// Uses a control somehow: presses a button, goes one row or step on, or back from the last.
    bool Use(QWidget* control);
    bool Trigger(const char* menu, const char* action);

    /// Presses a key on whatever has the focus in the window.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Type(const QString& text);

    /// The text of a label, a line edit or a button.
    QString Text(const char* name) const;
    bool IsEnabled(const char* name) const;

private:
    /// Clicks the arrows of a tab bar until this tab can be clicked.
    bool ScrollToTab(QTabBar* bar, int index);
    bool CanUse(QWidget* widget) const;
    void ComplainOf(const char* name, const QString& text) const;

    QWidget& window;
};
