#include "tests/panels/airgauge/AirGaugeTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QInputDialog>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Module");
const QString failure = QStringLiteral("The gauge fails.");
const QString passcodeTitle = QStringLiteral("Enter Passcode");
const QString passcodeLabel = QStringLiteral("Enter the pascode (0 to 99999999).");

/// What the panel asks for after the dialog.
const QStringList afterwards = {QStringLiteral("UpdateInfo()"),
                                QStringLiteral("DisplayUnitsOfMeasure()"),
                                QStringLiteral("MasterMinReadingInUOM()"),
                                QStringLiteral("MasterMaxReadingInUOM()"),
                                QStringLiteral("LimitHigh()"),
                                QStringLiteral("LimitLow()"),
                                QStringLiteral("IsMastered()"),
                                QStringLiteral("ReadInUnits()"),
                                QStringLiteral("PressureReading()"),
                                QStringLiteral("DisplayUnitsOfMeasure()"),
                                QStringLiteral("OutputReadingAsPressure()")};

/// Limits of 0 change no spin box, so that filling writes nothing.
const QString noLimits = QStringLiteral("limit-high=\"0\" limit-low=\"0\"");

template <class Widget>
Widget* In(QDialog& dialog, const char* name) {
    return WidgetDriver(dialog).The<Widget>(name);
}

QString Entries(QDialog& dialog, const char* comboBox) {
    QStringList texts;
    const auto* box = In<QComboBox>(dialog, comboBox);
    for (int row = 0; row < box->count(); ++row) {
        texts.append(box->itemText(row));
    }
    return texts.join(QLatin1Char(','));
}

/// The controls in the order in which the tabulator key reaches them.
QStringList TabOrder(QDialog& dialog, const char* first, int count) {
    QStringList names;
    const QWidget* widget = dialog.findChild<QWidget*>(QLatin1String(first));
    while (names.size() < count) {
        if (widget->focusPolicy() != Qt::NoFocus && !widget->objectName().startsWith(QLatin1String("qt_"))) {
            names.append(widget->objectName());
        }
        widget = widget->nextInFocusChain();
    }
    return names;
}

/// Gives a control another value than it has.
bool Use(QDialog& dialog, const char* control) {
    QWidget* widget = WidgetDriver(dialog).Find(control);
    if (qobject_cast<QDoubleSpinBox*>(widget) != nullptr) {
        const bool entered = WidgetDriver(dialog).Enter(control, QStringLiteral("7"));
        WidgetDriver(dialog).Press(Qt::Key_Return);
        return entered;
    }
    if (qobject_cast<QComboBox*>(widget) != nullptr) {
        return WidgetDriver(dialog).Choose(control, 1);
    }
    return WidgetDriver(dialog).Click(control);
}

/// Whether the control has the value that Use gives it.
bool IsUsed(QDialog& dialog, const char* control) {
    const QWidget* widget = WidgetDriver(dialog).Find(control);
    const auto* spinBox = qobject_cast<const QDoubleSpinBox*>(widget);
    const auto* comboBox = qobject_cast<const QComboBox*>(widget);
    const auto* checkBox = qobject_cast<const QCheckBox*>(widget);
    return (spinBox == nullptr || spinBox->value() == 7.0) && (comboBox == nullptr || comboBox->currentIndex() == 1) &&
           (checkBox == nullptr || checkBox->isChecked());
}

} // namespace

/// The configuration dialog of an air gauge in use.
class PNXConfigurationDialogTest : public AirGaugeTest {
    Q_OBJECT

private slots:
    void theForm();
    void rotation();
    void checkBoxes();
    void unitsShowTheLimitsUnconverted();
    void unitsWriteLimitsThatDoNotFit();
    void limitsAreWrittenUnconverted();
    void writesThatFail_data();
    void writesThatFail();
    void readsOfTheUnitsSlotThatFail_data();
    void readsOfTheUnitsSlotThatFail();
    void passCode();
    void passCodeHasItsRange();
    void passCodeCancelled();
    void passCodeThatFails();
    void factoryReset();
    void closing_data();
    void closing();
    void whatThePanelDoesAfterwards();
    void afterwardsItMayFail();
    void keyboard();
};

