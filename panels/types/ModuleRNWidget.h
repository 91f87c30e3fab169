#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
class TavikModuleRN;
} // namespace TavikLibrary

namespace Ui {
class ModuleRNWidget;
}

/// The panel of a linear encoder: which way it counts, and what its reading is set to here and now.
class ModuleRNWidget : public TypePanelWithForm<TavikLibrary::TavikModuleRN, Ui::ModuleRNWidget> {
    Q_OBJECT

public:
    explicit ModuleRNWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_radioNormal_clicked(bool checked);
    void on_radioReversed_clicked(bool checked);
    void on_btnPresetinCounts_clicked();
    void on_btnPresetinUnits_clicked();

private:
    void SetDirection(bool normal);
};
