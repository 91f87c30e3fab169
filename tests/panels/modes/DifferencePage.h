#pragma once

#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QRegularExpression>
#include <QStatusBar>

#include <functional>

/// A probe with a still part under it, in the middle of its stroke of 2 mm.
inline QString StillProbe(int number) {
    return QStringLiteral("<module type=\"KX\" identity=\"KX0000000%1\" stroke=\"2\"><signal base=\"1\" noise=\"0\"/>"
                          "</module>")
        .arg(number);
}

/// A test on the page of difference mode.
class DifferencePage : public ProgramFixture {
protected:
    /// The page of the first module, in front.
    void OpenPage(const QString& modules) {
        OpenModule(Benches::With(modules), 0);
        // Not at the very instant of a reading.
        TavikSimulator::AdvanceClock(0.0001);
        QVERIFY(Operator().SelectPage("tabDifference"));
        Calls::Mark();
    }

    /// The page of another module, in front.
    void GoTo(int moduleRow) {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", moduleRow));
        QVERIFY(Operator().SelectPage("tabDifference"));
    }

    /// Starts a run. Whenever the page looks at it, a second passes on the bench and the next of these is done; the
    /// last of them has to end the watching.
    void StartAndThen(const std::vector<std::function<void()>>& deeds) {
        std::size_t next = 0;
        const auto operation = Repeatedly([&] {
            if (next < deeds.size() && QApplication::activeModalWidget() == nullptr) {
                TavikSimulator::AdvanceClock(1.0);
                deeds[next++]();
            }
        });
        QVERIFY(Operator().Click("btnStartDiff"));
        QCOMPARE(next, deeds.size());
    }

    std::function<void()> Stop() {
        return [this] { QVERIFY(Operator().Click("btnStopDiff")); };
    }

    /// What can be clicked, of the page and of the window around it.
    QStringList Offered() {
        QStringList offered;
        for (const char* name :
             {"btnEnable", "btnDisable", "btnStartDiff", "btnStopDiff", "btnDisplayAllModuleResults"}) {
            if (Page()->findChild<QWidget*>(QLatin1String(name))->isEnabled()) {
                offered.append(QLatin1String(name).mid(3));
            }
        }
        return offered;
    }
    bool ControlsAreOn() { return Window().findChild<QWidget*>(QStringLiteral("listModules"))->isEnabled(); }
    /// The line of a run that has ended, such as "Difference: 2 modules, 1.5 s".
    void CompareOutcome(const QString& modules) {
        const QRegularExpression line(QStringLiteral("^Difference: %1, \\d+\\.\\d s$").arg(modules));
        QVERIFY2(line.match(Activity()).hasMatch(), qPrintable(Activity()));
    }
    QString Activity() { return Window().statusBar()->currentMessage(); }
    QWidget* Page() { return Window().findChild<QWidget*>(QStringLiteral("differenceModeWidget")); }
    void ExpectError(const QString& text) {
        boxes.ExpectError(Page(), QStringLiteral("Difference Mode"), QStringLiteral("Error: ") + text);
    }
};
