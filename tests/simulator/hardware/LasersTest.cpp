#include "library/TavikModuleLaser.h"
#include "tests/simulator/hardware/OneModule.h"

#include <cmath>
#include <ctime>
#include <set>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

class Filtered : public OneModule<TavikModuleBWR> {
public:
    explicit Filtered(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("BWR", "resolution=\"18\" " + attributes, content) {}
};

class Rated : public OneModule<TavikModuleBWK> {
public:
    explicit Rated(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("BWK", attributes, content) {}
};

const eFilter allFilters[] = {eFilter::Filter20KHz, eFilter::Filter4KHz, eFilter::Filter1KHz, eFilter::Filter200Hz,
                              eFilter::Filter25Hz,  eFilter::Filter1Hz,  eFilter::Filter0_1Hz};
const double cutoffs[] = {20000.0, 4000.0, 1000.0, 200.0, 25.0, 1.0, 0.1};

constexpr double samplePeriod = 256e-6;
constexpr double pi = 3.14159265358979323846;

double DeviationOf(const Filtered& laser, int readings, double interval) {
    double sum = 0.0;
    double squares = 0.0;
    for (int i = 0; i < readings; ++i) {
        AdvanceClock(interval);
        const double value = laser->ReadInUnits() - 30.0;
        sum += value;
        squares += value * value;
    }
    return std::sqrt(squares / readings - (sum / readings) * (sum / readings));
}

} // namespace

/// Lasers measure as their settings say.
class LasersTest : public QObject {
    Q_OBJECT

private slots:
    void EachKindIsAProbe();
    void WithoutItsBeamThereIsNoReading();
    void BeamBeginsAsTheFileSays();
    void TheFilterLowersTheNoise_data() { Filters(); }
    void TheFilterLowersTheNoise();
    void TheFilterSlowsTheResponse_data() { Filters(); }
    void TheFilterSlowsTheResponse();
    void SameTimesGiveTheSameFilteredReadings();
    void FilteredReadingsAreQuick();
    void ImpossibleFiltersAreRefused();
    void LevelCutTimeBridgesAGap();
    void LevelCutTimeHasALimit();
    void InformationIsTheFiles();
    void MeasuringRateHoldsAValue_data();
    void MeasuringRateHoldsAValue();
    void RatesOnOffer();
    void TextsAndBack();
    void FilesAreChecked_data();
    void FilesAreChecked();

private:
    static void Filters();
};

void LasersTest::Filters() {
    QTest::addColumn<int>("filter");
    for (int filter = 0; filter < 7; ++filter) {
        QTest::newRow(eFilter_ToString(static_cast<eFilter>(filter)).c_str()) << filter;
    }
}

void LasersTest::EachKindIsAProbe() {
    for (const char* type : {"BW", "BWR", "BWK"}) {
        const OneModule<TavikModuleKX> laser(type, "resolution=\"14\"");
        laser->setResolution(eResolution::Bits18);
        QCOMPARE(laser->Resolution(), eResolution::Bits18);
        AdvanceClock(1.0);
        const double middle = laser->Offset() + laser->Stroke() / 2.0;
        Hold(middle);
        QVERIFY(std::abs(laser->ReadInUnits() - middle) < 1e-3);
    }
}

void LasersTest::WithoutItsBeamThereIsNoReading() {
    for (const char* type : {"BW", "BWR", "BWK"}) {
        const OneModule<TavikModuleBW> laser(type, "");
        QVERIFY(laser->BeamOn());
        laser->ReadInCounts();
        laser->setBeamOn(false);
        QVERIFY(!laser->BeamOn());
        const Refusal refusal = RefusalOf([&] { laser->ReadInUnits(); });
        QVERIFY(refusal.Is(eTavikErrors::BeamOff) && refusal.Names("MODULE0001") && refusal.Names("beam is off"));
        QCOMPARE(laser.CodeOfReading(), static_cast<int>(eTavikErrors::BeamOff));
        laser->setBeamOn(true);
        QCOMPARE(laser.CodeOfReading(), 0);
    }
}

void LasersTest::BeamBeginsAsTheFileSays() {
    const OneModule<TavikModuleBW> laser("BW", "beam=\"no\"");
    QVERIFY(!laser->BeamOn());
    QCOMPARE(laser.CodeOfReading(), static_cast<int>(eTavikErrors::BeamOff));
}

// The deviation behind a first-order filter with the share a of each new sample is sqrt(a / (2 - a)) of that of
// one sample. 200 readings, several time constants apart, give it to 5 %; the resolution adds a little.
void LasersTest::TheFilterLowersTheNoise() {
    QFETCH(int, filter);
    const double share = 1.0 - std::exp(-2.0 * pi * cutoffs[filter] * samplePeriod);
    const double expected = 0.02 * std::sqrt(share / (2.0 - share));
    const Filtered laser("", "<signal base=\"30\" noise=\"0.02\"/>");
    laser->setFilter(static_cast<eFilter>(filter));
    const double interval = std::max(0.01, 1.0 / cutoffs[filter]);
    const double deviation = DeviationOf(laser, 200, interval);
    QVERIFY2(std::abs(deviation / expected - 1.0) < 0.2,
             qPrintable(QStringLiteral("%1 instead of %2").arg(deviation).arg(expected)));
}

// A step comes through by 1 - exp(-1), 63 %, within one time constant.
void LasersTest::TheFilterSlowsTheResponse() {
    QFETCH(int, filter);
    const double timeConstant = 1.0 / (2.0 * pi * cutoffs[filter]);
    const Filtered laser("", "<signal base=\"30\" motion=\"square\" amplitude=\"1\" period=\"200\" noise=\"0\"/>");
    laser->setFilter(static_cast<eFilter>(filter));
    // The step from 29 to 31 is at 200 s.
    AdvanceClock(199.999);
    QVERIFY(std::abs(laser->ReadInUnits() - 29.0) < 0.001);
    const double later = std::max(timeConstant, 2.0 * samplePeriod);
    AdvanceClock(0.001 + later);
    const double through = (laser->ReadInUnits() - 29.0) / 2.0;
    const double samples = std::floor((200.0 + later) / samplePeriod) - std::ceil(200.0 / samplePeriod) + 1.0;
    const double expected = 1.0 - std::exp(-samples * samplePeriod / timeConstant);
    QVERIFY2(std::abs(through - expected) < 0.02,
             qPrintable(QStringLiteral("%1 instead of %2").arg(through).arg(expected)));
    AdvanceClock(10.0 * timeConstant);
    QVERIFY(std::abs(laser->ReadInUnits() - 31.0) < 0.002);
}

void LasersTest::SameTimesGiveTheSameFilteredReadings() {
    const auto reading = [](int questions, eAveraging averaging) {
        const Filtered laser("filter=\"1Hz\"",
                             "<signal base=\"30\" motion=\"sine\" period=\"3\" amplitude=\"2\" noise=\"0.01\"/>");
        laser->setAveraging(averaging);
        double value = 0.0;
        for (int i = 0; i < questions; ++i) {
            AdvanceClock(64.0 / questions);
            value = laser->ReadInUnits();
        }
        return value;
    };
    for (const eAveraging averaging : {eAveraging::Off, eAveraging::Samples256}) {
        const double once = reading(1, averaging);
        QCOMPARE(reading(2, averaging), once);
        QCOMPARE(reading(512, averaging), once);
    }
}

// The slowest filter looks back over 50,000 samples; readings one after the other must not do so each time.
void LasersTest::FilteredReadingsAreQuick() {
    const Filtered laser("filter=\"0.1Hz\" averaging=\"256\"", "<signal base=\"30\" noise=\"0.01\"/>");
    const auto secondsFor = [&laser](int readings) {
        const std::clock_t before = std::clock();
        for (int i = 0; i < readings; ++i) {
            AdvanceClock(0.001);
            laser->ReadInCounts();
        }
        return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    };
    const double fromScratch = secondsFor(1);
    const double after = secondsFor(500);
    QVERIFY2(after < 100.0 * fromScratch, qPrintable(QStringLiteral("%1 s, %2 s").arg(fromScratch).arg(after)));
}

void LasersTest::ImpossibleFiltersAreRefused() {
    const Filtered laser("filter=\"25Hz\"");
    QCOMPARE(laser->Filter(), eFilter::Filter25Hz);
    for (const eFilter filter : allFilters) {
        laser->setFilter(filter);
        QCOMPARE(laser->Filter(), filter);
    }
    for (const int filter : {-1, 7, 100}) {
        const Refusal refusal = RefusalOf([&] { laser->setFilter(static_cast<eFilter>(filter)); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(filter)));
    }
    QCOMPARE(laser->Filter(), eFilter::Filter0_1Hz);
}

// The part leaves the range for the second half of each second, from 0.5 s to 1 s.
void LasersTest::LevelCutTimeBridgesAGap() {
    const Filtered laser(
        "level-cut-max=\"5000\"",
        "<signal base=\"34\" motion=\"square\" amplitude=\"2\" phase=\"0.5\" period=\"1\" noise=\"0\"/>");
    const auto codeAt = [&](double advance) {
        AdvanceClock(advance);
        return laser.CodeOfReading();
    };
    const int over = static_cast<int>(eTavikErrors::OverRange);
    QCOMPARE(laser->LevelCutTime(), short{0});
    QCOMPARE(codeAt(10.25), 0);
    QVERIFY(std::abs(laser->LastReadingInUnits() - 32.0) < 0.001);
    QCOMPARE(codeAt(0.26), over);
    laser->setLevelCutTime(100);
    QCOMPARE(laser->LevelCutTime(), short{100});
    // 10 ms: at 10.51 s just not, at 11.505 s yet.
    QCOMPARE(codeAt(0.005), over);
    QCOMPARE(codeAt(0.990), 0);
    QVERIFY(std::abs(laser->LastReadingInUnits() - 32.0) < 0.001);
    QCOMPARE(codeAt(0.010), over);
    laser->setLevelCutTime(5000);
    QCOMPARE(codeAt(0.4), 0);
    QVERIFY(std::abs(laser->LastReadingInUnits() - 32.0) < 0.001);
}

void LasersTest::LevelCutTimeHasALimit() {
    const Filtered laser("level-cut=\"20\" level-cut-max=\"500\"");
    QCOMPARE(laser->LevelCutTimeMax(), 500);
    QCOMPARE(laser->LevelCutTime(), short{20});
    laser->setLevelCutTime(500);
    QVERIFY(RefusalOf([&] { laser->setLevelCutTime(501); }).Names("0 to 500"));
    QVERIFY(RefusalOf([&] { laser->setLevelCutTime(65535); }).Is(eTavikErrors::InvalidArgument));
    QCOMPARE(laser->LevelCutTime(), short{500});
}

void LasersTest::InformationIsTheFiles() {
    const Filtered laser("model=\"M\" serial=\"S\" firmware=\"F\"");
    QCOMPARE(laser->ModelNumber(), std::string("M"));
    QCOMPARE(laser->SerialNumber(), std::string("S"));
    QCOMPARE(laser->FirmwareNumber(), std::string("F"));
}

void LasersTest::MeasuringRateHoldsAValue_data() {
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("values");
    const int perSecond[] = {100, 500, 1000, 2000};
    for (int rate = 0; rate < 4; ++rate) {
        QTest::newRow(eMeasuringRate_ToString(static_cast<eMeasuringRate>(rate)).c_str()) << rate << perSecond[rate];
    }
}

// Asked ten thousand times within a second, the laser has as many values as its rate says.
void LasersTest::MeasuringRateHoldsAValue() {
    QFETCH(int, rate);
    QFETCH(int, values);
    const Rated laser("resolution=\"18\"", "<signal base=\"28.5\" motion=\"ramp\" rate=\"2.5\" noise=\"0\"/>");
    laser->setMeasuringRate(static_cast<eMeasuringRate>(rate));
    QCOMPARE(static_cast<int>(laser->MeasuringRate()), rate);
    std::set<int> seen;
    for (int i = 0; i < 10000; ++i) {
        seen.insert(laser->ReadInCounts());
        AdvanceClock(0.0001);
    }
    QVERIFY2(std::abs(static_cast<int>(seen.size()) - values) <= 2, qPrintable(QString::number(seen.size())));
}

void LasersTest::RatesOnOffer() {
    const Rated laser("rates=\"2kHz 100Hz\"");
    QVERIFY(laser->AvailableMeasuringRates() ==
            (std::vector<eMeasuringRate>{eMeasuringRate::Rate2KHz, eMeasuringRate::Rate100Hz}));
    QCOMPARE(laser->MeasuringRate(), eMeasuringRate::Rate2KHz);
    laser->setMeasuringRate(eMeasuringRate::Rate100Hz);
    QCOMPARE(laser->MeasuringRate(), eMeasuringRate::Rate100Hz);
    for (const int rate : {-1, 1, 2, 4, 5}) {
        QVERIFY(RefusalOf([&] {
                    laser->setMeasuringRate(static_cast<eMeasuringRate>(rate));
                }).Is(eTavikErrors::InvalidArgument));
    }
    QCOMPARE(laser->MeasuringRate(), eMeasuringRate::Rate100Hz);
}

void LasersTest::TextsAndBack() {
    std::set<std::string> texts;
    for (int rate = 0; rate < 5; ++rate) {
        const std::string text = eMeasuringRate_ToString(static_cast<eMeasuringRate>(rate));
        texts.insert(text);
        QCOMPARE(static_cast<int>(eMeasuringRate_FromString(text)), rate);
    }
    QCOMPARE(texts.size(), std::size_t{5});
    for (const char* text : {"", "100", "100 hz", "Unknown measuring rate (7)"}) {
        QVERIFY(RefusalOf([&] { eMeasuringRate_FromString(text); }).Is(eTavikErrors::InvalidArgument));
    }
    QVERIFY(eMeasuringRate_ToString(static_cast<eMeasuringRate>(-1)).find("-1") != std::string::npos);
    QVERIFY(eFilter_ToString(static_cast<eFilter>(-1)).find("-1") != std::string::npos);
}

void LasersTest::FilesAreChecked_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("attributes");
    QTest::newRow("beam") << QStringLiteral("BW") << QStringLiteral("beam=\"maybe\"");
    QTest::newRow("filter of another kind") << QStringLiteral("BW") << QStringLiteral("filter=\"1Hz\"");
    QTest::newRow("filter") << QStringLiteral("BWR") << QStringLiteral("filter=\"2Hz\"");
    QTest::newRow("level cut") << QStringLiteral("BWR") << QStringLiteral("level-cut=\"501\" level-cut-max=\"500\"");
    QTest::newRow("no rates") << QStringLiteral("BWK") << QStringLiteral("rates=\"\"");
    QTest::newRow("rate") << QStringLiteral("BWK") << QStringLiteral("rates=\"3kHz\"");
    QTest::newRow("rate not on offer") << QStringLiteral("BWK") << QStringLiteral("rates=\"100Hz\" rate=\"1kHz\"");
}

void LasersTest::FilesAreChecked() {
    QFETCH(QString, type);
    QFETCH(QString, attributes);
    const Refusal refusal =
        RefusalOf([&] { const OneModule<TavikModule> module(type.toStdString(), attributes.toStdString()); });
    QVERIFY(refusal.refused && refusal.Names("line"));
}

QTEST_APPLESS_MAIN(LasersTest)
#include "LasersTest.moc"
