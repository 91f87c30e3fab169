#include "tests/simulator/hardware/AirGauge.h"

#include <cmath>
#include <functional>
#include <limits>

using TavikLibrary::ePNX_RotateDisplay;
using TavikLibrary::ePNX_UOM;
using TavikLibrary::eTavikErrors;
using TavikSimulator::ChangeUnitAtDisplay;
using TavikSimulator::NozzlePart;

namespace {

const char* const network = "N";
const char* const identity = "PNX0000001";

} // namespace

/// What an air gauge can be set to, from the library and at its own display.
class AirGaugeSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void UnitsHaveTheirTexts();
    void EverySettingIsKept();
    void ImpossibleValuesAreRefused();
    void WithoutADisplayItsSettingsAreRefused();
    void WithoutADisplayTheRestWorks();
    void AChangeAtTheDisplayHasToBeRead();
    void ThePressureNeedsNoInformation();
    void ThePassCodeGuardsTheDisplay();
    void AGaugeWithoutADisplayCannotBeChangedThere();
    void OtherModulesHaveNoNozzle();
    void FactorySettings();
    void SettingsOutlastARemoval();
    void ItOffersOneResolution();
};

void AirGaugeSettingsTest::UnitsHaveTheirTexts() {
    QCOMPARE(ePNX_UOM_ToString(ePNX_UOM::mm), std::string("mm"));
    QCOMPARE(ePNX_UOM_ToString(ePNX_UOM::inches), std::string("inches"));
    QCOMPARE(ePNX_UOM_ToString(ePNX_UOM::mils), std::string("mils"));
    QCOMPARE(ePNX_UOM_ToString(static_cast<ePNX_UOM>(7)), std::string("Unknown unit (7)"));
}

void AirGaugeSettingsTest::EverySettingIsKept() {
    const GaugeOnBench gauge(StillGauge());
    QVERIFY(gauge->HasDisplay());
    for (const ePNX_UOM unit : {ePNX_UOM::mils, ePNX_UOM::inches, ePNX_UOM::mm}) {
        gauge->setDisplayUnitsOfMeasure(unit);
        QCOMPARE(gauge->DisplayUnitsOfMeasure(), unit);
    }
    for (const int rotation : {4, 3, 2, 1, 0}) {
        gauge->setRotateDisplay(static_cast<ePNX_RotateDisplay>(rotation));
        QCOMPARE(static_cast<int>(gauge->RotateDisplay()), rotation);
    }
    for (const bool on : {true, false}) {
        gauge->setRotateKeyboard(on);
        QCOMPARE(gauge->RotateKeyboard(), on);
        gauge->setShowPSIReading(on);
        QCOMPARE(gauge->ShowPSIReading(), on);
        gauge->setOutputReadingAsPressure(on);
        QCOMPARE(gauge->OutputReadingAsPressure(), on);
    }
    gauge->setLimitHigh(0.0123);
    QCOMPARE(gauge->LimitHigh(), 0.0123);
    gauge->setLimitLow(-0.0456);
    QCOMPARE(gauge->LimitLow(), -0.0456);
    gauge->setMasterMinReadingInUOM(-7.5);
    QCOMPARE(gauge->MasterMinReadingInUOM(), -7.5);
    gauge->setMasterMaxReadingInUOM(8.25);
    QCOMPARE(gauge->MasterMaxReadingInUOM(), 8.25);
}

void AirGaugeSettingsTest::ImpossibleValuesAreRefused() {
    const GaugeOnBench gauge(StillGauge());
    const double nan = std::nan("");
    const std::function<void()> calls[] = {
        [&] { gauge->setDisplayUnitsOfMeasure(static_cast<ePNX_UOM>(-1)); },
        [&] { gauge->setDisplayUnitsOfMeasure(static_cast<ePNX_UOM>(3)); },
        [&] { gauge->setRotateDisplay(static_cast<ePNX_RotateDisplay>(-1)); },
        [&] { gauge->setRotateDisplay(static_cast<ePNX_RotateDisplay>(5)); },
        [&] { gauge->setLimitHigh(nan); },
        [&] { gauge->setLimitLow(100001.0); },
        [&] { gauge->setMasterMinReadingInUOM(-100001.0); },
        [&] { gauge->setMasterMaxReadingInUOM(std::numeric_limits<double>::infinity()); },
        [&] { gauge->setMasterMinPressure(-0.01); },
        [&] { gauge->setMasterMaxPressure(30.01); },
        [&] { gauge->setPasscode(-1); },
        [&] { gauge->setPasscode(100000000); },
    };
    for (const auto& call : calls) {
        const Refusal refusal = RefusalOf(call);
        QVERIFY(refusal.Is(eTavikErrors::InvalidArgument));
        QVERIFY(refusal.text.size() > 20 && refusal.text.back() == '.');
    }
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mm);
    QCOMPARE(gauge->LimitHigh(), 0.02);
    gauge->setPasscode(99999999);
    gauge->setMasterMaxPressure(30.0);
    gauge->setMasterMinPressure(0.0);
}

void AirGaugeSettingsTest::WithoutADisplayItsSettingsAreRefused() {
    const GaugeOnBench gauge(StillGauge("", "", "display=\"no\""));
    QVERIFY(!gauge->HasDisplay());
    const std::function<void()> calls[] = {
        [&] { gauge->RotateDisplay(); },         [&] { gauge->RotateKeyboard(); },
        [&] { gauge->ShowPSIReading(); },        [&] { gauge->setRotateDisplay(ePNX_RotateDisplay::Auto); },
        [&] { gauge->setRotateKeyboard(true); }, [&] { gauge->setShowPSIReading(true); },
        [&] { gauge->setPasscode(5); },          [&] { gauge->setDisplayUnitsOfMeasure(ePNX_UOM::inches); },
        [&] { gauge->setLimitHigh(0.01); },      [&] { gauge->setLimitLow(0.01); },
    };
    for (const auto& call : calls) {
        const Refusal refusal = RefusalOf(call);
        QVERIFY(refusal.Is(eTavikErrors::NotSupported));
        QVERIFY(refusal.Names(identity));
    }
}

