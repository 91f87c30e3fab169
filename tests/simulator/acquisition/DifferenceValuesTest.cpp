#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "tests/simulator/acquisition/DifferenceBench.h"

#include <QElapsedTimer>

using namespace Difference;
using namespace TavikSimulator;
using TavikLibrary::eTavikErrors;
using TavikLibrary::ModuleDifference;

/// What difference mode says of readings.
class DifferenceValuesTest : public QObject {
    Q_OBJECT

private slots:
    void theValuesOfAMovingPart();
    void theValuesOfAStillPart();
    void valuesAreThoseOfTheLastFetch();
    void everyModuleReadsAtItsOwnRate();
    void aChangeOnTheBenchCountsFromItsMoment();
    void howOftenTheBenchIsLookedAtDoesNotMatter();
    void aLongTimeWithoutALookIsCheap();
    void theResultCodeIsThatOfTheWorstReading();
    void readingsWithoutValueDoNotCount();
    void theRatesOnARealClock();
};

void DifferenceValuesTest::theValuesOfAMovingPart() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    StartWith(server, {0});
    for (int i = 0; i < 40; ++i) {
        AdvanceClock(0.1);
        QCOMPARE(Run(server)->Status(), int(Running));
    }
    ModuleDifference* difference = Of(server, 0);
    difference->ReadDifference();
    QCOMPARE(difference->Error(), 0);
    QCOMPARE(difference->ReadingCount(), Due(0.0, 4.0, probePeriod));
    QVERIFY(std::fabs(difference->Max() - 1.6) < 2e-4);
    QVERIFY(std::fabs(difference->Min() - 0.4) < 2e-4);
    QCOMPARE(difference->Diff(), difference->Max() - difference->Min());
    QVERIFY(std::fabs(difference->Sum() / difference->ReadingCount() - 1.0) < 1e-3);
    QCOMPARE(difference->DiffCounts(), difference->MaxCounts() - difference->MinCounts());
    const double countsPerUnit = server.Module(0)->CountsPerUnitOfMeasure();
    QVERIFY(std::fabs(difference->MaxCounts() / countsPerUnit - difference->Max()) < 1e-9);
    QVERIFY(std::fabs(difference->SumCounts() / countsPerUnit - difference->Sum()) < 1e-6);
}

void DifferenceValuesTest::theValuesOfAStillPart() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    HoldPosition("N", "KX00000001", 1.0);
    StartWith(server, {0});
    AdvanceClock(100 * probePeriod + 1e-6);
    Run(server)->Stop();
    QCOMPARE(Run(server)->Status(), int(Finished));
    ModuleDifference* difference = Of(server, 0);
    QCOMPARE(difference->ReadingCount(), 100);
    QCOMPARE(difference->MaxCounts(), 8192);
    QCOMPARE(difference->MinCounts(), 8192);
    QCOMPARE(difference->DiffCounts(), 0);
    QCOMPARE(difference->SumCounts(), std::int64_t{819200});
    QCOMPARE(difference->Sum(), 100.0);
    QCOMPARE(difference->Diff(), 0.0);
}

void DifferenceValuesTest::valuesAreThoseOfTheLastFetch() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    StartWith(server, {0});
    ModuleDifference* difference = Of(server, 0);
    AdvanceClock(1.0);
    QCOMPARE(difference->ReadingCount(), 0);
    QCOMPARE(difference->Error(), static_cast<int>(eTavikErrors::ReadingNotAvailable));
    difference->ReadDifference();
    const int fetched = difference->ReadingCount();
    QCOMPARE(fetched, Due(0.0, 1.0, probePeriod));
    QCOMPARE(difference->Error(), 0);
    AdvanceClock(1.0);
    QCOMPARE(difference->ReadingCount(), fetched);
    Run(server)->Stop();
    QCOMPARE(difference->ReadingCount(), Due(0.0, 2.0, probePeriod));
    AdvanceClock(1.0);
    difference->ReadDifference();
    QCOMPARE(difference->ReadingCount(), Due(0.0, 2.0, probePeriod));
}

