#include "panels/common/LastResort.h"

#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"

#include <QApplication>
#include <QStringList>

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

void ShowWaiting() {
    if (showing) {
        return;
    }
    showing = true;
    while (!Waiting().isEmpty()) {
        ShowErrorBox(BoxParent(), QStringLiteral("Tavik Library Test"), Waiting().takeFirst());
    }
    showing = false;
}

} // namespace

void LastResort::Report(const QString& text) {
    const auto show = [text] {
        Waiting().append(text);
        ShowWaiting();
    };
    QMetaObject::invokeMethod(qApp, show, Qt::QueuedConnection);
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
