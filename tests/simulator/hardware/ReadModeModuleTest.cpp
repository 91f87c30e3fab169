#include "library/TavikModuleHVX.h"
#include "tests/simulator/hardware/OneModule.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

class Module : public OneModule<TavikModuleHVX> {
public:
    explicit Module(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("HVX", attributes, content) {}
};

/// 1 mm a second, from 5 mm on.
const char* const ramp = "<signal base=\"5\" motion=\"ramp\" rate=\"1\" period=\"0\"/>";

} // namespace

/// The read-mode module takes its readings when its mode says.
class ReadModeModuleTest : public QObject {
    Q_OBJECT

private slots:
    void ContinuousReadingsGoOn();
    void ContinuousReadingsAreNewTenTimesASecond();
    void ReadingsOnSwitchWaitForTheOperator();
    void WithoutAnOperatorNothingIsRead();
    void APressBeforeTheModeIsForgotten();
    void ReadingsOnSampleWaitForTheCommand();
    void SamplesAreRefusedInOtherModes();
    void EachReadingIsNewOnce();
    void AnotherModeForgetsTheSample();
    void ImpossibleModesAreRefused();
    void InformationChangesWhenItIsFetched();
    void NothingChangesNothing();
    void FilesAreChecked_data();
    void FilesAreChecked();
};

void ReadModeModuleTest::ContinuousReadingsGoOn() {
    const Module module("", ramp);
    QCOMPARE(module->ReadMode(), eHvxReadMode::ReadContinuous);
    QCOMPARE(module->ReadInUnits(), 5.0);
    AdvanceClock(3.0);
    QCOMPARE(module->ReadInUnits(), 8.0);
    AdvanceClock(0.0999);
    QCOMPARE(module->ReadInUnits(), 8.0);
    AdvanceClock(0.0001);
    QCOMPARE(module->ReadInUnits(), 8.1);
}

void ReadModeModuleTest::ContinuousReadingsAreNewTenTimesASecond() {
    const Module module;
    QVERIFY(module->NewReadingReady());
    int found = 0;
    for (int i = 0; i < 1000; ++i) {
        AdvanceClock(0.002);
        found += module->NewReadingReady() ? 1 : 0;
    }
    QVERIFY(std::abs(found - 20) <= 1);
}

void ReadModeModuleTest::ReadingsOnSwitchWaitForTheOperator() {
    const Module module("read-mode=\"switch\" switch-every=\"4\"", ramp);
    QCOMPARE(module->ReadMode(), eHvxReadMode::ReadOnSwitch);
    QVERIFY(!module->NewReadingReady());
    const Refusal refusal = RefusalOf([&] { module->ReadInUnits(); });
    QVERIFY(refusal.Is(eTavikErrors::ReadingNotAvailable) && refusal.Names("MODULE0001"));
    QCOMPARE(module->LastResultCode(), static_cast<int>(eTavikErrors::ReadingNotAvailable));
    AdvanceClock(3.9);
    QVERIFY(!module->NewReadingReady());
    AdvanceClock(0.2);
    QVERIFY(module->NewReadingReady());
    QCOMPARE(module->ReadInUnits(), 9.0);
    AdvanceClock(3.0);
    QVERIFY(!module->NewReadingReady());
    QCOMPARE(module->ReadInUnits(), 9.0);
    AdvanceClock(1.0);
    QVERIFY(module->NewReadingReady());
    QCOMPARE(module->ReadInUnits(), 13.0);
}

void ReadModeModuleTest::WithoutAnOperatorNothingIsRead() {
    const Module module("read-mode=\"switch\"");
    AdvanceClock(1000.0);
    QVERIFY(!module->NewReadingReady());
    QVERIFY(RefusalOf([&] { module->ReadInCounts(); }).Is(eTavikErrors::ReadingNotAvailable));
}

void ReadModeModuleTest::APressBeforeTheModeIsForgotten() {
    const Module module("switch-every=\"4\"", ramp);
    AdvanceClock(5.0);
    module->setReadMode(eHvxReadMode::ReadOnSwitch);
    QVERIFY(!module->NewReadingReady());
    QVERIFY(RefusalOf([&] { module->ReadInCounts(); }).Is(eTavikErrors::ReadingNotAvailable));
    AdvanceClock(3.5);
    QCOMPARE(module->ReadInUnits(), 13.0);
}

void ReadModeModuleTest::ReadingsOnSampleWaitForTheCommand() {
    const Module module("read-mode=\"sample\"", ramp);
    AdvanceClock(2.0);
    QVERIFY(!module->NewReadingReady());
    QVERIFY(RefusalOf([&] { module->ReadInUnits(); }).Is(eTavikErrors::ReadingNotAvailable));
    module->SampleReading();
    AdvanceClock(5.0);
    QCOMPARE(module->ReadInUnits(), 7.0);
    QCOMPARE(module->ReadInCounts(), 7000);
    module->SampleReading();
    QCOMPARE(module->ReadInUnits(), 12.0);
}

