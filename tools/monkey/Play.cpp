#include "tools/monkey/Play.h"

#include "app/Application.h"
#include "tools/bench/VirtualClock.h"
#include "tools/driver/QtMessages.h"
#include "tools/monkey/EventGenerator.h"
#include "tools/monkey/EventSender.h"
#include "tools/monkey/Session.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int failureExitCode = 3;

[[noreturn]] void EndWith(const QStringList& failures) {
    for (QString failure : failures) {
        failure.replace(QLatin1Char('\n'), QLatin1String("\\n"));
        std::printf("failure: %s\n", qPrintable(failure));
    }
    std::fflush(stdout);
    // The program cannot be taken down from inside its loops.
    std::_Exit(failureExitCode);
}

/// Writes down the steps of the session that is being played, each before it is done.
class Log {
public:
    explicit Log(const QString& name) : file(name) {
        if (!name.isEmpty()) {
            file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        }
    }
    void Begin(int session, const QString& benchName) {
        if (file.isOpen()) {
            file.resize(0);
            file.seek(0);
            file.write(QStringLiteral("# session %1\nbench %2\n").arg(session).arg(benchName).toUtf8());
        }
    }
    void Add(const Step& step) {
        if (file.isOpen()) {
            file.write(step.ToText().toUtf8() + '\n');
        }
    }

private:
    QFile file;
};

/// For trying the monkey itself: something that goes wrong once certain steps have been done.
class SeededFault {
public:
    explicit SeededFault(const Options& options) : steps(options.seeded), crash(options.crash) {}
    void See(const Step& step) {
        if (done < steps.size() && step.ToText() == steps.at(done) && ++done == steps.size()) {
            if (crash) {
                std::raise(SIGSEGV);
            }
            EndWith({QStringLiteral("Seeded fault reached.")});
        }
    }
    void Begin() { done = 0; }

private:
    const QStringList steps;
    const bool crash;
    int done = 0;
};

class Player {
public:
    explicit Player(const Options& options) : options(options), log(options.log), seeded(options) {}

    void PlaySession(int number);
    void Replay();
    int Events() const { return events; }

private:
    void Play(int number, const MonkeyBench& bench, Session& session);

    const Options& options;
    Log log;
    SeededFault seeded;
    int events = 0;
};

void Player::Play(int number, const MonkeyBench& bench, Session& session) {
    log.Begin(number, bench.name);
    seeded.Begin();
    session.OnFailures(EndWith);
    session.OnStep([this](const Step& step) {
        log.Add(step);
        seeded.See(step);
    });
    session.Play();
    events += session.StepsDone();
    if (options.digests) {
        std::printf("session %d: %s\n", number, session.Digest().constData());
    }
}

void Player::PlaySession(int number) {
    constexpr std::uint64_t apart = 1000003;
    const std::vector<MonkeyBench>& benches = MonkeyBenches();
    const std::uint64_t seed = options.seed * apart + static_cast<std::uint64_t>(number);
    const MonkeyBench& bench = benches[static_cast<std::size_t>(number / 2) % benches.size()];
    EventGenerator generator(seed, bench, number % 2 == 1);
    int left = options.eventsPerSession;
    Session session(bench, [&]() -> std::optional<Step> {
        return left-- > 0 ? std::optional<Step>(generator.Next()) : std::nullopt;
    });
    session.OnCall([&generator](const TavikSimulator::JournalEntry& call) {
        if (call.operation.front() != '~' && call.operation != "GetErrorDescription") {
            generator.Met(QString::fromStdString(call.operation));
        }
    });
    Play(number, bench, session);
}

void Player::Replay() {
    Steps steps = ReadSteps(options.replay);
    if (steps.empty() || steps.front().Verb() != QLatin1String("bench")) {
        throw std::runtime_error("The first line has to name the bench.");
    }
    const MonkeyBench& bench = MonkeyBenchNamed(steps.front().Word(1));
    std::size_t position = 0;
    Session session(bench, [&]() -> std::optional<Step> {
        return ++position < steps.size() ? std::optional<Step>(steps[position]) : std::nullopt;
    });
    Play(0, bench, session);
}

} // namespace

int PlayHere(int argc, char* argv[], const Options& options) {
    // One order of events: the plain event loop, no native boxes, no seeds of the process.
    qputenv("QT_NO_GLIB", "1");
    qSetGlobalQHashSeed(0);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    VirtualClock::Begin();
    const Application application(argc, argv);
    QtMessages messages;
    UseFolder(folder.path());
    Player player(options);
    if (!options.replay.isEmpty()) {
        player.Replay();
    }
    for (int number = 0; number < options.sessions; ++number) {
        player.PlaySession(options.firstSession + number);
    }
    messages.Finish();
    std::printf("%d events\n", player.Events());
    return 0;
}
