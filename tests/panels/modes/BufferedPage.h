#pragma once

#include "tests/panels/types/PanelTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>

#include <functional>

constexpr const char* currentTitle = "Results";

/// The base of tests of the page of buffered mode, on a network with two probes, a digital I/O module 2 and an
/// encoder interface.
class BufferedPage : public PanelTest {
protected:
    static QString Bench(const QString& networkAttributes = QString()) {
        return Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\"/>"
                                            "<module type=\"KX\" identity=\"KX00000002\" buffer-depth=\"5\"/>"
                                            "<module type=\"SWAX2\" identity=\"SWAX200003\"/>"
                                            "<module type=\"QTA\" identity=\"QTA0000004\">"
                                            "<signal motion=\"ramp\" rate=\"100\" period=\"0\"/></module>"),
                             networkAttributes);
    }

    /// Goes to the page with one of the network's modules selected.
    void OpenBuffered(int row = 0) { OpenBufferedOn(Bench(), row); }
    void OpenBufferedOn(const QString& bench, int row = 0) {
        OpenModule(bench, row);
        QVERIFY(Operator().SelectPage("tabBuffered"));
        Calls::Mark();
    }
    /// The same for another module in the open window.
    void SelectModule(int row) {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", row));
        QVERIFY(Operator().SelectPage("tabBuffered"));
        Calls::Mark();
    }

    QWidget* Page() { return Window().findChild<QWidget*>(QStringLiteral("bufferedModeWidget")); }
    template <class Widget>
    Widget* On(const char* name) {
        return Page()->findChild<Widget*>(QLatin1String(name));
    }
    QString Text(const char* name) { return On<QLineEdit>(name)->text(); }
    bool Checked(const char* name) { return On<QRadioButton>(name)->isChecked(); }
    QString Activity() { return Window().statusBar()->currentMessage(); }

    /// The names of what is enabled among the page's buttons and inputs, in the order of the form.
    QStringList Enabled() {
        QStringList names;
        for (const char* name :
             {"radioSync", "radioSample", "btnEnable", "btnDisable", "sbInterval", "cbMasterAddress",
              "sbCountsPerSample", "btnStart", "btnSample", "btnStop", "btnAllModules", "btnCurrentModule"}) {
            if (On<QWidget>(name)->isEnabled()) {
                names.append(QLatin1String(name));
            }
        }
        return names;
    }
    static QStringList Names(const char* names) { return QString::fromLatin1(names).split(QLatin1Char(' ')); }

    /// The calls of a refresh that finds the controller as the master.
    static QStringList Refreshing(const QString& identity) {
        QStringList calls{QStringLiteral("network Alpha.IsConnected()"),
                          QStringLiteral("module %1.Buffered()"),
                          QStringLiteral("buffered %1.Mode()"),
                          QStringLiteral("buffered %1.Enabled()"),
                          QStringLiteral("module %1.Identity()"),
                          QStringLiteral("buffered %1.ReadingInterval()"),
                          QStringLiteral("buffered %1.ReadingIntervalErrorUs()"),
                          QStringLiteral("buffered %1.TTUs()"),
                          QStringLiteral("network Alpha.Buffered()"),
                          QStringLiteral("buffered Alpha.EnabledCount()"),
                          QStringLiteral("buffered Alpha.Status()"),
                          QStringLiteral("buffered Alpha.MasterIndex()")};
        return calls.replaceInStrings(QStringLiteral("%1"), identity);
    }
    static QStringList ModuleChange(const char* call) {
        return QStringList{QStringLiteral("module KX00000001.Buffered()"),
                           QStringLiteral("buffered KX00000001.") + QLatin1String(call)} +
               Refreshing(QStringLiteral("KX00000001"));
    }
    static QStringList NetworkCall(const char* call) {
        return {QStringLiteral("network Alpha.Buffered()"), QStringLiteral("buffered Alpha.") + QLatin1String(call)};
    }

    void ExpectBox(const QString& text) {
        boxes.ExpectError(Page(), QStringLiteral("Buffered Mode"), QStringLiteral("Error: ") + text);
    }

    /// Enables modules, the one in the first row last, so that it stays selected.
    void EnableModules(const QList<int>& rows) {
        for (const int row : rows) {
            SelectModule(row);
            QVERIFY(Operator().Click("btnEnable"));
        }
        Calls::Mark();
    }
    /// A run of so many seconds.
    void Run(double seconds) {
        QVERIFY(Operator().Click("btnStart"));
        TavikSimulator::AdvanceClock(seconds);
        QVERIFY(Operator().Click("btnStop"));
        Calls::Mark();
    }
    void ExpectResults(const char* title, const std::function<void(QDialog& dialog, QTableView* table)>& look) {
        boxes.ExpectUse(Page(), QString::fromLatin1(title), [look](QDialog& dialog) {
            ProcessAllEvents();
            look(dialog, dialog.findChild<QTableView*>(QStringLiteral("tableResults")));
            QVERIFY(WidgetDriver(dialog).Click("btnClose"));
        });
    }
};
