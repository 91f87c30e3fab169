#pragma once

#include <QWidget>

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleRN;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ReferenceMarkWidget;
}

/// The page on which a linear encoder's reference mark is searched: to learn the reading at the mark, or to set the
/// reading there to a value learnt before.
class ReferenceMarkWidget : public QWidget {
    Q_OBJECT

public:
    explicit ReferenceMarkWidget(QWidget* parent = nullptr);
    ~ReferenceMarkWidget() override;

    /// Throws what the library throws.
    void setNetwork(HostWindow* mainWindow, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModuleRN* module);
    /// Enables or disables what the page offers but Stop Searching; the recall value is enabled in recall mode only.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more. A search is not waited for any longer.
    void ForgetModule();
    /// Ends a search, if one is on, whether the module can be told or not. Never throws.
    void AbandonSearch();

private slots:
    void on_radioLearn_clicked(bool checked);
    void on_radioRecall_clicked(bool checked);
    void on_btnFind_clicked();
    void on_btnStop_clicked();
    void on_radioCounts_clicked(bool checked);
    void on_radioUnits_clicked(bool checked);

private:
    void EnableRecallValue(bool recallMode);
    void Search();
    /// Whether the library came to an end of the search, and not the page.
    bool WaitForEnd();
    void ShowReading(double value, bool learning);

    std::unique_ptr<Ui::ReferenceMarkWidget> ui;
    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    TavikLibrary::TavikModuleRN* module = nullptr;
    bool commandsEnabled = true;
    bool searching = false;
    bool abandoned = false; ///< the page does not wait for the end of its search any more
};
