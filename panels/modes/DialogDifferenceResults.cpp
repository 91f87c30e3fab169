#include "panels/modes/DialogDifferenceResults.h"

#include "library/TavikDifference.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikServer.h"
#include "panels/common/TableCopy.h"
#include "panels/common/Text.h"
#include "ui_DialogDifferenceResults.h"

namespace {

enum Row { ErrorRow, MaximumRow, MinimumRow, DifferenceRow, ReadsRow, SumRow };

} // namespace

DialogDifferenceResults::DialogDifferenceResults(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::DialogDifferenceResults>()) {
    ui->setupUi(this);
    ui->tableResults->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    OfferCopying(ui->tableResults);
}

DialogDifferenceResults::~DialogDifferenceResults() = default;

void DialogDifferenceResults::fill(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network) {
    const int columns = network->Difference()->Count();
    ui->tableResults->setColumnCount(columns);
    QStringList identities;
    for (int index = 0; index < network->ModuleCount(); ++index) {
        TavikLibrary::TavikModule* module = network->GetModule(static_cast<unsigned int>(index));
        // A module that was enabled after the count has no column.
        if (module->Difference()->Enabled() && identities.size() < columns) {
            identities.append(FromLibrary(module->Identity()));
            FillColumn(identities.size() - 1, server, module);
        }
    }
    ui->tableResults->setHorizontalHeaderLabels(identities);
}

void DialogDifferenceResults::FillColumn(int column, TavikLibrary::TavikServer* server,
                                         TavikLibrary::TavikModule* module) {
    const auto show = [&](Row row, const QString& text) {
        ui->tableResults->setItem(row, column, new QTableWidgetItem(text));
    };
    TavikLibrary::ModuleDifference* difference = module->Difference();
    show(ErrorRow, FromLibrary(server->GetErrorDescription(difference->Error())));
    show(MaximumRow, FormatUnits(difference->Max()));
    show(MinimumRow, FormatUnits(difference->Min()));
    show(DifferenceRow, FormatUnits(difference->Diff()));
    show(ReadsRow, QString::number(difference->ReadingCount()));
    show(SumRow, FormatUnits(difference->Sum()));
}

void DialogDifferenceResults::on_btnClose_clicked() {
    close();
}
