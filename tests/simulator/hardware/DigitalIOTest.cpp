#include "library/TavikModuleDigitalIO.h"
#include "tests/simulator/hardware/OneModule.h"

using namespace TavikLibrary;
using TavikSimulator::AdvanceClock;

namespace {

class EightPins : public OneModule<TavikModuleSWAX> {
public:
    explicit EightPins(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("SWAX", attributes, content) {}
};

class TenPins : public OneModule<TavikModuleSWAX2> {
public:
    explicit TenPins(const std::string& attributes = std::string(), const std::string& content = std::string())
        : OneModule("SWAX2", attributes, content) {}
};

const char* const wire = "<wire from=\"0\" to=\"4\"/>";

} // namespace

/// Digital I/O modules drive and see what their wires and signals say.
class DigitalIOTest : public QObject {
    Q_OBJECT

private slots:
    void AWiredInputSeesItsOutput();
    void AnOutputThatLetsGoIsLow();
    void PinsBeginAsTheFileSays();
    void PulsesAreSeen();
    void ShortPulsesAreSwallowed_data();
    void ShortPulsesAreSwallowed();
    void DebounceSwallowsWhatAnOutputDoesTooQuickly();
    void DebounceDelaysALevel();
    void AnotherDebounceTimeKeepsWhatIsSeen();
    void TheReadingTellsOfAllPins();
    void PowerOffLetsOutputsRest();
    void PolarityTurnsTheLevel();
    void PolarityMasksKeepAllBits();
    void OutputModesDriveAsTheyCan_data();
    void OutputModesDriveAsTheyCan();
    void TheReadingTellsWhatIsActive();
    void ImpossibleModesAreRefused();
    void MasterSettingsAreKeptAndChecked();
    void FilesAreChecked_data();
    void FilesAreChecked();
};

void DigitalIOTest::AWiredInputSeesItsOutput() {
    const EightPins pins("outputs=\"1\"", wire);
    for (const int level : {1, 0, 1, 1, 0}) {
        pins->setOutputState(0, level);
        QCOMPARE(pins->InputState(4), level);
        QCOMPARE(pins->InputState(5), 0);
    }
}

void DigitalIOTest::AnOutputThatLetsGoIsLow() {
    const EightPins pins("outputs=\"1\"", wire);
    pins->setOutputState(0, 1);
    QCOMPARE(pins->InputState(4), 1);
    pins->setPinConfiguration(0, 1);
    QCOMPARE(pins->InputState(4), 0);
    pins->setPinConfiguration(0, 0);
    QCOMPARE(pins->InputState(4), 1);
}

void DigitalIOTest::PinsBeginAsTheFileSays() {
    const EightPins pins("outputs=\"0xA1\" debounce=\"25\"");
    for (int pin = 0; pin < 8; ++pin) {
        QCOMPARE(pins->PinConfiguration(pin), ((0xA1 >> pin) & 1) == 1 ? 0 : 1);
    }
    QCOMPARE(pins->DebounceTime(), 25);
}

void DigitalIOTest::PulsesAreSeen() {
    const EightPins pins("", "<pulses pin=\"3\" period=\"2\" high=\"0.5\" start=\"1\"/>");
    QString seen;
    for (int step = 0; step < 16; ++step) {
        seen += QString::number(pins->InputState(3));
        AdvanceClock(0.25);
    }
    QCOMPARE(seen, QStringLiteral("0000110000001100"));
}

void DigitalIOTest::ShortPulsesAreSwallowed_data() {
    QTest::addColumn<double>("period");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("debounce");
    QTest::addColumn<QString>("seen");
    QTest::newRow("none") << 0.1 << 0.02 << 0 << QStringLiteral("1100000000");
    QTest::newRow("long enough") << 0.1 << 0.02 << 10 << QStringLiteral("0110000000");
    QTest::newRow("too short") << 0.1 << 0.02 << 25 << QStringLiteral("0000000000");
    QTest::newRow("gap too short") << 0.1 << 0.08 << 25 << QStringLiteral("1111111111");
    QTest::newRow("both too short") << 0.04 << 0.02 << 50 << QStringLiteral("0000000000");
}

void DigitalIOTest::ShortPulsesAreSwallowed() {
    QFETCH(double, period);
    QFETCH(double, high);
    QFETCH(int, debounce);
    QFETCH(QString, seen);
    const EightPins pins("debounce=\"" + std::to_string(debounce) + "\"", "<pulses pin=\"0\" period=\"" +
                                                                              std::to_string(period) + "\" high=\"" +
                                                                              std::to_string(high) + "\"/>");
    AdvanceClock(10.001);
    QString levels;
    for (int step = 0; step < 10; ++step) {
        levels += QString::number(pins->InputState(0));
        AdvanceClock(0.01);
    }
    QCOMPARE(levels, seen);
}

void DigitalIOTest::DebounceSwallowsWhatAnOutputDoesTooQuickly() {
    const EightPins pins("outputs=\"1\" debounce=\"10\"", wire);
    AdvanceClock(1.0);
    pins->setOutputState(0, 1);
    AdvanceClock(0.009);
    pins->setOutputState(0, 0);
    AdvanceClock(0.5);
    QCOMPARE(pins->InputState(4), 0);
    pins->setOutputState(0, 1);
    AdvanceClock(0.010);
    QCOMPARE(pins->InputState(4), 1);
    // Chatter around a level that is seen already.
    for (int i = 0; i < 5; ++i) {
        pins->setOutputState(0, i % 2);
        AdvanceClock(0.004);
        QCOMPARE(pins->InputState(4), 1);
    }
}

void DigitalIOTest::DebounceDelaysALevel() {
    for (const int milliseconds : {0, 5, 10, 15, 25, 50}) {
        const EightPins pins("outputs=\"1\"", wire);
        pins->setDebounceTime(milliseconds);
        AdvanceClock(1.0);
        pins->setOutputState(0, 1);
        if (milliseconds > 0) {
            AdvanceClock(milliseconds / 1000.0 - 0.0005);
            QCOMPARE(pins->InputState(4), 0);
            AdvanceClock(0.0005);
        }
        QCOMPARE(pins->InputState(4), 1);
    }
}

void DigitalIOTest::AnotherDebounceTimeKeepsWhatIsSeen() {
    const EightPins pins("outputs=\"1\"", wire);
    AdvanceClock(1.0);
    pins->setOutputState(0, 1);
    QCOMPARE(pins->InputState(4), 1);
    pins->setDebounceTime(50);
    QCOMPARE(pins->InputState(4), 1);
}

void DigitalIOTest::TheReadingTellsOfAllPins() {
    const EightPins pins("outputs=\"3\" inputs=\"0x40\"", wire);
    pins->setOutputState(1, 1);
    QCOMPARE(pins->ReadInCounts(), 0x42);
    pins->setOutputState(0, 1);
    QCOMPARE(pins->ReadInCounts(), 0x53);
    QCOMPARE(pins->ReadInUnits(), 83.0);
}

void DigitalIOTest::PowerOffLetsOutputsRest() {
    const EightPins pins("outputs=\"1\"", wire);
    pins->setOutputState(0, 1);
    TavikSimulator::SetModulePresent("N", "MODULE0001", false);
    QVERIFY(RefusalOf([&] { pins->InputState(4); }).Is(eTavikErrors::ModuleNotResponding));
    TavikSimulator::SetModulePresent("N", "MODULE0001", true);
    QCOMPARE(pins->InputState(4), 0);
    QCOMPARE(pins->OutputState(0), 0);
    QCOMPARE(pins->PinConfiguration(0), 0);
}

void DigitalIOTest::PolarityTurnsTheLevel() {
    const TenPins pins("", wire);
    QCOMPARE(pins->InputState(4), 0);
    pins->setOutputState(0, 1);
    QCOMPARE(pins->InputState(4), 1);
    pins->setOutPolarityMask(0x000E);
    QCOMPARE(pins->InputState(4), 0);
    pins->setOutputState(0, 0);
    QCOMPARE(pins->InputState(4), 1);
    // The polarity of the input changes what is active, not the level.
    pins->setInPolarityMask(0x003E);
    QCOMPARE(pins->InputState(4), 1);
}

void DigitalIOTest::PolarityMasksKeepAllBits() {
    const TenPins pins("output-polarity=\"0xBEEF\" input-polarity=\"0xCAFE\"");
    QCOMPARE(int{pins->OutPolarityMask()}, 0xBEEF);
    QCOMPARE(int{pins->InPolarityMask()}, 0xCAFE);
    for (const unsigned short mask : {0x0000, 0xFFFF, 0x8001}) {
        pins->setOutPolarityMask(mask);
        pins->setInPolarityMask(static_cast<unsigned short>(mask ^ 0xFFFF));
        QCOMPARE(pins->OutPolarityMask(), mask);
        QCOMPARE(pins->InPolarityMask(), static_cast<unsigned short>(mask ^ 0xFFFF));
    }
}

void DigitalIOTest::OutputModesDriveAsTheyCan_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("pullUps");
    QTest::addColumn<QString>("levels");
    // Levels for inactive and active.
    QTest::newRow("NPN, pulled down") << 0 << QStringLiteral("0") << QStringLiteral("00");
    QTest::newRow("NPN, pulled up") << 0 << QStringLiteral("0x10") << QStringLiteral("01");
    QTest::newRow("PNP, pulled down") << 1 << QStringLiteral("0") << QStringLiteral("01");
    QTest::newRow("PNP, pulled up") << 1 << QStringLiteral("0x10") << QStringLiteral("11");
    QTest::newRow("TTL, pulled down") << 2 << QStringLiteral("0") << QStringLiteral("01");
    QTest::newRow("TTL, pulled up") << 2 << QStringLiteral("0x10") << QStringLiteral("01");
}

