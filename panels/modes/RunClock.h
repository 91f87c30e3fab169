#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QTimer>

class HostWindow;

/// Tells the operator in the status bar for how long a run has been going on. It asks the library nothing.
class RunClock : public QObject {
    Q_OBJECT

public:
    explicit RunClock(QObject* parent = nullptr);

    /// A run has begun; the text says of what kind it is.
    void Begin(HostWindow* window, const QString& text);
    /// The run is over, or none of the page's business any more. Does nothing when none goes on.
    void End();

private:
    void ShowSeconds();

    QPointer<HostWindow> host;
    QString run;
    QElapsedTimer since;
    QTimer timer;
};
