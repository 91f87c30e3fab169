#include "tests/panels/wireless/SettingsTest.h"

#include "panels/wireless/WaitForProcessDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QWheelEvent>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString failure = QString::fromUtf8("Geht <u>nicht</u>: größer.");

/// The texts of the calls since the mark that set something or make the tool do something.
QStringList TakeWrites() {
    QStringList writes;
    const QStringList calls = TakeToolCalls();
    for (const QString& call : calls) {
        const bool fetches = call.endsWith(QLatin1String(".Limits()")) || call.endsWith(QLatin1String(".Upper()")) ||
                             call.endsWith(QLatin1String(".Lower()"));
        if (!fetches) {
            writes.append(call);
        }
    }
    return writes;
}

} // namespace

ProgressWatch::ProgressWatch() {
    qApp->installEventFilter(this);
}

ProgressWatch::~ProgressWatch() {
    qApp->removeEventFilter(this);
}

bool ProgressWatch::eventFilter(QObject* watched, QEvent* event) {
    const auto* label = qobject_cast<QLabel*>(watched);
    if (event->type() == QEvent::Paint && label != nullptr && label->objectName() == QLatin1String("lblWaitMessage")) {
        const auto* bar = label->window()->findChild<QProgressBar*>();
        const QString prefix = QStringLiteral("Please Wait:\n\n");
        if (label->text().startsWith(prefix)) {
            const QString step = QStringLiteral("%1 %2").arg(bar->value()).arg(label->text().mid(prefix.size()));
            if (steps.isEmpty() || steps.last() != step) {
                steps.append(step);
            }
        }
    }
    return false;
}

void SettingsTest::InSettings(const QString& title, const Deed& deed) {
    bool opened = false;
    BoxReply reply;
    reply.meanwhile = [&](QDialog& dialog) {
        opened = true;
        deed(dialog, WidgetDriver(dialog));
    };
    boxes.ExpectDialog(&Window(), title, reply);
    QVERIFY(Operator().Click("btnConfig1"));
    QVERIFY(opened);
}

void SettingsTest::FailToOpen(const QString& text) {
    BoxReply reply;
    reply.meanwhile = [](QDialog&) {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            QVERIFY(qobject_cast<WaitForProcessDialog*>(window) == nullptr || window->isHidden());
        }
    };
    boxes.ExpectError(Panel(), QStringLiteral("RLK Module"), text, reply);
    QVERIFY(Operator().Click("btnConfig1"));
    QCOMPARE(boxes.Count(), 1);
}

void SettingsTest::Try(QDialog& dialog, const std::function<void()>& change, const QStringList& calls,
                       const std::function<void()>& changeAgain) {
    Calls::Mark();
    change();
    COMPARE_CALLS(TakeWrites(), calls);

    const int before = boxes.Count();
    FailNext("*", failure);
    boxes.ExpectError(&dialog, QStringLiteral("KRV Config"), QStringLiteral("Error: ") + failure);
    changeAgain();
    ClearFaults();
    QCOMPARE(boxes.Count(), before + 1);
}

void SettingsTest::TryList(QDialog& dialog, const char* list, const QString& call, int first) {
    const WidgetDriver driver(dialog);
    const int now = Chosen(driver, list);
    const int other = now == 0 ? 1 : now - 1;
    Try(
        dialog, [=] { Choose(driver, list, other); },
        OfSettings({QStringLiteral("%1(%2)").arg(call).arg(other + first)}), [=] { Choose(driver, list, now); });
    QCOMPARE(Chosen(driver, list), now);
}

void SettingsTest::TryCheckBox(QDialog& dialog, const char* box, const QString& object, const QString& call) {
    const WidgetDriver driver(dialog);
    const bool now = Ticked(driver, box);
    const QString argument = now ? QStringLiteral("false") : QStringLiteral("true");
    Try(
        dialog, [=] { Tick(driver, box, !now); }, OfSlot(object, {QStringLiteral("%1(%2)").arg(call, argument)}),
        [=] { Tick(driver, box, now); });
    QCOMPARE(Ticked(driver, box), now);
}

void SettingsTest::TryButton(QDialog& dialog, const char* button, const QString& call) {
    const auto press = [&dialog, button] { QVERIFY(WidgetDriver(dialog).Click(button)); };
    Try(dialog, press, OfSettings({call + QStringLiteral("()")}), press);
}

void SettingsTest::Choose(WidgetDriver driver, const char* combo, int index) {
    auto* list = driver.The<QComboBox>(combo);
    QVERIFY(list->isEnabled());
    list->setFocus();
    // With the keys, as far as the wanted entry.
    while (list->currentIndex() < index) {
        QTest::keyClick(list, Qt::Key_Down);
    }
    while (list->currentIndex() > index) {
        QTest::keyClick(list, Qt::Key_Up);
    }
}

void SettingsTest::Tick(WidgetDriver driver, const char* box, bool on) {
    auto* checkBox = driver.The<QCheckBox>(box);
    if (checkBox->isChecked() != on) {
        checkBox->setFocus();
        QTest::keyClick(checkBox, Qt::Key_Space);
    }
    QCOMPARE(checkBox->isChecked(), on);
}

void SettingsTest::TurnWheel(WidgetDriver driver, const char* name) {
    QWidget* control = driver.Find(name);
    const QPointF centre = control->rect().center();
    constexpr int oneStep = 120;
    QWheelEvent turn(centre, control->mapToGlobal(centre.toPoint()), QPoint(), QPoint(0, -oneStep), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &turn);
}

QStringList SettingsTest::Entries(WidgetDriver driver, const char* combo) {
    const auto* list = driver.The<QComboBox>(combo);
    QStringList entries;
    for (int index = 0; index < list->count(); ++index) {
        entries.append(list->itemText(index));
    }
    return entries;
}

int SettingsTest::Chosen(WidgetDriver driver, const char* combo) {
    return driver.The<QComboBox>(combo)->currentIndex();
}

bool SettingsTest::Ticked(WidgetDriver driver, const char* box) {
    return driver.The<QCheckBox>(box)->isChecked();
}

QString SettingsTest::GroupTitle(QDialog& dialog) {
    return dialog.findChild<QGroupBox*>(QStringLiteral("gbConfiguration"))->title();
}

QStringList OfSettings(const QStringList& calls) {
    return OfSlot(QStringLiteral("settings"), calls);
}

void Answer(const char* operation, int number) {
    Fault fault;
    fault.operation = operation;
    fault.trigger = FaultTrigger::FromNth;
    fault.effect = FaultEffect::Result;
    fault.code = number;
    AddFault(fault);
}
