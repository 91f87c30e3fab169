#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
enum class eMeasuringRate : int;
class TavikModuleBWK;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWKWidget;
}

/// The panel of a laser with selectable measuring rates.
class ModuleBWKWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleBWKWidget(QWidget* parent);
    ~ModuleBWKWidget() override;

    /// Takes the laser and fills the panel. Throws TavikException when the laser cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleBWK* module);
    /// Concerns the Set button.
    void SetEnabled(bool enable) override;

private slots:
    void on_btnSetMeasuringRate_clicked();

private:
    void ShowMeasuringRate(TavikLibrary::eMeasuringRate rate);

    std::unique_ptr<Ui::ModuleBWKWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleBWK* module = nullptr;
};
