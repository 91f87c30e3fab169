#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;
class QDialog;

namespace TavikLibrary {
class TavikModulePNX;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModulePNXWidget;
}

/// The panel of an air gauge: its masters, limits, state and reading, and the way to its configuration and
/// its mastering.
class ModulePNXWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModulePNXWidget(QWidget* parent);
    ~ModulePNXWidget() override;

    /// Takes the air gauge and fills the panel. Throws std::runtime_error when the gauge cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModulePNX* module);
    void SetEnabled(bool enable) override;
    /// Shows the reading and the pressure anew. Throws as SetModule does, but for a failure of the reading
    /// itself, which shows as a length of 0.
    void RefreshFromModule() override;

private slots:
    void on_btnMaster_clicked();
    void on_btnConfigure_clicked();
    void on_btnUpdateModuleInfo_clicked();

private:
    void ShowInformation();
    void UpdateModuleInformation();
    double ReadLength();
    bool RunDialog(QDialog* dialog);

    std::unique_ptr<Ui::ModulePNXWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModulePNX* module = nullptr;
};
