#include "app/NetworkFiles.h"

#include "panels/common/MessageBoxes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace {

const QLatin1String filter("Tavik XML files (*.xml)");
const QLatin1String suffix(".xml");

} // namespace

QString AskFileToLoad(QWidget* parent) {
    return QFileDialog::getOpenFileName(parent, QStringLiteral("Open Tavik XML"), QString(), filter);
}

QString AskFileToSave(QWidget* parent) {
    const QString title = QStringLiteral("Save Tavik XML");
    // The file box would ask about the name before the suffix is appended.
    QString name =
        QFileDialog::getSaveFileName(parent, title, QString(), filter, nullptr, QFileDialog::DontConfirmOverwrite);
    // Deliberate: compared with its case, so that net.XML is saved as net.XML.xml.
    if (!name.isEmpty() && !name.endsWith(suffix, Qt::CaseSensitive)) {
        name += suffix;
    }
    const bool exists = !name.isEmpty() && QFileInfo::exists(name);
    const QString question = QStringLiteral("%1 already exists.\nDo you want to replace it?");
    return exists && !AskYesOrNo(parent, title, question.arg(QDir::toNativeSeparators(name))) ? QString() : name;
}
