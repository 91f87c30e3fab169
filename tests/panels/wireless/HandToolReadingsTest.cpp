#include "library/TavikRLKDevice.h"
#include "tests/panels/wireless/ReadingsTest.h"
#include "tests/support/Contrast.h"

#include <QClipboard>
#include <QIcon>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopeGuard>

using namespace TavikSimulator;
using namespace WirelessBench;

/// The dialog that shows a hand tool's readings.
class HandToolReadingsTest : public ReadingsTest {
    Q_OBJECT

private slots:
    void showsTheTool();
    void readsInOrder();
    void showsTheReadings();
    void numbersAreShort_data();
    void numbersAreShort();
    void showsEightChannels();
    void nothingTaggedGivesNoColumns();
    void taggedReadingsAreAskedForByTheirCode();
    void colourFollowsTheConnection();
    void textIsReadableOnBothColours_data();
    void textIsReadableOnBothColours();
    void failureOfARead_data();
    void failureOfARead();
    void failureKeepsWhatWasShownBefore();
    void failureOfTheLastQuestionColoursRed();
    void readingsCanBeCopied();
    void enterPressesNoButton();
};

void HandToolReadingsTest::showsTheTool() {
    OpenModule(StillTool(QStringLiteral("1"), QStringLiteral("battery=\"41\"")), 0);
    InDialog([](QDialog& dialog, const WidgetDriver& driver) {
        QVERIFY(!dialog.windowIcon().isNull());
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.findChild<QGroupBox*>(QStringLiteral("gbDevice"))->title(), QStringLiteral("RLK Device: 1"));
        const QList<QPair<const char*, QString>> fields = {
            {"tbTavikID", QStringLiteral("KRV0000001")}, {"tbName", QStringLiteral("Bore gauge")},
            {"tbType", QStringLiteral("KRV")},           {"tbStatus", QStringLiteral("Connected")},
            {"tbChannels", QStringLiteral("1")},         {"tbBattery", QStringLiteral("41%")}};
        for (const auto& field : fields) {
            const auto* edit = driver.The<QLineEdit>(field.first);
            QCOMPARE(edit->text(), field.second);
            QVERIFY(edit->isReadOnly());
            QCOMPARE(edit->styleSheet(), QStringLiteral("background-color: white"));
        }
        QVERIFY(driver.The<QRadioButton>("radioNormal")->isChecked());
        QCOMPARE(driver.Text("radioNormal"), QStringLiteral("Normal Readings"));
        QCOMPARE(driver.Text("radioTagged"), QStringLiteral("Tagged Readings"));
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
        QCOMPARE(driver.Text("btnClose"), QStringLiteral("Close"));
        QCOMPARE(Colour(dialog), green);
    });
}

void HandToolReadingsTest::readsInOrder() {
    OpenModule(StillTool(), 0);
    InDialog([](QDialog&, const WidgetDriver&) {
        const QStringList reading = OfDevice({QStringLiteral("DeviceType()"), QStringLiteral("ConnectionStatus()"),
                                              QStringLiteral("NumChannels()"), QStringLiteral("BatteryStatus()"),
                                              QStringLiteral("ReadAllChannels(1)")}) +
                                    OfSlot(QStringLiteral("readings"), {QStringLiteral("ReadingCount()")}) +
                                    OfDevice({QStringLiteral("GetChannelData(0)")}) +
                                    OfSlot(QStringLiteral("readings"), {QStringLiteral("operator[](0)")}) +
                                    OfDevice({QStringLiteral("ConnectionStatus()")});
        COMPARE_CALLS(TakeToolCalls(),
                      OfDevice({QStringLiteral("TavikIdentity()"), QStringLiteral("DeviceName()")}) + reading);
    });
}

void HandToolReadingsTest::showsTheReadings() {
    OpenModule(StillTool(), 0);
    InDialog([](QDialog& dialog, const WidgetDriver& driver) {
        const auto* table = driver.The<QTableWidget>("readingsTable");
        QStringList headings;
        for (int row = 0; row < table->rowCount(); ++row) {
            headings.append(table->verticalHeaderItem(row)->text());
        }
        QCOMPARE(headings, QStringList({QStringLiteral("ID"), QStringLiteral("Stroke"), QStringLiteral("Reading"),
                                        QStringLiteral("Status"), QStringLiteral("Tag")}));
        QCOMPARE(table->columnCount(), 1);
        QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("Ch 1"));
        const QString good = QString::fromStdString(eTavikErrors_ToString(TavikLibrary::eTavikErrors::NoError));
        QCOMPARE(Column(dialog, 0), QStringList({QStringLiteral("GA00000001"), QStringLiteral("12.5"),
                                                 QStringLiteral("1.2346"), good, QStringLiteral("0")}));
    });
}

