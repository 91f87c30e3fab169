#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleQTA;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleQTAWidget;
}

/// The panel of an encoder interface: what its reference mark does, how its edges are counted, how the encoder
/// is wired, and the value that presets its count.
class ModuleQTAWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleQTAWidget(QWidget* parent);
    ~ModuleQTAWidget() override;

    /// Takes the module and fills the panel. Throws TavikException when the module cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleQTA* module);
    /// Concerns the three Set buttons and the preset button.
    void SetEnabled(bool enable) override;

private slots:
    void on_btnSetRefAction_clicked();
    void on_btnSetQuadMode_clicked();
    void on_btnSetEncoder_clicked();
    void on_btnPresetinCounts_clicked();

private:
    void ShowRefAction();
    void ShowQuadratureMode();
    void ShowEncoder();

    std::unique_ptr<Ui::ModuleQTAWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleQTA* module = nullptr;
};
