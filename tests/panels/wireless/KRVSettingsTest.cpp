#include "library/TavikModuleRLK.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikRLKSettings.h"
#include "tests/panels/wireless/SettingsTest.h"

#include <QElapsedTimer>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString title = QStringLiteral("KRV Settings");

QStringList OfObject(const QString& object, const QString& call) {
    return OfSlot(object, {call});
}

/// The calls that read all settings, from entering configuration mode to leaving it.
QStringList ReadingCalls() {
    return OfSettings({QStringLiteral("setConfigMode(true)"), QStringLiteral("EnteredConfigMode()")}) +
           OfSlot(QStringLiteral("device"), {QStringLiteral("Settings()")}) +
           OfSettings({QStringLiteral("SendCommand(\"IDENTIFY\", true)")}) +
           OfSlot(QStringLiteral("device"), {QStringLiteral("TavikIdentity()")}) +
           OfSettings({QStringLiteral("BluetoothClass()"), QStringLiteral("AutoPowerDownTime()"),
                       QStringLiteral("DisplayedResolution()"), QStringLiteral("DisplayOrientation()"),
                       QStringLiteral("DisplayLayout()"), QStringLiteral("DisplayLargeSource()"),
                       QStringLiteral("PresetValue()"), QStringLiteral("GetButtonFunctions()"),
                       QStringLiteral("PowerOffButtonOptions()"), QStringLiteral("ButtonBuzzerEnable()"),
                       QStringLiteral("Limits()")}) +
           OfObject(QStringLiteral("limits"), QStringLiteral("Enabled()")) +
           OfObject(QStringLiteral("limits"), QStringLiteral("Upper()")) +
           OfObject(QStringLiteral("upper limit"), QStringLiteral("Value()")) +
           OfObject(QStringLiteral("limits"), QStringLiteral("Lower()")) +
           OfObject(QStringLiteral("lower limit"), QStringLiteral("Value()")) +
           OfSettings({QStringLiteral("LimitLED()"), QStringLiteral("LimitBuzzerEnable()"),
                       QStringLiteral("LimitBuzzerRate()"), QStringLiteral("OperationMode()"),
                       QStringLiteral("setConfigMode(false)")});
}

/// The library's settings of the tool in slot 1.
TavikLibrary::RLK_DeviceSettings_KRV* ToolSettings(TavikLibrary::TavikServer& server) {
    auto* module = dynamic_cast<TavikLibrary::TavikModuleRLK*>(server.Networks()->Network(0)->GetModule(0));
    return static_cast<TavikLibrary::RLK_DeviceSettings_KRV*>(module->Devices()->GetDevice(0)->Settings());
}

} // namespace

/// The settings dialog of a single-channel hand tool.
class KRVSettingsTest : public SettingsTest {
    Q_OBJECT

private slots:
    void readsInOrderAndWritesNothing();
    void showsTheProgress();
    void showsWhatTheToolIsSetTo();
    void ticksAreShownTheOtherWayRoundToo();
    void numbersOutsideTheFormAreClamped();
    void valuesWithoutAnEntrySelectNone();
    void writesEachChangeAtOnce();
    void toolThatNeverSwitchesOff();
    void autoPowerOffIsUnticked();
    void autoPowerOffIsTicked();
    void failureOfAutoPowerOff();
    void resetToFactory();
    void failureOfTheReset();
    void firmware_data();
    void firmware();
    void failureOfTheFirmwareIsPassedOver();
    void failureWhileReading_data();
    void failureWhileReading();
    void enterPressesNoButton();
};

void KRVSettingsTest::readsInOrderAndWritesNothing() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [](QDialog&, const WidgetDriver&) {
        COMPARE_CALLS(TakeToolCalls(),
                      OfSlot(QStringLiteral("device"), {QStringLiteral("DeviceType()"), QStringLiteral("Settings()")}) +
                          ReadingCalls());
    });
}

