#include "panels/modes/ReadBurstWidget.h"

#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/Fields.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/TableCopy.h"
#include "panels/common/Wait.h"
#include "ui_ReadBurstWidget.h"

#include <chrono>

using TavikLibrary::eTavikErrors;

namespace {

enum Column { IdentityColumn, ReadingColumn, StatusColumn };

/// How long bursts are counted against the clock.
constexpr int timedSeconds = 5;

/// Whether a module that answers with this result code has a reading to go with it.
bool HasReading(int code) {
    switch (static_cast<eTavikErrors>(code)) {
    case eTavikErrors::NoError:
    case eTavikErrors::UnderRange:
    case eTavikErrors::OverRange:
    case eTavikErrors::ReadingUnsettled:
        return true;
    default:
        return false;
    }
}

QString RateText(int bursts, int modules) {
    const int rate = bursts / timedSeconds;
    return QStringLiteral("%1 read bursts per second with %2 modules.\nTotal number of module reads per second: %3.")
        .arg(rate)
        .arg(modules)
        .arg(modules * rate);
}

} // namespace

ReadBurstWidget::ReadBurstWidget(QWidget* parent)
    : ModePage(parent, QStringLiteral("Readburst"), QStringLiteral("Error: ")),
      ui(std::make_unique<Ui::ReadBurstWidget>()) {
    ui->setupUi(this);
    ui->tableReadings->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    OfferCopying(ui->tableReadings);
}

ReadBurstWidget::~ReadBurstWidget() = default;

void ReadBurstWidget::Clear() {
    ui->tableReadings->setRowCount(0);
    ShowInField(ui->tbContCapModules, QString());
    ShowInField(ui->tbTotalCapmodules, QString());
}

bool ReadBurstWidget::Fill() {
    ShowInField(ui->tbContCapModules, QString::number(network->ReadBurstCapableCount()));
    int capable = 0;
    for (int index = 0; index < network->ModuleCount(); ++index) {
        capable += network->GetModule(static_cast<unsigned int>(index))->ReadBurstCapable() ? 1 : 0;
    }
    ShowInField(ui->tbTotalCapmodules, QString::number(capable));
    for (QWidget* command : Commands()) {
        command->setEnabled(true);
    }
    return network->IsConnected();
}

std::vector<QWidget*> ReadBurstWidget::Commands() const {
    return {ui->btnTimeReadings, ui->btnReadInCounts, ui->btnReadInUnits};
}

void ReadBurstWidget::on_btnReadInUnits_clicked() {
    readBurst(true);
}

void ReadBurstWidget::on_btnReadInCounts_clicked() {
    readBurst(false);
}

void ReadBurstWidget::readBurst(bool inUnits) {
    if (!MayAct()) {
        return;
    }
    ui->tableReadings->setRowCount(0);
    errors.Try([&] {
        int count = 0;
        ReadOnce(count);
        ui->tableReadings->setRowCount(count);
        const int listed = network->ModuleCount();
        for (int row = 0; row < count; ++row) {
            if (row < listed) {
                ShowModule(row, network->GetModule(static_cast<unsigned int>(row)), inUnits);
            } else {
                // The list has shrunk since the burst.
                ShowCell(row, IdentityColumn, QStringLiteral("Module %1").arg(row + 1));
            }
        }
    });
}

void ReadBurstWidget::ReadOnce(int& count) {
    const int code = network->Readburst(count);
    if (code != static_cast<int>(eTavikErrors::NoError)) {
        throw std::runtime_error(server->GetErrorDescription(code));
    }
}

void ReadBurstWidget::ShowModule(int row, TavikLibrary::TavikModule* module, bool inUnits) {
    ShowCell(row, IdentityColumn, FromLibrary(module->Identity()));
    const int code = module->LastResultCode();
    ShowCell(row, StatusColumn, FromLibrary(server->GetErrorDescription(code)));
    if (HasReading(code)) {
        // Counts have the decimals of units, so that both are read in the same way.
        ShowCell(row, ReadingColumn,
                 FormatUnits(inUnits ? module->LastReadingInUnits() : module->LastReadingInCounts()));
    }
}

void ReadBurstWidget::ShowCell(int row, int column, const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setToolTip(PlainToolTip(text));
    ui->tableReadings->setItem(row, column, item);
}

void ReadBurstWidget::on_btnTimeReadings_clicked() {
    if (!MayAct()) {
        return;
    }
    int bursts = 0;
    int count = 0;
    ErrorBox(this, QStringLiteral("Readburst Error")).Try([&] { CountBursts(bursts, count); });
    ShowInformationBox(this, QStringLiteral("Readburst Timer"), RateText(bursts, count));
}

void ReadBurstWidget::CountBursts(int& bursts, int& count) {
    using Clock = std::chrono::system_clock;
    const BlockingOperation blocking(mainWindow, QStringLiteral("Timing read bursts for %1 s...").arg(timedSeconds));
    SleepMicroseconds(500);
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(timedSeconds);
    while (Clock::now() < deadline) {
        ReadOnce(count);
        ++bursts;
    }
}
