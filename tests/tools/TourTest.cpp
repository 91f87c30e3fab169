#include "tools/tour/Tour.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/sweep/Course.h"
#include "tools/sweep/Walk.h"

/// The operator's whole way, on which nothing fails.
class TourTest : public QObject {
    Q_OBJECT

private slots:
    void wholeTour_data();
    void wholeTour();
};

void TourTest::wholeTour_data() {
    QTest::addColumn<QString>("course");
    QTest::addColumn<bool>("ownBench");
    for (const Course& course : Courses()) {
        QTest::newRow(qPrintable(course.name)) << course.name << true;
    }
    QTest::newRow("main, default bench") << QStringLiteral("main") << false;
    // It stands for all modes there.
    QTest::newRow("difference, default bench") << QStringLiteral("difference") << false;
}

void TourTest::wholeTour() {
    QFETCH(QString, course);
    QFETCH(bool, ownBench);
    const QtMessages messages;
    const Course& way = *FindCourse(course);
    const TourBench bench = ownBench ? way.bench() : DefaultTourBench();
    Walk walk(bench);
    for (const TourStep& step : WholeWay(way, bench)) {
        if (ownBench || !step.slow) {
            const QStringList wrong = walk.Take(step);
            QVERIFY2(wrong.isEmpty(), qPrintable(step.name + QStringLiteral(": ") + wrong.join(QStringLiteral("; "))));
        }
    }
    QCOMPARE(walk.End(), QStringList());
}

TAVIK_TEST_MAIN(TourTest)
#include "TourTest.moc"