void KRVSettingsTest::showsTheProgress() {
    OpenModule(SingleChannel(QStringLiteral("config-tries=\"3\"")), 0);
    const ProgressWatch progress;
    QElapsedTimer sinceClick;
    sinceClick.start();
    InSettings(title, [&](QDialog&, const WidgetDriver&) {
        // One second until the first try, and one after each of the two that failed.
        QVERIFY2(sinceClick.elapsed() >= 3000, qPrintable(QString::number(sinceClick.elapsed())));
    });
    const QString entering = QStringLiteral("0 Connecting and entering config mode. (Try %1/10)");
    QCOMPARE(progress.Steps(),
             QStringList({entering.arg(1), entering.arg(2), entering.arg(3), QStringLiteral("1 Reading Identity"),
                          QStringLiteral("10 Reading Bluetooth class"), QStringLiteral("20 Reading Auto Power Down"),
                          QStringLiteral("30 Reading Display Settings"), QStringLiteral("30 Reading Preset Value"),
                          QStringLiteral("50 Reading Button Functions"), QStringLiteral("60 Reading Limits"),
                          QStringLiteral("80 Reading Limits LED and Buzzer"),
                          QStringLiteral("85 Reading Operation Mode"), QStringLiteral("90 Exiting config mode")}));
}

void KRVSettingsTest::showsWhatTheToolIsSetTo() {
    OpenModule(SingleChannel(), 0);
    using namespace TavikLibrary;
    TavikServer server;
    RLK_DeviceSettings_KRV* tool = ToolSettings(server);
    tool->setBluetoothClass(eKRV_BluetoothClass::Class3);
    tool->setAutoPowerDownTime(4711);
    tool->setDisplayedResolution(5);
    tool->setDisplayOrientation(eKRV_DisplayOrientation::Rotate270);
    tool->setDisplayLayout(eKRV_DisplayLayout::Large);
    tool->setDisplayLargeSource(eKRV_DisplayLargeSource::Computed);
    tool->setPresetValue(-12.3456);
    tool->SetButtonFunctions(eKRV_ButtonFunction::Preset, eKRV_ButtonFunction::Tag);
    tool->setPowerOffButtonOptions(eKRV_PowerOffButtonOptions::EitherButton);
    tool->setButtonBuzzerEnable(false);
    tool->Limits()->setEnabled(true);
    tool->Limits()->Upper()->setValue(7.25);
    tool->Limits()->Lower()->setValue(-7.75);
    tool->setLimitLED(eKRV_LimitLED::Red);
    tool->setLimitBuzzerEnable(true);
    tool->setLimitBuzzerRate(eKRV_LimitBuzzerRate::OneSlowOnFail);
    tool->setOperationMode(eKRV_OperationMode::TaggedMin);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QCOMPARE(Chosen(driver, "cbBluetoothClass"), 2);
        QVERIFY(Ticked(driver, "cbAutoPowerOffEnabled"));
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 4711);
        QVERIFY(driver.IsEnabled("sbAutoPowerOffTime"));
        QCOMPARE(driver.The<QSpinBox>("sbResolution")->value(), 5);
        QCOMPARE(Chosen(driver, "cbOrientation"), 3);
        QCOMPARE(Chosen(driver, "cbLayout"), 1);
        QCOMPARE(Chosen(driver, "cbReadingSource"), 1);
        QCOMPARE(driver.The<QDoubleSpinBox>("sbPreset")->value(), -12.3456);
        QCOMPARE(Chosen(driver, "cbButton1Func"), 2);
        QCOMPARE(Chosen(driver, "cbButton2Func"), 0);
        QCOMPARE(Chosen(driver, "cbPowerOffBtn"), 3);
        QVERIFY(!Ticked(driver, "cbButtonBuzzer"));
        QVERIFY(Ticked(driver, "cbLimitsEnabled"));
        QCOMPARE(driver.The<QDoubleSpinBox>("sbUpperLimit")->value(), 7.25);
        QCOMPARE(driver.The<QDoubleSpinBox>("sbLowerLimit")->value(), -7.75);
        QCOMPARE(Chosen(driver, "cbLimitLED"), 2);
        QVERIFY(Ticked(driver, "cbLimitBuzzer"));
        QCOMPARE(Chosen(driver, "cbBuzzRate"), 1);
        QCOMPARE(Chosen(driver, "cbOperationMode"), 6);
    });
}