void DigitalIOTest::OutputModesDriveAsTheyCan() {
    QFETCH(int, mode);
    QFETCH(QString, pullUps);
    QFETCH(QString, levels);
    const TenPins pins("pull-ups=\"" + pullUps.toStdString() + "\"", wire);
    pins->setOutputMode(static_cast<eDIOOutputMode>(mode));
    QCOMPARE(static_cast<int>(pins->OutputMode()), mode);
    for (const int state : {0, 1, 0}) {
        pins->setOutputState(0, state);
        QCOMPARE(QString::number(pins->InputState(4)), levels.mid(state, 1));
    }
}

void DigitalIOTest::TheReadingTellsWhatIsActive() {
    const TenPins pins("inputs=\"0x050\"");
    QCOMPARE(pins->ReadInCounts(), 0x050);
    pins->setInPolarityMask(0x0000);
    QCOMPARE(pins->ReadInCounts(), 0x3A0);
    pins->setOutputState(3, 1);
    QCOMPARE(pins->ReadInCounts(), 0x3A8);
    pins->setOutPolarityMask(0x0000);
    QCOMPARE(pins->ReadInCounts(), 0x3A8);
}

void DigitalIOTest::ImpossibleModesAreRefused() {
    const TenPins pins;
    for (const int mode : {-1, 3, 100}) {
        const Refusal refusal = RefusalOf([&] { pins->setOutputMode(static_cast<eDIOOutputMode>(mode)); });
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(mode)));
    }
    QCOMPARE(pins->OutputMode(), eDIOOutputMode::TTL);
}

