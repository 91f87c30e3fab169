#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A bench that the monkey plays on, and the names of what is on it.
struct MonkeyBench {
    struct Module {
        QString network;
        QString identity;
    };

    QString name;
    QString text; ///< of the bench file
    QStringList networks;
    std::vector<Module> modules;
    std::vector<Module> airGauges;
    QStringList tools;
    QStringList replaced; ///< modules in whose place there stands another
};

/// All of them, in a fixed order.
const std::vector<MonkeyBench>& MonkeyBenches();
/// Throws std::runtime_error when there is none of this name.
const MonkeyBench& MonkeyBenchNamed(const QString& name);
