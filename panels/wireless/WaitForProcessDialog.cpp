#include "panels/wireless/WaitForProcessDialog.h"

#include "ui_WaitForProcessDialog.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWindow>

WaitForProcessDialog::WaitForProcessDialog(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint),
      ui(std::make_unique<Ui::WaitForProcessDialog>()) {
    ui->setupUi(this);
}

WaitForProcessDialog::~WaitForProcessDialog() = default;

void WaitForProcessDialog::ShowPainted() {
    constexpr int atMostMs = 500;
    QElapsedTimer sinceShown;
    sinceShown.start();
    show();
    // What is painted before the window system has put the window on the screen is lost.
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    } while (!windowHandle()->isExposed() && !sinceShown.hasExpired(atMostMs));
    repaint();
}

void WaitForProcessDialog::setProgress(int percent, const QString& message) {
    ui->lblWaitMessage->setText(QStringLiteral("Please Wait:\n\n") + message);
    ui->progressBar->setValue(percent);
    resize(size().expandedTo(sizeHint()));
    // Painted at once: a compositor may not ask for it before the caller blocks again.
    repaint();
    QCoreApplication::processEvents();
}

void WaitForProcessDialog::reject() {}
