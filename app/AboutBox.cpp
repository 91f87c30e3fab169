#include "app/AboutBox.h"

#include "ui_AboutBox.h"

#include <QDate>
#include <QLocale>

AboutBox::AboutBox(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::AboutBox>()) {
    ui->setupUi(this);
    ui->lblNumberAndVersion->setText(VersionLine(QStringLiteral(__DATE__)));
    ui->lblInformation->setText(
        QStringLiteral("A bench tool for networks of digital gauging modules: it connects them, lists and manages "
                       "their modules, and reads and configures every kind of module.\n\n"
                       "Made with Qt %1, used under the terms of the GNU Lesser General Public License, version 3.")
            .arg(QLatin1String(qVersion())));
}

AboutBox::~AboutBox() = default;

void AboutBox::on_btnClose_clicked() {
    close();
}

QString VersionLine(const QString& compileDate) {
    const QDate date = QLocale::c().toDate(compileDate, QStringLiteral("MMM dd yyyy"));
    return QStringLiteral("Tavik Linux Library Test (482913) V1.0.2 ") + date.toString(QStringLiteral("dd/MM/yyyy"));
}
