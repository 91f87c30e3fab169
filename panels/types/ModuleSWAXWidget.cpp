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

ModuleSWAXWidget::ModuleSWAXWidget(QWidget* parent)
    : TypePanelOf(parent, QStringLiteral("SWAX Module")), ui(std::make_unique<Ui::ModuleSWAXWidget>()) {
    ui->setupUi(this);
    CollectPinRows();
    // The grid must not jump about when a pin changes its direction.
    for (const PinRow& row : pinRows) {
        for (QRadioButton* button : {row.output.low, row.output.high, row.input.low, row.input.high}) {
            KeepSpaceWhenHidden(button);
        }
    }
}

ModuleSWAXWidget::~ModuleSWAXWidget() = default;

void ModuleSWAXWidget::CollectPinRows() {
    pinRows = {
        PinRow{ui->radioConfigInput1,
               ui->radioConfigOutput1,
               {ui->radioOutputLow1, ui->radioOutputHigh1},
               {ui->radioInputLow1, ui->radioInputHigh1}},
        PinRow{ui->radioConfigInput2,
               ui->radioConfigOutput2,
               {ui->radioOutputLow2, ui->radioOutputHigh2},
               {ui->radioInputLow2, ui->radioInputHigh2}},
        PinRow{ui->radioConfigInput3,
               ui->radioConfigOutput3,
               {ui->radioOutputLow3, ui->radioOutputHigh3},
               {ui->radioInputLow3, ui->radioInputHigh3}},
        PinRow{ui->radioConfigInput4,
               ui->radioConfigOutput4,
               {ui->radioOutputLow4, ui->radioOutputHigh4},
               {ui->radioInputLow4, ui->radioInputHigh4}},
        PinRow{ui->radioConfigInput5,
               ui->radioConfigOutput5,
               {ui->radioOutputLow5, ui->radioOutputHigh5},
               {ui->radioInputLow5, ui->radioInputHigh5}},
        PinRow{ui->radioConfigInput6,
               ui->radioConfigOutput6,
               {ui->radioOutputLow6, ui->radioOutputHigh6},
               {ui->radioInputLow6, ui->radioInputHigh6}},
        PinRow{ui->radioConfigInput7,
               ui->radioConfigOutput7,
               {ui->radioOutputLow7, ui->radioOutputHigh7},
               {ui->radioInputLow7, ui->radioInputHigh7}},
        PinRow{ui->radioConfigInput8,
               ui->radioConfigOutput8,
               {ui->radioOutputLow8, ui->radioOutputHigh8},
               {ui->radioInputLow8, ui->radioInputHigh8}},
    };
}

void ModuleSWAXWidget::Fill() {
    RefreshFromModule();
}

std::vector<QWidget*> ModuleSWAXWidget::Commands() const {
    std::vector<QWidget*> commands{ui->btnSetDebounce};
    for (const PinRow& row : pinRows) {
        commands.insert(commands.end(), {row.configInput, row.configOutput, row.output.low, row.output.high});
    }
    return commands;
}

bool ModuleSWAXWidget::RefreshFromModule() {
    return errors.Try([this] {
        for (int pin = 0; pin < pinCount; ++pin) {
            RefreshPin(pin);
        }
        ShowDebounceTime(ui->cbDebouncetime, module->DebounceTime());
    });
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
    if (errors.Try([&] { module->setPinConfiguration(pin, configuration); })) {
        RefreshFromModule();
    }
}

void ModuleSWAXWidget::DriveLow(int pin) {
    DriveOutput(pin, Row(pin).output.low->isChecked() ? 0 : 1);
}

void ModuleSWAXWidget::DriveHigh(int pin) {
    DriveOutput(pin, Row(pin).output.high->isChecked() ? 1 : 0);
}

void ModuleSWAXWidget::DriveOutput(int pin, int level) {
    if (errors.Try([&] { module->setOutputState(pin, level); })) {
        RefreshFromModule();
    }
}

void ModuleSWAXWidget::on_btnSetDebounce_clicked() {
    errors.Try([this] {
        if (const std::optional<int> milliseconds = SelectedDebounceTime(ui->cbDebouncetime)) {
            module->setDebounceTime(*milliseconds);
        }
    });
}
