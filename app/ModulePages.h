#pragma once

#include <QString>

#include <functional>
#include <vector>

class HostWindow;
class ModePage;
class PageTabs;
class QWidget;

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

/// The pages of the selected module, behind those of the server and the network: which of them there are, in
/// their fixed order, and what they are told.
class ModulePages {
public:
    /// A page of the tab set, the panel on it, and which selection has such a page.
    struct Page {
        QWidget* tab;
        ModePage* page;
        QString caption;
        /// Propagates library exceptions.
        std::function<bool(TavikLibrary::TavikNetwork& network, TavikLibrary::TavikModule& module)> isOffered;
    };

    ModulePages(PageTabs* tabs, std::vector<Page> pages, HostWindow& window, TavikLibrary::TavikServer& server);

    /// Builds the pages for the module in a row of the network's list; for a negative row there are none. A page whose
    /// set-up fails is empty, and the failure is reported; the other pages are set up all the same. Returns false if
    /// the network has no such row any more. Propagates what the library throws when it is asked for the module or its
    /// identity.
    bool Show(TavikLibrary::TavikNetwork* network, int row);

    /// Whether the module shown last has all its pages, and each is filled.
    bool AreComplete() const;

    /// Takes away the module's pages. A module that leaves the list is destroyed; its pages must not stay, should
    /// showing the list as it is now fail.
    void Forget();

    /// Takes away the pages from an index of the tab set on.
    void RemoveFrom(int index);

    /// Enables or disables what the pages offer. Never throws.
    void SetEnabled(bool enable);

    /// Ends the loops that pages are running. Never throws.
    void Stop();

private:
    const std::vector<Page> pages;
    PageTabs* tabs;
    HostWindow& window;
    TavikLibrary::TavikServer& server;
    bool complete = false;
};
