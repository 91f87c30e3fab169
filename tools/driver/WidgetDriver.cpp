#include "tools/driver/WidgetDriver.h"

#include "tools/driver/FailureLog.h"
#include "tools/driver/Screen.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

namespace {

/// While set, actions of When() and Repeatedly() wait: they belong to what the press starts.
bool pressPending = false;

/// Lets the event loop turn before a press.
void TurnEventLoop() {
    const QScopedValueRollback<bool> pending(pressPending, true);
    ProcessAllEvents();
}

QString NameOf(const QWidget* widget) {
    return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
}

bool Shows(QWidget* page, const QWidget* widget) {
    return page == widget || page->isAncestorOf(widget);
}

} // namespace

bool WaitUntil(const std::function<bool()>& condition, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QTest::qSleep(1);
    }
    return true;
}

void When(QObject* context, const std::function<bool()>& condition, const std::function<void()>& action) {
    auto* timer = new QTimer(context);
    const QDeadlineTimer deadline(waitTimeoutMs);
    QObject::connect(timer, &QTimer::timeout, context, [timer, deadline, condition, action] {
        if (pressPending) {
            return;
        }
        const bool holds = condition();
        if (!holds && !deadline.hasExpired()) {
            return;
        }
        if (!holds) {
            FailureLog::Add(
                QStringLiteral("Condition not met within %1 s; action run anyway.").arg(waitTimeoutMs / 1000));
        }
        // The action may destroy the timer, and this function with it.
        const std::function<void()> run = action;
        timer->stop();
        timer->deleteLater();
        run();
    });
    timer->start(1);
}

std::unique_ptr<QTimer> Repeatedly(const std::function<void()>& function) {
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, [function] {
        if (!pressPending) {
            function();
        }
    });
    timer->start(0);
    return timer;
}

