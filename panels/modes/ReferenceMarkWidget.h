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
    /// Ends a search, if one is on, whether the module can be told or not.
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
    void Leave() override;
    void Search();
    /// Whether the library came to an end of the search, and not the page.
    bool WaitForEnd();
    void ShowReading(double value, bool learning);

    std::unique_ptr<Ui::ReferenceMarkWidget> ui;
    TavikLibrary::TavikModuleRN* encoder = nullptr;
    std::unique_ptr<Run> run; ///< while a search goes on
    QString shownIdentity;
};
