#include "library/TavikRLKDevice.h"
#include "panels/wireless/moduleRLKWidget.h"
#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/ProgramFixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString lastResort = QStringLiteral("Tavik Library Test");
const QString moduleTitle = QStringLiteral("RLK Module");

QByteArray Numbered(const char* name, int number) {
    return QByteArray(name) + QByteArray::number(number);
}

} // namespace

/// The panel of a wireless connection module: its six slots.
class WirelessPanelTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void formIsAsOperatorsKnowIt();
    void showsTheSlots();
    void fillsInOrder();
    void toolThatDoesNotAnswerIsPassedOver();
    void failureWhileFilling_data();
    void failureWhileFilling();
    void buttonsFollowIdentityAndType_data();
    void buttonsFollowIdentityAndType();
    void identityIsFetchedForEachButton();
    void disabledPanelKeepsItsIdentityBoxes();
    void openingAsksForEachIdentityThreeTimes();
    void failureWhileEnablingKeepsOneSlotOff();
    void panelWithoutAModuleDoesNothing();
    void configOfAnUnknownType();
    void configOfAnotherKind_data();
    void configOfAnotherKind();
    void failureOfConfig_data();
    void failureOfConfig();
    void failureOfRead_data();
    void failureOfRead();
    void readOpensTheSlot_data();
    void readOpensTheSlot();
    void standsBesideTheReadings();
    void removedModuleIsNotAsked();

private:
    moduleRLKWidget* Panel() { return Operator().The<moduleRLKWidget>("moduleRLKWidget"); }
    QString FieldText(const char* name, int number) { return Operator().Text(Numbered(name, number).constData()); }
    bool FieldEnabled(const char* name, int number) { return Operator().IsEnabled(Numbered(name, number).constData()); }
};

void WirelessPanelTest::formIsAsOperatorsKnowIt() {
    OpenModule(Usual(), 0);
    QCOMPARE(Panel()->windowTitle(), QStringLiteral("Form"));
    const auto* group = Panel()->findChild<QGroupBox*>();
    QCOMPARE(group->title(), QStringLiteral("Devices"));
    QStringList headings;
    for (int column = 1; column <= 4; ++column) {
        headings.append(FieldText("lblColumn", column));
    }
    QCOMPARE(headings, QStringList({QStringLiteral("#"), QStringLiteral("Tavik Identity"),
                                    QStringLiteral("Name (Up to 20 Characters)"), QStringLiteral("Device Type")}));
    for (int number = 1; number <= 6; ++number) {
        QCOMPARE(FieldText("lblSlot", number), QString::number(number));
        QCOMPARE(Operator().The<QLineEdit>(Numbered("tbTavikID", number).constData())->maxLength(), 10);
        QCOMPARE(Operator().The<QLineEdit>(Numbered("tbName", number).constData())->maxLength(), 20);
        const auto* type = Operator().The<QLineEdit>(Numbered("tbDeviceType", number).constData());
        QVERIFY(type->isReadOnly());
        QCOMPARE(type->styleSheet(), QStringLiteral("background-color: lightgray"));
        QCOMPARE(FieldText("btnRead", number), QStringLiteral("Read"));
        QCOMPARE(FieldText("btnConfig", number), QStringLiteral("Config"));
    }
    const auto* wait = Operator().The<QLabel>("lblWait");
    QCOMPARE(wait->text(), QStringLiteral("Please Wait"));
    QCOMPARE(wait->styleSheet(),
             QStringLiteral("background-color: red; color: white; border: 1px solid black; padding: 4px"));
    QCOMPARE(wait->alignment(), Qt::Alignment(Qt::AlignCenter));
    QVERIFY(!wait->autoFillBackground());
    QVERIFY(wait->isHidden());
    QCOMPARE(Operator().Text("label_11"),
             QStringLiteral("To connect to a handtool, enter its Tavik Identity above and click Apply Settings."));
    QCOMPARE(Operator().Text("btnApplySettings"), QStringLiteral("Apply Settings"));
}

