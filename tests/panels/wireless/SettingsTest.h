#pragma once

#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/ProgramFixture.h"

#include <QSpinBox>
#include <QVector>

#include <functional>

/// What the wait dialog showed, each time it was painted anew with something else.
class ProgressWatch : public QObject {
    Q_OBJECT

public:
    ProgressWatch();
    ~ProgressWatch() override;

    /// "30 Reading Preset Value": percent and message of each step.
    QStringList Steps() const { return steps; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QStringList steps;
};

/// The base of the tests of settings dialogs, which work on the tool in slot 1.
class SettingsTest : public ProgramFixture {
    Q_OBJECT

protected:
    using Deed = std::function<void(QDialog& dialog, WidgetDriver driver)>;

    /// Presses Config and does something in the dialog that opens, which is then closed.
    void InSettings(const QString& title, const Deed& deed);
    /// Presses Config, where no dialog opens but a box of the panel with this text.
    void FailToOpen(const QString& text);

    /// Changes something, which makes these calls, and changes it again, which fails and shows a box.
    void Try(QDialog& dialog, const std::function<void()>& change, const QStringList& calls,
             const std::function<void()>& changeAgain);
    /// The same with another entry of a list; the call takes its row, counted from a number. The list keeps what
    /// was chosen when the writing failed.
    void TryList(QDialog& dialog, const char* list, const QString& call, int first = 0);
    void TryCheckBox(QDialog& dialog, const char* box, const QString& object, const QString& call);
    void TryButton(QDialog& dialog, const char* button, const QString& call);
    template <class SpinBox, class Value>
    void TryNumber(QDialog& dialog, const char* name, Value value, const QStringList& calls, Value valueAgain) {
        const WidgetDriver driver(dialog);
        Try(
            dialog, [=] { Enter<SpinBox>(driver, name, value); }, calls,
            [=] { Enter<SpinBox>(driver, name, valueAgain); });
        QCOMPARE(driver.The<SpinBox>(name)->value(), valueAgain);
    }

    // Operation of the controls.
    static void Choose(WidgetDriver driver, const char* combo, int index);
    static void Tick(WidgetDriver driver, const char* box, bool on);
    template <class SpinBox, class Value>
    static void Enter(WidgetDriver driver, const char* name, Value value) {
        auto* spin = driver.The<SpinBox>(name);
        QVERIFY(spin->isEnabled());
        spin->setValue(value);
    }
    /// A step of the wheel over a control that has not been clicked.
    static void TurnWheel(WidgetDriver driver, const char* name);
    static QStringList Entries(WidgetDriver driver, const char* combo);
    static int Chosen(WidgetDriver driver, const char* combo);
    static bool Ticked(WidgetDriver driver, const char* box);
    static QString GroupTitle(QDialog& dialog);
    QWidget* Panel() { return Operator().Find("moduleRLKWidget"); }
};

/// The calls of the settings object of slot 1.
QStringList OfSettings(const QStringList& calls);
/// From now on an operation that returns a number returns this one, as many times as it is called.
void Answer(const char* operation, int number);
