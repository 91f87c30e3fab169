#include "panels/modes/ReadingsModel.h"

#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "panels/modes/ReadingsFetch.h"
#include "tests/support/ProgramFixture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using Aspect = ReadingsModel::Aspect;

namespace {

QString Cell(const ReadingsModel& model, int row, int column) {
    return model.index(row, column).data().toString();
}

QString Header(const QAbstractItemModel& model, int section, Qt::Orientation orientation = Qt::Horizontal) {
    return model.headerData(section, orientation).toString();
}

/// Two modules, the second with fewer readings; codes of a failure and of a warning.
ReadingsModel::Contents TwoModules() {
    ReadingsModel::Contents contents;
    contents.series = {{{0, 10, 0.123456}, {0x2112, -5, -1.0}, {0, 30, -2.0}}, {{0x10001, 7, 7.5}}};
    contents.columns = {{QStringLiteral("KX00000001"), 0, Aspect::ValueOrError},
                        {QStringLiteral("KX00000002"), 1, Aspect::ValueOrError}};
    contents.codeTexts = {{0x2112, QStringLiteral("Too <low>.")}, {0x10001, QStringLiteral("Not settled.")}};
    return contents;
}

ReadingSeries ManyReadings(int count) {
    ReadingSeries series(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        series[static_cast<std::size_t>(i)] = {i % 100 == 99 ? 0x2112 : 0, i, i * 0.001};
    }
    return series;
}

ReadingsModel::Contents OneModule(int count) {
    ReadingsModel::Contents contents = EmptyModuleTable();
    contents.series.front() = ManyReadings(count);
    contents.codeTexts = {{0, QStringLiteral("No error.")}, {0x2112, QStringLiteral("Under range.")}};
    return contents;
}

bool ShowInFront(QWidget& widget) {
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    return QTest::qWaitForWindowActive(&widget);
}

} // namespace

/// The readings of collections as tables, and the dialogs that show them.
class ReadingsModelTest : public QObject {
    Q_OBJECT

private slots:
    void showsNothingAtFirst();
    void showsValuesOrErrors();
    void shorterColumnsEndEarly();
    void showsAllOfOneModule();
    void rowsWithoutSeries();
    void columnsWithoutReadings();
    void replacesWhatItShowed();
    void formatsWithFiveDecimals_data();
    void formatsWithFiveDecimals();
    void millionRowsAreShownAtOnce();
    void copiesWithHeaders();
    void copiesManyRows();
    void wideTablesScroll();
    void allResultsDialog();
    void currentModuleDialog();
    void dialogsClose_data();
    void dialogsClose();
};

void ReadingsModelTest::showsNothingAtFirst() {
    const ReadingsModel model;
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 0);
}

void ReadingsModelTest::showsValuesOrErrors() {
    ReadingsModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.Show(TwoModules());
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    QCOMPARE(model.columnCount(model.index(0, 0)), 0);
    QCOMPARE(Header(model, 0), QStringLiteral("KX00000001"));
    QCOMPARE(Header(model, 1), QStringLiteral("KX00000002"));
    QCOMPARE(Header(model, 0, Qt::Vertical), QStringLiteral("1"));
    QCOMPARE(Header(model, 2, Qt::Vertical), QStringLiteral("3"));
    QCOMPARE(Cell(model, 0, 0), QStringLiteral("0.12346"));
    QCOMPARE(Cell(model, 1, 0), QStringLiteral("Too <low>."));
    QCOMPARE(Cell(model, 2, 0), QStringLiteral("-2.00000"));
    // A warning is a code like any other here: its text takes the value's place.
    QCOMPARE(Cell(model, 0, 1), QStringLiteral("Not settled."));
    const QString toolTip = model.index(1, 0).data(Qt::ToolTipRole).toString();
    QCOMPARE(toolTip, QStringLiteral("Too <low>."));
    QVERIFY(!model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));
}

