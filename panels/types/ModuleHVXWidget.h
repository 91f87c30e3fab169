#pragma once

#include "panels/common/TypePanel.h"

namespace TavikLibrary {
enum class eHvxReadMode : int;
class TavikModuleHVX;
} // namespace TavikLibrary

namespace Ui {
class ModuleHVXWidget;
}

/// The panel of a module with selectable read modes: when it takes a reading, and what it knows about itself.
class ModuleHVXWidget : public TypePanelWithForm<TavikLibrary::TavikModuleHVX, Ui::ModuleHVXWidget> {
    Q_OBJECT

public:
    explicit ModuleHVXWidget(QWidget* parent);

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnSetReadMode_clicked();
    void on_btnUpdateReadingInfo_clicked();
    void on_btnSample_clicked();
    void on_btnNewReadingReady_clicked();

private:
    void ShowReadMode(TavikLibrary::eHvxReadMode mode);
};
