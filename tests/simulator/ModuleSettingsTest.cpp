#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleHVX.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModulePNX.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikModuleRLK.h"
#include "library/TavikModuleRN.h"
#include "tests/simulator/Bench.h"

#include <cmath>

using namespace TavikLibrary;

namespace {

std::string Module(const std::string& attributes, const std::string& content = std::string()) {
    return OneNetwork("<module identity=\"MODULE0001\" " + attributes + ">" + content + "</module>");
}

template <class Kind>
bool Is(TavikModule* module) {
    return dynamic_cast<Kind*>(module) != nullptr;
}

struct Spread {
    double mean;
    double deviation;
};

Spread SpreadOf(TavikModule* module, int readings) {
    double sum = 0.0;
    double squares = 0.0;
    for (int i = 0; i < readings; ++i) {
        TavikSimulator::AdvanceClock(0.1);
        const double value = module->ReadInUnits();
        sum += value;
        squares += value * value;
    }
    const double mean = sum / readings;
    return {mean, std::sqrt(squares / readings - mean * mean)};
}

} // namespace

class ModuleSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void EachKindHasItsClass();
    void AProbeOffersItsResolutionsAndAveragings();
    void AResolutionChangesTheCounts();
    void AveragingLowersTheNoise();
    void WhatIsNotOfferedIsRefused();
    void SettingsOutliveTheList();
    void ReadingsAreLimitedToTheStroke_data();
    void ReadingsAreLimitedToTheStroke();
    void APartCanBeHeldAndReleased();
    void EightPinsGoEitherWay();
    void TenPinsAreFixed();
    void APinThatIsNotThereIsRefused();
    void DebounceTimesAreThoseOfTheModule();
    void ALaserOffersItsRates();
    void BurstCapableModulesAreCountedWithoutAGap();
};

void ModuleSettingsTest::EachKindHasItsClass() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    const auto module = [&](const char* identity) {
        return server.Module(static_cast<unsigned int>(server.Network()->GetModuleIndexByID(identity)));
    };
    QVERIFY(Is<TavikModuleKX>(module("KX02000101")));
    QVERIFY(Is<TavikModuleRN>(module("RN12000104")) && !Is<TavikModuleKX>(module("RN12000104")));
    QVERIFY(Is<TavikModuleQTA>(module("QTA0000105")));
    QVERIFY(Is<TavikModuleSWAX>(module("SWAX000106")) && !Is<TavikModuleSWAX2>(module("SWAX000106")));
    QVERIFY(Is<TavikModuleSWAX2>(module("SWAX200107")) && !Is<TavikModuleSWAX>(module("SWAX200107")));
    QVERIFY(Is<TavikModuleBW>(module("BW10000108")) && !Is<TavikModuleBWR>(module("BW10000108")));
    QVERIFY(Is<TavikModuleBWR>(module("BWR0000109")) && Is<TavikModuleKX>(module("BWR0000109")));
    QVERIFY(Is<TavikModuleBWK>(module("BWK0000110")) && Is<TavikModuleBW>(module("BWK0000110")));
    QVERIFY(Is<TavikModuleHVX>(module("HVX0000111")));
    QVERIFY(Is<TavikModuleRLK>(module("RLK0000112")));
    QVERIFY(Is<TavikModulePNX>(module("PNX0000113")) && Is<TavikModuleKX>(module("PNX0000113")));
}

void ModuleSettingsTest::AProbeOffersItsResolutionsAndAveragings() {
    Use(Module("type=\"KX\" resolutions=\"18 16\" averagings=\"1 4\" resolution=\"16\" averaging=\"4\""));
    ConnectedServer server;
    auto* probe = dynamic_cast<TavikModuleKX*>(server.Module(0));
    QVERIFY(probe->AvailableResolutions() == (std::vector<eResolution>{eResolution::Bits18, eResolution::Bits16}));
    QVERIFY(probe->AvailableAveragings() == (std::vector<eAveraging>{eAveraging::Off, eAveraging::Samples4}));
    QCOMPARE(probe->Resolution(), eResolution::Bits16);
    QCOMPARE(probe->Averaging(), eAveraging::Samples4);
    Use(Module("type=\"KX\" resolutions=\"\" averagings=\"\""));
    ConnectedServer second;
    auto* bare = dynamic_cast<TavikModuleKX*>(second.Module(0));
    QVERIFY(bare->AvailableResolutions().empty() && bare->AvailableAveragings().empty());
}