void ReadingsModelTest::shorterColumnsEndEarly() {
    ReadingsModel model;
    model.Show(TwoModules());
    QCOMPARE(Cell(model, 1, 1), QString());
    QCOMPARE(Cell(model, 2, 1), QString());
}

void ReadingsModelTest::showsAllOfOneModule() {
    ReadingsModel model;
    ReadingsModel::Contents contents = EmptyModuleTable();
    contents.series.front() = {{0, 12, 1.5}, {0x2113, 99, 2.25}};
    contents.codeTexts = {{0, QStringLiteral("Good.")}, {0x2113, QStringLiteral("Over.")}};
    model.Show(std::move(contents));
    QStringList texts;
    for (int column = 0; column < 3; ++column) {
        texts << Header(model, column) << Cell(model, 0, column) << Cell(model, 1, column);
    }
    // All three are shown, whatever the code.
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("Reading (UOM)|1.50000|2.25000|Reading (Counts)|12|99|Status|Good.|Over."));
}

void ReadingsModelTest::rowsWithoutSeries() {
    ReadingsModel model;
    ReadingsModel::Contents contents;
    contents.rows = 4;
    model.Show(contents);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.columnCount(), 0);
    contents = TwoModules();
    contents.rows = 5;
    model.Show(contents);
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(Cell(model, 4, 0), QString());
}

void ReadingsModelTest::columnsWithoutReadings() {
    ReadingsModel model;
    ReadingsModel::Contents contents = TwoModules();
    contents.columns.push_back({QString(), -1, Aspect::ValueOrError});
    model.Show(contents);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(Header(model, 2), QStringLiteral("3"));
    QCOMPARE(Cell(model, 0, 2), QString());
}

void ReadingsModelTest::replacesWhatItShowed() {
    ReadingsModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.Show(OneModule(1000));
    QCOMPARE(model.rowCount(), 1000);
    model.Show(TwoModules());
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(Cell(model, 2, 0), QStringLiteral("-2.00000"));
}

void ReadingsModelTest::formatsWithFiveDecimals_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0.00000";
    QTest::newRow("rounded up") << 1.000006 << "1.00001";
    QTest::newRow("rounded down") << 1.000004 << "1.00000";
    QTest::newRow("large") << 1234567.125 << "1234567.12500";
    QTest::newRow("negative") << -0.5 << "-0.50000";
}

void ReadingsModelTest::formatsWithFiveDecimals() {
    QFETCH(double, value);
    QFETCH(QString, text);
    ReadingsModel model;
    ReadingsModel::Contents contents = EmptyModuleTable();
    contents.series.front() = {{0, 0, value}};
    model.Show(std::move(contents));
    QCOMPARE(Cell(model, 0, 0), text);
}

void ReadingsModelTest::millionRowsAreShownAtOnce() {
    ReadingsModel::Contents contents = OneModule(1000000);
    QTableView table;
    SetUpResultsTable(&table);
    ShowResults(&table, std::move(contents));
    table.resize(600, 400);
    table.show();
    table.grab();
    table.scrollToBottom();
    table.grab();
    QCOMPARE(table.model()->rowCount(), 1000000);
    QCOMPARE(table.rowHeight(0), table.rowHeight(999999));
    QCOMPARE(table.rowAt(table.viewport()->height() - 2), 999999);
}

void ReadingsModelTest::copiesWithHeaders() {
    QTableView table;
    SetUpResultsTable(&table);
    ShowResults(&table, TwoModules());
    QVERIFY(ShowInFront(table));
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("KX00000001\tKX00000002\n0.12346\tNot settled.\nToo <low>.\t\n-2.00000\t\n"));
}

