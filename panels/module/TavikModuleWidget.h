#pragma once

#include <QWidget>

#include <memory>
#include <vector>

class HostWindow;
class TypePanel;

namespace TavikLibrary {
class TavikModule;
class TavikModuleBW;
class TavikModuleKX;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class TavikModuleWidget;
}

/// Shows what the library knows about the selected module, reads it once, continuously or against the
/// clock, shows its status, and hosts the panels that fit its kind.
class TavikModuleWidget : public QWidget {
    Q_OBJECT

public:
    explicit TavikModuleWidget(QWidget* parent = nullptr);
    ~TavikModuleWidget() override;

    /// Takes a module and shows it. Throws what the library throws; what was shown until then stays.
    virtual void SetModule(HostWindow* mainWindow, TavikLibrary::TavikServer* server,
                           TavikLibrary::TavikNetwork* network, TavikLibrary::TavikModule* module);
    /// Enables or disables everything that asks the module for something.
    void SetEnabled(bool enable);
    /// Shows the module's information anew and leaves the type panels alone.
    void RedisplayInformation();
    /// Ends a continuous reading after the reading in progress.
    void RaiseStopFlag();
    /// The page goes: its module may be gone when something is asked of it later.
    void ForgetModule();

protected:
    bool event(QEvent* event) override;

private slots:
    void on_btnRead_clicked();
    void on_btnStartContinuous_clicked();
    void on_btnStopContinuous_clicked();
    void on_btnTimeReadings_clicked();
    void on_btnGetStatus_clicked();

private:
    void ShowIdentity();
    void ShowProbeIdentity();
    void ShowCapabilities();
    void ShowRange();
    bool HasModule() const;
    void ReadModule();
    void ReadContinuously();
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
    void OpenProbePanels(TavikLibrary::TavikModuleKX* probe);
    void OpenLaserPanels(TavikLibrary::TavikModuleBW* laser);
    template <class Panel, class Module>
    bool OpenTypePanelFor();
    template <class Panel, class Module>
    void OpenTypePanel(Place place, Module* typedModule);
    void PlaceTypePanels();
    QPoint PositionOf(Place place) const;

    std::unique_ptr<Ui::TavikModuleWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModule* module = nullptr;
    const TavikLibrary::TavikModule* moduleOfReading = nullptr; ///< to be compared only
    bool stopContinuous = false;
    bool readingContinuously = false;
    bool enabled = true;
    /// The panel at the reference stands first.
    std::vector<PlacedPanel> typePanels;
};
