#pragma once

class HostWindow;
class QLineEdit;
class QListWidget;
class QWidget;

namespace TavikLibrary {
class TavikNetwork;
}

/// What the network's page shows: capabilities, speeds and modules. The page is filled, or after a failure empty.
class NetworkPage {
public:
    /// The tab holds the page's controls by their names.
    NetworkPage(HostWindow& window, QWidget& tab);

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
    QWidget& tab;
    QListWidget* listModules;
    QListWidget* listSpeeds;
    QLineEdit* currentSpeed;
    bool filled = true;
};