void ProcessAllEvents() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void TypeInto(QWidget* widget, const QString& text) {
    for (const QChar letter : text) {
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

QWidget* WidgetDriver::Find(const char* name) const {
    const QList<QWidget*> found = window.findChildren<QWidget*>(QLatin1String(name));
    for (QWidget* widget : found) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    if (found.isEmpty()) {
        LogFailureOf(name, QStringLiteral("expected a control, got none"));
        return nullptr;
    }
    return found.first();
}

void WidgetDriver::LogFailureOf(const char* name, const QString& text) const {
    FailureLog::Add(QStringLiteral("%1: %2.").arg(QLatin1String(name), text));
}

bool WidgetDriver::CanUse(QWidget* widget) const {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && widget->window() != modal) {
        FailureLog::Add(
            QStringLiteral("%1: expected usable, got blocked by \"%2\".").arg(NameOf(widget), modal->windowTitle()));
        return false;
    }
    if (!widget->isVisible()) {
        FailureLog::Add(NameOf(widget) + QStringLiteral(": expected visible, got hidden."));
        return false;
    }
    if (!widget->isEnabled()) {
        FailureLog::Add(NameOf(widget) + QStringLiteral(": expected enabled, got disabled."));
        return false;
    }
    return true;
}

bool WidgetDriver::Click(const char* name) {
    QWidget* widget = Find(name);
    return widget != nullptr && Click(widget);
}

bool WidgetDriver::Click(QWidget* widget) {
    return ClickAt(widget, Screen::ActiveSpot(*widget));
}

bool WidgetDriver::ClickAt(QWidget* widget, const QPoint& position) {
    const QPointer<QWidget> control = widget;
    TurnEventLoop();
    if (control == nullptr) {
        FailureLog::Add(QStringLiteral("Click: the control was destroyed before the press."));
        return false;
    }
    if (!CanUse(widget)) {
        return false;
    }
    Screen::ScrollTo(*widget);
    QWidget* top = widget->window();
    const QPoint spot = widget->mapTo(top, position);
    if (!Screen::IsReached(*widget, position)) {
        const QWidget* hit = top->childAt(spot);
        FailureLog::Add(QStringLiteral("%1 at %3, %4: expected uncovered, got covered by %2.")
                            .arg(NameOf(widget), hit != nullptr ? NameOf(hit) : QStringLiteral("the window's edge"))
                            .arg(spot.x())
                            .arg(spot.y()));
        return false;
    }
    // As a window manager does; without one, no window is active after a dialog has closed, and no control has the
    // focus.
    if (top->windowType() != Qt::Popup && !top->isActiveWindow()) {
        QApplication::setActiveWindow(top);
    }
    QTest::mouseClick(top->windowHandle(), Qt::LeftButton, Qt::NoModifier, spot);
    return true;
}

bool WidgetDriver::ScrollToTab(QTabBar* bar, int index) {
    for (int step = 0; step <= bar->count(); ++step) {
        const QPoint spot = bar->tabRect(index).center();
        if (bar->rect().contains(spot) && bar->childAt(spot) == nullptr) {
            return true;
        }
        // Both arrows stand at the right end, over the tabs that do not fit.
        auto* arrow = bar->findChild<QToolButton*>(spot.x() < 0 ? QStringLiteral("ScrollLeftButton")
                                                                : QStringLiteral("ScrollRightButton"));
        if (arrow == nullptr || !Click(arrow)) {
            break;
        }
    }
    FailureLog::Add(QStringLiteral("Tab \"%1\": expected to be reached, got no arrow to it.").arg(bar->tabText(index)));
    return false;
}

bool WidgetDriver::SelectPage(const char* name) {
    QWidget* wanted = Find(name);
    const QList<QTabWidget*> tabWidgets = window.findChildren<QTabWidget*>();
    for (QTabWidget* tabs : tabWidgets) {
        for (int index = 0; wanted != nullptr && index < tabs->count(); ++index) {
            if (Shows(tabs->widget(index), wanted)) {
                return tabs->currentIndex() == index ||
                       (ScrollToTab(tabs->tabBar(), index) &&
                        ClickAt(tabs->tabBar(), tabs->tabBar()->tabRect(index).center()));
            }
        }
    }
    LogFailureOf(name, QStringLiteral("expected on a page, got on none"));
    return false;
}

bool WidgetDriver::SelectRow(const char* name, int row) {
    auto* list = The<QListWidget>(name);
    QListWidgetItem* item = list != nullptr ? list->item(row) : nullptr;
    if (item == nullptr) {
        LogFailureOf(name, QStringLiteral("expected row %1, got none").arg(row));
        return false;
    }
    list->scrollToItem(item);
    return CanUse(list) && ClickAt(list->viewport(), list->visualItemRect(item).center());
}

bool WidgetDriver::SelectRow(const char* name, const QString& text) {
    auto* list = The<QListWidget>(name);
    const QList<QListWidgetItem*> items =
        list != nullptr ? list->findItems(text, Qt::MatchExactly) : QList<QListWidgetItem*>();
    if (items.isEmpty()) {
        LogFailureOf(name, QStringLiteral("expected row \"%1\", got none").arg(text));
        return false;
    }
    return SelectRow(name, list->row(items.first()));
}

bool WidgetDriver::SelectTableRow(const char* name, int row) {
    auto* table = The<QTableWidget>(name);
    QTableWidgetItem* item = table != nullptr ? table->item(row, 0) : nullptr;
    if (item == nullptr) {
        LogFailureOf(name, QStringLiteral("expected row %1, got none").arg(row));
        return false;
    }
    table->scrollToItem(item);
    return CanUse(table) && ClickAt(table->viewport(), table->visualItemRect(item).center());
}

QWidget* WidgetDriver::CellButton(const char* name, int row, int column) const {
    auto* table = The<QTableWidget>(name);
    QWidget* button = table != nullptr ? table->cellWidget(row, column) : nullptr;
    if (button == nullptr) {
        LogFailureOf(name, QStringLiteral("expected a button in row %1, got none").arg(row));
    }
    return button;
}

bool WidgetDriver::ClickCellButton(const char* name, int row, int column) {
    QWidget* button = CellButton(name, row, column);
    return button != nullptr && Click(button);
}

bool WidgetDriver::Choose(const char* name, int row) {
    auto* box = The<QComboBox>(name);
    if (box == nullptr || row < 0 || row >= box->count()) {
        LogFailureOf(name, QStringLiteral("expected row %1, got none").arg(row));
        return false;
    }
    QAbstractItemView* rows = box->view();
    if (!Click(box) || !WaitUntil([rows] { return rows->isVisible(); })) {
        LogFailureOf(name, QStringLiteral("expected open, got closed"));
        return false;
    }
    const auto goToRow = [rows, row] {
        QTest::keyClick(rows, Qt::Key_Home);
        for (int below = 0; below < row; ++below) {
            QTest::keyClick(rows, Qt::Key_Down);
        }
        return rows->currentIndex().row() == row;
    };
    if (!WaitUntil(goToRow)) {
        LogFailureOf(name, QStringLiteral("expected current row %1, got another").arg(row));
        return false;
    }
    TurnEventLoop();
    QTest::keyClick(rows, Qt::Key_Return);
    return WaitUntil([rows] { return !rows->isVisible(); });
}

bool WidgetDriver::Enter(const char* name, const QString& text) {
    QWidget* widget = Find(name);
    if (widget == nullptr || !Click(widget)) {
        return false;
    }
    TurnEventLoop();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    TypeInto(widget, text);
    return true;
}

bool WidgetDriver::Use(QWidget* control) {
    if (qobject_cast<QAbstractButton*>(control) != nullptr) {
        return Click(control);
    }
    TurnEventLoop();
    if (!CanUse(control)) {
        return false;
    }
    const auto* box = qobject_cast<QComboBox*>(control);
    const auto* spin = qobject_cast<QSpinBox*>(control);
    const bool fromTheLast = (box != nullptr && box->currentIndex() == box->count() - 1) ||
                             (spin != nullptr && spin->value() == spin->maximum());
    // The next row is below, the next number above.
    QTest::keyClick(control, (box != nullptr) != fromTheLast ? Qt::Key_Down : Qt::Key_Up);
    return true;
}

bool WidgetDriver::Trigger(const char* menuName, const char* actionName) {
    auto* menu = The<QMenu>(menuName);
    auto* action = window.findChild<QAction*>(QLatin1String(actionName));
    auto* bar = window.findChild<QMenuBar*>();
    if (menu == nullptr || action == nullptr || bar == nullptr || !action->isEnabled()) {
        LogFailureOf(actionName, QStringLiteral("expected an enabled action in the menu, got none"));
        return false;
    }
    if (!ClickAt(bar, bar->actionGeometry(menu->menuAction()).center()) ||
        !WaitUntil([&] { return menu->isVisible(); })) {
        LogFailureOf(menuName, QStringLiteral("expected open, got closed"));
        return false;
    }
    TurnEventLoop();
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
    return true;
}

void WidgetDriver::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    TurnEventLoop();
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, key, modifiers);
    QCoreApplication::processEvents();
}

void WidgetDriver::Type(const QString& text) {
    TurnEventLoop();
    QWidget* focus = window.focusWidget();
    if (focus == nullptr) {
        FailureLog::Add(QStringLiteral("Typing \"%1\": expected a control with the focus, got none.").arg(text));
        return;
    }
    TypeInto(focus, text);
}

QVariant WidgetDriver::Value(const char* name, const char* property) const {
    const QWidget* widget = Find(name);
    return widget != nullptr ? widget->property(property) : QVariant();
}

QString WidgetDriver::Text(const char* name) const {
    return Value(name, "text").toString();
}

bool WidgetDriver::IsEnabled(const char* name) const {
    const QWidget* widget = Find(name);
    return widget != nullptr && widget->isEnabled();
}
