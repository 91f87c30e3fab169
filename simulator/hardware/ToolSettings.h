#pragma once

#include "library/TavikRLKSettings.h"

#include <array>

// Settings in a hand tool's memory, with factory defaults.
namespace TavikSimulator {

struct KRVSettings {
    TavikLibrary::eKRV_BluetoothClass bluetoothClass = TavikLibrary::eKRV_BluetoothClass::Class2;
    int autoPowerDownTime = 300; ///< in seconds; 0 for never
    int resolution = 4;          ///< decimal places
    TavikLibrary::eKRV_DisplayOrientation orientation = TavikLibrary::eKRV_DisplayOrientation::Rotate0;
    TavikLibrary::eKRV_DisplayLayout layout = TavikLibrary::eKRV_DisplayLayout::Standard;
    TavikLibrary::eKRV_DisplayLargeSource largeSource = TavikLibrary::eKRV_DisplayLargeSource::Current;
    double preset = 0.0;
    std::array<TavikLibrary::eKRV_ButtonFunction, 2> buttons = {TavikLibrary::eKRV_ButtonFunction::Tag,
                                                                TavikLibrary::eKRV_ButtonFunction::Zero};
    TavikLibrary::eKRV_PowerOffButtonOptions powerOff = TavikLibrary::eKRV_PowerOffButtonOptions::BothButtons;
    bool buttonBuzzer = true;
    bool limitsEnabled = false;
    double upperLimit = 1.0;
    double lowerLimit = -1.0;
    TavikLibrary::eKRV_LimitLED limitLED = TavikLibrary::eKRV_LimitLED::Both;
    bool limitBuzzer = false;
    TavikLibrary::eKRV_LimitBuzzerRate limitBuzzerRate = TavikLibrary::eKRV_LimitBuzzerRate::ThreeFastOnFail;
    TavikLibrary::eKRV_OperationMode mode = TavikLibrary::eKRV_OperationMode::Normal;
};

struct KRVXSettings {
    int offTime = 300; ///< in seconds; 0 for never
    TavikLibrary::eKRV_X_BuzzerFunction buzzer = TavikLibrary::eKRV_X_BuzzerFunction::TagTaken;
    std::array<int, 8> resolutions = {4, 4, 4, 4, 4, 4, 4, 4}; ///< decimal places
    TavikLibrary::eKRV_DisplayOrientation orientation = TavikLibrary::eKRV_DisplayOrientation::AutoRotate;
    TavikLibrary::eKRV_X_DisplayMode displayMode = TavikLibrary::eKRV_X_DisplayMode::Charts;
    std::array<TavikLibrary::eKRV_X_ButtonFunction, 2> buttons = {TavikLibrary::eKRV_X_ButtonFunction::Tag,
                                                                  TavikLibrary::eKRV_X_ButtonFunction::PowerOff};
    std::array<TavikLibrary::eKRV_X_LEDFunction, 3> leds = {TavikLibrary::eKRV_X_LEDFunction::Streaming,
                                                            TavikLibrary::eKRV_X_LEDFunction::RangeError,
                                                            TavikLibrary::eKRV_X_LEDFunction::LowBatt};
};

} // namespace TavikSimulator
