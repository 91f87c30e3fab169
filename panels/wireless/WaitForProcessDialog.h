#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class WaitForProcessDialog;
}

/// Shows how far a long sequence of calls has come. The operator cannot close it; its caller hides it.
class WaitForProcessDialog : public QDialog {
    Q_OBJECT

public:
    explicit WaitForProcessDialog(QWidget* parent);
    ~WaitForProcessDialog() override;

    /// Shows the dialog and returns when it is painted, or after 0.5 s: the caller may block then.
    void ShowPainted();

    /// Shows the progress, 0 to 100 percent, and what is being done. Handles pending events once.
    void setProgress(int percent, const QString& message);

    /// Does nothing: neither Escape nor the window manager closes the dialog.
    void reject() override;

private:
    std::unique_ptr<Ui::WaitForProcessDialog> ui;
};
