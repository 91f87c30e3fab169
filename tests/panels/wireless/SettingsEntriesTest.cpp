#include "library/TavikRLKSettings.h"
#include "tests/panels/wireless/SettingsTest.h"

#include <QAbstractButton>

#include <dlfcn.h>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString title = QStringLiteral("KRV Settings");

/// The button, 1 or 2, whose function the tool tells as one without an entry; 0 for none.
int unknownFunctionOf = 0;

} // namespace

// Stands before the library's function, to return a function that the list has no entry for.
void TavikLibrary::RLK_DeviceSettings_KRV::GetButtonFunctions(eKRV_ButtonFunction& button1,
                                                              eKRV_ButtonFunction& button2) {
    using Get = void (*)(RLK_DeviceSettings_KRV*, eKRV_ButtonFunction&, eKRV_ButtonFunction&);
    static const auto get = reinterpret_cast<Get>(dlsym(
        RTLD_NEXT, "_ZN12TavikLibrary22RLK_DeviceSettings_KRV18GetButtonFunctionsERNS_19eKRV_ButtonFunctionES2_"));
    get(this, button1, button2);
    if (unknownFunctionOf != 0) {
        (unknownFunctionOf == 1 ? button1 : button2) = static_cast<eKRV_ButtonFunction>(7);
    }
}

/// What an operator's choices and entries in a settings dialog write.
class SettingsEntriesTest : public SettingsTest {
    Q_OBJECT

private slots:
    void unknownButtonFunctionIsWrittenBack();
    void oneEntryIsOneWrite();
    void wheelWithoutTheFocusChangesNothing();
    void clearedModulesCloseTheDialog();
};

/// The functions of both buttons are one write: that of the other button stays as it is.
void SettingsEntriesTest::unknownButtonFunctionIsWrittenBack() {
    OpenModule(SingleChannel(), 0);
    // The simulated tool has no function 7.
    boxes.Tolerate(true);
    for (const bool first : {true, false}) {
        unknownFunctionOf = first ? 1 : 2;
        InSettings(title, [first](QDialog&, const WidgetDriver& driver) {
            unknownFunctionOf = 0;
            QCOMPARE(Chosen(driver, first ? "cbButton1Func" : "cbButton2Func"), -1);
            const char* other = first ? "cbButton2Func" : "cbButton1Func";
            const int row = Chosen(driver, other) == 0 ? 1 : 0;
            Calls::Mark();
            Choose(driver, other, row);
            const QString functions = first ? QStringLiteral("7, %1").arg(row) : QStringLiteral("%1, 7").arg(row);
            COMPARE_CALLS(TakeToolCalls(), OfSettings({QStringLiteral("SetButtonFunctions(%1)").arg(functions)}));
        });
    }
}

void SettingsEntriesTest::oneEntryIsOneWrite() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [](QDialog&, WidgetDriver driver) {
        Calls::Mark();
        QVERIFY(driver.Enter("sbAutoPowerOffTime", QStringLiteral("1234")));
        QVERIFY(driver.Enter("sbPreset", QStringLiteral("12.345")));
        QVERIFY(driver.Enter("sbUpperLimit", QStringLiteral("98.76")));
        QTest::keyClick(driver.Find("sbUpperLimit"), Qt::Key_Return);
        QStringList writes = TakeToolCalls().filter(QStringLiteral(".set"));
        COMPARE_CALLS(writes, OfSettings({QStringLiteral("setAutoPowerDownTime(1234)"),
                                          QStringLiteral("setPresetValue(12.345)")}) +
                                  OfSlot(QStringLiteral("upper limit"), {QStringLiteral("setValue(98.76)")}));
    });
}

void SettingsEntriesTest::wheelWithoutTheFocusChangesNothing() {
    OpenModule(SingleChannel(), 0);
    InSettings(title, [](QDialog&, const WidgetDriver& driver) {
        driver.Find("btnClose")->setFocus();
        Calls::Mark();
        for (const char* name : {"cbLimitLED", "cbOperationMode", "sbResolution", "sbPreset"}) {
            TurnWheel(driver, name);
        }
        COMPARE_CALLS(TakeToolCalls(), QStringList());
        driver.Find("cbOperationMode")->setFocus();
        TurnWheel(driver, "cbOperationMode");
        QCOMPARE(TakeToolCalls().size(), 1);
    });
}

/// The dialog is the window's, its settings are the module's.
void SettingsEntriesTest::clearedModulesCloseTheDialog() {
    OpenModule(SingleChannel(), 0);
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [this](QDialog& dialog) {
        Window().findChild<QAbstractButton*>(QStringLiteral("btnClearModules"))->click();
        QVERIFY(!dialog.isVisible());
    };
    boxes.ExpectDialog(&Window(), title, reply);
    QVERIFY(Operator().Click("btnConfig1"));
    ProcessAllEvents();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
}

TAVIK_TEST_MAIN(SettingsEntriesTest)

#include "SettingsEntriesTest.moc"
