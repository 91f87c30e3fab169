#include "simulator/signals/AirGap.h"
#include "tests/panels/airgauge/PNXMasterTest.h"

#include <QDoubleSpinBox>

#include <cmath>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Mastering");
const QString failure = QStringLiteral("The gauge fails.");

const char* const writes[] = {"setMasterMinPressure", "setMasterMaxPressure", "setMasterMinReadingInUOM",
                              "setMasterMaxReadingInUOM", "ApplyMastering"};

QStringList OperationsOf(const QStringList& calls) {
    QStringList operations;
    for (const QString& call : calls) {
        operations.append(call.section(QLatin1Char('('), 0, 0));
    }
    return operations;
}

double ArgumentOf(const QString& call) {
    return call.section(QLatin1Char('('), 1).chopped(1).toDouble();
}

bool Near(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

double PressureFor(double size) {
    return BackPressure(28.0, 0.055 + size / 2.0, {});
}

} // namespace

/// Writing the mastering, and what the gauge measures with it.
class PNXMasterWriteTest : public PNXMasterTest {
    Q_OBJECT

private slots:
    void writeWritesInOrder();
    void lengthsAreWrittenInMillimetres_data();
    void lengthsAreWrittenInMillimetres();
    void writeThatFails_data();
    void writeThatFails();
    void writtenValuesStayWritten();
    void theOperatorMastersAndMeasures();
    void masteredTheWrongWayRound();

private:
    /// Masters as an operator does, who is told these sizes and takes the masters in this order.
    void Master(double a, double b, NozzlePart first, NozzlePart second);
    /// The mean of some readings that the panel shows, in mm.
    double Measured(double size);
};

void PNXMasterWriteTest::Master(double a, double b, NozzlePart first, NozzlePart second) {
    During([&](QDialog& wizard) {
        QVERIFY(WidgetDriver(wizard).Enter("sbMasterA", QString::number(a, 'f', 3)));
        QVERIFY(WidgetDriver(wizard).Enter("sbMasterB", QString::number(b, 'f', 3)));
        GoTo(2, wizard);
        PutIn(first);
        GoTo(4, wizard);
        PutIn(second);
        GoTo(5, wizard);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QVERIFY(!wizard.isVisible());
    });
}

double PNXMasterWriteTest::Measured(double size) {
    constexpr int readings = 9;
    double sum = 0.0;
    for (int i = 0; i < readings; ++i) {
        PutInWorkPiece(size);
        Operator().Click("btnRead");
        sum += Field("tbPNXReading").section(QLatin1Char(' '), 0, 0).toDouble();
    }
    return sum / readings;
}

void PNXMasterWriteTest::writeWritesInOrder() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        SetMasters(wizard, -0.02, 0.021);
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        GoTo(5, wizard);
        Calls::Mark();
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QVERIFY(!wizard.isVisible());
        const QStringList calls = TakeAirGaugeCalls();
        QStringList expected;
        for (const char* operation : writes) {
            expected.append(QLatin1String(operation));
        }
        QCOMPARE(OperationsOf(calls), expected);
        QCOMPARE(QString::number(ArgumentOf(calls.at(0)), 'f', 2), PressureShownFor(-0.02));
        QCOMPARE(QString::number(ArgumentOf(calls.at(1)), 'f', 2), PressureShownFor(0.02));
        QCOMPARE(calls.at(2), QStringLiteral("setMasterMinReadingInUOM(-0.02)"));
        QCOMPARE(calls.at(3), QStringLiteral("setMasterMaxReadingInUOM(0.021)"));
    });
    QCOMPARE(boxes.Take().size(), 1); // closed without a question
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
    QCOMPARE(Field("tbMasterB"), QStringLiteral("0.0210 mm"));
    QCOMPARE(Operator().Text("tbStroke"), QStringLiteral("0.08200")); // mastering has changed the range
}

void PNXMasterWriteTest::lengthsAreWrittenInMillimetres_data() {
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("millimetres");
    QTest::newRow("inches") << QStringLiteral("inches") << 2.0 << 50.8;
    QTest::newRow("mils") << QStringLiteral("mils") << -100.0 << -2.54;
}

