#pragma once

#include "tests/support/Calls.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStatusBar>

// What an operator does to a window that a call of the library blocks, and sees of it.

/// Puts a click into the event queue, as the window system does while the window is blocked.
inline void PostClick(QWidget* widget) {
    const QPoint spot = widget->rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QApplication::postEvent(widget, new QMouseEvent(type, spot, widget->mapToGlobal(spot), Qt::LeftButton,
                                                        Qt::LeftButton, Qt::NoModifier));
    }
}

/// The messages that a status bar was painted with before the first call of an operation.
class PaintedTexts : public QObject {
public:
    PaintedTexts(QStatusBar* watchedBar, const QString& awaitedOperation)
        : bar(watchedBar), operation(awaitedOperation) {
        bar->installEventFilter(this);
    }

    QStringList before;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && Calls::CountOf(qPrintable(operation)) == 0) {
            before.append(bar->currentMessage());
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QStatusBar* bar;
    QString operation;
};
