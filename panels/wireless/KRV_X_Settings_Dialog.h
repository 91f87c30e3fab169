#pragma once

#include "panels/wireless/HandToolSettingsDialog.h"

#include <array>

namespace TavikLibrary {
class RLK_DeviceSettings_KRVX;
}

namespace Ui {
class KRV_X_Settings_Dialog;
}

/// The settings of an eight-channel hand tool.
class KRV_X_Settings_Dialog : public HandToolSettingsDialog {
    Q_OBJECT

public:
    /// Brings the tool into configuration mode, reads its settings and leaves the mode again, which takes
    /// seconds. The settings are those of an eight-channel tool. Throws std::runtime_error when the tool
    /// cannot be read.
    KRV_X_Settings_Dialog(QWidget* parent, TavikLibrary::RLK_Device* device,
                          TavikLibrary::RLK_DeviceSettingsBase* settings);
    ~KRV_X_Settings_Dialog() override;

private slots:
    void on_btnResetToFactory_clicked();
    void on_cbAutoPowerOffEnabled_clicked();
    void on_sbAutoPowerOffTime_valueChanged(int arg1);
    void on_cbBuzzer_currentIndexChanged(int index);
    void on_btnClose_clicked() { close(); }
    void on_sbChRes1_valueChanged(int decimals) { WriteResolution(1, decimals); }
    void on_sbChRes2_valueChanged(int decimals) { WriteResolution(2, decimals); }
    void on_sbChRes3_valueChanged(int decimals) { WriteResolution(3, decimals); }
    void on_sbChRes4_valueChanged(int decimals) { WriteResolution(4, decimals); }
    void on_sbChRes5_valueChanged(int decimals) { WriteResolution(5, decimals); }
    void on_sbChRes6_valueChanged(int decimals) { WriteResolution(6, decimals); }
    void on_sbChRes7_valueChanged(int decimals) { WriteResolution(7, decimals); }
    void on_sbChRes8_valueChanged(int decimals) { WriteResolution(8, decimals); }
    void on_cbOrientation_currentIndexChanged(int index);
    void on_cbMode_currentIndexChanged(int index);
    void on_cbButton1Conf_currentIndexChanged(int index);
    void on_cbButton2Conf_currentIndexChanged(int index);
    void on_cbLED1_currentIndexChanged(int index);
    void on_cbLED2_currentIndexChanged(int index);
    void on_cbLED3_currentIndexChanged(int index);

private:
    static constexpr int channels = 8;

    void ReadSettings();
    void ReadResolutions();
    /// Deliberate: also while the form is being filled, which brings the tool's resolution into the form's range.
    void WriteResolution(int channel, int decimals);

    std::unique_ptr<Ui::KRV_X_Settings_Dialog> ui;
    TavikLibrary::RLK_DeviceSettings_KRVX* settings;
};
