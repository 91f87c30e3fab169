#include "panels/modes/ReferenceMarkWidget.h"

#include "library/TavikModuleRN.h"
#include "panels/common/Fields.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"
#include "ui_ReferenceMarkWidget.h"

#include <QCoreApplication>
#include <QScopeGuard>

using TavikLibrary::eReferenceMarkMode;

namespace {

/// Of the recall value.
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
    ui->btnStop->setEnabled(false);
}

bool ReferenceMarkWidget::Fill() {
    encoder = static_cast<TavikLibrary::TavikModuleRN*>(module);
    const QString identity = FromLibrary(encoder->Identity());
    if (identity != shownIdentity) {
        // A reading must not be taken for another module's.
        ui->tbRefMarkReading->clear();
    }
    shownIdentity = identity;
    ShowInField(ui->tbRefMarkModuleID, identity);
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
    if (run != nullptr) {
        run->RequestStop();
        IgnoreErrors([this] { encoder->StopRefMark(); });
    }
}

void ReferenceMarkWidget::Leave() {
    Stop();
    encoder = nullptr;
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
    const auto over = qScopeGuard([this] { run.reset(); });
    ui->tbRefMarkReading->clear();
    errors.Try([this] { Search(); });
}

void ReferenceMarkWidget::on_btnStop_clicked() {
    if (MayAct()) {
        errors.Try([this] { encoder->StopRefMark(); });
    }
}

void ReferenceMarkWidget::Search() {
    const bool learning = ui->radioLearn->isChecked();
    const bool inCounts = ui->radioCounts->isChecked();
    const eReferenceMarkMode mode = learning ? eReferenceMarkMode::Learn : eReferenceMarkMode::Recall;
    const double recallValue = ui->sbRecallValue->Exact();
    if (inCounts) {
        encoder->FindRefMark_Counts(mode, static_cast<int>(recallValue));
    } else {
        encoder->FindRefMark_Units(mode, recallValue);
    }
    if (WaitForEnd() && encoder->RefmarkFound()) {
        ShowReading(inCounts ? encoder->ReadInCountsAtRefmark() : encoder->ReadInUnitsAtRefmark(), learning);
    }
}

bool ReferenceMarkWidget::WaitForEnd() {
    constexpr unsigned int pauseMicroseconds = 50000;
    const QString activity =
        QStringLiteral("Searching for the reference mark of module %1: %2 s so far").arg(ui->tbRefMarkModuleID->text());
    while (encoder->RefmarkInProgress()) {
        run->activity.Show(activity.arg(run->activity.Milliseconds() / 1000));
        SleepMicroseconds(pauseMicroseconds);
        QCoreApplication::processEvents();
        if (!run->MayGoOn()) {
            return false;
        }
    }
    return true;
}

void ReferenceMarkWidget::ShowReading(double value, bool learning) {
    ui->tbRefMarkReading->setText(FormatUnits(value));
    if (learning) {
        ui->sbRecallValue->ShowExact(value);
    }
}
