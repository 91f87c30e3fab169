#include "panels/types/ModuleBWWidget.h"

#include "library/TavikModuleLaser.h"
#include "panels/common/MessageBoxes.h"
#include "ui_ModuleBWWidget.h"

namespace {

const QLatin1String boxTitle("BW Module");

} // namespace

ModuleBWWidget::ModuleBWWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleBWWidget>()) {
    ui->setupUi(this);
}

ModuleBWWidget::~ModuleBWWidget() = default;

void ModuleBWWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                               TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleBW* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    ui->cbBeamOn->setChecked(module->BeamOn());
}

void ModuleBWWidget::SetEnabled(bool enable) {
    ui->cbBeamOn->setEnabled(enable);
}

void ModuleBWWidget::on_cbBeamOn_clicked() {
    Guarded(this, boxTitle, QString(), [this] { module->setBeamOn(ui->cbBeamOn->isChecked()); });
}
