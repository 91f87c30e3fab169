#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleRN;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleRNWidget;
}

/// The panel of a linear encoder: which way it counts, and what its reading is set to here and now.
class ModuleRNWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleRNWidget(QWidget* parent);
    ~ModuleRNWidget() override;

    /// Takes the module and fills the panel. Throws TavikException when the module cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleRN* module);
    /// Concerns the two directions and the two preset buttons.
    void SetEnabled(bool enable) override;

private slots:
    void on_radioNormal_clicked(bool checked);
    void on_radioReversed_clicked(bool checked);
    void on_btnPresetinCounts_clicked();
    void on_btnPresetinUnits_clicked();

private:
    void SetDirection(bool normal);

    std::unique_ptr<Ui::ModuleRNWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleRN* module = nullptr;
};
