#include "tests/simulator/hardware/Wireless.h"

#include <limits>

using namespace TavikLibrary;
using namespace TavikSimulator;

/// The settings of simulated hand tools and their configuration mode.
class HandToolSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void ConfigModeIsEnteredOnTheNthTry();
    void ConfigModeIsNeverEntered();
    void ConfigModeDropsOut();
    void ConfigModeEndsWithTheRadio();
    void SettingsAreReadInConfigModeOnly();
    void SettingsAreWrittenAtAnyTime();
    void SingleChannelSettingsKeepTheirValues();
    void SingleChannelSettingsRefuseBadValues();
    void EightChannelSettingsKeepTheirValues();
    void EightChannelSettingsRefuseBadValues();
    void IdentifyHoldsTheFirmware();
    void OtherCommandsAreRefused();
    void FactoryResetWaitsForThePowerCycle();

private:
    static void Enter(RLK_DeviceSettingsBase* settings) {
        settings->setConfigMode(true);
        QVERIFY(settings->EnteredConfigMode());
    }
    template <class Call>
    static void RequireRefused(Call call) {
        QVERIFY(RefusalOf(call).Is(eTavikErrors::InvalidArgument));
    }
};

void HandToolSettingsTest::ConfigModeIsEnteredOnTheNthTry() {
    WirelessServer server(SingleChannel("config-tries=\"3\""));
    RLK_DeviceSettingsBase* settings = server.KRV();
    for (int round = 0; round < 2; ++round) {
        for (int attempt = 1; attempt <= 3; ++attempt) {
            QVERIFY(!settings->EnteredConfigMode());
            settings->setConfigMode(true);
        }
        QVERIFY(settings->EnteredConfigMode());
        settings->setConfigMode(true);
        QVERIFY(settings->EnteredConfigMode());
        settings->setConfigMode(false);
    }
    QVERIFY(!settings->EnteredConfigMode());
}

void HandToolSettingsTest::ConfigModeIsNeverEntered() {
    WirelessServer server(SingleChannel("config-tries=\"never\""));
    for (int attempt = 0; attempt < 50; ++attempt) {
        server.KRV()->setConfigMode(true);
        QVERIFY(!server.KRV()->EnteredConfigMode());
    }
}

void HandToolSettingsTest::ConfigModeDropsOut() {
    WirelessServer server(SingleChannel("config-drops-after=\"2\""));
    Enter(server.KRV());
    server.KRV()->OperationMode();
    server.KRV()->OperationMode();
    QVERIFY(!server.KRV()->EnteredConfigMode());
    QVERIFY(RefusalOf([&] { server.KRV()->OperationMode(); }).Is(eTavikErrors::NotSupported));
    WirelessServer steered(SingleChannel());
    Enter(steered.KRV());
    DropToolConfigMode("KRV0000001");
    QVERIFY(!steered.KRV()->EnteredConfigMode());
}

void HandToolSettingsTest::ConfigModeEndsWithTheRadio() {
    WirelessServer server(SingleChannel("auto-power-off=\"60\""));
    Enter(server.KRV());
    AdvanceClock(100.0);
    QVERIFY(!server.KRV()->EnteredConfigMode());
    // The first question only wakes the tool.
    server.KRV()->setConfigMode(true);
    QVERIFY(!server.KRV()->EnteredConfigMode());
    Enter(server.KRV());
    server.Wireless()->Restart();
    QVERIFY(!server.KRV()->EnteredConfigMode());
    CarryToolAway("KRV0000001", true);
    server.KRV()->setConfigMode(true);
    QVERIFY(!server.KRV()->EnteredConfigMode());
    QVERIFY(RefusalOf([&] { server.KRV()->setConfigMode(false); }).Is(eTavikErrors::ModuleNotResponding));
}

void HandToolSettingsTest::SettingsAreReadInConfigModeOnly() {
    WirelessServer server(SingleChannel());
    const Refusal refusal = RefusalOf([&] { server.KRV()->PresetValue(); });
    QVERIFY(refusal.Is(eTavikErrors::NotSupported));
    QVERIFY(refusal.Names("configuration mode"));
    QVERIFY(RefusalOf([&] { server.KRV()->Limits()->Enabled(); }).Is(eTavikErrors::NotSupported));
    QVERIFY(RefusalOf([&] { server.KRV()->SendCommand("IDENTIFY", true); }).Is(eTavikErrors::NotSupported));
    Enter(server.KRV());
    QCOMPARE(server.KRV()->PresetValue(), 0.0);
}

