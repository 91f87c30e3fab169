#include "app/NetworkFiles.h"

#include "library/TavikNetwork.h"
#include "panels/common/MessageBoxes.h"

#include <QFileDialog>

namespace {

const QLatin1String filter("Tavik XML files (*.xml)");
const QLatin1String suffix(".xml");
const QLatin1String errorPrefix("Error: ");

} // namespace

bool LoadNetwork(QWidget* parent, TavikLibrary::TavikNetwork* network) {
    const QString name = QFileDialog::getOpenFileName(parent, QStringLiteral("Open Tavik XML"), QString(), filter);
    if (name.isEmpty()) {
        return false;
    }
    Guarded(parent, QStringLiteral("Error Loading File"), errorPrefix, [&] { network->Load(ToLibrary(name)); });
    return true;
}

bool SaveNetwork(QWidget* parent, TavikLibrary::TavikNetwork* network) {
    QString name = QFileDialog::getSaveFileName(parent, QStringLiteral("Save Tavik XML"), QString(), filter);
    if (name.isEmpty()) {
        return false;
    }
    // Compared with its case on purpose: net.XML is saved as net.XML.xml.
    if (!name.endsWith(suffix, Qt::CaseSensitive)) {
        name += suffix;
    }
    Guarded(parent, QStringLiteral("Error Saving File"), errorPrefix, [&] { network->Save(ToLibrary(name)); });
    return true;
}
