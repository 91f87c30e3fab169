#include "tests/panels/wireless/SettingsTest.h"

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString title = QStringLiteral("KRV-X Configuration");

/// Resolutions of the eight channels that differ from what the fields show at first.
void AnswerResolutions() {
    Answer("GetDisplayedResolution", 3);
}

QString Get(int channel) {
    return QStringLiteral("GetDisplayedResolution(%1)").arg(channel);
}

QString Set(int channel, int decimals) {
    return QStringLiteral("SetDisplayedResolution(%1, %2)").arg(channel).arg(decimals);
}

/// The calls that read all settings of a tool whose channels show this many decimals.
QStringList ReadingCalls(int decimals, int written) {
    QStringList calls = OfSettings({QStringLiteral("setConfigMode(true)"), QStringLiteral("EnteredConfigMode()")}) +
                        OfSlot(QStringLiteral("device"), {QStringLiteral("Settings()")}) +
                        OfSettings({QStringLiteral("SendCommand(\"IDENTIFY\", true)")}) +
                        OfSlot(QStringLiteral("device"), {QStringLiteral("TavikIdentity()")}) +
                        OfSettings({QStringLiteral("OffTime()"), QStringLiteral("BuzzerFunction()")});
    for (int channel = 1; channel <= 8; ++channel) {
        calls += OfSettings({Get(channel)});
        // The field shows 0 at first.
        calls += decimals != 0 ? OfSettings({Set(channel, written)}) : QStringList();
    }
    return calls + OfSettings({QStringLiteral("DisplayOrientation()"), QStringLiteral("DisplayMode()"),
                               QStringLiteral("Button1Function()"), QStringLiteral("Button2Function()"),
                               QStringLiteral("LED1Function()"), QStringLiteral("LED2Function()"),
                               QStringLiteral("LED3Function()"), QStringLiteral("setConfigMode(false)")});
}

} // namespace

/// The settings dialog of an eight-channel hand tool.
class KRVXSettingsTest : public SettingsTest {
    Q_OBJECT

private slots:
    void readsInOrderAndWritesResolutionsBack_data();
    void readsInOrderAndWritesResolutionsBack();
    void failedWriteBackDoesNotEndTheOpening();
    void showsTheProgress();
    void showsWhatTheToolIsSetTo();
    void writesEachChangeAtOnce();
    void autoPowerOff();
    void resetToFactory();
    void firmware_data();
    void firmware();
    void failureWhileReading_data();
    void failureWhileReading();
};

void KRVXSettingsTest::readsInOrderAndWritesResolutionsBack_data() {
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("written");
    QTest::newRow("as the fields show at first") << 0 << 0;
    QTest::newRow("3 decimals") << 3 << 3;
    QTest::newRow("more than the field can show") << 9 << 5;
}

void KRVXSettingsTest::readsInOrderAndWritesResolutionsBack() {
    QFETCH(int, decimals);
    QFETCH(int, written);
    OpenModule(EightChannels(), 0);
    Answer("GetDisplayedResolution", decimals);
    InSettings(title, [=](QDialog&, const WidgetDriver& driver) {
        COMPARE_CALLS(TakeToolCalls(),
                      OfSlot(QStringLiteral("device"), {QStringLiteral("DeviceType()"), QStringLiteral("Settings()")}) +
                          ReadingCalls(decimals, written));
        QCOMPARE(driver.The<QSpinBox>("sbChRes8")->value(), written);
    });
}

void KRVXSettingsTest::failedWriteBackDoesNotEndTheOpening() {
    OpenModule(EightChannels(), 0);
    AnswerResolutions();
    FailNext("SetDisplayedResolution", QStringLiteral("Not this one."));
    boxes.Tolerate(true);
    QDialog* settings = nullptr;
    // The box belongs to a dialog that is not open yet; it is compared when that has opened.
    InSettings(title, [&](QDialog& dialog, const WidgetDriver& driver) {
        settings = &dialog;
        QCOMPARE(driver.The<QSpinBox>("sbChRes1")->value(), 3);
        QCOMPARE(driver.The<QSpinBox>("sbChRes8")->value(), 3);
    });
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen.first().parent, settings);
    QCOMPARE(seen.first().title, QStringLiteral("KRV Config"));
    QCOMPARE(seen.first().text, QStringLiteral("Error: Not this one."));
}

void KRVXSettingsTest::showsTheProgress() {
    OpenModule(EightChannels(), 0);
    const ProgressWatch progress;
    InSettings(title, [](QDialog&, const WidgetDriver&) {});
    QCOMPARE(
        progress.Steps(),
        QStringList({QStringLiteral("0 Connecting and entering config mode. (Try 1/10)"),
                     QStringLiteral("1 Reading Identity"), QStringLiteral("10 Reading Auto Power Off Settings"),
                     QStringLiteral("15 Reading Buzzer Function"), QStringLiteral("20 Reading Resolutions"),
                     QStringLiteral("30 Reading Resolutions"), QStringLiteral("40 Reading Resolutions"),
                     QStringLiteral("50 Reading Resolutions"), QStringLiteral("60 Reading Display Settings"),
                     QStringLiteral("70 Reading Button Configuration"), QStringLiteral("80 Reading LED Configuration"),
                     QStringLiteral("90 Exiting configuration mode.")}));
}

