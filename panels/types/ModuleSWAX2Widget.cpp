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

ModuleSWAX2Widget::ModuleSWAX2Widget(QWidget* parent)
    : TypePanelOf(parent, QStringLiteral("SWAX2 Module")), ui(std::make_unique<Ui::ModuleSWAX2Widget>()) {
    ui->setupUi(this);
    CollectRows();
}

ModuleSWAX2Widget::~ModuleSWAX2Widget() = default;

void ModuleSWAX2Widget::CollectRows() {
    outputRows = {
        ChannelRow{{ui->radioOutputLow1, ui->radioOutputHigh1},
                   {ui->radioActiveStateLowOut1, ui->radioActiveStateHighOut1}},
        ChannelRow{{ui->radioOutputLow2, ui->radioOutputHigh2},
                   {ui->radioActiveStateLowOut2, ui->radioActiveStateHighOut2}},
        ChannelRow{{ui->radioOutputLow3, ui->radioOutputHigh3},
                   {ui->radioActiveStateLowOut3, ui->radioActiveStateHighOut3}},
        ChannelRow{{ui->radioOutputLow4, ui->radioOutputHigh4},
                   {ui->radioActiveStateLowOut4, ui->radioActiveStateHighOut4}},
    };
    inputRows = {
        ChannelRow{{ui->radioInputLow1, ui->radioInputHigh1},
                   {ui->radioActiveStateLowIn1, ui->radioActiveStateHighIn1}},
        ChannelRow{{ui->radioInputLow2, ui->radioInputHigh2},
                   {ui->radioActiveStateLowIn2, ui->radioActiveStateHighIn2}},
        ChannelRow{{ui->radioInputLow3, ui->radioInputHigh3},
                   {ui->radioActiveStateLowIn3, ui->radioActiveStateHighIn3}},
        ChannelRow{{ui->radioInputLow4, ui->radioInputHigh4},
                   {ui->radioActiveStateLowIn4, ui->radioActiveStateHighIn4}},
        ChannelRow{{ui->radioInputLow5, ui->radioInputHigh5},
                   {ui->radioActiveStateLowIn5, ui->radioActiveStateHighIn5}},
        ChannelRow{{ui->radioInputLow6, ui->radioInputHigh6},
                   {ui->radioActiveStateLowIn6, ui->radioActiveStateHighIn6}},
    };
}

void ModuleSWAX2Widget::Fill() {
    RefreshFromModule();
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

bool ModuleSWAX2Widget::RefreshFromModule() {
    return errors.Try([this] {
        for (int number = 1; number <= outputCount; ++number) {
            RefreshOutput(number);
        }
        for (int number = 1; number <= inputCount; ++number) {
            RefreshInput(number);
        }
        ShowDebounceTime(ui->cbDebouncetime, module->DebounceTime());
        SelectIndexOf(ui->cbOutputMode, module->OutputMode());
    });
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
    if (errors.Try([&] { module->setOutputState(firstOutputPin + number - 1, state); })) {
        RefreshFromModule();
    }
}

void ModuleSWAX2Widget::SetOutputActiveLow(int number) {
    SetOutputPolarity(number, OutputRow(number).activeState.low->isChecked() ? 0 : 1);
}

void ModuleSWAX2Widget::SetOutputActiveHigh(int number) {
    SetOutputPolarity(number, OutputRow(number).activeState.high->isChecked() ? 1 : 0);
}

void ModuleSWAX2Widget::SetOutputPolarity(int number, int value) {
    if (errors.Try([&] { module->setOutPolarityMask(WithPolarity(module->OutPolarityMask(), number, value)); })) {
        RefreshFromModule();
    }
}

void ModuleSWAX2Widget::SetInputActiveLow(int number) {
    SetInputPolarity(number, InputRow(number).activeState.low->isChecked() ? 0 : 1);
}

void ModuleSWAX2Widget::SetInputActiveHigh(int number) {
    SetInputPolarity(number, InputRow(number).activeState.high->isChecked() ? 1 : 0);
}

void ModuleSWAX2Widget::SetInputPolarity(int number, int value) {
    if (errors.Try([&] { module->setInPolarityMask(WithPolarity(module->InPolarityMask(), number, value)); })) {
        RefreshFromModule();
    }
}

void ModuleSWAX2Widget::on_btnSetDebounce_clicked() {
    errors.Try([this] {
        if (const std::optional<int> milliseconds = SelectedDebounceTime(ui->cbDebouncetime)) {
            module->setDebounceTime(*milliseconds);
        }
    });
}

void ModuleSWAX2Widget::on_btnSetOutputMode_clicked() {
    errors.Try([this] { module->setOutputMode(CurrentIndexAs<TavikLibrary::eDIOOutputMode>(ui->cbOutputMode)); });
}