void WirelessPanelTest::showsTheSlots() {
    OpenModule(Usual(), 0);
    QStringList identities;
    QStringList names;
    QStringList types;
    for (int number = 1; number <= 6; ++number) {
        identities.append(FieldText("tbTavikID", number));
        names.append(FieldText("tbName", number));
        types.append(FieldText("tbDeviceType", number));
    }
    const QString none =
        QString::fromStdString(TavikLibrary::eRLK_DeviceType_ToString(TavikLibrary::eRLK_DeviceType::None));
    QCOMPARE(identities, QStringList({QStringLiteral("KRV0000001"), QStringLiteral("KRX0000002"),
                                      QStringLiteral("KRV0000003"), QString(), QString(), QString()}));
    QCOMPARE(names, QStringList({QStringLiteral("Bore gauge"), QString::fromUtf8("Größe"), QString(), QString(),
                                 QString(), QString()}));
    QCOMPARE(types, QStringList({QStringLiteral("KRV"), QStringLiteral("KRV-X"), none, none, none, none}));
}

void WirelessPanelTest::fillsInOrder() {
    OpenNetwork(Usual());
    QVERIFY(Operator().SelectRow("listModules", 0));
    QStringList filling;
    for (const char* call :
         {"ReadAllChannels(1)", "UpdateDeviceFieldData()", "TavikIdentity()", "DeviceType()", "DeviceName()"}) {
        for (int slot = 1; slot <= 6; ++slot) {
            filling += OfSlot(QStringLiteral("device"), {QLatin1String(call)}, slot);
        }
    }
    COMPARE_CALLS(TakeToolCalls().mid(0, filling.size()), filling);
}

void WirelessPanelTest::toolThatDoesNotAnswerIsPassedOver() {
    OpenNetwork(Usual());
    Fault fault;
    fault.operation = "ReadAllChannels";
    fault.trigger = FaultTrigger::FromNth;
    fault.effect = FaultEffect::ThrowPlain;
    fault.text = "Nobody there.";
    AddFault(fault);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(Calls::TakeOperation("ReadAllChannels").size(), 6);
    QCOMPARE(FieldText("tbTavikID", 1), QStringLiteral("KRV0000001"));
    QCOMPARE(FieldText("tbDeviceType", 2), QStringLiteral("KRV-X"));
    QCOMPARE(FieldText("tbName", 1), QStringLiteral("Bore gauge"));
    QVERIFY(FieldEnabled("btnConfig", 1));
}

void WirelessPanelTest::failureWhileFilling_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"UpdateDeviceFieldData", "TavikIdentity", "DeviceType", "DeviceName"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void WirelessPanelTest::failureWhileFilling() {
    QFETCH(QString, operation);
    OpenNetwork(Usual());
    FailNext(qPrintable(operation), QStringLiteral("Gone."), "device RLK0000001.4");
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("Gone."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(TakeToolCalls().constLast(),
             OfSlot(QStringLiteral("device"), {operation + QStringLiteral("()")}, 4).constFirst());
}

void WirelessPanelTest::buttonsFollowIdentityAndType_data() {
    QTest::addColumn<QString>("identity");
    QTest::addColumn<bool>("tool");
    QTest::addColumn<bool>("read");
    QTest::addColumn<bool>("config");
    QTest::newRow("none") << QString() << false << false << false;
    QTest::newRow("9 characters") << QStringLiteral("KRV000001") << false << false << false;
    QTest::newRow("11 characters") << QStringLiteral("KRV00000001") << false << false << false;
    QTest::newRow("10 characters, no tool") << QStringLiteral("KRV0000001") << false << true << false;
    QTest::newRow("10 characters, a tool") << QStringLiteral("KRV0000001") << true << true << true;
    QTest::newRow("10 characters in 20 bytes") << QString(10, QChar(0xC4)) << false << true << false;
    QTest::newRow("5 characters in 10 bytes") << QString(5, QChar(0xC4)) << false << false << false;
    QTest::newRow("10 characters beyond the first plane") << QString::fromUcs4(U"😀😀😀😀😀😀😀😀😀😀") << false << true << false;
}

void WirelessPanelTest::buttonsFollowIdentityAndType() {
    QFETCH(QString, identity);
    QFETCH(bool, tool);
    QFETCH(bool, read);
    QFETCH(bool, config);
    OpenModule(With(Slot(4, identity) + (tool ? Tool(identity, QStringLiteral("KRV")) : QString())), 0);
    QCOMPARE(FieldEnabled("btnRead", 4), read);
    QCOMPARE(FieldEnabled("btnConfig", 4), config);
    QVERIFY(!FieldEnabled("btnRead", 3));
    QVERIFY(!FieldEnabled("btnConfig", 3));
}

void WirelessPanelTest::identityIsFetchedForEachButton() {
    OpenModule(Usual(), 0);
    Panel()->SetEnabled(true);
    QStringList expected;
    for (int slot = 1; slot <= 6; ++slot) {
        const bool hasIdentity = slot <= 3;
        expected += OfSlot(QStringLiteral("device"), {QStringLiteral("TavikIdentity()")}, slot);
        expected +=
            hasIdentity ? OfSlot(QStringLiteral("device"), {QStringLiteral("DeviceType()")}, slot) : QStringList();
        expected += OfSlot(QStringLiteral("device"), {QStringLiteral("TavikIdentity()")}, slot);
    }
    COMPARE_CALLS(TakeToolCalls(), expected);
}

void WirelessPanelTest::disabledPanelKeepsItsIdentityBoxes() {
    OpenModule(Usual(), 0);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    for (int number = 1; number <= 6; ++number) {
        for (const char* name : {"btnRead", "btnConfig", "tbDeviceType", "tbName"}) {
            QVERIFY2(!FieldEnabled(name, number), name);
        }
        QVERIFY(FieldEnabled("tbTavikID", number));
    }
    QVERIFY(!Operator().IsEnabled("btnApplySettings"));
    QCOMPARE(TakeToolCalls(), QStringList());

    hold.Release();
    for (int number = 1; number <= 6; ++number) {
        QCOMPARE(FieldEnabled("btnRead", number), number <= 3);
        QCOMPARE(FieldEnabled("btnConfig", number), number <= 2);
        QVERIFY(FieldEnabled("tbDeviceType", number));
        QVERIFY(FieldEnabled("tbName", number));
    }
    QVERIFY(Operator().IsEnabled("btnApplySettings"));
}

/// Once to be shown, and once for each of its two buttons.
void WirelessPanelTest::openingAsksForEachIdentityThreeTimes() {
    OpenNetwork(Usual());
    Calls::Mark();
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Calls::CountOf("TavikIdentity"), 18);
}