void ReadModeModuleTest::SamplesAreRefusedInOtherModes() {
    const Module module;
    for (const eHvxReadMode mode : {eHvxReadMode::ReadContinuous, eHvxReadMode::ReadOnSwitch}) {
        module->setReadMode(mode);
        const Refusal refusal = RefusalOf([&] { module->SampleReading(); });
        QVERIFY(refusal.Is(eTavikErrors::NotSupported));
        QVERIFY(refusal.Names(eHvxReadMode_ToString(eHvxReadMode::ReadOnSample)));
    }
}

void ReadModeModuleTest::EachReadingIsNewOnce() {
    const Module module("read-mode=\"sample\"");
    module->SampleReading();
    QVERIFY(module->NewReadingReady());
    QVERIFY(!module->NewReadingReady());
    module->ReadInCounts();
    QVERIFY(!module->NewReadingReady());
    module->SampleReading();
    QVERIFY(module->NewReadingReady());
    AdvanceClock(100.0);
    QVERIFY(!module->NewReadingReady());
}

void ReadModeModuleTest::AnotherModeForgetsTheSample() {
    const Module module("read-mode=\"sample\"");
    module->SampleReading();
    module->setReadMode(eHvxReadMode::ReadContinuous);
    module->ReadInCounts();
    module->setReadMode(eHvxReadMode::ReadOnSample);
    QVERIFY(RefusalOf([&] { module->ReadInCounts(); }).Is(eTavikErrors::ReadingNotAvailable));
}

void ReadModeModuleTest::ImpossibleModesAreRefused() {
    const Module module;
    for (const int mode : {-1, 3, 99}) {
        const Refusal refusal = RefusalOf([&] { module->setReadMode(static_cast<eHvxReadMode>(mode)); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(mode)));
        QVERIFY(eHvxReadMode_ToString(static_cast<eHvxReadMode>(mode)).find(std::to_string(mode)) != std::string::npos);
    }
    QCOMPARE(module->ReadMode(), eHvxReadMode::ReadContinuous);
}

void ReadModeModuleTest::InformationChangesWhenItIsFetched() {
    const Module module("software-version=\"1\" device-type=\"Old\"",
                        "<change at=\"10\" software-version=\"2\" device-type=\"New\" probe-identity=\"PP1\"/>");
    module->UpdateInfo();
    QCOMPARE(module->SoftwareVersion(), std::string("1"));
    AdvanceClock(10.0);
    QCOMPARE(module->SoftwareVersion(), std::string("1"));
    QVERIFY(RefusalOf([&] { module->ProbeIdentity(); }).Is(eTavikErrors::NotAvailable));
    module->UpdateInfo();
    QCOMPARE(module->SoftwareVersion(), std::string("2"));
    QCOMPARE(module->DeviceType(), std::string("New"));
    QCOMPARE(module->ProbeIdentity(), std::string("PP1"));
    QCOMPARE(module->Stroke(), 25.0);
}

void ReadModeModuleTest::NothingChangesNothing() {
    const Module module("software-version=\"1\"", "<change at=\"0\" device-type=\"New\"/>");
    module->UpdateInfo();
    QCOMPARE(module->SoftwareVersion(), std::string("1"));
    QCOMPARE(module->DeviceType(), std::string("New"));
    QVERIFY(RefusalOf([&] { module->ProbeIdentity(); }).Is(eTavikErrors::NotAvailable));
    const Module other;
    other->UpdateInfo();
    QCOMPARE(other->SoftwareVersion(), std::string("1.21"));
}

void ReadModeModuleTest::FilesAreChecked_data() {
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("content");
    QTest::newRow("mode") << QStringLiteral("read-mode=\"never\"") << QString();
    QTest::newRow("presses") << QStringLiteral("switch-every=\"0\"") << QString();
    QTest::newRow("change of nothing") << QString() << QStringLiteral("<change at=\"3\"/>");
    QTest::newRow("two changes") << QString()
                                 << QStringLiteral("<change device-type=\"A\"/><change device-type=\"B\"/>");
    QTest::newRow("change of something else") << QString() << QStringLiteral("<change stroke=\"3\"/>");
}

void ReadModeModuleTest::FilesAreChecked() {
    QFETCH(QString, attributes);
    QFETCH(QString, content);
    const Refusal refusal = RefusalOf([&] { const Module module(attributes.toStdString(), content.toStdString()); });
    QVERIFY(refusal.refused && refusal.Names("line"));
}

QTEST_APPLESS_MAIN(ReadModeModuleTest)
#include "ReadModeModuleTest.moc"
