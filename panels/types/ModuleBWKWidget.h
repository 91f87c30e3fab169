#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

namespace TavikLibrary {
enum class eMeasuringRate : int;
class TavikModuleBWK;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWKWidget;
}

/// The panel of a laser with selectable measuring rates.
class ModuleBWKWidget : public TypePanelOf<TavikLibrary::TavikModuleBWK> {
    Q_OBJECT

public:
    explicit ModuleBWKWidget(QWidget* parent);
    ~ModuleBWKWidget() override;

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetMeasuringRate_clicked();

private:
    void ShowMeasuringRate(TavikLibrary::eMeasuringRate rate);

    std::unique_ptr<Ui::ModuleBWKWidget> ui;
};
