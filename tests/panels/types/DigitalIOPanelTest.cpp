#include "panels/types/ModuleSWAXWidget.h"
#include "tests/panels/types/PanelTest.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>
#include <QTimer>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("SWAX Module");

QByteArray Name(const char* stem, int pin) {
    return QByteArray(stem) + QByteArray::number(pin);
}

/// The calls of a refresh of one pin that is an input or an output.
QStringList PinCalls(int pin, bool input) {
    const QString state = input ? QStringLiteral("InputState(%1)") : QStringLiteral("OutputState(%1)");
    return {QStringLiteral("PinConfiguration(%1)").arg(pin), state.arg(pin), state.arg(pin)};
}

/// The calls of a whole refresh; bit i of the mask says that pin i is an output.
QStringList RefreshCalls(int outputs) {
    QStringList calls;
    for (int pin = 0; pin < 8; ++pin) {
        calls += PinCalls(pin, ((outputs >> pin) & 1) == 0);
    }
    return calls + QStringList{QStringLiteral("DebounceTime()")};
}

} // namespace

/// The panel of a digital I/O module with 8 pins.
class DigitalIOPanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void refreshGoesPinByPin();
    void eachPinShowsItsInputOrItsOutput();
    void theGridStaysWhereItIs();
    void levelsAreShown();
    void strangeLevelsCheckNeither();
    void theLowButtonIsReadFirst();
    void anyOtherConfigurationIsAnOutput();
    void directionsAreSet();
    void theSameDirectionIsSentAgain();
    void outputsAreDriven();
    void refusedSetLeavesTheButtonChecked();
    void refreshStopsAtThePinThatFails();
    void secondReadThatFailsKeepsTheOtherButton();
    void readRefreshesThePins();
    void failedReadDoesNotRefresh();
    void continuousReadingRefreshesThePins();
    void enablingConcernsButtonsThatSet();
    void failureWhileFillingIsThePanelsOwn();

private:
    bool IsChecked(const char* stem, int pin) {
        return Operator().The<QRadioButton>(Name(stem, pin).constData())->isChecked();
    }
    bool IsVisible(const char* stem, int pin) { return Operator().Find(Name(stem, pin).constData())->isVisible(); }
    bool ClickPin(const char* stem, int pin) { return Operator().Click(Name(stem, pin).constData()); }
    /// "Input Low", "Output High", "Output -", ... as the row of a pin shows it.
    QString Row(int pin);
};

QString DigitalIOPanelTest::Row(int pin) {
    const bool input = IsChecked("radioConfigInput", pin);
    if (input == IsChecked("radioConfigOutput", pin)) {
        return QStringLiteral("no direction");
    }
    const char* low = input ? "radioInputLow" : "radioOutputLow";
    const char* high = input ? "radioInputHigh" : "radioOutputHigh";
    const bool isLow = IsChecked(low, pin);
    const bool isHigh = IsChecked(high, pin);
    const QString level = isLow && isHigh ? QStringLiteral("both")
                          : isLow         ? QStringLiteral("Low")
                          : isHigh        ? QStringLiteral("High")
                                          : QStringLiteral("-");
    return (input ? QStringLiteral("Input ") : QStringLiteral("Output ")) + level;
}

