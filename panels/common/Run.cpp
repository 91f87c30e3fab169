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
        // It may be one of the controls that have been disabled.
        stop->setEnabled(true);
        stop->setFocus();
    }
}

Run::~Run() {
    const bool stopHadFocus = stop != nullptr && host != nullptr && host->focusWidget() == stop;
    if (stop != nullptr) {
        // Before the controls are given back: a page that is refreshed then may find that there is more to be stopped.
        stop->setEnabled(false);
    }
    hold.Release();
    if (stopHadFocus && focusedBefore != nullptr && focusedBefore->isEnabled() && focusedBefore->isVisible()) {
        focusedBefore->setFocus();
    }
}
