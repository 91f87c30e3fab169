#pragma once

#include <string>

// Settings of wireless hand tools. They can be read while the tool is in configuration mode, and written at any
// time. Every operation throws TavikException when the tool does not answer.
namespace TavikLibrary {

enum class eKRV_BluetoothClass : int { Class1 = 1, Class2 = 2, Class3 = 3 };
enum class eKRV_DisplayOrientation : int { Rotate0 = 0, Rotate90 = 1, Rotate180 = 2, Rotate270 = 3, AutoRotate = 4 };
enum class eKRV_DisplayLayout : int { Standard = 0, Large = 1 };
enum class eKRV_DisplayLargeSource : int { Current = 0, Computed = 1 };
enum class eKRV_ButtonFunction : int { Tag = 0, Zero = 1, Preset = 2 };
enum class eKRV_PowerOffButtonOptions : int { None = 0, Button1 = 1, Button2 = 2, EitherButton = 3, BothButtons = 4 };
enum class eKRV_LimitLED : int { None = 0, Green = 1, Red = 2, Both = 3 };
enum class eKRV_LimitBuzzerRate : int { ThreeFastOnFail = 0, OneSlowOnFail = 1 };
enum class eKRV_OperationMode : int {
    Normal = 0,
    Max = 1,
    Min = 2,
    Diff = 3,
    TaggedNormal = 4,
    TaggedMax = 5,
    TaggedMin = 6,
    TaggedDiff = 7,
};

enum class eKRV_X_BuzzerFunction : int { Off = 0, TagTaken = 1 };
enum class eKRV_X_DisplayMode : int { Charts = 0, Text = 1 };
enum class eKRV_X_ButtonFunction : int { None = 0, Tag = 1, PowerOff = 2 };
enum class eKRV_X_LEDFunction : int { Off = 0, Streaming = 1, RangeError = 2, AllOK = 3, LowBatt = 4 };

/// What the settings of every hand tool have in common.
class RLK_DeviceSettingsBase {
public:
    class Implementation;
    virtual ~RLK_DeviceSettingsBase();
    RLK_DeviceSettingsBase(const RLK_DeviceSettingsBase&) = delete;
    RLK_DeviceSettingsBase& operator=(const RLK_DeviceSettingsBase&) = delete;

    /// Asks the tool to enter or leave configuration mode; whether it did, EnteredConfigMode() tells.
    void setConfigMode(bool on);
    bool EnteredConfigMode();
    /// Sends a command in the tool's own words and returns its reply; waits for it if asked to.
    std::string SendCommand(std::string command, bool waitForReply);

protected:
    explicit RLK_DeviceSettingsBase(Implementation* implementation);
    Implementation* const implementation;
};

/// One limit of a single-channel hand tool, in the tool's unit.
class KRV_Limit {
public:
    class Implementation;
    explicit KRV_Limit(Implementation* implementation);
    ~KRV_Limit();
    KRV_Limit(const KRV_Limit&) = delete;
    KRV_Limit& operator=(const KRV_Limit&) = delete;

    double Value();
    void setValue(double value);

private:
    Implementation* implementation;
};

/// The limits of a single-channel hand tool.
class KRV_Limits {
public:
    class Implementation;
    explicit KRV_Limits(Implementation* implementation);
    ~KRV_Limits();
    KRV_Limits(const KRV_Limits&) = delete;
    KRV_Limits& operator=(const KRV_Limits&) = delete;

    bool Enabled();
    void setEnabled(bool enabled);
    KRV_Limit* Upper();
    KRV_Limit* Lower();

private:
    Implementation* implementation;
};

/// Settings of a single-channel hand tool.
class RLK_DeviceSettings_KRV : public RLK_DeviceSettingsBase {
public:
    explicit RLK_DeviceSettings_KRV(Implementation* implementation);
    ~RLK_DeviceSettings_KRV() override;

    eKRV_BluetoothClass BluetoothClass();
    void setBluetoothClass(eKRV_BluetoothClass bluetoothClass);
    /// In seconds; 0 when the tool does not switch itself off.
    int AutoPowerDownTime();
    void setAutoPowerDownTime(int seconds);
    /// Decimal places on the display, 2 to 5.
    int DisplayedResolution();
    void setDisplayedResolution(int decimals);
    eKRV_DisplayOrientation DisplayOrientation();
    void setDisplayOrientation(eKRV_DisplayOrientation orientation);
    eKRV_DisplayLayout DisplayLayout();
    void setDisplayLayout(eKRV_DisplayLayout layout);
    eKRV_DisplayLargeSource DisplayLargeSource();
    void setDisplayLargeSource(eKRV_DisplayLargeSource source);
    double PresetValue();
    void setPresetValue(double value);
    void GetButtonFunctions(eKRV_ButtonFunction& button1, eKRV_ButtonFunction& button2);
    void SetButtonFunctions(eKRV_ButtonFunction button1, eKRV_ButtonFunction button2);
    eKRV_PowerOffButtonOptions PowerOffButtonOptions();
    void setPowerOffButtonOptions(eKRV_PowerOffButtonOptions options);
    bool ButtonBuzzerEnable();
    void setButtonBuzzerEnable(bool enabled);
    KRV_Limits* Limits();
    eKRV_LimitLED LimitLED();
    void setLimitLED(eKRV_LimitLED led);
    bool LimitBuzzerEnable();
    void setLimitBuzzerEnable(bool enabled);
    eKRV_LimitBuzzerRate LimitBuzzerRate();
    void setLimitBuzzerRate(eKRV_LimitBuzzerRate rate);
    eKRV_OperationMode OperationMode();
    void setOperationMode(eKRV_OperationMode mode);

    void Preset();
    void Zero();
    void SaveZero();
    void ABS();
    void ResetMinMax();
    /// Takes effect after the tool's next power cycle.
    void ResetFactorySettings();
};

/// Settings of an eight-channel hand tool. Channels are numbered 1 to 8.
class RLK_DeviceSettings_KRVX : public RLK_DeviceSettingsBase {
public:
    explicit RLK_DeviceSettings_KRVX(Implementation* implementation);
    ~RLK_DeviceSettings_KRVX() override;

    /// In seconds; 0 when the tool does not switch itself off.
    int OffTime();
    void setOffTime(int seconds);
    eKRV_X_BuzzerFunction BuzzerFunction();
    void setBuzzerFunction(eKRV_X_BuzzerFunction function);
    /// Decimal places on the display, 0 to 5.
    int GetDisplayedResolution(int channel);
    void SetDisplayedResolution(int channel, int resolution);
    eKRV_DisplayOrientation DisplayOrientation();
    void setDisplayOrientation(eKRV_DisplayOrientation orientation);
    eKRV_X_DisplayMode DisplayMode();
    void setDisplayMode(eKRV_X_DisplayMode mode);
    eKRV_X_ButtonFunction Button1Function();
    void setButton1Function(eKRV_X_ButtonFunction function);
    eKRV_X_ButtonFunction Button2Function();
    void setButton2Function(eKRV_X_ButtonFunction function);
    eKRV_X_LEDFunction LED1Function();
    void setLED1Function(eKRV_X_LEDFunction function);
    eKRV_X_LEDFunction LED2Function();
    void setLED2Function(eKRV_X_LEDFunction function);
    eKRV_X_LEDFunction LED3Function();
    void setLED3Function(eKRV_X_LEDFunction function);
    /// Takes effect after the tool's next power cycle.
    void ResetFactorySettings();
};

} // namespace TavikLibrary
