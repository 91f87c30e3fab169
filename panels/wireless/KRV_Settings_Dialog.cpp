#include "panels/wireless/KRV_Settings_Dialog.h"

#include "library/TavikRLKSettings.h"
#include "ui_KRV_Settings_Dialog.h"

using TavikLibrary::eKRV_ButtonFunction;

namespace {

/// The list of Bluetooth classes begins with this one.
constexpr int firstBluetoothClass = 1;

/// Where the tool's reply to IDENTIFY holds the firmware number.
constexpr std::size_t firmwarePosition = 25;

} // namespace

KRV_Settings_Dialog::KRV_Settings_Dialog(QWidget* parent, TavikLibrary::RLK_Device* device,
                                         TavikLibrary::RLK_DeviceSettingsBase* settings)
    : HandToolSettingsDialog(parent, device, settings),
      ui(std::make_unique<Ui::KRV_Settings_Dialog>()),
      settings(SettingsOfKind<TavikLibrary::RLK_DeviceSettings_KRV>(settings)) {
    ui->setupUi(this);
    Open([this] { ReadSettings(); });
}

KRV_Settings_Dialog::~KRV_Settings_Dialog() = default;

// Reading

void KRV_Settings_Dialog::ReadSettings() {
    ui->gbConfiguration->setTitle(ReadTitle(QStringLiteral("KRV Configuration"), firmwarePosition));
    Step(10, QStringLiteral("Reading Bluetooth class"));
    ShowRow(ui->cbBluetoothClass, settings->BluetoothClass(), firstBluetoothClass);
    Step(20, QStringLiteral("Reading Auto Power Down"));
    ShowAutoPowerOff(ui->cbAutoPowerOffEnabled, ui->sbAutoPowerOffTime, settings->AutoPowerDownTime());
    ReadDisplay();
    ReadButtons();
    ReadLimits();
    Step(85, QStringLiteral("Reading Operation Mode"));
    ShowRow(ui->cbOperationMode, settings->OperationMode());
    Step(90, QStringLiteral("Exiting config mode"));
}

void KRV_Settings_Dialog::ReadDisplay() {
    Step(30, QStringLiteral("Reading Display Settings"));
    ui->sbResolution->setValue(settings->DisplayedResolution());
    ShowRow(ui->cbOrientation, settings->DisplayOrientation());
    ShowRow(ui->cbLayout, settings->DisplayLayout());
    ShowRow(ui->cbReadingSource, settings->DisplayLargeSource());
    Step(30, QStringLiteral("Reading Preset Value"));
    ui->sbPreset->setValue(settings->PresetValue());
}

void KRV_Settings_Dialog::ReadButtons() {
    Step(50, QStringLiteral("Reading Button Functions"));
    eKRV_ButtonFunction button1 = eKRV_ButtonFunction::Tag;
    eKRV_ButtonFunction button2 = eKRV_ButtonFunction::Tag;
    settings->GetButtonFunctions(button1, button2);
    ShowRow(ui->cbButton1Func, button1);
    ShowRow(ui->cbButton2Func, button2);
    ShowRow(ui->cbPowerOffBtn, settings->PowerOffButtonOptions());
    ui->cbButtonBuzzer->setChecked(settings->ButtonBuzzerEnable());
}

void KRV_Settings_Dialog::ReadLimits() {
    TavikLibrary::KRV_Limits* limits = settings->Limits();
    Step(60, QStringLiteral("Reading Limits"));
    ui->cbLimitsEnabled->setChecked(limits->Enabled());
    ui->sbUpperLimit->setValue(limits->Upper()->Value());
    ui->sbLowerLimit->setValue(limits->Lower()->Value());
    Step(80, QStringLiteral("Reading Limits LED and Buzzer"));
    ShowRow(ui->cbLimitLED, settings->LimitLED());
    ui->cbLimitBuzzer->setChecked(settings->LimitBuzzerEnable());
    ShowRow(ui->cbBuzzRate, settings->LimitBuzzerRate());
}

// Writing

void KRV_Settings_Dialog::on_cbBluetoothClass_currentIndexChanged(int index) {
    const auto bluetoothClass = static_cast<TavikLibrary::eKRV_BluetoothClass>(index + firstBluetoothClass);
    Write([&] { settings->setBluetoothClass(bluetoothClass); });
}

