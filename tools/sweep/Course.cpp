#include "tools/sweep/Course.h"

#include "tools/tour/Steps.h"

#include <algorithm>

namespace {

Course CourseOfPanel(const char* kind) {
    const QString name = QLatin1String(kind);
    return {QStringLiteral("panel-") + name, [name] { return PanelTourBench(name); }, PanelTourSteps};
}

std::vector<Course> MakeCourses() {
    std::vector<Course> courses{{QStringLiteral("main"), SmallTourBench, TourSteps},
                                {QStringLiteral("wireless"), WirelessTourBench, WirelessTourSteps},
                                {QStringLiteral("difference"), DifferenceTourBench, ModesTourSteps},
                                {QStringLiteral("reference-mark"), ReferenceMarkTourBench, ModesTourSteps},
                                {QStringLiteral("buffered"), BufferedTourBench, ModesTourSteps},
                                {QStringLiteral("dynamic"), DynamicTourBench, ModesTourSteps}};
    for (const char* kind : {"RN", "QTA", "SWAX", "SWAX2", "BW", "BWR", "BWK", "HVX"}) {
        courses.push_back(CourseOfPanel(kind));
    }
    return courses;
}

/// Once there is a window, whoever does not see the networks connects them.
void OpenOrConnect(Tour& tour) {
    if (tour.HasWindow()) {
        tour.Operator().Click("btnConnectAll");
    } else {
        tour.OpenWindow();
    }
}

} // namespace

const std::vector<Course>& Courses() {
    static const std::vector<Course> courses = MakeCourses();
    return courses;
}

const Course* FindCourse(const QString& name) {
    const auto found =
        std::find_if(Courses().begin(), Courses().end(), [&name](const Course& course) { return course.name == name; });
    return found == Courses().end() ? nullptr : &*found;
}

std::vector<TourStep> WholeWay(const Course& course, const TourBench& bench) {
    std::vector<TourStep> steps{{QStringLiteral("start"), Place(), OpenOrConnect,
                                 [](Tour& tour) { return !tour.Cell(tour.bench.otherNetwork, 0).isEmpty(); },
                                 LastResortOnly}};
    const std::vector<TourStep> tour = course.steps(bench);
    steps.insert(steps.end(), tour.begin(), tour.end());
    if (!steps.back().closes) {
        TourStep close{QStringLiteral("closed"), Place{Place::Nowhere, 0, QString()},
                       [](Tour& closing) { closing.Window().close(); },
                       [](Tour& closed) { return !closed.Window().isVisible(); }, Swallowed};
        close.closes = true;
        steps.push_back(close);
    }
    return steps;
}