void ModuleSettingsTest::AResolutionChangesTheCounts() {
    Use(Module("type=\"KX\" stroke=\"2\""));
    ConnectedServer server;
    auto* probe = dynamic_cast<TavikModuleKX*>(server.Module(0));
    TavikSimulator::HoldPosition("N", "MODULE0001", 0.5);
    for (int bits = 14; bits <= 18; ++bits) {
        const auto resolution = static_cast<eResolution>(bits - 14);
        probe->setResolution(resolution);
        TavikSimulator::AdvanceClock(1.0);
        QCOMPARE(probe->Resolution(), resolution);
        QCOMPARE(probe->ReadInCounts(), 1 << (bits - 2));
        QCOMPARE(probe->CountsPerUnitOfMeasure(), (1 << bits) / 2.0);
        QCOMPARE(probe->ReadInUnits(), 0.5);
        QCOMPARE(probe->LastReadingInCounts(), 1 << (bits - 2));
    }
}

// The deviation of the mean of 16 samples is a quarter of that of one; with 400 readings each its estimate
// is good to 3.5 %, so a tenth is far out.
void ModuleSettingsTest::AveragingLowersTheNoise() {
    Use(Module("type=\"KX\" resolution=\"18\"", "<signal base=\"1\" noise=\"0.004\"/>"));
    ConnectedServer server;
    auto* probe = dynamic_cast<TavikModuleKX*>(server.Module(0));
    const Spread single = SpreadOf(probe, 400);
    probe->setAveraging(eAveraging::Samples16);
    QCOMPARE(probe->Averaging(), eAveraging::Samples16);
    TavikSimulator::AdvanceClock(1.0);
    const Spread averaged = SpreadOf(probe, 400);
    QVERIFY(std::abs(single.deviation / 0.004 - 1.0) < 0.15);
    QVERIFY(std::abs(averaged.deviation / 0.001 - 1.0) < 0.15);
    QVERIFY(std::abs(averaged.mean - 1.0) < 0.0005);
}

void ModuleSettingsTest::WhatIsNotOfferedIsRefused() {
    Use(Module("type=\"KX\" resolutions=\"14 16\" averagings=\"1 4\""));
    ConnectedServer server;
    auto* probe = dynamic_cast<TavikModuleKX*>(server.Module(0));
    const auto refused = [](auto call) {
        const Refusal refusal = RefusalOf(call);
        return refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names("MODULE0001");
    };
    QVERIFY(refused([&] { probe->setResolution(eResolution::Bits15); }));
    QVERIFY(refused([&] { probe->setResolution(static_cast<eResolution>(-1)); }));
    QVERIFY(refused([&] { probe->setAveraging(eAveraging::Samples2); }));
    QVERIFY(refused([&] { probe->setAveraging(static_cast<eAveraging>(9)); }));
    QCOMPARE(probe->Resolution(), eResolution::Bits14);
    QCOMPARE(probe->Averaging(), eAveraging::Off);
}

void ModuleSettingsTest::SettingsOutliveTheList() {
    Use(Module("type=\"KX\""));
    ConnectedServer server;
    dynamic_cast<TavikModuleKX*>(server.Module(0))->setAveraging(eAveraging::Samples32);
    server.Network()->DeleteModule(0);
    server.Network()->AddModule("MODULE0001", "");
    QCOMPARE(dynamic_cast<TavikModuleKX*>(server.Module(0))->Averaging(), eAveraging::Samples32);
}

