#include "app/ModulePages.h"

#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/LastResort.h"
#include "panels/common/ModePage.h"
#include "panels/common/Text.h"

#include <QTabBar>
#include <QTabWidget>

#include <utility>

namespace {

/// Pages before the ones of the selected module.
constexpr int networkPages = 2;

} // namespace

ModulePages::ModulePages(QTabWidget* tabWidget, std::vector<Page> modulePages, HostWindow& mainWindow,
                         TavikLibrary::TavikServer& mainServer)
    : pages(std::move(modulePages)), tabs(tabWidget), window(mainWindow), server(mainServer) {}

void ModulePages::Show(TavikLibrary::TavikNetwork* network, int row) {
    const BlockingOperation blocking(&window);
    RemoveFrom(networkPages);
    if (row < 0) {
        return;
    }
    TavikLibrary::TavikModule* module = network->GetModule(static_cast<unsigned int>(row));
    const QString identity = FromLibrary(module->Identity());
    for (const Page& page : pages) {
        LastResort::Run([&] {
            if (page.isOffered(*network, *module)) {
                tabs->addTab(page.tab,
                             page.caption.contains(QLatin1String("%1")) ? page.caption.arg(identity) : page.caption);
                page.page->setNetwork(&window, &server, network, module);
            }
        });
    }
}

void ModulePages::Forget() {
    RemoveFrom(networkPages);
}

void ModulePages::RemoveFrom(int index) {
    // A page that is taken away loses the focus, which ends editing in it; that must not reach a library object that
    // is destroyed.
    for (const Page& page : pages) {
        page.page->Forget();
    }
    // Nor must the focus wander into a list or table.
    const QWidget* focused = tabs->focusWidget();
    while (tabs->count() > index) {
        if (focused != nullptr && tabs->widget(index)->isAncestorOf(focused)) {
            tabs->tabBar()->setFocus();
        }
        tabs->removeTab(index);
    }
}

void ModulePages::SetEnabled(bool enable) {
    for (const Page& page : pages) {
        page.page->setCommandsEnabled(enable);
    }
}

void ModulePages::Stop() {
    for (const Page& page : pages) {
        page.page->Stop();
    }
}
