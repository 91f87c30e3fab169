#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleBW;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWWidget;
}

/// The panel of a laser whose beam can be switched.
class ModuleBWWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleBWWidget(QWidget* parent);
    ~ModuleBWWidget() override;

    /// Takes the laser and fills the panel. Throws TavikException when the laser cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleBW* module);
    /// Concerns the beam's check box.
    void SetEnabled(bool enable) override;

private slots:
    void on_cbBeamOn_clicked();

private:
    std::unique_ptr<Ui::ModuleBWWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleBW* module = nullptr;
};
