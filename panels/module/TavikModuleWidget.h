#pragma once

#include "panels/common/ModePage.h"

#include <memory>
#include <vector>

class Run;
class TypePanel;

namespace Ui {
class TavikModuleWidget;
}

/// Shows what the library knows about the selected module, reads it once, continuously or against the
/// clock, shows its status, and hosts the panels that fit its kind.
class TavikModuleWidget : public ModePage {
    Q_OBJECT

public:
    explicit TavikModuleWidget(QWidget* parent = nullptr);
    ~TavikModuleWidget() override;

    void setCommandsEnabled(bool enable) override;
    /// Ends a continuous reading after the reading in progress.
    void Stop() noexcept override;
    /// Shows the module's information anew and leaves the type panels alone.
    void RedisplayInformation();

protected:
    void Clear() override;
    bool Fill() override;
    std::vector<QWidget*> Commands() const override;
    void Leave() override;
    bool event(QEvent* event) override;

private slots:
    void on_btnRead_clicked();
    void on_btnStartContinuous_clicked();
    void on_btnStopContinuous_clicked();
    void on_btnTimeReadings_clicked();
    void on_btnGetStatus_clicked();

private:
    void ClearInformation();
    void ShowIdentity();
    void ShowProbeIdentity();
    void ShowCapabilities();
    void ShowRange();
    void ShowReading(const QString& text);
    /// Reads once, and refreshes the type panel that follows readings. Returns false if that refresh failed and a box
    /// has been shown.
    bool ReadModule();
    void ReadContinuously();
    void ShowPasses(int passes);
    void ReadAndShowStatus();
    void WaitBetweenReadings();
    int CountReadings();

    /// Where a type panel stands: at the reading group's right edge and top, or beside or below the probe
    /// panel that stands there.
    enum class Place { AtReference, RightOfProbe, BelowProbe };
    struct PlacedPanel {
        TypePanel* panel;
        Place place;
    };

    void CloseTypePanels();
    void OpenTypePanels();
    /// Opens the panel if the module is of its class, and returns whether it is.
    template <class Panel>
    bool OpenTypePanel(Place place);
    void PlaceTypePanels();
    QPoint PositionOf(Place place) const;

    std::unique_ptr<Ui::TavikModuleWidget> ui;
    const TavikLibrary::TavikModule* moduleOfReading = nullptr; ///< to be compared only
    QString identityOfReading;
    QString lastReading;
    std::unique_ptr<Run> run; ///< while the module is read continuously
    /// The panel at the reference stands first, the one that may follow readings last.
    std::vector<PlacedPanel> typePanels;
};
