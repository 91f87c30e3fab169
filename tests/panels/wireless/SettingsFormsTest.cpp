#include "tests/panels/wireless/SettingsTest.h"

#include <QGroupBox>

using namespace WirelessBench;

/// Entries, ranges and texts of the settings dialogs.
class SettingsFormsTest : public SettingsTest {
    Q_OBJECT

private slots:
    void singleChannel();
    void eightChannels();
};

void SettingsFormsTest::singleChannel() {
    OpenModule(SingleChannel(), 0);
    InSettings(QStringLiteral("KRV Settings"), [](QDialog& dialog, const WidgetDriver& driver) {
        const QStringList orientations = {QStringLiteral("0"), QStringLiteral("90"), QStringLiteral("180"),
                                          QStringLiteral("270"), QStringLiteral("Auto-Rotate")};
        const QStringList functions = {QStringLiteral("Tag"), QStringLiteral("Zero"), QStringLiteral("Preset")};
        QCOMPARE(Entries(driver, "cbBluetoothClass"),
                 QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
        QCOMPARE(Entries(driver, "cbOrientation"), orientations);
        QCOMPARE(Entries(driver, "cbLayout"),
                 QStringList({QStringLiteral("Standard"), QStringLiteral("Large (Simplified)")}));
        QCOMPARE(Entries(driver, "cbReadingSource"),
                 QStringList({QStringLiteral("Current"), QStringLiteral("Computed")}));
        QCOMPARE(Entries(driver, "cbButton1Func"), functions);
        QCOMPARE(Entries(driver, "cbButton2Func"), functions);
        QCOMPARE(Entries(driver, "cbPowerOffBtn"),
                 QStringList({QStringLiteral("None"), QStringLiteral("Button 1"), QStringLiteral("Button 2"),
                              QStringLiteral("Either Button"), QStringLiteral("Both Buttons")}));
        QCOMPARE(Entries(driver, "cbLimitLED"), QStringList({QStringLiteral("None"), QStringLiteral("Green"),
                                                             QStringLiteral("Red"), QStringLiteral("Both")}));
        QCOMPARE(Entries(driver, "cbBuzzRate"),
                 QStringList({QStringLiteral("3 fast on fail"), QStringLiteral("1 slow on fail")}));
        QCOMPARE(Entries(driver, "cbOperationMode"),
                 QStringList({QStringLiteral("Normal"), QStringLiteral("Max"), QStringLiteral("Min"),
                              QStringLiteral("Diff"), QStringLiteral("Tagged Normal"), QStringLiteral("Tagged Max"),
                              QStringLiteral("Tagged Min"), QStringLiteral("Tagged Diff")}));
        const auto* time = driver.The<QSpinBox>("sbAutoPowerOffTime");
        QCOMPARE(time->minimum(), 15);
        QCOMPARE(time->maximum(), 9999);
        const auto* resolution = driver.The<QSpinBox>("sbResolution");
        QCOMPARE(resolution->minimum(), 2);
        QCOMPARE(resolution->maximum(), 5);
        const auto* preset = driver.The<QDoubleSpinBox>("sbPreset");
        QCOMPARE(preset->decimals(), 4);
        QCOMPARE(preset->minimum(), -99999.0);
        QCOMPARE(preset->maximum(), 99999.0);
        for (const char* name : {"sbUpperLimit", "sbLowerLimit"}) {
            const auto* limit = driver.The<QDoubleSpinBox>(name);
            QCOMPARE(limit->decimals(), 2);
            QCOMPARE(limit->minimum(), -9999.0);
            QCOMPARE(limit->maximum(), 9999.0);
        }
        const QList<QPair<const char*, const char*>> texts = {
            {"lblBluetoothClass", "Bluetooth Class"},
            {"lblBluetoothNote", "(Effective after next tool power-on)"},
            {"cbAutoPowerOffEnabled", "Enabled"},
            {"btnSavePreset", "Save"},
            {"btnPreset", "Preset"},
            {"btnSaveZero", "Save"},
            {"btnZero", "Zero"},
            {"btnAbs", "Absolute"},
            {"btnResetMinMax", "Reset Min/Max"},
            {"cbButtonBuzzer", "Enabled"},
            {"cbLimitsEnabled", "Enabled"},
            {"cbLimitBuzzer", "Enabled"},
            {"btnResetFactory", "Reset Factory Defaults"},
            {"btnClose", "Close"}};
        for (const auto& text : texts) {
            QCOMPARE(driver.Text(text.first), QString::fromLatin1(text.second));
        }
        QStringList groups;
        const auto boxesOfTheForm = dialog.findChildren<QGroupBox*>();
        for (const QGroupBox* group : boxesOfTheForm) {
            groups.append(group->title());
        }
        for (const char* group :
             {"Auto Power Off", "Display Settings", "Measurements", "Button Functions", "Limits", "Operation Mode"}) {
            QVERIFY2(groups.contains(QLatin1String(group)), group);
        }
    });
}

void SettingsFormsTest::eightChannels() {
    OpenModule(EightChannels(), 0);
    InSettings(QStringLiteral("KRV-X Configuration"), [](QDialog& dialog, const WidgetDriver& driver) {
        QCOMPARE(Entries(driver, "cbBuzzer"), QStringList({QStringLiteral("Off"), QStringLiteral("TagTaken")}));
        QCOMPARE(Entries(driver, "cbOrientation"),
                 QStringList({QStringLiteral("0"), QStringLiteral("90"), QStringLiteral("180"), QStringLiteral("270"),
                              QStringLiteral("Auto-Rotate")}));
        QCOMPARE(Entries(driver, "cbMode"), QStringList({QStringLiteral("Charts"), QStringLiteral("Text")}));
        QCOMPARE(Entries(driver, "cbButton1Conf"),
                 QStringList({QStringLiteral("None"), QStringLiteral("Tag"), QStringLiteral("PowerOff")}));
        QCOMPARE(Entries(driver, "cbButton2Conf"),
                 QStringList({QStringLiteral("None"), QStringLiteral("Off"), QStringLiteral("PowerOff")}));
        for (const char* led : {"cbLED1", "cbLED2", "cbLED3"}) {
            QCOMPARE(Entries(driver, led),
                     QStringList({QStringLiteral("Off"), QStringLiteral("Streaming"), QStringLiteral("RangeError"),
                                  QStringLiteral("AllOK"), QStringLiteral("LowBatt")}));
        }
        const auto* time = driver.The<QSpinBox>("sbAutoPowerOffTime");
        QCOMPARE(time->minimum(), 30);
        QCOMPARE(time->maximum(), 9999);
        for (int channel = 1; channel <= 8; ++channel) {
            const QByteArray name = "sbChRes" + QByteArray::number(channel);
            const auto* resolution = driver.The<QSpinBox>(name.constData());
            QCOMPARE(resolution->minimum(), 0);
            QCOMPARE(resolution->maximum(), 5);
            const QByteArray label = "lblChRes" + QByteArray::number(channel);
            QCOMPARE(driver.Text(label.constData()), QStringLiteral("Ch %1").arg(channel));
        }
        QCOMPARE(driver.Text("cbAutoPowerOffEnabled"), QStringLiteral("Enabled"));
        QCOMPARE(driver.Text("btnResetToFactory"), QStringLiteral("Reset to Factory Defaults"));
        QCOMPARE(driver.Text("btnClose"), QStringLiteral("Close"));
        QStringList groups;
        const auto boxesOfTheForm = dialog.findChildren<QGroupBox*>();
        for (const QGroupBox* group : boxesOfTheForm) {
            groups.append(group->title());
        }
        for (const char* group : {"Auto Power Off", "Buzzer Configuration", "Display Settings", "Button Configuration",
                                  "LED Configuration"}) {
            QVERIFY2(groups.contains(QLatin1String(group)), group);
        }
    });
}

TAVIK_TEST_MAIN(SettingsFormsTest)

#include "SettingsFormsTest.moc"
