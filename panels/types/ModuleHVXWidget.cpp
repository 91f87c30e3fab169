#include "panels/types/ModuleHVXWidget.h"

#include "library/TavikModuleHVX.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "panels/types/RowValues.h"
#include "ui_ModuleHVXWidget.h"

using TavikLibrary::eHvxReadMode;

namespace {

const QLatin1String boxTitle("HVX Module");

} // namespace

ModuleHVXWidget::ModuleHVXWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleHVXWidget>()) {
    ui->setupUi(this);
    FitToRows(ui->listAvailableReadMode);
}

ModuleHVXWidget::~ModuleHVXWidget() = default;

void ModuleHVXWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleHVX* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    const eHvxReadMode mode = module->ReadMode();
    ShowReadMode(mode);
    SelectRowOf(ui->listAvailableReadMode, mode);
}

void ModuleHVXWidget::SetEnabled(bool enable) {
    ui->btnNewReadingReady->setEnabled(enable);
    ui->btnSample->setEnabled(enable);
    ui->btnSetReadMode->setEnabled(enable);
    ui->btnUpdateReadingInfo->setEnabled(enable);
}

void ModuleHVXWidget::on_btnSetReadMode_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        const auto mode = CurrentRowAs<eHvxReadMode>(ui->listAvailableReadMode);
        module->setReadMode(mode);
        ShowReadMode(mode);
    });
}

void ModuleHVXWidget::on_btnUpdateReadingInfo_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        module->UpdateInfo();
        mainWindow->RedisplayModuleInformation();
    });
}

void ModuleHVXWidget::on_btnSample_clicked() {
    Guarded(this, boxTitle, QString(), [this] { module->SampleReading(); });
}

void ModuleHVXWidget::on_btnNewReadingReady_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        const bool ready = module->NewReadingReady();
        ShowInformationBox(this, boxTitle,
                           ready ? QStringLiteral("Reading Available") : QStringLiteral("Reading Not Available"));
    });
}

void ModuleHVXWidget::ShowReadMode(eHvxReadMode mode) {
    ShowInField(ui->tbCurrentReadMode, FromLibrary(TavikLibrary::eHvxReadMode_ToString(mode)));
}
