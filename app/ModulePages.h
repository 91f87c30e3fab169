#pragma once

class BufferedModeWidget;
class DifferenceModeWidget;
class DynamicWidget;
class HostWindow;
class QTabWidget;
class QWidget;
class ReadBurstWidget;
class ReferenceMarkWidget;
class TavikModuleWidget;

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

/// The pages of the selected module, behind those of the server and the network: which of them there are, in
/// their fixed order, and what they are told.
class ModulePages {
public:
    /// A page of the tab set and the panel on it.
    template <class Panel>
    struct Page {
        QWidget* page;
        Panel* panel;
    };
    struct Pages {
        QTabWidget* tabs;
        Page<TavikModuleWidget> module;
        Page<BufferedModeWidget> buffered;
        Page<ReferenceMarkWidget> refMark;
        Page<DifferenceModeWidget> difference;
        Page<DynamicWidget> dynamic;
        Page<ReadBurstWidget> readBurst;
    };

    ModulePages(const Pages& pages, HostWindow& window, TavikLibrary::TavikServer& server);

    /// Builds the pages for the module in a row of the network's list; for a negative row there are none. Throws
    /// what the library throws; the pages added until then stay.
    void Show(TavikLibrary::TavikNetwork* network, int row);

    /// Takes away the module's pages. A module that leaves the list dies; its pages must not stay, should showing the
    /// list as it is now fail.
    void Forget();

    /// Takes away the pages from an index of the tab set on.
    void RemoveFrom(int index);

    /// Enables or disables what the pages' panels offer. Never throws.
    void SetEnabled(bool enable);

    /// Ends the loops that panels are running.
    void RaiseStopFlags();

private:
    void Add(TavikLibrary::TavikNetwork* network, TavikLibrary::TavikModule* module);

    const Pages pages;
    HostWindow& window;
    TavikLibrary::TavikServer& server;
};
