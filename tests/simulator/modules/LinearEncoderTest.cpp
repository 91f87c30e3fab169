#include "library/TavikModuleRN.h"
#include "tests/simulator/modules/OneModule.h"

#include <limits>

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

constexpr auto learn = eReferenceMarkMode::Learn;
constexpr auto recall = eReferenceMarkMode::Recall;

/// 12 mm with 10000 counts each, its mark at 4 mm, and nobody near it.
class LinearEncoder : public OneModule<TavikModuleRN> {
public:
    explicit LinearEncoder(const std::string& attributes = "mark=\"4\" hand=\"never\"",
                           const std::string& content = std::string())
        : OneModule("RN", attributes, content) {}

    int CountAt(double position) const {
        Hold(position);
        return (*this)->ReadInCounts();
    }
};

void LosePower() {
    TavikSimulator::SetModulePresent("N", "MODULE0001", false);
    TavikSimulator::SetModulePresent("N", "MODULE0001", true);
}

} // namespace

/// A linear encoder counts from its datum, which its reference mark gives back.
class LinearEncoderTest : public QObject {
    Q_OBJECT

private slots:
    void CountsFromTheLowerLimitAtFirst();
    void CountsEitherWay();
    void PresetsInCounts();
    void PresetsInUnits();
    void PresetsOnAReversedScale();
    void PowerOffLosesTheDatum();
    void RangeIsThatOfTheTip();
    void LearnsTheReadingAtTheMark_data();
    void LearnsTheReadingAtTheMark();
    void LearnsInUnits();
    void LearnsOnAReversedScale();
    void RecallSetsTheReadingAtTheMark_data();
    void RecallSetsTheReadingAtTheMark();
    void LearntReadingSurvivesPowerOff();
    void MarkIsPassedOnlyDuringASearch();
    void MarkIsPassedByTheSignal();
    void StopAbandonsTheSearch();
    void ANewSearchBeginsAgain();
    void PowerOffEndsTheSearch();
    void PresetDuringASearchCounts();
    void TheHandComesAfterAWhile();
    void TheHandNeverComes();
    void TheHandIsSentAwayByAStop();
    void TheHandPassesFromEitherSide_data();
    void TheHandPassesFromEitherSide();
    void AnyPollingFindsTheMark();
    void NoReadingBeforeTheMarkIsFound();
    void ImpossibleValuesAreRefused();
    void CountsBeyondTheRegister();
    void FilesAreChecked_data();
    void FilesAreChecked();
};

void LinearEncoderTest::CountsFromTheLowerLimitAtFirst() {
    const LinearEncoder encoder;
    QCOMPARE(static_cast<int>(encoder->Direction()), 0);
    QCOMPARE(encoder.CountAt(0.0), 0);
    QCOMPARE(encoder.CountAt(5.0), 50000);
    QCOMPARE(encoder->ReadInUnits(), 5.0);
}

void LinearEncoderTest::CountsEitherWay() {
    const LinearEncoder encoder;
    QCOMPARE(encoder.CountAt(5.0), 50000);
    encoder->setDirection(eDirection::Reversed);
    QCOMPARE(encoder->Direction(), eDirection::Reversed);
    QCOMPARE(encoder->ReadInCounts(), 50000);
    QCOMPARE(encoder.CountAt(6.0), 40000);
    encoder->setDirection(eDirection::Reversed);
    QCOMPARE(encoder.CountAt(7.0), 30000);
    encoder->setDirection(eDirection::Normal);
    QCOMPARE(encoder.CountAt(6.0), 20000);
    QCOMPARE(encoder->ReadInUnits(), 2.0);
}

void LinearEncoderTest::PresetsInCounts() {
    const LinearEncoder encoder;
    QCOMPARE(encoder.CountAt(5.0), 50000);
    encoder->setPresetInCounts(-1234);
    QCOMPARE(encoder->ReadInCounts(), -1234);
    QCOMPARE(encoder.CountAt(5.1), -234);
    QCOMPARE(encoder->ReadInUnits(), -0.0234);
}

