#pragma once

#include <QWidget>

#include <memory>

class HostWindow;

namespace TavikLibrary {
class ModuleDifference;
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class DifferenceModeWidget;
}

/// The page of difference mode: enables modules for it one by one, runs it for all of them, and shows what becomes
/// of the selected one meanwhile.
class DifferenceModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit DifferenceModeWidget(QWidget* parent = nullptr);
    ~DifferenceModeWidget() override;

    /// The module may be null; the page shows what it showed then. Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables what the state of the network allows, or disables all but the button that stops a run. Throws what
    /// the library throws.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more.
    void ForgetModule();
    /// Ends the watching of a run.
    void RaiseStopFlag();

private slots:
    void on_btnEnable_clicked();
    void on_btnDisable_clicked();
    void on_btnDisplayAllModuleResults_clicked();
    void on_btnStartDiff_clicked();
    void on_btnStopDiff_clicked();

private:
    /// Runs library calls; a failure becomes the box of this page.
    template <class Calls>
    void Guard(Calls&& calls);
    void SetModuleEnabled(bool enable);
    void Refresh();
    void ShowValues(TavikLibrary::ModuleDifference* difference);
    void OfferCommands(bool enabled, int status);
    /// Shows how the run goes until it is over, or the module takes no part any more, or the stop flag is raised.
    void WatchRun();
    /// Leaves the page as what became of the run asks for: as long as it is to be stopped, only that is offered.
    void SettleAfterWatching();
    /// What the network says of its run; idle when it cannot say.
    int StatusOrIdle();
    void ReleaseControls();

    std::unique_ptr<Ui::DifferenceModeWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModule* module = nullptr;
    bool stopFlag = false;
    bool watching = false;
    bool holdsControls = false; ///< the main window's controls are disabled because of a run
};
