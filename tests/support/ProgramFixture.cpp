#include "tests/support/ProgramFixture.h"

#include "tools/driver/FailureLog.h"
#include "tools/oracle/Oracle.h"

#include <QListWidget>
#include <QTabWidget>

using namespace TavikSimulator;

void ProgramFixture::init() {
    qtMessages = std::make_unique<QtMessages>();
}

void ProgramFixture::cleanup() {
    boxes.Finish();
    boxes.Take();
    boxes.Tolerate(false);
    Drop();
    qtMessages->Finish();
    qtMessages.reset();
    const QStringList failures = FailureLog::Take() + Oracle::TeardownErrors();
    // Not QVERIFY: QtTest calls this function of the base without the handler of TestAbort.
    if (!failures.isEmpty()) {
        QTest::qFail(qPrintable(failures.join(QLatin1Char('\n'))), __FILE__, __LINE__);
    }
}

void ProgramFixture::Open(const QString& bench) {
    UseStillBenchText(bench.toStdString(), "bench of the test");
    StartJournal();
    window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get(), waitTimeoutMs));
}

void ProgramFixture::OpenNetwork(const QString& bench, int row) {
    Open(bench);
    QVERIFY(Operator().Click("btnConnectAll"));
    if (row > 0) {
        QVERIFY(Operator().SelectTableRow("tableNetworks", row));
    }
    QVERIFY(Operator().SelectPage("tabNetwork"));
    // The first row's panels are gone when the next ones are looked for.
    ProcessAllEvents();
    Calls::Mark();
}

void ProgramFixture::OpenModule(const QString& bench, int moduleRow, int networkRow) {
    OpenNetwork(bench, networkRow);
    QVERIFY(Operator().SelectRow("listModules", moduleRow));
    QVERIFY(Operator().SelectPage("tabModule"));
    Calls::Mark();
}

void ProgramFixture::Drop() {
    window.reset();
    ProcessAllEvents();
}

QStringList ProgramFixture::Pages() {
    QStringList captions;
    const auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabWidget"));
    for (int index = 0; index < tabs->count(); ++index) {
        captions.append(tabs->tabText(index));
    }
    return captions;
}

QStringList ProgramFixture::Rows(const char* name) {
    QStringList rows;
    const auto* list = window->findChild<QListWidget*>(QLatin1String(name));
    for (int row = 0; row < list->count(); ++row) {
        rows.append(list->item(row)->text());
    }
    return rows;
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
