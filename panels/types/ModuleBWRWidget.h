#pragma once

#include "panels/common/TypePanel.h"

#include <memory>

class HostWindow;

namespace TavikLibrary {
enum class eFilter : int;
class TavikModuleBWR;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ModuleBWRWidget;
}

/// The panel of a laser with a low-pass filter: what it is, its filter and its level-cut time.
class ModuleBWRWidget : public TypePanel {
    Q_OBJECT

public:
    explicit ModuleBWRWidget(QWidget* parent);
    ~ModuleBWRWidget() override;

    /// Takes the laser and fills the panel. Throws TavikException when the laser cannot be asked.
    void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                   TavikLibrary::TavikModuleBWR* module);
    /// Concerns the two Set buttons.
    void SetEnabled(bool enable) override;

private slots:
    void on_btnSetFilter_clicked();
    void on_btnSetLevelCut_clicked();

private:
    void ShowInformation();
    void ShowFilter(TavikLibrary::eFilter filter);
    void ShowLevelCutTime(short time);

    std::unique_ptr<Ui::ModuleBWRWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleBWR* module = nullptr;
};