void PNXConfigurationDialogTest::theForm() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog& dialog) {
        QCOMPARE(dialog.parentWidget(), Panel());
        QCOMPARE(TabOrder(dialog, "cbScreenRotation", 10).join(QLatin1Char(' ')),
                 QStringLiteral("cbScreenRotation cbRotateKeyboard cbShowPSIReading cbOutputPressure cbDisplayUOM "
                                "sbHighLimit sbLowLimit btnSetPassCode btnResetToFactory btnClose"));
        QCOMPARE(Entries(dialog, "cbScreenRotation"), QStringLiteral("None,90,180,270,Auto"));
        QCOMPARE(Entries(dialog, "cbDisplayUOM"), QStringLiteral("mm,inches,mils"));
        const QVector<std::pair<const char*, const char*>> texts = {
            {"lblScreenRotation", "Screen Rotation"},
            {"cbRotateKeyboard", "Rotate Keyboard"},
            {"cbShowPSIReading", "Show Pressure (PSI) Reading"},
            {"cbOutputPressure", "Output Pressure Instead of Reading"},
            {"lblDisplayUOM", "Display Units of Measure"},
            {"lblHighLimit", "High Limit"},
            {"lblLowLimit", "Low Limit"},
            {"btnSetPassCode", "Set Pass Code"},
            {"btnResetToFactory", "Reset to Factory Defaults"},
            {"btnClose", "Close"}};
        for (const auto& [name, text] : texts) {
            QCOMPARE(WidgetDriver(dialog).Text(name), QLatin1String(text));
        }
        for (const char* name : {"sbHighLimit", "sbLowLimit"}) {
            QCOMPARE(In<QDoubleSpinBox>(dialog, name)->minimum(), 0.0);
            QCOMPARE(In<QDoubleSpinBox>(dialog, name)->maximum(), 99.99);
        }
    });
}

void PNXConfigurationDialogTest::rotation() {
    OpenGauge(noLimits);
    DuringConfiguration([](QDialog& dialog) {
        Calls::Mark();
        for (const int row : {1, 2, 3, 4, 0}) {
            QVERIFY(WidgetDriver(dialog).Choose("cbScreenRotation", row));
            COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setRotateDisplay(%1)").arg(row)});
        }
    });
}

void PNXConfigurationDialogTest::checkBoxes() {
    OpenGauge(noLimits);
    DuringConfiguration([](QDialog& dialog) {
        const QVector<std::pair<const char*, QString>> settings = {
            {"cbRotateKeyboard", QStringLiteral("setRotateKeyboard")},
            {"cbShowPSIReading", QStringLiteral("setShowPSIReading")},
            {"cbOutputPressure", QStringLiteral("setOutputReadingAsPressure")}};
        for (const auto& [name, operation] : settings) {
            Calls::Mark();
            QVERIFY(WidgetDriver(dialog).Click(name));
            QVERIFY(WidgetDriver(dialog).Click(name));
            COMPARE_CALLS(TakeAirGaugeCalls(),
                          {operation + QStringLiteral("(true)"), operation + QStringLiteral("(false)")});
        }
    });
}

// In millimetres, whatever the unit; unlike those that filling shows.
void PNXConfigurationDialogTest::unitsShowTheLimitsUnconverted() {
    OpenGauge(QStringLiteral("limit-high=\"25.4\" limit-low=\"12.7\""));
    DuringConfiguration([](QDialog& dialog) {
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 1));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setDisplayUnitsOfMeasure(1)"), QStringLiteral("LimitLow()"),
                                            QStringLiteral("LimitHigh()")});
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->text(), QStringLiteral("25.40000"));
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbLowLimit")->text(), QStringLiteral("12.70000"));
        QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 2));
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->text(), QStringLiteral("25.40"));
        QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 0));
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbLowLimit")->text(), QStringLiteral("12.7000"));
    });
}

// Fewer decimals round what stands in a spin box, which writes it back.
void PNXConfigurationDialogTest::unitsWriteLimitsThatDoNotFit() {
    OpenGauge(QStringLiteral("limit-high=\"0.0254\" limit-low=\"0\""));
    DuringConfiguration([](QDialog& dialog) {
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 2));
        COMPARE_CALLS(TakeAirGaugeCalls(),
                      {QStringLiteral("setDisplayUnitsOfMeasure(2)"), QStringLiteral("setLimitHigh(0.03)"),
                       QStringLiteral("LimitLow()"), QStringLiteral("LimitHigh()")});
    });
}

