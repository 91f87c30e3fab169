#include "panels/modes/BufferedModeWidget.h"

#include "library/TavikBuffered.h"
#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikNetwork.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Text.h"
#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "panels/modes/ReadingsFetch.h"
#include "ui_BufferedModeWidget.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <initializer_list>

using TavikLibrary::eBufferedMode;
using TavikLibrary::eModuleType;
using TavikLibrary::ModuleBuffered;
using TavikLibrary::NetworkBuffered;
using TavikLibrary::TavikModule;
using TavikLibrary::TavikModuleQTA;
using TavikLibrary::TavikModuleSWAX2;

namespace {

const QLatin1String controllerText("Controller");

constexpr int controllerIndex = -1;
constexpr int runningStatus = 1;
constexpr int stoppedStatus = 2;

QString TrueOrFalse(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

/// The nearest interval that the box may hold: whole steps only.
int NearestInterval(const QSpinBox* box, int interval) {
    const qint64 step = box->singleStep();
    const qint64 longest = box->maximum() / step;
    const qint64 steps = (qint64{interval} + step / 2) / step;
    return static_cast<int>(qBound(qint64{1}, steps, longest) * step);
}

int CountsPerSampleOf(TavikModule* master) {
    const eModuleType type = master->ModuleType();
    if (auto* inputs = dynamic_cast<TavikModuleSWAX2*>(master); inputs && type == eModuleType::SWAX2) {
        return inputs->TxSample();
    }
    if (auto* encoder = dynamic_cast<TavikModuleQTA*>(master); encoder && type == eModuleType::QTA) {
        return encoder->TxSample();
    }
    return 0;
}

void SetCountsPerSampleOf(TavikModule* master, short counts) {
    const eModuleType type = master->ModuleType();
    if (auto* inputs = dynamic_cast<TavikModuleSWAX2*>(master); inputs && type == eModuleType::SWAX2) {
        inputs->setTxSample(counts);
    } else if (auto* encoder = dynamic_cast<TavikModuleQTA*>(master); encoder && type == eModuleType::QTA) {
        encoder->setTxSample(counts);
    }
}

} // namespace

BufferedModeWidget::BufferedModeWidget(QWidget* parent)
    : ModePage(parent, QStringLiteral("Buffered Mode"), QStringLiteral("Error: ")),
      ui(std::make_unique<Ui::BufferedModeWidget>()) {
    ui->setupUi(this);
}

BufferedModeWidget::~BufferedModeWidget() = default;

void BufferedModeWidget::Clear() {
    const QScopedValueRollback<bool> ownChanges(updating, true);
    for (QLineEdit* field :
         {ui->tbModuleID, ui->tbEnabled, ui->tbSubMode, ui->tbIntervalError, ui->tbTTU, ui->tbEnabledModCount}) {
        ShowInField(field, QString());
    }
    CheckMode(eBufferedMode::None);
    ui->sbInterval->setValue(ui->sbInterval->minimum());
    ui->cbMasterAddress->clear();
    ui->sbCountsPerSample->setValue(0);
}

bool BufferedModeWidget::Fill() {
    FillMasters();
    Refresh();
    return network->IsConnected();
}

std::vector<QWidget*> BufferedModeWidget::Commands() const {
    return {ui->radioSample,       ui->radioSync, ui->sbInterval, ui->tbIntervalError, ui->tbTTU,
            ui->cbMasterAddress,   ui->btnEnable, ui->btnDisable, ui->btnAllModules,   ui->btnCurrentModule,
            ui->sbCountsPerSample, ui->btnSample, ui->btnStart,   ui->btnStop};
}

void BufferedModeWidget::Leave() {
    run.reset();
}

void BufferedModeWidget::FillMasters() {
    const QScopedValueRollback<bool> ownChanges(updating, true);
    ui->cbMasterAddress->clear();
    ui->cbMasterAddress->addItem(controllerText);
    const int count = network->ModuleCount();
    for (int index = 0; index < count; ++index) {
        TavikModule* candidate = network->GetModule(static_cast<unsigned int>(index));
        if (candidate->BufferedMasterCapable()) {
            ui->cbMasterAddress->addItem(FromLibrary(candidate->Identity()));
        }
    }
}

void BufferedModeWidget::Refresh() {
    if (!network->IsConnected()) {
        return;
    }
    const QScopedValueRollback<bool> ownChanges(updating, true);
    ModuleBuffered& buffered = *module->Buffered();
    eBufferedMode mode = buffered.Mode();
    const bool enabled = buffered.Enabled();
    if (mode == eBufferedMode::None) {
        buffered.setMode(eBufferedMode::Sync);
        mode = eBufferedMode::Sync;
    }
    ShowModule(mode, enabled);
    ShowInterval(buffered, enabled);
    ShowNetwork(enabled);
}

void BufferedModeWidget::ShowModule(eBufferedMode mode, bool enabled) {
    ShowInField(ui->tbModuleID, FromLibrary(module->Identity()));
    ShowInField(ui->tbEnabled, TrueOrFalse(enabled));
    ShowInField(ui->tbSubMode, FromLibrary(TavikLibrary::eBufferedMode_ToString(mode)));
    shown.mode = mode;
    CheckMode(mode);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui->radioSync, ui->radioSample, ui->btnEnable}) {
        widget->setEnabled(!enabled);
    }
    ui->btnDisable->setEnabled(enabled);
    ui->gbSyncModeSettings->setEnabled(mode == eBufferedMode::Sync);
    ui->gbExternalMaster->setEnabled(mode == eBufferedMode::Sample);
}

