#include "tools/tour/Tour.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/sweep/Scenario.h"
#include "tools/sweep/ScenarioRun.h"

/// The operator's whole way, on which nothing fails.
class TourTest : public QObject {
    Q_OBJECT

private slots:
    void wholeTour_data();
    void wholeTour();
};

void TourTest::wholeTour_data() {
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<bool>("ownBench");
    for (const Scenario& scenario : Scenarios()) {
        QTest::newRow(qPrintable(scenario.name)) << scenario.name << true;
    }
    QTest::newRow("main, default bench") << QStringLiteral("main") << false;
    // It stands for all modes there.
    QTest::newRow("difference, default bench") << QStringLiteral("difference") << false;
}

void TourTest::wholeTour() {
    QFETCH(QString, scenario);
    QFETCH(bool, ownBench);
    const QtMessages messages;
    const Scenario& way = *FindScenario(scenario);
    const TourBench bench = ownBench ? way.bench() : DefaultTourBench();
    ScenarioRun run(bench);
    for (const TourStep& step : AllSteps(way, bench)) {
        if (ownBench || !step.slow) {
            const QStringList wrong = run.Perform(step);
            QVERIFY2(wrong.isEmpty(), qPrintable(step.name + QStringLiteral(": ") + wrong.join(QStringLiteral("; "))));
        }
    }
    QCOMPARE(run.End(), QStringList());
}

TAVIK_TEST_MAIN(TourTest)
#include "TourTest.moc"
