#include "panels/modes/CurrentModuleResultsDialog.h"

#include "library/TavikBuffered.h"
#include "library/TavikDynamic.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/Text.h"
#include "panels/modes/ReadingsFetch.h"
#include "ui_CurrentModuleResultsDialog.h"

#include <utility>

using TavikLibrary::TavikModule;
using TavikLibrary::TavikNetwork;
using TavikLibrary::TavikServer;

CurrentModuleResultsDialog::CurrentModuleResultsDialog(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::CurrentModuleResultsDialog>()) {
    ui->setupUi(this);
    SetUpResultsTable(ui->tableResults);
    ShowResults(ui->tableResults, EmptyModuleTable());
}

CurrentModuleResultsDialog::~CurrentModuleResultsDialog() = default;

void CurrentModuleResultsDialog::fillBuffered(TavikServer* server, TavikModule* module) {
    const QString identity = FromLibrary(module->Identity());
    ReadingsModel::Contents contents = ModuleTable(FetchReadings(*module->Buffered()), *server);
    ui->lblModuleID->setText(identity);
    ShowResults(ui->tableResults, std::move(contents));
}

void CurrentModuleResultsDialog::fillDynamic(TavikServer* server, TavikNetwork* network, TavikModule* module) {
    const std::string identity = module->Identity();
    const int index = network->GetModuleIndexByID(identity);
    TavikLibrary::TavikDynamicData* data = network->Dynamic()->DynamicData();
    ReadingsModel::Contents contents = ModuleTable(FetchReadings(*data, index, data->ReadingCount()), *server);
    // A dynamic collection is looked at for its values alone.
    contents.columns.resize(1);
    ui->lblModuleID->setText(FromLibrary(identity));
    ShowResults(ui->tableResults, std::move(contents));
}

void CurrentModuleResultsDialog::on_btnClose_clicked() {
    close();
}
