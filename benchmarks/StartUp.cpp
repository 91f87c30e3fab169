// Start to first painted frame, and the memory held by then: the program against a bare window of as many
// controls of the same kinds. Each run is a process of its own; the two take turns.

#include "app/Program.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QMainWindow>
#include <QProcess>
#include <QTableWidget>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int runs = 11;

// What the environment tells a run: when its process was started.
constexpr const char* startedVariable = "TAVIK_BENCHMARK_STARTED";

/// Prints the figures of this process once the first window has been painted, and ends it.
class FirstFrame : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!seen && event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr) {
            seen = true;
            QTimer::singleShot(0, this, &FirstFrame::Report);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void Report() {
        const double started = qEnvironmentVariable(startedVariable).toDouble();
        const double milliseconds = (Benchmarks::MonotonicSeconds() - started) * 1000;
        std::printf("%f %f %d\n", milliseconds, Benchmarks::ResidentMebibytes(),
                    static_cast<int>(QApplication::allWidgets().size()));
        std::fflush(stdout);
        std::_Exit(0);
    }

    bool seen = false;
};

void WatchForFirstFrame() {
    if (qEnvironmentVariableIsSet(startedVariable)) {
        qApp->installEventFilter(new FirstFrame(qApp));
    }
}

int RunBareWindow(int argc, char* argv[], int controls) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    QMainWindow window;
    auto* table = new QTableWidget(6, 6);
    auto* contents = new QWidget;
    auto* layout = new QGridLayout(contents);
    layout->addWidget(table, 0, 0, 1, 8);
    for (int control = 0; QApplication::allWidgets().size() < controls; ++control) {
        layout->addWidget(Benchmarks::BareControl(control), 1 + control / 8, control % 8);
    }
    window.setCentralWidget(contents);
    window.resize(1100, 700);
    window.show();
    return QApplication::exec();
}

struct Figures {
    double milliseconds = 0;
    double mebibytes = 0;
    int controls = 0;
};

Figures RunOnce(const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(startedVariable), QString::number(Benchmarks::MonotonicSeconds(), 'f', 6));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    Figures figures;
    if (!process.waitForFinished() || std::sscanf(process.readAllStandardOutput().constData(), "%lf %lf %d",
                                                  &figures.milliseconds, &figures.mebibytes, &figures.controls) != 3) {
        std::fprintf(stderr, "A run came to no first frame: %s\n", process.readAllStandardError().constData());
        std::exit(1);
    }
    return figures;
}

int Measure() {
    std::vector<double> programTime;
    std::vector<double> programMemory;
    std::vector<double> bareTime;
    std::vector<double> bareMemory;
    const int controls = RunOnce({QStringLiteral("--program")}).controls;
    for (int run = 0; run < runs; ++run) {
        const Figures program = RunOnce({QStringLiteral("--program")});
        const Figures bare = RunOnce({QStringLiteral("--bare"), QString::number(controls)});
        programTime.push_back(program.milliseconds);
        programMemory.push_back(program.mebibytes);
        bareTime.push_back(bare.milliseconds);
        bareMemory.push_back(bare.mebibytes);
    }
    std::printf("%d widgets, %d runs each, platform %s\n", controls, runs, qPrintable(QGuiApplication::platformName()));
    using Benchmarks::Median;
    Benchmarks::PrintFigure("Start to first frame", Median(programTime), Median(bareTime), "ms");
    Benchmarks::PrintFigure("Resident memory at the first frame", Median(programMemory), Median(bareMemory), "MiB");
    return 0;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchForFirstFrame)

int main(int argc, char* argv[]) {
    if (argc > 1 && qstrcmp(argv[1], "--program") == 0) {
        return RunProgram(argc, argv);
    }
    if (argc > 2 && qstrcmp(argv[1], "--bare") == 0) {
        return RunBareWindow(argc, argv, std::atoi(argv[2]));
    }
    const QGuiApplication application(argc, argv);
    return Measure();
}
