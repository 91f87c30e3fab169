#pragma once

#include "tools/tour/Tour.h"

#include <QString>

#include <functional>
#include <vector>

/// One way through a part of the program, on a bench of its own.
struct Scenario {
    QString name;
    std::function<TourBench()> bench;
    std::function<std::vector<TourStep>(const TourBench& bench)> steps;
};

/// All of them: together they pass every screen.
const std::vector<Scenario>& Scenarios();
/// The scenario of this name, or null.
const Scenario* FindScenario(const QString& name);

/// The whole way of a scenario on a bench: the window opens, the steps of the tour, the window closes.
std::vector<TourStep> AllSteps(const Scenario& scenario, const TourBench& bench);
