#pragma once

#include "tools/tour/Tour.h"

// The steps of the tour, screen by screen.

void AddServerSteps(std::vector<TourStep>& steps, const TourBench& bench);
void AddNetworkSteps(std::vector<TourStep>& steps, const TourBench& bench);
void AddModuleSteps(std::vector<TourStep>& steps, const TourBench& bench);
void AddAirGaugeSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// Nothing on a bench without a wireless connection module.
void AddWirelessSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// For the probe that is read and the first of the modules that are visited; nothing on a bench without.
void AddDifferenceSteps(std::vector<TourStep>& steps, const TourBench& bench);
void AddReadBurstSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// Nothing on a bench without a linear encoder whose reference mark is searched.
void AddReferenceMarkSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// Nothing on a bench without a module that is collected in buffered mode.
void AddBufferedSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// Nothing on a bench without a module that is collected in dynamic mode.
void AddDynamicSteps(std::vector<TourStep>& steps, const TourBench& bench);
void AddMenuSteps(std::vector<TourStep>& steps, const TourBench& bench);
/// Everything that can be done on the panels of one module, by the kind that its identity begins with.
void AddPanelSteps(std::vector<TourStep>& steps, const Location& place);
/// The title of the box that a panel shows by itself when its filling fails; empty for panels that leave
/// that to the last resort.
QString TitleOfOwnFilling(const QString& identity);

// What the operator sees of failures.

using FailureRule = std::function<FailureBox(const std::vector<TavikSimulator::JournalEntry>& calls)>;

/// The last resort, whatever fails.
FailureBox LastResortOnly(const std::vector<TavikSimulator::JournalEntry>& calls);
/// This box, whatever fails.
FailureRule Always(const QString& title, const QString& prefix);
/// This box for the operation by this name, the last resort for what comes after it.
FailureRule Only(const char* operation, const QString& title, const QString& prefix);
/// This box until the list of modules is filled again, the last resort for the module that is selected then.
FailureRule UntilListed(const QString& title, const QString& prefix);
/// The last resort, but for a panel that shows a failure of its filling by itself.
FailureRule Selection(const QString& panelTitle);
/// The box of a failed reading, but for a panel that shows a failure of its refreshing by itself.
FailureRule ReadingOrPanel(const QString& panelTitle);
/// No box.
FailureBox Swallowed(const std::vector<TavikSimulator::JournalEntry>& calls);

// Steps that several screens need.

/// The page of one module; its selection is a step of its own, with this rule.
void AddPage(std::vector<TourStep>& steps, const Location& place, const FailureRule& selectionFailure);
