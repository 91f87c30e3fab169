#include "panels/common/ModePage.h"

#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"

#include <QScopeGuard>

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
    for (QWidget* command : Commands()) {
        command->setEnabled(false);
    }
    enabledBeforeHold.clear();
    Clear();
}

void ModePage::setCommandsEnabled(bool enable) {
    if (!filled || enable != held) {
        return;
    }
    held = !enable;
    if (held) {
        HoldCommands();
    } else {
        LastResort::Run([this] { RefreshPage(); });
    }
}

void ModePage::RefreshPage() {
    ReleaseCommands();
    const auto holdAgain = qScopeGuard([this] {
        if (held) {
            HoldCommands();
        }
    });
    Refresh();
}

void ModePage::HoldCommands() {
    for (QWidget* command : Commands()) {
        if (command->isEnabledTo(command->parentWidget())) {
            enabledBeforeHold.push_back(command);
            command->setEnabled(false);
        }
    }
}

void ModePage::ReleaseCommands() {
    for (QWidget* command : enabledBeforeHold) {
        command->setEnabled(true);
    }
    enabledBeforeHold.clear();
}

void ModePage::Forget() {
    Leave();
    filled = false;
    network = nullptr;
    module = nullptr;
}

bool ModePage::MayAct() const {
    return filled && !mainWindow->IsClosing();
}
