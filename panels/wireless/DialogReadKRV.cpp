#include "panels/wireless/DialogReadKRV.h"

#include "library/TavikRLKDevice.h"
#include "panels/common/Activity.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/TableCopy.h"
#include "panels/common/Wait.h"
#include "ui_DialogReadKRV.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QPointer>
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

void DialogReadKRV::done(int result) {
    reading = false;
    QDialog::done(result);
}

void DialogReadKRV::SetReading(bool on) {
    reading = on;
    ui->btnStartStopReading->setText(reading ? QStringLiteral("Stop Reading") : QStringLiteral("Start Reading"));
}

void DialogReadKRV::on_btnStartStopReading_clicked() {
    SetReading(!reading);
    if (reading && !looping) {
        ReadRepeatedly();
    }
}

void DialogReadKRV::ReadRepeatedly() {
    constexpr unsigned int pauseMicroseconds = 50000;
    const Activity activity(host, QStringLiteral("Reading the hand tool of slot %1").arg(slotNumber));
    const QPointer<DialogReadKRV> dialog(this);
    const auto idleAgain = qScopeGuard([&dialog] {
        if (dialog != nullptr) {
            dialog->looping = false;
            dialog->SetReading(false);
        }
    });
    looping = true;
    while (dialog != nullptr && reading && !HostIsClosing()) {
        ReadOnce();
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    }
}

void DialogReadKRV::ReadOnce() {
    const QPointer<DialogReadKRV> dialog(this);
    errors.Try([this] {
        auto endOfLoop = qScopeGuard([this] { SetReading(false); });
        ShowDevice();
        ShowReadings();
        endOfLoop.dismiss();
    });
    if (dialog != nullptr && !HostIsClosing()) {
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
    bool connected = false;
    // A tool whose state cannot be had counts as not connected; the read has shown its failure already.
    IgnoreErrors([&] { connected = device->ConnectionStatus() == TavikLibrary::eRLK_DeviceStatus::Connected; });
    const QString style =
        connected ? QStringLiteral("background-color: green") : QStringLiteral("background-color: red");
    if (ui->gbDevice->styleSheet() != style) {
        ui->gbDevice->setStyleSheet(style);
        // The contrast of white is 5.1:1 on green and 4.0:1 on red, that of black 4.1:1 and 5.3:1.
        setStyleSheet(QStringLiteral("#gbDevice QLineEdit { color: black } #gbDevice, #gbDevice QLabel { color: %1 }")
                          .arg(connected ? QStringLiteral("white") : QStringLiteral("black")));
    }
}
