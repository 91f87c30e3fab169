#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleKX;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleKXwidget;
}

/// The panel of a digital probe: its resolution and its averaging.
class ModuleKXwidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleKXwidget(QWidget* parent);
    ~ModuleKXwidget() override;

    /// Takes the probe and fills the panel. Throws TavikException when the probe cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleKX* module);
    /// A Set button is enabled only where the probe offers something to set.
    void SetEnabled(bool enable) override;

private slots:
    void on_btnSetResolution_clicked();
    void on_btnSetAveraging_clicked();

private:
    void ShowCurrentResolution();
    void ShowCurrentAveraging();

    std::unique_ptr<Ui::ModuleKXwidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleKX* module = nullptr;
};
