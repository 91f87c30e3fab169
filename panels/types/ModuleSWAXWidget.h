#pragma once

#include "panels/types/DigitalIOControls.h"

#include <array>

namespace TavikLibrary {
class TavikModuleSWAX;
} // namespace TavikLibrary

namespace Ui {
class ModuleSWAXWidget;
}

/// The panel of a digital I/O module with 8 pins: direction, driven level or input level of each pin, and the
/// debounce time. Pins are numbered from 0 here as in the library, and from 1 on the form.
class ModuleSWAXWidget : public DigitalIOPanel<TavikLibrary::TavikModuleSWAX, Ui::ModuleSWAXWidget> {
    Q_OBJECT

public:
    explicit ModuleSWAXWidget(QWidget* parent);

protected:
    void ReadChannels() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_radioConfigInput1_clicked() { ConfigureAsInput(0); }
    void on_radioConfigInput2_clicked() { ConfigureAsInput(1); }
    void on_radioConfigInput3_clicked() { ConfigureAsInput(2); }
    void on_radioConfigInput4_clicked() { ConfigureAsInput(3); }
    void on_radioConfigInput5_clicked() { ConfigureAsInput(4); }
    void on_radioConfigInput6_clicked() { ConfigureAsInput(5); }
    void on_radioConfigInput7_clicked() { ConfigureAsInput(6); }
    void on_radioConfigInput8_clicked() { ConfigureAsInput(7); }

    void on_radioConfigOutput1_clicked() { ConfigureAsOutput(0); }
    void on_radioConfigOutput2_clicked() { ConfigureAsOutput(1); }
    void on_radioConfigOutput3_clicked() { ConfigureAsOutput(2); }
    void on_radioConfigOutput4_clicked() { ConfigureAsOutput(3); }
    void on_radioConfigOutput5_clicked() { ConfigureAsOutput(4); }
    void on_radioConfigOutput6_clicked() { ConfigureAsOutput(5); }
    void on_radioConfigOutput7_clicked() { ConfigureAsOutput(6); }
    void on_radioConfigOutput8_clicked() { ConfigureAsOutput(7); }

    void on_radioOutputLow1_clicked() { DriveLow(0); }
    void on_radioOutputLow2_clicked() { DriveLow(1); }
    void on_radioOutputLow3_clicked() { DriveLow(2); }
    void on_radioOutputLow4_clicked() { DriveLow(3); }
    void on_radioOutputLow5_clicked() { DriveLow(4); }
    void on_radioOutputLow6_clicked() { DriveLow(5); }
    void on_radioOutputLow7_clicked() { DriveLow(6); }
    void on_radioOutputLow8_clicked() { DriveLow(7); }

    void on_radioOutputHigh1_clicked() { DriveHigh(0); }
    void on_radioOutputHigh2_clicked() { DriveHigh(1); }
    void on_radioOutputHigh3_clicked() { DriveHigh(2); }
    void on_radioOutputHigh4_clicked() { DriveHigh(3); }
    void on_radioOutputHigh5_clicked() { DriveHigh(4); }
    void on_radioOutputHigh6_clicked() { DriveHigh(5); }
    void on_radioOutputHigh7_clicked() { DriveHigh(6); }
    void on_radioOutputHigh8_clicked() { DriveHigh(7); }

    void on_btnSetDebounce_clicked();

private:
    /// The buttons of one pin.
    struct PinRow {
        QRadioButton* configInput;
        QRadioButton* configOutput;
        RadioPair output;
        RadioPair input;
    };
    static constexpr int pinCount = 8;

    PinRow& Row(int pin) { return pinRows[static_cast<std::size_t>(pin)]; }
    void RefreshPin(int pin);
    void ShowDirection(const PinRow& row, bool isInput);

    // The common paths of the slots of all pins.
    void ConfigureAsInput(int pin);
    void ConfigureAsOutput(int pin);
    void ConfigurePin(int pin, int configuration);
    void DriveLow(int pin);
    void DriveHigh(int pin);
    void DriveOutput(int pin, int level);

    std::array<PinRow, pinCount> pinRows{};
};
