#include "panels/modes/ReferenceMarkWidget.h"

#include "library/TavikModuleRN.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Wait.h"
#include "ui_ReferenceMarkWidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopeGuard>

using TavikLibrary::eReferenceMarkMode;

namespace {

const QLatin1String boxTitle("Ref Mark Mode");
const QLatin1String boxPrefix("Error: ");

/// Of the recall value.
constexpr int decimalsOfCounts = 0;
constexpr int decimalsOfUnits = 6;

} // namespace

ReferenceMarkWidget::ReferenceMarkWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::ReferenceMarkWidget>()) {
    ui->setupUi(this);
}

ReferenceMarkWidget::~ReferenceMarkWidget() = default;

void ReferenceMarkWidget::setNetwork(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                     TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleRN* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    const QString before = ui->tbRefMarkModuleID->text();
    ui->tbRefMarkModuleID->clear();
    const QString identity = FromLibrary(module->Identity());
    if (identity != before) {
        // A reading must not be taken for another module's.
        ui->tbRefMarkReading->clear();
    }
    ShowInField(ui->tbRefMarkModuleID, identity);
}

void ReferenceMarkWidget::setCommandsEnabled(bool enable) {
    commandsEnabled = enable;
    ui->gbMode->setEnabled(enable);
    ui->gbReadIn->setEnabled(enable);
    ui->btnFind->setEnabled(enable);
    EnableRecallValue(ui->radioRecall->isChecked());
}

void ReferenceMarkWidget::ForgetModule() {
    module = nullptr;
    abandoned = true;
}

void ReferenceMarkWidget::AbandonSearch() {
    if (!searching || module == nullptr) {
        return;
    }
    abandoned = true;
    try {
        module->StopRefMark();
    } catch (const std::runtime_error&) {
        // There is nobody left to be told; without the page the search comes to nothing.
    }
}

void ReferenceMarkWidget::on_radioLearn_clicked(bool checked) {
    EnableRecallValue(!checked);
}

void ReferenceMarkWidget::on_radioRecall_clicked(bool checked) {
    EnableRecallValue(checked);
}

void ReferenceMarkWidget::on_radioCounts_clicked(bool checked) {
    ui->sbRecallValue->setDecimals(checked ? decimalsOfCounts : decimalsOfUnits);
}

void ReferenceMarkWidget::on_radioUnits_clicked(bool checked) {
    ui->sbRecallValue->setDecimals(checked ? decimalsOfUnits : decimalsOfCounts);
}

void ReferenceMarkWidget::on_btnFind_clicked() {
    if (searching || module == nullptr) {
        return;
    }
    searching = true;
    abandoned = false;
    const auto idleAgain = qScopeGuard([this] {
        searching = false;
        mainWindow->ShowActivity(QString());
        ui->btnStop->setEnabled(false);
        setCommandsEnabled(true);
        if (!mainWindow->IsClosing()) {
            mainWindow->EnableControls();
        }
    });
    mainWindow->DisableControls();
    setCommandsEnabled(false);
    ui->btnStop->setEnabled(true);
    ui->tbRefMarkReading->clear();
    Guarded(this, boxTitle, boxPrefix, [this] { Search(); });
}

void ReferenceMarkWidget::on_btnStop_clicked() {
    if (module != nullptr) {
        Guarded(this, boxTitle, boxPrefix, [this] { module->StopRefMark(); });
    }
}

void ReferenceMarkWidget::EnableRecallValue(bool recallMode) {
    ui->sbRecallValue->setEnabled(commandsEnabled && recallMode);
}

void ReferenceMarkWidget::Search() {
    const bool learning = ui->radioLearn->isChecked();
    const bool inCounts = ui->radioCounts->isChecked();
    const eReferenceMarkMode mode = learning ? eReferenceMarkMode::Learn : eReferenceMarkMode::Recall;
    const double recallValue = ui->sbRecallValue->value();
    if (inCounts) {
        module->FindRefMark_Counts(mode, static_cast<int>(recallValue));
    } else {
        module->FindRefMark_Units(mode, recallValue);
    }
    if (WaitForEnd() && module->RefmarkFound()) {
        ShowReading(inCounts ? module->ReadInCountsAtRefmark() : module->ReadInUnitsAtRefmark(), learning);
    }
}

bool ReferenceMarkWidget::WaitForEnd() {
    constexpr unsigned int pauseMicroseconds = 50000;
    const QString activity =
        QStringLiteral("Searching for the reference mark of module %1: %2 s so far").arg(ui->tbRefMarkModuleID->text());
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (module->RefmarkInProgress()) {
        mainWindow->ShowActivity(activity.arg(sinceStart.elapsed() / 1000));
        SleepMicroseconds(pauseMicroseconds);
        QCoreApplication::processEvents();
        if (abandoned || mainWindow->IsClosing()) {
            return false;
        }
    }
    return true;
}

void ReferenceMarkWidget::ShowReading(double value, bool learning) {
    ui->tbRefMarkReading->setText(FormatUnits(value));
    if (learning) {
        ui->sbRecallValue->setValue(value);
    }
}
