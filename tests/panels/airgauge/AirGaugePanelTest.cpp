#include "library/TavikModulePNX.h"
#include "tests/panels/airgauge/AirGaugeTest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Module");
const QString failure = QStringLiteral("The gauge fails.");

const QStringList filling = {QStringLiteral("DisplayUnitsOfMeasure()"),
                             QStringLiteral("MasterMinReadingInUOM()"),
                             QStringLiteral("MasterMaxReadingInUOM()"),
                             QStringLiteral("LimitHigh()"),
                             QStringLiteral("LimitLow()"),
                             QStringLiteral("IsMastered()")};
const QStringList reading = {QStringLiteral("ReadInUnits()"), QStringLiteral("PressureReading()"),
                             QStringLiteral("DisplayUnitsOfMeasure()"), QStringLiteral("OutputReadingAsPressure()")};

} // namespace

/// The air gauge's panel: what it shows of the gauge's settings, and Update Module Info.
class AirGaugePanelTest : public AirGaugeTest {
    Q_OBJECT

private slots:
    void theForm();
    void itStandsRightOfTheProbePanel();
    void bothPanelsFitTheWindow();
    void setUpAsksInOrder();
    void lengthsStandInTheDisplaysUnit_data();
    void lengthsStandInTheDisplaysUnit();
    void aLimitOfAnInch();
    void aMasteredGauge();
    void updateAsksInOrder();
    void itsFieldsHaveNamesOfTheirOwn();
    void updateShowsWhatChangedAtTheDisplay();
    void updateLeavesTheReadingAlone();
    void updateThatFails_data();
    void updateThatFails();
    void updateWhoseRedisplayFails();
    void anUnknownUnitMakesFillingFail();
    void anUnknownUnitMakesTheSetUpFail();
    void buttonsFollowTheControls();
    void noUpdateAfterTheWindowHasClosed();
};

void AirGaugePanelTest::theForm() {
    OpenGauge();
    QCOMPARE(Panel()->windowTitle(), QStringLiteral("Form"));
    for (const char* name :
         {"tbMasterA", "tbMasterB", "tbPressure", "tbLimitHigh", "tbLimitLow", "tbPNXReading", "tbPNXStatus"}) {
        const auto* field = OnPanel().The<QLineEdit>(name);
        QVERIFY(field->isReadOnly());
        QVERIFY(!field->accessibleName().isEmpty());
    }
    QCOMPARE(OnPanel().Text("btnMaster"), QStringLiteral("Master"));
    QCOMPARE(OnPanel().Text("btnConfigure"), QStringLiteral("Configure"));
    QCOMPARE(OnPanel().Text("btnUpdateModuleInfo"), QStringLiteral("Update \nModule \nInfo"));
    QStringList captions;
    const auto labels = Panel()->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        captions.append(label->text());
    }
    QCOMPARE(captions, QStringList({QStringLiteral("Master A"), QStringLiteral("Master B"), QStringLiteral("Pressure"),
                                    QStringLiteral("Limit High"), QStringLiteral("Limit Low"),
                                    QStringLiteral("Reading"), QStringLiteral("Status")}));
}

void AirGaugePanelTest::itStandsRightOfTheProbePanel() {
    OpenGauge();
    const QWidget* probe = Window().findChild<QWidget*>(QStringLiteral("ModuleKXwidget"));
    QVERIFY(probe->isVisible() && Panel()->isVisible());
    QCOMPARE(Panel()->parentWidget(), ModulePanel());
    QCOMPARE(Panel()->x(), probe->x() + probe->width());
    QCOMPARE(Panel()->y(), probe->y());
}

void AirGaugePanelTest::bothPanelsFitTheWindow() {
    OpenGauge();
    QCOMPARE(Window().size(), QSize(1100, 700));
    const QRect seen = ModulePanel()->visibleRegion().boundingRect();
    QVERIFY(seen.contains(Panel()->geometry()));
    const auto widgets = Panel()->findChildren<QWidget*>();
    for (const QWidget* child : widgets) {
        QVERIFY2(child->width() >= child->minimumSizeHint().width(), qPrintable(child->objectName()));
        QVERIFY2(child->height() >= child->minimumSizeHint().height(), qPrintable(child->objectName()));
    }
}

void AirGaugePanelTest::setUpAsksInOrder() {
    OpenList();
    QVERIFY(Operator().SelectRow("listModules", 0));
    COMPARE_CALLS(TakeAirGaugeCalls(), filling + reading);
}

void AirGaugePanelTest::lengthsStandInTheDisplaysUnit_data() {
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("mm") << QStringLiteral("mm")
                        << QStringList({QStringLiteral("-0.0250 mm"), QStringLiteral("0.0254 mm"),
                                        QStringLiteral("0.0127 mm"), QStringLiteral("-0.0130 mm")});
    QTest::newRow("inches") << QStringLiteral("inches")
                            << QStringList({QStringLiteral("-0.00098 inches"), QStringLiteral("0.00100 inches"),
                                            QStringLiteral("0.00050 inches"), QStringLiteral("-0.00051 inches")});
    QTest::newRow("mils") << QStringLiteral("mils")
                          << QStringList({QStringLiteral("-0.98 mils"), QStringLiteral("1.00 mils"),
                                          QStringLiteral("0.50 mils"), QStringLiteral("-0.51 mils")});
}

void AirGaugePanelTest::lengthsStandInTheDisplaysUnit() {
    QFETCH(QString, unit);
    QFETCH(QStringList, texts);
    OpenGauge(QStringLiteral("unit=\"%1\" master-a=\"-0.025\" master-b=\"0.0254\" limit-high=\"0.0127\" "
                             "limit-low=\"-0.013\"")
                  .arg(unit));
    QCOMPARE(QStringList({Field("tbMasterA"), Field("tbMasterB"), Field("tbLimitHigh"), Field("tbLimitLow")}), texts);
}

