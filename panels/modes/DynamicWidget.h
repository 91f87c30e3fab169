#pragma once

#include "panels/modes/DynamicActivity.h"

#include <QWidget>

#include <functional>
#include <memory>

class DynamicMaster;
class HostWindow;

namespace TavikLibrary {
class TavikDynamic;
class TavikModule;
class TavikNetwork;
class TavikServer;
enum class eDynamicState : int;
} // namespace TavikLibrary

namespace Ui {
class DynamicWidget;
}

/// The page of dynamic mode: the network's settings, its state, and the collections of all networks, which the
/// library ends by itself, too. There is one such page in a program.
class DynamicWidget : public QWidget {
    Q_OBJECT

public:
    explicit DynamicWidget(QWidget* parent = nullptr);
    ~DynamicWidget() override;

    /// Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables what can be used now, or disables everything but stopping. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The network is about to leave the page: neither it nor its module is asked any more.
    void ForgetNetwork();

private slots:
    void on_listRate_currentRowChanged(int currentRow);
    void on_sbNumSyncs_valueChanged(int value);
    void on_radioSyncNormal_clicked(bool checked);
    void on_radioSyncExternal_clicked(bool checked);
    void on_cbExternalMaster_currentIndexChanged(int index);
    void on_listDynamicMasterMode_currentRowChanged(int currentRow);
    void on_sbCountsPerSync_valueChanged(int value);
    void on_sbHoldOffCounts_valueChanged(int value);
    void on_sbModulesInCollection_valueChanged(int value);
    void on_btnModuleResults_clicked();
    void on_btnAllResults_clicked();
    void on_btnEnable_clicked();
    void on_btnDisable_clicked();
    void on_btnPrepare_clicked();
    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void on_sbInterval_editingFinished();

private:
    /// What the library calls, on a thread of its own. The page need not exist any more.
    static void TellOfCollectionEnd();
    void CollectionEnded();

    /// Whether the library may be asked and told things now.
    bool IsReady() const;
    /// Does a slot's work; a failure becomes a box. Nothing happens while the page is being filled.
    void Attempt(const std::function<void()>& work);
    /// The same, and shows what became of it.
    void Do(const std::function<void()>& work);
    void TakeTypedNumbers();

    void FillMasters();
    void Refresh();
    void ShowSettings(bool enabled);
    void ShowSyncMode(bool enabled);
    void ShowMaster(const DynamicMaster& master);
    void ShowModules(bool enabled);
    void ShowState(TavikLibrary::eDynamicState state, bool enabled);

    std::unique_ptr<Ui::DynamicWidget> ui;
    HostWindow* window = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModule* module = nullptr;
    TavikLibrary::TavikDynamic* dynamic = nullptr;
    DynamicActivity activity;
    bool updating = false;
};