// Once for each number that is entered, not for each of its digits.
void PNXConfigurationDialogTest::limitsAreWrittenUnconverted() {
    OpenGauge(QStringLiteral("unit=\"inches\" limit-high=\"0\" limit-low=\"0\""));
    DuringConfiguration([](QDialog& dialog) {
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Enter("sbHighLimit", QStringLiteral("1.5")));
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
        QVERIFY(WidgetDriver(dialog).Enter("sbLowLimit", QStringLiteral("2")));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setLimitHigh(1.5)")});
        WidgetDriver(dialog).Press(Qt::Key_Return);
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setLimitLow(2)")});
    });
    QCOMPARE(Field("tbLimitHigh"), QStringLiteral("0.05906 inches")); // 1.5 mm
}

void PNXConfigurationDialogTest::writesThatFail_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("rotation") << QByteArray("setRotateDisplay") << QByteArray("cbScreenRotation");
    QTest::newRow("keyboard") << QByteArray("setRotateKeyboard") << QByteArray("cbRotateKeyboard");
    QTest::newRow("show pressure") << QByteArray("setShowPSIReading") << QByteArray("cbShowPSIReading");
    QTest::newRow("output") << QByteArray("setOutputReadingAsPressure") << QByteArray("cbOutputPressure");
    QTest::newRow("unit") << QByteArray("setDisplayUnitsOfMeasure") << QByteArray("cbDisplayUOM");
    QTest::newRow("high") << QByteArray("setLimitHigh") << QByteArray("sbHighLimit");
    QTest::newRow("low") << QByteArray("setLimitLow") << QByteArray("sbLowLimit");
    QTest::newRow("reset") << QByteArray("ResetFactorySettings") << QByteArray("btnResetToFactory");
}

// Nothing is rolled back: the control stays as the operator set it, and can be used again.
void PNXConfigurationDialogTest::writesThatFail() {
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, control);
    OpenGauge(noLimits);
    DuringConfiguration([&](QDialog& dialog) {
        FailNext(operation.constData(), failure);
        boxes.ExpectError(&dialog, boxTitle, failure);
        Calls::Mark();
        QVERIFY(Use(dialog, control.constData()));
        QTRY_VERIFY(QApplication::activeModalWidget() == &dialog);
        QCOMPARE(TakeAirGaugeCalls().size(), 1);
        QVERIFY(IsUsed(dialog, control.constData()));
        QVERIFY(WidgetDriver(dialog).IsEnabled(control.constData()));
    });
    QCOMPARE(boxes.Take().size(), 2);
}

void PNXConfigurationDialogTest::readsOfTheUnitsSlotThatFail_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::newRow("low") << QByteArray("LimitLow");
    QTest::newRow("high") << QByteArray("LimitHigh");
}

void PNXConfigurationDialogTest::readsOfTheUnitsSlotThatFail() {
    QFETCH(QByteArray, operation);
    OpenGauge(noLimits);
    DuringConfiguration([&](QDialog& dialog) {
        FailNext(operation.constData(), failure);
        boxes.ExpectError(&dialog, boxTitle, failure);
        QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 1));
        QTRY_VERIFY(QApplication::activeModalWidget() == &dialog);
        QCOMPARE(In<QDoubleSpinBox>(dialog, "sbHighLimit")->decimals(), 5);
    });
    QVERIFY(Field("tbLimitHigh").endsWith(QStringLiteral(" inches"))); // what was written stays written
}

void PNXConfigurationDialogTest::passCode() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog& dialog) {
        BoxReply reply;
        reply.typed = QStringLiteral("99999999");
        boxes.ExpectNumberInput(&dialog, passcodeTitle, passcodeLabel, reply);
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Click("btnSetPassCode"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setPasscode(99999999)")});
    });
}

void PNXConfigurationDialogTest::passCodeHasItsRange() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog& dialog) {
        BoxReply reply;
        reply.meanwhile = [](QDialog& box) {
            const auto* input = qobject_cast<QInputDialog*>(&box);
            QVERIFY(input != nullptr);
            QCOMPARE(input->intMinimum(), 0);
            QCOMPARE(input->intMaximum(), 99999999);
            QCOMPARE(input->intValue(), 0);
            QCOMPARE(input->intStep(), 1);
        };
        boxes.ExpectNumberInput(&dialog, passcodeTitle, passcodeLabel, reply);
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Click("btnSetPassCode"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setPasscode(0)")});
    });
}