void LinearEncoderTest::PresetsInUnits() {
    const LinearEncoder encoder("stroke=\"4\" offset=\"-2\" counts-per-unit=\"1000\" hand=\"never\"");
    Hold(1.0);
    encoder->setPresetInUnits(12.3456);
    QCOMPARE(encoder->ReadInUnits(), 12.346);
    // Counts begin at the offset, before a preset and after it.
    QCOMPARE(encoder->ReadInCounts(), 14346);
    Hold(0.5);
    QCOMPARE(encoder->ReadInUnits(), 11.846);
}

void LinearEncoderTest::PresetsOnAReversedScale() {
    const LinearEncoder encoder;
    Hold(5.0);
    encoder->setDirection(eDirection::Reversed);
    encoder->setPresetInCounts(100);
    QCOMPARE(encoder.CountAt(5.5), -4900);
    QCOMPARE(encoder.CountAt(4.5), 5100);
}

void LinearEncoderTest::PowerOffLosesTheDatum() {
    const LinearEncoder encoder;
    QCOMPARE(encoder.CountAt(5.0), 50000);
    encoder->setDirection(eDirection::Reversed);
    LosePower();
    QCOMPARE(encoder->ReadInCounts(), 0);
    QCOMPARE(encoder->Direction(), eDirection::Reversed);
    QCOMPARE(encoder.CountAt(5.1), -1000);
}

void LinearEncoderTest::RangeIsThatOfTheTip() {
    const LinearEncoder encoder;
    Hold(5.0);
    encoder->setPresetInCounts(1000000);
    QCOMPARE(encoder.CodeOfReading(), 0);
    QCOMPARE(encoder.CountAt(13.0), 1070000);
    QCOMPARE(encoder->LastResultCode(), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(encoder.CountAt(-1.0), 950000);
    QCOMPARE(encoder->LastResultCode(), static_cast<int>(eTavikErrors::UnderRange));
    QCOMPARE(encoder.CountAt(5.0), 1000000);
    QCOMPARE(encoder->LastResultCode(), 0);
}

void LinearEncoderTest::LearnsTheReadingAtTheMark_data() {
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("upwards") << 3.0 << 5.0;
    QTest::newRow("downwards") << 5.0 << 3.0;
}

void LinearEncoderTest::LearnsTheReadingAtTheMark() {
    QFETCH(double, from);
    QFETCH(double, to);
    const LinearEncoder encoder;
    Hold(from);
    encoder->setPresetInCounts(100000);
    encoder->FindRefMark_Counts(learn, 77);
    QVERIFY(encoder->RefmarkInProgress());
    QVERIFY(!encoder->RefmarkFound());
    Hold(to);
    QVERIFY(!encoder->RefmarkInProgress());
    QVERIFY(encoder->RefmarkFound());
    const int expected = 100000 + static_cast<int>((4.0 - from) * 10000);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), expected);
    QCOMPARE(encoder->ReadInUnitsAtRefmark(), expected / 10000.0);
    // Learning changes nothing.
    QCOMPARE(encoder->ReadInCounts(), 100000 + static_cast<int>((to - from) * 10000));
}

void LinearEncoderTest::LearnsInUnits() {
    const LinearEncoder encoder("stroke=\"4\" offset=\"-2\" mark=\"-0.5\" hand=\"never\"");
    Hold(0.0);
    encoder->setPresetInUnits(10.0);
    // What a search in learn mode says of a recall is not even looked at.
    encoder->FindRefMark_Units(learn, 1e300);
    Hold(-1.0);
    QVERIFY(encoder->RefmarkFound());
    QCOMPARE(encoder->ReadInUnitsAtRefmark(), 9.5);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 115000);
}

void LinearEncoderTest::LearnsOnAReversedScale() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->setDirection(eDirection::Reversed);
    encoder->setPresetInCounts(0);
    encoder->FindRefMark_Counts(learn, 0);
    Hold(5.0);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), -10000);
}