void DifferenceValuesTest::everyModuleReadsAtItsOwnRate() {
    Use(OneNetwork(Probe1 + "<module type=\"KX\" identity=\"KX00000002\" averaging=\"16\"/>"
                            "<module type=\"QTA\" identity=\"QTA0000003\"/>"
                            "<module type=\"BWK\" identity=\"BWK0000004\"/>"));
    ConnectedServer server;
    auto* laser = dynamic_cast<TavikLibrary::TavikModuleBWK*>(server.Module(3));
    laser->setMeasuringRate(TavikLibrary::eMeasuringRate::Rate500Hz);
    AdvanceClock(0.3);
    StartWith(server, {0, 1, 2, 3});
    AdvanceClock(1.5);
    Run(server)->Stop();
    QCOMPARE(Of(server, 0)->ReadingCount(), Due(0.3, 1.8, probePeriod));
    QCOMPARE(Of(server, 1)->ReadingCount(), Due(0.3, 1.8, 16 * 256e-6));
    QCOMPARE(Of(server, 2)->ReadingCount(), Due(0.3, 1.8, 0.001));
    QCOMPARE(Of(server, 3)->ReadingCount(), Due(0.3, 1.8, 0.002));
}

void DifferenceValuesTest::aChangeOnTheBenchCountsFromItsMoment() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    HoldPosition("N", "KX00000001", 0.5);
    StartWith(server, {0});
    AdvanceClock(1.0);
    HoldPosition("N", "KX00000001", 1.5);
    AdvanceClock(0.5);
    Run(server)->Stop();
    ModuleDifference* difference = Of(server, 0);
    const int before = Due(0.0, 1.0, probePeriod);
    const int after = Due(1.0, 1.5, probePeriod);
    QCOMPARE(difference->ReadingCount(), before + after);
    QCOMPARE(difference->Min(), 0.5);
    QCOMPARE(difference->Max(), 1.5);
    // The probe samples before its reading, so that a sample or two still feels the part that was there.
    QVERIFY(std::fabs(difference->Sum() - (before * 0.5 + after * 1.5)) < 1e-9);
}

void DifferenceValuesTest::howOftenTheBenchIsLookedAtDoesNotMatter() {
    const auto valuesAfter = [](int looks) {
        Use(OneNetwork(Probe1 + Probe2));
        ConnectedServer server;
        StartWith(server, {0, 1});
        for (int i = 0; i < looks; ++i) {
            AdvanceClock(1.5 / looks);
            Run(server)->Status();
        }
        AdvanceClock(0.0001);
        Run(server)->Stop();
        std::vector<std::int64_t> values;
        for (unsigned int i = 0; i < 2; ++i) {
            ModuleDifference* difference = Of(server, i);
            values.insert(values.end(), {difference->MaxCounts(), difference->MinCounts(), difference->SumCounts(),
                                         difference->ReadingCount()});
        }
        return values;
    };
    const std::vector<std::int64_t> once = valuesAfter(1);
    QVERIFY(once.front() > 0);
    QVERIFY(valuesAfter(7) == once);
    QVERIFY(valuesAfter(100) == once);
}

void DifferenceValuesTest::aLongTimeWithoutALookIsCheap() {
    std::string probes;
    for (int i = 10; i < 34; ++i) {
        probes += "<module type=\"KX\" identity=\"KX000000" + std::to_string(i) +
                  "\" stroke=\"2\"><signal motion=\"sine\" amplitude=\"0.6\" base=\"1\" period=\"7\"/></module>";
    }
    Use(OneNetwork(probes));
    ConnectedServer server;
    for (unsigned int i = 0; i < 24; ++i) {
        Of(server, i)->setEnabled(true);
    }
    Run(server)->Start();
    constexpr double aDay = 86400.0;
    AdvanceClock(aDay);
    // Reading by reading it would be two thousand million.
    const std::clock_t before = std::clock();
    Run(server)->Stop();
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 10.0, qPrintable(QString::number(seconds)));
    ModuleDifference* difference = Of(server, 23);
    QCOMPARE(difference->ReadingCount(), Due(0.0, aDay, probePeriod));
    QVERIFY(std::fabs(difference->Max() - 1.6) < 0.01);
    QVERIFY(std::fabs(difference->Min() - 0.4) < 0.01);
    QVERIFY(std::fabs(difference->Sum() / difference->ReadingCount() - 1.0) < 0.05);
}

