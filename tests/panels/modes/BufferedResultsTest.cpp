#include "tests/panels/modes/BufferedPage.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

using namespace TavikSimulator;

namespace {

const char* const allTitle = "Results (in each module's unit of measure).";

QString CellText(const QTableView* table, int row, int column) {
    return table->model()->index(row, column).data().toString();
}

QStringList ColumnTexts(const QTableView* table, int column) {
    QStringList texts;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        texts.append(CellText(table, row, column));
    }
    return texts;
}

QStringList Headers(const QTableView* table) {
    QStringList headers;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        headers.append(table->model()->headerData(column, Qt::Horizontal).toString());
    }
    return headers;
}

} // namespace

/// The results of buffered mode, as its page shows them.
class BufferedResultsTest : public BufferedPage {
    Q_OBJECT

private slots:
    void resultsOfTheCurrentModule();
    void resultsOfAllModules();
    void resultsWithoutEnabledModules();
    void resultsWithCodes();
    void resultsThatCannotBeFetched_data();
    void resultsThatCannotBeFetched();
    void anExternalMasterFillsTheBuffers();
};

void BufferedResultsTest::resultsOfTheCurrentModule() {
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("40960")));
    Operator().Press(Qt::Key_Tab);
    EnableModules({0});
    HoldPosition("Alpha", "KX00000001", 0.5);
    Run(1.0);
    ExpectResults(currentTitle, [](QDialog& dialog, QTableView* table) {
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("KX00000001"));
        QCOMPARE(Headers(table), (QStringList{QStringLiteral("Reading (UOM)"), QStringLiteral("Reading (Counts)"),
                                              QStringLiteral("Status")}));
        QCOMPARE(table->model()->rowCount(), 24);
        QCOMPARE(CellText(table, 23, 0), QStringLiteral("0.50000"));
        QCOMPARE(CellText(table, 23, 1), QStringLiteral("4096"));
        QCOMPARE(CellText(table, 23, 2), QStringLiteral("No error."));
        QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
        table->setFocus();
        table->selectRow(0);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("0.50000\t4096\tNo error.")));
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 1);
    const QStringList calls = Calls::TakeObject("buffered KX00000001");
    QCOMPARE(calls.first(), QStringLiteral("buffered KX00000001.BufferedDataLength()"));
    QCOMPARE(calls.last(), QStringLiteral("buffered KX00000001.GetBufferedItem(23)"));
}

void BufferedResultsTest::resultsOfAllModules() {
    OpenBuffered();
    EnableModules({1, 3, 0});
    HoldPosition("Alpha", "KX00000001", 0.5);
    HoldPosition("Alpha", "KX00000002", 1.25);
    Run(0.1);
    ExpectResults(allTitle, [](QDialog&, QTableView* table) {
        QCOMPARE(Headers(table), Names("KX00000001 KX00000002 QTA0000004"));
        QCOMPARE(table->model()->rowCount(), 24);
        QCOMPARE(CellText(table, 23, 0), QStringLiteral("0.50000"));
        QCOMPARE(CellText(table, 3, 1), QStringLiteral("1.25000"));
        // A buffer of five readings is full: the last tells so, and there are none after it.
        QCOMPARE(CellText(table, 4, 1), QStringLiteral("The module's buffer was full; later readings were lost."));
        QCOMPARE(ColumnTexts(table, 1).mid(5), QVector<QString>(19).toList());
        QCOMPARE(CellText(table, 23, 2), QStringLiteral("39.00000"));
    });
    QVERIFY(Operator().Click("btnAllModules"));
    QCOMPARE(boxes.Count(), 1);
}

void BufferedResultsTest::resultsWithoutEnabledModules() {
    OpenBuffered();
    EnableModules({0});
    Run(0.1);
    QVERIFY(Operator().Click("btnDisable"));
    ExpectResults(allTitle, [](QDialog&, QTableView* table) {
        QCOMPARE(table->model()->columnCount(), 0);
        QCOMPARE(table->model()->rowCount(), 0);
    });
    QVERIFY(Operator().Click("btnAllModules"));
    // The module's own readings are there all the same.
    ExpectResults(currentTitle, [](QDialog&, QTableView* table) { QCOMPARE(table->model()->rowCount(), 24); });
    QVERIFY(Operator().Click("btnCurrentModule"));
    SelectModule(1);
    ExpectResults(currentTitle, [](QDialog& dialog, QTableView* table) {
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(table->model()->columnCount(), 3);
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("KX00000002"));
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 3);
}

void BufferedResultsTest::resultsWithCodes() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    for (const double position : {0.5, 3.0, -1.0}) {
        HoldPosition("Alpha", "KX00000001", position);
        QVERIFY(Operator().Click("btnSample"));
    }
    SetModulePresent("Alpha", "KX00000001", false);
    QVERIFY(Operator().Click("btnSample"));
    QVERIFY(Operator().Click("btnStop"));
    const QStringList status{QStringLiteral("No error."),
                             QStringLiteral("The reading lies above the module's measuring range."),
                             QStringLiteral("The reading lies below the module's measuring range."),
                             QStringLiteral("The module dropped out of the collection.")};
    ExpectResults(allTitle, [&](QDialog&, QTableView* table) {
        QCOMPARE(ColumnTexts(table, 0), QStringList{QStringLiteral("0.50000")} + status.mid(1));
    });
    QVERIFY(Operator().Click("btnAllModules"));
    ExpectResults(currentTitle, [&](QDialog&, QTableView* table) {
        QCOMPARE(ColumnTexts(table, 0), Names("0.50000 2.00000 0.00000 0.00000"));
        QCOMPARE(ColumnTexts(table, 1), Names("4096 16384 0 0"));
        QCOMPARE(ColumnTexts(table, 2), status);
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 2);
}

void BufferedResultsTest::resultsThatCannotBeFetched_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("button");
    for (const char* operation : {"Identity", "Buffered", "BufferedDataLength", "GetBufferedItem"}) {
        QTest::addRow("current: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnCurrentModule");
        QTest::addRow("all: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnAllModules");
    }
    for (const char* operation : {"EnabledCount", "ModuleCount", "GetModule", "Enabled"}) {
        QTest::addRow("all: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnAllModules");
    }
}

void BufferedResultsTest::resultsThatCannotBeFetched() {
    QFETCH(QString, operation);
    QFETCH(QString, button);
    OpenBuffered();
    EnableModules({0});
    Run(0.1);
    FailNth(operation == QLatin1String("GetBufferedItem") ? 20 : 1, operation.toLatin1().constData(), ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click(button.toLatin1().constData()));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(Page()->findChildren<QDialog*>().isEmpty());
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
}

void BufferedResultsTest::anExternalMasterFillsTheBuffers() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("40")));
    Operator().Press(Qt::Key_Return);
    EnableModules({0});
    Run(1.05);
    ExpectResults(currentTitle, [](QDialog&, QTableView* table) { QCOMPARE(table->model()->rowCount(), 10); });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 1);
}

TAVIK_TEST_MAIN(BufferedResultsTest)
#include "BufferedResultsTest.moc"