void PNXConfigurationDialogTest::passCodeCancelled() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog& dialog) {
        BoxReply reply;
        reply.accept = false;
        reply.typed = QStringLiteral("4711");
        boxes.ExpectNumberInput(&dialog, passcodeTitle, passcodeLabel, reply);
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Click("btnSetPassCode"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
    });
}

void PNXConfigurationDialogTest::passCodeThatFails() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog& dialog) {
        FailNext("setPasscode", failure);
        boxes.ExpectNumberInput(&dialog, passcodeTitle, passcodeLabel, {});
        boxes.ExpectError(&dialog, boxTitle, failure);
        QVERIFY(WidgetDriver(dialog).Click("btnSetPassCode"));
    });
    QCOMPARE(boxes.Take().size(), 3);
}

// At once: no question before it, no message after it, and the dialog stays as it was.
void PNXConfigurationDialogTest::factoryReset() {
    OpenGauge(QStringLiteral("mastered=\"yes\" ") + noLimits);
    DuringConfiguration([](QDialog& dialog) {
        QVERIFY(WidgetDriver(dialog).Click("cbRotateKeyboard"));
        Calls::Mark();
        QVERIFY(WidgetDriver(dialog).Click("btnResetToFactory"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("ResetFactorySettings()")});
        QVERIFY(In<QCheckBox>(dialog, "cbRotateKeyboard")->isChecked());
    });
    QCOMPARE(boxes.Take().size(), 1);
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Not Mastered"));
    QCOMPARE(Field("tbLimitHigh"), QStringLiteral("0.0200 mm"));
}

void PNXConfigurationDialogTest::closing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("window") << 1;
    QTest::newRow("escape") << 2;
}

void PNXConfigurationDialogTest::closing() {
    QFETCH(int, way);
    OpenGauge(noLimits);
    DuringConfiguration([way](QDialog& dialog) {
        Calls::Mark();
        if (way == 0) {
            QVERIFY(WidgetDriver(dialog).Click("btnClose"));
        } else if (way == 1) {
            QVERIFY(dialog.close());
        } else {
            WidgetDriver(dialog).Press(Qt::Key_Escape);
        }
        QVERIFY(!dialog.isVisible());
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
    });
    COMPARE_CALLS(TakeAirGaugeCalls(), afterwards);
}

void PNXConfigurationDialogTest::whatThePanelDoesAfterwards() {
    OpenGauge(QStringLiteral("mastered=\"yes\""));
    PutIn(NozzlePart::MasterB);
    DuringConfiguration([](QDialog& dialog) { QVERIFY(WidgetDriver(dialog).Choose("cbDisplayUOM", 2)); });
    QCOMPARE(Field("tbMasterA"), QStringLiteral("-0.79 mils"));
    QCOMPARE(Field("tbPNXReading"), QStringLiteral("0.79 mils"));
}

// A failed update does not keep the reading from being shown.
void PNXConfigurationDialogTest::afterwardsItMayFail() {
    OpenGauge(noLimits);
    DuringConfiguration([this](QDialog&) {
        FailNext("UpdateInfo", QStringLiteral("No update."));
        FailNext("PressureReading", QStringLiteral("No pressure."));
        boxes.ExpectError(Panel(), boxTitle, QStringLiteral("No update."));
        boxes.ExpectError(Panel(), boxTitle, QStringLiteral("No pressure."));
    });
    QCOMPARE(boxes.Take().size(), 3);
}

// Return in a spin box neither closes the dialog nor resets the gauge.
void PNXConfigurationDialogTest::keyboard() {
    OpenGauge(noLimits);
    DuringConfiguration([](QDialog& dialog) {
        QVERIFY(WidgetDriver(dialog).Enter("sbHighLimit", QStringLiteral("3")));
        Calls::Mark();
        WidgetDriver(dialog).Press(Qt::Key_Return);
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("setLimitHigh(3)")}); // as the spin box announces it
        QVERIFY(dialog.isVisible());
        WidgetDriver(dialog).Press(Qt::Key_F, Qt::AltModifier);
        QTRY_VERIFY(!Calls::Entries().empty()); // the button shows that it is pressed before it acts
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("ResetFactorySettings()")});
        WidgetDriver(dialog).Press(Qt::Key_C, Qt::AltModifier);
        QTRY_VERIFY(!dialog.isVisible());
    });
}

TAVIK_TEST_MAIN(PNXConfigurationDialogTest)
#include "PNXConfigurationDialogTest.moc"
