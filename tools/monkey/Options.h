#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

/// What is asked of the monkey on the command line.
struct Options {
    std::uint64_t seed = 1;
    int events = 20000;
    int eventsPerSession = 100;
    int firstSession = 0;
    int sessions = 0;     ///< 0: plays in child processes; otherwise so many here, from the first on
    QString replay;       ///< a file of steps to be played here
    QString log;          ///< the file that takes the steps of the session that is played
    QStringList seeded;   ///< steps, in words: once all have been done in this order there is a failure
    bool crash = false;   ///< instead of the seeded failure the program crashes
    bool digests = false; ///< prints a digest of each session
    bool keepGoing = false;

    /// Those that a child process needs as well.
    QStringList ForChildren() const;
};

Options OptionsOf(const QStringList& arguments);
