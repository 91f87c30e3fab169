#include "panels/types/ModuleBWRWidget.h"

#include "library/TavikModuleLaser.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/Fields.h"
#include "panels/types/RowValues.h"
#include "ui_ModuleBWRWidget.h"

using TavikLibrary::eFilter;

ModuleBWRWidget::ModuleBWRWidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("BWR Module")) {
    ui->setupUi(this);
    FitToRows(ui->listAvailableFilters);
}

void ModuleBWRWidget::Fill() {
    ShowInformation();
    const eFilter filter = module->Filter();
    ShowFilter(filter);
    SelectRowOf(ui->listAvailableFilters, filter);
    const short time = module->LevelCutTime();
    ShowLevelCutTime(time);
    ui->sbAvailableLevelCutTime->setMaximum(module->LevelCutTimeMax());
    ui->sbAvailableLevelCutTime->setValue(time);
}

std::vector<QWidget*> ModuleBWRWidget::Commands() const {
    return {ui->btnSetFilter, ui->btnSetLevelCut};
}

// Both settings show the value that was sent: the laser takes its time to work with it.

void ModuleBWRWidget::on_btnSetFilter_clicked() {
    errors.Try([this] {
        const BlockingOperation blocking(mainWindow);
        const auto filter = CurrentRowAs<eFilter>(ui->listAvailableFilters);
        module->setFilter(filter);
        ShowFilter(filter);
    });
}

void ModuleBWRWidget::on_btnSetLevelCut_clicked() {
    errors.Try([this] {
        const BlockingOperation blocking(mainWindow);
        const int time = ui->sbAvailableLevelCutTime->value();
        module->setLevelCutTime(static_cast<unsigned short>(time));
        ShowLevelCutTime(static_cast<short>(time));
    });
}

void ModuleBWRWidget::ShowInformation() {
    ShowInField(ui->tbModel, FromLibrary(module->ModelNumber()));
    ShowInField(ui->tbSerial, FromLibrary(module->SerialNumber()));
    ShowInField(ui->tbFirmware, FromLibrary(module->FirmwareNumber()));
}

void ModuleBWRWidget::ShowFilter(eFilter filter) {
    ShowInField(ui->tbCurrentFilter, FromLibrary(TavikLibrary::eFilter_ToString(filter)));
}

void ModuleBWRWidget::ShowLevelCutTime(short time) {
    ShowInField(ui->tbCurrentLevelCutTime, QString::number(time));
}