void HandToolSettingsTest::SettingsAreWrittenAtAnyTime() {
    WirelessServer server(SingleChannel());
    server.KRV()->setPresetValue(1.25);
    Enter(server.KRV());
    QCOMPARE(server.KRV()->PresetValue(), 1.25);
    server.KRV()->setPresetValue(2.5);
    QCOMPARE(server.KRV()->PresetValue(), 2.5);
}

void HandToolSettingsTest::SingleChannelSettingsKeepTheirValues() {
    WirelessServer server(SingleChannel());
    RLK_DeviceSettings_KRV* tool = server.KRV();
    Enter(tool);
    tool->setBluetoothClass(eKRV_BluetoothClass::Class1);
    QCOMPARE(tool->BluetoothClass(), eKRV_BluetoothClass::Class1);
    for (const int seconds : {15, 9999, 0}) {
        tool->setAutoPowerDownTime(seconds);
        QCOMPARE(tool->AutoPowerDownTime(), seconds);
    }
    tool->setDisplayedResolution(2);
    QCOMPARE(tool->DisplayedResolution(), 2);
    tool->setDisplayOrientation(eKRV_DisplayOrientation::AutoRotate);
    QCOMPARE(tool->DisplayOrientation(), eKRV_DisplayOrientation::AutoRotate);
    tool->setDisplayLayout(eKRV_DisplayLayout::Large);
    QCOMPARE(tool->DisplayLayout(), eKRV_DisplayLayout::Large);
    tool->setDisplayLargeSource(eKRV_DisplayLargeSource::Computed);
    QCOMPARE(tool->DisplayLargeSource(), eKRV_DisplayLargeSource::Computed);
    tool->SetButtonFunctions(eKRV_ButtonFunction::Preset, eKRV_ButtonFunction::Tag);
    eKRV_ButtonFunction button1{};
    eKRV_ButtonFunction button2{};
    tool->GetButtonFunctions(button1, button2);
    QCOMPARE(button1, eKRV_ButtonFunction::Preset);
    QCOMPARE(button2, eKRV_ButtonFunction::Tag);
    tool->setPowerOffButtonOptions(eKRV_PowerOffButtonOptions::Button2);
    QCOMPARE(tool->PowerOffButtonOptions(), eKRV_PowerOffButtonOptions::Button2);
    for (const bool enabled : {true, false}) {
        tool->setButtonBuzzerEnable(enabled);
        tool->setLimitBuzzerEnable(!enabled);
        tool->Limits()->setEnabled(enabled);
        QCOMPARE(tool->ButtonBuzzerEnable(), enabled);
        QCOMPARE(tool->LimitBuzzerEnable(), !enabled);
        QCOMPARE(tool->Limits()->Enabled(), enabled);
    }
    tool->Limits()->Upper()->setValue(9999.0);
    tool->Limits()->Lower()->setValue(-9999.0);
    QCOMPARE(tool->Limits()->Upper()->Value(), 9999.0);
    QCOMPARE(tool->Limits()->Lower()->Value(), -9999.0);
    tool->setLimitLED(eKRV_LimitLED::Green);
    QCOMPARE(tool->LimitLED(), eKRV_LimitLED::Green);
    tool->setLimitBuzzerRate(eKRV_LimitBuzzerRate::OneSlowOnFail);
    QCOMPARE(tool->LimitBuzzerRate(), eKRV_LimitBuzzerRate::OneSlowOnFail);
    tool->setOperationMode(eKRV_OperationMode::TaggedDiff);
    QCOMPARE(tool->OperationMode(), eKRV_OperationMode::TaggedDiff);
}

