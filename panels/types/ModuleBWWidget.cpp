#include "panels/types/ModuleBWWidget.h"

#include "library/TavikModuleLaser.h"
#include "ui_ModuleBWWidget.h"

ModuleBWWidget::ModuleBWWidget(QWidget* parent)
    : TypePanelOf(parent, QStringLiteral("BW Module")), ui(std::make_unique<Ui::ModuleBWWidget>()) {
    ui->setupUi(this);
}

ModuleBWWidget::~ModuleBWWidget() = default;

void ModuleBWWidget::Fill() {
    ui->cbBeamOn->setChecked(module->BeamOn());
}

std::vector<QWidget*> ModuleBWWidget::Commands() const {
    return {ui->cbBeamOn};
}

void ModuleBWWidget::on_cbBeamOn_clicked() {
    errors.Try([this] { module->setBeamOn(ui->cbBeamOn->isChecked()); });
}
