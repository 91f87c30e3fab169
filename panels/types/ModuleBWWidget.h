#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
class TavikModuleBW;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWWidget;
}

/// The panel of a laser whose beam can be switched.
class ModuleBWWidget : public TypePanelWithForm<TavikLibrary::TavikModuleBW, Ui::ModuleBWWidget> {
    Q_OBJECT

public:
    explicit ModuleBWWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_cbBeamOn_clicked();
};
