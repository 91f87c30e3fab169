#include "panels/common/Run.h"

Run::Run(HostWindow& hostWindow, const QString& name, QPushButton* stopButton)
    : activity(&hostWindow), host(&hostWindow), stop(stopButton), focusedBefore(hostWindow.focusWidget()) {
    if (stop != nullptr) {
        stop->setEnabled(true);
        // Before the controls are disabled: the focus would go on to whatever control comes next.
        stop->setFocus();
    }
    hold = hostWindow.DisableControls(name);
    if (stop != nullptr) {
        stop->setEnabled(true);
    }
}

Run::~Run() {
    hold.Release();
    if (stop == nullptr) {
        return;
    }
    const bool hadFocus = host != nullptr && host->focusWidget() == stop;
    if (hadFocus && focusedBefore != nullptr && focusedBefore->isEnabled() && focusedBefore->isVisible()) {
        focusedBefore->setFocus();
    }
    stop->setEnabled(false);
}
