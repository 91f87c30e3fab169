#include "panels/modes/ReadingsFetch.h"

#include "library/TavikBuffered.h"
#include "library/TavikDynamic.h"
#include "library/TavikServer.h"
#include "panels/common/TableCopy.h"
#include "panels/common/Text.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <utility>

using TavikLibrary::TavikReading;

namespace {

template <class Fetch>
ReadingSeries FetchAll(int count, Fetch fetch) {
    ReadingSeries series;
    series.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < count; ++i) {
        series.push_back(fetch(i));
    }
    return series;
}

/// Asks for the text of each code of a series that is not known yet.
void LearnCodeTexts(QHash<int, QString>& texts, const ReadingSeries& series, bool alsoOfGoodReadings,
                    TavikLibrary::TavikServer& server) {
    int lastCode = 0;
    bool lastCodeIsKnown = !alsoOfGoodReadings;
    for (const TavikReading& reading : series) {
        // A collection mostly has one code after the other many times.
        if (lastCodeIsKnown && reading.resultCode == lastCode) {
            continue;
        }
        lastCode = reading.resultCode;
        lastCodeIsKnown = true;
        if ((lastCode != 0 || alsoOfGoodReadings) && !texts.contains(lastCode)) {
            texts.insert(lastCode, FromLibrary(server.GetErrorDescription(lastCode)));
        }
    }
}

} // namespace

ReadingSeries FetchReadings(TavikLibrary::ModuleBuffered& buffered) {
    const int count = buffered.BufferedDataLength();
    return FetchAll(count, [&](int i) { return buffered.GetBufferedItem(i); });
}

ReadingSeries FetchReadings(TavikLibrary::TavikDynamicData& data, int module, int count) {
    return FetchAll(count, [&](int i) { return data.GetItem(module, i); });
}

void AddModuleColumn(ReadingsModel::Contents& contents, const std::string& identity, ReadingSeries series,
                     TavikLibrary::TavikServer& server) {
    LearnCodeTexts(contents.codeTexts, series, false, server);
    contents.columns.push_back(
        {FromLibrary(identity), static_cast<int>(contents.series.size()), ReadingsModel::Aspect::ValueOrError});
    contents.series.push_back(std::move(series));
}

ReadingsModel::Contents EmptyModuleTable() {
    using Aspect = ReadingsModel::Aspect;
    ReadingsModel::Contents contents;
    contents.series.emplace_back();
    contents.columns = {{QStringLiteral("Reading (UOM)"), 0, Aspect::Value},
                        {QStringLiteral("Reading (Counts)"), 0, Aspect::Counts},
                        {QStringLiteral("Status"), 0, Aspect::Status}};
    return contents;
}

ReadingsModel::Contents ModuleTable(ReadingSeries series, TavikLibrary::TavikServer& server) {
    ReadingsModel::Contents contents = EmptyModuleTable();
    LearnCodeTexts(contents.codeTexts, series, true, server);
    contents.series.front() = std::move(series);
    return contents;
}

void SetUpResultsTable(QTableView* table) {
    table->setModel(new ReadingsModel(table));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setWordWrap(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // All rows have the same height: nothing may go through a million of them to find out.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    OfferCopying(table);
}

void ShowResults(QTableView* table, ReadingsModel::Contents contents) {
    static_cast<ReadingsModel*>(table->model())->Show(std::move(contents));
    QHeaderView* header = table->horizontalHeader();
    int width = table->fontMetrics().horizontalAdvance(QStringLiteral("-00000.00000"));
    for (int column = 0; column < header->count(); ++column) {
        width = std::max(width, header->sectionSizeHint(column));
    }
    header->setMinimumSectionSize(width);
}
