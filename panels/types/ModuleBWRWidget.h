#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
enum class eFilter : int;
class TavikModuleBWR;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWRWidget;
}

/// The panel of a laser with a low-pass filter: what it is, its filter and its level-cut time.
class ModuleBWRWidget : public TypePanelWithForm<TavikLibrary::TavikModuleBWR, Ui::ModuleBWRWidget> {
    Q_OBJECT

public:
    explicit ModuleBWRWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetFilter_clicked();
    void on_btnSetLevelCut_clicked();

private:
    void ShowInformation();
    void ShowFilter(TavikLibrary::eFilter filter);
    void ShowLevelCutTime(short time);
};
