#include "panels/types/ModuleBWKWidget.h"

#include "library/TavikModuleLaser.h"
#include "panels/common/Fields.h"
#include "ui_ModuleBWKWidget.h"

using TavikLibrary::eMeasuringRate;

ModuleBWKWidget::ModuleBWKWidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("BWK Module")) {
    ui->setupUi(this);
}

void ModuleBWKWidget::Fill() {
    ShowMeasuringRate(module->MeasuringRate());
    ui->listAvailableMeasuringRates->clear();
    for (const eMeasuringRate rate : module->AvailableMeasuringRates()) {
        ui->listAvailableMeasuringRates->addItem(FromLibrary(TavikLibrary::eMeasuringRate_ToString(rate)));
    }
}

std::vector<QWidget*> ModuleBWKWidget::Commands() const {
    return {ui->btnSetMeasuringRate};
}

void ModuleBWKWidget::on_btnSetMeasuringRate_clicked() {
    if (ui->listAvailableMeasuringRates->selectedItems().isEmpty()) {
        return;
    }
    errors.Try([this] {
        const QString text = ui->listAvailableMeasuringRates->currentItem()->text();
        const eMeasuringRate rate = TavikLibrary::eMeasuringRate_FromString(ToLibrary(text));
        module->setMeasuringRate(rate);
        ShowMeasuringRate(rate);
    });
}

void ModuleBWKWidget::ShowMeasuringRate(eMeasuringRate rate) {
    ShowInField(ui->tbCurrentMeasuringRate, FromLibrary(TavikLibrary::eMeasuringRate_ToString(rate)));
}