void ReadingsModelTest::copiesManyRows() {
    QTableView table;
    SetUpResultsTable(&table);
    ShowResults(&table, OneModule(200000));
    QVERIFY(ShowInFront(table));
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    const QString text = QGuiApplication::clipboard()->text();
    QGuiApplication::clipboard()->clear();
    QCOMPARE(text.count(QLatin1Char('\n')), 200001);
    QVERIFY(text.startsWith(QStringLiteral("Reading (UOM)\tReading (Counts)\tStatus\n0.00000\t0\tNo error.\n")));
    QVERIFY(text.endsWith(QStringLiteral("\n199.99900\t199999\tUnder range.\n")));
}

void ReadingsModelTest::wideTablesScroll() {
    ReadingsModel::Contents contents;
    for (int i = 0; i < 150; ++i) {
        contents.columns.push_back(
            {QStringLiteral("MODULE%1").arg(i, 4, 10, QLatin1Char('0')), i, Aspect::ValueOrError});
        contents.series.push_back({{0, 0, -1234.0}});
    }
    QTableView table;
    SetUpResultsTable(&table);
    ShowResults(&table, std::move(contents));
    table.resize(800, 400);
    table.show();
    const int needed = table.fontMetrics().horizontalAdvance(QStringLiteral("MODULE0000"));
    QVERIFY(table.columnWidth(0) >= needed);
    QVERIFY(table.columnWidth(149) >= needed);
    // Few columns share the width.
    ShowResults(&table, TwoModules());
    QVERIFY(qAbs(table.columnWidth(0) + table.columnWidth(1) - table.viewport()->width()) <= 1);
}

void ReadingsModelTest::allResultsDialog() {
    AllResultsDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Results (in each module's unit of measure)."));
    QVERIFY(!dialog.windowIcon().isNull());
    auto* table = dialog.findChild<QTableView*>(QStringLiteral("tableResults"));
    QVERIFY(table != nullptr);
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table->model()->columnCount(), 0);
    QCOMPARE(dialog.findChild<QPushButton*>(QStringLiteral("btnClose"))->text(), QStringLiteral("Close"));
}

void ReadingsModelTest::currentModuleDialog() {
    CurrentModuleResultsDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Results"));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("[moduleID]"));
    auto* table = dialog.findChild<QTableView*>(QStringLiteral("tableResults"));
    QVERIFY(table != nullptr);
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table->model()->rowCount(), 0);
    QCOMPARE(table->model()->columnCount(), 3);
    QCOMPARE(Header(*table->model(), 0), QStringLiteral("Reading (UOM)"));
    QCOMPARE(Header(*table->model(), 1), QStringLiteral("Reading (Counts)"));
    QCOMPARE(Header(*table->model(), 2), QStringLiteral("Status"));
    QCOMPARE(dialog.findChild<QPushButton*>(QStringLiteral("btnClose"))->text(), QStringLiteral("Close"));
}

void ReadingsModelTest::dialogsClose_data() {
    QTest::addColumn<bool>("all");
    QTest::addColumn<int>("key");
    QTest::newRow("all, Esc") << true << int(Qt::Key_Escape);
    QTest::newRow("all, Close") << true << 0;
    QTest::newRow("module, Esc") << false << int(Qt::Key_Escape);
    QTest::newRow("module, Close") << false << 0;
}

void ReadingsModelTest::dialogsClose() {
    QFETCH(bool, all);
    QFETCH(int, key);
    std::unique_ptr<QDialog> dialog;
    if (all) {
        dialog = std::make_unique<AllResultsDialog>();
    } else {
        dialog = std::make_unique<CurrentModuleResultsDialog>();
    }
    dialog->show();
    QSignalSpy rejected(dialog.get(), &QDialog::rejected);
    if (key != 0) {
        QTest::keyClick(dialog.get(), static_cast<Qt::Key>(key));
    } else {
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("btnClose")), Qt::LeftButton);
    }
    QVERIFY(!dialog->isVisible());
    QCOMPARE(rejected.count(), 1);
}

TAVIK_TEST_MAIN(ReadingsModelTest)

#include "ReadingsModelTest.moc"