void ModuleSettingsTest::ReadingsAreLimitedToTheStroke_data() {
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<double>("position");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("units");
    const QString probe = QStringLiteral("type=\"KX\" stroke=\"4\" offset=\"-2\"");
    const QString encoder = QStringLiteral("type=\"RN\" stroke=\"4\" offset=\"-2\"");
    for (const QString& kind : {probe, encoder}) {
        QTest::newRow(qPrintable(kind.mid(6, 2) + QStringLiteral(" within"))) << kind << 1.0 << 0 << 1.0;
        QTest::newRow(qPrintable(kind.mid(6, 2) + QStringLiteral(" below"))) << kind << -2.5 << 0x2112 << -2.0;
        QTest::newRow(qPrintable(kind.mid(6, 2) + QStringLiteral(" above"))) << kind << 2.5 << 0x2113 << 2.0;
    }
}

void ModuleSettingsTest::ReadingsAreLimitedToTheStroke() {
    QFETCH(QString, attributes);
    QFETCH(double, position);
    QFETCH(int, code);
    QFETCH(double, units);
    Use(Module(attributes.toStdString()));
    ConnectedServer server;
    TavikSimulator::HoldPosition("N", "MODULE0001", position);
    TavikModule* module = server.Module(0);
    QCOMPARE(module->ReadInUnits(), units);
    QCOMPARE(module->LastResultCode(), code);
    QCOMPARE(module->LastReadingInUnits(), units);
    const double expected = (units - module->Offset()) * module->CountsPerUnitOfMeasure();
    QCOMPARE(module->ReadInCounts(), static_cast<int>(std::lround(expected)));
    QCOMPARE(module->LastReadingInCounts(), static_cast<int>(std::lround(expected)));
}

void ModuleSettingsTest::APartCanBeHeldAndReleased() {
    for (const char* type : {"KX", "RN"}) {
        Use(Module(std::string("type=\"") + type + "\" stroke=\"4\"", "<signal base=\"3\" noise=\"0\"/>"));
        ConnectedServer server;
        TavikModule* module = server.Module(0);
        QVERIFY(std::abs(module->ReadInUnits() - 3.0) < 0.001);
        TavikSimulator::HoldPosition("N", "MODULE0001", 1.0);
        QCOMPARE(module->ReadInUnits(), 1.0);
        TavikSimulator::ReleasePosition("N", "MODULE0001");
        QVERIFY(std::abs(module->ReadInUnits() - 3.0) < 0.001);
        QVERIFY(RefusalOf([] { TavikSimulator::HoldPosition("N", "MODULE0002", 1.0); }).refused);
        QVERIFY(RefusalOf([] { TavikSimulator::HoldPosition("N", "MODULE0001", 1e12); }).refused);
    }
}

void ModuleSettingsTest::EightPinsGoEitherWay() {
    Use(Module("type=\"SWAX\" inputs=\"0x82\""));
    ConnectedServer server;
    auto* module = dynamic_cast<TavikModuleSWAX*>(server.Module(0));
    for (int pin = 0; pin < 8; ++pin) {
        QCOMPARE(module->PinConfiguration(pin), 1);
        QCOMPARE(module->InputState(pin), pin == 1 || pin == 7 ? 1 : 0);
    }
    QVERIFY(RefusalOf([&] { module->setOutputState(3, 1); }).Is(eTavikErrors::NotSupported));
    module->setPinConfiguration(3, 0);
    QCOMPARE(module->PinConfiguration(3), 0);
    QCOMPARE(module->OutputState(3), 0);
    module->setOutputState(3, 1);
    QCOMPARE(module->OutputState(3), 1);
    QCOMPARE(module->InputState(3), 1);
    QCOMPARE(module->ReadInCounts(), 0x8A);
    QVERIFY(RefusalOf([&] { module->setOutputState(3, 2); }).Is(eTavikErrors::InvalidArgument));
    QVERIFY(RefusalOf([&] { module->setPinConfiguration(3, 2); }).Is(eTavikErrors::InvalidArgument));
    module->setPinConfiguration(3, 1);
    QCOMPARE(module->InputState(3), 0);
    module->ReservedInputOutput1();
    module->ReservedInputOutput2();
}

