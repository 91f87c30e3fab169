#pragma once

#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QComboBox>
#include <QListWidget>
#include <QSpinBox>

/// The base of tests that drive the page of dynamic mode.
class DynamicPage : public ProgramFixture {
protected:
    /// Two probes.
    static QString Probes() {
        return QStringLiteral(
            "<module type=\"KX\" identity=\"KX00000001\"/><module type=\"KX\" identity=\"KX00000002\"/>");
    }
    /// Two probes, and behind them both kinds of masters.
    static QString Masters() {
        return Probes() + QStringLiteral("<module type=\"SWAX2\" identity=\"SWAX200003\"/>"
                                         "<module type=\"QTA\" identity=\"QTA0000004\"/>");
    }
    /// Shows the page, for a module of a network with these modules.
    void OpenPage(const QString& modules = Probes(), int moduleRow = 0) {
        OpenModule(Benches::With(modules), moduleRow);
        ShowPage();
    }
    void ShowPage() {
        QVERIFY(Operator().SelectPage("dynamicWidget"));
        Calls::Mark();
    }
    void Click(const char* button) { QVERIFY2(Operator().Click(button), button); }
    void Enable() { Click("btnEnable"); }
    void Start() {
        Click("btnEnable");
        Click("btnPrepare");
        Click("btnStart");
    }
    QWidget* Page() { return Operator().Find("dynamicWidget"); }
    template <class Widget>
    Widget* The(const char* name) {
        return Operator().The<Widget>(name);
    }
    int Row(const char* list) { return The<QListWidget>(list)->currentRow(); }
    int Value(const char* box) { return The<QSpinBox>(box)->value(); }
    QString Text(const char* name) { return Operator().Text(name); }
    void Enter(const char* box, int value) {
        QVERIFY(Operator().Enter(box, QString::number(value)));
        Operator().Press(Qt::Key_Return);
    }
    /// The calls since the mark that change something.
    static QStringList Changes() {
        QStringList changes;
        const QStringList calls = Calls::Take();
        for (const QString& call : calls) {
            const QString operation = call.section(QLatin1Char('.'), 1);
            if (operation.startsWith(QLatin1String("set")) || operation.startsWith(QLatin1String("Prepare")) ||
                operation.contains(QLatin1String("AllDynamic"))) {
                changes.append(call);
            }
        }
        return changes;
    }
    /// Which of the page's controls can be used.
    QStringList Usable() {
        QStringList usable;
        for (const char* name :
             {"listRate", "sbInterval", "sbNumSyncs", "radioSyncNormal", "radioSyncExternal", "cbExternalMaster",
              "listDynamicMasterMode", "sbCountsPerSync", "sbHoldOffCounts", "sbModulesInCollection",
              "btnModuleResults", "btnAllResults", "btnEnable", "btnDisable", "btnPrepare", "btnStart", "btnStop"}) {
            if (Operator().IsEnabled(name)) {
                usable.append(QLatin1String(name));
            }
        }
        return usable;
    }
    void ExpectBox(const QString& text) { boxes.ExpectError(Page(), QStringLiteral("Dynamic Mode"), text); }

    const QString network = QStringLiteral("dynamic Alpha.");
};