void KRVSettingsTest::ticksAreShownTheOtherWayRoundToo() {
    OpenModule(SingleChannel(), 0);
    TavikLibrary::TavikServer server;
    TavikLibrary::RLK_DeviceSettings_KRV* tool = ToolSettings(server);
    tool->setButtonBuzzerEnable(true);
    tool->Limits()->setEnabled(false);
    tool->setLimitBuzzerEnable(false);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QVERIFY(Ticked(driver, "cbButtonBuzzer"));
        QVERIFY(!Ticked(driver, "cbLimitsEnabled"));
        QVERIFY(!Ticked(driver, "cbLimitBuzzer"));
    });
}

void KRVSettingsTest::numbersOutsideTheFormAreClamped() {
    OpenModule(SingleChannel(), 0);
    Answer("AutoPowerDownTime", 5);
    Answer("DisplayedResolution", 9);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 15);
        QVERIFY(Ticked(driver, "cbAutoPowerOffEnabled"));
        QCOMPARE(driver.The<QSpinBox>("sbResolution")->value(), 5);
        COMPARE_CALLS(TakeToolCalls().mid(2), ReadingCalls());
    });
}

void KRVSettingsTest::valuesWithoutAnEntrySelectNone() {
    OpenModule(SingleChannel(), 0);
    Answer("BluetoothClass", 0);
    Answer("DisplayOrientation", 17);
    Answer("LimitLED", -1);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QCOMPARE(Chosen(driver, "cbBluetoothClass"), -1);
        QCOMPARE(Chosen(driver, "cbOrientation"), -1);
        QCOMPARE(Chosen(driver, "cbLimitLED"), -1);
        COMPARE_CALLS(TakeToolCalls().mid(2), ReadingCalls());
    });
}

void KRVSettingsTest::writesEachChangeAtOnce() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [this](QDialog& dialog, const WidgetDriver& driver) {
        TryList(dialog, "cbBluetoothClass", QStringLiteral("setBluetoothClass"), 1);
        TryNumber<QSpinBox>(dialog, "sbAutoPowerOffTime", 100,
                            OfSettings({QStringLiteral("setAutoPowerDownTime(100)")}), 101);
        TryNumber<QSpinBox>(dialog, "sbResolution", 2, OfSettings({QStringLiteral("setDisplayedResolution(2)")}), 3);
        TryList(dialog, "cbOrientation", QStringLiteral("setDisplayOrientation"));
        TryList(dialog, "cbLayout", QStringLiteral("setDisplayLayout"));
        TryList(dialog, "cbReadingSource", QStringLiteral("setDisplayLargeSource"));
        TryNumber<QDoubleSpinBox>(dialog, "sbPreset", -1.2345, OfSettings({QStringLiteral("setPresetValue(-1.2345)")}),
                                  2.5);
        TryButton(dialog, "btnPreset", QStringLiteral("Preset"));
        TryButton(dialog, "btnSavePreset", QStringLiteral("SaveZero"));
        TryButton(dialog, "btnZero", QStringLiteral("Zero"));
        TryButton(dialog, "btnSaveZero", QStringLiteral("SaveZero"));
        TryButton(dialog, "btnAbs", QStringLiteral("ABS"));
        TryButton(dialog, "btnResetMinMax", QStringLiteral("ResetMinMax"));
        Choose(driver, "cbButton1Func", 2);
        Choose(driver, "cbButton2Func", 1);
        Try(
            dialog, [&] { Choose(driver, "cbButton1Func", 1); },
            OfSettings({QStringLiteral("SetButtonFunctions(1, 1)")}), [&] { Choose(driver, "cbButton1Func", 2); });
        Try(
            dialog, [&] { Choose(driver, "cbButton2Func", 0); },
            OfSettings({QStringLiteral("SetButtonFunctions(2, 0)")}), [&] { Choose(driver, "cbButton2Func", 1); });
        TryList(dialog, "cbPowerOffBtn", QStringLiteral("setPowerOffButtonOptions"));
        TryCheckBox(dialog, "cbButtonBuzzer", QStringLiteral("settings"), QStringLiteral("setButtonBuzzerEnable"));
        TryCheckBox(dialog, "cbLimitsEnabled", QStringLiteral("limits"), QStringLiteral("setEnabled"));
        TryNumber<QDoubleSpinBox>(dialog, "sbUpperLimit", 5.25,
                                  OfObject(QStringLiteral("upper limit"), QStringLiteral("setValue(5.25)")), 6.0);
        TryNumber<QDoubleSpinBox>(dialog, "sbLowerLimit", -5.25,
                                  OfObject(QStringLiteral("lower limit"), QStringLiteral("setValue(-5.25)")), -6.0);
        TryList(dialog, "cbLimitLED", QStringLiteral("setLimitLED"));
        TryCheckBox(dialog, "cbLimitBuzzer", QStringLiteral("settings"), QStringLiteral("setLimitBuzzerEnable"));
        TryList(dialog, "cbBuzzRate", QStringLiteral("setLimitBuzzerRate"));
        TryList(dialog, "cbOperationMode", QStringLiteral("setOperationMode"));
    });
}