void KRV_Settings_Dialog::on_cbAutoPowerOffEnabled_clicked() {
    WriteAutoPowerOff(ui->cbAutoPowerOffEnabled, ui->sbAutoPowerOffTime,
                      [this](int seconds) { settings->setAutoPowerDownTime(seconds); });
}

void KRV_Settings_Dialog::on_sbAutoPowerOffTime_valueChanged(int arg1) {
    Write([&] { settings->setAutoPowerDownTime(arg1); });
}

void KRV_Settings_Dialog::on_sbResolution_valueChanged(int decimals) {
    Write([&] { settings->setDisplayedResolution(decimals); });
}

void KRV_Settings_Dialog::on_cbOrientation_currentIndexChanged(int index) {
    Write([&] { settings->setDisplayOrientation(static_cast<TavikLibrary::eKRV_DisplayOrientation>(index)); });
}

void KRV_Settings_Dialog::on_cbLayout_currentIndexChanged(int index) {
    Write([&] { settings->setDisplayLayout(static_cast<TavikLibrary::eKRV_DisplayLayout>(index)); });
}

void KRV_Settings_Dialog::on_cbReadingSource_currentIndexChanged(int index) {
    Write([&] { settings->setDisplayLargeSource(static_cast<TavikLibrary::eKRV_DisplayLargeSource>(index)); });
}

void KRV_Settings_Dialog::on_sbPreset_valueChanged(double value) {
    Write([&] { settings->setPresetValue(value); });
}

void KRV_Settings_Dialog::on_btnSavePreset_clicked() {
    // The tool saves preset and zero together.
    Write([&] { settings->SaveZero(); });
}

void KRV_Settings_Dialog::on_btnPreset_clicked() {
    Write([&] { settings->Preset(); });
}

void KRV_Settings_Dialog::on_btnSaveZero_clicked() {
    Write([&] { settings->SaveZero(); });
}

void KRV_Settings_Dialog::on_btnZero_clicked() {
    Write([&] { settings->Zero(); });
}

void KRV_Settings_Dialog::on_btnAbs_clicked() {
    Write([&] { settings->ABS(); });
}

void KRV_Settings_Dialog::on_btnResetMinMax_clicked() {
    Write([&] { settings->ResetMinMax(); });
}

void KRV_Settings_Dialog::WriteButtonFunctions() {
    Write([&] {
        settings->SetButtonFunctions(static_cast<eKRV_ButtonFunction>(ui->cbButton1Func->Value()),
                                     static_cast<eKRV_ButtonFunction>(ui->cbButton2Func->Value()));
    });
}

void KRV_Settings_Dialog::on_cbPowerOffBtn_currentIndexChanged(int index) {
    Write([&] { settings->setPowerOffButtonOptions(static_cast<TavikLibrary::eKRV_PowerOffButtonOptions>(index)); });
}

void KRV_Settings_Dialog::on_cbButtonBuzzer_clicked() {
    Write([&] { settings->setButtonBuzzerEnable(ui->cbButtonBuzzer->isChecked()); });
}

void KRV_Settings_Dialog::on_cbLimitsEnabled_clicked() {
    Write([&] { settings->Limits()->setEnabled(ui->cbLimitsEnabled->isChecked()); });
}

void KRV_Settings_Dialog::on_sbUpperLimit_valueChanged(double value) {
    Write([&] { settings->Limits()->Upper()->setValue(value); });
}

void KRV_Settings_Dialog::on_sbLowerLimit_valueChanged(double value) {
    Write([&] { settings->Limits()->Lower()->setValue(value); });
}

void KRV_Settings_Dialog::on_cbLimitLED_currentIndexChanged(int index) {
    Write([&] { settings->setLimitLED(static_cast<TavikLibrary::eKRV_LimitLED>(index)); });
}

void KRV_Settings_Dialog::on_cbLimitBuzzer_clicked() {
    Write([&] { settings->setLimitBuzzerEnable(ui->cbLimitBuzzer->isChecked()); });
}

void KRV_Settings_Dialog::on_cbBuzzRate_currentIndexChanged(int index) {
    Write([&] { settings->setLimitBuzzerRate(static_cast<TavikLibrary::eKRV_LimitBuzzerRate>(index)); });
}

void KRV_Settings_Dialog::on_cbOperationMode_currentIndexChanged(int index) {
    Write([&] { settings->setOperationMode(static_cast<TavikLibrary::eKRV_OperationMode>(index)); });
}

void KRV_Settings_Dialog::on_btnResetFactory_clicked() {
    ResetToFactory([this] { settings->ResetFactorySettings(); });
}
