#include "panels/modes/DifferenceModeWidget.h"

#include "library/TavikDifference.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/Fields.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/ModalDialog.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"
#include "panels/modes/DialogDifferenceResults.h"
#include "ui_DifferenceModeWidget.h"

#include <QCoreApplication>
#include <QScopeGuard>

namespace {

/// What the network's difference controller answers when asked for its status.
enum DifferenceStatus { Idle = 0, Running = 2, Finished = 3, EndedByItself = 5 };

bool IsToBeStopped(int status) {
    return status == Running || status == EndedByItself;
}

} // namespace

DifferenceModeWidget::DifferenceModeWidget(QWidget* parent)
    : ModePage(parent, QStringLiteral("Difference Mode"), QStringLiteral("Error: ")),
      ui(std::make_unique<Ui::DifferenceModeWidget>()) {
    ui->setupUi(this);
}

DifferenceModeWidget::~DifferenceModeWidget() = default;

void DifferenceModeWidget::Clear() {
    for (QLineEdit* field :
         {ui->tbModuleID, ui->tbEnabled, ui->tbCountMax, ui->tbCountMin, ui->tbCountSum, ui->tbCountDiff, ui->tbUnitMax,
          ui->tbUnitMin, ui->tbUnitSum, ui->tbUnitDiff, ui->tbNumReads, ui->tbErrMsg, ui->tbEnabledCount}) {
        ShowInField(field, QString());
    }
    ui->btnStopDiff->setEnabled(false);
}

bool DifferenceModeWidget::Fill() {
    if (!network->IsConnected()) {
        return false;
    }
    ShowModule();
    return true;
}

std::vector<QWidget*> DifferenceModeWidget::Commands() const {
    return {ui->btnEnable, ui->btnDisable, ui->btnStartDiff, ui->btnDisplayAllModuleResults};
}

bool DifferenceModeWidget::IsHeldByOthers() const {
    // The page's own run leaves the commands to the status: a run that has ended by itself can be followed by another.
    return CommandsAreHeld() && (run == nullptr || mainWindow->Holders().size() > 1);
}

void DifferenceModeWidget::Stop() noexcept {
    if (run != nullptr) {
        run->RequestStop();
    }
}

void DifferenceModeWidget::Leave() {
    // Deliberate: the network's run goes on. When the page returns, it offers to stop the run.
    run.reset();
}

void DifferenceModeWidget::Refresh() {
    if (network->IsConnected()) {
        ShowModule();
    }
}

void DifferenceModeWidget::ShowModule() {
    ShowInField(ui->tbModuleID, FromLibrary(module->Identity()));
    TavikLibrary::ModuleDifference* difference = module->Difference();
    const bool enabled = difference->Enabled();
    const int status = network->Difference()->Status();
    if (status == Running) {
        difference->ReadDifference();
    }
    ShowInField(ui->tbEnabled, enabled ? QStringLiteral("True") : QStringLiteral("False"));
    ShowValues(difference);
    OfferCommands(enabled, status);
}

void DifferenceModeWidget::ShowValues(TavikLibrary::ModuleDifference* difference) {
    ShowInField(ui->tbCountMax, QString::number(difference->MaxCounts()));
    ShowInField(ui->tbCountMin, QString::number(difference->MinCounts()));
    ShowInField(ui->tbCountSum, QString::number(difference->SumCounts()));
    ShowInField(ui->tbCountDiff, QString::number(difference->DiffCounts()));
    ShowInField(ui->tbUnitMax, FormatUnits(difference->Max()));
    ShowInField(ui->tbUnitMin, FormatUnits(difference->Min()));
    ShowInField(ui->tbUnitSum, FormatUnits(difference->Sum()));
    ShowInField(ui->tbUnitDiff, FormatUnits(difference->Diff()));
    ShowInField(ui->tbNumReads, QString::number(difference->ReadingCount()));
    ShowInField(ui->tbErrMsg, FromLibrary(server->GetErrorDescription(difference->Error())));
}