void KRVXSettingsTest::showsWhatTheToolIsSetTo() {
    OpenModule(EightChannels(), 0);
    Answer("OffTime", 4711);
    Answer("BuzzerFunction", 1);
    Answer("DisplayOrientation", 2);
    Answer("DisplayMode", 1);
    Answer("Button1Function", 2);
    Answer("Button2Function", 1);
    Answer("LED1Function", 4);
    Answer("LED2Function", 99);
    Answer("LED3Function", 3);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        QVERIFY(Ticked(driver, "cbAutoPowerOffEnabled"));
        QCOMPARE(driver.The<QSpinBox>("sbAutoPowerOffTime")->value(), 4711);
        QVERIFY(driver.IsEnabled("sbAutoPowerOffTime"));
        QCOMPARE(Chosen(driver, "cbBuzzer"), 1);
        QCOMPARE(Chosen(driver, "cbOrientation"), 2);
        QCOMPARE(Chosen(driver, "cbMode"), 1);
        QCOMPARE(Chosen(driver, "cbButton1Conf"), 2);
        QCOMPARE(Chosen(driver, "cbButton2Conf"), 1);
        QCOMPARE(Chosen(driver, "cbLED1"), 4);
        QCOMPARE(Chosen(driver, "cbLED2"), -1); // has no entry
        QCOMPARE(Chosen(driver, "cbLED3"), 3);
    });
}

void KRVXSettingsTest::writesEachChangeAtOnce() {
    OpenModule(EightChannels(), 0);
    AnswerResolutions();
    InSettings(title, [this](QDialog& dialog, const WidgetDriver&) {
        TryNumber<QSpinBox>(dialog, "sbAutoPowerOffTime", 100, OfSettings({QStringLiteral("setOffTime(100)")}), 101);
        TryList(dialog, "cbBuzzer", QStringLiteral("setBuzzerFunction"));
        for (int channel = 1; channel <= 8; ++channel) {
            const QByteArray name = "sbChRes" + QByteArray::number(channel);
            TryNumber<QSpinBox>(dialog, name.constData(), 2, OfSettings({Set(channel, 2)}), 5);
        }
        TryList(dialog, "cbOrientation", QStringLiteral("setDisplayOrientation"));
        TryList(dialog, "cbMode", QStringLiteral("setDisplayMode"));
        TryList(dialog, "cbButton1Conf", QStringLiteral("setButton1Function"));
        TryList(dialog, "cbButton2Conf", QStringLiteral("setButton2Function"));
        TryList(dialog, "cbLED1", QStringLiteral("setLED1Function"));
        TryList(dialog, "cbLED2", QStringLiteral("setLED2Function"));
        TryList(dialog, "cbLED3", QStringLiteral("setLED3Function"));
    });
}

void KRVXSettingsTest::autoPowerOff() {
    OpenModule(EightChannels(QStringLiteral("auto-power-off=\"0\"")), 0);
    InSettings(title, [this](QDialog& dialog, const WidgetDriver& driver) {
        auto* time = driver.The<QSpinBox>("sbAutoPowerOffTime");
        QVERIFY(!Ticked(driver, "cbAutoPowerOffEnabled"));
        QCOMPARE(time->value(), 60);
        QVERIFY(!time->isEnabled());
        Calls::Mark();
        Tick(driver, "cbAutoPowerOffEnabled", true);
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setOffTime(60)")}));
        QVERIFY(time->isEnabled());
        time->setValue(90);
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setOffTime(90)")}));
        Tick(driver, "cbAutoPowerOffEnabled", false);
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("setOffTime(0)"), QStringLiteral("setOffTime(60)")}));
        QVERIFY(!time->isEnabled());
        Tick(driver, "cbAutoPowerOffEnabled", true);
        time->setValue(90);
        FailNext("setOffTime", QStringLiteral("No."));
        boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: No."));
        Tick(driver, "cbAutoPowerOffEnabled", false);
        QCOMPARE(time->value(), 90);
        QVERIFY(time->isEnabled());
    });
}

void KRVXSettingsTest::resetToFactory() {
    OpenModule(EightChannels(), 0);
    InSettings(title, [this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        boxes.ExpectInformation(
            &dialog, QStringLiteral("KRV Config"),
            QStringLiteral("Factory reset complete.\nPlease power cycle the KRV to apply the new settings."));
        QVERIFY(driver.Click("btnResetToFactory"));
        COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("ResetFactorySettings()")}));
        FailNext("ResetFactorySettings", QStringLiteral("No."));
        boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: No."));
        QVERIFY(driver.Click("btnResetToFactory"));
        QVERIFY(driver.Click("btnClose"));
        QVERIFY(!dialog.isVisible());
    });
}

void KRVXSettingsTest::firmware_data() {
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("firmware");
    const QString before(27, QLatin1Char('x'));
    QTest::newRow("usual") << before + QStringLiteral("1.08") << QStringLiteral("1.08");
    QTest::newRow("26 characters") << QString(26, QLatin1Char('1')) << QString();
}

void KRVXSettingsTest::firmware() {
    QFETCH(QString, reply);
    QFETCH(QString, firmware);
    OpenModule(EightChannels(QStringLiteral("identify=\"%1\"").arg(reply)), 0);
    InSettings(title, [firmware](QDialog& dialog, const WidgetDriver&) {
        QCOMPARE(GroupTitle(dialog),
                 QStringLiteral("KRV-X Configuration (KRX0000001) Firmware V%1     ").arg(firmware));
    });
}

void KRVXSettingsTest::failureWhileReading_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation :
         {"OffTime", "BuzzerFunction", "GetDisplayedResolution", "DisplayMode", "Button2Function", "LED3Function"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void KRVXSettingsTest::failureWhileReading() {
    QFETCH(QString, operation);
    OpenModule(EightChannels(), 0);
    FailNext(qPrintable(operation), QStringLiteral("Lost."));
    FailToOpen(QStringLiteral("Lost."));
}

TAVIK_TEST_MAIN(KRVXSettingsTest)

#include "KRVXSettingsTest.moc"
