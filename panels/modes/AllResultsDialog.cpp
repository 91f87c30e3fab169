#include "panels/modes/AllResultsDialog.h"

#include "library/TavikBuffered.h"
#include "library/TavikDynamic.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/modes/ReadingsFetch.h"
#include "ui_AllResultsDialog.h"

#include <algorithm>
#include <utility>

using TavikLibrary::TavikModule;
using TavikLibrary::TavikNetwork;
using TavikLibrary::TavikServer;

AllResultsDialog::AllResultsDialog(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::AllResultsDialog>()) {
    ui->setupUi(this);
    SetUpResultsTable(ui->tableResults);
}

AllResultsDialog::~AllResultsDialog() = default;

void AllResultsDialog::fillBuffered(TavikServer* server, TavikNetwork* network) {
    ReadingsModel::Contents contents;
    const int columns = std::max(network->Buffered()->EnabledCount(), 0);
    const int modules = network->ModuleCount();
    for (int i = 0; i < modules; ++i) {
        TavikModule* module = network->GetModule(static_cast<unsigned int>(i));
        if (module->Buffered()->Enabled()) {
            const std::string identity = module->Identity();
            AddModuleColumn(contents, identity, FetchReadings(*module->Buffered()), *server);
        }
    }
    // The network's own count has the last word on how many columns there are.
    const ReadingsModel::Column empty{QString(), -1, ReadingsModel::Aspect::ValueOrError};
    contents.columns.resize(static_cast<std::size_t>(columns), empty);
    ShowResults(ui->tableResults, std::move(contents));
}

void AllResultsDialog::fillDynamic(TavikServer* server, TavikNetwork* network) {
    ReadingsModel::Contents contents;
    TavikLibrary::TavikDynamicData* data = network->Dynamic()->DynamicData();
    const int columns = data->ModuleCount();
    contents.rows = std::max(data->ReadingCount(), 0);
    const int modules = network->ModuleCount();
    for (int column = 0; column < columns; ++column) {
        // The list may have become shorter since the collection.
        const std::string identity = column < modules
                                         ? network->GetModule(static_cast<unsigned int>(column))->Identity()
                                         : "Module " + std::to_string(column + 1);
        AddModuleColumn(contents, identity, FetchReadings(*data, column, contents.rows), *server);
    }
    ShowResults(ui->tableResults, std::move(contents));
}

void AllResultsDialog::on_btnClose_clicked() {
    close();
}
