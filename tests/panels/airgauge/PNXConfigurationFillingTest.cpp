#include "tests/panels/airgauge/AirGaugeTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Module");
const QString failure = QStringLiteral("The gauge fails.");

const QStringList filling = {QStringLiteral("HasDisplay()"),     QStringLiteral("DisplayUnitsOfMeasure()"),
                             QStringLiteral("RotateDisplay()"),  QStringLiteral("RotateKeyboard()"),
                             QStringLiteral("ShowPSIReading()"), QStringLiteral("LimitHigh()"),
                             QStringLiteral("LimitLow()"),       QStringLiteral("OutputReadingAsPressure()")};

/// Limits of 0 change no spin box, so that filling writes nothing.
const QString noLimits = QStringLiteral("limit-high=\"0\" limit-low=\"0\"");

const char* const checkBoxes[] = {"cbRotateKeyboard", "cbShowPSIReading", "cbOutputPressure"};

template <class Widget>
Widget* In(QDialog& dialog, const char* name) {
    return WidgetDriver(dialog).The<Widget>(name);
}

} // namespace

/// How the configuration dialog of an air gauge is filled, and what it writes on the way.
class PNXConfigurationFillingTest : public AirGaugeTest {
    Q_OBJECT

private slots:
    void fillingAsksInOrder();
    void fillingWritesLimitsBack();
    void fillingInInchesWritesOnTheWay();
    void oneEntryIsOneWrite();
    void untouchedLimitIsNotWritten();
    void fillingWithARotation();
    void checkBoxesAreFilledWithoutWriting();
    void eachCheckBoxShowsItsOwnSetting_data();
    void eachCheckBoxShowsItsOwnSetting();
    void withoutADisplay();
    void anOutputThatCannotBeAsked();
    void fillingThatFails_data();
    void fillingThatFails();
    void aWriteThatFailsDuringFilling();
    void anUnknownUnit();
    void anUnknownRotationIsPassedOn();
};

void PNXConfigurationFillingTest::fillingAsksInOrder() {
    OpenGauge(noLimits);
    Calls::Mark();
    DuringConfiguration([](QDialog& dialog) {
        COMPARE_CALLS(TakeAirGaugeCalls(), filling);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->decimals(), 4);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbLowLimit")->decimals(), 4);
    });
}

// A limit below 0 does not fit into its spin box, which stays at 0 and therefore writes nothing.
void PNXConfigurationFillingTest::fillingWritesLimitsBack() {
    OpenGauge(QStringLiteral("limit-high=\"0.0254\" limit-low=\"-0.02\""));
    Calls::Mark();
    DuringConfiguration([](QDialog& dialog) {
        QStringList expected = filling;
        expected.insert(expected.indexOf(QStringLiteral("LimitHigh()")) + 1, QStringLiteral("setLimitHigh(0.0254)"));
        COMPARE_CALLS(TakeAirGaugeCalls(), expected);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->value(), 0.0254);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbLowLimit")->value(), 0.0);
    });
}

// The units' slot shows the limits in millimetres and writes them back; then filling shows them in inches, and
// what was 25.4 mm is 1 mm afterwards. Operators of this tool know it.
void PNXConfigurationFillingTest::fillingInInchesWritesOnTheWay() {
    OpenGauge(QStringLiteral("unit=\"inches\" limit-high=\"25.4\" limit-low=\"12.7\""));
    Calls::Mark();
    DuringConfiguration([](QDialog& dialog) {
        COMPARE_CALLS(TakeAirGaugeCalls(),
                      {QStringLiteral("HasDisplay()"), QStringLiteral("DisplayUnitsOfMeasure()"),
                       QStringLiteral("RotateDisplay()"), QStringLiteral("RotateKeyboard()"),
                       QStringLiteral("ShowPSIReading()"), QStringLiteral("setDisplayUnitsOfMeasure(1)"),
                       QStringLiteral("LimitLow()"), QStringLiteral("setLimitLow(12.7)"), QStringLiteral("LimitHigh()"),
                       QStringLiteral("setLimitHigh(25.4)"), QStringLiteral("LimitHigh()"),
                       QStringLiteral("setLimitHigh(1)"), QStringLiteral("LimitLow()"),
                       QStringLiteral("setLimitLow(0.5)"), QStringLiteral("OutputReadingAsPressure()")});
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->value(), 1.0);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->decimals(), 5);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbLowLimit")->value(), 0.5);
        QCOMPARE(In<QComboBox>(dialog, "cbDisplayUOM")->currentText(), QStringLiteral("inches"));
    });
    QCOMPARE(Field("tbLimitHigh"), QStringLiteral("0.03937 inches"));
}

