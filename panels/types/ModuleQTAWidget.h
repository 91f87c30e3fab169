#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
class TavikModuleQTA;
} // namespace TavikLibrary

namespace Ui {
class ModuleQTAWidget;
}

/// The panel of an encoder interface: what its reference mark does, how its edges are counted, how the encoder
/// is wired, and the value that presets its count.
class ModuleQTAWidget : public TypePanelWithForm<TavikLibrary::TavikModuleQTA, Ui::ModuleQTAWidget> {
    Q_OBJECT

public:
    explicit ModuleQTAWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetRefAction_clicked();
    void on_btnSetQuadMode_clicked();
    void on_btnSetEncoder_clicked();
    void on_btnPresetinCounts_clicked();

private:
    void ShowRefAction();
    void ShowQuadratureMode();
    void ShowEncoder();
};
