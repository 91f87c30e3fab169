#include "panels/common/ModePage.h"

#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"

#include <QScopeGuard>

#include <utility>

void ModePage::setNetwork(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                          TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModule* newModule) {
    Forget();
    Empty();
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;
    try {
        filled = Fill();
    } catch (...) {
        Empty();
        throw;
    }
    if (!filled) {
        Empty();
        return;
    }
    held = mainWindow->ControlsAreHeld();
    if (held) {
        HoldCommands();
    }
}

void ModePage::Empty() {
    filled = false;
    DisableCommands();
    enabledBeforeHold.clear();
    Clear();
}

void ModePage::setCommandsEnabled(bool enable) {
    if (!filled || (held && !enable)) {
        return;
    }
    held = !enable;
    if (held) {
        HoldCommands();
        return;
    }
    for (QWidget* command : std::exchange(enabledBeforeHold, {})) {
        command->setEnabled(true);
    }
    LastResort::Run([this] { Refresh(); });
}

void ModePage::RefreshPage() {
    auto disableAgain = qScopeGuard([this] {
        if (held) {
            DisableCommands();
        }
    });
    Refresh();
    if (!IsHeldByOthers()) {
        disableAgain.dismiss();
    }
}

void ModePage::HoldCommands() {
    for (QWidget* command : Commands()) {
        if (command->isEnabledTo(command->parentWidget())) {
            enabledBeforeHold.push_back(command);
        }
    }
    DisableCommands();
}

void ModePage::DisableCommands() {
    for (QWidget* command : Commands()) {
        command->setEnabled(false);
    }
}

void ModePage::Forget() {
    // First: what Leave() releases must not refresh this page.
    filled = false;
    Leave();
    network = nullptr;
    module = nullptr;
}

bool ModePage::MayAct() const {
    return filled && !mainWindow->IsClosing();
}
