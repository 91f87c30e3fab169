#pragma once

#include <QDialog>

#include <memory>

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class DialogDifferenceResults;
}

/// What difference mode has found out of every module that is enabled for it, in units; a column for each.
class DialogDifferenceResults : public QDialog {
    Q_OBJECT

public:
    explicit DialogDifferenceResults(QWidget* parent = nullptr);
    ~DialogDifferenceResults() override;

    /// Shows what was fetched last; nothing is fetched anew. Throws what the library throws.
    void fill(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network);

private slots:
    void on_btnClose_clicked();

private:
    void FillColumn(int column, TavikLibrary::TavikServer* server, TavikLibrary::TavikModule* module);

    std::unique_ptr<Ui::DialogDifferenceResults> ui;
};
