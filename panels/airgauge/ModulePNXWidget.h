#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

namespace TavikLibrary {
class TavikModulePNX;
} // namespace TavikLibrary

namespace Ui {
class ModulePNXWidget;
}

/// The panel of an air gauge: its masters, limits, state and reading, and the way to its configuration and
/// its mastering.
class ModulePNXWidget : public TypePanelOf<TavikLibrary::TavikModulePNX> {
    Q_OBJECT

public:
    explicit ModulePNXWidget(QWidget* parent);
    ~ModulePNXWidget() override;

    /// Shows the reading and the pressure anew. Throws as SetModule does, but for a failure of the reading
    /// itself, which shows as a length of 0.
    bool RefreshFromModule() override;

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnMaster_clicked();
    void on_btnConfigure_clicked();
    void on_btnUpdateModuleInfo_clicked() { UpdateModuleInformation(); }

private:
    void ShowInformation();
    void UpdateModuleInformation();
    double ReadLength();
    /// Returns whether the panel is still there afterwards.
    template <class Dialog>
    bool RunDialog();

    std::unique_ptr<Ui::ModulePNXWidget> ui;
};
