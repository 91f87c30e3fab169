#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
class TavikModuleKX;
} // namespace TavikLibrary

namespace Ui {
class ModuleKXwidget;
}

/// The panel of a digital probe: its resolution and its averaging.
class ModuleKXwidget : public TypePanelWithForm<TavikLibrary::TavikModuleKX, Ui::ModuleKXwidget> {
    Q_OBJECT

public:
    explicit ModuleKXwidget(QWidget* parent);

protected:
    void Fill() override;
    /// A Set button is a command only where the probe offers something to set.
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetResolution_clicked();
    void on_btnSetAveraging_clicked();

private:
    void ShowCurrentResolution();
    void ShowCurrentAveraging();
};
