#include "panels/wireless/HandToolSettingsDialog.h"

#include "library/TavikRLKDevice.h"
#include "library/TavikRLKSettings.h"
#include "panels/common/Activity.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Wait.h"
#include "panels/wireless/FirmwareNumber.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QScopeGuard>

#include <stdexcept>

namespace {

constexpr unsigned int oneSecond = 1000000;

/// What the time field shows while the tool does not switch itself off.
constexpr int usualOffSeconds = 60;

} // namespace

HandToolSettingsDialog::HandToolSettingsDialog(QWidget* mainWindow, TavikLibrary::RLK_Device* device,
                                               TavikLibrary::RLK_DeviceSettingsBase* settings)
    : QDialog(mainWindow),
      host(HostWindow::Of(mainWindow)),
      device(device),
      settings(settings),
      wait(std::make_unique<WaitForProcessDialog>(mainWindow)) {}

HandToolSettingsDialog::~HandToolSettingsDialog() = default;

void HandToolSettingsDialog::Open(const std::function<void()>& readSettings) {
    const Activity activity(host, QStringLiteral("Reading the settings of a hand tool"));
    const auto over = qScopeGuard([this] { wait->hide(); });
    wait->setModal(true);
    wait->ShowPainted();
    SleepMicroseconds(oneSecond);
    QCoreApplication::processEvents();
    try {
        loading = true;
        EnterConfigMode();
        readSettings();
        settings->setConfigMode(false);
        loading = false;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(error);
    }
}

void HandToolSettingsDialog::Step(int percent, const QString& text) {
    wait->setProgress(percent, text);
    if (host != nullptr && host->IsClosing()) {
        throw std::runtime_error("The program is closing.");
    }
}

void HandToolSettingsDialog::EnterConfigMode() {
    constexpr int tries = 10;
    for (int attempt = 1; attempt <= tries; ++attempt) {
        Step(0, QStringLiteral("Connecting and entering config mode. (Try %1/%2)").arg(attempt).arg(tries));
        settings->setConfigMode(true);
        if (settings->EnteredConfigMode()) {
            return;
        }
        if (attempt < tries) {
            SleepMicroseconds(oneSecond);
        }
    }
    throw std::runtime_error("Device connection error\nFailed to enter config mode.");
}

QString HandToolSettingsDialog::ReadTitle(const QString& name, std::size_t firmwarePosition) {
    Step(1, QStringLiteral("Reading Identity"));
    const QString firmware = ReadFirmwareNumber(firmwarePosition);
    const QString identity = FromLibrary(device->TavikIdentity());
    return QStringLiteral("%1 (%2) Firmware V%3     ").arg(name, identity, firmware);
}

QString HandToolSettingsDialog::ReadFirmwareNumber(std::size_t position) {
    try {
        return FirmwareNumber(device->Settings()->SendCommand("IDENTIFY", true), position);
    } catch (...) {
        // The settings can be changed without knowing the firmware.
        return {};
    }
}

void HandToolSettingsDialog::ShowAutoPowerOff(QCheckBox* enabled, NumberBox* time, int seconds) {
    const bool switchesOff = seconds != 0;
    enabled->setChecked(switchesOff);
    time->setValue(switchesOff ? seconds : usualOffSeconds);
    time->setEnabled(switchesOff);
}

void HandToolSettingsDialog::WriteAutoPowerOff(QCheckBox* enabled, NumberBox* time,
                                               const std::function<void(int)>& setSeconds) {
    Write([&] {
        if (enabled->isChecked()) {
            setSeconds(time->value());
            time->setEnabled(true);
        } else {
            setSeconds(0);
            // Deliberate: the field's own slot writes the value that it gets here, after the 0.
            time->setValue(usualOffSeconds);
            time->setEnabled(false);
        }
    });
}

void HandToolSettingsDialog::ResetToFactory(const std::function<void()>& reset) {
    Write([&] {
        reset();
        ShowInformationBox(
            this, QStringLiteral("KRV Config"),
            QStringLiteral("Factory reset complete.\nPlease power cycle the KRV to apply the new settings."));
    });
}
