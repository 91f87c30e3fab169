#include "panels/common/HostWindow.h"

#include <QEvent>
#include <QStatusBar>

HostWindow* HostWindow::Of(QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (auto* host = qobject_cast<HostWindow*>(widget)) {
            return host;
        }
    }
    return nullptr;
}

bool HostWindow::IsClosingOver(QWidget* widget) {
    const HostWindow* host = Of(widget);
    return host != nullptr && host->IsClosing();
}

bool HostWindow::IsClosing() const {
    return closing;
}

void HostWindow::ShowActivity(const QString& text) {
    statusBar()->showMessage(text);
}

void HostWindow::BeginClosing() {
    closing = true;
}

bool HostWindow::event(QEvent* event) {
    // Nothing here has a tip for the status bar, but a menu that is passed over would clear it, though something runs.
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
}