void PNXConfigurationFillingTest::oneEntryIsOneWrite() {
    OpenGauge(noLimits);
    DuringConfiguration([](QDialog& dialog) {
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Enter("sbHighLimit", QStringLiteral("0.015")));
        WidgetDriver(dialog).Press(Qt::Key_Tab);
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setLimitHigh(0.015)")});
    });
}

// The spin box shows 0 for a limit below 0.
void PNXConfigurationFillingTest::untouchedLimitIsNotWritten() {
    OpenGauge(QStringLiteral("limit-high=\"0\" limit-low=\"-0.02\""));
    DuringConfiguration([](QDialog& dialog) {
        In<QDoubleSpinBox>(dialog, "sbLowLimit")->setFocus();
        Calls::Mark();
        WidgetDriver(dialog).Press(Qt::Key_Return);
        WidgetDriver(dialog).Press(Qt::Key_Tab);
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
    });
}

void PNXConfigurationFillingTest::fillingWithARotation() {
    OpenGauge(noLimits);
    DuringConfiguration([](QDialog& dialog) { QVERIFY(WidgetDriver(dialog).Choose("cbScreenRotation", 4)); });
    Calls::Mark();
    DuringConfiguration([](QDialog& dialog) {
        QStringList expected = filling;
        expected.insert(3, QStringLiteral("setRotateDisplay(4)"));
        COMPARE_CALLS(TakeAirGaugeCalls(), expected);
        QCOMPARE(In<QComboBox>(dialog, "cbScreenRotation")->currentText(), QStringLiteral("Auto"));
    });
}

void PNXConfigurationFillingTest::checkBoxesAreFilledWithoutWriting() {
    OpenGauge(noLimits);
    DuringConfiguration([&](QDialog& dialog) {
        for (const char* name : checkBoxes) {
            QVERIFY(!In<QCheckBox>(dialog, name)->isChecked());
            QVERIFY(WidgetDriver(dialog).Click(name));
        }
    });
    Calls::Mark();
    DuringConfiguration([&](QDialog& dialog) {
        COMPARE_CALLS(TakeAirGaugeCalls(), filling);
        for (const char* name : checkBoxes) {
            QVERIFY(In<QCheckBox>(dialog, name)->isChecked());
        }
    });
}

