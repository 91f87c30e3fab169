#include "library/TavikModulePNX.h"
#include "tests/panels/airgauge/PNXMasterTest.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Mastering");
const QString failure = QStringLiteral("The gauge fails.");
const QString tooFar = QStringLiteral("Distance between Master A and Master B cannot be\ngreater than ");

QDoubleSpinBox* SpinBox(QDialog& wizard, const char* name) {
    return wizard.findChild<QDoubleSpinBox*>(QLatin1String(name));
}

} // namespace

/// The stages of the mastering wizard, the distance rule and the ways out.
class PNXMasterStagesTest : public PNXMasterTest {
    Q_OBJECT

private slots:
    void theForm();
    void openingAsksInOrder();
    void lastMastersStandInTheDisplaysUnit_data();
    void lastMastersStandInTheDisplaysUnit();
    void aMasterBeyondTheSpinBox();
    void openingThatFails_data();
    void openingThatFails();
    void openingWithAnUnknownUnit();
    void forthAndBack();
    void theRule_data();
    void theRule();
    void theRuleHoldsAtEveryStage();
    void theRuleHoldsForWrite();
    void closingAsks_data();
    void closingAsks();
    void closingTheSummaryDoesNotAsk_data();
    void closingTheSummaryDoesNotAsk();
    void afterwardsTheInformationIsUpdated();
    void keyboard();
};

