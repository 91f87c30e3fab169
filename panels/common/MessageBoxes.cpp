#include "panels/common/MessageBoxes.h"

#include "panels/common/BlockingOperation.h"
#include "panels/common/HostWindow.h"
#include "panels/common/ModalDialog.h"

#include <QMessageBox>

namespace {

QMessageBox::StandardButton ShowBox(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text,
                                    QMessageBox::StandardButtons buttons) {
    if (HostWindow::IsClosingOver(parent)) {
        return QMessageBox::NoButton;
    }
    if (BlockingOperation::IsOn()) {
        BlockingOperation::DropQueuedInput();
    }
    ModalDialog<QMessageBox> box(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.Run());
}

} // namespace

void ShowErrorBox(QWidget* parent, const QString& title, const QString& text) {
    ShowBox(QMessageBox::Critical, parent, title, text, QMessageBox::Ok);
}

void ShowInformationBox(QWidget* parent, const QString& title, const QString& text) {
    ShowBox(QMessageBox::Information, parent, title, text, QMessageBox::Ok);
}

bool AskYesOrNo(QWidget* parent, const QString& title, const QString& text) {
    const QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
    return ShowBox(QMessageBox::Question, parent, title, text, buttons) == QMessageBox::Yes;
}
