#pragma once

#include "panels/common/Activity.h"
#include "panels/common/HostWindow.h"

#include <QPointer>
#include <QPushButton>

/// One run of a page, from its start to its end. While it exists the window's controls are disabled, the run's own Stop
/// button is enabled, and the status bar says what goes on. Its destructor never throws.
class Run {
public:
    /// The name says who holds the controls.
    Run(HostWindow& host, const QString& name, QPushButton* stopButton);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// For a loop that handles events: ends it at its next round.
    void RequestStop() { stopRequested = true; }
    /// The operator pressed Start again before the loop came round: the last press counts.
    void GoOn() { stopRequested = false; }
    /// Whether a loop may go round again: no stop is requested and the window is not closing.
    bool MayGoOn() const { return !stopRequested && host != nullptr && !host->IsClosing(); }

    Activity activity;

private:
    QPointer<HostWindow> host;
    QPointer<QPushButton> stop;
    QPointer<QWidget> focusedBefore;
    ControlsHold hold;
    bool stopRequested = false;
};
