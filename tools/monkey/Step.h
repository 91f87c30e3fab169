#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One thing that happens to the program: what the operator does ("click btnPing", "key Tab"), how much time goes by
/// ("wait 0.25"), or what happens on the bench ("module-leaves Alpha KX00000001"). The first word is the verb.
struct Step {
    QStringList words;

    QString Verb() const { return words.value(0); }
    QString Word(int index) const { return words.value(index); }
    double Number(int index) const { return words.value(index).toDouble(); }

    /// One line for a person to read, of which FromText makes the same step again.
    QString ToText() const;
    static Step FromText(const QString& line);
};

using Steps = std::vector<Step>;

bool operator==(const Step& one, const Step& other);

/// A file of steps: each line one; empty lines and those that begin with '#' are left out. Throws
/// std::runtime_error when the file cannot be read or written.
Steps ReadSteps(const QString& fileName);
void WriteSteps(const QString& fileName, const Steps& steps);
