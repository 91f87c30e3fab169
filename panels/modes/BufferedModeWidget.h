#pragma once

#include "panels/common/ModePage.h"

#include <memory>

class Run;

namespace TavikLibrary {
enum class eBufferedMode : int;
class ModuleBuffered;
} // namespace TavikLibrary

namespace Ui {
class BufferedModeWidget;
}

/// The page of buffered mode: how the selected module takes part, what triggers samples, the network's run and its
/// results.
class BufferedModeWidget : public ModePage {
    Q_OBJECT

public:
    explicit BufferedModeWidget(QWidget* parent = nullptr);
    ~BufferedModeWidget() override;

protected:
    void Clear() override;
    bool Fill() override;
    void Refresh() override;
    std::vector<QWidget*> Commands() const override;

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
    void ShowModule(TavikLibrary::eBufferedMode mode, bool enabled);
    void ShowInterval(TavikLibrary::ModuleBuffered& buffered, bool enabled);
    void ShowNetwork(bool enabled);
    void ShowMaster(int index, bool enabled);
    void CheckMode(TavikLibrary::eBufferedMode mode);
    void ShowSettingsAsBefore();
    template <class Calls>
    void Change(Calls&& calls);
    void Leave() override;
    bool StillRuns();
    void BeginRun();

    std::unique_ptr<Ui::BufferedModeWidget> ui;
    Settings shown;
    /// Changes of the controls come from the page itself, not from the operator.
    bool updating = false;
    std::unique_ptr<Run> run; ///< while a collection that was started here goes on
};
