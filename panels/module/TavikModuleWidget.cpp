#include "panels/module/TavikModuleWidget.h"

#include "library/TavikException.h"
#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleHVX.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModulePNX.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikModuleRLK.h"
#include "library/TavikModuleRN.h"
#include "panels/airgauge/ModulePNXWidget.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"
#include "panels/common/WaitCursor.h"
#include "panels/types/ModuleBWKWidget.h"
#include "panels/types/ModuleBWRWidget.h"
#include "panels/types/ModuleBWWidget.h"
#include "panels/types/ModuleHVXWidget.h"
#include "panels/types/ModuleKXwidget.h"
#include "panels/types/ModuleQTAWidget.h"
#include "panels/types/ModuleRNWidget.h"
#include "panels/types/ModuleSWAX2Widget.h"
#include "panels/types/ModuleSWAXWidget.h"
#include "panels/wireless/moduleRLKWidget.h"
#include "ui_TavikModuleWidget.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopeGuard>

#include <chrono>

namespace {

/// The code of the exception that a module without a probe identity throws.
constexpr int notAvailableCode = 255;

/// How long readings are counted against the clock.
constexpr int timedSeconds = 5;

QString TrueOrFalse(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

/// Kinds of modules whose panel shows something that changes with every reading.
bool PanelFollowsReadings(TavikLibrary::eModuleType type) {
    return type == TavikLibrary::eModuleType::SWAX || type == TavikLibrary::eModuleType::SWAX2 ||
           type == TavikLibrary::eModuleType::PNX;
}

} // namespace

TavikModuleWidget::TavikModuleWidget(QWidget* parent)
    : ModePage(parent, QStringLiteral("Reading Error"), QString()), ui(std::make_unique<Ui::TavikModuleWidget>()) {
    ui->setupUi(this);
}

TavikModuleWidget::~TavikModuleWidget() = default;

void TavikModuleWidget::Clear() {
    CloseTypePanels();
    for (QLineEdit* field : {ui->tbTavikIdentity, ui->tbModuleType, ui->tbDeviceType, ui->tbSoftwareVersion,
                             ui->tbProbeID, ui->tbRange, ui->tbOffset, ui->tbStroke, ui->tbCPUOM, ui->tbUOM,
                             ui->tbReading, ui->tbStatus, ui->tbErrorCode, ui->tbErrorText}) {
        ShowInField(field, QString());
    }
    for (QLabel* label :
         {ui->lblCanDoBuffered, ui->lblCanDoBufferedMaster, ui->lblCanDoDynamic, ui->lblCanDoDynamic2,
          ui->lblCanDoDynamicMaster, ui->lblCanDoDifference, ui->lblCanDoReadburst, ui->lblCanDoSpeedLow,
          ui->lblCanDoSpeedHigh, ui->lblCanDoSpeedUltraHigh, ui->lblCanDoHotswap}) {
        label->clear();
    }
}

bool TavikModuleWidget::Fill() {
    ShowIdentity();
    ShowProbeIdentity();
    ShowCapabilities();
    OpenTypePanels();
    ShowRange();
    ReadAndShowStatus();
    // A reading must not be taken for another module's; a module of another identity may stand in the same object.
    const QString identity = ui->tbTavikIdentity->text();
    if (module == moduleOfReading && identity == identityOfReading) {
        ShowInField(ui->tbReading, lastReading);
    }
    moduleOfReading = module;
    identityOfReading = identity;
    for (QWidget* command : Commands()) {
        command->setEnabled(true);
    }
    return true;
}

std::vector<QWidget*> TavikModuleWidget::Commands() const {
    return {ui->gbReadIn, ui->btnRead, ui->btnStartContinuous, ui->btnTimeReadings, ui->btnGetStatus};
}

void TavikModuleWidget::setCommandsEnabled(bool enable) {
    ModePage::setCommandsEnabled(enable);
    for (const PlacedPanel& placed : typePanels) {
        placed.panel->SetEnabled(enable);
    }
}

void TavikModuleWidget::RedisplayInformation() {
    if (!IsFilled()) {
        return;
    }
    ShowIdentity();
    ShowProbeIdentity();
    ShowCapabilities();
    ShowRange();
}

void TavikModuleWidget::Stop() noexcept {
    if (run != nullptr) {
        run->RequestStop();
    }
}

void TavikModuleWidget::Leave() {
    Stop();
    CloseTypePanels();
}

bool TavikModuleWidget::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        PlaceTypePanels();
    }
    return handled;
}

void TavikModuleWidget::ShowIdentity() {
    ShowInField(ui->tbTavikIdentity, FromLibrary(module->Identity()));
    ShowInField(ui->tbModuleType, FromLibrary(TavikLibrary::eModuleType_ToString(module->ModuleType())));
    ShowInField(ui->tbDeviceType, FromLibrary(module->DeviceType()));
    ShowInField(ui->tbSoftwareVersion, FromLibrary(module->SoftwareVersion()));
}

