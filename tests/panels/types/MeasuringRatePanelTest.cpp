#include "library/TavikModuleLaser.h"
#include "panels/types/ModuleBWKWidget.h"
#include "tests/panels/types/PanelTest.h"

using namespace TavikLibrary;
using namespace TavikSimulator;

namespace {

QString RateText(eMeasuringRate rate) {
    return QString::fromStdString(eMeasuringRate_ToString(rate));
}

} // namespace

/// The panel of a laser with selectable measuring rates.
class MeasuringRatePanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void rateForm();
    void ratesAreTheModules();
    void rateIsSetAndShownAsSent();
    void nothingSelectedDoesNothing();
    void tabIntoTheRatesChoosesNone();
    void failedRateKeepsTheText();
    void ratePanelIsEnabledAndDisabled();
};

void MeasuringRatePanelTest::rateForm() {
    OpenPanel("BWK");
    const auto* panel = ThePanel<ModuleBWKWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Operator().The<QGroupBox>("groupBoxMeasuringRate")->title(), QStringLiteral("Measuring Rate"));
    QCOMPARE(LabelsOf(panel), QStringList({QStringLiteral("Current"), QStringLiteral("Available")}));
    QVERIFY(Operator().Find("tbCurrentMeasuringRate")->property("readOnly").toBool());
    QCOMPARE(Operator().Text("btnSetMeasuringRate"), QStringLiteral("Set"));
}

void MeasuringRatePanelTest::ratesAreTheModules() {
    OpenPanel("BWK", QStringLiteral("rates=\"2kHz 100Hz 1kHz\" rate=\"1kHz\""));
    QCOMPARE(Rows("listAvailableMeasuringRates"),
             QStringList({RateText(eMeasuringRate::Rate2KHz), RateText(eMeasuringRate::Rate100Hz),
                          RateText(eMeasuringRate::Rate1KHz)}));
    QCOMPARE(Operator().Text("tbCurrentMeasuringRate"), RateText(eMeasuringRate::Rate1KHz));
    const QStringList calls = Calls::TakeOperation("MeasuringRate");
    QVERIFY(calls.isEmpty());
}

void MeasuringRatePanelTest::rateIsSetAndShownAsSent() {
    OpenPanel("BWK", QStringLiteral("rates=\"100Hz 500Hz\""));
    AnswerFrom(1, "MeasuringRate", 4);
    QVERIFY(Operator().SelectRow("listAvailableMeasuringRates", 1));
    QVERIFY(Operator().Click("btnSetMeasuringRate"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setMeasuringRate(1)")});
    QCOMPARE(Operator().Text("tbCurrentMeasuringRate"), RateText(eMeasuringRate::Rate500Hz));
    QCOMPARE(Rows("listAvailableMeasuringRates").size(), 2);
}

void MeasuringRatePanelTest::nothingSelectedDoesNothing() {
    OpenPanel("BWK");
    const QString before = Operator().Text("tbCurrentMeasuringRate");
    QVERIFY(Operator().Click("btnSetMeasuringRate"));
    COMPARE_CALLS(ModuleCalls(), {});
    // A row may be the current one, as it is for the keyboard, without being selected.
    auto* list = Operator().The<QListWidget>("listAvailableMeasuringRates");
    list->setCurrentRow(2, QItemSelectionModel::NoUpdate);
    QVERIFY(Operator().Click("btnSetMeasuringRate"));
    COMPARE_CALLS(ModuleCalls(), {});
    QCOMPARE(Operator().Text("tbCurrentMeasuringRate"), before);
    QCOMPARE(boxes.Count(), 0);
}

void MeasuringRatePanelTest::tabIntoTheRatesChoosesNone() {
    OpenPanel("BWK");
    Operator().Find("listAvailableMeasuringRates")->setFocus(Qt::TabFocusReason);
    QVERIFY(Operator().Click("btnSetMeasuringRate"));
    COMPARE_CALLS(ModuleCalls(), {});
}

void MeasuringRatePanelTest::failedRateKeepsTheText() {
    OpenPanel("BWK");
    const QString before = Operator().Text("tbCurrentMeasuringRate");
    QVERIFY(Operator().SelectRow("listAvailableMeasuringRates", 3));
    FailNext("setMeasuringRate", ForeignText());
    boxes.ExpectError(ThePanel<ModuleBWKWidget>(), QStringLiteral("BWK Module"), ForeignText());
    QVERIFY(Operator().Click("btnSetMeasuringRate"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().Text("tbCurrentMeasuringRate"), before);
}

void MeasuringRatePanelTest::ratePanelIsEnabledAndDisabled() {
    OpenPanel("BWK");
    const QStringList all{QStringLiteral("btnSetMeasuringRate")};
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWKWidget>()), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWKWidget>()), QStringList());
    QVERIFY(Operator().IsEnabled("listAvailableMeasuringRates"));
    hold.Release();
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWKWidget>()), all);
}

TAVIK_TEST_MAIN(MeasuringRatePanelTest)

#include "MeasuringRatePanelTest.moc"
