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

ModuleHVXWidget::ModuleHVXWidget(QWidget* parent) : TypePanelWithForm(parent, boxTitle) {
    ui->setupUi(this);
    FitToRows(ui->listAvailableReadMode);
}

void ModuleHVXWidget::Fill() {
    const eHvxReadMode mode = module->ReadMode();
    ShowReadMode(mode);
    SelectRowOf(ui->listAvailableReadMode, mode);
}

std::vector<QWidget*> ModuleHVXWidget::Commands() const {
    return {ui->btnNewReadingReady, ui->btnSample, ui->btnSetReadMode, ui->btnUpdateReadingInfo};
}

void ModuleHVXWidget::on_btnSetReadMode_clicked() {
    errors.Try([this] {
        const auto mode = CurrentRowAs<eHvxReadMode>(ui->listAvailableReadMode);
        module->setReadMode(mode);
        ShowReadMode(mode);
    });
}

void ModuleHVXWidget::on_btnUpdateReadingInfo_clicked() {
    errors.Try([this] {
        module->UpdateInfo();
        mainWindow->RedisplayModuleInformation();
    });
}

void ModuleHVXWidget::on_btnSample_clicked() {
    errors.Try([this] { module->SampleReading(); });
}

void ModuleHVXWidget::on_btnNewReadingReady_clicked() {
    errors.Try([this] {
        const bool ready = module->NewReadingReady();
        ShowInformationBox(this, boxTitle,
                           ready ? QStringLiteral("Reading Available") : QStringLiteral("Reading Not Available"));
    });
}

void ModuleHVXWidget::ShowReadMode(eHvxReadMode mode) {
    ShowInField(ui->tbCurrentReadMode, FromLibrary(TavikLibrary::eHvxReadMode_ToString(mode)));
}
