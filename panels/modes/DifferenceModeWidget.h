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
    bool IsHeldByOthers() const override;
    void Leave() override;

private slots:
    void on_btnEnable_clicked();
    void on_btnDisable_clicked();
    void on_btnDisplayAllModuleResults_clicked();
    void on_btnStartDiff_clicked();
    void on_btnStopDiff_clicked();

private:
    void SetModuleEnabled(bool enable);
    void ShowModule();
    void ShowValues(TavikLibrary::ModuleDifference* difference);
    void OfferCommands(bool enabled, int status);
    /// Shows the progress of the run until it is over, the module takes no part any more, or the page is to stop.
    void WatchRun();
    /// Gives the controls back, unless the run is still to be stopped.
    void SettleAfterWatching();
    /// The status of the network's run; idle if asking for it fails.
    int StatusOrIdle();
    /// Gives the controls back and, for a run with results, shows its line in the status bar.
    void EndRun(bool withResults);

    std::unique_ptr<Ui::DifferenceModeWidget> ui;
    std::unique_ptr<Run> run; ///< from Start to the end of the run
    bool watching = false;
};
