#include "panels/common/MessageBoxes.h"

#include "panels/common/HostWindow.h"

#include <QMessageBox>
#include <QPointer>

namespace {

QMessageBox::StandardButton ShowBox(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text,
                                    QMessageBox::StandardButtons buttons) {
    if (HostWindow::IsClosingOver(parent)) {
        return QMessageBox::NoButton;
    }
    // The parent may be deleted while the box is open, and the box with it.
    QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    const int pressed = box->exec();
    delete box;
    return static_cast<QMessageBox::StandardButton>(pressed);
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
