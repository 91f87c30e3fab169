#pragma once

#include "library/TavikReading.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QString>

#include <vector>

static_assert(sizeof(TavikLibrary::TavikReading) == 16, "collections are held with 16 bytes for each reading");

/// The readings of one module, in the order in which they were taken.
using ReadingSeries = std::vector<TavikLibrary::TavikReading>;

/// The readings of a collection as a table: a row for each reading, numbered from 1. A cell is formatted when it is
/// painted, so that a table of millions of readings costs no more than the readings themselves.
class ReadingsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What a column shows of each reading.
    enum class Aspect {
        ValueOrError, ///< the value in units; the text of the result code when that is not 0
        Value,        ///< the value in units
        Counts,
        Status, ///< the text of the result code
    };
    struct Column {
        QString header; ///< the column's number when empty
        int series;     ///< an index of Contents::series; -1 for a column without readings
        Aspect aspect;
    };
    struct Contents {
        std::vector<ReadingSeries> series;
        std::vector<Column> columns;
        QHash<int, QString> codeTexts;
        /// At least this many rows, and at least as many as the longest series has readings.
        int rows = 0;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void Show(Contents newContents);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    /// Empty below a series' last reading.
    QString CellText(const QModelIndex& index) const;
    QString AspectText(Aspect aspect, const TavikLibrary::TavikReading& reading) const;

    Contents contents;
};
