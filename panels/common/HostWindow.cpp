#include "panels/common/HostWindow.h"

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
