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
    ShowInField(ui->tbPNXStatus, module->IsMastered() ? QStringLiteral("Mastered") : QStringLiteral("Not Mastered"));
}

void ModulePNXWidget::UpdateModuleInformation() {
    errors.Try([this] {
        module->UpdateInfo();
        ShowInformation();
        mainWindow->RedisplayModuleInformation();
    });
}

bool ModulePNXWidget::RefreshFromModule() {
    const QPointer<TypePanel> panel(this);
    const double length = ReadLength();
    if (!IsOpen(panel)) {
        return false;
    }
    ShowInField(ui->tbPressure, PressureText(module->PressureReading()));
    const TavikLibrary::ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    const bool asPressure = module->OutputReadingAsPressure();
    ShowInField(ui->tbPNXReading,
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
    const QPointer<TypePanel> panel(this);
    UpdateModuleInformation();
    return IsOpen(panel) ? module->ReadInUnits() : 0.0;
}

template <class Dialog>
bool ModulePNXWidget::RunDialog() {
    ModalDialog<Dialog> dialog(module, this);
    const QPointer<TypePanel> panel(this);
    dialog.Run();
    return IsOpen(panel) && !mainWindow->IsClosing();
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