void HandToolSettingsTest::SingleChannelSettingsRefuseBadValues() {
    WirelessServer server(SingleChannel());
    RLK_DeviceSettings_KRV* tool = server.KRV();
    Enter(tool);
    for (const int value : {-1, 8}) {
        RequireRefused([=] { tool->setBluetoothClass(static_cast<eKRV_BluetoothClass>(value)); });
        RequireRefused([=] { tool->setAutoPowerDownTime(value); });
        RequireRefused([=] { tool->setDisplayedResolution(value); });
        RequireRefused([=] { tool->setDisplayOrientation(static_cast<eKRV_DisplayOrientation>(value)); });
        RequireRefused([=] { tool->setDisplayLayout(static_cast<eKRV_DisplayLayout>(value)); });
        RequireRefused([=] { tool->setDisplayLargeSource(static_cast<eKRV_DisplayLargeSource>(value)); });
        RequireRefused(
            [=] { tool->SetButtonFunctions(static_cast<eKRV_ButtonFunction>(value), eKRV_ButtonFunction::Tag); });
        RequireRefused(
            [=] { tool->SetButtonFunctions(eKRV_ButtonFunction::Tag, static_cast<eKRV_ButtonFunction>(value)); });
        RequireRefused([=] { tool->setPowerOffButtonOptions(static_cast<eKRV_PowerOffButtonOptions>(value)); });
        RequireRefused([=] { tool->setLimitLED(static_cast<eKRV_LimitLED>(value)); });
        RequireRefused([=] { tool->setLimitBuzzerRate(static_cast<eKRV_LimitBuzzerRate>(value)); });
        RequireRefused([=] { tool->setOperationMode(static_cast<eKRV_OperationMode>(value)); });
    }
    RequireRefused([=] { tool->setBluetoothClass(static_cast<eKRV_BluetoothClass>(0)); });
    RequireRefused([=] { tool->setAutoPowerDownTime(14); });
    RequireRefused([=] { tool->setAutoPowerDownTime(10000); });
    for (const double value : {1e6, -1e6, std::numeric_limits<double>::quiet_NaN()}) {
        RequireRefused([=] { tool->setPresetValue(value); });
        RequireRefused([=] { tool->Limits()->Upper()->setValue(value); });
        RequireRefused([=] { tool->Limits()->Lower()->setValue(value); });
    }
    // Nothing of this has come about.
    QCOMPARE(tool->AutoPowerDownTime(), 300);
    QCOMPARE(tool->PresetValue(), 0.0);
    QCOMPARE(tool->OperationMode(), eKRV_OperationMode::Normal);
}

void HandToolSettingsTest::EightChannelSettingsKeepTheirValues() {
    WirelessServer server(EightChannels());
    RLK_DeviceSettings_KRVX* tool = server.KRVX();
    Enter(tool);
    for (const int seconds : {30, 9999, 0}) {
        tool->setOffTime(seconds);
        QCOMPARE(tool->OffTime(), seconds);
    }
    tool->setBuzzerFunction(eKRV_X_BuzzerFunction::Off);
    QCOMPARE(tool->BuzzerFunction(), eKRV_X_BuzzerFunction::Off);
    for (int channel = 1; channel <= 8; ++channel) {
        tool->SetDisplayedResolution(channel, channel % 6);
    }
    for (int channel = 1; channel <= 8; ++channel) {
        QCOMPARE(tool->GetDisplayedResolution(channel), channel % 6);
    }
    tool->setDisplayOrientation(eKRV_DisplayOrientation::Rotate90);
    QCOMPARE(tool->DisplayOrientation(), eKRV_DisplayOrientation::Rotate90);
    tool->setDisplayMode(eKRV_X_DisplayMode::Text);
    QCOMPARE(tool->DisplayMode(), eKRV_X_DisplayMode::Text);
    tool->setButton1Function(eKRV_X_ButtonFunction::PowerOff);
    tool->setButton2Function(eKRV_X_ButtonFunction::Tag);
    QCOMPARE(tool->Button1Function(), eKRV_X_ButtonFunction::PowerOff);
    QCOMPARE(tool->Button2Function(), eKRV_X_ButtonFunction::Tag);
    tool->setLED1Function(eKRV_X_LEDFunction::LowBatt);
    tool->setLED2Function(eKRV_X_LEDFunction::AllOK);
    tool->setLED3Function(eKRV_X_LEDFunction::Off);
    QCOMPARE(tool->LED1Function(), eKRV_X_LEDFunction::LowBatt);
    QCOMPARE(tool->LED2Function(), eKRV_X_LEDFunction::AllOK);
    QCOMPARE(tool->LED3Function(), eKRV_X_LEDFunction::Off);
}

