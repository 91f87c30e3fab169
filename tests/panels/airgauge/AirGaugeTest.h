#pragma once

#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QDialog>

#include <functional>

/// The base of the air gauge's front-end tests: the program on a bench with one air gauge, whose page is in
/// front.
class AirGaugeTest : public ProgramFixture {
    Q_OBJECT

protected:
    /// A gauge on a still supply of 28 psi: its <air-gauge> has these attributes and this content.
    void OpenGauge(const QString& attributes = QString(), const QString& moduleAttributes = QString());
    /// The same on a noisy, drifting supply.
    void OpenNoisyGauge();
    /// The page of the network with the gauge in front; the gauge is not selected yet.
    void OpenList(const QString& attributes = QString(), const QString& moduleAttributes = QString());

    /// The panel of the gauge, or null.
    QWidget* Panel();
    QWidget* ModulePanel();
    WidgetDriver OnPanel() { return WidgetDriver(*Panel()); }
    QString Field(const char* name) { return OnPanel().Text(name); }

    /// Presses a button of the panel that opens a dialog with this title, and uses the dialog, which has to be
    /// closed in the end. What runs meanwhile runs from the event loop, as an operator acts.
    void DuringDialog(const char* button, const QString& title, const std::function<void(QDialog& dialog)>& use);

    /// The same with the configuration dialog, which is closed with its button unless it has been closed already.
    void DuringConfiguration(const std::function<void(QDialog& dialog)>& use);

    static void PutIn(TavikSimulator::NozzlePart part);
    static void PutInWorkPiece(double size);
};

/// The calls of the gauge itself, without "module PNX0000001." before them.
QStringList TakeGaugeCalls();
/// The same, those of the modules' base left out.
QStringList TakeAirGaugeCalls();

/// The pressure with a part of this size in the nozzle of a gauge on 28 psi, as the screen shows it.
QString PressureShownFor(double size);

/// From now on an operation answers with this number.
void Answer(const char* operation, int number);
