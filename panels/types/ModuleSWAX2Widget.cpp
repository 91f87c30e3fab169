#include "panels/types/ModuleSWAX2Widget.h"

#include "library/TavikModuleDigitalIO.h"
#include "panels/types/RowValues.h"
#include "ui_ModuleSWAX2Widget.h"

namespace {

/// The library's pins of the first output and of the first input.
constexpr int firstOutputPin = 0;
constexpr int firstInputPin = 4;

/// The polarity of a channel: 1 when its active state is the high level.
int PolarityOf(unsigned short mask, int number) {
    return (mask >> (number - 1)) & 1;
}

/// The mask with the polarity of one channel changed; all other bits are kept.
unsigned short WithPolarity(unsigned short mask, int number, int value) {
    const int bit = 1 << (number - 1);
    return static_cast<unsigned short>(value == 1 ? mask | bit : mask & ~bit);
}

void ShowPolarity(const RadioPair& pair, int polarity) {
    Check(pair.low, polarity == 0);
    Check(pair.high, polarity == 1);
}

} // namespace

ModuleSWAX2Widget::ModuleSWAX2Widget(QWidget* parent) : DigitalIOPanel(parent, QStringLiteral("SWAX2 Module")) {
    ui->setupUi(this);
    for (int number = 1; number <= outputCount; ++number) {
        OutputRow(number) = {FindPair(this, "radioOutputLow", "radioOutputHigh", number),
                             FindPair(this, "radioActiveStateLowOut", "radioActiveStateHighOut", number)};
    }
    for (int number = 1; number <= inputCount; ++number) {
        InputRow(number) = {FindInputPair(this, number),
                            FindPair(this, "radioActiveStateLowIn", "radioActiveStateHighIn", number)};
    }
}

std::vector<QWidget*> ModuleSWAX2Widget::Commands() const {
    std::vector<QWidget*> commands{ui->btnSetOutputMode, ui->btnSetDebounce};
    for (const ChannelRow& row : outputRows) {
        commands.insert(commands.end(), {row.state.low, row.state.high, row.activeState.low, row.activeState.high});
    }
    for (const ChannelRow& row : inputRows) {
        commands.insert(commands.end(), {row.activeState.low, row.activeState.high});
    }
    return commands;
}

void ModuleSWAX2Widget::ReadChannels() {
    for (int number = 1; number <= outputCount; ++number) {
        RefreshOutput(number);
    }
    for (int number = 1; number <= inputCount; ++number) {
        RefreshInput(number);
    }
    ShowDebounceTime(ui->cbDebouncetime, module->DebounceTime());
    SelectIndexOf(ui->cbOutputMode, module->OutputMode());
}

// The masks are read afresh for every channel, so that each row shows what held when it was refreshed.

void ModuleSWAX2Widget::RefreshOutput(int number) {
    const ChannelRow& row = OutputRow(number);
    ShowLevel(row.state, [&] { return module->OutputState(firstOutputPin + number - 1); });
    ShowPolarity(row.activeState, PolarityOf(module->OutPolarityMask(), number));
}

void ModuleSWAX2Widget::RefreshInput(int number) {
    const ChannelRow& row = InputRow(number);
    ShowLevel(row.state, [&] { return module->InputState(firstInputPin + number - 1); });
    ShowPolarity(row.activeState, PolarityOf(module->InPolarityMask(), number));
}

void ModuleSWAX2Widget::DriveInactive(int number) {
    DriveOutput(number, OutputRow(number).state.low->isChecked() ? 0 : 1);
}

void ModuleSWAX2Widget::DriveActive(int number) {
    DriveOutput(number, OutputRow(number).state.high->isChecked() ? 1 : 0);
}

void ModuleSWAX2Widget::DriveOutput(int number, int state) {
    Change([&] { module->setOutputState(firstOutputPin + number - 1, state); });
}

void ModuleSWAX2Widget::SetOutputActiveLow(int number) {
    SetOutputPolarity(number, OutputRow(number).activeState.low->isChecked() ? 0 : 1);
}

void ModuleSWAX2Widget::SetOutputActiveHigh(int number) {
    SetOutputPolarity(number, OutputRow(number).activeState.high->isChecked() ? 1 : 0);
}

void ModuleSWAX2Widget::SetOutputPolarity(int number, int value) {
    Change([&] { module->setOutPolarityMask(WithPolarity(module->OutPolarityMask(), number, value)); });
}

void ModuleSWAX2Widget::SetInputActiveLow(int number) {
    SetInputPolarity(number, InputRow(number).activeState.low->isChecked() ? 0 : 1);
}

void ModuleSWAX2Widget::SetInputActiveHigh(int number) {
    SetInputPolarity(number, InputRow(number).activeState.high->isChecked() ? 1 : 0);
}

void ModuleSWAX2Widget::SetInputPolarity(int number, int value) {
    Change([&] { module->setInPolarityMask(WithPolarity(module->InPolarityMask(), number, value)); });
}

void ModuleSWAX2Widget::on_btnSetDebounce_clicked() {
    SendDebounceTime(ui->cbDebouncetime);
}

void ModuleSWAX2Widget::on_btnSetOutputMode_clicked() {
    errors.Try([this] { module->setOutputMode(CurrentIndexAs<TavikLibrary::eDIOOutputMode>(ui->cbOutputMode)); });
}
