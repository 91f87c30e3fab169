#include "tests/support/ProgramTest.h"

#include "tools/hand/Complaints.h"

#include <QListWidget>
#include <QTabWidget>

using namespace TavikSimulator;

void ProgramTest::init() {
    qtMessages = std::make_unique<QtMessages>();
}

void ProgramTest::cleanup() {
    boxes.Finish();
    boxes.Take();
    boxes.Tolerate(false);
    Drop();
    qtMessages->Finish();
    qtMessages.reset();
    const QStringList complaints = Complaints::Take() + Leftovers();
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(QLatin1Char('\n'))));
}

void ProgramTest::Open(const QString& bench) {
    UseStillBenchText(bench.toStdString(), "bench of the test");
    StartJournal();
    window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get(), patience));
}

void ProgramTest::OpenNetwork(const QString& bench, int row) {
    Open(bench);
    QVERIFY(Operator().Click("btnConnectAll"));
    if (row > 0) {
        QVERIFY(Operator().SelectTableRow("tableNetworks", row));
    }
    QVERIFY(Operator().SelectPage("tabNetwork"));
    // The list takes the focus when its page comes to the front, and with the focus its first row.
    window->findChild<QListWidget*>(QStringLiteral("listModules"))->setCurrentRow(-1);
    // The first row's panels are gone when the next ones are looked for.
    Settle();
    Calls::Mark();
}

void ProgramTest::OpenModule(const QString& bench, int moduleRow, int networkRow) {
    OpenNetwork(bench, networkRow);
    QVERIFY(Operator().SelectRow("listModules", moduleRow));
    QVERIFY(Operator().SelectPage("tabModule"));
    Calls::Mark();
}

void ProgramTest::Drop() {
    window.reset();
    Settle();
}

QStringList ProgramTest::Pages() {
    QStringList captions;
    const auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabWidget"));
    for (int index = 0; index < tabs->count(); ++index) {
        captions.append(tabs->tabText(index));
    }
    return captions;
}

QStringList ProgramTest::Rows(const char* name) {
    QStringList rows;
    const auto* list = window->findChild<QListWidget*>(QLatin1String(name));
    for (int row = 0; row < list->count(); ++row) {
        rows.append(list->item(row)->text());
    }
    return rows;
}

QStringList Leftovers() {
    QStringList left;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* widget : windows) {
        left.append(QStringLiteral("A window is left: %1 \"%2\".")
                        .arg(QLatin1String(widget->metaObject()->className()), widget->windowTitle()));
    }
    while (QApplication::overrideCursor() != nullptr) {
        left.append(QStringLiteral("A cursor is left."));
        QApplication::restoreOverrideCursor();
    }
    if (CallsOnRemovedModules() > 0) {
        left.append(QStringLiteral("%1 calls on modules that had been removed.").arg(CallsOnRemovedModules()));
    }
    return left;
}

void FailNext(const char* operation, const QString& text, const char* object) {
    Fault fault;
    fault.object = object;
    fault.operation = operation;
    fault.text = text.toStdString();
    AddFault(fault);
}

void FailNextWithCode(const char* operation, int code, const QString& text) {
    Fault fault;
    fault.operation = operation;
    fault.code = code;
    fault.text = text.toStdString();
    AddFault(fault);
}
