#include "app/ModulePages.h"

#include "library/TavikModuleRN.h"
#include "library/TavikNetwork.h"
#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"
#include "panels/common/Text.h"
#include "panels/common/WaitCursor.h"
#include "panels/modes/BufferedModeWidget.h"
#include "panels/modes/DifferenceModeWidget.h"
#include "panels/modes/DynamicWidget.h"
#include "panels/modes/ReadBurstWidget.h"
#include "panels/modes/ReferenceMarkWidget.h"
#include "panels/module/TavikModuleWidget.h"

#include <QTabBar>
#include <QTabWidget>

namespace {

/// Pages before the ones of the selected module.
constexpr int networkPages = 2;

} // namespace

ModulePages::ModulePages(const Pages& windowPages, HostWindow& mainWindow, TavikLibrary::TavikServer& mainServer)
    : pages(windowPages), window(mainWindow), server(mainServer) {}

void ModulePages::Show(TavikLibrary::TavikNetwork* network, int row) {
    const WaitCursor waitCursor;
    RemoveFrom(networkPages);
    if (row < 0) {
        pages.difference.panel->setNetwork(&window, &server, network, nullptr);
        return;
    }
    Add(network, network->GetModule(static_cast<unsigned int>(row)));
}

void ModulePages::Add(TavikLibrary::TavikNetwork* network, TavikLibrary::TavikModule* module) {
    pages.tabs->addTab(pages.module.page, QStringLiteral("Module ") + FromLibrary(module->Identity()));
    pages.module.panel->SetModule(&window, &server, network, module);
    if (module->BufferedCapable()) {
        pages.tabs->addTab(pages.buffered.page, QStringLiteral("Buffered Mode"));
        pages.buffered.panel->setNetwork(&window, &server, network, module);
    }
    if (auto* encoder = dynamic_cast<TavikLibrary::TavikModuleRN*>(module)) {
        pages.tabs->addTab(pages.refMark.page, QStringLiteral("Ref Mark Mode"));
        pages.refMark.panel->setNetwork(&window, &server, network, encoder);
    }
    if (module->DifferenceCapable()) {
        pages.tabs->addTab(pages.difference.page, QStringLiteral("Difference Mode"));
        pages.difference.panel->setNetwork(&window, &server, network, module);
    }
    if (network->DynamicCapable() || network->Dynamic2Capable()) {
        pages.tabs->addTab(pages.dynamic.page, QStringLiteral("Dynamic Mode"));
        pages.dynamic.panel->setNetwork(&window, &server, network, module);
    }
    if (network->ReadBurstCapable()) {
        pages.tabs->addTab(pages.readBurst.page, QStringLiteral("Readburst Mode"));
        pages.readBurst.panel->setNetwork(&server, network);
        pages.readBurst.panel->setCommandsEnabled(network->IsConnected());
    }
}

void ModulePages::Forget() {
    RemoveFrom(networkPages);
}

void ModulePages::RemoveFrom(int index) {
    // A page that goes loses the focus, which ends editing in it; that must not reach a library object that is gone.
    pages.module.panel->ForgetModule();
    pages.buffered.panel->ForgetModule();
    pages.refMark.panel->ForgetModule();
    pages.difference.panel->ForgetModule();
    pages.dynamic.panel->ForgetNetwork();
    // Nor must the focus wander into a list or table, which would select its first row.
    const QWidget* focused = pages.tabs->focusWidget();
    while (pages.tabs->count() > index) {
        if (focused != nullptr && pages.tabs->widget(index)->isAncestorOf(focused)) {
            pages.tabs->tabBar()->setFocus();
        }
        pages.tabs->removeTab(index);
    }
}

void ModulePages::SetEnabled(bool enable) {
    pages.module.panel->SetEnabled(enable);
    LastResort::Run([&] { pages.buffered.panel->setCommandsEnabled(enable); });
    LastResort::Run([&] { pages.refMark.panel->setCommandsEnabled(enable); });
    LastResort::Run([&] { pages.difference.panel->setCommandsEnabled(enable); });
    LastResort::Run([&] { pages.dynamic.panel->setCommandsEnabled(enable); });
    LastResort::Run([&] { pages.readBurst.panel->setCommandsEnabled(enable); });
}

void ModulePages::RaiseStopFlags() {
    pages.module.panel->RaiseStopFlag();
    pages.difference.panel->RaiseStopFlag();
    pages.refMark.panel->AbandonSearch();
}
