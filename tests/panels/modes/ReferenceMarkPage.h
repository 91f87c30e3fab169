#pragma once

#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QDoubleSpinBox>
#include <QRegularExpression>
#include <QStatusBar>

/// The base of tests of the page that searches a linear encoder's reference mark: the first of two encoders, on a
/// bench whose time passes while a search is on.
class ReferenceMarkPage : public ProgramFixture {
protected:
    void OpenPage(const QString& attributes = QStringLiteral("mark=\"4\" hand=\"0.3\"")) {
        OpenModule(Benches::With(QStringLiteral("<module type=\"RN\" identity=\"RN00000001\" capabilities=\"\" %1>"
                                                "<signal base=\"7\"/></module>"
                                                "<module type=\"RN\" identity=\"RN00000002\"/>")
                                     .arg(attributes),
                                 QStringLiteral("capabilities=\"\"")),
                   0);
        QVERIFY(Operator().SelectPage("tabRefMark"));
        Calls::Mark();
    }
    /// Clicks Find; time on the bench goes on meanwhile, and something happens again and again.
    void Find(const std::function<void()>& meanwhile = [] {}) {
        const auto time = Repeatedly([&] {
            TavikSimulator::AdvanceClock(0.1);
            meanwhile();
        });
        QVERIFY(Operator().Click("btnFind"));
    }
    /// As Find, but it happens once, when the search has been asked for its end so many times.
    void FindAndAfter(int polls, const std::function<void()>& then) {
        bool happened = false;
        Find([&] {
            if (!happened && Calls::CountOf("RefmarkInProgress") >= polls) {
                happened = true;
                then();
            }
        });
        QVERIFY(happened);
    }
    QDoubleSpinBox* RecallValue() { return Operator().The<QDoubleSpinBox>("sbRecallValue"); }
    QString Reading() { return Operator().Text("tbRefMarkReading"); }
    QWidget* Page() { return Operator().Find("refMarkWidget"); }
    void CompareIdle() {
        for (const char* name : {"btnFind", "gbMode", "gbReadIn", "btnRead", "btnPresetinCounts", "listModules"}) {
            QVERIFY2(Operator().Find(name)->isEnabledTo(&Window()), name);
        }
        QVERIFY(!Page()->findChild<QWidget*>(QStringLiteral("btnStop"))->isEnabled());
        QVERIFY(!Activity().startsWith(QLatin1String("Searching")));
    }
    QString Activity() { return Window().statusBar()->currentMessage(); }
    /// The line of a search that has ended, such as "Reference mark found, 1.5 s".
    void CompareOutcome(const QString& result) {
        const QRegularExpression line(QStringLiteral("^Reference mark %1, \\d+\\.\\d s$").arg(result));
        QVERIFY2(line.match(Activity()).hasMatch(), qPrintable(Activity()));
    }
    /// The calls of the module but those that ask whether the search is on.
    QStringList CallsButPolls() {
        QStringList calls = Calls::TakeObject("module RN00000001");
        calls.removeAll(Call("RefmarkInProgress()"));
        return calls;
    }
    /// A call of the encoder as the journal has it.
    static QString Call(const char* call) { return QStringLiteral("module RN00000001.") + QString::fromLatin1(call); }
};
