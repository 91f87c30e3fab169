#include "panels/airgauge/PNXConfigurationDialog.h"

#include "library/TavikModulePNX.h"
#include "panels/airgauge/LengthUnits.h"
#include "panels/common/HostWindow.h"
#include "panels/common/ModalDialog.h"
#include "ui_PNXConfigurationDialog.h"

#include <QInputDialog>

using TavikLibrary::ePNX_RotateDisplay;
using TavikLibrary::ePNX_UOM;

namespace {

constexpr int greatestPasscode = 99999999;

} // namespace

PNXConfigurationDialog::PNXConfigurationDialog(TavikLibrary::TavikModulePNX* newModule, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::PNXConfigurationDialog>()), module(newModule) {
    ui->setupUi(this);
    if (module->HasDisplay()) {
        ShowDisplaySettings();
    } else {
        DisableDisplaySettings();
    }
    ShowOutput();
}

PNXConfigurationDialog::~PNXConfigurationDialog() = default;

// Each value is read just before its control is set: a control that changes sends its new value to the
// gauge, and what is read next is what the gauge made of it.
void PNXConfigurationDialog::ShowDisplaySettings() {
    const ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    ui->cbScreenRotation->ShowValue(static_cast<int>(module->RotateDisplay()));
    ui->cbRotateKeyboard->setChecked(module->RotateKeyboard());
    ui->cbShowPSIReading->setChecked(module->ShowPSIReading());
    ui->cbDisplayUOM->ShowValue(static_cast<int>(unit));
    const double high = FromMillimetres(module->LimitHigh(), unit);
    ui->sbHighLimit->setDecimals(DecimalsOf(unit));
    ui->sbHighLimit->setValue(high);
    const double low = FromMillimetres(module->LimitLow(), unit);
    ui->sbLowLimit->setDecimals(DecimalsOf(unit));
    ui->sbLowLimit->setValue(low);
}

void PNXConfigurationDialog::DisableDisplaySettings() {
    ui->cbScreenRotation->setEnabled(false);
    ui->cbRotateKeyboard->setEnabled(false);
    ui->cbShowPSIReading->setEnabled(false);
    ui->cbDisplayUOM->setEnabled(false);
    ui->sbHighLimit->setEnabled(false);
    ui->sbLowLimit->setEnabled(false);
    ui->btnSetPassCode->setEnabled(false);
}

void PNXConfigurationDialog::ShowOutput() {
    try {
        ui->cbOutputPressure->setChecked(module->OutputReadingAsPressure());
    } catch (const std::runtime_error&) {
        // Not every air gauge can deliver its pressure.
        ui->cbOutputPressure->setEnabled(false);
    }
}

void PNXConfigurationDialog::on_cbScreenRotation_currentIndexChanged(int /*index*/) {
    errors.Try([this] { module->setRotateDisplay(static_cast<ePNX_RotateDisplay>(ui->cbScreenRotation->Value())); });
}

void PNXConfigurationDialog::on_cbRotateKeyboard_clicked() {
    errors.Try([this] { module->setRotateKeyboard(ui->cbRotateKeyboard->isChecked()); });
}

void PNXConfigurationDialog::on_cbShowPSIReading_clicked() {
    errors.Try([this] { module->setShowPSIReading(ui->cbShowPSIReading->isChecked()); });
}

void PNXConfigurationDialog::on_cbOutputPressure_clicked() {
    errors.Try([this] { module->setOutputReadingAsPressure(ui->cbOutputPressure->isChecked()); });
}

void PNXConfigurationDialog::on_cbDisplayUOM_currentIndexChanged(int /*index*/) {
    errors.Try([this] {
        const auto unit = static_cast<ePNX_UOM>(ui->cbDisplayUOM->Value());
        module->setDisplayUnitsOfMeasure(unit);
        UseDecimalsOf(unit);
        // Deliberate: the limits are shown in millimetres here, whatever the unit.
        ui->sbLowLimit->setValue(module->LimitLow());
        ui->sbHighLimit->setValue(module->LimitHigh());
    });
}

void PNXConfigurationDialog::UseDecimalsOf(ePNX_UOM unit) {
    ui->sbHighLimit->setDecimals(DecimalsOf(unit));
    ui->sbLowLimit->setDecimals(DecimalsOf(unit));
}

void PNXConfigurationDialog::on_sbHighLimit_valueChanged(double arg1) {
    errors.Try([&] { module->setLimitHigh(arg1); });
}

void PNXConfigurationDialog::on_sbLowLimit_valueChanged(double value) {
    errors.Try([&] { module->setLimitLow(value); });
}

void PNXConfigurationDialog::on_btnSetPassCode_clicked() {
    ModalDialog<QInputDialog> entry(this);
    entry->setWindowTitle(QStringLiteral("Enter Passcode"));
    entry->setLabelText(QStringLiteral("Enter the pascode (0 to 99999999)."));
    entry->setInputMode(QInputDialog::IntInput);
    entry->setIntRange(0, greatestPasscode);
    // The entry is this dialog's child: while it is alive, this dialog is.
    if (entry.Run() == QDialog::Accepted && entry.IsAlive() && !HostWindow::IsClosingOver(this)) {
        errors.Try([&] { module->setPasscode(entry->intValue()); });
    }
}

void PNXConfigurationDialog::on_btnResetToFactory_clicked() {
    errors.Try([this] { module->ResetFactorySettings(); });
}