void DifferenceModeWidget::OfferCommands(bool enabled, int status) {
    const int enabledCount = network->Difference()->Count();
    ui->btnEnable->setEnabled(!enabled && status != Running);
    ui->btnDisable->setEnabled(enabled && status != Running);
    ShowInField(ui->tbEnabledCount, QString::number(enabledCount));
    ui->btnDisplayAllModuleResults->setEnabled(status == Finished);
    ui->btnStartDiff->setEnabled(status != Running && enabledCount >= 1);
    ui->btnStopDiff->setEnabled(IsToBeStopped(status));
}

void DifferenceModeWidget::on_btnEnable_clicked() {
    SetModuleEnabled(true);
}

void DifferenceModeWidget::on_btnDisable_clicked() {
    SetModuleEnabled(false);
}

void DifferenceModeWidget::SetModuleEnabled(bool enable) {
    if (!MayAct()) {
        return;
    }
    errors.Try([&] {
        module->Difference()->setEnabled(enable);
        RefreshPage();
    });
}

void DifferenceModeWidget::on_btnDisplayAllModuleResults_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        ModalDialog<DialogDifferenceResults> dialog(this);
        dialog->fill(server, network);
        dialog.Run();
    });
}

void DifferenceModeWidget::on_btnStartDiff_clicked() {
    if (!MayAct()) {
        return;
    }
    if (run == nullptr) {
        run = std::make_unique<Run>(*mainWindow, QStringLiteral("difference mode"), ui->btnStopDiff);
    }
    errors.Try([this] {
        network->Difference()->Start();
        RefreshPage();
        // A run that is started while the one before it is still being watched is watched by the same loop.
        if (!watching) {
            WatchRun();
        }
    });
    if (!watching) {
        SettleAfterWatching();
    }
}

void DifferenceModeWidget::WatchRun() {
    constexpr unsigned int pauseMicroseconds = 200000;
    watching = true;
    const auto notWatching = qScopeGuard([this] { watching = false; });
    // Processing events may end the run, begin another or take the module away, which ends the run, too.
    while (run != nullptr && run->MayGoOn()) {
        if (!module->Difference()->Enabled() || network->Difference()->Status() != Running) {
            break;
        }
        RefreshPage();
        run->activity.Show(QStringLiteral("Difference mode: modules enabled: %1, readings so far: %2, seconds: %3")
                               .arg(ui->tbEnabledCount->text(), ui->tbNumReads->text())
                               .arg(run->activity.Milliseconds() / 1000));
        SleepMicroseconds(pauseMicroseconds);
        QCoreApplication::processEvents();
    }
    if (!MayAct()) {
        return;
    }
    if (run == nullptr) {
        // Stop has refreshed the page, and has shown the error if that failed.
        IgnoreErrors([this] { RefreshPage(); });
    } else if (run->MayGoOn()) {
        RefreshPage();
    }
}

void DifferenceModeWidget::SettleAfterWatching() {
    if (run == nullptr || mainWindow->IsClosing()) {
        // The run was stopped by hand, and the controls are back.
        return;
    }
    const int status = StatusOrIdle();
    ui->btnStopDiff->setEnabled(IsToBeStopped(status));
    if (!IsToBeStopped(status)) {
        EndRun(status == Finished);
        return;
    }
    run->activity.Show(status == Running
                           ? QStringLiteral("Difference mode goes on until it is stopped.")
                           : QStringLiteral("Difference mode has ended by itself; it is still to be stopped."));
}

int DifferenceModeWidget::StatusOrIdle() {
    int status = Idle;
    IgnoreErrors([&] { status = network->IsConnected() ? network->Difference()->Status() : Idle; });
    return status;
}

void DifferenceModeWidget::on_btnStopDiff_clicked() {
    if (!MayAct()) {
        return;
    }
    bool stopped = false;
    errors.Try([&] {
        network->Difference()->Stop();
        stopped = true;
        RefreshPage();
    });
    if (run != nullptr && (stopped || !IsToBeStopped(StatusOrIdle()))) {
        EndRun(stopped);
    }
}

void DifferenceModeWidget::EndRun(bool withResults) {
    if (withResults) {
        const QString modules = ui->tbEnabledCount->text();
        run->activity.SetOutcome(
            QStringLiteral("Difference: ") + modules +
            (modules == QLatin1String("1") ? QStringLiteral(" module, %1 s") : QStringLiteral(" modules, %1 s")));
    }
    run.reset();
}
