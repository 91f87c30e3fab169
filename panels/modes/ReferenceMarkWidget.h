#pragma once

#include "panels/common/ModePage.h"

#include <memory>

namespace TavikLibrary {
class TavikModuleRN;
} // namespace TavikLibrary

class Run;

namespace Ui {
class ReferenceMarkWidget;
}

/// The page on which a linear encoder's reference mark is searched: to learn the reading at the mark, or to set the
/// reading there to a value learnt before.
class ReferenceMarkWidget : public ModePage {
    Q_OBJECT

public:
    explicit ReferenceMarkWidget(QWidget* parent = nullptr);
    ~ReferenceMarkWidget() override;
    /// Stops a search in the encoder and ends the waiting for it, even if the encoder fails to be stopped.
    void Stop() noexcept override;

protected:
    void Clear() override;
    bool Fill() override;
    void Refresh() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_radioLearn_clicked(bool checked);
    void on_radioRecall_clicked(bool checked);
    void on_btnFind_clicked();
    void on_btnStop_clicked();
    void on_radioCounts_clicked(bool checked);
    void on_radioUnits_clicked(bool checked);

private:
    void Leave() override { Stop(); }
    void Search();
    /// Returns false if the page was left or the window closed before the search ended.
    bool WaitForEnd();
    void ShowReading(double value, bool learning);

    std::unique_ptr<Ui::ReferenceMarkWidget> ui;
    TavikLibrary::TavikModuleRN* searched = nullptr; ///< until the search has ended or is left
    std::unique_ptr<Run> run;                        ///< while a search goes on
    QString reading;
    QString moduleOfReading; ///< its identity
};
