#include "panels/types/ModuleBWWidget.h"

#include "library/TavikModuleLaser.h"
#include "ui_ModuleBWWidget.h"

ModuleBWWidget::ModuleBWWidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("BW Module")) {
    ui->setupUi(this);
}

void ModuleBWWidget::Fill() {
    // Until the laser has said so, the beam is neither on nor off.
    ui->cbBeamOn->setCheckState(Qt::PartiallyChecked);
    const bool on = module->BeamOn();
    ui->cbBeamOn->setTristate(false);
    ui->cbBeamOn->setChecked(on);
}

std::vector<QWidget*> ModuleBWWidget::Commands() const {
    return {ui->cbBeamOn};
}

void ModuleBWWidget::on_cbBeamOn_clicked() {
    errors.Try([this] { module->setBeamOn(ui->cbBeamOn->isChecked()); });
}