void AirGaugePanelTest::aLimitOfAnInch() {
    OpenGauge(QStringLiteral("unit=\"inches\" limit-high=\"25.4\""));
    QCOMPARE(Field("tbLimitHigh"), QStringLiteral("1.00000 inches"));
}

void AirGaugePanelTest::aMasteredGauge() {
    OpenGauge();
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Not Mastered"));
    Drop();
    OpenGauge(QStringLiteral("mastered=\"yes\""));
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
}

// The main window's redisplay asks for everything that the module panel shows.
void AirGaugePanelTest::updateAsksInOrder() {
    OpenGauge();
    Calls::Mark();
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    const QStringList calls = TakeGaugeCalls();
    const QStringList before = QStringList{QStringLiteral("UpdateInfo()")} + filling;
    COMPARE_CALLS(calls.mid(0, before.size()), before);
    QCOMPARE(calls.at(before.size()), QStringLiteral("Identity()"));
    QCOMPARE(calls.last(), QStringLiteral("UnitsOfMeasure()"));
    const auto later = calls.mid(before.size());
    for (const QString& call : later) {
        QVERIFY2(!filling.contains(call) && !reading.contains(call), qPrintable(call));
    }
}

/// A name that the module page has, too, would be ambiguous to styles, tests and screen readers.
void AirGaugePanelTest::itsFieldsHaveNamesOfTheirOwn() {
    OpenGauge();
    const auto fields = Panel()->findChildren<QLineEdit*>();
    for (const QLineEdit* field : fields) {
        QCOMPARE(ModulePanel()->findChildren<QLineEdit*>(field->objectName()).size(), 1);
    }
    QCOMPARE(fields.size(), 7);
}

void AirGaugePanelTest::updateShowsWhatChangedAtTheDisplay() {
    OpenGauge();
    ChangeUnitAtDisplay("Alpha", "PNX0000001", TavikLibrary::ePNX_UOM::mils);
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    QCOMPARE(Field("tbLimitHigh"), QStringLiteral("0.79 mils"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void AirGaugePanelTest::updateLeavesTheReadingAlone() {
    OpenGauge();
    const QString before = Field("tbPNXReading");
    PutInWorkPiece(0.01);
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    QCOMPARE(Field("tbPNXReading"), before);
}

void AirGaugePanelTest::updateThatFails_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::newRow("update") << QByteArray("UpdateInfo");
    for (const QString& call : filling) {
        QTest::newRow(qPrintable(call)) << call.section(QLatin1Char('('), 0, 0).toLatin1();
    }
}

// What was filled in before the failure stays; what comes after it does not happen.
void AirGaugePanelTest::updateThatFails() {
    QFETCH(QByteArray, operation);
    OpenGauge();
    Calls::Mark();
    FailNext(operation.constData(), failure);
    BoxReply reply;
    bool cursorInBox = true;
    reply.meanwhile = [&](QDialog&) { cursorInBox = QApplication::overrideCursor() != nullptr; };
    boxes.ExpectError(Panel(), boxTitle, failure, reply);
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(!cursorInBox);
    QCOMPARE(TakeGaugeCalls().constLast(), QString::fromLatin1(operation) + QStringLiteral("()"));
    QVERIFY(OnPanel().IsEnabled("btnUpdateModuleInfo"));
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    QCOMPARE(TakeGaugeCalls().constLast(), QStringLiteral("UnitsOfMeasure()"));
}

void AirGaugePanelTest::updateWhoseRedisplayFails() {
    OpenGauge();
    FailNext("DeviceType", failure);
    boxes.ExpectError(Panel(), boxTitle, failure);
    QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
    QCOMPARE(boxes.Count(), 1);
}

void AirGaugePanelTest::anUnknownUnitMakesFillingFail() {
    OpenGauge();
    for (const int unit : {-1, 3}) {
        Answer("DisplayUnitsOfMeasure", unit);
        boxes.ExpectError(Panel(), boxTitle, QStringLiteral("Unexpected PNX units in unit conversion."));
        QVERIFY(OnPanel().Click("btnUpdateModuleInfo"));
        ClearFaults();
    }
    QCOMPARE(boxes.Count(), 2);
}

void AirGaugePanelTest::anUnknownUnitMakesTheSetUpFail() {
    OpenList();
    Answer("DisplayUnitsOfMeasure", 7);
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"),
                      QStringLiteral("Unexpected PNX units in unit conversion."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void AirGaugePanelTest::buttonsFollowTheControls() {
    OpenGauge();
    const char* const buttons[] = {"btnMaster", "btnConfigure", "btnUpdateModuleInfo"};
    auto hold = Window().DisableControls(QStringLiteral("test"));
    for (const char* button : buttons) {
        QVERIFY(!OnPanel().IsEnabled(button));
    }
    QVERIFY(OnPanel().IsEnabled("tbPNXReading"));
    hold.Release();
    for (const char* button : buttons) {
        QVERIFY(OnPanel().IsEnabled(button));
    }
}

void AirGaugePanelTest::noUpdateAfterTheWindowHasClosed() {
    OpenGauge();
    Calls::Mark();
    DuringDialog("btnMaster", QStringLiteral("PNX Mastering"), [this](QDialog& dialog) {
        Window().close();
        dialog.close();
    });
    QCOMPARE(boxes.Take().size(), 1); // the wizard itself
    QVERIFY(!TakeAirGaugeCalls().contains(QStringLiteral("UpdateInfo()")));
}

TAVIK_TEST_MAIN(AirGaugePanelTest)
#include "AirGaugePanelTest.moc"