void KRVSettingsTest::toolThatNeverSwitchesOff() {
    OpenModule(SingleChannel(QStringLiteral("auto-power-off=\"0\"")), 0);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QVERIFY(!Ticked(driver, "cbAutoPowerOffEnabled"));
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 60);
        QVERIFY(!driver.Find("sbAutoPowerOffTime")->isEnabled());
    });
}

void KRVSettingsTest::autoPowerOffIsUnticked() {
    OpenModule(SingleChannel(QStringLiteral("auto-power-off=\"300\"")), 0);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        Calls::Mark();
        Tick(driver, "cbAutoPowerOffEnabled", false);
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setAutoPowerDownTime(0)"),
                                                   QStringLiteral("setAutoPowerDownTime(60)")}));
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 60);
        QVERIFY(!driver.Find("sbAutoPowerOffTime")->isEnabled());
    });
}

void KRVSettingsTest::autoPowerOffIsTicked() {
    OpenModule(SingleChannel(QStringLiteral("auto-power-off=\"0\"")), 0);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        Calls::Mark();
        Tick(driver, "cbAutoPowerOffEnabled", true);
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setAutoPowerDownTime(60)")}));
        QVERIFY(driver.Find("sbAutoPowerOffTime")->isEnabled());
        Tick(driver, "cbAutoPowerOffEnabled", false);
        // The field shows 60 already, so that nothing more is written.
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setAutoPowerDownTime(0)")}));
    });
}

void KRVSettingsTest::failureOfAutoPowerOff() {
    OpenModule(SingleChannel(QStringLiteral("auto-power-off=\"300\"")), 0);
    InSettings(title, [this](QDialog& dialog, const WidgetDriver& driver) {
        FailNext("setAutoPowerDownTime", QStringLiteral("No."));
        boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: No."));
        Tick(driver, "cbAutoPowerOffEnabled", false);
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 300);
        QVERIFY(driver.Find("sbAutoPowerOffTime")->isEnabled());

        Tick(driver, "cbAutoPowerOffEnabled", true);
        Tick(driver, "cbAutoPowerOffEnabled", false);
        FailNext("setAutoPowerDownTime", QStringLiteral("Not again."));
        boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: Not again."));
        Tick(driver, "cbAutoPowerOffEnabled", true);
        QVERIFY(!driver.Find("sbAutoPowerOffTime")->isEnabled());
        QVERIFY(Ticked(driver, "cbAutoPowerOffEnabled"));
    });
}

