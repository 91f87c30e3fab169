#include "simulator/boundary/HandToolSettings.h"

namespace TavikLibrary {

using TavikSimulator::HandTool;

namespace {

constexpr int ShortestOffTime = 30; // seconds
constexpr int LongestOffTime = 9999;
constexpr int Channels = 8;

} // namespace

RLK_DeviceSettings_KRVX::RLK_DeviceSettings_KRVX(Implementation* settings) : RLK_DeviceSettingsBase(settings) {}

RLK_DeviceSettings_KRVX::~RLK_DeviceSettings_KRVX() = default;

int RLK_DeviceSettings_KRVX::OffTime() {
    return implementation->Get("OffTime", [](const HandTool& tool) { return tool.krvx.offTime; });
}

void RLK_DeviceSettings_KRVX::setOffTime(int seconds) {
    implementation->Ask(
        "setOffTime",
        [&](HandTool& tool) {
            if (seconds != 0) {
                implementation->RequireWithin("A time that is not 0", seconds, ShortestOffTime, LongestOffTime);
            }
            tool.krvx.offTime = seconds;
        },
        seconds);
}

eKRV_X_BuzzerFunction RLK_DeviceSettings_KRVX::BuzzerFunction() {
    return implementation->GetEnum<eKRV_X_BuzzerFunction>("BuzzerFunction",
                                                          [](const HandTool& tool) { return tool.krvx.buzzer; });
}

void RLK_DeviceSettings_KRVX::setBuzzerFunction(eKRV_X_BuzzerFunction value) {
    implementation->Ask(
        "setBuzzerFunction",
        [&](HandTool& tool) {
            implementation->RequireWithin("The buzzer", static_cast<int>(value), 0, 1);
            tool.krvx.buzzer = value;
        },
        value);
}

int RLK_DeviceSettings_KRVX::GetDisplayedResolution(int channel) {
    return implementation->Get(
        "GetDisplayedResolution",
        [&](const HandTool& tool) {
            implementation->RequireWithin("The channel", channel, 1, Channels);
            return tool.krvx.resolutions[static_cast<std::size_t>(channel - 1)];
        },
        channel);
}

void RLK_DeviceSettings_KRVX::SetDisplayedResolution(int channel, int resolution) {
    implementation->Ask(
        "SetDisplayedResolution",
        [&](HandTool& tool) {
            implementation->RequireWithin("The channel", channel, 1, Channels);
            implementation->RequireWithin("The resolution", resolution, 0, 5);
            tool.krvx.resolutions[static_cast<std::size_t>(channel - 1)] = resolution;
        },
        channel, resolution);
}

eKRV_DisplayOrientation RLK_DeviceSettings_KRVX::DisplayOrientation() {
    return implementation->GetEnum<eKRV_DisplayOrientation>("DisplayOrientation",
                                                            [](const HandTool& tool) { return tool.krvx.orientation; });
}

void RLK_DeviceSettings_KRVX::setDisplayOrientation(eKRV_DisplayOrientation value) {
    implementation->Ask(
        "setDisplayOrientation",
        [&](HandTool& tool) {
            implementation->RequireWithin("The orientation", static_cast<int>(value), 0, 4);
            tool.krvx.orientation = value;
        },
        value);
}

eKRV_X_DisplayMode RLK_DeviceSettings_KRVX::DisplayMode() {
    return implementation->GetEnum<eKRV_X_DisplayMode>("DisplayMode",
                                                       [](const HandTool& tool) { return tool.krvx.displayMode; });
}

void RLK_DeviceSettings_KRVX::setDisplayMode(eKRV_X_DisplayMode value) {
    implementation->Ask(
        "setDisplayMode",
        [&](HandTool& tool) {
            implementation->RequireWithin("The display mode", static_cast<int>(value), 0, 1);
            tool.krvx.displayMode = value;
        },
        value);
}

eKRV_X_ButtonFunction RLK_DeviceSettings_KRVX::Button1Function() {
    return implementation->GetEnum<eKRV_X_ButtonFunction>("Button1Function",
                                                          [](const HandTool& tool) { return tool.krvx.buttons[0]; });
}

void RLK_DeviceSettings_KRVX::setButton1Function(eKRV_X_ButtonFunction value) {
    implementation->Ask(
        "setButton1Function",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of button 1", static_cast<int>(value), 0, 2);
            tool.krvx.buttons[0] = value;
        },
        value);
}

eKRV_X_ButtonFunction RLK_DeviceSettings_KRVX::Button2Function() {
    return implementation->GetEnum<eKRV_X_ButtonFunction>("Button2Function",
                                                          [](const HandTool& tool) { return tool.krvx.buttons[1]; });
}

void RLK_DeviceSettings_KRVX::setButton2Function(eKRV_X_ButtonFunction value) {
    implementation->Ask(
        "setButton2Function",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of button 2", static_cast<int>(value), 0, 2);
            tool.krvx.buttons[1] = value;
        },
        value);
}

eKRV_X_LEDFunction RLK_DeviceSettings_KRVX::LED1Function() {
    return implementation->GetEnum<eKRV_X_LEDFunction>("LED1Function",
                                                       [](const HandTool& tool) { return tool.krvx.leds[0]; });
}

void RLK_DeviceSettings_KRVX::setLED1Function(eKRV_X_LEDFunction value) {
    implementation->Ask(
        "setLED1Function",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of LED 1", static_cast<int>(value), 0, 4);
            tool.krvx.leds[0] = value;
        },
        value);
}

eKRV_X_LEDFunction RLK_DeviceSettings_KRVX::LED2Function() {
    return implementation->GetEnum<eKRV_X_LEDFunction>("LED2Function",
                                                       [](const HandTool& tool) { return tool.krvx.leds[1]; });
}

void RLK_DeviceSettings_KRVX::setLED2Function(eKRV_X_LEDFunction value) {
    implementation->Ask(
        "setLED2Function",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of LED 2", static_cast<int>(value), 0, 4);
            tool.krvx.leds[1] = value;
        },
        value);
}

eKRV_X_LEDFunction RLK_DeviceSettings_KRVX::LED3Function() {
    return implementation->GetEnum<eKRV_X_LEDFunction>("LED3Function",
                                                       [](const HandTool& tool) { return tool.krvx.leds[2]; });
}

void RLK_DeviceSettings_KRVX::setLED3Function(eKRV_X_LEDFunction value) {
    implementation->Ask(
        "setLED3Function",
        [&](HandTool& tool) {
            implementation->RequireWithin("The function of LED 3", static_cast<int>(value), 0, 4);
            tool.krvx.leds[2] = value;
        },
        value);
}

void RLK_DeviceSettings_KRVX::ResetFactorySettings() {
    implementation->Ask("ResetFactorySettings", [](HandTool& tool) { tool.ResetToFactory(); });
}

} // namespace TavikLibrary