void DigitalIOPanelTest::theFormIsAsKnown() {
    OpenPanel("SWAX");
    const auto* panel = ThePanel<ModuleSWAXWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringList{QStringLiteral("Debounce Time")});
    QStringList labels;
    const auto found = panel->findChildren<QLabel*>();
    for (const QLabel* label : found) {
        labels.append(label->text());
    }
    QCOMPARE(labels, QStringLiteral("Pin #,Pin Configuration,Output State,Input State,Pin 1,Pin 2,Pin 3,Pin 4,Pin 5,"
                                    "Pin 6,Pin 7,Pin 8,<- Click Read or Start Continuous to read input pin states.,ms")
                         .split(QLatin1Char(',')));
    for (int pin = 1; pin <= 8; ++pin) {
        for (const auto& [frame, first, firstText, second, secondText] :
             {std::tuple("frameConfig", "radioConfigInput", "Input", "radioConfigOutput", "Output"),
              std::tuple("frameOutput", "radioOutputLow", "Low", "radioOutputHigh", "High"),
              std::tuple("frameInput", "radioInputLow", "Low", "radioInputHigh", "High")}) {
            const auto* place = panel->findChild<QFrame*>(QLatin1String(Name(frame, pin)));
            QVERIFY(place != nullptr);
            const auto* low = place->findChild<QRadioButton*>(QLatin1String(Name(first, pin)));
            const auto* high = place->findChild<QRadioButton*>(QLatin1String(Name(second, pin)));
            QVERIFY(low != nullptr && high != nullptr);
            QCOMPARE(low->text(), QLatin1String(firstText));
            QCOMPARE(high->text(), QLatin1String(secondText));
            const bool displayOnly = qstrcmp(frame, "frameInput") == 0;
            QCOMPARE(low->isEnabled(), !displayOnly);
            QCOMPARE(high->isEnabled(), !displayOnly);
            QCOMPARE(low->styleSheet(), displayOnly ? QStringLiteral("color: black;") : QString());
            QCOMPARE(high->styleSheet(), displayOnly ? QStringLiteral("color: black;") : QString());
        }
    }
    const auto* times = Operator().The<QComboBox>("cbDebouncetime");
    QStringList entries;
    for (int index = 0; index < times->count(); ++index) {
        entries.append(times->itemText(index));
    }
    QCOMPARE(entries, QStringLiteral("0,5,10,15,25,50").split(QLatin1Char(',')));
    QCOMPARE(Operator().Text("btnSetDebounce"), QStringLiteral("Set"));
}

void DigitalIOPanelTest::refreshGoesPinByPin() {
    OpenNetwork(BenchWith("SWAX", QStringLiteral("outputs=\"0x81\""), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    COMPARE_CALLS(calls.mid(calls.indexOf(QStringLiteral("PinConfiguration(0)")), 25), RefreshCalls(0x81));
    QCOMPARE(calls.count(QStringLiteral("DebounceTime()")), 1);
}

void DigitalIOPanelTest::eachPinShowsItsInputOrItsOutput() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x55\""));
    for (int pin = 1; pin <= 8; ++pin) {
        const bool output = pin % 2 == 1;
        for (const char* stem : {"radioOutputLow", "radioOutputHigh"}) {
            QCOMPARE(IsVisible(stem, pin), output);
        }
        for (const char* stem : {"radioInputLow", "radioInputHigh"}) {
            QCOMPARE(IsVisible(stem, pin), !output);
        }
        QVERIFY(IsVisible("radioConfigInput", pin) && IsVisible("radioConfigOutput", pin));
    }
}

void DigitalIOPanelTest::theGridStaysWhereItIs() {
    OpenPanel("SWAX");
    const auto places = [this] {
        QVector<QRect> all;
        const auto buttons = ThePanel<ModuleSWAXWidget>()->findChildren<QWidget*>();
        for (const QWidget* button : buttons) {
            if (button->objectName().startsWith(QLatin1String("radio")) ||
                button->objectName().startsWith(QLatin1String("frame"))) {
                all.append(QRect(button->mapTo(&Window(), QPoint()), button->size()));
            }
        }
        return all;
    };
    const QVector<QRect> before = places();
    QCOMPARE(before.size(), 8 * 9);
    for (int pin = 1; pin <= 8; ++pin) {
        QVERIFY(ClickPin("radioConfigOutput", pin));
        ProcessAllEvents();
        QCOMPARE(places(), before);
    }
}

void DigitalIOPanelTest::levelsAreShown() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x03\" inputs=\"0x90\""));
    QCOMPARE(Row(1), QStringLiteral("Output Low"));
    QCOMPARE(Row(3), QStringLiteral("Input Low"));
    QCOMPARE(Row(5), QStringLiteral("Input High"));
    QCOMPARE(Row(8), QStringLiteral("Input High"));
}

void DigitalIOPanelTest::strangeLevelsCheckNeither() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x01\" inputs=\"0x02\""));
    QCOMPARE(Row(1), QStringLiteral("Output Low"));
    QCOMPARE(Row(2), QStringLiteral("Input High"));
    AnswerFrom(1, "OutputState", 2);
    AnswerFrom(1, "InputState", -1);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Row(1), QStringLiteral("Output -"));
    QCOMPARE(Row(2), QStringLiteral("Input -"));
    ClearFaults();
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Row(1), QStringLiteral("Output Low"));
    QCOMPARE(Row(2), QStringLiteral("Input High"));
    // The pair is exclusive again: one click, one button.
    QVERIFY(ClickPin("radioOutputHigh", 1));
    QCOMPARE(Row(1), QStringLiteral("Output High"));
}