void PNXMasterStagesTest::theForm() {
    OpenGauge();
    During([this](QDialog& wizard) {
        QCOMPARE(wizard.parentWidget(), Panel());
        QCOMPARE(wizard.windowTitle(), boxTitle);
        for (int stage = 1; stage <= 5; ++stage) {
            const auto* panel = wizard.findChild<QWidget*>(QStringLiteral("stage%1").arg(stage));
            QCOMPARE(panel->findChild<QLabel*>(QStringLiteral("lblStage%1").arg(stage))->text(),
                     QStringLiteral("Stage %1/5").arg(stage));
        }
        for (const char* name : {"sbMasterA", "sbMasterB"}) {
            QCOMPARE(SpinBox(wizard, name)->decimals(), 3);
            QCOMPARE(SpinBox(wizard, name)->minimum(), -999.999);
            QCOMPARE(SpinBox(wizard, name)->maximum(), 999.999);
        }
        const QVector<std::pair<const char*, const char*>> texts = {
            {"btnCancel", "Cancel"},
            {"btnBack", "<<< Back"},
            {"btnNext", "Next >>>"},
            {"lblMasterReadingA", "Master Reading A"},
            {"lblMasterReadingB", "Master Reading B"},
            {"lblPlaceInA", "<html><head/><body><p>Place Probe </p><p>in Master A</p></body></html>"},
            {"lblSetPressure", "Set Pressure"},
            {"lblPlaceInB", "<html><head/><body><p>Place Probe</p><p>In Master B</p></body></html>"},
            {"lblSummaryPressureA", "Master Pressure A"},
            {"lblSummaryPressureB", "Master Pressure B"},
            {"lblClickWrite", "Click Write to Apply Mastering"}};
        for (const auto& [name, text] : texts) {
            QCOMPARE(Shown(wizard, name), QLatin1String(text));
        }
        QVERIFY(WidgetDriver(wizard).Find("tbPressure")->property("readOnly").toBool());
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::openingAsksInOrder() {
    OpenGauge();
    Calls::Mark();
    During([this](QDialog& wizard) {
        COMPARE_CALLS(TakeAirGaugeCalls(),
                      {QStringLiteral("DisplayUnitsOfMeasure()"), QStringLiteral("MasterMinReadingInUOM()"),
                       QStringLiteral("MasterMaxReadingInUOM()")});
        QCOMPARE(StageOf(wizard), 1);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::lastMastersStandInTheDisplaysUnit_data() {
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::newRow("mm") << QStringLiteral("mm") << -0.127 << 2.54;
    QTest::newRow("inches") << QStringLiteral("inches") << -0.005 << 0.1;
    QTest::newRow("mils") << QStringLiteral("mils") << -5.0 << 100.0;
}

void PNXMasterStagesTest::lastMastersStandInTheDisplaysUnit() {
    QFETCH(QString, unit);
    QFETCH(double, a);
    QFETCH(double, b);
    OpenGauge(QStringLiteral("unit=\"%1\" master-a=\"-0.127\" master-b=\"2.54\"").arg(unit));
    During([&](QDialog& wizard) {
        QCOMPARE(SpinBox(wizard, "sbMasterA")->value(), a);
        QCOMPARE(SpinBox(wizard, "sbMasterB")->value(), b);
        QCOMPARE(Shown(wizard, "lblUnitA"), unit);
        QCOMPARE(Shown(wizard, "lblUnitB"), unit);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::aMasterBeyondTheSpinBox() {
    OpenGauge(QStringLiteral("unit=\"mils\" master-b=\"-9.5\" master-a=\"9.9\""));
    During([this](QDialog& wizard) {
        QCOMPARE(SpinBox(wizard, "sbMasterA")->value(), 389.764);
        QCOMPARE(SpinBox(wizard, "sbMasterB")->value(), -374.016);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::openingThatFails_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<double>("a");
    QTest::newRow("unit") << QByteArray("DisplayUnitsOfMeasure") << 0.0;
    QTest::newRow("master A") << QByteArray("MasterMinReadingInUOM") << 0.0;
    QTest::newRow("master B") << QByteArray("MasterMaxReadingInUOM") << -0.02;
}

// Over the wizard, which is not to be seen yet; then it begins all the same.
void PNXMasterStagesTest::openingThatFails() {
    QFETCH(QByteArray, operation);
    QFETCH(double, a);
    OpenGauge();
    FailNext(operation.constData(), failure);
    boxes.Tolerate(true);
    During([&](QDialog& wizard) {
        QCOMPARE(StageOf(wizard), 1);
        QCOMPARE(SpinBox(wizard, "sbMasterA")->value(), a);
        QCOMPARE(SpinBox(wizard, "sbMasterB")->value(), 0.0);
        // What is entered without a unit would be taken for mm.
        QCOMPARE(WidgetDriver(wizard).IsEnabled("btnNext"), operation != "DisplayUnitsOfMeasure");
        CancelWizard(wizard);
    });
    const SeenBox box = boxes.Take().constFirst();
    QCOMPARE(box.kind, BoxKind::Critical);
    QCOMPARE(box.parentClass, QStringLiteral("PNXMaster"));
    QCOMPARE(box.title, boxTitle);
    QCOMPARE(box.text, failure);
    QCOMPARE(box.buttons, QStringLiteral("OK"));
}

// Nothing can be converted then: the wizard shows why there is no next stage.
void PNXMasterStagesTest::openingWithAnUnknownUnit() {
    OpenGauge();
    const QString text = QStringLiteral("Unexpected PNX units in unit conversion.");
    Answer("DisplayUnitsOfMeasure", 5);
    boxes.Tolerate(true);
    During([&](QDialog& wizard) {
        ClearFaults();
        QCOMPARE(boxes.Take().constFirst().text, text);
        boxes.ExpectError(&wizard, boxTitle, text);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QTRY_COMPARE(boxes.Count(), 1);
        QTRY_COMPARE(QApplication::activeModalWidget(), &wizard);
        QCOMPARE(StageOf(wizard), 1);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::forthAndBack() {
    OpenGauge();
    During([this](QDialog& wizard) {
        const auto check = [&](int stage) {
            QCOMPARE(StageOf(wizard), stage);
            QCOMPARE(WidgetDriver(wizard).IsEnabled("btnBack"), stage >= 2);
            QCOMPARE(WidgetDriver(wizard).IsEnabled("btnNext"), true);
            QCOMPARE(Shown(wizard, "btnNext"), stage == 5 ? QStringLiteral("Write") : QStringLiteral("Next >>>"));
        };
        check(1);
        GoTo(2, wizard);
        check(2);
        WhenLive(wizard, [&] {
            check(3);
            QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            check(4);
        });
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        check(4);
        GoTo(5, wizard);
        check(5);
        QVERIFY(WidgetDriver(wizard).Click("btnBack"));
        check(4);
        WhenLive(wizard, [&] {
            check(3);
            QVERIFY(WidgetDriver(wizard).Click("btnBack"));
        });
        QVERIFY(WidgetDriver(wizard).Click("btnBack"));
        check(2);
        QVERIFY(WidgetDriver(wizard).Click("btnBack"));
        check(1);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::theRule_data() {
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<QString>("limit"); // empty where the masters are near enough
    const QString none;
    QTest::newRow("mm, exactly") << QStringLiteral("mm") << 0.0 << 65.0 << none;
    QTest::newRow("mm, exactly, downwards") << QStringLiteral("mm") << 32.5 << -32.5 << none;
    QTest::newRow("mm, exactly, unround") << QStringLiteral("mm") << -64.7 << 0.3 << none;
    QTest::newRow("mm, exactly, with a rounding above") << QStringLiteral("mm") << 64.401 << 129.401 << none;
    QTest::newRow("mm, beyond") << QStringLiteral("mm") << 0.0 << 65.001 << QStringLiteral("65.0000 mm");
    QTest::newRow("mm, beyond, downwards") << QStringLiteral("mm") << 65.001 << 0.0 << QStringLiteral("65.0000 mm");
    QTest::newRow("inches") << QStringLiteral("inches") << 0.0 << 2.559 << none;
    QTest::newRow("inches, beyond") << QStringLiteral("inches") << 0.0 << 2.56 << QStringLiteral("2.55906 inches");
    QTest::newRow("mils") << QStringLiteral("mils") << -999.999 << 999.999 << none;
}

void PNXMasterStagesTest::theRule() {
    QFETCH(QString, unit);
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(QString, limit);
    OpenGauge(QStringLiteral("unit=\"%1\"").arg(unit));
    During([&](QDialog& wizard) {
        QVERIFY(WidgetDriver(wizard).Enter("sbMasterA", QString::number(a, 'f', 3)));
        QVERIFY(WidgetDriver(wizard).Enter("sbMasterB", QString::number(b, 'f', 3)));
        WidgetDriver(wizard).Press(Qt::Key_Tab);
        QCOMPARE(SpinBox(wizard, "sbMasterA")->value(), a);
        QCOMPARE(SpinBox(wizard, "sbMasterB")->value(), b);
        if (!limit.isEmpty()) {
            boxes.ExpectError(&wizard, boxTitle, tooFar + limit);
        }
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(StageOf(wizard), limit.isEmpty() ? 2 : 1);
        CancelWizard(wizard);
    });
}

// What was entered at stage 1 is looked at each time.
void PNXMasterStagesTest::theRuleHoldsAtEveryStage() {
    OpenGauge();
    During([this](QDialog& wizard) {
        const auto refused = [&](int stage) {
            SetMasters(wizard, -40.0, 40.0);
            boxes.ExpectError(&wizard, boxTitle, tooFar + QStringLiteral("65.0000 mm"));
            QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            QCOMPARE(StageOf(wizard), stage);
            SetMasters(wizard, -30.0, 30.0);
        };
        GoTo(2, wizard);
        refused(2);
        WhenLive(wizard, [&] {
            refused(3);
            // The pressure is live again once the box has gone.
            PutIn(NozzlePart::MasterA);
            WhenShown(wizard, -0.02, [&] { QVERIFY(WidgetDriver(wizard).Click("btnNext")); });
        });
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(StageOf(wizard), 4);
        refused(4);
        CancelWizard(wizard);
    });
}

void PNXMasterStagesTest::theRuleHoldsForWrite() {
    OpenGauge();
    During([this](QDialog& wizard) {
        GoTo(5, wizard);
        SetMasters(wizard, -40.0, 40.0);
        boxes.ExpectError(&wizard, boxTitle, tooFar + QStringLiteral("65.0000 mm"));
        Calls::Mark();
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
        QCOMPARE(StageOf(wizard), 5);
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
    });
}

void PNXMasterStagesTest::closingAsks_data() {
    QTest::addColumn<int>("stage");
    QTest::addColumn<int>("way");
    for (const int stage : {1, 2, 4}) {
        QTest::addRow("Cancel at stage %d", stage) << stage << 0;
        QTest::addRow("close button at stage %d", stage) << stage << 1;
        QTest::addRow("Escape at stage %d", stage) << stage << 2;
    }
}

void PNXMasterStagesTest::closingAsks() {
    QFETCH(int, stage);
    QFETCH(int, way);
    OpenGauge();
    During([&](QDialog& wizard) {
        const auto leave = [&] {
            if (way == 0) {
                WidgetDriver(wizard).Click("btnCancel");
            } else if (way == 1) {
                wizard.close();
            } else {
                WidgetDriver(wizard).Press(Qt::Key_Escape);
            }
        };
        GoTo(stage, wizard);
        Calls::Mark();
        ExpectSure(wizard, false);
        leave();
        QVERIFY(wizard.isVisible());
        QCOMPARE(StageOf(wizard), stage);
        ExpectSure(wizard, true);
        leave();
        QVERIFY(!wizard.isVisible());
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
    });
}

void PNXMasterStagesTest::closingTheSummaryDoesNotAsk_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("close button") << 1;
    QTest::newRow("Escape") << 2;
}

void PNXMasterStagesTest::closingTheSummaryDoesNotAsk() {
    QFETCH(int, way);
    OpenGauge();
    During([&](QDialog& wizard) {
        GoTo(5, wizard);
        Calls::Mark();
        if (way == 0) {
            QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
        } else if (way == 1) {
            QVERIFY(wizard.close());
        } else {
            WidgetDriver(wizard).Press(Qt::Key_Escape);
        }
        QVERIFY(!wizard.isVisible());
        COMPARE_CALLS(TakeAirGaugeCalls(), {});
    });
    QCOMPARE(boxes.Take().size(), 1);
}

void PNXMasterStagesTest::afterwardsTheInformationIsUpdated() {
    OpenGauge();
    During([this](QDialog& wizard) {
        ChangeUnitAtDisplay("Alpha", "PNX0000001", TavikLibrary::ePNX_UOM::mils);
        CancelWizard(wizard);
        Calls::Mark();
    });
    const QStringList calls = TakeGaugeCalls();
    QCOMPARE(calls.first(), QStringLiteral("UpdateInfo()"));
    QCOMPARE(calls.last(), QStringLiteral("UnitsOfMeasure()"));
    QVERIFY(!calls.contains(QStringLiteral("PressureReading()"))); // the reading stays as it was
    QCOMPARE(Field("tbMasterA"), QStringLiteral("-0.79 mils"));
}

void PNXMasterStagesTest::keyboard() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    const auto press = [](QDialog& wizard, Qt::Key key) { WidgetDriver(wizard).Press(key, Qt::AltModifier); };
    During([&](QDialog& wizard) {
        QVERIFY(WidgetDriver(wizard).Enter("sbMasterA", QStringLiteral("0.1")));
        WidgetDriver(wizard).Press(Qt::Key_Return);
        QCOMPARE(StageOf(wizard), 2);
        press(wizard, Qt::Key_B);
        QTRY_COMPARE(StageOf(wizard), 1);
        GoTo(4, wizard);
        press(wizard, Qt::Key_N);
        QTRY_COMPARE(StageOf(wizard), 5);
        press(wizard, Qt::Key_C);
        QTRY_VERIFY(!wizard.isVisible());
    });
    During([&](QDialog& wizard) {
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        GoTo(5, wizard);
        press(wizard, Qt::Key_N);
        QTRY_VERIFY(!wizard.isVisible());
    });
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
}

TAVIK_TEST_MAIN(PNXMasterStagesTest)
#include "PNXMasterStagesTest.moc"
