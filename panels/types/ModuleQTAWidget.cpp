#include "panels/types/ModuleQTAWidget.h"

#include "library/TavikModuleQTA.h"
#include "panels/common/Fields.h"
#include "panels/types/RowValues.h"
#include "ui_ModuleQTAWidget.h"

ModuleQTAWidget::ModuleQTAWidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("QTA Module")) {
    ui->setupUi(this);
    FitToRows(ui->listRefActions);
    FitToRows(ui->listQuadModes);
    FitToRows(ui->listEncoders);
}

void ModuleQTAWidget::Fill() {
    ShowRefAction();
    ShowQuadratureMode();
    ShowEncoder();
    ui->sbPreset->setValue(module->PresetInCounts());
}

std::vector<QWidget*> ModuleQTAWidget::Commands() const {
    return {ui->btnSetRefAction, ui->btnSetQuadMode, ui->btnSetEncoder, ui->btnPresetinCounts};
}

void ModuleQTAWidget::on_btnSetRefAction_clicked() {
    errors.Try([this] {
        module->setRefAction(CurrentRowAs<TavikLibrary::eRefAction>(ui->listRefActions));
        ShowRefAction();
    });
}

void ModuleQTAWidget::on_btnSetQuadMode_clicked() {
    errors.Try([this] {
        module->setQuadratureMode(CurrentRowAs<TavikLibrary::eQuadratureMode>(ui->listQuadModes));
        ShowQuadratureMode();
    });
}

void ModuleQTAWidget::on_btnSetEncoder_clicked() {
    errors.Try([this] {
        module->setQtaInterfaceType(CurrentRowAs<TavikLibrary::eEncoderInterfaceType>(ui->listEncoders));
        ShowEncoder();
    });
}

void ModuleQTAWidget::on_btnPresetinCounts_clicked() {
    errors.Try([this] { module->setPresetInCounts(ui->sbPreset->value()); });
}

void ModuleQTAWidget::ShowRefAction() {
    ShowInField(ui->tbCurrentRefAction, FromLibrary(TavikLibrary::eRefAction_ToString(module->RefAction())));
}

void ModuleQTAWidget::ShowQuadratureMode() {
    ShowInField(ui->tbCurrentQuadMode, FromLibrary(TavikLibrary::eQuadratureMode_ToString(module->QuadratureMode())));
}

void ModuleQTAWidget::ShowEncoder() {
    ShowInField(ui->tbCurrentEncoder,
                FromLibrary(TavikLibrary::eEncoderInterfaceType_ToString(module->QtaInterfaceType())));
}
