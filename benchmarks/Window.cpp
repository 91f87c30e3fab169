#include "benchmarks/Window.h"

#include "app/MainWindow.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

void Benchmarks::LeaveOutOpenGl() {
    qputenv("QT_XCB_GL_INTEGRATION", "none");
}

void Benchmarks::UseQuickBench() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
}

void Benchmarks::ConnectNetwork(MainWindow& window, int row) {
    constexpr int buttonColumn = 5;
    auto* table = Find<QTableWidget>(window, "tableNetworks");
    static_cast<QPushButton*>(table->cellWidget(row, buttonColumn))->click();
    QCoreApplication::processEvents();
}

int Benchmarks::RowOfNetwork(MainWindow& window, const QString& name) {
    auto* table = Find<QTableWidget>(window, "tableNetworks");
    const QList<QTableWidgetItem*> found = table->findItems(name, Qt::MatchExactly);
    if (found.isEmpty()) {
        std::fprintf(stderr, "There is no network %s.\n", qPrintable(name));
        std::exit(1);
    }
    return found.first()->row();
}

void Benchmarks::SelectModule(MainWindow& window, int row) {
    Find<QListWidget>(window, "listModules")->setCurrentRow(row);
    QCoreApplication::processEvents();
}

QWidget* Benchmarks::BareControl(int number) {
    switch (number % 4) {
    case 0:
        return new QLabel(QStringLiteral("Label"));
    case 1:
        return new QLineEdit;
    case 2:
        return new QPushButton(QStringLiteral("Button"));
    default:
        return new QRadioButton(QStringLiteral("Choice"));
    }
}

Benchmarks::BoxCloser::BoxCloser() {
    connect(&timer, &QTimer::timeout, this, &BoxCloser::CloseBox);
    timer.start(10);
}

const QString& Benchmarks::BoxCloser::LastText() const {
    return lastText;
}

void Benchmarks::BoxCloser::CloseBox() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        lastText = box->text();
        box->accept();
    }
}

Benchmarks::BareLibrary::BareLibrary(unsigned int networkIndex) {
    server.Networks()->FindNetworks();
    network = server.Networks()->Network(networkIndex);
    network->Connect();
}

TavikLibrary::TavikNetwork* Benchmarks::BareLibrary::Network() {
    return network;
}

TavikLibrary::TavikModule* Benchmarks::BareLibrary::Module(unsigned int index) {
    return network->GetModule(index);
}
