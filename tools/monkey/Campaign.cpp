#include "tools/monkey/Campaign.h"

#include "tools/monkey/Child.h"
#include "tools/monkey/Minimiser.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int sessionsPerChild = 10;
constexpr int minimiserTries = 400;

class Campaign {
public:
    explicit Campaign(const Options& options) : options(options) {}
    int Run();

private:
    /// Returns the session to go on with.
    int RunSessions(int first, int count);
    Outcome PlaySessions(int first, int count);
    int AfterFailure(int first, int count, const Outcome& outcome);
    void Report(int session, const Outcome& outcome, const Steps& steps);
    Outcome Replay(const Steps& steps);
    QString LogFile() const { return folder.filePath(QStringLiteral("steps")); }

    const Options& options;
    const QTemporaryDir folder;
    int played = 0;
    int failures = 0;
};

int SessionIn(const QString& log) {
    QFile file(log);
    constexpr int ahead = 10; // "# session "
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine()).midRef(ahead).toInt() : 0;
}

Outcome Campaign::PlaySessions(int first, int count) {
    return RunChild(options.ForChildren() + QStringList{QStringLiteral("--first-session"), QString::number(first),
                                                        QStringLiteral("--sessions"), QString::number(count),
                                                        QStringLiteral("--log"), LogFile()},
                    LogFile());
}

int Campaign::Run() {
    std::printf("Seed %llu, %d events\n", static_cast<unsigned long long>(options.seed), options.events);
    const int sessions = (options.events + options.eventsPerSession - 1) / options.eventsPerSession;
    int session = options.firstSession;
    const int end = session + sessions;
    while (session < end && (failures == 0 || options.keepGoing)) {
        session = RunSessions(session, std::min(sessionsPerChild, end - session));
        std::fflush(stdout);
    }
    played = (session - options.firstSession) * options.eventsPerSession;
    std::printf("%d events played, %d failures\n", std::min(played, options.events), failures);
    return failures == 0 ? 0 : 1;
}

int Campaign::RunSessions(int first, int count) {
    const Outcome outcome = PlaySessions(first, count);
    if (options.digests) {
        std::printf("%s", qPrintable(outcome.output));
    }
    return outcome.failed ? AfterFailure(first, count, outcome) : first + count;
}

int Campaign::AfterFailure(int first, int count, const Outcome& outcome) {
    ++failures;
    const int session = SessionIn(LogFile());
    const Steps steps = ReadSteps(LogFile());
    if (outcome.kind.contains(QLatin1String("LeakSanitizer")) && count > 1) {
        // A leak shows when the process ends: each of its sessions may be the one.
        --failures;
        for (int each = first; each < first + count; ++each) {
            RunSessions(each, 1);
        }
        return first + count;
    }
    Report(session, outcome, steps);
    return session + 1;
}

Outcome Campaign::Replay(const Steps& steps) {
    const QString file = folder.filePath(QStringLiteral("replay"));
    WriteSteps(file, steps);
    return RunChild(options.ForChildren() +
                        QStringList{QStringLiteral("--replay"), file, QStringLiteral("--log"), LogFile()},
                    LogFile());
}

void Campaign::Report(int session, const Outcome& outcome, const Steps& steps) {
    const QString program = QCoreApplication::applicationFilePath();
    std::printf("\nFAILED in session %d of seed %llu: %s\n%s\n", session, static_cast<unsigned long long>(options.seed),
                qPrintable(outcome.kind), qPrintable(outcome.output));
    std::printf("The whole session again: %s --seed %llu --events-per-session %d --first-session %d --sessions 1\n",
                qPrintable(program), static_cast<unsigned long long>(options.seed), options.eventsPerSession, session);
    const Step& bench = steps.front();
    const auto whole = [&bench](const Steps& rest) {
        Steps all = {bench};
        all.insert(all.end(), rest.begin(), rest.end());
        return all;
    };
    const auto fails = [&](const Steps& rest) { return Replay(whole(rest)).kind == outcome.kind; };
    Steps rest(steps.begin() + 1, steps.end());
    if (!fails(rest)) {
        std::printf("Its steps alone do not fail again.\n");
    } else {
        rest = Minimise(rest, fails, minimiserTries);
    }
    const QString file = QDir::temp().filePath(QStringLiteral("monkey-%1-%2.steps").arg(options.seed).arg(session));
    WriteSteps(file, whole(rest));
    std::printf("%zu of its %zu steps lead there:\n", rest.size(), steps.size() - 1);
    for (const Step& step : whole(rest)) {
        std::printf("    %s\n", qPrintable(step.ToText()));
    }
    std::printf("To repeat it: %s --replay %s\n\n", qPrintable(program), qPrintable(file));
}

} // namespace

int RunCampaign(const Options& options) {
    return Campaign(options).Run();
}
