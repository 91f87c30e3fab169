#pragma once

#include "library/TavikModulePNX.h"
#include "panels/common/MessageBoxes.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class PNXMaster;
}

/// Sets an air gauge up against two masters of known size, in five stages: the two sizes; the probe in
/// master A; its air pressure, live; the probe in master B; a summary, from which all is written to the gauge.
class PNXMaster : public QDialog {
    Q_OBJECT

public:
    /// Reads the unit and the sizes of the last masters; shows a box when that fails. Without a unit there is no Next.
    PNXMaster(TavikLibrary::TavikModulePNX* module, QWidget* parent);
    ~PNXMaster() override;

    /// The Escape key closes as the window's close button does.
    void reject() override;
    /// However the wizard ends, the live pressure ends with it.
    void done(int result) override;

protected:
    /// Asks before anything that was entered is given up.
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_btnNext_clicked();
    void on_btnBack_clicked();
    void on_btnCancel_clicked();

private:
    void ShowLastMasters();
    void EnterStage(int stage);
    void NameNextButton();
    bool MastersAreNearEnough();
    void RunLivePressure();
    void RepeatLivePressure();
    void ShowSummary();
    template <class Calls>
    void TryReading(Calls&& calls);
    void Write();
    double SizeA() const;
    double SizeB() const;

    std::unique_ptr<Ui::PNXMaster> ui;
    TavikLibrary::TavikModulePNX* module;
    const ErrorBox errors{this, QStringLiteral("PNX Mastering")};
    std::optional<TavikLibrary::ePNX_UOM> unit;
    int stage = 1;
    /// Whether the live pressure goes on.
    int live = 0;
    bool inLiveLoop = false;
    double pressureA = 0.0;
    double pressureB = 0.0;
};
