#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include <vector>

class QAbstractButton;
class QWidget;

/// What can be used on a window. A control is named by its object name, or by its class when it has none, and by a
/// number behind '#' when it is not the first of that name that can be seen.
namespace Screen {

struct Control {
    QString name;
    QWidget* widget = nullptr;
};

/// The window, dialog or menu that takes the operator's mouse now; null when there is none.
QWidget* Front();
/// Controls of a window that can be seen and are enabled, in a fixed order.
std::vector<Control> Controls(const QWidget& window);
/// The control of this name; null when it cannot be used now.
QWidget* Find(const QWidget& window, const QString& name);

/// Scrolls so that a control can be reached.
void ScrollTo(QWidget& widget);
/// Whether a click at this place of its reaches the widget or a part of it.
bool IsReached(const QWidget& widget, const QPoint& place);
/// Where a control answers to a click.
QPoint ActiveSpot(const QWidget& widget);

/// The button of a message or input box that accepts or rejects it; null if there is none.
QAbstractButton* ButtonOf(const QWidget& box, bool accepts);
/// Whether the frame of a dialog has a close button.
bool CanBeClosed(const QWidget& dialog);

} // namespace Screen
