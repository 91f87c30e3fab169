#include "app/Application.h"
#include "tools/driver/FailureLog.h"
#include "tools/screenshots/SmallPicture.h"
#include "tools/tour/Tour.h"

#include <QDir>
#include <QFontDatabase>

#include <cstdio>

// Walks through every screen of the program on the simulated bench and writes a picture of each.

namespace {

int Refuse(const QString& reason) {
    std::fprintf(stderr, "tavik-screenshots: %s\n", qPrintable(reason));
    return 1;
}

bool Save(QWidget& widget, const QDir& folder, const QString& name) {
    ProcessAllEvents();
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    constexpr int smallestFile = 0;
    const bool saved = SmallPicture(widget.grab().toImage()).save(path, "PNG", smallestFile);
    if (!saved) {
        FailureLog::Add(QStringLiteral("%1 cannot be written.").arg(path));
    }
    return saved;
}

/// Returns how many pictures were written.
int TakePictures(const QDir& folder) {
    int pictures = 0;
    Tour tour(DefaultTourBench());
    tour.OnDialog([&](QWidget& dialog, const QString& name) { pictures += Save(dialog, folder, name) ? 1 : 0; });
    tour.PrepareBench();
    tour.OpenWindow();
    tour.Window().resize(tour.Window().minimumSize());
    tour.boxes.Tolerate(true);
    std::vector<TourStep> steps = TourSteps(tour.bench);
    const std::vector<TourStep> ofModes = ModesTourSteps(tour.bench);
    steps.insert(steps.end(), ofModes.begin(), ofModes.end());
    for (const TourStep& step : steps) {
        if (step.closes) {
            continue;
        }
        step.act(tour);
        if (!step.seen(tour)) {
            FailureLog::Add(QStringLiteral("\"%1\" does not show what it should.").arg(step.name));
        }
        pictures += Save(tour.Window(), folder, step.name) ? 1 : 0;
    }
    return pictures;
}

} // namespace

int main(int argc, char* argv[]) {
    const Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        return Refuse(QStringLiteral("usage: tavik-screenshots FOLDER"));
    }
    if (QFontDatabase().families().isEmpty()) {
        return Refuse(QStringLiteral("there are no fonts; without any the pictures would show no text."));
    }
    const QDir folder(arguments.at(1));
    if (!folder.mkpath(QStringLiteral("."))) {
        return Refuse(QStringLiteral("the folder %1 cannot be made.").arg(folder.path()));
    }
    const int pictures = TakePictures(folder);
    const QStringList failures = FailureLog::Take();
    if (!failures.isEmpty()) {
        return Refuse(failures.join(QLatin1Char('\n')));
    }
    std::printf("%d pictures in %s\n", pictures, qPrintable(folder.path()));
    return 0;
}
