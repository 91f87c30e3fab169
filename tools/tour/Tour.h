#pragma once

#include "app/MainWindow.h"
#include "simulator/control/BenchControl.h"
#include "tools/bench/TourBench.h"
#include "tools/driver/DialogResponder.h"
#include "tools/driver/WidgetDriver.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

/// The box for a failed call of the library.
struct FailureBox {
    bool shown = true;
    QString title = QStringLiteral("Tavik Library Test");
    QString prefix;
};

/// Where the operator has to be for a step.
struct Location {
    enum Page { Server, Network, Module, Nowhere };
    Page page = Server;
    int network = 0; ///< row of the network that has to be selected
    QString module;  ///< the module that has to be selected; empty for any
};

/// An operator's way through the program on a simulated bench whose clock stands still.
class Tour {
public:
    explicit Tour(const TourBench& bench) : bench(bench) {}

    /// Sets the bench up, without a window yet.
    void PrepareBench();
    void OpenWindow();
    /// Deletes the window, closed or not.
    void DropWindow();

    MainWindow& Window() { return *window; }
    bool HasWindow() const { return window != nullptr; }
    WidgetDriver Operator() { return WidgetDriver(*window); }

    /// Goes to a place from wherever a failure left the operator, having everything shown anew.
    void GoTo(const Location& place);

    /// Whether the page of this name stands among the pages of the window.
    bool HasPage(const char* name);
    QStringList Rows(const char* list);
    QString Cell(int row, int column);
    /// To be told of every dialog that opens on the way, by a name for its picture.
    void OnDialog(const std::function<void(QWidget&, const QString&)>& told) { onDialog = told; }
    void ReportDialog(QWidget& dialog, const QString& name);

    /// A file of the tour's own, for a network's description.
    QString NetworkFile() const { return folder.filePath(QStringLiteral("network.xml")); }

    const TourBench bench;
    DialogResponder boxes;

private:
    QTemporaryDir folder;
    std::function<void(QWidget&, const QString&)> onDialog;
    std::unique_ptr<MainWindow> window;
};

/// One thing that the operator does.
struct TourStep {
    QString name; ///< in words that can name a file
    Location place;
    std::function<void(Tour& tour)> act;
    /// Postcondition of the step.
    std::function<bool(Tour& tour)> seen;
    /// The box that is due when the last of these calls, made since the step began, fails.
    std::function<FailureBox(const std::vector<TavikSimulator::JournalEntry>& calls)> failure;
    /// The box for a value of the library that the page rejects, if there is one.
    FailureBox unusable{false, QString(), QString()};
    bool closes = false;  ///< the window closes by this step
    bool slow = false;    ///< takes seconds; scenarios take it only for a failure in it
    bool changes = false; ///< taking it once more changes something once more
};

/// All steps, in order. A screen that joins the program joins the tour by adding its steps.
std::vector<TourStep> TourSteps(const TourBench& bench);

/// Only the way to the modules that are visited, and what can be done on their panels.
std::vector<TourStep> PanelTourSteps(const TourBench& bench);
/// Only the way to two modules that can take part, and the acquisition modes.
std::vector<TourStep> ModesTourSteps(const TourBench& bench);
/// Only those of a wireless connection module and its hand tools.
std::vector<TourStep> WirelessTourSteps(const TourBench& bench);
/// Only those of the acquisition modes.
std::vector<TourStep> ModesTourSteps(const TourBench& bench);