void WirelessPanelTest::failureWhileEnablingKeepsOneSlotOff() {
    OpenModule(Usual(), 0);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    FailNext("TavikIdentity", QStringLiteral("No idea."), "device RLK0000001.1");
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("No idea."));
    hold.Release();
    QTRY_COMPARE(boxes.Count(), 1);
    QVERIFY(!FieldEnabled("btnRead", 1));
    QVERIFY(!FieldEnabled("btnConfig", 1));
    QVERIFY(FieldEnabled("btnRead", 2));
    QVERIFY(FieldEnabled("btnConfig", 2));
    QVERIFY(FieldEnabled("btnRead", 3));
    QVERIFY(FieldEnabled("tbName", 6));
    QVERIFY(Operator().IsEnabled("btnApplySettings"));
    QVERIFY(Operator().IsEnabled("listModules"));
}

void WirelessPanelTest::panelWithoutAModuleDoesNothing() {
    QWidget parent;
    moduleRLKWidget panel(&parent);
    for (const bool enable : {true, false}) {
        panel.SetEnabled(enable);
        const auto buttons = panel.findChildren<QPushButton*>();
        for (const QPushButton* button : buttons) {
            QVERIFY2(!button->isEnabled(), qPrintable(button->objectName()));
        }
        QVERIFY(panel.findChild<QLineEdit*>(QStringLiteral("tbName1"))->isEnabled());
    }
}

void WirelessPanelTest::configOfAnUnknownType() {
    OpenModule(Usual(), 0);
    Fault fault;
    fault.operation = "DeviceType";
    fault.effect = FaultEffect::Result;
    fault.code = 7;
    AddFault(fault);
    boxes.ExpectError(Panel(), QStringLiteral("RLK Config"), QStringLiteral("Unsupported KRV type"));
    QVERIFY(Operator().Click("btnConfig1"));
    COMPARE_CALLS(TakeToolCalls(), OfSlot(QStringLiteral("device"), {QStringLiteral("DeviceType()")}));
}

void WirelessPanelTest::configOfAnotherKind_data() {
    using TavikLibrary::eRLK_DeviceType;
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("type");
    QTest::newRow("a single-channel tool") << 1 << static_cast<int>(eRLK_DeviceType::KRVX);
    QTest::newRow("a tool of several channels") << 2 << static_cast<int>(eRLK_DeviceType::KRV);
}

