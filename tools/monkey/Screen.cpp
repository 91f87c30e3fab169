#include "tools/monkey/Screen.h"

#include "app/MainWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

namespace {

template <class... Kinds>
bool IsOneOf(const QObject* object) {
    return (... || (qobject_cast<const Kinds*>(object) != nullptr));
}

/// Whether a widget is part of a control that the operator takes for one.
bool IsPart(const QWidget* widget) {
    for (const QWidget* around = widget->parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (IsOneOf<QComboBox, QAbstractSpinBox, QTabBar, QMenuBar>(around)) {
            return true;
        }
    }
    return false;
}

bool IsControl(const QWidget* widget) {
    return IsOneOf<QAbstractButton, QComboBox, QAbstractSpinBox, QLineEdit, QAbstractItemView, QTabBar, QMenuBar>(
               widget) &&
           !IsPart(widget);
}

/// Whether there is a page with it now, in front or not.
bool IsOnAPage(const QWidget& mainWindow, const QWidget& widget) {
    const auto* tabs = mainWindow.findChild<QTabWidget*>(QStringLiteral("tabWidget"));
    for (int index = 0; index < tabs->count(); ++index) {
        if (tabs->widget(index) == &widget || tabs->widget(index)->isAncestorOf(&widget)) {
            return true;
        }
    }
    return false;
}

QString BaseName(const QWidget* widget) {
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

} // namespace

QWidget* Screen::Front() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return popup;
    }
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (qobject_cast<MainWindow*>(window) != nullptr && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

std::vector<Screen::Control> Screen::Controls(const QWidget& window) {
    std::vector<Control> controls;
    QHash<QString, int> seen;
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->window() != &window || !widget->isVisible() || !IsControl(widget)) {
            continue;
        }
        const QString base = BaseName(widget);
        const int number = seen[base]++;
        if (widget->isEnabled()) {
            controls.push_back({number == 0 ? base : QStringLiteral("%1#%2").arg(base).arg(number), widget});
        }
    }
    return controls;
}

QWidget* Screen::Find(const QWidget& window, const QString& name) {
    for (const Control& control : Controls(window)) {
        if (control.name == name) {
            return control.widget;
        }
    }
    return nullptr;
}

void Screen::ScrollTo(QWidget& widget) {
    for (QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            area->ensureWidgetVisible(&widget, 0, 0);
        }
    }
}

bool Screen::IsReached(const QWidget& widget, const QPoint& place) {
    const QWidget* window = widget.window();
    const QWidget* hit = window->childAt(widget.mapTo(window, place));
    return hit != nullptr && (hit == &widget || widget.isAncestorOf(hit));
}

QPoint Screen::ActiveSpot(const QWidget& widget) {
    constexpr int mark = 8; // the text of a choice may end long before its widget does
    return IsOneOf<QRadioButton, QCheckBox>(&widget) ? QPoint(mark, widget.height() / 2) : widget.rect().center();
}

QList<QString> Screen::Running(const QWidget& mainWindow) {
    struct Stop {
        const char* page;
        const char* button;
        const char* name;
    };
    static constexpr Stop stops[] = {
        {"tabNetwork", "btnStopNotify", "notify run"},
        {"moduleWidget", "btnStopContinuous", "continuous reading"},
        {"bufferedModeWidget", "btnStop", "buffered run"},
        {"refMarkWidget", "btnStop", "search for a reference mark"},
        {"differenceModeWidget", "btnStopDiff", "difference run"},
        {"dynamicWidget", "btnStop", "dynamic collection"},
    };
    QList<QString> running;
    for (const Stop& stop : stops) {
        const auto* page = mainWindow.findChild<QWidget*>(QLatin1String(stop.page));
        const auto* button = page != nullptr ? page->findChild<QWidget*>(QLatin1String(stop.button)) : nullptr;
        if (button != nullptr && button->isEnabledTo(page) && IsOnAPage(mainWindow, *page)) {
            running.append(QString::fromLatin1(stop.name));
        }
    }
    return running;
}