void HandToolReadingsTest::numbersAreShort_data() {
    QTest::addColumn<QString>("stroke");
    QTest::addColumn<QString>("shown");
    QTest::newRow("whole") << QStringLiteral("12") << QStringLiteral("12");
    QTest::newRow("six digits") << QStringLiteral("123.4567") << QStringLiteral("123.457");
    QTest::newRow("small") << QStringLiteral("0.00123456789") << QStringLiteral("0.00123457");
}

void HandToolReadingsTest::numbersAreShort() {
    QFETCH(QString, stroke);
    QFETCH(QString, shown);
    OpenModule(With(Slot(1, QStringLiteral("KRV0000001")) +
                    Tool(QStringLiteral("KRV0000001"), QStringLiteral("KRV"), QString(),
                         QStringLiteral("<channel id=\"G\" stroke=\"%1\"/>").arg(stroke))),
               0);
    InDialog([shown](QDialog& dialog, const WidgetDriver&) { QCOMPARE(Column(dialog, 0).at(1), shown); });
}

void HandToolReadingsTest::showsEightChannels() {
    OpenModule(EightChannels(), 0);
    InDialog([](QDialog&, const WidgetDriver& driver) {
        const auto* table = driver.The<QTableWidget>("readingsTable");
        QCOMPARE(table->columnCount(), 8);
        for (int channel = 0; channel < 8; ++channel) {
            QCOMPARE(table->horizontalHeaderItem(channel)->text(), QStringLiteral("Ch %1").arg(channel + 1));
            QVERIFY(table->item(0, channel)->text().startsWith(QStringLiteral("CH%1").arg(channel + 1)));
        }
        QCOMPARE(driver.Text("tbType"), QStringLiteral("KRV-X"));
        QCOMPARE(driver.Text("tbChannels"), QStringLiteral("8"));
    });
}

void HandToolReadingsTest::nothingTaggedGivesNoColumns() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog&, WidgetDriver driver) {
        QVERIFY(driver.Click("radioTagged"));
        Calls::Mark();
        StopAfterReads(driver, 1);
        QVERIFY(driver.Click("btnStartStopReading"));
        const auto* table = driver.The<QTableWidget>("readingsTable");
        QCOMPARE(table->columnCount(), 0);
        QCOMPARE(table->rowCount(), 5);
    });
}

void HandToolReadingsTest::taggedReadingsAreAskedForByTheirCode() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        PressToolButton("KRV0000001", 1);
        PressToolButton("KRV0000001", 1);
        QVERIFY(driver.Click("radioTagged"));
        Calls::Mark();
        StopAfterReads(driver, 1);
        QVERIFY(driver.Click("btnStartStopReading"));
        QVERIFY(TakeToolCalls().contains(OfDevice({QStringLiteral("ReadAllChannels(3)")}).constFirst()));
        QCOMPARE(Column(dialog, 0).at(4), QStringLiteral("2"));
    });
}

void HandToolReadingsTest::colourFollowsTheConnection() {
    OpenModule(StillTool(), 0);
    for (int status = 0; status <= 6; ++status) {
        Fault fault;
        fault.operation = "ConnectionStatus";
        fault.trigger = FaultTrigger::FromNth;
        fault.effect = FaultEffect::Result;
        fault.code = status;
        const int number = AddFault(fault);
        InDialog(
            [status](QDialog& dialog, const WidgetDriver&) { QCOMPARE(Colour(dialog), status == 3 ? green : red); });
        RemoveFault(number);
    }
}

void HandToolReadingsTest::textIsReadableOnBothColours_data() {
    QTest::addColumn<bool>("dark");
    QTest::addColumn<bool>("connected");
    for (const bool dark : {false, true}) {
        for (const bool connected : {false, true}) {
            QTest::addRow("%s, %s", dark ? "dark" : "light", connected ? "green" : "red") << dark << connected;
        }
    }
}

