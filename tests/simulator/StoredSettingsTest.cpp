#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleHVX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModulePNX.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikModuleRLK.h"
#include "library/TavikModuleRN.h"
#include "tests/simulator/Bench.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>

using namespace TavikLibrary;

namespace {

using Change = std::function<void(TavikModule*)>;
using Look = std::function<QStringList(TavikModule*)>;

template <class Module>
Module& As(TavikModule* module) {
    return dynamic_cast<Module&>(*module);
}

template <class Value>
QString Shown(Value value) {
    return QString::number(static_cast<double>(value), 'g', 17);
}

struct Kind {
    const char* element; ///< of the bench file
    Change change;       ///< sets everything that is kept to something else
    Look look;           ///< at everything that is kept
    const char* wrong;   ///< a setting that is refused
    const char* says;    ///< and why
};

const QMap<QByteArray, Kind>& Kinds() {
    static const QMap<QByteArray, Kind> kinds = {
        {"encoder interface",
         {"type=\"QTA\"",
          [](TavikModule* module) {
              auto& encoder = As<TavikModuleQTA>(module);
              encoder.setQuadratureMode(eQuadratureMode::CountDIR);
              encoder.setQtaInterfaceType(eEncoderInterfaceType::SingleEnded);
              encoder.setPresetInCounts(-345);
              encoder.setRefAction(eRefAction::ContinuousPreset);
              encoder.setTxSample(7);
              encoder.setTxSync(8);
              encoder.setHoldOff(9);
              encoder.setDynamicMasterMode(eDynamicMasterMode::Refaction_Preset);
          },
          [](TavikModule* module) {
              auto& encoder = As<TavikModuleQTA>(module);
              return QStringList{Shown(encoder.QuadratureMode()), Shown(encoder.QtaInterfaceType()),
                                 Shown(encoder.PresetInCounts()), Shown(encoder.RefAction()),
                                 Shown(encoder.TxSample()),       Shown(encoder.TxSync()),
                                 Shown(encoder.HoldOff()),        Shown(encoder.DynamicMasterMode())};
          },
          "<setting name=\"quadrature-mode\" value=\"5\"/>", "has no quadrature mode 5"}},
        {"linear encoder",
         {"type=\"RN\"", [](TavikModule* module) { As<TavikModuleRN>(module).setDirection(eDirection::Reversed); },
          [](TavikModule* module) { return QStringList{Shown(As<TavikModuleRN>(module).Direction())}; },
          "<setting name=\"direction\" value=\"2\"/>", "has no counting direction 2"}},
        {"digital I/O",
         {"type=\"SWAX\"",
          [](TavikModule* module) {
              auto& pins = As<TavikModuleSWAX>(module);
              for (int pin = 0; pin < 8; ++pin) {
                  pins.setPinConfiguration(pin, 1 - pins.PinConfiguration(pin));
              }
              pins.setDebounceTime(25);
          },
          [](TavikModule* module) {
              auto& pins = As<TavikModuleSWAX>(module);
              QStringList seen = {Shown(pins.DebounceTime())};
              for (int pin = 0; pin < 8; ++pin) {
                  seen << Shown(pins.PinConfiguration(pin));
              }
              return seen;
          },
          "<setting name=\"input-3\" value=\"2\"/>", "The setting \"input-3\" needs 0 or 1, not \"2\""}},
        {"digital I/O 2",
         {"type=\"SWAX2\"",
          [](TavikModule* module) {
              auto& pins = As<TavikModuleSWAX2>(module);
              pins.setOutPolarityMask(0xA5A5);
              pins.setInPolarityMask(0x1234);
              pins.setOutputMode(eDIOOutputMode::PNP);
              pins.setDebounceTime(5);
              pins.setTxSample(3);
              pins.setTxSync(4);
              pins.setDynamicMasterMode(eDynamicMasterMode::Instant);
          },
          [](TavikModule* module) {
              auto& pins = As<TavikModuleSWAX2>(module);
              return QStringList{Shown(pins.OutPolarityMask()),  Shown(pins.InPolarityMask()), Shown(pins.OutputMode()),
                                 Shown(pins.DebounceTime()),     Shown(pins.TxSample()),       Shown(pins.TxSync()),
                                 Shown(pins.DynamicMasterMode())};
          },
          "<setting name=\"output-polarity\" value=\"65536\"/>", "has no polarity mask 65536"}},
        {"filtered laser",
         {"type=\"BWR\"",
          [](TavikModule* module) {
              auto& laser = As<TavikModuleBWR>(module);
              laser.setFilter(eFilter(laser.Filter() == eFilter(1) ? 2 : 1));
              laser.setLevelCutTime(laser.LevelCutTime() + 1);
              laser.setAveraging(eAveraging::Samples8);
          },
          [](TavikModule* module) {
              auto& laser = As<TavikModuleBWR>(module);
              return QStringList{Shown(laser.Filter()), Shown(laser.LevelCutTime()), Shown(laser.Averaging())};
          },
          "<setting name=\"level-cut-time\" value=\"-1\"/>", "The level-cut time"}},
        {"rated laser",
         {"type=\"BWK\"",
          [](TavikModule* module) {
              auto& laser = As<TavikModuleBWK>(module);
              const auto rates = laser.AvailableMeasuringRates();
              laser.setMeasuringRate(laser.MeasuringRate() == rates.front() ? rates.back() : rates.front());
          },
          [](TavikModule* module) { return QStringList{Shown(As<TavikModuleBWK>(module).MeasuringRate())}; },
          "<setting name=\"measuring-rate\" value=\"99\"/>", "does not offer the measuring rate"}},
        {"read-mode module",
         {"type=\"HVX\"",
          [](TavikModule* module) { As<TavikModuleHVX>(module).setReadMode(eHvxReadMode::ReadOnSample); },
          [](TavikModule* module) { return QStringList{Shown(As<TavikModuleHVX>(module).ReadMode())}; },
          "<setting name=\"read-mode\" value=\"-1\"/>", "has no read mode -1"}},
        {"air gauge",
         {"type=\"PNX\" display=\"yes\"",
          [](TavikModule* module) {
              auto& gauge = As<TavikModulePNX>(module);
              gauge.setMasterMinReadingInUOM(-0.0123456789);
              gauge.setMasterMaxReadingInUOM(0.04);
              gauge.setMasterMinPressure(9.5);
              gauge.setMasterMaxPressure(20.25);
              gauge.ApplyMastering();
              gauge.setOutputReadingAsPressure(true);
              gauge.setDisplayUnitsOfMeasure(ePNX_UOM::mils);
              gauge.setRotateDisplay(ePNX_RotateDisplay::Auto);
              gauge.setRotateKeyboard(true);
              gauge.setShowPSIReading(true);
              gauge.setLimitHigh(0.05);
              gauge.setLimitLow(-0.05);
          },
          [](TavikModule* module) {
              auto& gauge = As<TavikModulePNX>(module);
              return QStringList{Shown(gauge.IsMastered()),
                                 Shown(gauge.IsMastered() ? gauge.MasterMinReadingInUOM() : 0.0),
                                 Shown(gauge.IsMastered() ? gauge.MasterMaxReadingInUOM() : 0.0),
                                 Shown(gauge.OutputReadingAsPressure()),
                                 Shown(gauge.DisplayUnitsOfMeasure()),
                                 Shown(gauge.RotateDisplay()),
                                 Shown(gauge.RotateKeyboard()),
                                 Shown(gauge.ShowPSIReading()),
                                 Shown(gauge.LimitHigh()),
                                 Shown(gauge.LimitLow()),
                                 Shown(gauge.Offset()),
                                 Shown(gauge.Stroke())};
          },
          "<setting name=\"mastering\" value=\"0 9 0.1 9.1\"/>", "too close to each other"}},
        {"wireless module",
         {"type=\"RLK\"",
          [](TavikModule* module) {
              auto& radio = As<TavikModuleRLK>(module);
              for (int slot = 0; slot < 6; ++slot) {
                  const std::string number = std::to_string(slot + 1);
                  radio.Devices()->GetDevice(slot)->setTavikIdentity("TOOL00000" + number);
                  radio.Devices()->GetDevice(slot)->setDeviceName("Depth \xC3\xB8 12 & <co> " + number);
              }
          },
          [](TavikModule* module) {
              auto& radio = As<TavikModuleRLK>(module);
              QStringList seen;
              for (int slot = 0; slot < 6; ++slot) {
                  seen << QString::fromStdString(radio.Devices()->GetDevice(slot)->TavikIdentity())
                       << QString::fromStdString(radio.Devices()->GetDevice(slot)->DeviceName());
              }
              return seen;
          },
          "<setting name=\"identity-1\" value=\"tool\"/>", "is not the identity of a hand tool"}},
    };
    return kinds;
}

} // namespace