void DigitalIOPanelTest::theLowButtonIsReadFirst() {
    OpenPanel("SWAX");
    Fault swing;
    swing.operation = "InputState";
    swing.effect = FaultEffect::Result;
    swing.code = Row(1) == QLatin1String("Input High") ? 0 : 1;
    AddFault(swing);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Row(1), swing.code == 0 ? QStringLiteral("Input High") : QStringLiteral("Input -"));
}

void DigitalIOPanelTest::anyOtherConfigurationIsAnOutput() {
    for (const int configuration : {0, 2, -1}) {
        OpenPanel("SWAX");
        AnswerFrom(1, "PinConfiguration", configuration);
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(Row(4), QStringLiteral("Output Low"));
        QVERIFY(IsVisible("radioOutputLow", 4) && !IsVisible("radioInputLow", 4));
        Drop();
    }
}

void DigitalIOPanelTest::directionsAreSet() {
    OpenPanel("SWAX");
    int outputs = 0;
    for (int pin = 1; pin <= 8; ++pin) {
        QVERIFY(ClickPin("radioConfigOutput", pin));
        outputs |= 1 << (pin - 1);
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setPinConfiguration(%1, 0)").arg(pin - 1)} + RefreshCalls(outputs));
        QCOMPARE(Row(pin), QStringLiteral("Output Low"));
    }
    for (int pin = 1; pin <= 8; ++pin) {
        QVERIFY(ClickPin("radioConfigInput", pin));
        outputs &= ~(1 << (pin - 1));
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setPinConfiguration(%1, 1)").arg(pin - 1)} + RefreshCalls(outputs));
        QCOMPARE(Row(pin), QStringLiteral("Input Low"));
    }
}

void DigitalIOPanelTest::theSameDirectionIsSentAgain() {
    OpenPanel("SWAX");
    QVERIFY(ClickPin("radioConfigInput", 3));
    COMPARE_CALLS(ModuleCalls(), QStringList{QStringLiteral("setPinConfiguration(2, 1)")} + RefreshCalls(0));
}

void DigitalIOPanelTest::outputsAreDriven() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0xFF\""));
    for (int pin = 1; pin <= 8; ++pin) {
        QVERIFY(ClickPin("radioOutputHigh", pin));
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setOutputState(%1, 1)").arg(pin - 1)} + RefreshCalls(0xFF));
        QCOMPARE(Row(pin), QStringLiteral("Output High"));
    }
    for (int pin = 1; pin <= 8; ++pin) {
        QVERIFY(ClickPin("radioOutputLow", pin));
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setOutputState(%1, 0)").arg(pin - 1)} + RefreshCalls(0xFF));
        QCOMPARE(Row(pin), QStringLiteral("Output Low"));
    }
}

void DigitalIOPanelTest::refusedSetLeavesTheButtonChecked() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x01\""));
    FailNext("setPinConfiguration", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAXWidget>(), boxTitle, ForeignText());
    QVERIFY(ClickPin("radioConfigOutput", 5));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPinConfiguration(4, 0)")});
    QVERIFY(IsChecked("radioConfigOutput", 5));
    QVERIFY(!IsChecked("radioConfigInput", 5));
    FailNext("setOutputState", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAXWidget>(), boxTitle, ForeignText());
    QVERIFY(ClickPin("radioOutputHigh", 1));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setOutputState(0, 1)")});
    QCOMPARE(Row(1), QStringLiteral("Output High"));
    QCOMPARE(boxes.Count(), 2);
}

void DigitalIOPanelTest::refreshStopsAtThePinThatFails() {
    // Pins 2 and 6 have changed since they were shown; the refresh gets to pin 4.
    OpenPanel("SWAX", QStringLiteral("debounce=\"0\""),
              QStringLiteral("<pulses pin=\"1\" period=\"2\" high=\"1\"/><pulses pin=\"5\" period=\"2\" high=\"1\"/>"));
    QCOMPARE(Row(2), QStringLiteral("Input High"));
    AdvanceClock(1.0);
    FailNth(4, "PinConfiguration", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAXWidget>(), boxTitle, ForeignText());
    QVERIFY(ClickPin("radioConfigOutput", 8));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Row(2), QStringLiteral("Input Low"));
    QCOMPARE(Row(6), QStringLiteral("Input High"));
    QVERIFY(IsVisible("radioInputLow", 8));
    QCOMPARE(ModuleCalls().constLast(), QStringLiteral("PinConfiguration(3)"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Row(6), QStringLiteral("Input Low"));
    QCOMPARE(Row(8), QStringLiteral("Output Low"));
}

