#include "tools/driver/Screen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHash>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>

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

QString BaseName(const QWidget* widget) {
    if (qobject_cast<const QTabBar*>(widget) != nullptr) {
        return QStringLiteral("qt_tabwidget_tabbar"); // Qt names only the tab bars that it creates
    }
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
        if (qobject_cast<QMainWindow*>(window) != nullptr && window->isVisible()) {
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

QAbstractButton* Screen::ButtonOf(const QWidget& box, bool accepts) {
    const QList<QDialogButtonBox*> groups = box.findChildren<QDialogButtonBox*>();
    for (const QDialogButtonBox* group : groups) {
        const QList<QAbstractButton*> buttons = group->buttons();
        for (QAbstractButton* button : buttons) {
            const QDialogButtonBox::ButtonRole role = group->buttonRole(button);
            if (accepts == (role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole)) {
                return button;
            }
        }
    }
    return nullptr;
}

bool Screen::CanBeClosed(const QWidget& dialog) {
    const Qt::WindowFlags flags = dialog.windowFlags();
    return !flags.testFlag(Qt::CustomizeWindowHint) || flags.testFlag(Qt::WindowCloseButtonHint);
}
