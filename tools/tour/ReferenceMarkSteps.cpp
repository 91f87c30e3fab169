#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QDoubleSpinBox>

using namespace TavikSimulator;

namespace {

/// Longer than the simulated operator takes to reach the mark.
constexpr double seconds = 10.0;

/// Looks for the mark; in the first round of the search something happens, in the third the hand has come.
void Find(Tour& tour, const std::function<void(WidgetDriver driver)>& meanwhile) {
    int rounds = 0;
    const auto operation = Repeatedly([&] {
        ++rounds;
        if (rounds == 1) {
            meanwhile(tour.Operator());
        } else if (rounds == 3) {
            LetTimePass(seconds);
        }
    });
    tour.Operator().Click("btnFind");
}

void Learn(Tour& tour) {
    WidgetDriver driver = tour.Operator();
    driver.SelectPage("tabRefMark");
    driver.Click("radioLearn");
    driver.Click("radioCounts");
    Find(tour, [&tour](WidgetDriver) { tour.ReportDialog(tour.Window(), QStringLiteral("reference-mark-search")); });
}

void Recall(Tour& tour) {
    WidgetDriver driver = tour.Operator();
    driver.SelectPage("tabRefMark");
    driver.Click("radioRecall");
    driver.Click("radioUnits");
    driver.Enter("sbRecallValue", QStringLiteral("-2.5"));
    Find(tour, [](WidgetDriver) {});
}

void GiveUp(Tour& tour) {
    tour.Operator().SelectPage("tabRefMark");
    Find(tour, [](WidgetDriver driver) { driver.Click("btnStop"); });
}

/// The recall value is the same number, without the five decimals of the reading.
bool ShowsWhatWasLearnt(Tour& tour) {
    const QString reading = tour.Operator().Text("tbRefMarkReading");
    const auto* recallValue = tour.Operator().The<QDoubleSpinBox>("sbRecallValue");
    return !reading.isEmpty() && reading == QString::number(recallValue->value(), 'f', 5);
}

std::function<bool(Tour& tour)> Shows(const QString& reading) {
    return [reading](Tour& tour) { return tour.Operator().Text("tbRefMarkReading") == reading; };
}

} // namespace

void AddReferenceMarkSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.linearEncoder.isEmpty()) {
        return;
    }
    const Location encoder{Location::Module, bench.shown, bench.linearEncoder};
    const FailureRule failure = Always(QStringLiteral("Ref Mark Mode"), QStringLiteral("Error: "));
    AddPage(steps, encoder, LastResortOnly);
    steps.push_back({QStringLiteral("reference-mark"), encoder,
                     [](Tour& tour) { tour.Operator().SelectPage("tabRefMark"); },
                     [encoder](Tour& tour) { return tour.Operator().Text("tbRefMarkModuleID") == encoder.module; },
                     LastResortOnly});
    steps.push_back({QStringLiteral("reference-mark-learnt"), encoder, Learn, ShowsWhatWasLearnt, failure});
    steps.push_back(
        {QStringLiteral("reference-mark-recalled"), encoder, Recall, Shows(QStringLiteral("-2.50000")), failure});
    steps.push_back({QStringLiteral("reference-mark-given-up"), encoder, GiveUp, Shows(QString()), failure});
}
