#include "panels/wireless/KRV_X_Settings_Dialog.h"

#include "library/TavikRLKSettings.h"
#include "ui_KRV_X_Settings_Dialog.h"

using TavikLibrary::eKRV_X_ButtonFunction;
using TavikLibrary::eKRV_X_LEDFunction;

namespace {

/// Where the tool's reply to IDENTIFY holds the firmware number.
constexpr std::size_t firmwarePosition = 27;

} // namespace

KRV_X_Settings_Dialog::KRV_X_Settings_Dialog(QWidget* parent, TavikLibrary::RLK_Device* device,
                                             TavikLibrary::RLK_DeviceSettingsBase* settings)
    : HandToolSettingsDialog(parent, device, settings),
      ui(std::make_unique<Ui::KRV_X_Settings_Dialog>()),
      settings(SettingsOfKind<TavikLibrary::RLK_DeviceSettings_KRVX>(settings)) {
    ui->setupUi(this);
    Open([this] { ReadSettings(); });
}

KRV_X_Settings_Dialog::~KRV_X_Settings_Dialog() = default;

// Reading

void KRV_X_Settings_Dialog::ReadSettings() {
    ui->gbConfiguration->setTitle(ReadTitle(QStringLiteral("KRV-X Configuration"), firmwarePosition));
    Step(10, QStringLiteral("Reading Auto Power Off Settings"));
    ShowAutoPowerOff(ui->cbAutoPowerOffEnabled, ui->sbAutoPowerOffTime, settings->OffTime());
    Step(15, QStringLiteral("Reading Buzzer Function"));
    ShowRow(ui->cbBuzzer, settings->BuzzerFunction());
    ReadResolutions();
    Step(60, QStringLiteral("Reading Display Settings"));
    ShowRow(ui->cbOrientation, settings->DisplayOrientation());
    ShowRow(ui->cbMode, settings->DisplayMode());
    Step(70, QStringLiteral("Reading Button Configuration"));
    ShowRow(ui->cbButton1Conf, settings->Button1Function());
    ShowRow(ui->cbButton2Conf, settings->Button2Function());
    Step(80, QStringLiteral("Reading LED Configuration"));
    ShowRow(ui->cbLED1, settings->LED1Function());
    ShowRow(ui->cbLED2, settings->LED2Function());
    ShowRow(ui->cbLED3, settings->LED3Function());
    Step(90, QStringLiteral("Exiting configuration mode."));
}

void KRV_X_Settings_Dialog::ReadResolutions() {
    const std::array<NumberBox*, channels> fields{ui->sbChRes1, ui->sbChRes2, ui->sbChRes3, ui->sbChRes4,
                                                  ui->sbChRes5, ui->sbChRes6, ui->sbChRes7, ui->sbChRes8};
    constexpr int firstPercent = 20;
    constexpr int percentPerPair = 10;
    for (int index = 0; index < channels; ++index) {
        if (index % 2 == 0) {
            Step(firstPercent + index / 2 * percentPerPair, QStringLiteral("Reading Resolutions"));
        }
        fields[index]->setValue(settings->GetDisplayedResolution(index + 1));
    }
}

// Writing

void KRV_X_Settings_Dialog::on_cbAutoPowerOffEnabled_clicked() {
    WriteAutoPowerOff(ui->cbAutoPowerOffEnabled, ui->sbAutoPowerOffTime,
                      [this](int seconds) { settings->setOffTime(seconds); });
}

void KRV_X_Settings_Dialog::on_sbAutoPowerOffTime_valueChanged(int arg1) {
    Write([&] { settings->setOffTime(arg1); });
}

void KRV_X_Settings_Dialog::on_cbBuzzer_currentIndexChanged(int index) {
    Write([&] { settings->setBuzzerFunction(static_cast<TavikLibrary::eKRV_X_BuzzerFunction>(index)); });
}

void KRV_X_Settings_Dialog::WriteResolution(int channel, int decimals) {
    errors.Try([&] { settings->SetDisplayedResolution(channel, decimals); });
}

void KRV_X_Settings_Dialog::on_cbOrientation_currentIndexChanged(int index) {
    Write([&] { settings->setDisplayOrientation(static_cast<TavikLibrary::eKRV_DisplayOrientation>(index)); });
}

void KRV_X_Settings_Dialog::on_cbMode_currentIndexChanged(int index) {
    Write([&] { settings->setDisplayMode(static_cast<TavikLibrary::eKRV_X_DisplayMode>(index)); });
}

void KRV_X_Settings_Dialog::on_cbButton1Conf_currentIndexChanged(int index) {
    Write([&] { settings->setButton1Function(static_cast<eKRV_X_ButtonFunction>(index)); });
}

void KRV_X_Settings_Dialog::on_cbButton2Conf_currentIndexChanged(int index) {
    Write([&] { settings->setButton2Function(static_cast<eKRV_X_ButtonFunction>(index)); });
}

void KRV_X_Settings_Dialog::on_cbLED1_currentIndexChanged(int index) {
    Write([&] { settings->setLED1Function(static_cast<eKRV_X_LEDFunction>(index)); });
}

void KRV_X_Settings_Dialog::on_cbLED2_currentIndexChanged(int index) {
    Write([&] { settings->setLED2Function(static_cast<eKRV_X_LEDFunction>(index)); });
}

void KRV_X_Settings_Dialog::on_cbLED3_currentIndexChanged(int index) {
    Write([&] { settings->setLED3Function(static_cast<eKRV_X_LEDFunction>(index)); });
}

void KRV_X_Settings_Dialog::on_btnResetToFactory_clicked() {
    ResetToFactory([this] { settings->ResetFactorySettings(); });
}
