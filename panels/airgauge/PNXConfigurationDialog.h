#pragma once

#include "panels/common/MessageBoxes.h"

#include <QDialog>

#include <memory>

namespace TavikLibrary {
enum class ePNX_UOM : int;
class TavikModulePNX;
} // namespace TavikLibrary

namespace Ui {
class PNXConfigurationDialog;
}

/// The settings of an air gauge. Every change is sent to the gauge at once, those that filling the dialog
/// makes to its controls as well.
class PNXConfigurationDialog : public QDialog {
    Q_OBJECT

public:
    /// Fills the dialog. Throws std::runtime_error when the gauge cannot be asked.
    PNXConfigurationDialog(TavikLibrary::TavikModulePNX* module, QWidget* parent);
    ~PNXConfigurationDialog() override;

private slots:
    void on_cbScreenRotation_currentIndexChanged(int index);
    void on_cbRotateKeyboard_clicked();
    void on_cbShowPSIReading_clicked();
    void on_cbOutputPressure_clicked();
    void on_cbDisplayUOM_currentIndexChanged(int index);
    void on_sbHighLimit_valueChanged(double arg1);
    void on_sbLowLimit_valueChanged(double value);
    void on_btnSetPassCode_clicked();
    void on_btnResetToFactory_clicked();
    void on_btnClose_clicked() { close(); }

private:
    void ShowDisplaySettings();
    void DisableDisplaySettings();
    void ShowOutput();
    void UseDecimalsOf(TavikLibrary::ePNX_UOM unit);

    std::unique_ptr<Ui::PNXConfigurationDialog> ui;
    TavikLibrary::TavikModulePNX* module;
    const ErrorBox errors{this, QStringLiteral("PNX Module")};
};
