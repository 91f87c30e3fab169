#include "panels/modes/DynamicWidget.h"

#include "library/TavikDynamic.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Text.h"
#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "panels/modes/ReadingsFetch.h"
#include "panels/modes/TriggerMaster.h"
#include "ui_DynamicWidget.h"

#include <QScopeGuard>

#include <algorithm>
#include <initializer_list>
#include <mutex>

using TavikLibrary::eDynamicMode;
using TavikLibrary::eDynamicRate;
using TavikLibrary::eDynamicState;

namespace {

// The library's own thread finds the page here.
std::mutex instanceMutex;
DynamicWidget* instance = nullptr;

} // namespace

DynamicWidget::DynamicWidget(QWidget* parent)
    : SettingsPage(parent, QStringLiteral("Dynamic Mode"), QString()), ui(std::make_unique<Ui::DynamicWidget>()) {
    ui->setupUi(this);
    for (ChoiceList* list : {ui->listRate, ui->listDynamicMasterMode}) {
        FitToRows(list);
        list->setMaximumHeight(list->minimumHeight());
    }
    // Their style sheet makes the background white in every palette.
    for (QLabel* label : {ui->lblRate, ui->lblDynamicMasterMode, ui->lblNetEnabled, ui->lblStatus, ui->lblError}) {
        QPalette blackText;
        blackText.setColor(QPalette::WindowText, Qt::black);
        label->setPalette(blackText);
    }
    const std::lock_guard lock(instanceMutex);
    instance = this;
}

DynamicWidget::~DynamicWidget() {
    const std::lock_guard lock(instanceMutex);
    if (instance == this) {
        instance = nullptr;
    }
}

void DynamicWidget::Clear() {
    for (QLabel* label : {ui->lblRate, ui->lblDynamicMasterMode, ui->lblNetEnabled, ui->lblStatus, ui->lblError}) {
        ShowInField(label, QString());
    }
    for (QSpinBox* box : std::initializer_list<QSpinBox*>{ui->sbInterval, ui->sbNumSyncs, ui->sbCountsPerSync,
                                                          ui->sbHoldOffCounts, ui->sbModulesInCollection}) {
        box->setValue(0);
    }
    ui->listRate->setCurrentRow(-1);
    ui->listDynamicMasterMode->setCurrentRow(-1);
    ui->listDynamicModules->clear();
    ui->cbExternalMaster->clear();
    Check(ui->radioSyncNormal, false);
    Check(ui->radioSyncExternal, false);
    ui->btnStop->setEnabled(false);
    dynamic = nullptr;
}

std::vector<QWidget*> DynamicWidget::Commands() const {
    return {ui->listRate,
            ui->sbInterval,
            ui->sbNumSyncs,
            ui->radioSyncNormal,
            ui->radioSyncExternal,
            ui->cbExternalMaster,
            ui->listDynamicMasterMode,
            ui->sbCountsPerSync,
            ui->sbHoldOffCounts,
            ui->sbModulesInCollection,
            ui->btnModuleResults,
            ui->btnAllResults,
            ui->btnEnable,
            ui->btnDisable,
            ui->btnPrepare,
            ui->btnStart};
}

void DynamicWidget::Leave() {
    run.reset();
}

std::optional<TriggerMaster> DynamicWidget::Master() {
    return TriggerMaster::Of(TriggerMaster::ModuleAt(*network, dynamic->MasterIndex()));
}

// The settings

void DynamicWidget::on_listRate_currentRowChanged(int currentRow) {
    Change([&] { dynamic->setDynamicRate(static_cast<eDynamicRate>(currentRow)); });
}

void DynamicWidget::on_sbNumSyncs_valueChanged(int value) {
    Change([&] { dynamic->setCollectionSize(value); });
}

void DynamicWidget::on_radioSyncNormal_clicked(bool) {
    Change([this] { dynamic->setDynamicMode(eDynamicMode::Normal); });
}

void DynamicWidget::on_radioSyncExternal_clicked(bool) {
    Change([this] {
        const QString master = ui->cbExternalMaster->currentText();
        if (master.isEmpty()) {
            return;
        }
        const int modules = network->ModuleCount();
        if (dynamic->NumberOfModules() >= modules) {
            dynamic->setNumberOfModules(modules - 1);
        }
        dynamic->setMasterIndex(network->GetModuleIndexByID(ToLibrary(master)));
        dynamic->setDynamicMode(eDynamicMode::External);
    });
}

void DynamicWidget::on_cbExternalMaster_currentIndexChanged(int) {
    Change([this] {
        const QString master = ui->cbExternalMaster->currentText();
        if (!master.isEmpty()) {
            dynamic->setMasterIndex(network->GetModuleIndexByID(ToLibrary(master)));
        }
    });
}

void DynamicWidget::on_listDynamicMasterMode_currentRowChanged(int currentRow) {
    Change([&] {
        const auto mode = TriggerMaster::ModeOfRow(currentRow);
        const auto master = Master();
        if (mode && master) {
            master->SetMode(*mode);
        }
    });
}

