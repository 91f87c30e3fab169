#pragma once

#include <QMainWindow>

/// What panels may ask of the window that hosts them.
class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

    /// The host of a widget: the nearest HostWindow among its ancestors, or null.
    static HostWindow* Of(QWidget* widget);
    /// Whether a widget has a host, and that host is closing.
    static bool IsClosingOver(QWidget* widget);

    /// Disables every control that must not be used while a long operation runs. Never throws.
    virtual void DisableControls() = 0;
    /// The inverse of DisableControls. Never throws.
    virtual void EnableControls() = 0;
    /// Shows the selected module's information anew, after it changed in the library.
    virtual void RedisplayModuleInformation() = 0;

    /// True from the moment the window begins to close: no loop goes round again and no box opens.
    bool IsClosing() const;

    /// Tells the operator in the status bar what a long operation is doing; an empty text clears it.
    void ShowActivity(const QString& text);

protected:
    void BeginClosing();
    bool event(QEvent* event) override;

private:
    bool closing = false;
};
