#include "panels/airgauge/LengthUnits.h"

#include <QTest>

#include <functional>
#include <stdexcept>

using TavikLibrary::ePNX_UOM;

namespace {

const ePNX_UOM below = static_cast<ePNX_UOM>(-1);
const ePNX_UOM above = static_cast<ePNX_UOM>(3);

QString FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const std::runtime_error& error) {
        return QString::fromUtf8(error.what());
    }
    return QString();
}

} // namespace

/// The lengths of air gauges in their units.
class LengthUnitsTest : public QObject {
    Q_OBJECT

private slots:
    void decimals();
    void conversions();
    void texts_data();
    void texts();
    void unknownUnits();
    void pressures();
};

void LengthUnitsTest::decimals() {
    QCOMPARE(DecimalsOf(ePNX_UOM::mm), 4);
    QCOMPARE(DecimalsOf(ePNX_UOM::inches), 5);
    QCOMPARE(DecimalsOf(ePNX_UOM::mils), 2);
}

void LengthUnitsTest::conversions() {
    QCOMPARE(FromMillimetres(0.1, ePNX_UOM::mm), 0.1);
    QCOMPARE(FromMillimetres(65.0, ePNX_UOM::inches), 65.0 / 25.4);
    QCOMPARE(FromMillimetres(65.0, ePNX_UOM::mils), 65.0 / 0.0254);
    QCOMPARE(ToMillimetres(-0.1, ePNX_UOM::mm), -0.1);
    QCOMPARE(ToMillimetres(2.56, ePNX_UOM::inches), 2.56 * 25.4);
    QCOMPARE(ToMillimetres(-3.0, ePNX_UOM::mils), -3.0 * 0.0254);
}

void LengthUnitsTest::texts_data() {
    QTest::addColumn<double>("millimetres");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("mm") << 1.0 << 0 << QStringLiteral("1.0000 mm");
    QTest::newRow("mm, rounded") << -0.00005001 << 0 << QStringLiteral("-0.0001 mm");
    QTest::newRow("an inch") << 25.4 << 1 << QStringLiteral("1.00000 inches");
    QTest::newRow("a mil in inches") << 0.0254 << 1 << QStringLiteral("0.00100 inches");
    QTest::newRow("mils") << 0.0254 << 2 << QStringLiteral("1.00 mils");
    QTest::newRow("many mils") << -25.4 << 2 << QStringLiteral("-1000.00 mils");
}

void LengthUnitsTest::texts() {
    QFETCH(double, millimetres);
    QFETCH(int, unit);
    QFETCH(QString, text);
    QCOMPARE(LengthText(millimetres, static_cast<ePNX_UOM>(unit)), text);
}

void LengthUnitsTest::unknownUnits() {
    const QString units = QStringLiteral("Unexpected PNX units");
    const QString conversion = QStringLiteral("Unexpected PNX units in unit conversion.");
    for (const ePNX_UOM unit : {below, above}) {
        QCOMPARE(FailureOf([&] { DecimalsOf(unit); }), units);
        QCOMPARE(FailureOf([&] { LengthNumber(1.0, unit); }), units);
        QCOMPARE(FailureOf([&] { FromMillimetres(1.0, unit); }), conversion);
        QCOMPARE(FailureOf([&] { ToMillimetres(1.0, unit); }), conversion);
        QCOMPARE(FailureOf([&] { LengthText(1.0, unit); }), conversion);
    }
}

void LengthUnitsTest::pressures() {
    QCOMPARE(PressureNumber(14.696), QStringLiteral("14.70"));
    QCOMPARE(PressureText(0.0), QStringLiteral("0.00 psi"));
}

QTEST_APPLESS_MAIN(LengthUnitsTest)
#include "LengthUnitsTest.moc"