void DynamicWidget::on_sbCountsPerSync_valueChanged(int value) {
    Change([&] {
        if (const auto master = Master()) {
            master->SetCountsPerSync(value);
        }
    });
}

void DynamicWidget::on_sbHoldOffCounts_valueChanged(int value) {
    Change([&] {
        if (const auto master = Master()) {
            master->SetHoldOffCounts(value);
        }
    });
}

void DynamicWidget::on_sbModulesInCollection_valueChanged(int value) {
    Change([&] {
        // An external master is not collected.
        const int masters = dynamic->DynamicMode() == eDynamicMode::External ? 1 : 0;
        const int limit = network->ModuleCount() - masters;
        dynamic->setNumberOfModules(value < limit ? value : limit);
    });
}

void DynamicWidget::on_sbInterval_editingFinished() {
    // Also Return and the loss of the focus end an entry, though nothing was typed.
    const int interval = ui->sbInterval->value();
    if (interval != shownInterval) {
        Change([&] {
            dynamic->setDynamicInterval(interval);
            shownInterval = interval;
        });
    }
}

// The commands

void DynamicWidget::on_btnEnable_clicked() {
    Change([this] {
        const int interval = ui->sbInterval->value();
        const int minimum = dynamic->MinimumInterval();
        if (interval != 0 && interval < minimum) {
            throw std::runtime_error("Interval must be 0 for full speed or a minimum of " + std::to_string(minimum));
        }
        dynamic->setDynamicInterval(interval);
        dynamic->setEnabled(true);
    });
}

void DynamicWidget::on_btnDisable_clicked() {
    Change([this] { dynamic->setEnabled(false); });
}

void DynamicWidget::on_btnPrepare_clicked() {
    Change([this] { dynamic->Prepare(); });
}

void DynamicWidget::on_btnStart_clicked() {
    Change([this] {
        // Some of the networks may have started all the same, and can be stopped then.
        auto showWhatRuns = qScopeGuard([this] { IgnoreErrors([this] { RefreshPage(); }); });
        server->StartAllDynamic(&DynamicWidget::TellOfCollectionEnd);
        showWhatRuns.dismiss();
        BeginRun();
    });
}

void DynamicWidget::BeginRun() {
    const QString modules = FormatCount(ui->sbModulesInCollection->value(), QStringLiteral("module"));
    const int syncs = ui->sbNumSyncs->value();
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("dynamic mode"), ui->btnStop);
    run->activity.ShowSeconds(
        QStringLiteral("Dynamic collection running, %1, %2")
            .arg(modules, syncs == 0 ? QStringLiteral("continuous") : FormatCount(syncs, QStringLiteral("sync"))));
    run->activity.SetOutcome(QStringLiteral("Dynamic: %1, ").arg(modules) + QStringLiteral("%1 s"));
}

void DynamicWidget::on_btnStop_clicked() {
    Attempt([this] {
        auto overUnlessRunning = qScopeGuard([this] {
            if (!StillRuns()) {
                run.reset();
            }
        });
        server->StopAllDynamic();
        overUnlessRunning.dismiss();
        RefreshPage();
    });
}

/// Whether the library will still report an end, after stopping has failed.
bool DynamicWidget::StillRuns() {
    bool runs = false;
    IgnoreErrors([&] {
        if (network->IsConnected()) {
            const eDynamicState state = dynamic->DynamicState();
            runs = state == eDynamicState::Running || state == eDynamicState::Stopping;
        }
    });
    return runs;
}

void DynamicWidget::TellOfCollectionEnd() {
    const std::lock_guard lock(instanceMutex);
    if (instance != nullptr) {
        QMetaObject::invokeMethod(instance, &DynamicWidget::CollectionEnded, Qt::QueuedConnection);
    }
}

void DynamicWidget::CollectionEnded() {
    if (updating || mainWindow == nullptr || mainWindow->IsClosing()) {
        return;
    }
    errors.Try([this] { server->StopAllDynamic(); });
    run.reset();
    Attempt([this] { RefreshPage(); });
}

// The results

void DynamicWidget::on_btnModuleResults_clicked() {
    Attempt([this] {
        const int index = network->GetModuleIndexByID(module->Identity());
        if (index < 0 || index >= dynamic->DynamicData()->ModuleCount()) {
            throw std::runtime_error("The current module did not form part of the dynamic collection");
        }
        ShowResultsDialog<CurrentModuleResultsDialog>(
            this, [this](auto& dialog) { dialog.fillDynamic(server, network, module); });
    });
}

void DynamicWidget::on_btnAllResults_clicked() {
    Attempt([this] {
        ShowResultsDialog<AllResultsDialog>(this, [this](auto& dialog) { dialog.fillDynamic(server, network); });
    });
}

// What is shown

