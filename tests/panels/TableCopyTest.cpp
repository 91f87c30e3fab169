#include "panels/common/TableCopy.h"

#include "app/Application.h"
#include "tests/support/GuardedTest.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QTableWidget>
#include <QtTest>

#include <memory>

/// What is copied from a table goes to a spreadsheet as it is.
class TableCopyTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void plainCells();
    void cellsThatWouldBreakTheTable_data();
    void cellsThatWouldBreakTheTable();
    void whatIsNotSelectedStaysEmpty();
    void namedRowsAndHeadersAreQuotedToo();
    void withoutASelectionTheClipboardIsLeftAlone();

private:
    QString Copied() {
        table->actions().constFirst()->trigger();
        return QGuiApplication::clipboard()->text();
    }
    void Set(int row, int column, const QString& text) { table->setItem(row, column, new QTableWidgetItem(text)); }

    std::unique_ptr<QTableWidget> table;
};

void TableCopyTest::init() {
    table = std::make_unique<QTableWidget>(2, 2);
    table->setHorizontalHeaderLabels({QStringLiteral("Reading"), QStringLiteral("Status")});
    OfferCopying(table.get());
    Set(0, 0, QStringLiteral("1.5"));
    Set(0, 1, QStringLiteral("No error."));
    Set(1, 0, QStringLiteral("-2"));
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
}

void TableCopyTest::plainCells() {
    table->selectAll();
    QCOMPARE(Copied(), QStringLiteral("Reading\tStatus\n1.5\tNo error.\n-2\t\n"));
}

void TableCopyTest::cellsThatWouldBreakTheTable_data() {
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("copied");
    QTest::newRow("tab") << QStringLiteral("a\tb") << QStringLiteral("\"a\tb\"");
    QTest::newRow("new line") << QStringLiteral("a\nb") << QStringLiteral("\"a\nb\"");
    QTest::newRow("carriage return") << QStringLiteral("a\rb") << QStringLiteral("\"a\rb\"");
    QTest::newRow("quotation marks") << QStringLiteral("a \"b\" c") << QStringLiteral("\"a \"\"b\"\" c\"");
    QTest::newRow("none of it") << QStringLiteral("a, b; 'c'") << QStringLiteral("a, b; 'c'");
}

void TableCopyTest::cellsThatWouldBreakTheTable() {
    QFETCH(QString, cell);
    QFETCH(QString, copied);
    Set(0, 1, cell);
    table->setCurrentCell(0, 1);
    QCOMPARE(Copied(), QStringLiteral("Status\n%1\n").arg(copied));
}

void TableCopyTest::whatIsNotSelectedStaysEmpty() {
    table->item(0, 1)->setSelected(true);
    table->item(1, 0)->setSelected(true);
    QCOMPARE(Copied(), QStringLiteral("Reading\tStatus\n\tNo error.\n-2\t\n"));
}

void TableCopyTest::namedRowsAndHeadersAreQuotedToo() {
    table->setHorizontalHeaderLabels({QStringLiteral("in \"mm\""), QStringLiteral("Status")});
    table->setVerticalHeaderLabels({QStringLiteral("Max\timum"), QStringLiteral("Minimum")});
    table->selectAll();
    QCOMPARE(Copied(), QStringLiteral("\t\"in \"\"mm\"\"\"\tStatus\n\"Max\timum\"\t1.5\tNo error.\nMinimum\t-2\t\n"));
}

void TableCopyTest::withoutASelectionTheClipboardIsLeftAlone() {
    table->clearSelection();
    QCOMPARE(Copied(), QStringLiteral("before"));
}

int main(int argc, char* argv[]) {
    const Application application(argc, argv);
    GuardedTest<TableCopyTest> test;
    return QTest::qExec(&test, argc, argv);
}

#include "TableCopyTest.moc"
