#pragma once

#include "panels/modes/SettingsPage.h"

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
class BufferedModeWidget : public SettingsPage {
    Q_OBJECT

public:
    explicit BufferedModeWidget(QWidget* parent = nullptr);
    ~BufferedModeWidget() override;

protected:
    void Clear() override;
    void FillMasters() override;
    void Show() override;
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
    void ShowModule(TavikLibrary::eBufferedMode mode, bool enabled);
    void ShowInterval(TavikLibrary::ModuleBuffered& buffered, bool enabled);
    void ShowNetwork(bool enabled);
    void ShowMaster(int index, bool enabled);
    void CheckMode(TavikLibrary::eBufferedMode mode);
    void Leave() override;
    bool StillRuns();
    void BeginRun();

    std::unique_ptr<Ui::BufferedModeWidget> ui;
    int shownInterval = 0;    ///< in microseconds, as the page shows it
    std::unique_ptr<Run> run; ///< while a collection that was started here goes on
};