void KRVSettingsTest::resetToFactory() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        boxes.ExpectInformation(
            &dialog, QStringLiteral("KRV Config"),
            QStringLiteral("Factory reset complete.\nPlease power cycle the KRV to apply the new settings."));
        QVERIFY(driver.Click("btnResetFactory"));
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("ResetFactorySettings()")}));
        QVERIFY(driver.Click("btnClose"));
        QVERIFY(!dialog.isVisible());
    });
}

void KRVSettingsTest::failureOfTheReset() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [this](QDialog& dialog, WidgetDriver driver) {
        FailNext("ResetFactorySettings", QStringLiteral("No."));
        boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: No."));
        QVERIFY(driver.Click("btnResetFactory"));
        QCOMPARE(boxes.Count(), 2);
    });
}

void KRVSettingsTest::firmware_data() {
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("firmware");
    const QString before(25, QLatin1Char('x'));
    QTest::newRow("usual") << before + QStringLiteral("2.70") << QStringLiteral("2.70");
    QTest::newRow("followed by more") << before + QStringLiteral("2.7x and more") << QStringLiteral("2.70");
    QTest::newRow("24 characters") << before.left(24) << QString();
    QTest::newRow("25 characters") << before << QString();
}

void KRVSettingsTest::firmware() {
    QFETCH(QString, reply);
    QFETCH(QString, firmware);
    OpenModule(SingleChannel(QStringLiteral("identify=\"%1\"").arg(reply)), 0);
    InSettings(title, [firmware](QDialog& dialog, const WidgetDriver&) {
        QCOMPARE(GroupTitle(dialog), QStringLiteral("KRV Configuration (KRV0000001) Firmware V%1     ").arg(firmware));
    });
}

void KRVSettingsTest::failureOfTheFirmwareIsPassedOver() {
    OpenModule(SingleChannel(), 0);
    FailNext("SendCommand", QStringLiteral("What?"));
    InSettings(title, [](QDialog& dialog, const WidgetDriver&) {
        QCOMPARE(GroupTitle(dialog), QStringLiteral("KRV Configuration (KRV0000001) Firmware V     "));
    });
    QCOMPARE(boxes.Count(), 1);
}

void KRVSettingsTest::failureWhileReading_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation :
         {"setConfigMode", "EnteredConfigMode", "TavikIdentity", "BluetoothClass", "AutoPowerDownTime",
          "DisplayedResolution", "DisplayLargeSource", "PresetValue", "GetButtonFunctions", "ButtonBuzzerEnable",
          "Limits", "Enabled", "Upper", "Value", "LimitLED", "LimitBuzzerRate", "OperationMode"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void KRVSettingsTest::failureWhileReading() {
    QFETCH(QString, operation);
    OpenModule(SingleChannel(), 0);
    FailNext(qPrintable(operation), QStringLiteral("Lost in the <b>middle</b>."));
    FailToOpen(QStringLiteral("Lost in the <b>middle</b>."));
    QVERIFY(TakeToolCalls().constLast().contains(QLatin1Char('.') + operation + QLatin1Char('(')));
}

void KRVSettingsTest::enterPressesNoButton() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [](QDialog& dialog, const WidgetDriver& driver) {
        Calls::Mark();
        for (const char* name : {"sbResolution", "cbOrientation", "sbPreset"}) {
            driver.Find(name)->setFocus();
            QTest::keyClick(driver.Find(name), Qt::Key_Return);
        }
        QVERIFY(dialog.isVisible());
        // Nothing is written that has not been changed.
        COMPARE_CALLS(TakeToolCalls(), QStringList());
    });
}

TAVIK_TEST_MAIN(KRVSettingsTest)

#include "KRVSettingsTest.moc"
