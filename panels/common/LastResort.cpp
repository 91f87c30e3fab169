#include "panels/common/LastResort.h"

#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"

#include <QApplication>
#include <QStringList>
#include <QThread>

#include <exception>

namespace {

/// The failures that have no box yet. Touched on the GUI thread only.
QStringList& Waiting() {
    static QStringList texts;
    return texts;
}

bool showing = false;

QWidget* BoxParent() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (qobject_cast<HostWindow*>(window) != nullptr) {
            return window;
        }
    }
    return nullptr;
}

/// The texts that pages have shown themselves in the current event. Touched on the GUI thread only.
QStringList& ShownByPages() {
    static QStringList texts;
    return texts;
}

void ShowWaiting() {
    if (showing) {
        return;
    }
    showing = true;
    while (!Waiting().isEmpty()) {
        // Stays in the list while it is shown, so that the same text does not queue up behind it.
        ShowErrorBox(BoxParent(), QStringLiteral("Tavik Library Test"), Waiting().first());
        Waiting().removeFirst();
    }
    showing = false;
}

void AddToWaiting(const QString& text) {
    if (!Waiting().contains(text)) {
        Waiting().append(text);
    }
}

} // namespace

void LastResort::Report(const QString& text) {
    const bool onGuiThread = QThread::currentThread() == qApp->thread();
    if (onGuiThread && ShownByPages().contains(text)) {
        return;
    }
    QMetaObject::invokeMethod(
        qApp,
        [text] {
            AddToWaiting(text);
            ShowWaiting();
        },
        Qt::QueuedConnection);
}

void LastResort::MarkAsShown(const QString& text) {
    if (ShownByPages().isEmpty()) {
        QMetaObject::invokeMethod(
            qApp, [] { ShownByPages().clear(); }, Qt::QueuedConnection);
    }
    ShownByPages().append(text);
}

void LastResort::ReportCurrentException() {
    try {
        throw;
    } catch (const std::exception& error) {
        Report(FromLibrary(error.what()));
    } catch (...) {
        Report(QStringLiteral("An error of an unknown kind has occurred."));
    }
}
