#include "tools/monkey/Options.h"

#include <QCommandLineParser>

namespace {

const QString seedName = QStringLiteral("seed");
const QString eventsName = QStringLiteral("events");
const QString perSessionName = QStringLiteral("events-per-session");
const QString firstName = QStringLiteral("first-session");
const QString sessionsName = QStringLiteral("sessions");
const QString replayName = QStringLiteral("replay");
const QString logName = QStringLiteral("log");
const QString seededName = QStringLiteral("seeded-fault");
const QString crashName = QStringLiteral("seeded-crash");
const QString digestsName = QStringLiteral("digests");
const QString keepGoingName = QStringLiteral("keep-going");

} // namespace

QStringList Options::ForChildren() const {
    QStringList arguments = {QStringLiteral("--seed"), QString::number(seed), QStringLiteral("--events-per-session"),
                             QString::number(eventsPerSession)};
    for (const QString& step : seeded) {
        arguments += {QStringLiteral("--seeded-fault"), step};
    }
    if (crash) {
        arguments.append(QStringLiteral("--seeded-crash"));
    }
    if (digests) {
        arguments.append(QStringLiteral("--digests"));
    }
    return arguments;
}

Options OptionsOf(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Uses the program at random on simulated benches and checks it after every event."));
    parser.addHelpOption();
    parser.addOptions({
        {seedName, QStringLiteral("Seed of everything that is random."), seedName, QStringLiteral("1")},
        {eventsName, QStringLiteral("How many events."), eventsName, QStringLiteral("20000")},
        {perSessionName, QStringLiteral("How many events until the next bench."), perSessionName,
         QStringLiteral("100")},
        {firstName, QStringLiteral("The session to begin with."), firstName, QStringLiteral("0")},
        {sessionsName, QStringLiteral("Plays so many sessions in this process."), sessionsName, QStringLiteral("0")},
        {replayName, QStringLiteral("Plays the steps in this file."), QStringLiteral("file")},
        {logName, QStringLiteral("Writes the steps of the session into this file."), QStringLiteral("file")},
        {seededName, QStringLiteral("Fails after this step (may be given several times)."), QStringLiteral("step")},
        {crashName, QStringLiteral("Crashes after the seeded steps instead.")},
        {digestsName, QStringLiteral("Prints a digest of each session.")},
        {keepGoingName, QStringLiteral("Goes on after a failure.")},
    });
    parser.process(arguments);
    Options options;
    options.seed = parser.value(seedName).toULongLong();
    options.events = parser.value(eventsName).toInt();
    options.eventsPerSession = qMax(1, parser.value(perSessionName).toInt());
    options.firstSession = parser.value(firstName).toInt();
    options.sessions = parser.value(sessionsName).toInt();
    options.replay = parser.value(replayName);
    options.log = parser.value(logName);
    options.seeded = parser.values(seededName);
    options.crash = parser.isSet(crashName);
    options.digests = parser.isSet(digestsName);
    options.keepGoing = parser.isSet(keepGoingName);
    return options;
}
