#include "app/MainWindow.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

#include <cstdio>

// Connects the first network, selects each of its modules and prints what the page of a probe or laser offers.

namespace {

void Print(const MainWindow& window, const char* list) {
    const auto* rows = window.findChild<QListWidget*>(QLatin1String(list));
    for (int row = 0; rows != nullptr && row < rows->count(); ++row) {
        std::printf(" %s;", qPrintable(rows->item(row)->text()));
    }
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    MainWindow window;
    window.show();
    auto* networks = window.findChild<QTableWidget*>(QStringLiteral("tableNetworks"));
    qobject_cast<QPushButton*>(networks->cellWidget(0, networks->columnCount() - 1))->click();
    networks->selectRow(0);
    auto* modules = window.findChild<QListWidget*>(QStringLiteral("listModules"));
    for (int row = 0; row < modules->count(); ++row) {
        modules->setCurrentRow(row);
        // The panels of the module before are deleted later.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::printf("%s:", qPrintable(modules->item(row)->text()));
        Print(window, "listResolutions");
        Print(window, "listAvailableMeasuringRates");
        std::printf("\n");
    }
    return modules->count() > 0 ? 0 : 1;
}
