#include "panels/wireless/DialogReadKRV.h"

#include "library/TavikRLKDevice.h"
#include "panels/common/Activity.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/TableCopy.h"
#include "panels/common/Wait.h"
#include "ui_DialogReadKRV.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QScopeGuard>

using TavikLibrary::eRead3_ControlCode;
using TavikLibrary::TavikChannelReadings;

namespace {

/// The rows of the table of readings.
enum Row { idRow, strokeRow, readingRow, statusRow, tagRow };

QString FormatShort(double value) {
    return QString::number(value, 'g', 6);
}

} // namespace

DialogReadKRV::DialogReadKRV(int slotIndex, TavikLibrary::RLK_Device* device, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::DialogReadKRV>()),
      host(HostWindow::Of(parent)),
      device(device),
      slotNumber(slotIndex + 1) {
    ui->setupUi(this);
    ui->readingsTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    OfferCopying(ui->readingsTable);
    ui->btnStartStopReading->setFocus();
    ui->gbDevice->setTitle(QStringLiteral("RLK Device: ") + QString::number(slotNumber));
    ShowInField(ui->tbTavikID, FromLibrary(device->TavikIdentity()));
    ShowInField(ui->tbName, FromLibrary(device->DeviceName()));
    ReadOnce();
}

DialogReadKRV::~DialogReadKRV() = default;

bool DialogReadKRV::HostIsClosing() const {
    return host != nullptr && host->IsClosing();
}

void DialogReadKRV::reject() {
    reading = false;
    QDialog::reject();
}

void DialogReadKRV::on_btnClose_clicked() {
    close();
}

void DialogReadKRV::on_btnStartStopReading_clicked() {
    if (looping) {
        reading = false;
        return;
    }
    looping = true;
    reading = true;
    ui->btnStartStopReading->setText(QStringLiteral("Stop Reading"));
    const Activity activity(host, QStringLiteral("Reading the hand tool of slot %1").arg(slotNumber));
    const auto idleAgain = qScopeGuard([this] {
        looping = false;
        reading = false;
        ui->btnStartStopReading->setText(QStringLiteral("Start Reading"));
    });
    ReadRepeatedly();
}

void DialogReadKRV::ReadRepeatedly() {
    constexpr unsigned int pauseMicroseconds = 50000;
    while (reading && !HostIsClosing()) {
        ReadOnce();
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    }
}

void DialogReadKRV::ReadOnce() {
    try {
        ShowDevice();
        ShowReadings();
    } catch (const std::runtime_error& error) {
        reading = false;
        ShowErrorBox(this, QStringLiteral("Read KRV"), FromLibrary(error.what()));
    }
    if (!HostIsClosing()) {
        ShowConnection();
    }
}

void DialogReadKRV::ShowDevice() {
    ShowInField(ui->tbType, FromLibrary(TavikLibrary::eRLK_DeviceType_ToString(device->DeviceType())));
    ShowInField(ui->tbStatus, FromLibrary(TavikLibrary::eRLK_DeviceStatus_ToString(device->ConnectionStatus())));
    ShowInField(ui->tbChannels, QString::number(device->NumChannels()));
    ShowInField(ui->tbBattery, QString::number(device->BatteryStatus()) + QLatin1Char('%'));
}

void DialogReadKRV::ShowReadings() {
    const bool normal = ui->radioNormal->isChecked();
    TavikChannelReadings readings =
        device->ReadAllChannels(normal ? eRead3_ControlCode::Normal : eRead3_ControlCode::Tagged);
    const int channels = readings.ReadingCount();
    ui->readingsTable->setColumnCount(channels);
    QStringList headers;
    for (int channel = 0; channel < channels; ++channel) {
        headers.append(QStringLiteral("Ch ") + QString::number(channel + 1));
        ShowChannel(channel, readings);
    }
    ui->readingsTable->setHorizontalHeaderLabels(headers);
}

void DialogReadKRV::ShowChannel(int channel, TavikChannelReadings& readings) {
    const auto show = [this, channel](Row row, const QString& text) {
        ui->readingsTable->setItem(row, channel, new QTableWidgetItem(text));
    };
    show(idRow, FromLibrary(device->GetChannelData(channel)));
    const TavikLibrary::TavikChannelReading& reading = readings[channel];
    show(strokeRow, FormatShort(reading.stroke));
    show(readingRow, FormatShort(reading.reading));
    show(statusRow, FromLibrary(TavikLibrary::eTavikErrors_ToString(reading.status)));
    show(tagRow, QString::number(reading.tag));
}

void DialogReadKRV::ShowConnection() {
    const QString style =
        Connected() ? QStringLiteral("background-color: green") : QStringLiteral("background-color: red");
    if (ui->gbDevice->styleSheet() != style) {
        ui->gbDevice->setStyleSheet(style);
    }
}

bool DialogReadKRV::Connected() {
    try {
        return device->ConnectionStatus() == TavikLibrary::eRLK_DeviceStatus::Connected;
    } catch (const std::runtime_error&) {
        // A tool whose state cannot be had counts as not connected; the operator has read enough boxes.
        return false;
    }
}
