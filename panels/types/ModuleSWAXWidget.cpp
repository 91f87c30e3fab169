#include "panels/types/ModuleSWAXWidget.h"

#include "library/TavikModuleDigitalIO.h"
#include "ui_ModuleSWAXWidget.h"

namespace {

/// What the library calls an input; any other configuration is an output.
constexpr int inputConfiguration = 1;

void KeepSpaceWhenHidden(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

void SetVisible(const RadioPair& pair, bool visible) {
    pair.low->setVisible(visible);
    pair.high->setVisible(visible);
}

} // namespace

ModuleSWAXWidget::ModuleSWAXWidget(QWidget* parent) : DigitalIOPanel(parent, QStringLiteral("SWAX Module")) {
    ui->setupUi(this);
    for (int pin = 0; pin < pinCount; ++pin) {
        const RadioPair direction = FindPair(this, "radioConfigInput", "radioConfigOutput", pin + 1);
        Row(pin) = {direction.low, direction.high, FindPair(this, "radioOutputLow", "radioOutputHigh", pin + 1),
                    FindInputPair(this, pin + 1)};
        // The grid must not jump about when a pin changes its direction.
        for (QRadioButton* button :
             {Row(pin).output.low, Row(pin).output.high, Row(pin).input.low, Row(pin).input.high}) {
            KeepSpaceWhenHidden(button);
        }
    }
}

std::vector<QWidget*> ModuleSWAXWidget::Commands() const {
    std::vector<QWidget*> commands{ui->btnSetDebounce};
    for (const PinRow& row : pinRows) {
        commands.insert(commands.end(), {row.configInput, row.configOutput, row.output.low, row.output.high});
    }
    return commands;
}

void ModuleSWAXWidget::ReadChannels() {
    for (int pin = 0; pin < pinCount; ++pin) {
        RefreshPin(pin);
    }
    ShowDebounceTime(ui->cbDebouncetime, module->DebounceTime());
}

void ModuleSWAXWidget::RefreshPin(int pin) {
    const PinRow& row = Row(pin);
    const bool isInput = module->PinConfiguration(pin) == inputConfiguration;
    ShowDirection(row, isInput);
    if (isInput) {
        ShowLevel(row.input, [&] { return module->InputState(pin); });
    } else {
        ShowLevel(row.output, [&] { return module->OutputState(pin); });
    }
}

void ModuleSWAXWidget::ShowDirection(const PinRow& row, bool isInput) {
    Check(row.configInput, isInput);
    Check(row.configOutput, !isInput);
    SetVisible(row.input, isInput);
    SetVisible(row.output, !isInput);
}

void ModuleSWAXWidget::ConfigureAsInput(int pin) {
    ConfigurePin(pin, Row(pin).configInput->isChecked() ? 1 : 0);
}

void ModuleSWAXWidget::ConfigureAsOutput(int pin) {
    ConfigurePin(pin, Row(pin).configOutput->isChecked() ? 0 : 1);
}

void ModuleSWAXWidget::ConfigurePin(int pin, int configuration) {
    Change([&] { module->setPinConfiguration(pin, configuration); });
}

void ModuleSWAXWidget::DriveLow(int pin) {
    DriveOutput(pin, Row(pin).output.low->isChecked() ? 0 : 1);
}

void ModuleSWAXWidget::DriveHigh(int pin) {
    DriveOutput(pin, Row(pin).output.high->isChecked() ? 1 : 0);
}

void ModuleSWAXWidget::DriveOutput(int pin, int level) {
    Change([&] { module->setOutputState(pin, level); });
}

void ModuleSWAXWidget::on_btnSetDebounce_clicked() {
    SendDebounceTime(ui->cbDebouncetime);
}