void PNXConfigurationFillingTest::eachCheckBoxShowsItsOwnSetting_data() {
    QTest::addColumn<QString>("set");
    for (const char* name : checkBoxes) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void PNXConfigurationFillingTest::eachCheckBoxShowsItsOwnSetting() {
    QFETCH(QString, set);
    OpenGauge(noLimits);
    DuringConfiguration([&](QDialog& dialog) { QVERIFY(WidgetDriver(dialog).Click(set.toLatin1().constData())); });
    DuringConfiguration([&](QDialog& dialog) {
        for (const char* name : checkBoxes) {
            QCOMPARE(In<QCheckBox>(dialog, name)->isChecked(), set == QLatin1String(name));
        }
    });
}

void PNXConfigurationFillingTest::withoutADisplay() {
    OpenGauge(QString(), QStringLiteral("display=\"no\""));
    Calls::Mark();
    DuringConfiguration([](QDialog& dialog) {
        COMPARE_CALLS(TakeAirGaugeCalls(),
                      {QStringLiteral("HasDisplay()"), QStringLiteral("OutputReadingAsPressure()")});
        for (const char* name : {"cbScreenRotation", "cbRotateKeyboard", "cbShowPSIReading", "cbDisplayUOM",
                                 "sbHighLimit", "sbLowLimit", "btnSetPassCode"}) {
            QVERIFY2(!WidgetDriver(dialog).IsEnabled(name), name);
        }
        for (const char* name : {"cbOutputPressure", "btnResetToFactory", "btnClose"}) {
            QVERIFY2(WidgetDriver(dialog).IsEnabled(name), name);
        }
        QVERIFY(WidgetDriver(dialog).Click("cbOutputPressure"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setOutputReadingAsPressure(true)")});
    });
}

void PNXConfigurationFillingTest::anOutputThatCannotBeAsked() {
    OpenGauge(noLimits);
    FailNext("OutputReadingAsPressure", failure);
    DuringConfiguration([](QDialog& dialog) {
        QVERIFY(!WidgetDriver(dialog).IsEnabled("cbOutputPressure"));
        QVERIFY(WidgetDriver(dialog).IsEnabled("cbRotateKeyboard"));
    });
    QCOMPARE(boxes.Take().size(), 1); // the dialog
}

void PNXConfigurationFillingTest::fillingThatFails_data() {
    QTest::addColumn<QByteArray>("operation");
    const auto butTheLast = filling.mid(0, filling.size() - 1);
    for (const QString& call : butTheLast) {
        QTest::newRow(qPrintable(call)) << call.section(QLatin1Char('('), 0, 0).toLatin1();
    }
}

// The dialog does not open, and nothing is updated afterwards.
void PNXConfigurationFillingTest::fillingThatFails() {
    QFETCH(QByteArray, operation);
    OpenGauge(noLimits);
    Calls::Mark();
    FailNext(operation.constData(), failure);
    boxes.ExpectError(Panel(), boxTitle, failure);
    QVERIFY(OnPanel().Click("btnConfigure"));
    QCOMPARE(boxes.Take().size(), 1);
    QCOMPARE(TakeAirGaugeCalls().constLast(), QString::fromLatin1(operation) + QStringLiteral("()"));
    DuringConfiguration([](QDialog&) {});
}

// Over the dialog, which is not to be seen yet; filling goes on.
void PNXConfigurationFillingTest::aWriteThatFailsDuringFilling() {
    OpenGauge(QStringLiteral("limit-high=\"0.02\" limit-low=\"0\""));
    FailNext("setLimitHigh", failure);
    Calls::Mark();
    boxes.Tolerate(true);
    DuringConfiguration([](QDialog& dialog) {
        QCOMPARE(TakeAirGaugeCalls().constLast(), filling.last());
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->value(), 0.02);
    });
    const SeenBox box = boxes.Take().constFirst();
    QCOMPARE(box.kind, BoxKind::Critical);
    QCOMPARE(box.parentClass, QStringLiteral("PNXConfigurationDialog"));
    QCOMPARE(box.title, boxTitle);
    QCOMPARE(box.text, failure);
    QCOMPARE(box.buttons, QStringLiteral("OK"));
}

// The combo box has no such row and selects none; its slot sends the unit back as it came. The box of the refusal is
// the dialog's, that of the conversion the panel's.
void PNXConfigurationFillingTest::anUnknownUnit() {
    OpenGauge(noLimits);
    Answer("DisplayUnitsOfMeasure", 3);
    Calls::Mark();
    boxes.Tolerate(true);
    QVERIFY(OnPanel().Click("btnConfigure"));
    COMPARE_CALLS(TakeAirGaugeCalls(), filling.mid(0, 5) + QStringList{QStringLiteral("setDisplayUnitsOfMeasure(3)"),
                                                                       QStringLiteral("LimitHigh()")});
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen.at(0).text, QStringLiteral("An air gauge has no display unit 3."));
    QCOMPARE(seen.at(0).parentClass, QStringLiteral("PNXConfigurationDialog"));
    QCOMPARE(seen.at(1).text, QStringLiteral("Unexpected PNX units in unit conversion."));
    QCOMPARE(seen.at(1).parent, Panel());
    QCOMPARE(seen.at(1).title, boxTitle);
}

void PNXConfigurationFillingTest::anUnknownRotationIsPassedOn() {
    OpenGauge(noLimits);
    Answer("RotateDisplay", 9);
    Calls::Mark();
    boxes.Tolerate(true);
    DuringConfiguration([](QDialog& dialog) {
        QVERIFY(TakeAirGaugeCalls().contains(QStringLiteral("setRotateDisplay(9)")));
        QCOMPARE(In<QComboBox>(dialog, "cbScreenRotation")->currentIndex(), -1);
    });
    QCOMPARE(boxes.Take().constFirst().text, QStringLiteral("An air gauge's display has no rotation 9."));
}

TAVIK_TEST_MAIN(PNXConfigurationFillingTest)
#include "PNXConfigurationFillingTest.moc"
