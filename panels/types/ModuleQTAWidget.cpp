#include "panels/types/ModuleQTAWidget.h"

#include "library/TavikModuleQTA.h"
#include "panels/common/Fields.h"
#include "panels/common/MessageBoxes.h"
#include "panels/types/RowValues.h"
#include "ui_ModuleQTAWidget.h"

namespace {

const QLatin1String boxTitle("QTA Module");

} // namespace

ModuleQTAWidget::ModuleQTAWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleQTAWidget>()) {
    ui->setupUi(this);
    FitToRows(ui->listRefActions);
    FitToRows(ui->listQuadModes);
    FitToRows(ui->listEncoders);
}

ModuleQTAWidget::~ModuleQTAWidget() = default;

void ModuleQTAWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleQTA* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    ShowRefAction();
    ShowQuadratureMode();
    ShowEncoder();
    ui->sbPreset->setValue(module->PresetInCounts());
}

void ModuleQTAWidget::SetEnabled(bool enable) {
    ui->btnSetRefAction->setEnabled(enable);
    ui->btnSetQuadMode->setEnabled(enable);
    ui->btnSetEncoder->setEnabled(enable);
    ui->btnPresetinCounts->setEnabled(enable);
}

void ModuleQTAWidget::on_btnSetRefAction_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        module->setRefAction(CurrentRowAs<TavikLibrary::eRefAction>(ui->listRefActions));
        ShowRefAction();
    });
}

void ModuleQTAWidget::on_btnSetQuadMode_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        module->setQuadratureMode(CurrentRowAs<TavikLibrary::eQuadratureMode>(ui->listQuadModes));
        ShowQuadratureMode();
    });
}

void ModuleQTAWidget::on_btnSetEncoder_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        module->setQtaInterfaceType(CurrentRowAs<TavikLibrary::eEncoderInterfaceType>(ui->listEncoders));
        ShowEncoder();
    });
}

void ModuleQTAWidget::on_btnPresetinCounts_clicked() {
    Guarded(this, boxTitle, QString(), [this] { module->setPresetInCounts(ui->sbPreset->value()); });
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
