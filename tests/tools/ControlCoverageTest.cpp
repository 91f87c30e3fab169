#include "app/Application.h"
#include "tests/support/ProgramFixture.h"
#include "tools/driver/FailureLog.h"
#include "tools/sweep/Scenario.h"
#include "tools/sweep/ScenarioRun.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QSet>

namespace {

/// Whether an operator can do something with a widget, other than read it.
bool IsControl(const QWidget* widget) {
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        return !line->isReadOnly();
    }
    if (const auto* rows = qobject_cast<const QAbstractItemView*>(widget)) {
        return rows->selectionMode() != QAbstractItemView::NoSelection;
    }
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

/// The form that a widget belongs to: its nearest ancestor of a class of ours that is no control. None for those of
/// Qt's own dialogs.
const QWidget* FormOf(const QWidget* widget) {
    while (widget != nullptr && (widget->metaObject()->className()[0] == 'Q' || IsControl(widget))) {
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return widget;
}

/// "ModuleQTAWidget.btnRead"; empty for a widget that is no control of a form of ours. The inner parts of a control
/// count as the control.
QString NameOfControl(const QWidget* widget) {
    const QWidget* form = FormOf(widget);
    QString name;
    for (; form != nullptr && widget != form; widget = widget->parentWidget()) {
        if (IsControl(widget) && !widget->objectName().startsWith(QLatin1String("qt_"))) {
            name = QLatin1String(form->metaObject()->className()) + QLatin1Char('.') + widget->objectName();
        }
    }
    return name;
}

/// One row of controls stands for the others of its kind, which differ by a number at the end of their names: the
/// program serves all of them with one function, and the tests of the panels use each.
QString WithoutNumber(const QString& name) {
    static const QRegularExpression number(QStringLiteral("[0-9]+$"));
    return QString(name).remove(number);
}

/// Controls that an operator need not use.
bool IsLeftOut(const QString& name) {
    // Their rows can be selected, as in every table, and nothing comes of it.
    static const QStringList shownOnly{
        QStringLiteral("AllResultsDialog.tableResults"), QStringLiteral("CurrentModuleResultsDialog.tableResults"),
        QStringLiteral("DialogDifferenceResults.tableResults"), QStringLiteral("DialogReadKRV.readingsTable"),
        QStringLiteral("ReadBurstWidget.tableReadings")};
    // They scroll the tabs, where there are more than fit.
    static const QStringList ofQt{QStringLiteral("PageTabs.ScrollLeftButton"),
                                  QStringLiteral("PageTabs.ScrollRightButton")};
    return shownOnly.contains(name) || ofQt.contains(name);
}

/// Sees which controls the operator has been shown, and which ones he has used.
class Watcher : public QObject {
public:
    Watcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        const QString name = widget != nullptr ? NameOfControl(widget) : QString();
        const bool appears = event->type() == QEvent::Show || event->type() == QEvent::EnabledChange;
        if (!name.isEmpty() && appears && widget->isVisible() && widget->isEnabled()) {
            shown.insert(name);
        } else if (!name.isEmpty() &&
                   (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)) {
            used.insert(WithoutNumber(name));
        }
        return false;
    }

    QSet<QString> shown;
    QSet<QString> used;
};

} // namespace

/// The tours use every control of every screen that they pass.
class ControlCoverageTest : public QObject {
    Q_OBJECT

private slots:
    void everyControlIsUsed();
};

void ControlCoverageTest::everyControlIsUsed() {
    Watcher watcher;
    for (const Scenario& scenario : Scenarios()) {
        const TourBench bench = scenario.bench();
        ScenarioRun run(bench);
        for (const TourStep& step : AllSteps(scenario, bench)) {
            run.Perform(step);
        }
        run.End();
    }
    QStringList unused;
    for (const QString& name : qAsConst(watcher.shown)) {
        if (!watcher.used.contains(WithoutNumber(name)) && !IsLeftOut(name)) {
            unused.append(name);
        }
    }
    QVERIFY2(unused.isEmpty(), qPrintable(unused.join(QLatin1Char('\n'))));
    constexpr int fewestControls = 200;
    QVERIFY2(watcher.shown.size() > fewestControls, qPrintable(QString::number(watcher.shown.size())));
}

TAVIK_TEST_MAIN(ControlCoverageTest)
#include "ControlCoverageTest.moc"