void BufferedModeWidget::ShowInterval(ModuleBuffered& buffered, bool enabled) {
    shown.interval = NearestInterval(ui->sbInterval, buffered.ReadingInterval());
    ui->sbInterval->setValue(shown.interval);
    ShowInField(ui->tbIntervalError, QString::number(buffered.ReadingIntervalErrorUs()));
    ShowInField(ui->tbTTU, QString::number(buffered.TTUs()));
    for (QWidget* widget : std::initializer_list<QWidget*>{ui->sbInterval, ui->tbIntervalError, ui->tbTTU}) {
        widget->setEnabled(!enabled);
    }
}

void BufferedModeWidget::ShowNetwork(bool enabled) {
    NetworkBuffered& buffered = *network->Buffered();
    const int enabledCount = buffered.EnabledCount();
    ShowInField(ui->tbEnabledModCount, QString::number(enabledCount));
    const int status = buffered.Status();
    ui->btnAllModules->setEnabled(status == stoppedStatus);
    ui->btnCurrentModule->setEnabled(status == stoppedStatus);
    ui->btnSample->setEnabled(status == runningStatus);
    ui->btnStop->setEnabled(status == runningStatus);
    ui->btnStart->setEnabled(status != runningStatus && enabledCount >= 1);
    ShowMaster(buffered.MasterIndex(), enabled);
}

void BufferedModeWidget::ShowMaster(int index, bool enabled) {
    shown.masterRow = 0;
    shown.counts = 0;
    if (index != controllerIndex) {
        TavikModule* master = network->GetModule(static_cast<unsigned int>(index));
        // A module that is not on offer selects nothing.
        shown.masterRow = ui->cbMasterAddress->findText(FromLibrary(master->Identity()), Qt::MatchExactly);
        shown.counts = CountsPerSampleOf(master);
    }
    ui->cbMasterAddress->setCurrentIndex(shown.masterRow);
    ui->sbCountsPerSample->setValue(shown.counts);
    ui->cbMasterAddress->setEnabled(!enabled);
    ui->sbCountsPerSample->setEnabled(!enabled && index != controllerIndex);
}

void BufferedModeWidget::CheckMode(eBufferedMode mode) {
    Check(ui->radioSync, mode == eBufferedMode::Sync);
    Check(ui->radioSample, mode == eBufferedMode::Sample);
}