void LinearEncoderTest::RecallSetsTheReadingAtTheMark_data() {
    QTest::addColumn<bool>("counts");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("counts") << true << false;
    QTest::newRow("units") << false << false;
    QTest::newRow("counts, reversed") << true << true;
    QTest::newRow("units, reversed") << false << true;
}

void LinearEncoderTest::RecallSetsTheReadingAtTheMark() {
    QFETCH(bool, counts);
    QFETCH(bool, reversed);
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->setDirection(reversed ? eDirection::Reversed : eDirection::Normal);
    if (counts) {
        encoder->FindRefMark_Counts(recall, -25000);
    } else {
        encoder->FindRefMark_Units(recall, -2.5);
    }
    QCOMPARE(encoder->ReadInCounts(), 30000);
    Hold(4.5);
    QVERIFY(encoder->RefmarkFound());
    QCOMPARE(encoder->ReadInCountsAtRefmark(), -25000);
    QCOMPARE(encoder->ReadInUnitsAtRefmark(), -2.5);
    QCOMPARE(encoder->ReadInCounts(), reversed ? -30000 : -20000);
}

void LinearEncoderTest::LearntReadingSurvivesPowerOff() {
    const LinearEncoder encoder;
    Hold(2.0);
    encoder->setPresetInUnits(100.0);
    encoder->FindRefMark_Units(learn, 0.0);
    Hold(6.0);
    const double learnt = encoder->ReadInUnitsAtRefmark();
    const double before = encoder->ReadInUnits();
    LosePower();
    QVERIFY(encoder->ReadInUnits() != before);
    encoder->FindRefMark_Units(recall, learnt);
    Hold(1.0);
    Hold(6.0);
    QVERIFY(!encoder->RefmarkFound()); // nobody asked while the tip was below the mark
    Hold(1.0);
    QVERIFY(encoder->RefmarkFound());
    Hold(6.0);
    QCOMPARE(encoder->ReadInUnits(), before);
}

void LinearEncoderTest::MarkIsPassedOnlyDuringASearch() {
    const LinearEncoder encoder;
    QCOMPARE(encoder.CountAt(3.0), 30000);
    QCOMPARE(encoder.CountAt(5.0), 50000);
    QVERIFY(!encoder->RefmarkFound());
    encoder->FindRefMark_Counts(recall, 0);
    QCOMPARE(encoder.CountAt(8.0), 80000);
    QVERIFY(encoder->RefmarkInProgress());
    QCOMPARE(encoder.CountAt(3.0), -10000);
    QVERIFY(!encoder->RefmarkInProgress());
    QCOMPARE(encoder.CountAt(8.0), 40000);
}

void LinearEncoderTest::MarkIsPassedByTheSignal() {
    const LinearEncoder encoder("mark=\"4\" hand=\"never\"",
                                "<signal base=\"6\" motion=\"triangle\" amplitude=\"5\" period=\"10\"/>");
    encoder->FindRefMark_Counts(learn, 0);
    // From 6 up to 11, down again, and past 4 after 6 seconds.
    AdvanceClock(5.9);
    QVERIFY(encoder->RefmarkInProgress());
    AdvanceClock(0.2);
    QVERIFY(!encoder->RefmarkInProgress());
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 40000);
}

void LinearEncoderTest::StopAbandonsTheSearch() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->StopRefMark();
    encoder->FindRefMark_Counts(recall, 5);
    encoder->StopRefMark();
    QVERIFY(!encoder->RefmarkInProgress());
    QVERIFY(!encoder->RefmarkFound());
    QCOMPARE(encoder.CountAt(5.0), 50000);
    QVERIFY(!encoder->RefmarkFound());
    // A stop that comes too late leaves what was found.
    encoder->FindRefMark_Counts(learn, 0);
    Hold(3.0);
    encoder->StopRefMark();
    QVERIFY(encoder->RefmarkFound());
}