void HandToolSettingsTest::EightChannelSettingsRefuseBadValues() {
    WirelessServer server(EightChannels());
    RLK_DeviceSettings_KRVX* tool = server.KRVX();
    Enter(tool);
    for (const int value : {-1, 9}) {
        RequireRefused([=] { tool->setOffTime(value); });
        RequireRefused([=] { tool->setBuzzerFunction(static_cast<eKRV_X_BuzzerFunction>(value)); });
        RequireRefused([=] { tool->SetDisplayedResolution(1, value); });
        RequireRefused([=] { tool->SetDisplayedResolution(value, 1); });
        RequireRefused([=] { tool->GetDisplayedResolution(value); });
        RequireRefused([=] { tool->setDisplayOrientation(static_cast<eKRV_DisplayOrientation>(value)); });
        RequireRefused([=] { tool->setDisplayMode(static_cast<eKRV_X_DisplayMode>(value)); });
        RequireRefused([=] { tool->setButton1Function(static_cast<eKRV_X_ButtonFunction>(value)); });
        RequireRefused([=] { tool->setButton2Function(static_cast<eKRV_X_ButtonFunction>(value)); });
        RequireRefused([=] { tool->setLED1Function(static_cast<eKRV_X_LEDFunction>(value)); });
        RequireRefused([=] { tool->setLED2Function(static_cast<eKRV_X_LEDFunction>(value)); });
        RequireRefused([=] { tool->setLED3Function(static_cast<eKRV_X_LEDFunction>(value)); });
    }
    RequireRefused([=] { tool->GetDisplayedResolution(0); });
    RequireRefused([=] { tool->setOffTime(29); });
}

void HandToolSettingsTest::IdentifyHoldsTheFirmware() {
    WirelessServer single(SingleChannel("firmware=\"3.14\""));
    Enter(single.KRV());
    const std::string reply = single.KRV()->SendCommand("IDENTIFY", true);
    QCOMPARE(reply.substr(25), std::string("3.14"));
    QVERIFY(reply.find("KRV0000001") != std::string::npos);
    QVERIFY(reply.find("SIMULATED") != std::string::npos);
    QCOMPARE(single.KRV()->SendCommand("IDENTIFY", false), std::string());
    WirelessServer eight(EightChannels("firmware=\"1.59\""));
    Enter(eight.KRVX());
    QCOMPARE(eight.KRVX()->SendCommand("IDENTIFY", true).substr(27), std::string("1.59"));
    WirelessServer odd(SingleChannel("identify=\"?\""));
    Enter(odd.KRV());
    QCOMPARE(odd.KRV()->SendCommand("IDENTIFY", true), std::string("?"));
}

void HandToolSettingsTest::OtherCommandsAreRefused() {
    WirelessServer server(SingleChannel());
    Enter(server.KRV());
    const Refusal refusal = RefusalOf([&] { server.KRV()->SendCommand("FORMAT", true); });
    QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
    QVERIFY(refusal.Names("FORMAT"));
}

void HandToolSettingsTest::FactoryResetWaitsForThePowerCycle() {
    WirelessServer server(SingleChannel());
    server.KRV()->setDisplayedResolution(2);
    server.KRV()->Zero();
    server.KRV()->SaveZero();
    server.KRV()->ResetFactorySettings();
    Enter(server.KRV());
    QCOMPARE(server.KRV()->DisplayedResolution(), 2);
    PowerCycleTool("KRV0000001");
    Enter(server.KRV());
    QCOMPARE(server.KRV()->DisplayedResolution(), 4);
    QCOMPARE(server.Reading(), 5.0);

    WirelessServer eight(EightChannels());
    eight.KRVX()->SetDisplayedResolution(3, 0);
    eight.KRVX()->ResetFactorySettings();
    PowerCycleTool("KRX0000001");
    Enter(eight.KRVX());
    QCOMPARE(eight.KRVX()->GetDisplayedResolution(3), 4);
}

QTEST_APPLESS_MAIN(HandToolSettingsTest)

#include "HandToolSettingsTest.moc"