void BufferedModeWidget::ShowSettingsAsBefore() {
    const QScopedValueRollback<bool> ownChanges(updating, true);
    CheckMode(shown.mode);
    ui->sbInterval->setValue(shown.interval);
    ui->cbMasterAddress->setCurrentIndex(shown.masterRow);
    ui->sbCountsPerSample->setValue(shown.counts);
}

template <class Calls>
void BufferedModeWidget::Change(Calls&& calls) {
    if (updating || !MayAct()) {
        return;
    }
    errors.Try([&] {
        auto asBefore = qScopeGuard([this] { ShowSettingsAsBefore(); });
        calls();
        asBefore.dismiss();
        RefreshPage();
    });
}

void BufferedModeWidget::on_sbInterval_valueChanged(int value) {
    const int interval = NearestInterval(ui->sbInterval, value);
    if (interval != value) {
        // Comes back here.
        ui->sbInterval->setValue(interval);
        return;
    }
    Change([&] { module->Buffered()->setReadingInterval(interval); });
}

void BufferedModeWidget::on_btnEnable_clicked() {
    Change([this] { module->Buffered()->setEnabled(true); });
}

void BufferedModeWidget::on_btnDisable_clicked() {
    Change([this] { module->Buffered()->setEnabled(false); });
}

void BufferedModeWidget::on_radioSync_clicked() {
    Change([this] { module->Buffered()->setMode(eBufferedMode::Sync); });
}

void BufferedModeWidget::on_radioSample_clicked() {
    Change([this] { module->Buffered()->setMode(eBufferedMode::Sample); });
}

void BufferedModeWidget::on_cbMasterAddress_currentIndexChanged(const QString& text) {
    Change([&] {
        if (text == controllerText) {
            network->Buffered()->setMasterIndex(controllerIndex);
        } else if (!text.isEmpty()) {
            network->Buffered()->setMasterIndex(network->GetModuleIndexByID(ToLibrary(text)));
        }
    });
}

void BufferedModeWidget::on_sbCountsPerSample_valueChanged(int value) {
    Change([&] {
        const int master = network->Buffered()->MasterIndex();
        if (master >= 0) {
            SetCountsPerSampleOf(network->GetModule(static_cast<unsigned int>(master)), static_cast<short>(value));
        }
    });
}

void BufferedModeWidget::on_btnStart_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        network->Buffered()->Start();
        // It runs, also if it cannot be shown, and then it must be possible to stop it.
        const auto running = qScopeGuard([this] { BeginRun(); });
        RefreshPage();
    });
}

void BufferedModeWidget::BeginRun() {
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("buffered mode"), ui->btnStop);
    ui->btnSample->setEnabled(ui->radioSample->isChecked());
    run->activity.ShowSeconds(
        QStringLiteral("Buffered mode runs, modules enabled: %1").arg(ui->tbEnabledModCount->text()));
}

void BufferedModeWidget::on_btnSample_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] { network->Buffered()->Sample(); });
}

void BufferedModeWidget::on_btnStop_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        bool stopped = false;
        const auto over = qScopeGuard([&] {
            if (stopped || !StillRuns()) {
                run.reset();
                ui->btnSample->setEnabled(false);
                ui->btnStop->setEnabled(false);
            }
        });
        network->Buffered()->Stop();
        stopped = true;
        RefreshPage();
    });
}

/// Whether there is something left to stop, after stopping has failed.
bool BufferedModeWidget::StillRuns() {
    bool runs = false;
    IgnoreErrors([&] { runs = network->IsConnected() && network->Buffered()->Status() == runningStatus; });
    return runs;
}

void BufferedModeWidget::on_btnCurrentModule_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        ShowResultsDialog<CurrentModuleResultsDialog>(
            this, [this](CurrentModuleResultsDialog& dialog) { dialog.fillBuffered(server, module); });
    });
}

void BufferedModeWidget::on_btnAllModules_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        ShowResultsDialog<AllResultsDialog>(this,
                                            [this](AllResultsDialog& dialog) { dialog.fillBuffered(server, network); });
    });
}
