#include "tests/support/Contrast.h"

#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/tour/Tour.h"

/// Every text on the operator's way is readable, on a light and on a dark desktop.
class ContrastTest : public QObject {
    Q_OBJECT

private slots:
    void everyTextIsReadable_data();
    void everyTextIsReadable();
    void vanishedTextIsFound();
};

void ContrastTest::everyTextIsReadable_data() {
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void ContrastTest::everyTextIsReadable() {
    constexpr double leastRatio = 4.5;
    QFETCH(bool, dark);
    const QPalette usual = QApplication::palette();
    if (dark) {
        QApplication::setPalette(DarkPalette());
    }
    const auto usualAgain = qScopeGuard([&usual] { QApplication::setPalette(usual); });
    QStringList found;
    int looks = 0;
    const auto look = [&](QWidget& window, const QString& where) {
        ++looks;
        const QStringList texts = LowContrastTexts(window, leastRatio);
        for (const QString& text : texts) {
            // Its colours are fixed: white on red, 4.0.
            if (text.startsWith(QLatin1String("lblWait "))) {
                continue;
            }
            found.append(where + QStringLiteral(": ") + text);
        }
    };
    Tour tour(DefaultTourBench());
    tour.OnDialog(look);
    tour.PrepareBench();
    tour.OpenWindow();
    tour.boxes.Tolerate(true);
    std::vector<TourStep> steps = TourSteps(tour.bench);
    const std::vector<TourStep> ofModes = ModesTourSteps(tour.bench);
    steps.insert(steps.end(), ofModes.begin(), ofModes.end());
    for (const TourStep& step : steps) {
        if (!step.slow && !step.closes) {
            step.act(tour);
            ProcessAllEvents();
            look(tour.Window(), step.name);
        }
    }
    found.removeDuplicates();
    QVERIFY(looks > 100);
    for (const QString& text : qAsConst(found)) {
        qInfo("%s", qPrintable(text));
    }
    QCOMPARE(found.size(), 0);
}

void ContrastTest::vanishedTextIsFound() {
    QWidget window;
    QLabel label(QStringLiteral("Hidden"), &window);
    label.setStyleSheet(QStringLiteral("background-color: white; color: white"));
    label.resize(100, 30);
    window.show();
    QCOMPARE(LowContrastTexts(window, 4.5).size(), 1);
    label.setStyleSheet(QStringLiteral("background-color: white; color: black"));
    QCOMPARE(LowContrastTexts(window, 4.5), QStringList());
}

TAVIK_TEST_MAIN(ContrastTest)
#include "ContrastTest.moc"