/// The tool is another than its type says: its dialog would ask it for settings that it does not have.
void WirelessPanelTest::configOfAnotherKind() {
    QFETCH(int, slot);
    QFETCH(int, type);
    OpenModule(Usual(), 0);
    Fault fault;
    fault.operation = "DeviceType";
    fault.effect = FaultEffect::Result;
    fault.code = type;
    AddFault(fault);
    boxes.ExpectError(Panel(), QStringLiteral("RLK Module"),
                      QStringLiteral("The settings of this hand tool are those of another kind of tool."));
    QVERIFY(Operator().Click(Numbered("btnConfig", slot).constData()));
    COMPARE_CALLS(TakeToolCalls(), OfSlot(QStringLiteral("device"),
                                          {QStringLiteral("DeviceType()"), QStringLiteral("Settings()")}, slot));
}

void WirelessPanelTest::failureOfConfig_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"Devices", "GetDevice", "DeviceType", "Settings"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void WirelessPanelTest::failureOfConfig() {
    QFETCH(QString, operation);
    OpenModule(Usual(), 0);
    FailNext(qPrintable(operation), QStringLiteral("Nothing <b>there</b>."));
    boxes.ExpectError(Panel(), moduleTitle, QStringLiteral("Nothing <b>there</b>."));
    QVERIFY(Operator().Click("btnConfig2"));
    QCOMPARE(boxes.Count(), 1);
}

void WirelessPanelTest::failureOfRead_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"Devices", "GetDevice", "TavikIdentity", "DeviceName"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void WirelessPanelTest::failureOfRead() {
    QFETCH(QString, operation);
    OpenModule(Usual(), 0);
    FailNext(qPrintable(operation), QStringLiteral("Not now."));
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("Not now."));
    QVERIFY(Operator().Click("btnRead1"));
    QTRY_COMPARE(boxes.Count(), 1);
}

void WirelessPanelTest::readOpensTheSlot_data() {
    QTest::addColumn<int>("number");
    for (int number = 1; number <= 6; ++number) {
        QTest::newRow(qPrintable(QString::number(number))) << number;
    }
}

void WirelessPanelTest::readOpensTheSlot() {
    QFETCH(int, number);
    QString slotsAndTools;
    for (int slot = 1; slot <= 6; ++slot) {
        const QString identity = QStringLiteral("KRV000000%1").arg(slot);
        slotsAndTools += Slot(slot, identity) + Tool(identity, QStringLiteral("KRV"));
    }
    OpenModule(With(slotsAndTools), 0);
    BoxReply reply;
    reply.meanwhile = [number](QDialog& dialog) {
        QCOMPARE(dialog.findChild<QGroupBox*>(QStringLiteral("gbDevice"))->title(),
                 QStringLiteral("RLK Device: %1").arg(number));
        QCOMPARE(WidgetDriver(dialog).Text("tbTavikID"), QStringLiteral("KRV000000%1").arg(number));
    };
    boxes.ExpectDialog(Panel(), QStringLiteral("KRV Channel Readings"), reply);
    QVERIFY(Operator().Click(Numbered("btnRead", number).constData()));

    // The type decides what a slot's Config opens; a type that nobody knows keeps the test short.
    Fault fault;
    fault.object = QStringLiteral("device RLK0000001.%1").arg(number).toStdString();
    fault.operation = "DeviceType";
    fault.effect = FaultEffect::Result;
    fault.code = -1;
    AddFault(fault);
    boxes.ExpectError(Panel(), QStringLiteral("RLK Config"), QStringLiteral("Unsupported KRV type"));
    QVERIFY(Operator().Click(Numbered("btnConfig", number).constData()));
}

void WirelessPanelTest::standsBesideTheReadings() {
    OpenModule(Usual(), 0);
    const QWidget* readings = Operator().Find("gbReading");
    const QPoint corner = readings->mapTo(&Window(), QPoint(readings->width(), 0));
    QCOMPARE(Panel()->mapTo(&Window(), QPoint(0, 0)), corner);
    QVERIFY(Window().rect().contains(QRect(corner, Panel()->size())));
}

void WirelessPanelTest::removedModuleIsNotAsked() {
    OpenModule(Usual(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().Click("btnClearModules"));
    // As a notify run does it that begins and ends with an empty list.
    auto hold = Window().DisableControls(QStringLiteral("test"));
    hold.Release();
    ProcessAllEvents();
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
    QCOMPARE(boxes.Count(), 0);
}

TAVIK_TEST_MAIN(WirelessPanelTest)

#include "WirelessPanelTest.moc"