void DigitalIOTest::MasterSettingsAreKeptAndChecked() {
    const TenPins pins;
    QVERIFY(pins->BufferedMasterCapable() && pins->DynamicMasterCapable());
    pins->setTxSample(12);
    pins->setTxSync(34);
    pins->setDynamicMasterMode(eDynamicMasterMode::Instant);
    QCOMPARE(pins->TxSample(), short{12});
    QCOMPARE(pins->TxSync(), short{34});
    QCOMPARE(pins->DynamicMasterMode(), eDynamicMasterMode::Instant);
    QVERIFY(RefusalOf([&] { pins->setTxSample(0); }).Is(eTavikErrors::InvalidArgument));
    QVERIFY(RefusalOf([&] { pins->setTxSync(-1); }).Is(eTavikErrors::InvalidArgument));
    for (const eDynamicMasterMode mode :
         {eDynamicMasterMode::HoldOff, eDynamicMasterMode::Refaction_Reset, eDynamicMasterMode::Refaction_Preset}) {
        QVERIFY(RefusalOf([&] { pins->setDynamicMasterMode(mode); }).Is(eTavikErrors::NotSupported));
    }
    QCOMPARE(pins->DynamicMasterMode(), eDynamicMasterMode::Instant);
}

void DigitalIOTest::FilesAreChecked_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("content");
    const auto row = [](const char* name, const char* type, const char* attributes, const char* content) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(attributes)
                            << QString::fromLatin1(content);
    };
    row("wire to itself", "SWAX", "", "<wire from=\"1\" to=\"1\"/>");
    row("wire from nowhere", "SWAX", "", "<wire to=\"1\"/>");
    row("wire beyond the pins", "SWAX", "", "<wire from=\"0\" to=\"8\"/>");
    row("wire into an output", "SWAX2", "", "<wire from=\"0\" to=\"1\"/>");
    row("wire out of an input", "SWAX2", "", "<wire from=\"4\" to=\"5\"/>");
    row("two wires to one input", "SWAX", "", "<wire from=\"0\" to=\"2\"/><wire from=\"1\" to=\"2\"/>");
    row("wire and pulses", "SWAX", "", "<wire from=\"0\" to=\"2\"/><pulses pin=\"2\"/>");
    row("pulses without a pin", "SWAX", "", "<pulses period=\"1\"/>");
    row("pulse as long as its period", "SWAX", "", "<pulses pin=\"2\" period=\"1\" high=\"1\"/>");
    row("too many outputs", "SWAX", "outputs=\"0x100\"", "");
    row("outputs of the second generation", "SWAX2", "outputs=\"1\"", "");
    row("polarity of the first generation", "SWAX", "output-polarity=\"1\"", "");
    row("polarity of 17 bits", "SWAX2", "output-polarity=\"0x10000\"", "");
    row("wire of a probe", "KX", "", "<wire from=\"0\" to=\"1\"/>");
}

void DigitalIOTest::FilesAreChecked() {
    QFETCH(QString, type);
    QFETCH(QString, attributes);
    QFETCH(QString, content);
    const Refusal refusal = RefusalOf([&] {
        const OneModule<TavikModule> module(type.toStdString(), attributes.toStdString(), content.toStdString());
    });
    QVERIFY(refusal.refused && refusal.Names("line"));
}

QTEST_APPLESS_MAIN(DigitalIOTest)
#include "DigitalIOTest.moc"
