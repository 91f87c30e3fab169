#include "panels/modes/DynamicWidget.h"

#include "library/TavikDynamic.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Run.h"
#include "panels/common/Text.h"
#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "panels/modes/DynamicMaster.h"
#include "panels/modes/ReadingsFetch.h"
#include "ui_DynamicWidget.h"

#include <QScopedValueRollback>

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
    : ModePage(parent, QStringLiteral("Dynamic Mode"), QString()), ui(std::make_unique<Ui::DynamicWidget>()) {
    ui->setupUi(this);
    for (ChoiceList* list : {ui->listRate, ui->listDynamicMasterMode}) {
        FitToRows(list);
        list->setMaximumHeight(list->minimumHeight());
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
    const QScopedValueRollback<bool> guard(updating, true);
    for (QLabel* label : {ui->lblRate, ui->lblDynamicMasterMode, ui->lblNetEnabled, ui->lblStatus, ui->lblError}) {
        label->clear();
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

bool DynamicWidget::Fill() {
    dynamic = network->Dynamic();
    FillMasters();
    Refresh();
    return network->IsConnected();
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

bool DynamicWidget::IsReady() const {
    return !updating && MayAct();
}

void DynamicWidget::Attempt(const std::function<void()>& work) {
    if (IsReady()) {
        errors.Try(work);
    }
}

void DynamicWidget::Do(const std::function<void()>& work) {
    Attempt([&] {
        work();
        RefreshPage();
    });
}

// The settings

void DynamicWidget::on_listRate_currentRowChanged(int currentRow) {
    Do([&] { dynamic->setDynamicRate(static_cast<eDynamicRate>(currentRow)); });
}

void DynamicWidget::on_sbNumSyncs_valueChanged(int value) {
    Do([&] { dynamic->setCollectionSize(value); });
}

void DynamicWidget::on_radioSyncNormal_clicked(bool) {
    Do([this] { dynamic->setDynamicMode(eDynamicMode::Normal); });
}

void DynamicWidget::on_radioSyncExternal_clicked(bool) {
    Do([this] {
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
    Do([this] {
        const QString master = ui->cbExternalMaster->currentText();
        if (!master.isEmpty()) {
            dynamic->setMasterIndex(network->GetModuleIndexByID(ToLibrary(master)));
        }
    });
}

void DynamicWidget::on_listDynamicMasterMode_currentRowChanged(int currentRow) {
    Do([&] {
        const auto mode = DynamicMaster::ModeOfRow(currentRow);
        const auto master = DynamicMaster::Of(*network);
        if (mode && master) {
            master->SetMode(*mode);
        }
    });
}

void DynamicWidget::on_sbCountsPerSync_valueChanged(int value) {
    Do([&] {
        if (const auto master = DynamicMaster::Of(*network)) {
            master->SetCountsPerSync(value);
        }
    });
}

void DynamicWidget::on_sbHoldOffCounts_valueChanged(int value) {
    Do([&] {
        if (const auto master = DynamicMaster::Of(*network)) {
            master->SetHoldOffCounts(value);
        }
    });
}

void DynamicWidget::on_sbModulesInCollection_valueChanged(int value) {
    Do([&] {
        // An external master is not collected.
        const int masters = dynamic->DynamicMode() == eDynamicMode::External ? 1 : 0;
        const int limit = network->ModuleCount() - masters;
        dynamic->setNumberOfModules(value < limit ? value : limit);
    });
}

void DynamicWidget::on_sbInterval_editingFinished() {
    Do([this] { dynamic->setDynamicInterval(ui->sbInterval->value()); });
}

// The commands

void DynamicWidget::on_btnEnable_clicked() {
    Do([this] {
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
    Do([this] { dynamic->setEnabled(false); });
}

void DynamicWidget::on_btnPrepare_clicked() {
    Do([this] { dynamic->Prepare(); });
}

void DynamicWidget::on_btnStart_clicked() {
    Do([this] {
        server->StartAllDynamic(&DynamicWidget::TellOfCollectionEnd);
        // Whatever else fails now: what runs can be stopped.
        run = std::make_unique<Run>(*mainWindow, QStringLiteral("dynamic mode"), ui->btnStop);
        run->activity.ShowSeconds(QStringLiteral("Dynamic collection running"));
    });
}

void DynamicWidget::on_btnStop_clicked() {
    Do([this] { server->StopAllDynamic(); });
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
    if (mainWindow->IsClosing()) {
        return;
    }
    run.reset();
    ui->btnStop->setEnabled(false);
    Do([] {});
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
    const QScopedValueRollback<bool> guard(updating, true);
    ui->cbExternalMaster->clear();
    for (int index = 0; index < network->ModuleCount(); ++index) {
        TavikLibrary::TavikModule* candidate = network->GetModule(static_cast<unsigned int>(index));
        if (candidate->DynamicMasterCapable()) {
            ui->cbExternalMaster->addItem(FromLibrary(candidate->Identity()));
        }
    }
}

void DynamicWidget::Refresh() {
    if (mainWindow->IsClosing() || !network->IsConnected()) {
        return;
    }
    const QScopedValueRollback<bool> guard(updating, true);
    const eDynamicState state = dynamic->DynamicState();
    const bool enabled = dynamic->Enabled();
    ShowSettings(enabled);
    ShowSyncMode(enabled);
    ShowModules(enabled);
    ShowState(state, enabled);
}

void DynamicWidget::ShowSettings(bool enabled) {
    const eDynamicRate rate = dynamic->DynamicRate();
    ui->lblRate->setText(FromLibrary(TavikLibrary::eDynamicRate_ToString(rate)));
    ui->listRate->setCurrentRow(static_cast<int>(rate));
    ui->listRate->setEnabled(!enabled);
    ui->sbInterval->setValue(dynamic->DynamicInterval());
    ui->sbInterval->setEnabled(!enabled && rate == eDynamicRate::Dynamic2Custom);
    ui->sbNumSyncs->setValue(dynamic->CollectionSize());
    ui->sbNumSyncs->setEnabled(!enabled);
}

void DynamicWidget::ShowSyncMode(bool enabled) {
    const bool wantsMaster = dynamic->DynamicMode() == eDynamicMode::External;
    const auto master = wantsMaster ? DynamicMaster::Of(*network) : std::nullopt;
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
    ui->lblDynamicMasterMode->setText(QStringLiteral("NotMaster"));
    if (ui->cbExternalMaster->currentIndex() < 0) {
        // The master that external mode would begin with.
        ui->cbExternalMaster->setCurrentIndex(0);
    }
}

void DynamicWidget::ShowMaster(const DynamicMaster& master) {
    ui->cbExternalMaster->setCurrentIndex(ui->cbExternalMaster->findText(FromLibrary(master.Identity())));
    const auto mode = master.Mode();
    ui->lblDynamicMasterMode->setText(FromLibrary(TavikLibrary::eDynamicMasterMode_ToString(mode)));
    ui->listDynamicMasterMode->setCurrentRow(DynamicMaster::RowOf(mode));
    ui->sbCountsPerSync->setValue(master.CountsPerSync());
    ui->sbHoldOffCounts->setValue(master.HoldOffCounts());
}

void DynamicWidget::ShowModules(bool enabled) {
    const int modules = dynamic->NumberOfModules();
    ui->sbModulesInCollection->setValue(modules);
    ui->sbModulesInCollection->setEnabled(!enabled);
    ui->listDynamicModules->clear();
    for (int index = 0; index < modules; ++index) {
        ui->listDynamicModules->addItem(FromLibrary(network->GetModule(static_cast<unsigned int>(index))->Identity()));
    }
}

void DynamicWidget::ShowState(eDynamicState state, bool enabled) {
    const bool hasResults = state == eDynamicState::ResultsAvailable;
    ui->btnModuleResults->setEnabled(hasResults);
    ui->btnAllResults->setEnabled(hasResults);
    ui->lblNetEnabled->setText(enabled ? QStringLiteral("True") : QStringLiteral("False"));
    ui->lblStatus->setText(FromLibrary(TavikLibrary::eDynamicState_ToString(state)));
    ui->lblError->setText(FromLibrary(server->GetErrorDescription(dynamic->DynamicData()->CollectionStatus())));
    ui->btnEnable->setEnabled(!enabled);
    ui->btnDisable->setEnabled(enabled && state != eDynamicState::Running && state != eDynamicState::Stopping);
    ui->btnPrepare->setEnabled(enabled && (state == eDynamicState::Idle || hasResults));
    ui->btnStart->setEnabled(state == eDynamicState::Prepared);
    ui->btnStop->setEnabled(state == eDynamicState::Running);
}
