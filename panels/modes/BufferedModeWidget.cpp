#include "panels/modes/BufferedModeWidget.h"

#include "library/TavikBuffered.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Text.h"
#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "panels/modes/ReadingsFetch.h"
#include "panels/modes/TriggerMaster.h"
#include "ui_BufferedModeWidget.h"

#include <QScopeGuard>

#include <initializer_list>

using TavikLibrary::eBufferedMode;
using TavikLibrary::ModuleBuffered;
using TavikLibrary::NetworkBuffered;
using TavikLibrary::TavikModule;

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

} // namespace

BufferedModeWidget::BufferedModeWidget(QWidget* parent)
    : SettingsPage(parent, QStringLiteral("Buffered Mode"), QStringLiteral("Error: ")),
      ui(std::make_unique<Ui::BufferedModeWidget>()) {
    ui->setupUi(this);
}

BufferedModeWidget::~BufferedModeWidget() = default;

void BufferedModeWidget::Clear() {
    for (QLineEdit* field :
         {ui->tbModuleID, ui->tbEnabled, ui->tbSubMode, ui->tbIntervalError, ui->tbTTU, ui->tbEnabledModCount}) {
        ShowInField(field, QString());
    }
    CheckMode(eBufferedMode::None);
    ui->sbInterval->setValue(ui->sbInterval->minimum());
    ui->cbMasterAddress->clear();
    ui->sbCountsPerSample->setValue(0);
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

void BufferedModeWidget::Show() {
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
    CheckMode(mode);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui->radioSync, ui->radioSample, ui->btnEnable}) {
        widget->setEnabled(!enabled);
    }
    ui->btnDisable->setEnabled(enabled);
    ui->gbSyncModeSettings->setEnabled(mode == eBufferedMode::Sync);
    ui->gbExternalMaster->setEnabled(mode == eBufferedMode::Sample);
}

void BufferedModeWidget::ShowInterval(ModuleBuffered& buffered, bool enabled) {
    shownInterval = NearestInterval(ui->sbInterval, buffered.ReadingInterval());
    ui->sbInterval->setValue(shownInterval);
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
    int row = 0;
    int counts = 0;
    if (index != controllerIndex) {
        TavikModule* listed = TriggerMaster::ModuleAt(*network, index);
        // A module that is not on offer selects nothing.
        row = listed == nullptr ? -1 : ui->cbMasterAddress->findText(FromLibrary(listed->Identity()));
        const auto master = TriggerMaster::Of(listed);
        counts = master ? master->CountsPerSample() : 0;
    }
    ui->cbMasterAddress->setCurrentIndex(row);
    ui->sbCountsPerSample->setValue(counts);
    ui->cbMasterAddress->setEnabled(!enabled);
    ui->sbCountsPerSample->setEnabled(!enabled && index != controllerIndex);
}

void BufferedModeWidget::CheckMode(eBufferedMode mode) {
    Check(ui->radioSync, mode == eBufferedMode::Sync);
    Check(ui->radioSample, mode == eBufferedMode::Sample);
}

void BufferedModeWidget::on_sbInterval_valueChanged(int value) {
    const int interval = NearestInterval(ui->sbInterval, value);
    if (interval != value) {
        // setValue() calls this slot again with a valid interval.
        ui->sbInterval->setValue(interval);
    } else if (interval != shownInterval) {
        Change([&] {
            module->Buffered()->setReadingInterval(interval);
            shownInterval = interval;
        });
    }
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
        const int index = network->Buffered()->MasterIndex();
        if (const auto master = TriggerMaster::Of(TriggerMaster::ModuleAt(*network, index))) {
            master->SetCountsPerSample(value);
        }
    });
}

void BufferedModeWidget::on_btnStart_clicked() {
    Attempt([this] {
        network->Buffered()->Start();
        // It runs, also if it cannot be shown, and then it must be possible to stop it.
        const auto running = qScopeGuard([this] { BeginRun(); });
        RefreshPage();
    });
}

void BufferedModeWidget::BeginRun() {
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("buffered mode"), ui->btnStop);
    ui->btnSample->setEnabled(ui->radioSample->isChecked());
    const QString modules = ui->tbEnabledModCount->text();
    run->activity.ShowSeconds(QStringLiteral("Buffered mode runs, modules enabled: ") + modules);
    run->activity.SetOutcome(
        QStringLiteral("Buffered: %1, ").arg(FormatCount(modules.toInt(), QStringLiteral("module"))) +
        QStringLiteral("%1 s"));
}

void BufferedModeWidget::on_btnSample_clicked() {
    Attempt([this] { network->Buffered()->Sample(); });
}

void BufferedModeWidget::on_btnStop_clicked() {
    Attempt([this] {
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
    Attempt([this] {
        ShowResultsDialog<CurrentModuleResultsDialog>(this,
                                                      [this](auto& dialog) { dialog.fillBuffered(server, module); });
    });
}

void BufferedModeWidget::on_btnAllModules_clicked() {
    Attempt([this] {
        ShowResultsDialog<AllResultsDialog>(this, [this](auto& dialog) { dialog.fillBuffered(server, network); });
    });
}
