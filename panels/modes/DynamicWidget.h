#pragma once

#include "panels/modes/SettingsPage.h"

#include <memory>
#include <optional>

class Run;
class TriggerMaster;
namespace TavikLibrary {
class TavikDynamic;
enum class eDynamicState : int;
} // namespace TavikLibrary

namespace Ui {
class DynamicWidget;
}

/// The page of dynamic mode: the network's settings, its state, and the collections of all networks, which the
/// library ends by itself, too. There is one such page in a program.
class DynamicWidget : public SettingsPage {
    Q_OBJECT

public:
    explicit DynamicWidget(QWidget* parent = nullptr);
    ~DynamicWidget() override;

protected:
    void Clear() override;
    void FillMasters() override;
    void Refresh() override;
    void Show() override;
    std::vector<QWidget*> Commands() const override;

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

    void Leave() override;
    std::optional<TriggerMaster> Master();
    void BeginRun();
    bool StillRuns();
    void ShowSettings(bool enabled);
    void ShowSyncMode(bool enabled);
    void ShowMaster(const TriggerMaster& master);
    void ShowModules(bool enabled);
    void ShowState(TavikLibrary::eDynamicState state, bool enabled);

    std::unique_ptr<Ui::DynamicWidget> ui;
    TavikLibrary::TavikDynamic* dynamic = nullptr;
    std::unique_ptr<Run> run; ///< from Start to the end of the collection
    int shownInterval = 0;    ///< in microseconds, as the page shows it
};
