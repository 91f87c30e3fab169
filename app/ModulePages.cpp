#include "app/ModulePages.h"

#include "library/TavikModuleRN.h"
#include "library/TavikNetwork.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Text.h"
#include "panels/common/WaitCursor.h"
#include "panels/module/TavikModuleWidget.h"

#include <QTabWidget>

namespace {

/// Pages before the ones of the selected module.
constexpr int networkPages = 2;

} // namespace

ModulePages::ModulePages(const Pages& windowPages, HostWindow& mainWindow, TavikLibrary::TavikServer& mainServer)
    : pages(windowPages), window(mainWindow), server(mainServer) {}

void ModulePages::Show(TavikLibrary::TavikNetwork* network, int row) {
    const WaitCursor waitCursor;
    RaiseStopFlags();
    RemoveFrom(networkPages);
    if (row >= 0) {
        Add(network, network->GetModule(static_cast<unsigned int>(row)));
    }
}

void ModulePages::Add(TavikLibrary::TavikNetwork* network, TavikLibrary::TavikModule* module) {
    pages.tabs->addTab(pages.module.page, QStringLiteral("Module ") + FromLibrary(module->Identity()));
    pages.module.panel->SetModule(&window, &server, network, module);
    if (module->BufferedCapable()) {
        pages.tabs->addTab(pages.buffered.page, QStringLiteral("Buffered Mode"));
    }
    if (dynamic_cast<TavikLibrary::TavikModuleRN*>(module) != nullptr) {
        pages.tabs->addTab(pages.refMark.page, QStringLiteral("Ref Mark Mode"));
    }
    if (module->DifferenceCapable()) {
        pages.tabs->addTab(pages.difference.page, QStringLiteral("Difference Mode"));
    }
    if (network->DynamicCapable() || network->Dynamic2Capable()) {
        pages.tabs->addTab(pages.dynamic.page, QStringLiteral("Dynamic Mode"));
    }
    if (network->ReadBurstCapable()) {
        pages.tabs->addTab(pages.readBurst.page, QStringLiteral("Readburst Mode"));
    }
}

void ModulePages::RemoveFrom(int index) {
    while (pages.tabs->count() > index) {
        pages.tabs->removeTab(index);
    }
}

void ModulePages::SetEnabled(bool enable) {
    pages.module.panel->SetEnabled(enable);
}

void ModulePages::RaiseStopFlags() {
    pages.module.panel->RaiseStopFlag();
}
