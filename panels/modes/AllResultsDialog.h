#pragma once

#include <QDialog>

#include <memory>

namespace TavikLibrary {
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class AllResultsDialog;
}

/// Shows the readings of all modules of a collection side by side.
class AllResultsDialog : public QDialog {
    Q_OBJECT

public:
    explicit AllResultsDialog(QWidget* parent = nullptr);
    ~AllResultsDialog() override;

    /// Shows the buffers of the modules that are enabled. Throws what the library throws, and shows nothing then.
    void fillBuffered(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network);
    /// Shows the dynamic collection. Throws what the library throws, and shows nothing then.
    void fillDynamic(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network);

private slots:
    void on_btnClose_clicked();

private:
    std::unique_ptr<Ui::AllResultsDialog> ui;
};
