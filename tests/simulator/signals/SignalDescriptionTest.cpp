#include "simulator/signals/Signal.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>

using namespace TavikSimulator;

namespace {

using Change = std::function<void(SignalDescription&)>;

constexpr double Infinite = std::numeric_limits<double>::infinity();

} // namespace

Q_DECLARE_METATYPE(Change)

class SignalDescriptionTest : public QObject {
    Q_OBJECT

private slots:
    void theDefaultIsAPartAtRestAtZero();
    void impossibleValuesAreRefusedWithASentence_data();
    void impossibleValuesAreRefusedWithASentence();
    void limitsAreAllowed_data();
    void limitsAreAllowed();
    void motionsHaveNames();
};

void SignalDescriptionTest::theDefaultIsAPartAtRestAtZero() {
    QCOMPARE(Validate(SignalDescription()), std::string());
    const Signal signal{SignalDescription()};
    for (const double seconds : {-1.0, 0.0, 1.0, 1e6}) {
        QVERIFY(signal.At(FromSeconds(seconds)) == 0.0);
    }
}

void SignalDescriptionTest::impossibleValuesAreRefusedWithASentence_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, const Change& change, const QString& sentence) {
        QTest::newRow(name) << change << sentence;
    };
    using D = SignalDescription;
    row(
        "base not a number", [](D& d) { d.base = std::nan(""); }, QStringLiteral("The base must lie within +-1e9."));
    row(
        "base infinite", [](D& d) { d.base = -Infinite; }, QStringLiteral("The base must lie within +-1e9."));
    row(
        "amplitude", [](D& d) { d.amplitude = -1e-9; }, QStringLiteral("The amplitude must not be negative."));
    row(
        "amplitude too large", [](D& d) { d.amplitude = 1.1e9; },
        QStringLiteral("The amplitude must lie within +-1e9."));
    row(
        "period 0", [](D& d) { d.period = 0.0; }, QStringLiteral("The period must be 0.000001 s or longer."));
    row(
        "period of a ramp", [](D& d) { d.motion = Motion::Ramp, d.period = 1e-7; },
        QStringLiteral("The period must be 0.000001 s or longer."));
    row(
        "phase", [](D& d) { d.phase = Infinite; }, QStringLiteral("The phase must lie within +-1e9."));
    row(
        "rate", [](D& d) { d.rate = 2e9; }, QStringLiteral("The rate must lie within +-1e9."));
    row(
        "steps without parts", [](D& d) { d.motion = Motion::Steps; }, QStringLiteral("Steps need at least one part."));
    row(
        "part",
        [](D& d) {
            d.parts = {0.0, std::nan("")};
        },
        QStringLiteral("The deviation of a part must lie within +-1e9."));
    row(
        "revolution", [](D& d) { d.revolution = -1.0; },
        QStringLiteral("The revolution must be 0.000001 s or longer."));
    row(
        "65 harmonics", [](D& d) { d.harmonics.resize(65); },
        QStringLiteral("The form must not have more than 64 harmonics."));
    row(
        "no lobes",
        [](D& d) {
            d.harmonics = {{0, 0.1, 0.0}};
        },
        QStringLiteral("The lobes of a harmonic must be 1 to 500."));
    row(
        "501 lobes",
        [](D& d) {
            d.harmonics = {{2, 0.1, 0.0}, {501, 0.1, 0.0}};
        },
        QStringLiteral("The lobes of a harmonic must be 1 to 500."));
    row(
        "harmonic",
        [](D& d) {
            d.harmonics = {{2, -0.1, 0.0}};
        },
        QStringLiteral("The amplitude of a harmonic must not be negative."));
    row(
        "harmonic's phase",
        [](D& d) {
            d.harmonics = {{2, 0.1, Infinite}};
        },
        QStringLiteral("The phase of a harmonic must lie within +-1e9."));
    row(
        "drift", [](D& d) { d.driftAmplitude = -0.1; }, QStringLiteral("The drift amplitude must not be negative."));
    row(
        "drift period", [](D& d) { d.driftPeriod = 0.0; },
        QStringLiteral("The drift period must be 0.000001 s or longer."));
    row(
        "warm-up", [](D& d) { d.warmUp = Infinite; }, QStringLiteral("The warm-up must lie within +-1e9."));
    row(
        "warm-up time", [](D& d) { d.warmUpTime = 0.0; },
        QStringLiteral("The warm-up time must be 0.000001 s or longer."));
    row(
        "the first of two", [](D& d) { d.amplitude = -1.0, d.noise = -1.0; },
        QStringLiteral("The amplitude must not be negative."));
    row(
        "noise", [](D& d) { d.noise = -0.001; }, QStringLiteral("The noise must not be negative."));
}

void SignalDescriptionTest::impossibleValuesAreRefusedWithASentence() {
    QFETCH(Change, change);
    QFETCH(QString, sentence);
    SignalDescription description;
    change(description);
    QCOMPARE(QString::fromStdString(Validate(description)), sentence);
    QString thrown;
    try {
        const Signal signal(description);
    } catch (const std::invalid_argument& refused) {
        thrown = QString::fromUtf8(refused.what());
    }
    QCOMPARE(thrown, sentence);
}

void SignalDescriptionTest::limitsAreAllowed_data() {
    QTest::addColumn<Change>("change");
    using D = SignalDescription;
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("largest base", [](D& d) { d.base = 1e9; });
    row("smallest base", [](D& d) { d.base = -1e9; });
    row("shortest periods", [](D& d) { d.period = d.revolution = d.driftPeriod = d.warmUpTime = 1e-6; });
    row("longest periods", [](D& d) { d.period = d.revolution = d.driftPeriod = d.warmUpTime = 1e9; });
    row("endless ramp", [](D& d) { d.motion = Motion::Ramp, d.period = 0.0; });
    row("one part", [](D& d) { d.motion = Motion::Steps, d.parts = {-0.5}; });
    row("64 harmonics", [](D& d) { d.harmonics.assign(64, {500, 0.0, -3.5}); });
    row("one lobe", [](D& d) { d.harmonics = {{1, 1e9, 0.0}}; });
}

void SignalDescriptionTest::limitsAreAllowed() {
    QFETCH(Change, change);
    SignalDescription description;
    change(description);
    QCOMPARE(QString::fromStdString(Validate(description)), QString());
    const Signal signal(description);
    for (const double seconds : {-8e9, -0.3, 0.0, 0.3, 8e9}) {
        QVERIFY(std::isfinite(signal.At(FromSeconds(seconds))));
    }
}

void SignalDescriptionTest::motionsHaveNames() {
    QVERIFY(MotionFromName("still") == Motion::Still);
    QVERIFY(MotionFromName("sine") == Motion::Sine);
    QVERIFY(MotionFromName("triangle") == Motion::Triangle);
    QVERIFY(MotionFromName("square") == Motion::Square);
    QVERIFY(MotionFromName("steps") == Motion::Steps);
    QVERIFY(MotionFromName("ramp") == Motion::Ramp);
    for (const char* const unknown : {"", "Sine", "sines", "sin", " ramp"}) {
        QVERIFY2(!MotionFromName(unknown), unknown);
    }
}

QTEST_APPLESS_MAIN(SignalDescriptionTest)

#include "SignalDescriptionTest.moc"
