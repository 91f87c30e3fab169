#pragma once

#include <QWidget>

#include <memory>

class HostWindow;
class RunClock;

namespace TavikLibrary {
enum class eBufferedMode : int;
class ModuleBuffered;
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class BufferedModeWidget;
}

/// The page of buffered mode: how the selected module takes part, what triggers samples, the network's run and its
/// results.
class BufferedModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit BufferedModeWidget(QWidget* parent = nullptr);
    ~BufferedModeWidget() override;

    /// The module may be null. Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more.
    void ForgetModule();

private slots:
    void on_sbInterval_valueChanged(int value);
    void on_btnEnable_clicked();
    void on_btnDisable_clicked();
    void on_radioSync_clicked();
    void on_radioSample_clicked();
    void on_btnSample_clicked();
    void on_btnStart_clicked();
    void on_btnStop_clicked();
    void on_btnCurrentModule_clicked();
    void on_btnAllModules_clicked();
    void on_sbCountsPerSample_valueChanged(int value);
    void on_cbMasterAddress_currentIndexChanged(const QString& text);

private:
    /// The settings as the library told them last; they stand again when a change fails.
    struct Settings {
        TavikLibrary::eBufferedMode mode{};
        int interval = 0;
        int masterRow = 0;
        int counts = 0;
    };

    void FillMasters();
    void Refresh();
    void ShowModule(TavikLibrary::eBufferedMode mode, bool enabled);
    void ShowInterval(TavikLibrary::ModuleBuffered& buffered, bool enabled);
    void ShowNetwork(bool enabled);
    void ShowMaster(int index, bool enabled);
    void CheckMode(TavikLibrary::eBufferedMode mode);
    void ShowSettingsAsBefore();
    template <class Calls>
    void Change(Calls&& calls);
    bool StillRuns();
    void BeginRun();
    void EndRun();

    std::unique_ptr<Ui::BufferedModeWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModule* module = nullptr;
    Settings shown;
    /// Changes of the controls come from the page itself, not from the operator.
    bool updating = false;
    std::unique_ptr<RunClock> runClock;
};
