#pragma once

#include "panels/common/ModePage.h"

#include <memory>

namespace TavikLibrary {
class ModuleDifference;
} // namespace TavikLibrary

class Run;

namespace Ui {
class DifferenceModeWidget;
}

/// The page of difference mode: enables modules for it one by one, runs it for all of them, and shows what becomes
/// of the selected one meanwhile.
class DifferenceModeWidget : public ModePage {
    Q_OBJECT

public:
    explicit DifferenceModeWidget(QWidget* parent = nullptr);
    ~DifferenceModeWidget() override;
    /// Ends the watching of a run.
    void Stop() noexcept override;

protected:
    void Clear() override;
    bool Fill() override;
    void Refresh() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnEnable_clicked();
    void on_btnDisable_clicked();
    void on_btnDisplayAllModuleResults_clicked();
    void on_btnStartDiff_clicked();
    void on_btnStopDiff_clicked();

private:
    void SetModuleEnabled(bool enable);
    void ShowValues(TavikLibrary::ModuleDifference* difference);
    void OfferCommands(bool enabled, int status);
    /// Shows how the run goes until it is over, or the module takes no part any more, or the page is to stop.
    void WatchRun();
    /// Leaves the page as what became of the run asks for: as long as it is to be stopped, only that is offered.
    void SettleAfterWatching();
    /// What the network says of its run; idle when it cannot say.
    int StatusOrIdle();

    std::unique_ptr<Ui::DifferenceModeWidget> ui;
    std::unique_ptr<Run> run; ///< from Start to the end of the run
    bool watching = false;
};
