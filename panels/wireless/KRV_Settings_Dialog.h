#pragma once

#include "panels/wireless/HandToolSettingsDialog.h"

namespace TavikLibrary {
class RLK_DeviceSettings_KRV;
}

namespace Ui {
class KRV_Settings_Dialog;
}

/// The settings of a single-channel hand tool.
class KRV_Settings_Dialog : public HandToolSettingsDialog {
    Q_OBJECT

public:
    /// Brings the tool into configuration mode, reads its settings and leaves the mode again, which takes
    /// seconds. The settings are those of a single-channel tool. Throws std::runtime_error when the tool
    /// cannot be read.
    KRV_Settings_Dialog(QWidget* parent, TavikLibrary::RLK_Device* device,
                        TavikLibrary::RLK_DeviceSettingsBase* settings);
    ~KRV_Settings_Dialog() override;

private slots:
    void on_cbAutoPowerOffEnabled_clicked();
    void on_cbBluetoothClass_currentIndexChanged(int index);
    void on_btnResetFactory_clicked();
    void on_sbAutoPowerOffTime_valueChanged(int arg1);
    void on_sbResolution_valueChanged(int decimals);
    void on_cbOrientation_currentIndexChanged(int index);
    void on_cbLayout_currentIndexChanged(int index);
    void on_cbReadingSource_currentIndexChanged(int index);
    void on_sbPreset_valueChanged(double value);
    void on_btnSavePreset_clicked();
    void on_btnPreset_clicked();
    void on_btnSaveZero_clicked();
    void on_btnZero_clicked();
    void on_btnAbs_clicked();
    void on_btnResetMinMax_clicked();
    void on_cbButton1Func_currentIndexChanged(int /*index*/) { WriteButtonFunctions(); }
    void on_cbButton2Func_currentIndexChanged(int /*index*/) { WriteButtonFunctions(); }
    void on_cbPowerOffBtn_currentIndexChanged(int index);
    void on_cbButtonBuzzer_clicked();
    void on_cbLimitsEnabled_clicked();
    void on_sbUpperLimit_valueChanged(double value);
    void on_sbLowerLimit_valueChanged(double value);
    void on_cbLimitLED_currentIndexChanged(int index);
    void on_cbLimitBuzzer_clicked();
    void on_cbBuzzRate_currentIndexChanged(int index);
    void on_cbOperationMode_currentIndexChanged(int index);
    void on_btnClose_clicked() { close(); }

private:
    void ReadSettings();
    void ReadDisplay();
    void ReadButtons();
    void ReadLimits();
    void WriteButtonFunctions();

    std::unique_ptr<Ui::KRV_Settings_Dialog> ui;
    TavikLibrary::RLK_DeviceSettings_KRV* settings;
};
