#include "app/ModulePages.h"

#include "app/PageTabs.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/LastResort.h"
#include "panels/common/ModePage.h"
#include "panels/common/Text.h"

#include <QTabBar>

#include <algorithm>
#include <utility>

namespace {

/// Pages before the ones of the selected module.
constexpr int networkPages = 2;

} // namespace

ModulePages::ModulePages(PageTabs* tabWidget, std::vector<Page> modulePages, HostWindow& mainWindow,
                         TavikLibrary::TavikServer& mainServer)
    : pages(std::move(modulePages)), tabs(tabWidget), window(mainWindow), server(mainServer) {}

bool ModulePages::Show(TavikLibrary::TavikNetwork* network, int row) {
    const BlockingOperation blocking(&window);
    RemoveFrom(networkPages);
    if (row < 0 || row >= network->ModuleCount()) {
        return row < 0;
    }
    TavikLibrary::TavikModule* module = network->GetModule(static_cast<unsigned int>(row));
    const QString identity = FromLibrary(module->Identity());
    complete = true;
    for (const Page& page : pages) {
        complete &= LastResort::Run([&] {
            if (page.isOffered(*network, *module)) {
                const bool names = page.caption.contains(QLatin1String("%1"));
                tabs->ShowPage(page.tab, names ? page.caption.arg(identity) : page.caption);
                page.page->setNetwork(&window, &server, network, module);
            }
        });
    }
    return true;
}

bool ModulePages::AreComplete() const {
    return complete && std::all_of(pages.begin(), pages.end(), [this](const Page& page) {
               return tabs->indexOf(page.tab) < 0 || page.page->IsFilled();
           });
}

void ModulePages::Forget() {
    RemoveFrom(networkPages);
}

void ModulePages::RemoveFrom(int index) {
    complete = false;
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
