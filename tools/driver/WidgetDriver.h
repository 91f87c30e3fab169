#pragma once

#include "tools/driver/WaitTimeout.h"

#include <QString>
#include <QTabBar>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <memory>

/// Processes events until the condition holds. Returns whether it came to hold within the time.
bool WaitUntil(const std::function<bool()>& condition, int milliseconds = waitTimeoutMs);

/// Runs an action once, as soon as a condition holds while events are processed. A condition that does not hold within
/// waitTimeoutMs is logged as a failure; the action runs then, so that the loop that it ends does end. Destroying the
/// context cancels the action.
void When(QObject* context, const std::function<bool()>& condition, const std::function<void()>& action);

/// Calls a function again and again, for as long as the timer lives, whenever events are processed.
std::unique_ptr<QTimer> Repeatedly(const std::function<void()>& function);

/// Processes events until all widgets are laid out and painted, and deferred deletions done. Every press of the
/// WidgetDriver begins with it, as an operator presses in a later turn of the event loop than the one before;
/// actions of When() and Repeatedly() wait until after that press.
void ProcessAllEvents();

/// Types a text, of whatever letters, into a control that has the focus.
void TypeInto(QWidget* widget, const QString& text);

/// Drives one window as an operator does. It finds controls by object name and uses them by mouse and keyboard: only
/// those that are visible, enabled and not covered. A failure goes to the FailureLog, and the function returns false
/// or null.
class WidgetDriver {
public:
    explicit WidgetDriver(QWidget& window) : window(window) {}

    /// A control of this name; one that can be seen goes before one that cannot.
    QWidget* Find(const char* name) const;
    template <class Widget>
    Widget* The(const char* name) const {
        auto* widget = qobject_cast<Widget*>(Find(name));
        if (widget == nullptr) {
            LogFailureOf(name, QStringLiteral("expected another class of control"));
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

    /// A property of a control, such as "currentIndex"; invalid if the control does not exist.
    QVariant Value(const char* name, const char* property) const;
    /// The text of a label, a line edit or a button.
    QString Text(const char* name) const;
    bool IsEnabled(const char* name) const;

private:
    /// Clicks the arrows of a tab bar until this tab can be clicked.
    bool ScrollToTab(QTabBar* bar, int index);
    bool CanUse(QWidget* widget) const;
    void LogFailureOf(const char* name, const QString& text) const;

    QWidget& window;
};
