#pragma once

#include "panels/common/ModalDialog.h"
#include "panels/common/WaitCursor.h"
#include "panels/modes/ReadingsModel.h"

#include <string>
#include <utility>

class QTableView;

namespace TavikLibrary {
class ModuleBuffered;
class TavikDynamicData;
class TavikServer;
} // namespace TavikLibrary

/// The readings of a buffered module. Throws what the library throws.
ReadingSeries FetchReadings(TavikLibrary::ModuleBuffered& buffered);
/// The first readings of one of a dynamic collection's modules. Throws what the library throws.
ReadingSeries FetchReadings(TavikLibrary::TavikDynamicData& data, int module, int count);

/// Takes a series with its column into a table in which each module has one column, and asks for the texts of the
/// codes that tell of a failed reading. Throws what the library throws.
void AddModuleColumn(ReadingsModel::Contents& contents, const std::string& identity, ReadingSeries series,
                     TavikLibrary::TavikServer& server);
/// A table with the columns of one module, and no reading yet.
ReadingsModel::Contents EmptyModuleTable();
/// A table with the columns "Reading (UOM)", "Reading (Counts)" and "Status" of one module, and the texts of all its
/// codes. Throws what the library throws.
ReadingsModel::Contents ModuleTable(ReadingSeries series, TavikLibrary::TavikServer& server);

/// Sets a table up to show readings, and to have them copied. The table may have millions of rows.
void SetUpResultsTable(QTableView* table);
/// Shows readings in a table that was set up for them, in place of those it showed before. No column is narrower than
/// its header or a reading.
void ShowResults(QTableView* table, ReadingsModel::Contents contents);

/// Makes a results dialog for a page, has it filled, and shows it until the operator closes it. Propagates what the
/// filling throws; nothing has been shown then.
template <class Dialog, class Fill>
void ShowResultsDialog(QWidget* page, Fill&& fill) {
    ModalDialog<Dialog> dialog(page);
    {
        const WaitCursor waiting;
        std::forward<Fill>(fill)(*dialog);
    }
    dialog.Run();
}
