#pragma once

#include "panels/common/MessageBoxes.h"

#include <QWidget>

#include <vector>

class HostWindow;

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

/// The base of the pages of the selected module: the module's own and those of the acquisition modes. A page is empty,
/// filled or running. It acts only when it is filled; after a set-up that failed it is empty.
class ModePage : public QWidget {
    Q_OBJECT

public:
    /// The title stands over the boxes of failures, the prefix before their texts.
    ModePage(QWidget* parent, const QString& boxTitle, const QString& textPrefix)
        : QWidget(parent), errors(this, boxTitle, textPrefix) {}

    /// Empties the page, takes what is selected and fills the page. Propagates library exceptions; the page is empty
    /// then.
    void setNetwork(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Disables the commands, or enables those that were enabled before and refreshes the page. A refresh that fails
    /// is reported and leaves the page as it was. Without effect on an empty page. Never throws.
    virtual void setCommandsEnabled(bool enable);
    /// The page is taken away. To be called while its module exists, since a run on it may have to be ended; afterwards
    /// network and module are not called any more. Never throws.
    void Forget();
    /// Ends what the page is doing in a loop. Never throws.
    virtual void Stop() noexcept {}

    bool IsFilled() const { return filled; }

protected:
    /// Empties all fields and disables what Commands() leaves out. Calls no library function.
    virtual void Clear() = 0;
    /// Asks the library and shows its answers. Returns false if there is nothing to show, for example because the
    /// network is not connected.
    virtual bool Fill() = 0;
    /// Asks the library again and shows its answers: after an action, and when the commands are given back. To be
    /// called through RefreshPage().
    virtual void Refresh() {}
    /// Refreshes the page; while the window's controls are held, what becomes enabled by it takes effect when they are
    /// given back. Propagates library exceptions.
    void RefreshPage();
    /// The controls that are disabled while a run holds the window's controls.
    virtual std::vector<QWidget*> Commands() const = 0;
    /// The page lets go of its module: ends what it shows of it elsewhere.
    virtual void Leave() {}

    /// Whether a slot may call the library.
    bool MayAct() const;
    bool CommandsAreHeld() const { return held; }
    /// Whether the commands stay disabled whatever Refresh() makes of them.
    virtual bool IsHeldByOthers() const { return held; }

    const ErrorBox errors;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModule* module = nullptr;

private:
    void Empty();
    void HoldCommands();
    void DisableCommands();

    std::vector<QWidget*> enabledBeforeHold;
    bool held = false;
    bool filled = false;
};
