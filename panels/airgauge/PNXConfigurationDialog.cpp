#include "panels/airgauge/PNXConfigurationDialog.h"

#include "library/TavikModulePNX.h"
#include "panels/airgauge/LengthUnits.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "ui_PNXConfigurationDialog.h"

#include <QInputDialog>
#include <QPointer>

#include <utility>

using TavikLibrary::ePNX_RotateDisplay;
using TavikLibrary::ePNX_UOM;

namespace {

constexpr int greatestPasscode = 99999999;

/// Runs a slot's calls with the box that all of them share.
template <class Calls>
void GuardedSetting(QWidget* parent, Calls&& calls) {
    ErrorBox(parent, QStringLiteral("PNX Module")).Try(std::forward<Calls>(calls));
}

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
    ui->cbScreenRotation->setCurrentIndex(static_cast<int>(module->RotateDisplay()));
    ui->cbRotateKeyboard->setChecked(module->RotateKeyboard());
    ui->cbShowPSIReading->setChecked(module->ShowPSIReading());
    ui->cbDisplayUOM->setCurrentIndex(static_cast<int>(unit));
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

void PNXConfigurationDialog::on_cbScreenRotation_currentIndexChanged(int index) {
    GuardedSetting(this, [&] { module->setRotateDisplay(static_cast<ePNX_RotateDisplay>(index)); });
}

void PNXConfigurationDialog::on_cbRotateKeyboard_clicked() {
    GuardedSetting(this, [this] { module->setRotateKeyboard(ui->cbRotateKeyboard->isChecked()); });
}

void PNXConfigurationDialog::on_cbShowPSIReading_clicked() {
    GuardedSetting(this, [this] { module->setShowPSIReading(ui->cbShowPSIReading->isChecked()); });
}

void PNXConfigurationDialog::on_cbOutputPressure_clicked() {
    GuardedSetting(this, [this] { module->setOutputReadingAsPressure(ui->cbOutputPressure->isChecked()); });
}

void PNXConfigurationDialog::on_cbDisplayUOM_currentIndexChanged(int index) {
    GuardedSetting(this, [&] {
        const auto unit = static_cast<ePNX_UOM>(index);
        module->setDisplayUnitsOfMeasure(unit);
        UseDecimalsOf(unit);
        // The limits stand here in millimetres, whatever the unit, as operators of this tool are used to.
        ui->sbLowLimit->setValue(module->LimitLow());
        ui->sbHighLimit->setValue(module->LimitHigh());
    });
}

void PNXConfigurationDialog::UseDecimalsOf(ePNX_UOM unit) {
    ui->sbHighLimit->setDecimals(DecimalsOf(unit));
    ui->sbLowLimit->setDecimals(DecimalsOf(unit));
}

void PNXConfigurationDialog::on_sbHighLimit_valueChanged(double arg1) {
    GuardedSetting(this, [&] { module->setLimitHigh(arg1); });
}

void PNXConfigurationDialog::on_sbLowLimit_valueChanged(double value) {
    GuardedSetting(this, [&] { module->setLimitLow(value); });
}

void PNXConfigurationDialog::on_btnSetPassCode_clicked() {
    const QPointer<PNXConfigurationDialog> stillThere(this);
    bool accepted = false;
    const int passcode = QInputDialog::getInt(this, QStringLiteral("Enter Passcode"),
                                              QStringLiteral("Enter the pascode (0 to 99999999)."), 0, 0,
                                              greatestPasscode, 1, &accepted);
    if (accepted && stillThere != nullptr && !HostWindow::IsClosingOver(this)) {
        GuardedSetting(this, [&] { module->setPasscode(passcode); });
    }
}

void PNXConfigurationDialog::on_btnResetToFactory_clicked() {
    GuardedSetting(this, [this] { module->ResetFactorySettings(); });
}

void PNXConfigurationDialog::on_btnClose_clicked() {
    close();
}
