#include "panels/types/ModuleBWKWidget.h"

#include "library/TavikModuleLaser.h"
#include "panels/common/Fields.h"
#include "panels/common/MessageBoxes.h"
#include "ui_ModuleBWKWidget.h"

using TavikLibrary::eMeasuringRate;

namespace {

const QLatin1String boxTitle("BWK Module");

} // namespace

ModuleBWKWidget::ModuleBWKWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleBWKWidget>()) {
    ui->setupUi(this);
}

ModuleBWKWidget::~ModuleBWKWidget() = default;

void ModuleBWKWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleBWK* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    ShowMeasuringRate(module->MeasuringRate());
    ui->listAvailableMeasuringRates->clear();
    for (const eMeasuringRate rate : module->AvailableMeasuringRates()) {
        ui->listAvailableMeasuringRates->addItem(FromLibrary(TavikLibrary::eMeasuringRate_ToString(rate)));
    }
}

void ModuleBWKWidget::SetEnabled(bool enable) {
    ui->btnSetMeasuringRate->setEnabled(enable);
}

void ModuleBWKWidget::on_btnSetMeasuringRate_clicked() {
    if (ui->listAvailableMeasuringRates->selectedItems().isEmpty()) {
        return;
    }
    Guarded(this, boxTitle, QString(), [this] {
        const QString text = ui->listAvailableMeasuringRates->currentItem()->text();
        const eMeasuringRate rate = TavikLibrary::eMeasuringRate_FromString(ToLibrary(text));
        module->setMeasuringRate(rate);
        ShowMeasuringRate(rate);
    });
}

void ModuleBWKWidget::ShowMeasuringRate(eMeasuringRate rate) {
    ShowInField(ui->tbCurrentMeasuringRate, FromLibrary(TavikLibrary::eMeasuringRate_ToString(rate)));
}