void DynamicWidget::FillMasters() {
    dynamic = network->Dynamic();
    ui->cbExternalMaster->clear();
    for (int index = 0; index < network->ModuleCount(); ++index) {
        TavikLibrary::TavikModule* candidate = network->GetModule(static_cast<unsigned int>(index));
        if (candidate->DynamicMasterCapable()) {
            ui->cbExternalMaster->addItem(FromLibrary(candidate->Identity()));
        }
    }
}

void DynamicWidget::Refresh() {
    if (!ShowAnswers()) {
        // The library may never report the end of a collection on a network that is lost.
        run.reset();
    }
}

void DynamicWidget::Show() {
    const eDynamicState state = dynamic->DynamicState();
    const bool enabled = dynamic->Enabled();
    ShowSettings(enabled);
    ShowSyncMode(enabled);
    ShowModules(enabled);
    ShowState(state, enabled);
}

void DynamicWidget::ShowSettings(bool enabled) {
    const eDynamicRate rate = dynamic->DynamicRate();
    ShowInField(ui->lblRate, FromLibrary(TavikLibrary::eDynamicRate_ToString(rate)));
    ui->listRate->setCurrentRow(static_cast<int>(rate));
    ui->listRate->setEnabled(!enabled);
    ui->sbInterval->setValue(dynamic->DynamicInterval());
    shownInterval = ui->sbInterval->value();
    ui->sbInterval->setEnabled(!enabled && rate == eDynamicRate::Dynamic2Custom);
    ui->sbNumSyncs->setValue(dynamic->CollectionSize());
    ui->sbNumSyncs->setEnabled(!enabled);
}

void DynamicWidget::ShowSyncMode(bool enabled) {
    const bool wantsMaster = dynamic->DynamicMode() == eDynamicMode::External;
    const auto master = wantsMaster ? Master() : std::nullopt;
    if (wantsMaster && !master) {
        dynamic->setDynamicMode(eDynamicMode::Normal);
    }
    (master ? ui->radioSyncExternal : ui->radioSyncNormal)->setChecked(true);
    ui->radioSyncNormal->setEnabled(!enabled);
    ui->radioSyncExternal->setEnabled(!enabled);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui->cbExternalMaster, ui->listDynamicMasterMode,
                                                           ui->sbCountsPerSync, ui->sbHoldOffCounts}) {
        widget->setEnabled(master && !enabled);
    }
    if (master) {
        ShowMaster(*master);
        return;
    }
    ShowInField(ui->lblDynamicMasterMode, QStringLiteral("NotMaster"));
    if (ui->cbExternalMaster->currentIndex() < 0) {
        // The master that external mode would begin with.
        ui->cbExternalMaster->setCurrentIndex(0);
    }
}

void DynamicWidget::ShowMaster(const TriggerMaster& master) {
    ui->cbExternalMaster->setCurrentIndex(ui->cbExternalMaster->findText(FromLibrary(master.Identity())));
    const auto mode = master.Mode();
    ShowInField(ui->lblDynamicMasterMode, FromLibrary(TavikLibrary::eDynamicMasterMode_ToString(mode)));
    ui->listDynamicMasterMode->setCurrentRow(TriggerMaster::RowOf(mode));
    ui->sbCountsPerSync->setValue(master.CountsPerSync());
    ui->sbHoldOffCounts->setValue(master.HoldOffCounts());
}

void DynamicWidget::ShowModules(bool enabled) {
    const int modules = dynamic->NumberOfModules();
    ui->sbModulesInCollection->setValue(modules);
    ui->sbModulesInCollection->setEnabled(!enabled);
    ui->listDynamicModules->clear();
    const int listed = std::min(modules, network->ModuleCount());
    for (int index = 0; index < listed; ++index) {
        ui->listDynamicModules->addItem(FromLibrary(network->GetModule(static_cast<unsigned int>(index))->Identity()));
    }
}

void DynamicWidget::ShowState(eDynamicState state, bool enabled) {
    const bool hasResults = state == eDynamicState::ResultsAvailable;
    ui->btnModuleResults->setEnabled(hasResults);
    ui->btnAllResults->setEnabled(hasResults);
    ShowInField(ui->lblNetEnabled, enabled ? QStringLiteral("True") : QStringLiteral("False"));
    ShowInField(ui->lblStatus, FromLibrary(TavikLibrary::eDynamicState_ToString(state)));
    ShowInField(ui->lblError, FromLibrary(server->GetErrorDescription(dynamic->DynamicData()->CollectionStatus())));
    ui->btnEnable->setEnabled(!enabled);
    ui->btnDisable->setEnabled(enabled && state != eDynamicState::Running && state != eDynamicState::Stopping);
    ui->btnPrepare->setEnabled(enabled && (state == eDynamicState::Idle || hasResults));
    ui->btnStart->setEnabled(state == eDynamicState::Prepared);
    ui->btnStop->setEnabled(state == eDynamicState::Running);
}
