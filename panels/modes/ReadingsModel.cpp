#include "panels/modes/ReadingsModel.h"

#include "panels/common/Text.h"

#include <algorithm>
#include <utility>

using TavikLibrary::TavikReading;

void ReadingsModel::Show(Contents newContents) {
    beginResetModel();
    contents = std::move(newContents);
    for (const ReadingSeries& series : contents.series) {
        contents.rows = std::max(contents.rows, static_cast<int>(series.size()));
    }
    endResetModel();
}

int ReadingsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : contents.rows;
}

int ReadingsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(contents.columns.size());
}

QVariant ReadingsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
        return CellText(index);
    case Qt::ToolTipRole:
        // The text of a result code is often longer than its cell.
        return PlainToolTip(CellText(index));
    default:
        return QVariant();
    }
}

QVariant ReadingsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < columnCount()) {
        const QString& header = contents.columns[static_cast<std::size_t>(section)].header;
        if (!header.isEmpty()) {
            return header;
        }
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

QString ReadingsModel::CellText(const QModelIndex& index) const {
    const Column& column = contents.columns[static_cast<std::size_t>(index.column())];
    if (column.series < 0) {
        return QString();
    }
    const ReadingSeries& series = contents.series[static_cast<std::size_t>(column.series)];
    const auto row = static_cast<std::size_t>(index.row());
    return row < series.size() ? AspectText(column.aspect, series[row]) : QString();
}

QString ReadingsModel::AspectText(Aspect aspect, const TavikReading& reading) const {
    switch (aspect) {
    case Aspect::ValueOrError:
        return reading.resultCode == 0 ? FormatUnits(reading.units) : contents.codeTexts.value(reading.resultCode);
    case Aspect::Value:
        return FormatUnits(reading.units);
    case Aspect::Counts:
        return QString::number(reading.counts);
    case Aspect::Status:
        return contents.codeTexts.value(reading.resultCode);
    }
    return QString();
}