void DigitalIOPanelTest::secondReadThatFailsKeepsTheOtherButton() {
    OpenPanel("SWAX", QStringLiteral("inputs=\"0x01\""));
    QCOMPARE(Row(1), QStringLiteral("Input High"));
    FailNth(2, "InputState", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAXWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Row(1), QStringLiteral("Input High"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("1"));
}

void DigitalIOPanelTest::readRefreshesThePins() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x01\" debounce=\"50\""),
              QStringLiteral("<wire from=\"0\" to=\"6\"/>"));
    QVERIFY(ClickPin("radioOutputHigh", 1));
    // The level has to last for the debounce time before the module sees it.
    QCOMPARE(Row(7), QStringLiteral("Input Low"));
    AdvanceClock(0.05);
    ModuleCalls();
    QVERIFY(Operator().Click("btnRead"));
    COMPARE_CALLS(ModuleCalls(),
                  QStringList({QStringLiteral("ReadInCounts()"), QStringLiteral("ModuleType()")}) + RefreshCalls(0x01));
    QCOMPARE(Row(7), QStringLiteral("Input High"));
    QCOMPARE(Operator().Text("tbReading"), QString::number(0x41));
}

void DigitalIOPanelTest::failedReadDoesNotRefresh() {
    OpenPanel("SWAX");
    FailNext("ReadInCounts", ForeignText());
    boxes.ExpectError(Operator().Find("moduleWidget"), QStringLiteral("Reading Error"), ForeignText());
    QVERIFY(Operator().Click("btnRead"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("ReadInCounts()")});
    QCOMPARE(boxes.Count(), 1);
}

void DigitalIOPanelTest::continuousReadingRefreshesThePins() {
    OpenPanel("SWAX", QString(), QStringLiteral("<pulses pin=\"0\" period=\"2\" high=\"1\"/>"));
    QCOMPARE(Row(1), QStringLiteral("Input High"));
    QElapsedTimer sinceStart;
    sinceStart.start();
    QString seen;
    bool enabled = true;
    bool lower = false;
    QTimer look;
    connect(&look, &QTimer::timeout, &Window(), [&] {
        if (Operator().Text("tbReading").isEmpty()) {
            return;
        }
        if (!lower) {
            AdvanceClock(1.0);
            lower = true;
        } else if (Row(1) == QLatin1String("Input Low") || sinceStart.hasExpired(10000)) {
            look.stop();
            seen = Row(1);
            enabled = Operator().IsEnabled("radioConfigInput1");
            Operator().Click("btnStopContinuous");
        }
    });
    look.start(5);
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(seen, QStringLiteral("Input Low"));
    QVERIFY(!enabled);
    QVERIFY(Operator().IsEnabled("radioConfigInput1"));
}

void DigitalIOPanelTest::enablingConcernsButtonsThatSet() {
    OpenPanel("SWAX", QStringLiteral("outputs=\"0x0F\""));
    const auto* panel = ThePanel<ModuleSWAXWidget>();
    QStringList all{QStringLiteral("btnSetDebounce")};
    for (int pin = 1; pin <= 8; ++pin) {
        for (const char* stem : {"radioConfigInput", "radioConfigOutput", "radioOutputLow", "radioOutputHigh"}) {
            all.append(QLatin1String(Name(stem, pin)));
        }
    }
    all.sort();
    QCOMPARE(EnabledButtons(panel), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(panel), QStringList());
    QVERIFY(Operator().IsEnabled("cbDebouncetime"));
    hold.Release();
    QCOMPARE(EnabledButtons(panel), all);
}

void DigitalIOPanelTest::failureWhileFillingIsThePanelsOwn() {
    const QVector<SeenBox> seen = OpenFailingPanel("SWAX", [] { FailNth(3, "PinConfiguration", ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, boxTitle);
    QCOMPARE(seen.first().text, ForeignText());
    QCOMPARE(seen.first().parent, ThePanel<ModuleSWAXWidget>());
    QCOMPARE(Row(2), QStringLiteral("Input Low"));
    QCOMPARE(Row(3), QStringLiteral("no direction"));
    // The rest of the page has been filled all the same.
    QCOMPARE(Operator().Text("tbStroke"), QStringLiteral("255.00000"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Row(8), QStringLiteral("Input Low"));
}

TAVIK_TEST_MAIN(DigitalIOPanelTest)

#include "DigitalIOPanelTest.moc"
