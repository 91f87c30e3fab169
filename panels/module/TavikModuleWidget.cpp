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
#include "panels/common/BlockingOperation.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"
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
#include <QPointer>
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
    ClearInformation();
    for (QLineEdit* field : {ui->tbReading, ui->tbStatus, ui->tbErrorCode, ui->tbErrorText}) {
        ShowInField(field, QString());
    }
}

void TavikModuleWidget::ClearInformation() {
    for (QLineEdit* field : {ui->tbTavikIdentity, ui->tbModuleType, ui->tbDeviceType, ui->tbSoftwareVersion,
                             ui->tbProbeID, ui->tbRange, ui->tbOffset, ui->tbStroke, ui->tbCPUOM, ui->tbUOM}) {
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
    const TavikLibrary::TavikModule* filledWith = module;
    OpenTypePanels();
    if (module != filledWith) {
        // Another module was selected behind a box that a panel opened.
        return IsFilled();
    }
    ShowRange();
    ReadAndShowStatus();
    // A reading must not be taken for another module's; a module of another identity may stand in the same object.
    const QString identity = ui->tbTavikIdentity->text();
    const bool sameModule = module == moduleOfReading && identity == identityOfReading;
    ShowReading(sameModule ? lastReading : QString());
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
    ClearInformation();
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
    ShowInField(ui->tbOffset, FormatUnits(offset));
    ShowInField(ui->tbStroke, strokeText);
    ShowInField(ui->tbCPUOM, FormatUnits(module->CountsPerUnitOfMeasure()));
    ShowInField(ui->tbUOM, FromLibrary(module->UnitsOfMeasure()));
}

void TavikModuleWidget::ShowReading(const QString& text) {
    lastReading = text;
    ShowInField(ui->tbReading, text);
}

bool TavikModuleWidget::ReadModule() {
    if (ui->radioUnits->isChecked()) {
        const QString value = FormatUnits(module->ReadInUnits());
        ShowReading(value + QLatin1Char(' ') + FromLibrary(module->UnitsOfMeasure()));
    } else {
        ShowReading(QString::number(module->ReadInCounts()));
    }
    // A box that the refresh opens may outlive the panel and the page's module.
    return !PanelFollowsReadings(module->ModuleType()) || typePanels.empty() ||
           typePanels.back().panel->RefreshFromModule();
}

void TavikModuleWidget::on_btnRead_clicked() {
    if (!MayAct()) {
        return;
    }
    errors.Try([this] {
        auto failed = qScopeGuard([this] { ShowReading(QString()); });
        ReadModule();
        failed.dismiss();
    });
}

void TavikModuleWidget::on_btnStartContinuous_clicked() {
    if (!MayAct()) {
        return;
    }
    if (run != nullptr) {
        run->GoOn();
        return;
    }
    run = std::make_unique<Run>(*mainWindow, QStringLiteral("continuous reading"), ui->btnStopContinuous);
    const auto over = qScopeGuard([this] { run.reset(); });
    errors.Try([this] { ReadContinuously(); });
}

void TavikModuleWidget::ReadContinuously() {
    constexpr int mostFailuresInARow = 3;
    int failuresInARow = 0;
    for (int passes = 1; run->MayGoOn(); ++passes) {
        const TavikLibrary::TavikModule* moduleOfPass = module;
        failuresInARow = ReadModule() ? 0 : failuresInARow + 1;
        if (failuresInARow == mostFailuresInARow) {
            run->RequestStop();
        }
        if (!IsFilled() || module != moduleOfPass) {
            return;
        }
        ReadAndShowStatus();
        WaitBetweenReadings();
        ShowPasses(passes);
    }
}

void TavikModuleWidget::ShowPasses(int passes) {
    const QString text = passes == 1 ? QStringLiteral("1 pass") : QStringLiteral("%1 passes").arg(passes);
    const double perSecond = passes * 1000.0 / static_cast<double>(qMax<qint64>(1, run->activity.Milliseconds()));
    run->activity.Show(
        QStringLiteral("Reading continuously: %1, %2 readings per second").arg(text).arg(perSecond, 0, 'f', 1));
    run->activity.SetOutcome(QStringLiteral("Read continuously: ") + text + QStringLiteral(", %1 s"));
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
    const BlockingOperation blocking(mainWindow, QStringLiteral("Counting readings for %1 s").arg(timedSeconds));
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
    ShowInField(ui->tbStatus, QString::number(status->Status()));
    ShowInField(ui->tbErrorCode, QString::number(status->ErrorCode()));
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
    if (OpenTypePanel<ModuleKXwidget>(Place::AtReference)) {
        OpenTypePanel<ModulePNXWidget>(Place::RightOfProbe) ||
            (OpenTypePanel<ModuleBWWidget>(Place::BelowProbe) && (OpenTypePanel<ModuleBWRWidget>(Place::RightOfProbe) ||
                                                                  OpenTypePanel<ModuleBWKWidget>(Place::RightOfProbe)));
        return;
    }
    // The first that fits is the only one.
    OpenTypePanel<ModuleHVXWidget>(Place::AtReference) || OpenTypePanel<ModuleQTAWidget>(Place::AtReference) ||
        OpenTypePanel<ModuleRNWidget>(Place::AtReference) || OpenTypePanel<ModuleSWAXWidget>(Place::AtReference) ||
        OpenTypePanel<ModuleSWAX2Widget>(Place::AtReference) || OpenTypePanel<moduleRLKWidget>(Place::AtReference);
}

template <class Panel>
bool TavikModuleWidget::OpenTypePanel(Place place) {
    auto* typedModule = dynamic_cast<typename Panel::Module*>(module);
    if (typedModule == nullptr) {
        return false;
    }
    auto* panel = new Panel(this);
    typePanels.push_back({panel, place});
    PlaceTypePanels();
    panel->show();
    const QPointer<TypePanel> opened(panel);
    panel->SetModule(mainWindow, server, network, typedModule);
    if (opened != nullptr && mainWindow->ControlsAreHeld()) {
        panel->SetEnabled(false);
    }
    return true;
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
