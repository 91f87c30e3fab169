#include "panels/modes/DifferenceModeWidget.h"

#include "library/TavikDifference.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Wait.h"
#include "panels/modes/DialogDifferenceResults.h"
#include "ui_DifferenceModeWidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QScopeGuard>

namespace {

/// What the network's difference controller answers when asked for its status.
enum DifferenceStatus { Idle = 0, Running = 2, Finished = 3, EndedByItself = 5 };

bool IsToBeStopped(int status) {
    return status == Running || status == EndedByItself;
}

} // namespace

DifferenceModeWidget::DifferenceModeWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::DifferenceModeWidget>()) {
    ui->setupUi(this);
}

DifferenceModeWidget::~DifferenceModeWidget() = default;

void DifferenceModeWidget::setNetwork(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                      TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModule* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;
    Refresh();
}

void DifferenceModeWidget::setCommandsEnabled(bool enable) {
    if (enable) {
        Refresh();
        return;
    }
    ui->btnEnable->setEnabled(false);
    ui->btnDisable->setEnabled(false);
    ui->btnStartDiff->setEnabled(false);
    ui->btnDisplayAllModuleResults->setEnabled(false);
}

void DifferenceModeWidget::ForgetModule() {
    module = nullptr;
}

void DifferenceModeWidget::RaiseStopFlag() {
    stopFlag = true;
}

template <class Calls>
void DifferenceModeWidget::Guard(Calls&& calls) {
    Guarded(this, QStringLiteral("Difference Mode"), QStringLiteral("Error: "), std::forward<Calls>(calls));
}

void DifferenceModeWidget::Refresh() {
    if (module == nullptr || !network->IsConnected()) {
        return;
    }
    ShowInField(ui->tbModuleID, FromLibrary(module->Identity()));
    TavikLibrary::ModuleDifference* difference = module->Difference();
    const bool enabled = difference->Enabled();
    const int status = network->Difference()->Status();
    if (status == Running) {
        difference->ReadDifference();
    }
    ui->tbEnabled->setText(enabled ? QStringLiteral("True") : QStringLiteral("False"));
    ShowValues(difference);
    OfferCommands(enabled, status);
}

void DifferenceModeWidget::ShowValues(TavikLibrary::ModuleDifference* difference) {
    ui->tbCountMax->setText(QString::number(difference->MaxCounts()));
    ui->tbCountMin->setText(QString::number(difference->MinCounts()));
    ui->tbCountSum->setText(QString::number(difference->SumCounts()));
    ui->tbCountDiff->setText(QString::number(difference->DiffCounts()));
    ui->tbUnitMax->setText(FormatUnits(difference->Max()));
    ui->tbUnitMin->setText(FormatUnits(difference->Min()));
    ui->tbUnitSum->setText(FormatUnits(difference->Sum()));
    ui->tbUnitDiff->setText(FormatUnits(difference->Diff()));
    ui->tbNumReads->setText(QString::number(difference->ReadingCount()));
    ShowInField(ui->tbErrMsg, FromLibrary(server->GetErrorDescription(difference->Error())));
}

void DifferenceModeWidget::OfferCommands(bool enabled, int status) {
    const int enabledCount = network->Difference()->Count();
    ui->btnEnable->setEnabled(!enabled && status != Running);
    ui->btnDisable->setEnabled(enabled && status != Running);
    ui->tbEnabledCount->setText(QString::number(enabledCount));
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
    if (module == nullptr) {
        return;
    }
    Guard([&] {
        module->Difference()->setEnabled(enable);
        Refresh();
    });
}

void DifferenceModeWidget::on_btnDisplayAllModuleResults_clicked() {
    Guard([this] {
        // The page may go while the dialog is open, and the dialog with it.
        const QPointer<DialogDifferenceResults> dialog = new DialogDifferenceResults(this);
        const auto closed = qScopeGuard([&dialog] { delete dialog; });
        dialog->fill(server, network);
        dialog->exec();
    });
}

void DifferenceModeWidget::on_btnStartDiff_clicked() {
    if (watching) {
        return;
    }
    watching = true;
    const auto notWatching = qScopeGuard([this] { watching = false; });
    stopFlag = false;
    holdsControls = true;
    mainWindow->DisableControls();
    Guard([this] {
        network->Difference()->Start();
        Refresh();
        WatchRun();
        if (!stopFlag) {
            Refresh();
        }
    });
    SettleAfterWatching();
}

void DifferenceModeWidget::WatchRun() {
    constexpr unsigned int pauseMicroseconds = 200000;
    QElapsedTimer sinceStart;
    sinceStart.start();
    const TavikLibrary::TavikModule* watched = module;
    // Processing events may raise the flag, stop the run or take the module away.
    while (!stopFlag && module != nullptr && module == watched) {
        if (!module->Difference()->Enabled() || network->Difference()->Status() != Running) {
            return;
        }
        Refresh();
        mainWindow->ShowActivity(
            QStringLiteral("Difference mode: modules enabled: %1, readings so far: %2, seconds: %3")
                .arg(ui->tbEnabledCount->text(), ui->tbNumReads->text())
                .arg(sinceStart.elapsed() / 1000));
        SleepMicroseconds(pauseMicroseconds);
        QCoreApplication::processEvents();
    }
}

void DifferenceModeWidget::SettleAfterWatching() {
    if (mainWindow->IsClosing()) {
        mainWindow->ShowActivity(QString());
        return;
    }
    if (!holdsControls) {
        // The run was stopped by hand, and the controls are back.
        return;
    }
    const int status = StatusOrIdle();
    ui->btnStopDiff->setEnabled(IsToBeStopped(status));
    if (!IsToBeStopped(status)) {
        ReleaseControls();
        return;
    }
    mainWindow->ShowActivity(status == Running
                                 ? QStringLiteral("Difference mode goes on until it is stopped.")
                                 : QStringLiteral("Difference mode has ended by itself; it is still to be stopped."));
}

int DifferenceModeWidget::StatusOrIdle() {
    try {
        return network->IsConnected() ? network->Difference()->Status() : Idle;
    } catch (const std::runtime_error&) {
        return Idle;
    }
}

void DifferenceModeWidget::on_btnStopDiff_clicked() {
    bool stopped = false;
    Guard([&] {
        network->Difference()->Stop();
        stopped = true;
        Refresh();
    });
    if (stopped || !IsToBeStopped(StatusOrIdle())) {
        ReleaseControls();
    }
}

void DifferenceModeWidget::ReleaseControls() {
    holdsControls = false;
    mainWindow->ShowActivity(QString());
    if (!mainWindow->IsClosing()) {
        mainWindow->EnableControls();
    }
}
