#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
enum class eMeasuringRate : int;
class TavikModuleBWK;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWKWidget;
}

/// The panel of a laser with selectable measuring rates.
class ModuleBWKWidget : public TypePanelWithForm<TavikLibrary::TavikModuleBWK, Ui::ModuleBWKWidget> {
    Q_OBJECT

public:
    explicit ModuleBWKWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetMeasuringRate_clicked();

private:
    void ShowMeasuringRate(TavikLibrary::eMeasuringRate rate);
};