void TavikModuleWidget::ShowProbeIdentity() {
    try {
        ShowInField(ui->tbProbeID, FromLibrary(module->ProbeIdentity()));
    } catch (const TavikLibrary::TavikException& error) {
        if (error.errorCode != notAvailableCode) {
            throw TavikLibrary::TavikException(error);
        }
        ShowInField(ui->tbProbeID, QStringLiteral("Not Available"));
    }
}

void TavikModuleWidget::ShowCapabilities() {
    ui->lblCanDoBuffered->setText(TrueOrFalse(module->BufferedCapable()));
    ui->lblCanDoBufferedMaster->setText(TrueOrFalse(module->BufferedMasterCapable()));
    ui->lblCanDoDynamic->setText(TrueOrFalse(module->DynamicCapable()));
    ui->lblCanDoDynamic2->setText(TrueOrFalse(module->Dynamic2Capable()));
    ui->lblCanDoDynamicMaster->setText(TrueOrFalse(module->DynamicMasterCapable()));
    ui->lblCanDoDifference->setText(TrueOrFalse(module->DifferenceCapable()));
    ui->lblCanDoReadburst->setText(TrueOrFalse(module->ReadBurstCapable()));
    ui->lblCanDoSpeedLow->setText(TrueOrFalse(module->SpeedAvailable(TavikLibrary::eNetSpeed::Low)));
    ui->lblCanDoSpeedHigh->setText(TrueOrFalse(module->SpeedAvailable(TavikLibrary::eNetSpeed::High)));
    ui->lblCanDoSpeedUltraHigh->setText(TrueOrFalse(module->SpeedAvailable(TavikLibrary::eNetSpeed::UltraHigh)));
    ui->lblCanDoHotswap->setText(TrueOrFalse(module->HotSwappable()));
}

void TavikModuleWidget::ShowRange() {
    const double offset = module->Offset();
    const double stroke = module->Stroke();
    const QString strokeText = FormatUnits(stroke);
    const bool fromZero = offset == 0.0;
    ShowInField(ui->tbRange, fromZero ? strokeText : FormatUnits(offset) + QStringLiteral(" - ") + strokeText);
    ui->tbOffset->setText(FormatUnits(offset));
    ui->tbStroke->setText(strokeText);
    ui->tbCPUOM->setText(FormatUnits(module->CountsPerUnitOfMeasure()));
    ShowInField(ui->tbUOM, FromLibrary(module->UnitsOfMeasure()));
}

void TavikModuleWidget::ShowReading(const QString& text) {
    lastReading = text;
    ShowInField(ui->tbReading, text);
}

void TavikModuleWidget::ReadModule() {
    if (ui->radioUnits->isChecked()) {
        const QString value = FormatUnits(module->ReadInUnits());
        ShowReading(value + QLatin1Char(' ') + FromLibrary(module->UnitsOfMeasure()));
    } else {
        ShowReading(QString::number(module->ReadInCounts()));
    }
    if (PanelFollowsReadings(module->ModuleType())) {
        for (const PlacedPanel& placed : typePanels) {
            placed.panel->RefreshFromModule();
        }
    }
}

void TavikModuleWidget::on_btnRead_clicked() {
    if (!MayAct()) {
        return;
    }
    try {
        ReadModule();
    } catch (const std::runtime_error& error) {
        ShowReading(QString());
        errors.Show(error);
    }
}

void TavikModuleWidget::on_btnStartContinuous_clicked() {
    if (run != nullptr || !MayAct()) {
        return;
    }
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("continuous reading"), ui->btnStopContinuous);
    const auto over = qScopeGuard([this] { run.reset(); });
    errors.Try([this] { ReadContinuously(); });
}

void TavikModuleWidget::ReadContinuously() {
    for (int passes = 1; run->MayGoOn(); ++passes) {
        ReadModule();
        ReadAndShowStatus();
        WaitBetweenReadings();
        const double perSecond = passes * 1000.0 / static_cast<double>(qMax<qint64>(1, run->activity.Milliseconds()));
        run->activity.Show(QStringLiteral("Reading continuously: %1 passes, %2 readings per second")
                               .arg(passes)
                               .arg(perSecond, 0, 'f', 1));
    }
}

void TavikModuleWidget::WaitBetweenReadings() {
    constexpr int steps = 100;
    constexpr unsigned int stepMicroseconds = 1000;
    for (int step = 0; step < steps && run->MayGoOn(); ++step) {
        QCoreApplication::processEvents();
        SleepMicroseconds(stepMicroseconds);
    }
}

void TavikModuleWidget::on_btnStopContinuous_clicked() {
    Stop();
}

void TavikModuleWidget::on_btnTimeReadings_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        const int readings = CountReadings();
        ShowInformationBox(this, QStringLiteral("Reading Timer"),
                           QString::number(readings / timedSeconds) + QStringLiteral(" readings per second."));
    });
}

int TavikModuleWidget::CountReadings() {
    using Clock = std::chrono::system_clock;
    const WaitCursor waitCursor;
    SleepMicroseconds(500);
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(timedSeconds);
    int readings = 0;
    while (Clock::now() < deadline) {
        module->ReadInCounts();
        ++readings;
    }
    return readings;
}

