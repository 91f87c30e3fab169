#include "tests/simulator/hardware/LinearEncoder.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

constexpr auto learn = eReferenceMarkMode::Learn;
constexpr auto recall = eReferenceMarkMode::Recall;

} // namespace

/// The reference mark gives a linear encoder its datum back.
class ReferenceMarkSearchTest : public QObject {
    Q_OBJECT

private slots:
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
};

void ReferenceMarkSearchTest::LearnsTheReadingAtTheMark_data() {
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("upwards") << 3.0 << 5.0;
    QTest::newRow("downwards") << 5.0 << 3.0;
}

void ReferenceMarkSearchTest::LearnsTheReadingAtTheMark() {
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

void ReferenceMarkSearchTest::LearnsInUnits() {
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

void ReferenceMarkSearchTest::LearnsOnAReversedScale() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->setDirection(eDirection::Reversed);
    encoder->setPresetInCounts(0);
    encoder->FindRefMark_Counts(learn, 0);
    Hold(5.0);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), -10000);
}

void ReferenceMarkSearchTest::RecallSetsTheReadingAtTheMark_data() {
    QTest::addColumn<bool>("counts");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("counts") << true << false;
    QTest::newRow("units") << false << false;
    QTest::newRow("counts, reversed") << true << true;
    QTest::newRow("units, reversed") << false << true;
}

void ReferenceMarkSearchTest::RecallSetsTheReadingAtTheMark() {
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

void ReferenceMarkSearchTest::LearntReadingSurvivesPowerOff() {
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

void ReferenceMarkSearchTest::MarkIsPassedOnlyDuringASearch() {
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

void ReferenceMarkSearchTest::MarkIsPassedByTheSignal() {
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

void ReferenceMarkSearchTest::StopAbandonsTheSearch() {
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

void ReferenceMarkSearchTest::ANewSearchBeginsAgain() {
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

void ReferenceMarkSearchTest::PowerOffEndsTheSearch() {
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

void ReferenceMarkSearchTest::PresetDuringASearchCounts() {
    const LinearEncoder encoder;
    Hold(3.0);
    encoder->FindRefMark_Counts(learn, 0);
    encoder->setPresetInCounts(500);
    Hold(5.0);
    QCOMPARE(encoder->ReadInCountsAtRefmark(), 10500);
}

void ReferenceMarkSearchTest::TheHandComesAfterAWhile() {
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

void ReferenceMarkSearchTest::TheHandNeverComes() {
    const LinearEncoder encoder;
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(3600.0);
    QVERIFY(encoder->RefmarkInProgress());
}

void ReferenceMarkSearchTest::TheHandIsSentAwayByAStop() {
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

void ReferenceMarkSearchTest::TheHandPassesFromEitherSide_data() {
    QTest::addColumn<double>("mark");
    QTest::addColumn<double>("base");
    QTest::newRow("from above") << 1.0 << 11.9;
    QTest::newRow("from below") << 11.0 << 0.1;
    QTest::newRow("standing on it") << 6.0 << 6.0;
    QTest::newRow("mark at the lower limit") << 0.0 << 12.0;
    QTest::newRow("mark at the upper limit") << 12.0 << 0.0;
}

void ReferenceMarkSearchTest::TheHandPassesFromEitherSide() {
    QFETCH(double, mark);
    QFETCH(double, base);
    const LinearEncoder encoder("hand=\"0\" mark=\"" + std::to_string(mark) + "\"",
                                "<signal base=\"" + std::to_string(base) + "\"/>");
    encoder->FindRefMark_Counts(learn, 0);
    AdvanceClock(1.0);
    QVERIFY(encoder->RefmarkFound());
    QCOMPARE(encoder->ReadInCountsAtRefmark(), static_cast<int>(mark * 10000));
}

void ReferenceMarkSearchTest::AnyPollingFindsTheMark() {
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

void ReferenceMarkSearchTest::NoReadingBeforeTheMarkIsFound() {
    const LinearEncoder encoder;
    const Refusal counts = RefusalOf([&] { encoder->ReadInCountsAtRefmark(); });
    QVERIFY(counts.Is(eTavikErrors::MarkNotFound) && counts.Names("MODULE0001"));
    QVERIFY(RefusalOf([&] { encoder->ReadInUnitsAtRefmark(); }).Is(eTavikErrors::MarkNotFound));
}

QTEST_APPLESS_MAIN(ReferenceMarkSearchTest)
#include "ReferenceMarkSearchTest.moc"