void DifferenceValuesTest::theResultCodeIsThatOfTheWorstReading() {
    Use(OneNetwork(Probe1));
    ConnectedServer server;
    StartWith(server, {0});
    ModuleDifference* difference = Of(server, 0);
    const auto codeAfter = [&](double position) {
        HoldPosition("N", "KX00000001", position);
        AdvanceClock(1.0);
        difference->ReadDifference();
        return difference->Error();
    };
    QCOMPARE(codeAfter(1.0), 0);
    dynamic_cast<TavikLibrary::TavikModuleKX*>(server.Module(0))->setAveraging(TavikLibrary::eAveraging::Samples256);
    AdvanceClock(1.0);
    difference->ReadDifference();
    QCOMPARE(difference->Error(), static_cast<int>(eTavikErrors::ReadingUnsettled));
    QCOMPARE(codeAfter(2.5), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(codeAfter(-0.5), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(codeAfter(1.0), static_cast<int>(eTavikErrors::OverRange));
    QCOMPARE(difference->Max(), 2.0);
    QCOMPARE(difference->Min(), 0.0);
    Run(server)->Stop();
    Run(server)->Start();
    QCOMPARE(codeAfter(1.0), 0);
    QCOMPARE(codeAfter(-0.5), static_cast<int>(eTavikErrors::UnderRange));
}

void DifferenceValuesTest::readingsWithoutValueDoNotCount() {
    Use(OneNetwork("<module type=\"BW\" identity=\"BW00000001\"/>"));
    ConnectedServer server;
    auto* laser = dynamic_cast<TavikLibrary::TavikModuleBW*>(server.Module(0));
    HoldPosition("N", "BW00000001", 25.0);
    StartWith(server, {0});
    ModuleDifference* difference = Of(server, 0);
    AdvanceClock(1.0);
    laser->setBeamOn(false);
    AdvanceClock(1.0);
    difference->ReadDifference();
    QCOMPARE(difference->ReadingCount(), Due(0.0, 1.0, probePeriod));
    QCOMPARE(difference->Error(), static_cast<int>(eTavikErrors::BeamOff));
    QCOMPARE(difference->Min(), 25.0);
    laser->setBeamOn(true);
    AdvanceClock(1.0);
    difference->ReadDifference();
    QCOMPARE(difference->ReadingCount(), Due(0.0, 1.0, probePeriod) + Due(2.0, 3.0, probePeriod));
    QCOMPARE(difference->Error(), static_cast<int>(eTavikErrors::BeamOff));
}

void DifferenceValuesTest::theRatesOnARealClock() {
    Use(OneNetwork(Probe1 + "<module type=\"QTA\" identity=\"QTA0000002\"/>"));
    ConnectedServer server;
    UseRealClock();
    Of(server, 0)->setEnabled(true);
    Of(server, 1)->setEnabled(true);
    QElapsedTimer longest;
    QElapsedTimer shortest;
    longest.start();
    Run(server)->Start();
    shortest.start();
    QTest::qSleep(500);
    const double atLeast = static_cast<double>(shortest.nsecsElapsed()) / 1e9;
    Run(server)->Stop();
    const double atMost = static_cast<double>(longest.nsecsElapsed()) / 1e9;
    const std::pair<unsigned int, double> periods[] = {{0U, probePeriod}, {1U, 0.001}};
    for (const auto& [module, period] : periods) {
        const int readings = Of(server, module)->ReadingCount();
        QVERIFY2(readings >= atLeast / period - 1.0, qPrintable(QString::number(readings)));
        QVERIFY2(readings <= atMost / period + 1.0, qPrintable(QString::number(readings)));
    }
}

QTEST_APPLESS_MAIN(DifferenceValuesTest)
#include "DifferenceValuesTest.moc"