void PNXMasterWriteTest::lengthsAreWrittenInMillimetres() {
    QFETCH(QString, unit);
    QFETCH(double, a);
    QFETCH(double, millimetres);
    OpenGauge(QStringLiteral("unit=\"%1\"").arg(unit));
    PutIn(NozzlePart::MasterA);
    During([&](QDialog& wizard) {
        SetMasters(wizard, a, a / 2.0);
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        GoTo(5, wizard);
        Calls::Mark();
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        const QStringList calls = TakeAirGaugeCalls();
        QVERIFY(Near(ArgumentOf(calls.at(2)), millimetres, 1e-7));
        QVERIFY(Near(ArgumentOf(calls.at(3)), millimetres / 2.0, 1e-7));
    });
}

void PNXMasterWriteTest::writeThatFails_data() {
    QTest::addColumn<int>("step");
    for (int step = 0; step < 5; ++step) {
        QTest::newRow(writes[step]) << step;
    }
}

// The wizard stays at stage 5 and can write again.
void PNXMasterWriteTest::writeThatFails() {
    QFETCH(int, step);
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([&](QDialog& wizard) {
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        GoTo(5, wizard);
        FailNext(writes[step], failure);
        boxes.ExpectError(&wizard, boxTitle, QStringLiteral("Error writing to PNX:\n") + failure);
        Calls::Mark();
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(TakeAirGaugeCalls().size(), step + 1);
        QVERIFY(wizard.isVisible());
        QCOMPARE(StageOf(wizard), 5);
        QCOMPARE(Shown(wizard, "btnNext"), QStringLiteral("Write"));
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(TakeAirGaugeCalls().size(), 5);
        QVERIFY(!wizard.isVisible());
    });
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
}

void PNXMasterWriteTest::writtenValuesStayWritten() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([&](QDialog& wizard) {
        SetMasters(wizard, 0.5, 0.75);
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        GoTo(5, wizard);
        FailNext("ApplyMastering", failure);
        boxes.ExpectError(&wizard, boxTitle, QStringLiteral("Error writing to PNX:\n") + failure);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
    });
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Not Mastered"));
    QCOMPARE(Field("tbMasterA"), QStringLiteral("0.5000 mm"));
    QCOMPARE(Field("tbMasterB"), QStringLiteral("0.7500 mm"));
}

// A workshop's supply: 0.004 psi of noise, 0.75 of which arrive at a sample and a quarter of that, 0.00075 psi, at
// a reading of 16 samples; the sensor's counts add 0.0005 psi. 93 psi are 1 mm, so a reading scatters by 10 nm,
// and so does each end of the line. The supply drifts by less than 0.0005 psi in the seconds that this takes. The
// panel shows 0.1 um steps, of which the mean of 9 readings leaves less than 0.05 um. The curve between the
// masters, at most 0.15 um off the line, is known.
void PNXMasterWriteTest::theOperatorMastersAndMeasures() {
    OpenNoisyGauge();
    Master(-0.02, 0.02, NozzlePart::MasterA, NozzlePart::MasterB);
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
    const double slope = 0.04 / (PressureFor(0.02) - PressureFor(-0.02));
    constexpr double tolerance = 5.0 * 0.00001 * 1.5 + 0.00005;
    for (const double size : {-0.018, -0.005, 0.0, 0.0123, 0.019}) {
        const double expected = -0.02 + (PressureFor(size) - PressureFor(-0.02)) * slope;
        QVERIFY(Near(expected, size, 0.00016));
        const double measured = Measured(size);
        QVERIFY2(Near(measured, expected, tolerance),
                 qPrintable(QStringLiteral("%1 measured as %2").arg(size).arg(measured)));
    }
}

void PNXMasterWriteTest::masteredTheWrongWayRound() {
    OpenNoisyGauge();
    Master(-0.02, 0.02, NozzlePart::MasterB, NozzlePart::MasterA);
    QCOMPARE(Field("tbPNXStatus"), QStringLiteral("Mastered"));
    for (const double size : {-0.015, 0.01}) {
        QVERIFY(Near(Measured(size), -size, 0.0003));
    }
}

TAVIK_TEST_MAIN(PNXMasterWriteTest)
#include "PNXMasterWriteTest.moc"
