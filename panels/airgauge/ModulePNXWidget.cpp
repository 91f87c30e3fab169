#include "panels/airgauge/ModulePNXWidget.h"

#include "library/TavikModulePNX.h"
#include "panels/airgauge/LengthUnits.h"
#include "panels/airgauge/PNXConfigurationDialog.h"
#include "panels/airgauge/PNXMaster.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/ModalDialog.h"
#include "panels/common/WaitCursor.h"
#include "ui_ModulePNXWidget.h"

#include <QPointer>

namespace {

/// How a reading's failure begins after something was changed at the air gauge itself.
const QLatin1String informationIsOld("Module Information needs reading.");

/// The pressure sensor's 14-bit counts stand for 0 to 30 psi.
double PressureOf(int counts) {
    return counts / 16383.0 * 30.0;
}

} // namespace

ModulePNXWidget::ModulePNXWidget(QWidget* parent)
    : TypePanelOf(parent, QStringLiteral("PNX Module")), ui(std::make_unique<Ui::ModulePNXWidget>()) {
    ui->setupUi(this);
}

ModulePNXWidget::~ModulePNXWidget() = default;

void ModulePNXWidget::Fill() {
    ShowInformation();
    RefreshFromModule();
}

std::vector<QWidget*> ModulePNXWidget::Commands() const {
    return {ui->btnMaster, ui->btnConfigure, ui->btnUpdateModuleInfo};
}

void ModulePNXWidget::ShowInformation() {
    const WaitCursor waitCursor;
    const TavikLibrary::ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    ShowInField(ui->tbMasterA, LengthText(module->MasterMinReadingInUOM(), unit));
    ShowInField(ui->tbMasterB, LengthText(module->MasterMaxReadingInUOM(), unit));
    ShowInField(ui->tbLimitHigh, LengthText(module->LimitHigh(), unit));
    ShowInField(ui->tbLimitLow, LengthText(module->LimitLow(), unit));
    ShowInField(ui->tbStatus, module->IsMastered() ? QStringLiteral("Mastered") : QStringLiteral("Not Mastered"));
}

void ModulePNXWidget::UpdateModuleInformation() {
    errors.Try([this] {
        module->UpdateInfo();
        ShowInformation();
        mainWindow->RedisplayModuleInformation();
    });
}

bool ModulePNXWidget::RefreshFromModule() {
    const double length = ReadLength();
    ShowInField(ui->tbPressure, PressureText(module->PressureReading()));
    const TavikLibrary::ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    const bool asPressure = module->OutputReadingAsPressure();
    ShowInField(ui->tbReading,
                asPressure ? PressureText(PressureOf(module->ReadInCounts())) : LengthText(length, unit));
    return true;
}

double ModulePNXWidget::ReadLength() {
    try {
        return module->ReadInUnits();
    } catch (const std::runtime_error& error) {
        if (!FromLibrary(error.what()).startsWith(informationIsOld)) {
            return 0.0;
        }
    }
    UpdateModuleInformation();
    return module->ReadInUnits();
}

template <class Dialog>
bool ModulePNXWidget::RunDialog() {
    ModalDialog<Dialog> dialog(module, this);
    const QPointer<ModulePNXWidget> panel(this);
    dialog.Run();
    return panel != nullptr && !mainWindow->IsClosing();
}

void ModulePNXWidget::on_btnMaster_clicked() {
    if (RunDialog<PNXMaster>()) {
        UpdateModuleInformation();
    }
}

void ModulePNXWidget::on_btnConfigure_clicked() {
    errors.Try([this] {
        if (RunDialog<PNXConfigurationDialog>()) {
            UpdateModuleInformation();
            RefreshFromModule();
        }
    });
}

void ModulePNXWidget::on_btnUpdateModuleInfo_clicked() {
    UpdateModuleInformation();
}
