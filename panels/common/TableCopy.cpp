#include "panels/common/TableCopy.h"

#include "panels/common/WaitCursor.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <vector>

namespace {

struct SelectedCells {
    std::vector<int> rows;
    std::vector<int> columns;
};

void SortWithoutDoubles(std::vector<int>& numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

SelectedCells CellsOf(const QItemSelection& selection) {
    SelectedCells cells;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            cells.rows.push_back(row);
        }
        for (int column = range.left(); column <= range.right(); ++column) {
            cells.columns.push_back(column);
        }
    }
    SortWithoutDoubles(cells.rows);
    SortWithoutDoubles(cells.columns);
    return cells;
}

/// A cell whose text would break the table is put in quotation marks, as spreadsheets do.
QString Field(QString text) {
    const bool breaksTable = text.contains(QLatin1Char('\t')) || text.contains(QLatin1Char('\n')) ||
                             text.contains(QLatin1Char('\r')) || text.contains(QLatin1Char('"'));
    if (!breaksTable) {
        return text;
    }
    text.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString Header(const QAbstractItemModel& model, int section, Qt::Orientation orientation) {
    return Field(model.headerData(section, orientation).toString());
}

/// Rows that are only numbered need no header: a spreadsheet numbers its own.
bool RowsAreNamed(const QAbstractItemModel& model, const std::vector<int>& rows) {
    return model.headerData(rows.front(), Qt::Vertical).toString() != QString::number(rows.front() + 1);
}

QString AsText(const QAbstractItemModel& model, const QItemSelection& selection) {
    const SelectedCells cells = CellsOf(selection);
    const bool namedRows = RowsAreNamed(model, cells.rows);
    const bool wholeBlock = selection.size() == 1;

    QString text;
    const auto separate = [&text, namedRows](bool first) {
        if (!first || namedRows) {
            text += QLatin1Char('\t');
        }
    };
    for (const int column : cells.columns) {
        separate(column == cells.columns.front());
        text += Header(model, column, Qt::Horizontal);
    }
    text += QLatin1Char('\n');
    for (const int row : cells.rows) {
        if (namedRows) {
            text += Header(model, row, Qt::Vertical);
        }
        for (const int column : cells.columns) {
            separate(column == cells.columns.front());
            const QModelIndex index = model.index(row, column);
            if (wholeBlock || selection.contains(index)) {
                text += Field(index.data().toString());
            }
        }
        text += QLatin1Char('\n');
    }
    return text;
}

void CopySelection(const QTableView& table) {
    const QItemSelectionModel* selected = table.selectionModel();
    if (selected != nullptr && selected->hasSelection()) {
        const WaitCursor waiting;
        QGuiApplication::clipboard()->setText(AsText(*table.model(), selected->selection()));
    }
}

} // namespace

void OfferCopying(QTableView* table) {
    auto* copy = new QAction(QStringLiteral("&Copy"), table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, table, [table] { CopySelection(*table); });

    auto* selectAll = new QAction(QStringLiteral("Select &All"), table);
    selectAll->setShortcut(QKeySequence::SelectAll);
    selectAll->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(selectAll, &QAction::triggered, table, &QTableView::selectAll);

    table->addActions({copy, selectAll});
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
}