void HandToolReadingsTest::textIsReadableOnBothColours() {
    QFETCH(bool, dark);
    QFETCH(bool, connected);
    const QPalette usual = QApplication::palette();
    if (dark) {
        QApplication::setPalette(DarkPalette());
    }
    const auto usualAgain = qScopeGuard([&usual] { QApplication::setPalette(usual); });
    OpenModule(StillTool(), 0);
    QCOMPARE(LowContrastTexts(Window(), 4.5).filter(QStringLiteral("tbDeviceType")), QStringList());
    CarryToolAway("KRV0000001", !connected);
    boxes.Tolerate(true);
    InDialog([connected](QDialog& dialog, const WidgetDriver&) {
        QCOMPARE(Colour(dialog), connected ? green : red);
        QCOMPARE(LowContrastTexts(dialog, 4.5), QStringList());
    });
}

void HandToolReadingsTest::failureOfARead_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"DeviceType", "ConnectionStatus", "NumChannels", "BatteryStatus", "ReadAllChannels",
                                  "ReadingCount", "GetChannelData", "operator[]"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void HandToolReadingsTest::failureOfARead() {
    QFETCH(QString, operation);
    OpenModule(StillTool(), 0);
    FailNext(qPrintable(operation), QStringLiteral("Weak <i>signal</i>."));
    bool opened = false;
    QDialog* parent = nullptr;
    boxes.Tolerate(true);
    InDialog([&](QDialog& dialog, const WidgetDriver&) {
        opened = true;
        parent = &dialog;
        QCOMPARE(Colour(dialog), green);
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
    });
    QVERIFY(opened);
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen.first().kind, BoxKind::Critical);
    QCOMPARE(seen.first().parent, parent);
    QCOMPARE(seen.first().title, readTitle);
    QCOMPARE(seen.first().text, QStringLiteral("Weak <i>signal</i>."));
    QCOMPARE(seen.first().buttons, QStringLiteral("OK"));
}

void HandToolReadingsTest::failureKeepsWhatWasShownBefore() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        Fault fault;
        fault.operation = "NumChannels";
        fault.text = "No.";
        AddFault(fault);
        Fault type;
        type.operation = "DeviceType";
        type.effect = FaultEffect::Result;
        type.code = 2;
        AddFault(type);
        CarryToolAway("KRV0000001", true);
        BoxReply reply;
        // The colour waits until the box has been read.
        reply.meanwhile = [&dialog](QDialog&) { QCOMPARE(Colour(dialog), green); };
        boxes.ExpectError(&dialog, readTitle, QStringLiteral("No."), reply);
        QVERIFY(driver.Click("btnStartStopReading"));
        QCOMPARE(driver.Text("tbType"), QStringLiteral("KRV-X"));
        QCOMPARE(driver.Text("tbStatus"), QStringLiteral("Out of range"));
        QCOMPARE(driver.Text("tbChannels"), QStringLiteral("1"));
        QCOMPARE(Column(dialog, 0).at(2), QStringLiteral("1.2346"));
        QCOMPARE(Colour(dialog), red);
    });
}

void HandToolReadingsTest::failureOfTheLastQuestionColoursRed() {
    OpenModule(StillTool(), 0);
    Fault fault;
    fault.operation = "ConnectionStatus";
    fault.trigger = FaultTrigger::Nth;
    fault.n = 2;
    fault.text = "Never seen.";
    AddFault(fault);
    InDialog([](QDialog& dialog, const WidgetDriver&) { QCOMPARE(Colour(dialog), red); });
    QCOMPARE(boxes.Count(), 1);
}

void HandToolReadingsTest::readingsCanBeCopied() {
    OpenModule(StillTool(), 0);
    InDialog([](QDialog&, const WidgetDriver& driver) {
        auto* table = driver.The<QTableWidget>("readingsTable");
        table->setFocus();
        table->setCurrentCell(2, 0);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("1.2346")));
        QVERIFY(!(table->editTriggers() & QAbstractItemView::DoubleClicked));
    });
}

void HandToolReadingsTest::enterPressesNoButton() {
    OpenModule(StillTool(), 0);
    InDialog([](QDialog& dialog, const WidgetDriver& driver) {
        Calls::Mark();
        driver.Find("readingsTable")->setFocus();
        QTest::keyClick(driver.Find("readingsTable"), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QCOMPARE(Reads(), 0);
    });
}

TAVIK_TEST_MAIN(HandToolReadingsTest)

#include "HandToolReadingsTest.moc"
