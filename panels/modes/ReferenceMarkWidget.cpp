#include "panels/modes/ReferenceMarkWidget.h"

#include "library/TavikModuleRN.h"
#include "panels/common/Fields.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"
#include "ui_ReferenceMarkWidget.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <utility>

using TavikLibrary::eReferenceMarkMode;
using TavikLibrary::TavikModuleRN;

namespace {

/// Decimals of the recall value.
constexpr int decimalsOfCounts = 0;
constexpr int decimalsOfUnits = 6;

} // namespace

ReferenceMarkWidget::ReferenceMarkWidget(QWidget* parent)
    : ModePage(parent, QStringLiteral("Ref Mark Mode"), QStringLiteral("Error: ")),
      ui(std::make_unique<Ui::ReferenceMarkWidget>()) {
    ui->setupUi(this);
}

ReferenceMarkWidget::~ReferenceMarkWidget() = default;

void ReferenceMarkWidget::Clear() {
    ShowInField(ui->tbRefMarkModuleID, QString());
    ShowInField(ui->tbRefMarkReading, QString());
    ui->btnStop->setEnabled(false);
}

bool ReferenceMarkWidget::Fill() {
    const QString identity = FromLibrary(module->Identity());
    ShowInField(ui->tbRefMarkModuleID, identity);
    // A reading must not be taken for another module's.
    ShowInField(ui->tbRefMarkReading, identity == moduleOfReading ? reading : QString());
    ui->btnFind->setEnabled(true);
    Refresh();
    return true;
}

void ReferenceMarkWidget::Refresh() {
    ui->sbRecallValue->setEnabled(ui->radioRecall->isChecked());
}

std::vector<QWidget*> ReferenceMarkWidget::Commands() const {
    return {ui->sbRecallValue, ui->btnFind};
}

void ReferenceMarkWidget::Stop() noexcept {
    if (TavikModuleRN* left = std::exchange(searched, nullptr)) {
        IgnoreErrors([left] { left->StopRefMark(); });
    }
}

void ReferenceMarkWidget::on_radioLearn_clicked(bool) {
    RefreshPage();
}

void ReferenceMarkWidget::on_radioRecall_clicked(bool) {
    RefreshPage();
}

void ReferenceMarkWidget::on_radioCounts_clicked(bool checked) {
    ui->sbRecallValue->ShowDecimals(checked ? decimalsOfCounts : decimalsOfUnits);
}

void ReferenceMarkWidget::on_radioUnits_clicked(bool checked) {
    ui->sbRecallValue->ShowDecimals(checked ? decimalsOfUnits : decimalsOfCounts);
}

void ReferenceMarkWidget::on_btnFind_clicked() {
    if (run != nullptr || !MayAct()) {
        return;
    }
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("reference mark search"), ui->btnStop);
    const auto over = qScopeGuard([this] {
        searched = nullptr;
        run.reset();
    });
    ShowInField(ui->tbRefMarkReading, QString());
    moduleOfReading.clear();
    errors.Try([this] { Search(); });
}

void ReferenceMarkWidget::on_btnStop_clicked() {
    if (MayAct()) {
        errors.Try([this] { static_cast<TavikModuleRN*>(module)->StopRefMark(); });
    }
}

void ReferenceMarkWidget::Search() {
    const bool learning = ui->radioLearn->isChecked();
    const bool inCounts = ui->radioCounts->isChecked();
    const eReferenceMarkMode mode = learning ? eReferenceMarkMode::Learn : eReferenceMarkMode::Recall;
    const double recallValue = ui->sbRecallValue->value();
    searched = static_cast<TavikModuleRN*>(module);
    if (inCounts) {
        searched->FindRefMark_Counts(mode, static_cast<int>(recallValue));
    } else {
        searched->FindRefMark_Units(mode, recallValue);
    }
    if (!WaitForEnd()) {
        return;
    }
    const bool found = searched->RefmarkFound();
    if (found) {
        ShowReading(inCounts ? searched->ReadInCountsAtRefmark() : searched->ReadInUnitsAtRefmark(), learning);
    }
    run->activity.SetOutcome(found ? QStringLiteral("Reference mark found, %1 s")
                                   : QStringLiteral("Reference mark not found, %1 s"));
}

bool ReferenceMarkWidget::WaitForEnd() {
    constexpr unsigned int pauseMicroseconds = 50000;
    const QString activity =
        QStringLiteral("Searching for the reference mark of module %1: %2 s so far").arg(ui->tbRefMarkModuleID->text());
    while (searched->RefmarkInProgress()) {
        run->activity.Show(activity.arg(run->activity.Milliseconds() / 1000));
        SleepMicroseconds(pauseMicroseconds);
        QCoreApplication::processEvents();
        if (searched == nullptr) {
            return false;
        }
    }
    return true;
}

void ReferenceMarkWidget::ShowReading(double value, bool learning) {
    reading = FormatUnits(value);
    moduleOfReading = ui->tbRefMarkModuleID->text();
    ShowInField(ui->tbRefMarkReading, reading);
    if (learning) {
        ui->sbRecallValue->ShowExact(value);
    }
}