void AirGaugeSettingsTest::WithoutADisplayTheRestWorks() {
    const GaugeOnBench gauge(StillGauge("", "", "display=\"no\""));
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mm);
    QCOMPARE(gauge->LimitHigh(), 0.02);
    QCOMPARE(gauge->LimitLow(), -0.02);
    gauge->setOutputReadingAsPressure(true);
    QVERIFY(gauge->OutputReadingAsPressure());
    gauge.Master(-0.01, 0.01);
    QVERIFY(gauge->IsMastered());
    gauge->UpdateInfo();
}

void AirGaugeSettingsTest::AChangeAtTheDisplayHasToBeRead() {
    const GaugeOnBench gauge(StillGauge());
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils);
    for (const std::function<void()>& read : {std::function<void()>([&] { gauge->ReadInUnits(); }),
                                              std::function<void()>([&] { gauge->ReadInCounts(); })}) {
        const Refusal refusal = RefusalOf(read);
        QVERIFY(refusal.Is(eTavikErrors::ReadingNotAvailable));
        QCOMPARE(refusal.text, std::string("Module Information needs reading."));
    }
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mm); // as the library knows it
    gauge->UpdateInfo();
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mils);
    gauge->ReadInUnits();
    gauge->ReadInCounts();
}

void AirGaugeSettingsTest::ThePressureNeedsNoInformation() {
    const GaugeOnBench gauge(StillGauge());
    GaugeOnBench::PutIn(NozzlePart::MasterA);
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils);
    QVERIFY(std::abs(gauge->PressureReading() - PressureFor(-0.02)) <= PressureCount);
}

void AirGaugeSettingsTest::ThePassCodeGuardsTheDisplay() {
    const GaugeOnBench gauge(StillGauge());
    gauge->setPasscode(4711);
    QVERIFY(RefusalOf([] { ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils); }).Names("pass code"));
    QVERIFY(RefusalOf([] { ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils, 4712); }).refused);
    gauge->ReadInUnits();
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils, 4711);
    gauge->UpdateInfo();
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mils);
    gauge->setPasscode(0);
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::mm, 1);
}

void AirGaugeSettingsTest::AGaugeWithoutADisplayCannotBeChangedThere() {
    const GaugeOnBench gauge(StillGauge("", "", "display=\"no\""));
    QVERIFY(RefusalOf([] { ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils); }).Is(eTavikErrors::NotSupported));
    gauge->ReadInUnits();
}

void AirGaugeSettingsTest::OtherModulesHaveNoNozzle() {
    Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\"/>"));
    const auto put = [] { TavikSimulator::PutInNozzle(network, "KX00000001", NozzlePart::MasterA); };
    QVERIFY(RefusalOf(put).Is(eTavikErrors::InvalidArgument));
    QVERIFY(RefusalOf([] { ChangeUnitAtDisplay(network, "KX00000001", ePNX_UOM::mils); }).refused);
}

void AirGaugeSettingsTest::FactorySettings() {
    const GaugeOnBench gauge(StillGauge("master-a=\"0.03\" master-b=\"-0.01\""));
    gauge->setDisplayUnitsOfMeasure(ePNX_UOM::mils);
    gauge->setLimitHigh(1.0);
    gauge->setRotateKeyboard(true);
    gauge->setOutputReadingAsPressure(true);
    gauge->setPasscode(5);
    gauge.Master(1.0, 2.0);
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::inches, 5);
    gauge->ResetFactorySettings();
    QCOMPARE(gauge->DisplayUnitsOfMeasure(), ePNX_UOM::mm);
    QCOMPARE(gauge->LimitHigh(), 0.03);
    QCOMPARE(gauge->LimitLow(), -0.01);
    QVERIFY(!gauge->RotateKeyboard());
    QVERIFY(!gauge->OutputReadingAsPressure());
    QVERIFY(!gauge->IsMastered());
    QCOMPARE(gauge->MasterMinReadingInUOM(), 0.03);
    QCOMPARE(gauge->MasterMaxReadingInUOM(), -0.01);
    QCOMPARE(gauge->Offset(), -0.05);
    QCOMPARE(gauge->Stroke(), 0.1);
    gauge->ReadInUnits();
    ChangeUnitAtDisplay(network, identity, ePNX_UOM::mils); // no pass code any more
}

void AirGaugeSettingsTest::SettingsOutlastARemoval() {
    const GaugeOnBench gauge(StillGauge());
    gauge.Master(-0.02, 0.02);
    gauge.server->Network()->DeleteModule(0);
    gauge.server->Network()->AddModule(identity, "");
    auto* again = dynamic_cast<TavikLibrary::TavikModulePNX*>(gauge.server->Module(0));
    QVERIFY(again->IsMastered());
    QVERIFY(RefusalOf([&] { gauge->IsMastered(); }).Is(eTavikErrors::ModuleRemoved));
}

void AirGaugeSettingsTest::ItOffersOneResolution() {
    const GaugeOnBench gauge(StillGauge());
    QCOMPARE(gauge->AvailableResolutions().size(), std::size_t(1));
    QCOMPARE(gauge->AvailableResolutions().front(), TavikLibrary::eResolution::Bits14);
    QCOMPARE(gauge->AvailableAveragings().size(), std::size_t(9));
}

QTEST_APPLESS_MAIN(AirGaugeSettingsTest)
#include "AirGaugeSettingsTest.moc"
