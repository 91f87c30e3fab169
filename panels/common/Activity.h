#pragma once

#include "panels/common/HostWindow.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QTimer>

class QWidget;

/// Says in the status bar of the host window what goes on, for as long as it exists. It calls no library function.
class Activity {
public:
    /// The host may be null: nothing is shown then.
    explicit Activity(HostWindow* host, const QString& text = QString());
    ~Activity();
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

    void Show(const QString& text);
    /// Appends the seconds since the beginning, once a second: "text, 12 s".
    void ShowSeconds(const QString& text);
    /// What is shown for a while when the activity has ended; "%1" stands for its seconds with one decimal.
    void SetOutcome(const QString& text) { outcome = text; }
    qint64 Milliseconds() const { return sinceStart.elapsed(); }

private:
    QPointer<HostWindow> host;
    QString outcome;
    QElapsedTimer sinceStart;
    QTimer clock;
};
