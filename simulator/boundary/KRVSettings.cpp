#include "simulator/boundary/HandToolSettings.h"

namespace TavikLibrary {

using TavikSimulator::HandTool;

namespace {

constexpr int ShortestOffTime = 15; // seconds
constexpr int LongestOffTime = 9999;
constexpr double LargestPreset = 99999.0;

} // namespace

RLK_DeviceSettings_KRV::RLK_DeviceSettings_KRV(Implementation* settings) : RLK_DeviceSettingsBase(settings) {}

RLK_DeviceSettings_KRV::~RLK_DeviceSettings_KRV() = default;

// The display and the radio

eKRV_BluetoothClass RLK_DeviceSettings_KRV::BluetoothClass() {
    return implementation->GetEnum<eKRV_BluetoothClass>("BluetoothClass",
                                                        [](const HandTool& tool) { return tool.krv.bluetoothClass; });
}

void RLK_DeviceSettings_KRV::setBluetoothClass(eKRV_BluetoothClass value) {
    implementation->Ask(
        "setBluetoothClass",
        [&](HandTool& tool) {
            implementation->RequireWithin("The Bluetooth class", static_cast<int>(value), 1, 3);
            tool.krv.bluetoothClass = value;
        },
        value);
}

int RLK_DeviceSettings_KRV::AutoPowerDownTime() {
    return implementation->Get("AutoPowerDownTime", [](const HandTool& tool) { return tool.krv.autoPowerDownTime; });
}

void RLK_DeviceSettings_KRV::setAutoPowerDownTime(int seconds) {
    implementation->Ask(
        "setAutoPowerDownTime",
        [&](HandTool& tool) {
            if (seconds != 0) {
                implementation->RequireWithin("A time that is not 0", seconds, ShortestOffTime, LongestOffTime);
            }
            tool.krv.autoPowerDownTime = seconds;
        },
        seconds);
}

int RLK_DeviceSettings_KRV::DisplayedResolution() {
    return implementation->Get("DisplayedResolution", [](const HandTool& tool) { return tool.krv.resolution; });
}

void RLK_DeviceSettings_KRV::setDisplayedResolution(int decimals) {
    implementation->Ask(
        "setDisplayedResolution",
        [&](HandTool& tool) {
            implementation->RequireWithin("The resolution", decimals, 2, 5);
            tool.krv.resolution = decimals;
        },
        decimals);
}

eKRV_DisplayOrientation RLK_DeviceSettings_KRV::DisplayOrientation() {
    return implementation->GetEnum<eKRV_DisplayOrientation>("DisplayOrientation",
                                                            [](const HandTool& tool) { return tool.krv.orientation; });
}

void RLK_DeviceSettings_KRV::setDisplayOrientation(eKRV_DisplayOrientation value) {
    implementation->Ask(
        "setDisplayOrientation",
        [&](HandTool& tool) {
            implementation->RequireWithin("The orientation", static_cast<int>(value), 0, 4);
            tool.krv.orientation = value;
        },
        value);
}

eKRV_DisplayLayout RLK_DeviceSettings_KRV::DisplayLayout() {
    return implementation->GetEnum<eKRV_DisplayLayout>("DisplayLayout",
                                                       [](const HandTool& tool) { return tool.krv.layout; });
}

void RLK_DeviceSettings_KRV::setDisplayLayout(eKRV_DisplayLayout value) {
    implementation->Ask(
        "setDisplayLayout",
        [&](HandTool& tool) {
            implementation->RequireWithin("The layout", static_cast<int>(value), 0, 1);
            tool.krv.layout = value;
        },
        value);
}

eKRV_DisplayLargeSource RLK_DeviceSettings_KRV::DisplayLargeSource() {
    return implementation->GetEnum<eKRV_DisplayLargeSource>("DisplayLargeSource",
                                                            [](const HandTool& tool) { return tool.krv.largeSource; });
}

void RLK_DeviceSettings_KRV::setDisplayLargeSource(eKRV_DisplayLargeSource value) {
    implementation->Ask(
        "setDisplayLargeSource",
        [&](HandTool& tool) {
            implementation->RequireWithin("The reading source", static_cast<int>(value), 0, 1);
            tool.krv.largeSource = value;
        },
        value);
}

// Buttons

void RLK_DeviceSettings_KRV::GetButtonFunctions(eKRV_ButtonFunction& button1, eKRV_ButtonFunction& button2) {
    implementation->Get("GetButtonFunctions", [&](const HandTool& tool) {
        button1 = tool.krv.buttons[0];
        button2 = tool.krv.buttons[1];
    });
}

void RLK_DeviceSettings_KRV::SetButtonFunctions(eKRV_ButtonFunction button1, eKRV_ButtonFunction button2) {
    implementation->Ask(
        "SetButtonFunctions",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of button 1", static_cast<int>(button1), 0, 2);
            implementation->RequireWithin("The function of button 2", static_cast<int>(button2), 0, 2);
            tool.krv.buttons = {button1, button2};
        },
        button1, button2);
}

