#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

namespace TavikLibrary {
class TavikModuleBW;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWWidget;
}

/// The panel of a laser whose beam can be switched.
class ModuleBWWidget : public TypePanelOf<TavikLibrary::TavikModuleBW> {
    Q_OBJECT

public:
    explicit ModuleBWWidget(QWidget* parent);
    ~ModuleBWWidget() override;

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_cbBeamOn_clicked();

private:
    std::unique_ptr<Ui::ModuleBWWidget> ui;
};