void LinearEncoderTest::ANewSearchBeginsAgain() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->FindRefMark_Counts(recall, 5);
    encoder->FindRefMark_Counts(learn, 0);
    Hold(5.0);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 40000);
    encoder->FindRefMark_Counts(learn, 0);
    QVERIFY(encoder->RefmarkInProgress());
    QVERIFY(!encoder->RefmarkFound());
    QVERIFY(RefusalOf([&] { encoder->ReadInCountsAtRefmark(); }).Is(eTavikErrors::MarkNotFound));
}

void LinearEncoderTest::PowerOffEndsTheSearch() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->FindRefMark_Counts(recall, 5);
    TavikSimulator::SetModulePresent("N", "MODULE0001", false);
    QVERIFY(RefusalOf([&] { encoder->RefmarkInProgress(); }).Is(eTavikErrors::ModuleNotResponding));
    TavikSimulator::SetModulePresent("N", "MODULE0001", true);
    QVERIFY(!encoder->RefmarkInProgress());
    Hold(5.0);
    QVERIFY(!encoder->RefmarkFound());
    QCOMPARE(encoder->ReadInCounts(), 20000);
}

void LinearEncoderTest::PresetDuringASearchCounts() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->FindRefMark_Counts(learn, 0);
    encoder->setPresetInCounts(500);
    Hold(5.0);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 10500);
}

void LinearEncoderTest::TheHandComesAfterAWhile() {
    const LinearEncoder encoder("mark=\"4\" hand=\"2.5\"", "<signal base=\"7\"/>");
    AdvanceClock(100.0);
    QCOMPARE(encoder->ReadInCounts(), 70000);
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(2.4);
    QVERIFY(encoder->RefmarkInProgress());
    QCOMPARE(encoder->ReadInCounts(), 70000);
    AdvanceClock(0.35); // halfway to the far end of its way
    QVERIFY(encoder->ReadInCounts() < 60000);
    AdvanceClock(0.35);
    QVERIFY(!encoder->RefmarkInProgress());
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 40000);
    AdvanceClock(0.5);
    QCOMPARE(encoder->ReadInCounts(), 70000);
}

void LinearEncoderTest::TheHandNeverComes() {
    const LinearEncoder encoder;
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(3600.0);
    QVERIFY(encoder->RefmarkInProgress());
}

void LinearEncoderTest::TheHandIsSentAwayByAStop() {
    const LinearEncoder encoder("mark=\"4\" hand=\"2\"", "<signal base=\"7\"/>");
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(1.0);
    encoder->StopRefMark();
    for (int i = 0; i < 30; ++i) {
        AdvanceClock(0.1);
        QCOMPARE(encoder->ReadInCounts(), 70000);
    }
    QVERIFY(!encoder->RefmarkFound());
}

void LinearEncoderTest::TheHandPassesFromEitherSide_data() {
    QTest::addColumn<double>("mark");
    QTest::addColumn<double>("base");
    QTest::newRow("from above") << 1.0 << 11.9;
    QTest::newRow("from below") << 11.0 << 0.1;
    QTest::newRow("standing on it") << 6.0 << 6.0;
    QTest::newRow("mark at the lower limit") << 0.0 << 12.0;
    QTest::newRow("mark at the upper limit") << 12.0 << 0.0;
}

void LinearEncoderTest::TheHandPassesFromEitherSide() {
    QFETCH(double, mark);
    QFETCH(double, base);
    const LinearEncoder encoder("hand=\"0\" mark=\"" + std::to_string(mark) + "\"",
                                "<signal base=\"" + std::to_string(base) + "\"/>");
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(1.0);
    QVERIFY(encoder->RefmarkFound());
    QCOMPARE(encoder->ReadInCountsAtRefmark(), static_cast<int>(mark * 10000));
}