void TavikModuleWidget::on_btnGetStatus_clicked() {
    if (MayAct()) {
        LastResort::Run([this] { ReadAndShowStatus(); });
    }
}

void TavikModuleWidget::ReadAndShowStatus() {
    TavikLibrary::TavikModuleStatus* status = module->Status();
    status->UpdateStatus();
    ui->tbStatus->setText(QString::number(status->Status()));
    ui->tbErrorCode->setText(QString::number(status->ErrorCode()));
    ShowInField(ui->tbErrorText, FromLibrary(status->ErrorString()));
}

void TavikModuleWidget::CloseTypePanels() {
    for (const PlacedPanel& placed : typePanels) {
        placed.panel->close();
        // The panel may be the one whose button led here.
        placed.panel->deleteLater();
    }
    typePanels.clear();
    PlaceTypePanels();
}

void TavikModuleWidget::OpenTypePanels() {
    if (auto* probe = dynamic_cast<TavikLibrary::TavikModuleKX*>(module)) {
        OpenProbePanels(probe);
        return;
    }
    // The first that fits is the only one.
    OpenTypePanelFor<ModuleHVXWidget, TavikLibrary::TavikModuleHVX>() ||
        OpenTypePanelFor<ModuleQTAWidget, TavikLibrary::TavikModuleQTA>() ||
        OpenTypePanelFor<ModuleRNWidget, TavikLibrary::TavikModuleRN>() ||
        OpenTypePanelFor<ModuleSWAXWidget, TavikLibrary::TavikModuleSWAX>() ||
        OpenTypePanelFor<ModuleSWAX2Widget, TavikLibrary::TavikModuleSWAX2>() ||
        OpenTypePanelFor<moduleRLKWidget, TavikLibrary::TavikModuleRLK>();
}

void TavikModuleWidget::OpenProbePanels(TavikLibrary::TavikModuleKX* probe) {
    OpenTypePanel<ModuleKXwidget>(Place::AtReference, probe);
    if (auto* airGauge = dynamic_cast<TavikLibrary::TavikModulePNX*>(probe)) {
        OpenTypePanel<ModulePNXWidget>(Place::RightOfProbe, airGauge);
    } else if (auto* laser = dynamic_cast<TavikLibrary::TavikModuleBW*>(probe)) {
        OpenLaserPanels(laser);
    }
}

void TavikModuleWidget::OpenLaserPanels(TavikLibrary::TavikModuleBW* laser) {
    OpenTypePanel<ModuleBWWidget>(Place::BelowProbe, laser);
    if (auto* filtered = dynamic_cast<TavikLibrary::TavikModuleBWR*>(laser)) {
        OpenTypePanel<ModuleBWRWidget>(Place::RightOfProbe, filtered);
    } else if (auto* rated = dynamic_cast<TavikLibrary::TavikModuleBWK*>(laser)) {
        OpenTypePanel<ModuleBWKWidget>(Place::RightOfProbe, rated);
    }
}

template <class Panel, class Module>
bool TavikModuleWidget::OpenTypePanelFor() {
    auto* typedModule = dynamic_cast<Module*>(module);
    if (typedModule == nullptr) {
        return false;
    }
    OpenTypePanel<Panel>(Place::AtReference, typedModule);
    return true;
}

template <class Panel, class Module>
void TavikModuleWidget::OpenTypePanel(Place place, Module* typedModule) {
    auto* panel = new Panel(this);
    typePanels.push_back({panel, place});
    PlaceTypePanels();
    panel->show();
    panel->SetModule(mainWindow, server, network, typedModule);
    if (mainWindow->ControlsAreHeld()) {
        panel->SetEnabled(false);
    }
}

void TavikModuleWidget::PlaceTypePanels() {
    // The page may not have been shown yet, so its layout may still be due.
    layout()->activate();
    const QMargins margins = layout()->contentsMargins();
    QSize needed = layout()->totalMinimumSize();
    for (const PlacedPanel& placed : typePanels) {
        placed.panel->resize(placed.panel->sizeHint().expandedTo(placed.panel->minimumSizeHint()));
        placed.panel->move(PositionOf(placed.place));
        const QRect area = placed.panel->geometry();
        needed = needed.expandedTo(
            QSize(area.x() + area.width() + margins.right(), area.y() + area.height() + margins.bottom()));
    }
    // The panels are not in the layout; this makes the page scroll where the screen has no room for them.
    setMinimumSize(needed);
}

QPoint TavikModuleWidget::PositionOf(Place place) const {
    const QRect group = ui->gbReading->geometry();
    const QPoint reference(group.x() + group.width(), group.y());
    if (place == Place::AtReference) {
        return reference;
    }
    const QSize probe = typePanels.front().panel->size();
    return reference + (place == Place::RightOfProbe ? QPoint(probe.width(), 0) : QPoint(0, probe.height()));
}
