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
#include <QElapsedTimer>
#include <QEvent>
#include <QScopeGuard>

#include <chrono>

namespace {

const QLatin1String readingErrorTitle("Reading Error");

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

TavikModuleWidget::TavikModuleWidget(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::TavikModuleWidget>()) {
    ui->setupUi(this);
}

TavikModuleWidget::~TavikModuleWidget() = default;

void TavikModuleWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                  TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModule* newModule) {
    if (newModule != moduleOfReading) {
        // A reading must not be taken for another module's.
        ui->tbReading->clear();
    }
    moduleOfReading = newModule;
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    // Before anything can fail: the panels of the previous module would go on acting on that one.
    CloseTypePanels();
    ShowIdentity();
    ShowProbeIdentity();
    ShowCapabilities();
    OpenTypePanels();
    ShowRange();
    ReadAndShowStatus();
}

void TavikModuleWidget::SetEnabled(bool enable) {
    enabled = enable;
    ui->gbReadIn->setEnabled(enable);
    ui->btnRead->setEnabled(enable);
    ui->btnStartContinuous->setEnabled(enable);
    ui->btnTimeReadings->setEnabled(enable);
    ui->btnGetStatus->setEnabled(enable);
    for (const PlacedPanel& placed : typePanels) {
        placed.panel->SetEnabled(enable);
    }
}

void TavikModuleWidget::RedisplayInformation() {
    if (module == nullptr) {
        return;
    }
    ShowIdentity();
    ShowProbeIdentity();
    ShowCapabilities();
    ShowRange();
}

void TavikModuleWidget::RaiseStopFlag() {
    stopContinuous = true;
}

void TavikModuleWidget::ForgetModule() {
    RaiseStopFlag();
    CloseTypePanels();
    module = nullptr;
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

void TavikModuleWidget::ReadModule() {
    if (ui->radioUnits->isChecked()) {
        const QString value = FormatUnits(module->ReadInUnits());
        ui->tbReading->setText(value + QLatin1Char(' ') + FromLibrary(module->UnitsOfMeasure()));
    } else {
        ui->tbReading->setText(QString::number(module->ReadInCounts()));
    }
    if (PanelFollowsReadings(module->ModuleType())) {
        for (const PlacedPanel& placed : typePanels) {
            placed.panel->RefreshFromModule();
        }
    }
}

/// A button's key clicks it a moment later, when the page may be gone or the window closed.
bool TavikModuleWidget::HasModule() const {
    return module != nullptr && !mainWindow->IsClosing();
}

void TavikModuleWidget::on_btnRead_clicked() {
    if (!HasModule()) {
        return;
    }
    try {
        ReadModule();
    } catch (const std::runtime_error& error) {
        ui->tbReading->clear();
        ShowErrorBox(this, readingErrorTitle, FromLibrary(error.what()));
    }
}

void TavikModuleWidget::on_btnStartContinuous_clicked() {
    if (readingContinuously || !HasModule()) {
        return;
    }
    readingContinuously = true;
    const auto idleAgain = qScopeGuard([this] {
        readingContinuously = false;
        ui->btnStopContinuous->setEnabled(false);
        mainWindow->ShowActivity(QString());
    });

    mainWindow->DisableControls();
    ui->btnStopContinuous->setEnabled(true);
    stopContinuous = false;
    ReadContinuously();
    if (!mainWindow->IsClosing()) {
        mainWindow->EnableControls();
    }
}

void TavikModuleWidget::ReadContinuously() {
    QElapsedTimer sinceStart;
    sinceStart.start();
    for (int passes = 1; !stopContinuous; ++passes) {
        try {
            ReadModule();
            ReadAndShowStatus();
        } catch (const std::runtime_error& error) {
            RaiseStopFlag();
            ShowErrorBox(this, readingErrorTitle, FromLibrary(error.what()));
            return;
        }
        WaitBetweenReadings();
        if (!stopContinuous) {
            const double perSecond = passes * 1000.0 / static_cast<double>(qMax<qint64>(1, sinceStart.elapsed()));
            mainWindow->ShowActivity(QStringLiteral("Reading continuously: %1 passes, %2 readings per second")
                                         .arg(passes)
                                         .arg(perSecond, 0, 'f', 1));
        }
    }
}

void TavikModuleWidget::WaitBetweenReadings() {
    constexpr int steps = 100;
    constexpr unsigned int stepMicroseconds = 1000;
    for (int step = 0; step < steps && !stopContinuous; ++step) {
        QCoreApplication::processEvents();
        SleepMicroseconds(stepMicroseconds);
    }
}

void TavikModuleWidget::on_btnStopContinuous_clicked() {
    RaiseStopFlag();
}

void TavikModuleWidget::on_btnTimeReadings_clicked() {
    if (!HasModule()) {
        return;
    }
    Guarded(this, readingErrorTitle, QString(), [this] {
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
    if (HasModule()) {
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
    panel->SetEnabled(enabled);
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
