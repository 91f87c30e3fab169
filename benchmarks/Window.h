#pragma once

#include "library/TavikServer.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

class MainWindow;

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
} // namespace TavikLibrary

// The main window's controls by their names, and the same bench without a window.
namespace Benchmarks {

/// Keeps Qt from loading OpenGL, as the program does. To be called before the application object is made.
void LeaveOutOpenGl();

/// Begins anew with the default bench, whose calls take no time.
void UseQuickBench();

template <class Widget>
Widget* Find(QWidget& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) {
        std::fprintf(stderr, "There is no %s.\n", name);
        std::exit(1);
    }
    return widget;
}

/// Presses the button of a row of the networks table, which also selects the row.
void ConnectNetwork(MainWindow& window, int row);

/// The row of a network in the networks table, by its name.
int RowOfNetwork(MainWindow& window, const QString& name);

/// Selects a row of the module list and lets the window draw what that brings up.
void SelectModule(MainWindow& window, int row);

/// A control without a purpose: labels, fields, buttons and choices take turns.
QWidget* BareControl(int number);

/// Closes message boxes as they come up and keeps the text of the last one.
class BoxCloser : public QObject {
public:
    BoxCloser();

    const QString& LastText() const;

private:
    void CloseBox();

    QTimer timer;
    QString lastText;
};

/// The gauge library without a window: what a benchmark's floor is measured on.
class BareLibrary {
public:
    /// Connects the network at a position.
    explicit BareLibrary(unsigned int networkIndex);

    TavikLibrary::TavikServer& Server() { return server; }
    TavikLibrary::TavikNetwork* Network();
    TavikLibrary::TavikModule* Module(unsigned int index);

private:
    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetwork* network = nullptr;
};

} // namespace Benchmarks
