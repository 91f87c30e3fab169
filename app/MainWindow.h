#pragma once

#include "library/TavikServer.h"
#include "panels/common/HostWindow.h"

#include <memory>

class ModulePages;
class NetworkPage;

namespace TavikLibrary {
class TavikNetwork;
} // namespace TavikLibrary

namespace Ui {
class MainWindow;
}

/// The one window: shows the networks, connects them, lists and manages the modules of the selected network
/// and hosts the pages of the selected module.
class MainWindow : public HostWindow {
    Q_OBJECT

public:
    /// Throws TavikException when the library cannot be started.
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    void RedisplayModuleInformation() override;

protected:
    void SetControlsEnabled(bool enable) override;
    /// Stops and disconnects everything. A step that fails does not keep the later ones from being made.
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_btnConnectAll_clicked();
    void on_btnDisconnectAll_clicked();
    void tableNetConnectionButton_clicked();
    void on_tableNetworks_itemSelectionChanged();

    void on_listModules_currentRowChanged(int currentRow);
    void on_btnNotify_clicked();
    void on_btnStopNotify_clicked();
    void on_btnAddModule_clicked();
    void on_btnDeleteModule_clicked();
    void on_btnClearModules_clicked();
    void on_btnClearTcons_clicked();
    void on_btnMoveUp_clicked();
    void on_btnMoveDown_clicked();
    void on_btnHotswap_clicked();
    void on_btnPing_clicked();
    void on_btnSetSpeed_clicked();

    void on_btnLoadXML_clicked();
    void on_btnSaveXML_clicked();

    void on_actionE_xit_triggered();
    void on_action_Decode_Error_triggered();
    void on_action_About_triggered();

private:
    void ShowLibrary();

    void FillNetworksTable();

    /// Refreshes the network's page. Propagates library exceptions; the page is empty then.
    void RefreshNetworkPage();

    bool HasNetwork() const;
    bool MayAct() const;
    /// For calls that may change the network although they fail: the page is refreshed in any case. The title stands
    /// over the box of a failure; the outcome is shown when the calls came to their end.
    template <class Calls>
    void CallAndRefresh(const QString& title, const QString& activity, const QString& outcome, Calls&& calls);
    template <class Calls>
    void CallAndRefreshIfDone(const QString& activity, const QString& outcome, Calls&& calls);
    void MoveSelectedModule(int step);

    TavikLibrary::TavikServer server;
    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<ModulePages> modulePages;
    std::unique_ptr<NetworkPage> networkPage;
    /// Borrowed; null until a connected network is selected.
    TavikLibrary::TavikNetwork* network = nullptr;
};
