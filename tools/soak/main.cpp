#include "app/Application.h"
#include "tools/soak/Soak.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cstdio>

// Repeats the tour for hours of bench time and reports whether the memory or another resource in use grows.

namespace {

constexpr double secondsPerHour = 3600.0;

enum ExitCode { Passed = 0, SomethingGrows = 1, SomethingInconclusive = 2, SomethingWrong = 3 };

void Print(const Finding& finding) {
    std::printf("%-24s %12.0f %12.0f %12.2f +- %-10.2f %8.2f  %s\n", finding.quantity.c_str(), finding.first,
                finding.last, finding.trend.slope, finding.trend.margin, finding.growthLimit, ToText(finding.result));
}

bool Save(const QString& path, const std::vector<Sample>& samples) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        return false;
    }
    QTextStream stream(&file);
    stream.setRealNumberPrecision(15);
    stream << "resident,heap,threads,files,objects\n";
    for (const Sample& sample : samples) {
        stream << sample.residentBytes << ',' << sample.heapBytes << ',' << sample.threads << ',' << sample.files << ','
               << sample.objects << '\n';
    }
    stream.flush();
    return stream.status() == QTextStream::Ok;
}

ExitCode Conclude(const Soak& soak, const std::vector<Finding>& findings) {
    const auto any = [&](TrendResult result) {
        return std::any_of(findings.begin(), findings.end(),
                           [result](const Finding& finding) { return finding.result == result; });
    };
    if (!soak.Failures().isEmpty()) {
        return SomethingWrong;
    }
    if (any(TrendResult::Fail)) {
        return SomethingGrows;
    }
    return any(TrendResult::Inconclusive) ? SomethingInconclusive : Passed;
}

int Run(double minutes, double speed, const QString& samplesPath) {
    constexpr qint64 millisecondsPerMinute = 60000;
    Soak soak(DefaultTourBench(), SoakSteps(DefaultTourBench()), speed);
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (static_cast<double>(sinceStart.elapsed()) < minutes * millisecondsPerMinute) {
        soak.Round();
        const Sample& sample = soak.Samples().back();
        std::printf("round %zu: %.0f resident, %.0f in use, %.0f threads, %.0f files, %.0f objects\n",
                    soak.Samples().size(), sample.residentBytes, sample.heapBytes, sample.threads, sample.files,
                    sample.objects);
        std::fflush(stdout);
    }
    const double hours = Soak::BenchSeconds() / secondsPerHour;
    soak.Close();
    std::printf("\n%zu rounds, %.1f hours on the bench, %.1f minutes by the clock\n", soak.Samples().size(), hours,
                static_cast<double>(sinceStart.elapsed()) / millisecondsPerMinute);
    std::printf("%-24s %12s %12s %12s    %-10s %8s  %s\n", "after the warm-up", "first", "last", "per round", "95 %",
                "limit", "result");
    const std::vector<Finding> findings = soak.Findings();
    for (const Finding& finding : findings) {
        Print(finding);
    }
    for (const QString& failure : soak.Failures()) {
        std::printf("%s\n", qPrintable(failure));
    }
    if (!samplesPath.isEmpty() && !Save(samplesPath, soak.Samples())) {
        std::fprintf(stderr, "tavik-soak: %s cannot be written.\n", qPrintable(samplesPath));
        return SomethingWrong;
    }
    return Conclude(soak, findings);
}

} // namespace

int main(int argc, char* argv[]) {
    const bool counted = CountObjects();
    const Application application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption minutes(QStringLiteral("minutes"), QStringLiteral("How long to go on, by the clock."),
                                     QStringLiteral("number"), QStringLiteral("10"));
    const QCommandLineOption speed(QStringLiteral("speed"),
                                   QStringLiteral("How many times as fast the bench's time runs."),
                                   QStringLiteral("number"), QStringLiteral("60"));
    const QCommandLineOption samples(QStringLiteral("samples"), QStringLiteral("Where to write the samples."),
                                     QStringLiteral("file"));
    parser.addOptions({minutes, speed, samples});
    parser.addHelpOption();
    parser.process(application);
    const double minutesAsked = parser.value(minutes).toDouble();
    const double speedAsked = parser.value(speed).toDouble();
    if (minutesAsked <= 0.0 || speedAsked <= 0.0) {
        std::fprintf(stderr, "tavik-soak: minutes and speed are numbers above 0.\n");
        return SomethingWrong;
    }
    if (!counted) {
        std::fprintf(stderr, "tavik-soak: this Qt build has no object hooks.\n");
        return SomethingWrong;
    }
    return Run(minutesAsked, speedAsked, parser.value(samples));
}