/// What network files keep of the settings of each kind of module.
class StoredSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void everySettingComesBack_data() { AddKinds(); }
    void everySettingComesBack();
    void aWrongSettingChangesNothing_data() { AddKinds(); }
    void aWrongSettingChangesNothing();
    void nothingIsSwitchedOn();
    void anActionThatHasHappenedIsNotArmedAgain();
    void thePassCodeIsNotInTheFile();
    void numbersOfMasteringAreChecked_data();
    void numbersOfMasteringAreChecked();

private:
    void AddKinds();
    std::string Path() const { return folder.filePath(QStringLiteral("network.xml")).toStdString(); }
    QByteArray Written() const;
    void Rewrite(const std::function<void(QByteArray& text)>& change);

    QTemporaryDir folder;
};

void StoredSettingsTest::AddKinds() {
    QTest::addColumn<QByteArray>("kind");
    for (const QByteArray& kind : Kinds().keys()) {
        QTest::newRow(kind.constData()) << kind;
    }
}

QByteArray StoredSettingsTest::Written() const {
    QFile file(QString::fromStdString(Path()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void StoredSettingsTest::Rewrite(const std::function<void(QByteArray& text)>& change) {
    QByteArray text = Written();
    change(text);
    QFile file(QString::fromStdString(Path()));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

namespace {

std::string OneOf(const char* element) {
    return OneNetwork(std::string("<module identity=\"MODULE0001\" ") + element + "/>");
}

} // namespace

void StoredSettingsTest::everySettingComesBack() {
    QFETCH(QByteArray, kind);
    const Kind& subject = Kinds()[kind];
    Use(OneOf(subject.element));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    const QStringList first = subject.look(module);
    server.Network()->Save(Path());
    const QByteArray firstFile = Written();
    subject.change(module);
    const QStringList changed = subject.look(module);
    for (int i = 0; i < first.size(); ++i) {
        // Every setting is kept, so a change of each must be undone; what has an effect on others is looked at too.
        QVERIFY2(first[i] != changed[i], qPrintable(first[i]));
    }
    const std::string second = folder.filePath(QStringLiteral("changed.xml")).toStdString();
    server.Network()->Save(second);

    server.Network()->Load(Path());
    QCOMPARE(subject.look(module), first);
    server.Network()->Load(second);
    QCOMPARE(subject.look(module), changed);
    server.Network()->Load(Path());
    server.Network()->Save(Path());
    QCOMPARE(Written(), firstFile);
}

void StoredSettingsTest::aWrongSettingChangesNothing() {
    QFETCH(QByteArray, kind);
    const Kind& subject = Kinds()[kind];
    Use(OneOf(subject.element));
    ConnectedServer server;
    TavikModule* module = server.Module(0);
    server.Network()->Save(Path());
    subject.change(module);
    const QStringList before = subject.look(module);
    const QByteArray name = QByteArray(subject.wrong).split('"').at(1);
    Rewrite([&](QByteArray& text) {
        QList<QByteArray> lines = text.split('\n');
        for (QByteArray& line : lines) {
            if (line.contains("\"" + name + "\"")) {
                line = subject.wrong;
            }
        }
        text = lines.join('\n');
    });
    QVERIFY(Written().contains(subject.wrong));
    const auto refusal = RefusalOf([&] { server.Network()->Load(Path()); });
    QVERIFY2(QByteArray::fromStdString(refusal.text).contains(subject.says), refusal.text.c_str());
    QVERIFY2(QByteArray::fromStdString(refusal.text).startsWith(QByteArray::fromStdString(Path()) + ", line 3: "),
             refusal.text.c_str());
    QCOMPARE(subject.look(module), before);
}

void StoredSettingsTest::nothingIsSwitchedOn() {
    Use(OneNetwork("<module identity=\"MODULE0001\" type=\"BW\"/><module identity=\"MODULE0002\" type=\"SWAX2\"/>"));
    ConnectedServer server;
    auto& laser = As<TavikModuleBW>(server.Module(0));
    auto& pins = As<TavikModuleSWAX2>(server.Module(1));
    laser.setBeamOn(true);
    pins.setOutputState(0, 1);
    server.Network()->Save(Path());
    laser.setBeamOn(false);
    pins.setOutputState(0, 0);
    server.Network()->Load(Path());
    QVERIFY(!laser.BeamOn());
    QCOMPARE(pins.OutputState(0), 0);
}

void StoredSettingsTest::anActionThatHasHappenedIsNotArmedAgain() {
    Use(OneNetwork("<module identity=\"MODULE0001\" type=\"QTA\" mark=\"500\">"
                   "<signal motion=\"ramp\" rate=\"1000\" period=\"0\"/></module>"));
    ConnectedServer server;
    auto& encoder = As<TavikModuleQTA>(server.Module(0));
    encoder.setRefAction(eRefAction::Reset);
    TavikSimulator::AdvanceClock(0.8);
    server.Network()->Save(Path());
    QVERIFY2(Written().contains("name=\"reference-action\" value=\"0\""), Written().constData());
}

void StoredSettingsTest::thePassCodeIsNotInTheFile() {
    Use(OneOf("type=\"PNX\" display=\"yes\""));
    ConnectedServer server;
    As<TavikModulePNX>(server.Module(0)).setPasscode(73519842);
    server.Network()->Save(Path());
    QVERIFY(Written().contains("mastering"));
    QVERIFY(!Written().contains("73519842"));
}

void StoredSettingsTest::numbersOfMasteringAreChecked_data() {
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("says");
    QTest::newRow("too few") << QByteArray("0 9 0.1") << QByteArray("needs a number, not \"\"");
    QTest::newRow("too many") << QByteArray("0 9 0.1 20 3") << QByteArray("has four numbers");
    QTest::newRow("no number") << QByteArray("0 9 x 20") << QByteArray("needs a number, not \"x\"");
    QTest::newRow("infinite") << QByteArray("0 9 inf 20") << QByteArray("needs a number, not \"inf\"");
    QTest::newRow("pressure") << QByteArray("0 9 0.1 31") << QByteArray("must lie within 0 and 30 psi");
    QTest::newRow("length") << QByteArray("1e9 9 0.1 20") << QByteArray("A length must lie within");
}

void StoredSettingsTest::numbersOfMasteringAreChecked() {
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, says);
    Use(OneOf("type=\"PNX\""));
    ConnectedServer server;
    server.Network()->Save(Path());
    Rewrite([&](QByteArray& text) { text.replace("value=\"none\"", "value=\"" + value + "\""); });
    const auto refusal = RefusalOf([&] { server.Network()->Load(Path()); });
    QVERIFY2(QByteArray::fromStdString(refusal.text).contains(says), refusal.text.c_str());
    QVERIFY(!As<TavikModulePNX>(server.Module(0)).IsMastered());
}

QTEST_GUILESS_MAIN(StoredSettingsTest)
#include "StoredSettingsTest.moc"