void ModuleSettingsTest::TenPinsAreFixed() {
    Use(Module("type=\"SWAX2\" inputs=\"0x150\""));
    ConnectedServer server;
    auto* module = dynamic_cast<TavikModuleSWAX2*>(server.Module(0));
    for (int pin = 0; pin < 10; ++pin) {
        QCOMPARE(module->PinConfiguration(pin), pin < 4 ? 0 : 1);
        module->setPinConfiguration(pin, pin < 4 ? 0 : 1);
        QVERIFY(RefusalOf([&] { module->setPinConfiguration(pin, pin < 4 ? 1 : 0); }).Is(eTavikErrors::NotSupported));
    }
    module->setOutputState(2, 1);
    QCOMPARE(module->OutputState(2), 1);
    QCOMPARE(module->InputState(4), 1);
    QCOMPARE(module->InputState(5), 0);
    QCOMPARE(module->ReadInCounts(), 0x154);
    QVERIFY(RefusalOf([&] { module->setOutputState(4, 1); }).Is(eTavikErrors::NotSupported));
}

void ModuleSettingsTest::APinThatIsNotThereIsRefused() {
    for (const auto& [type, pins] : {std::pair("SWAX", 8), std::pair("SWAX2", 10)}) {
        Use(Module(std::string("type=\"") + type + "\""));
        ConnectedServer server;
        auto* module = dynamic_cast<TavikModuleDigitalIO*>(server.Module(0));
        for (const int pin : {-1, pins, 1000000}) {
            const auto refused = [&](auto call) {
                const Refusal refusal = RefusalOf(call);
                return refusal.Is(eTavikErrors::InvalidArgument) && refusal.Names(std::to_string(pin));
            };
            QVERIFY(refused([&] { module->PinConfiguration(pin); }));
            QVERIFY(refused([&] { module->InputState(pin); }));
            QVERIFY(refused([&] { module->OutputState(pin); }));
            QVERIFY(refused([&] { module->setOutputState(pin, 0); }));
            QVERIFY(refused([&] { module->setPinConfiguration(pin, 1); }));
        }
    }
}

void ModuleSettingsTest::DebounceTimesAreThoseOfTheModule() {
    Use(Module("type=\"SWAX\""));
    ConnectedServer server;
    auto* module = dynamic_cast<TavikModuleDigitalIO*>(server.Module(0));
    QCOMPARE(module->DebounceTime(), 0);
    for (const int time : {0, 5, 10, 15, 25, 50}) {
        module->setDebounceTime(time);
        QCOMPARE(module->DebounceTime(), time);
    }
    for (const int time : {-1, 1, 51, 20}) {
        QVERIFY(RefusalOf([&] { module->setDebounceTime(time); }).Is(eTavikErrors::InvalidArgument));
    }
    QCOMPARE(module->DebounceTime(), 50);
}

void ModuleSettingsTest::ALaserOffersItsRates() {
    Use(Module("type=\"BWK\""));
    ConnectedServer server;
    auto* laser = dynamic_cast<TavikModuleBWK*>(server.Module(0));
    const std::vector<eMeasuringRate> rates = laser->AvailableMeasuringRates();
    QCOMPARE(rates.size(), std::size_t{5});
    QCOMPARE(rates.front(), eMeasuringRate::Rate100Hz);
    QCOMPARE(rates.back(), eMeasuringRate::Rate4KHz);
}

void ModuleSettingsTest::BurstCapableModulesAreCountedWithoutAGap() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\" count=\"3\"/>"
                   "<module type=\"SWAX\" identity=\"SWAX000004\"/>"
                   "<module type=\"KX\" identity=\"KX00000005\"/>"));
    ConnectedServer server;
    QCOMPARE(server.Network()->ReadBurstCapableCount(), 3);
    server.Network()->DeleteModule(3);
    QCOMPARE(server.Network()->ReadBurstCapableCount(), 4);
}

QTEST_APPLESS_MAIN(ModuleSettingsTest)
#include "ModuleSettingsTest.moc"
