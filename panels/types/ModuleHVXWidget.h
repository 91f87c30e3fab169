#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
enum class eHvxReadMode : int;
class TavikModuleHVX;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleHVXWidget;
}

/// The panel of a module with selectable read modes: when it takes a reading, and what it knows about itself.
class ModuleHVXWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleHVXWidget(QWidget* parent);
    ~ModuleHVXWidget() override;

    /// Takes the module and fills the panel. Throws TavikException when the module cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleHVX* module);
    /// Concerns the four buttons.
    void SetEnabled(bool enable) override;

private slots:
    void on_btnSetReadMode_clicked();
    void on_btnUpdateReadingInfo_clicked();
    void on_btnSample_clicked();
    void on_btnNewReadingReady_clicked();

private:
    void ShowReadMode(TavikLibrary::eHvxReadMode mode);

    std::unique_ptr<Ui::ModuleHVXWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleHVX* module = nullptr;
};