void LinearEncoderTest::AnyPollingFindsTheMark() {
    for (const int polls : {1, 2, 7, 100, 1000}) {
        const LinearEncoder encoder("mark=\"4\" hand=\"3\"", "<signal base=\"7\"/>");
        encoder->FindRefMark_Counts(learn, 0);
        for (int i = 0; i < polls; ++i) {
            AdvanceClock(5.0 / polls);
            encoder->RefmarkInProgress();
        }
        QVERIFY2(encoder->RefmarkFound(), std::to_string(polls).c_str());
    }
}

void LinearEncoderTest::NoReadingBeforeTheMarkIsFound() {
    const LinearEncoder encoder;
    const Refusal counts = RefusalOf([&] { encoder->ReadInCountsAtRefmark(); });
    QVERIFY(counts.Is(eTavikErrors::MarkNotFound) && counts.Names("MODULE0001"));
    QVERIFY(RefusalOf([&] { encoder->ReadInUnitsAtRefmark(); }).Is(eTavikErrors::MarkNotFound));
}

void LinearEncoderTest::ImpossibleValuesAreRefused() {
    const LinearEncoder encoder;
    Hold(3.0);
    for (const int value : {-1, 2, 1000}) {
        const Refusal refusal = RefusalOf([&] { encoder->setDirection(static_cast<eDirection>(value)); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(value)));
    }
    for (const int value : {-1, 0, 3}) {
        const auto mode = static_cast<eReferenceMarkMode>(value);
        const Refusal refusal = RefusalOf([&] { encoder->FindRefMark_Counts(mode, 0); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(value)));
        QVERIFY(RefusalOf([&] { encoder->FindRefMark_Units(mode, 0.0); }).Names("mode"));
    }
    for (const int counts : {1000000001, -1000000001, std::numeric_limits<int>::max()}) {
        QVERIFY(RefusalOf([&] { encoder->setPresetInCounts(counts); }).Names(std::to_string(counts)));
        QVERIFY(RefusalOf([&] { encoder->FindRefMark_Counts(recall, counts); }).Is(eTavikErrors::InvalidArgument));
    }
    for (const double units : {1e5 + 1, -1e5 - 1, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        QVERIFY(RefusalOf([&] { encoder->setPresetInUnits(units); }).Is(eTavikErrors::InvalidArgument));
        QVERIFY(RefusalOf([&] { encoder->FindRefMark_Units(recall, units); }).Names("mm"));
    }
    QVERIFY(!encoder->RefmarkInProgress());
    QCOMPARE(encoder->Direction(), eDirection::Normal);
    QCOMPARE(encoder->ReadInCounts(), 30000);
}

void LinearEncoderTest::CountsBeyondTheRegister() {
    const LinearEncoder encoder("stroke=\"1e9\" counts-per-unit=\"2\" hand=\"never\"", "<signal base=\"0\"/>");
    encoder->setPresetInCounts(1000000000);
    QCOMPARE(encoder.CountAt(999999999.0), std::numeric_limits<int>::max());
    QCOMPARE(encoder->LastResultCode(), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(encoder.CountAt(1000000.0), 1002000000);
    QCOMPARE(encoder->LastResultCode(), 0);
}

void LinearEncoderTest::FilesAreChecked_data() {
    QTest::addColumn<QString>("attributes");
    QTest::newRow("mark below the range") << QStringLiteral("mark=\"-0.1\"");
    QTest::newRow("mark above the range") << QStringLiteral("mark=\"12.1\"");
    QTest::newRow("mark beyond a shorter range") << QStringLiteral("mark=\"6\" stroke=\"5\"");
    QTest::newRow("hand") << QStringLiteral("hand=\"soon\"");
    QTest::newRow("hand before the search") << QStringLiteral("hand=\"-1\"");
}

void LinearEncoderTest::FilesAreChecked() {
    QFETCH(QString, attributes);
    const Refusal refusal = RefusalOf([&] { const LinearEncoder encoder(attributes.toStdString()); });
    QVERIFY(refusal.refused && refusal.Names("line"));
}

QTEST_APPLESS_MAIN(LinearEncoderTest)
#include "LinearEncoderTest.moc"
