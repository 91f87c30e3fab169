#pragma once

#include "panels/types/DigitalIOControls.h"

#include <array>

namespace TavikLibrary {
class TavikModuleSWAX2;
} // namespace TavikLibrary

namespace Ui {
class ModuleSWAX2Widget;
}

/// The panel of a digital I/O module of the second generation: 4 outputs and 6 inputs, for each the level that
/// counts as active, the output mode and the debounce time. Outputs and inputs are each numbered from 1 here, as
/// on the form; the library's pins 0 to 3 are the outputs and 4 to 9 the inputs.
class ModuleSWAX2Widget : public DigitalIOPanel<TavikLibrary::TavikModuleSWAX2, Ui::ModuleSWAX2Widget> {
    Q_OBJECT

public:
    explicit ModuleSWAX2Widget(QWidget* parent);

protected:
    void ReadChannels() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_radioOutputLow1_clicked() { DriveInactive(1); }
    void on_radioOutputLow2_clicked() { DriveInactive(2); }
    void on_radioOutputLow3_clicked() { DriveInactive(3); }
    void on_radioOutputLow4_clicked() { DriveInactive(4); }

    void on_radioOutputHigh1_clicked() { DriveActive(1); }
    void on_radioOutputHigh2_clicked() { DriveActive(2); }
    void on_radioOutputHigh3_clicked() { DriveActive(3); }
    void on_radioOutputHigh4_clicked() { DriveActive(4); }

    void on_radioActiveStateLowOut1_clicked() { SetOutputActiveLow(1); }
    void on_radioActiveStateLowOut2_clicked() { SetOutputActiveLow(2); }
    void on_radioActiveStateLowOut3_clicked() { SetOutputActiveLow(3); }
    void on_radioActiveStateLowOut4_clicked() { SetOutputActiveLow(4); }

    void on_radioActiveStateHighOut1_clicked() { SetOutputActiveHigh(1); }
    void on_radioActiveStateHighOut2_clicked() { SetOutputActiveHigh(2); }
    void on_radioActiveStateHighOut3_clicked() { SetOutputActiveHigh(3); }
    void on_radioActiveStateHighOut4_clicked() { SetOutputActiveHigh(4); }

    void on_radioActiveStateLowIn1_clicked() { SetInputActiveLow(1); }
    void on_radioActiveStateLowIn2_clicked() { SetInputActiveLow(2); }
    void on_radioActiveStateLowIn3_clicked() { SetInputActiveLow(3); }
    void on_radioActiveStateLowIn4_clicked() { SetInputActiveLow(4); }
    void on_radioActiveStateLowIn5_clicked() { SetInputActiveLow(5); }
    void on_radioActiveStateLowIn6_clicked() { SetInputActiveLow(6); }

    void on_radioActiveStateHighIn1_clicked() { SetInputActiveHigh(1); }
    void on_radioActiveStateHighIn2_clicked() { SetInputActiveHigh(2); }
    void on_radioActiveStateHighIn3_clicked() { SetInputActiveHigh(3); }
    void on_radioActiveStateHighIn4_clicked() { SetInputActiveHigh(4); }
    void on_radioActiveStateHighIn5_clicked() { SetInputActiveHigh(5); }
    void on_radioActiveStateHighIn6_clicked() { SetInputActiveHigh(6); }

    void on_btnSetDebounce_clicked();
    void on_btnSetOutputMode_clicked();

private:
    /// The buttons of one output or input.
    struct ChannelRow {
        RadioPair state;
        RadioPair activeState;
    };
    static constexpr int outputCount = 4;
    static constexpr int inputCount = 6;

    ChannelRow& OutputRow(int number) { return outputRows[static_cast<std::size_t>(number - 1)]; }
    ChannelRow& InputRow(int number) { return inputRows[static_cast<std::size_t>(number - 1)]; }
    void RefreshOutput(int number);
    void RefreshInput(int number);

    // The common paths of the slots of all channels.
    void DriveInactive(int number);
    void DriveActive(int number);
    void DriveOutput(int number, int state);
    void SetOutputActiveLow(int number);
    void SetOutputActiveHigh(int number);
    void SetOutputPolarity(int number, int value);
    void SetInputActiveLow(int number);
    void SetInputActiveHigh(int number);
    void SetInputPolarity(int number, int value);

    std::array<ChannelRow, outputCount> outputRows{};
    std::array<ChannelRow, inputCount> inputRows{};
};
