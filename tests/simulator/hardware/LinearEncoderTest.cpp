#include "tests/simulator/hardware/LinearEncoder.h"

#include <limits>

using namespace TavikLibrary;

namespace {

constexpr auto recall = eReferenceMarkMode::Recall;

} // namespace

/// A linear encoder counts from its datum.
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
