#pragma once

class HostWindow;

namespace TavikLibrary {
class TavikNetwork;
}

namespace Ui {
class MainWindow;
}

/// What the network's page shows: capabilities, speeds and modules. The page is filled, or after a failure empty.
class NetworkPage {
public:
    NetworkPage(HostWindow& window, const Ui::MainWindow& ui);

    /// Asks a network and shows its answers; the selected row of the modules is kept. Propagates library exceptions;
    /// the page is empty then.
    void Fill(TavikLibrary::TavikNetwork& network);
    bool IsFilled() const { return filled; }

    /// Enables what acts on a row of a list, unless the page is empty or the window's controls are held.
    void EnableCommands();

private:
    void ShowCapabilities(TavikLibrary::TavikNetwork& network);
    void ShowSpeeds(TavikLibrary::TavikNetwork& network);
    void ListModules(TavikLibrary::TavikNetwork& network);
    void Empty();

    HostWindow& window;
    const Ui::MainWindow& ui;
    bool filled = true;
};
