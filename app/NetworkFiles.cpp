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
    ErrorBox(parent, QStringLiteral("Error Loading File"), errorPrefix).Try([&] { network->Load(ToLibrary(name)); });
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
    ErrorBox(parent, QStringLiteral("Error Saving File"), errorPrefix).Try([&] { network->Save(ToLibrary(name)); });
    return true;
}