eKRV_PowerOffButtonOptions RLK_DeviceSettings_KRV::PowerOffButtonOptions() {
    return implementation->GetEnum<eKRV_PowerOffButtonOptions>("PowerOffButtonOptions",
                                                               [](const HandTool& tool) { return tool.krv.powerOff; });
}

void RLK_DeviceSettings_KRV::setPowerOffButtonOptions(eKRV_PowerOffButtonOptions value) {
    implementation->Ask(
        "setPowerOffButtonOptions",
        [&](HandTool& tool) {
            implementation->RequireWithin("The power off button", static_cast<int>(value), 0, 4);
            tool.krv.powerOff = value;
        },
        value);
}

bool RLK_DeviceSettings_KRV::ButtonBuzzerEnable() {
    return implementation->Get("ButtonBuzzerEnable", [](const HandTool& tool) { return tool.krv.buttonBuzzer; });
}

void RLK_DeviceSettings_KRV::setButtonBuzzerEnable(bool enabled) {
    implementation->Ask(
        "setButtonBuzzerEnable", [&](HandTool& tool) { tool.krv.buttonBuzzer = enabled; }, enabled);
}

// Limits

KRV_Limits* RLK_DeviceSettings_KRV::Limits() {
    return implementation->access.module.LocalOf(implementation->name, "Limits",
                                                 [this] { return &implementation->limits; });
}

eKRV_LimitLED RLK_DeviceSettings_KRV::LimitLED() {
    return implementation->GetEnum<eKRV_LimitLED>("LimitLED", [](const HandTool& tool) { return tool.krv.limitLED; });
}

void RLK_DeviceSettings_KRV::setLimitLED(eKRV_LimitLED value) {
    implementation->Ask(
        "setLimitLED",
        [&](HandTool& tool) {
            implementation->RequireWithin("The LED", static_cast<int>(value), 0, 3);
            tool.krv.limitLED = value;
        },
        value);
}

bool RLK_DeviceSettings_KRV::LimitBuzzerEnable() {
    return implementation->Get("LimitBuzzerEnable", [](const HandTool& tool) { return tool.krv.limitBuzzer; });
}

void RLK_DeviceSettings_KRV::setLimitBuzzerEnable(bool enabled) {
    implementation->Ask(
        "setLimitBuzzerEnable", [&](HandTool& tool) { tool.krv.limitBuzzer = enabled; }, enabled);
}

eKRV_LimitBuzzerRate RLK_DeviceSettings_KRV::LimitBuzzerRate() {
    return implementation->GetEnum<eKRV_LimitBuzzerRate>("LimitBuzzerRate",
                                                         [](const HandTool& tool) { return tool.krv.limitBuzzerRate; });
}

void RLK_DeviceSettings_KRV::setLimitBuzzerRate(eKRV_LimitBuzzerRate value) {
    implementation->Ask(
        "setLimitBuzzerRate",
        [&](HandTool& tool) {
            implementation->RequireWithin("The buzz rate", static_cast<int>(value), 0, 1);
            tool.krv.limitBuzzerRate = value;
        },
        value);
}

// Measuring

eKRV_OperationMode RLK_DeviceSettings_KRV::OperationMode() {
    return implementation->GetEnum<eKRV_OperationMode>("OperationMode",
                                                       [](const HandTool& tool) { return tool.krv.mode; });
}

void RLK_DeviceSettings_KRV::setOperationMode(eKRV_OperationMode value) {
    implementation->Ask(
        "setOperationMode",
        [&](HandTool& tool) {
            implementation->RequireWithin("The operation mode", static_cast<int>(value), 0, 7);
            tool.krv.mode = value;
        },
        value);
}

double RLK_DeviceSettings_KRV::PresetValue() {
    return implementation->Get("PresetValue", [](const HandTool& tool) { return tool.krv.preset; });
}

void RLK_DeviceSettings_KRV::setPresetValue(double value) {
    implementation->Ask(
        "setPresetValue",
        [&](HandTool& tool) {
            implementation->RequireWithin("The preset value", value, -LargestPreset, LargestPreset);
            tool.krv.preset = value;
        },
        value);
}

void RLK_DeviceSettings_KRV::Preset() {
    implementation->Ask("Preset", [this](HandTool& tool) { tool.Preset(implementation->access.Now()); });
}

void RLK_DeviceSettings_KRV::Zero() {
    implementation->Ask("Zero", [this](HandTool& tool) { tool.Zero(implementation->access.Now()); });
}

void RLK_DeviceSettings_KRV::SaveZero() {
    implementation->Ask("SaveZero", [](HandTool& tool) { tool.SaveDatum(); });
}

void RLK_DeviceSettings_KRV::ABS() {
    implementation->Ask("ABS", [](HandTool& tool) { tool.Absolute(); });
}

void RLK_DeviceSettings_KRV::ResetMinMax() {
    implementation->Ask("ResetMinMax", [this](HandTool& tool) { tool.ResetMinMax(implementation->access.Now()); });
}

void RLK_DeviceSettings_KRV::ResetFactorySettings() {
    implementation->Ask("ResetFactorySettings", [](HandTool& tool) { tool.ResetToFactory(); });
}

} // namespace TavikLibrary
