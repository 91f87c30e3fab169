#pragma once

#include <QDialog>

#include <memory>

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class CurrentModuleResultsDialog;
}

/// Shows the readings of one module of a collection.
class CurrentModuleResultsDialog : public QDialog {
    Q_OBJECT

public:
    explicit CurrentModuleResultsDialog(QWidget* parent = nullptr);
    ~CurrentModuleResultsDialog() override;

    /// Shows the module's buffer. Throws what the library throws, and shows nothing then.
    void fillBuffered(TavikLibrary::TavikServer* server, TavikLibrary::TavikModule* module);
    /// Shows the values that the dynamic collection has of the module; only these, in one column. Throws what the
    /// library throws, and shows nothing then.
    void fillDynamic(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                     TavikLibrary::TavikModule* module);

private slots:
    void on_btnClose_clicked();

private:
    std::unique_ptr<Ui::CurrentModuleResultsDialog> ui;
};
