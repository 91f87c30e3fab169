#include "panels/airgauge/PNXMaster.h"

#include "panels/airgauge/LengthUnits.h"
#include "panels/common/Activity.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Wait.h"
#include "ui_PNXMaster.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>
#include <QScopeGuard>

#include <cmath>
#include <utility>

namespace {

const QLatin1String boxTitle("PNX Mastering");

constexpr int firstStage = 1;
constexpr int livePressureStage = 3;
constexpr int summaryStage = 5;

constexpr double greatestDistance = 65.0; ///< between the two masters, in mm
/// Far below what can be entered: a distance that is only a rounding above the greatest one passes.
constexpr double roundingOfDistance = 1e-9;

} // namespace

PNXMaster::PNXMaster(TavikLibrary::TavikModulePNX* newModule, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::PNXMaster>()), module(newModule) {
    ui->setupUi(this);
    errors.Try([this] { ShowLastMasters(); });
    ui->btnNext->setEnabled(unit.has_value());
    EnterStage(firstStage);
}

PNXMaster::~PNXMaster() = default;

void PNXMaster::ShowLastMasters() {
    unit = module->DisplayUnitsOfMeasure();
    ui->sbMasterA->setValue(FromMillimetres(module->MasterMinReadingInUOM(), *unit));
    ui->sbMasterB->setValue(FromMillimetres(module->MasterMaxReadingInUOM(), *unit));
    const QString unitText = FromLibrary(TavikLibrary::ePNX_UOM_ToString(*unit));
    ui->lblUnitA->setText(unitText);
    ui->lblUnitB->setText(unitText);
}

void PNXMaster::EnterStage(int newStage) {
    stage = newStage;
    ui->stages->setCurrentIndex(stage - firstStage);
    ui->btnBack->setEnabled(stage > firstStage);
    NameNextButton();
    live = 0;
    if (stage == livePressureStage) {
        RunLivePressure();
    } else if (stage == summaryStage) {
        ShowSummary();
    }
}

void PNXMaster::NameNextButton() {
    // A button's new text drops its shortcut.
    const QKeySequence shortcut = ui->btnNext->shortcut();
    ui->btnNext->setText(stage == summaryStage ? QStringLiteral("Write") : QStringLiteral("Next >>>"));
    ui->btnNext->setShortcut(shortcut);
}

// The live pressure

void PNXMaster::RunLivePressure() {
    live = 1;
    // Back and Next pressed at once lead here from inside the loop, which then simply goes on.
    if (inLiveLoop) {
        return;
    }
    const QPointer<PNXMaster> wizard(this);
    const auto idleAgain = qScopeGuard([&] {
        if (wizard != nullptr) {
            inLiveLoop = false;
        }
    });
    inLiveLoop = true;
    const Activity activity(HostWindow::Of(this), QStringLiteral("Mastering: reading the air pressure"));
    TryReading([this] { RepeatLivePressure(); });
}

void PNXMaster::RepeatLivePressure() {
    constexpr unsigned int pauseMicroseconds = 50000;
    const QPointer<PNXMaster> wizard(this);
    do {
        pressureA = module->PressureReading();
        ui->tbPressure->setText(PressureNumber(pressureA));
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    } while (wizard != nullptr && live != 0 && !HostWindow::IsClosingOver(this));
}

template <class Calls>
void PNXMaster::TryReading(Calls&& calls) {
    ErrorBox(this, boxTitle, QStringLiteral("Error reading PNX:\n")).Try([&] {
        auto onlyCancel = qScopeGuard([this] {
            live = 0;
            ui->btnNext->setEnabled(false);
            ui->btnBack->setEnabled(false);
        });
        std::forward<Calls>(calls)();
        onlyCancel.dismiss();
    });
}

// The stages

bool PNXMaster::MastersAreNearEnough() {
    if (std::abs(SizeB() - SizeA()) <= greatestDistance + roundingOfDistance) {
        return true;
    }
    const QString limit = LengthText(greatestDistance, *unit);
    ShowErrorBox(this, boxTitle,
                 QStringLiteral("Distance between Master A and Master B cannot be\ngreater than ") + limit);
    return false;
}

double PNXMaster::SizeA() const {
    return ToMillimetres(ui->sbMasterA->value(), *unit);
}

double PNXMaster::SizeB() const {
    return ToMillimetres(ui->sbMasterB->value(), *unit);
}

void PNXMaster::ShowSummary() {
    TryReading([this] {
        pressureB = module->PressureReading();
        ui->tbPressureA->setText(PressureNumber(pressureA));
        ui->tbPressureB->setText(PressureNumber(pressureB));
        ui->tbMasterA->setText(LengthNumber(ui->sbMasterA->value(), *unit));
        ui->tbMasterB->setText(LengthNumber(ui->sbMasterB->value(), *unit));
    });
}

void PNXMaster::on_btnNext_clicked() {
    errors.Try([this] {
        if (!MastersAreNearEnough()) {
            return;
        }
        if (stage < summaryStage) {
            EnterStage(stage + 1);
        } else {
            Write();
        }
    });
}

void PNXMaster::Write() {
    const bool written = ErrorBox(this, boxTitle, QStringLiteral("Error writing to PNX:\n")).Try([this] {
        module->setMasterMinPressure(pressureA);
        module->setMasterMaxPressure(pressureB);
        module->setMasterMinReadingInUOM(SizeA());
        module->setMasterMaxReadingInUOM(SizeB());
        module->ApplyMastering();
    });
    if (written) {
        close();
    }
}

void PNXMaster::on_btnBack_clicked() {
    errors.Try([this] { EnterStage(stage - 1); });
}

// Closing

void PNXMaster::on_btnCancel_clicked() {
    live = 0;
    close();
}

void PNXMaster::reject() {
    close();
}

void PNXMaster::closeEvent(QCloseEvent* event) {
    const bool mayClose = stage == summaryStage || HostWindow::IsClosingOver(this) ||
                          AskYesOrNo(this, QStringLiteral("Cancel Mastering"), QStringLiteral("Are you sure?"));
    if (!mayClose) {
        event->ignore();
        return;
    }
    event->accept();
    done(QDialog::Rejected);
}

void PNXMaster::done(int result) {
    live = 0;
    QDialog::done(result);
}
