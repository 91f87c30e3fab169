#pragma once

#include "panels/common/ModePage.h"

#include <memory>

namespace TavikLibrary {
class TavikModule;
} // namespace TavikLibrary

namespace Ui {
class ReadBurstWidget;
}

/// The page of read bursts: one synchronised set of readings of all modules from the first on that can take part, and
/// how many such sets there are in a second.
class ReadBurstWidget : public ModePage {
    Q_OBJECT

public:
    explicit ReadBurstWidget(QWidget* parent = nullptr);
    ~ReadBurstWidget() override;

protected:
    void Clear() override;
    bool Fill() override;
    std::vector<QWidget*> Commands() const override;

private slots:
    void on_btnReadInUnits_clicked();
    void on_btnReadInCounts_clicked();
    void on_btnTimeReadings_clicked();

private:
    void readBurst(bool inUnits);
    /// Reads one burst; a result code other than success becomes an exception. The count is that of the modules read,
    /// and stays as it is when the burst fails.
    void ReadOnce(int& count);
    void ShowCell(int row, int column, const QString& text);
    void ShowModule(int row, TavikLibrary::TavikModule* module, bool inUnits);
    /// Counts bursts and the modules of the last one, as far as a failure lets it get.
    void CountBursts(int& bursts, int& count);

    std::unique_ptr<Ui::ReadBurstWidget> ui;
};
