#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <utility>
#include <vector>

class HostWindow;

/// Keeps the controls of a window disabled while it exists. Releasing never throws.
class ControlsHold {
public:
    ControlsHold() = default;
    ControlsHold(ControlsHold&& other) noexcept;
    ControlsHold& operator=(ControlsHold&& other) noexcept;
    ~ControlsHold() { Release(); }

    void Release() noexcept;

private:
    friend class HostWindow;
    ControlsHold(HostWindow& heldWindow, int holdNumber);

    QPointer<HostWindow> window;
    int number = 0; ///< 0 for a hold that is released
};

/// What panels may ask of the window that hosts them.
class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HostWindow(QWidget* parent = nullptr);

    /// The host of a widget: the nearest HostWindow among its ancestors, or null.
    static HostWindow* Of(QWidget* widget);
    /// Whether a widget has a host, and that host is closing.
    static bool IsClosingOver(QWidget* widget);

    /// Disables every control that must not be used while a long operation runs. They are enabled when this and
    /// every other hold is released, unless the window is closing. Never throws.
    [[nodiscard]] ControlsHold DisableControls(const QString& holder);
    bool ControlsAreHeld() const { return !holds.empty(); }
    /// The names of the holders, oldest first.
    QStringList Holders() const;

    /// Shows the selected module's information anew, after it changed in the library.
    virtual void RedisplayModuleInformation() = 0;

    /// True from the moment the window begins to close: no loop goes round again and no box opens.
    bool IsClosing() const { return closing; }

    /// Shows in the status bar for 8 s what has been done.
    void ShowOutcome(const QString& text);

protected:
    /// Enables or disables the controls. Must not throw.
    virtual void SetControlsEnabled(bool enable) = 0;
    void BeginClosing() { closing = true; }
    bool event(QEvent* event) override;

private:
    friend class ControlsHold;
    friend class Activity;
    void ReleaseHold(int number) noexcept;
    /// The activity shown last stays in the status bar until it ends; an empty text ends it.
    void SetActivity(const void* owner, const QString& text);
    void ShowLatestActivity();

    struct Hold {
        int number;
        QString holder;
    };
    std::vector<Hold> holds;
    std::vector<std::pair<const void*, QString>> activities;
    int lastHoldNumber = 0;
    bool closing = false;
};
