#include "panels/types/ModuleSWAX2Widget.h"
#include "tests/panels/types/PanelTest.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("SWAX2 Module");

QByteArray Name(const char* stem, int number) {
    return QByteArray(stem) + QByteArray::number(number);
}

/// The calls of a whole refresh: the states twice each, the mask afresh for every channel.
QStringList RefreshCalls() {
    QStringList calls;
    for (int pin = 0; pin < 10; ++pin) {
        const bool output = pin < 4;
        const QString state = output ? QStringLiteral("OutputState(%1)") : QStringLiteral("InputState(%1)");
        calls += {state.arg(pin), state.arg(pin),
                  output ? QStringLiteral("OutPolarityMask()") : QStringLiteral("InPolarityMask()")};
    }
    return calls + QStringList{QStringLiteral("DebounceTime()"), QStringLiteral("OutputMode()")};
}

} // namespace

/// The panel of a digital I/O module of the second generation.
class DigitalIO2PanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void refreshAsksInOrder();
    void showsStatesAndPolarities();
    void strangeStatesCheckNeither();
    void masksAreReadForEveryChannel();
    void outputsAreDriven();
    void outputPolarityIsChanged();
    void inputPolarityIsChanged();
    void otherBitsSurvive();
    void anUnchangedMaskIsWrittenToo();
    void maskThatCannotBeReadIsNotWritten();
    void refusedSetLeavesTheButtonChecked_data();
    void refusedSetLeavesTheButtonChecked();
    void refreshStopsAtTheChannelThatFails();
    void outputModeIsShown();
    void outputModeIsSent();
    void outputModeThatFailsShowsABox();
    void readRefreshesTheChannels();
    void enablingConcernsButtonsThatSet();
    void failureWhileFillingIsThePanelsOwn();

private:
    bool IsChecked(const char* stem, int number) {
        return Operator().The<QRadioButton>(Name(stem, number).constData())->isChecked();
    }
    bool ClickChannel(const char* stem, int number) { return Operator().Click(Name(stem, number).constData()); }
    QString Pair(const char* low, const char* high, int number) {
        const int checked = (IsChecked(low, number) ? 1 : 0) + (IsChecked(high, number) ? 2 : 0);
        return QStringLiteral("-LHX").mid(checked, 1);
    }
    /// Outputs' states, their polarities, inputs' levels, their polarities: L, H, - for neither, X for both.
    QString All();
};

QString DigitalIO2PanelTest::All() {
    QString outputs;
    QString outputPolarities;
    for (int number = 1; number <= 4; ++number) {
        outputs += Pair("radioOutputLow", "radioOutputHigh", number);
        outputPolarities += Pair("radioActiveStateLowOut", "radioActiveStateHighOut", number);
    }
    QString inputs;
    QString inputPolarities;
    for (int number = 1; number <= 6; ++number) {
        inputs += Pair("radioInputLow", "radioInputHigh", number);
        inputPolarities += Pair("radioActiveStateLowIn", "radioActiveStateHighIn", number);
    }
    return QStringList({outputs, outputPolarities, inputs, inputPolarities}).join(QLatin1Char(' '));
}

void DigitalIO2PanelTest::theFormIsAsKnown() {
    OpenPanel("SWAX2");
    const auto* panel = ThePanel<ModuleSWAX2Widget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringList({QStringLiteral("Output Mode"), QStringLiteral("Debounce Time")}));
    QStringList labels;
    const auto found = panel->findChildren<QLabel*>();
    for (const QLabel* label : found) {
        labels.append(label->text());
    }
    QCOMPARE(labels, QStringLiteral("Pin #,Output State,Active State,Input State,Pin 1,Pin 2,Pin 3,Pin 4,Pin 1,Pin 2,"
                                    "Pin 3,Pin 4,Pin 5,Pin 6,<- Click Read or Start Continuous to read input pin "
                                    "states.,ms")
                         .split(QLatin1Char(',')));
    for (const auto& [frame, low, lowText, high, highText, count] :
         {std::tuple("frameOutput", "radioOutputLow", "Inactive", "radioOutputHigh", "Active", 4),
          std::tuple("frameActiveStateOut", "radioActiveStateLowOut", "Low", "radioActiveStateHighOut", "High", 4),
          std::tuple("frameInput", "radioInputLow", "Low", "radioInputHigh", "High", 6),
          std::tuple("frameActiveStateIn", "radioActiveStateLowIn", "Low", "radioActiveStateHighIn", "High", 6)}) {
        const bool displayOnly = qstrcmp(frame, "frameInput") == 0;
        for (int number = 1; number <= count; ++number) {
            const auto* place = panel->findChild<QFrame*>(QLatin1String(Name(frame, number)));
            QVERIFY(place != nullptr);
            const auto* first = place->findChild<QRadioButton*>(QLatin1String(Name(low, number)));
            const auto* second = place->findChild<QRadioButton*>(QLatin1String(Name(high, number)));
            QVERIFY(first != nullptr && second != nullptr);
            QCOMPARE(first->text(), QLatin1String(lowText));
            QCOMPARE(second->text(), QLatin1String(highText));
            QVERIFY(first->isVisible() && second->isVisible());
            QCOMPARE(first->isEnabled() || second->isEnabled(), !displayOnly);
            QCOMPARE(first->styleSheet(), displayOnly ? QStringLiteral("color: black;") : QString());
        }
    }
    const auto* modes = Operator().The<QComboBox>("cbOutputMode");
    QCOMPARE(modes->itemText(0) + modes->itemText(1) + modes->itemText(2), QStringLiteral("NPNPNPTTL"));
    QCOMPARE(modes->count(), 3);
    QCOMPARE(Operator().Text("btnSetOutputMode"), QStringLiteral("Set"));
}

void DigitalIO2PanelTest::refreshAsksInOrder() {
    OpenNetwork(BenchWith("SWAX2", QString(), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    COMPARE_CALLS(calls.mid(calls.indexOf(QStringLiteral("OutputState(0)")), 32), RefreshCalls());
}

void DigitalIO2PanelTest::showsStatesAndPolarities() {
    OpenPanel("SWAX2", QStringLiteral("inputs=\"0x150\" output-polarity=\"0x000A\" input-polarity=\"0x0005\""));
    QCOMPARE(All(), QStringLiteral("LLLL LHLH HLHLHL HLHLLL"));
}

void DigitalIO2PanelTest::strangeStatesCheckNeither() {
    OpenPanel("SWAX2", QStringLiteral("inputs=\"0x010\""));
    QCOMPARE(All(), QStringLiteral("LLLL HHHH HLLLLL HHHHHH"));
    AnswerFrom(1, "OutputState", 3);
    AnswerFrom(1, "InputState", -7);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(All(), QStringLiteral("---- HHHH ------ HHHHHH"));
    ClearFaults();
    QVERIFY(ClickChannel("radioOutputHigh", 2));
    QCOMPARE(All(), QStringLiteral("LHLL HHHH HLLLLL HHHHHH"));
}

void DigitalIO2PanelTest::masksAreReadForEveryChannel() {
    OpenPanel("SWAX2");
    // From the third channel on the mask says something else.
    AnswerFrom(3, "OutPolarityMask", 0x0000);
    AnswerFrom(5, "InPolarityMask", 0x0000);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(All(), QStringLiteral("LLLL HHLL LLLLLL HHHHLL"));
}

void DigitalIO2PanelTest::outputsAreDriven() {
    OpenPanel("SWAX2");
    for (int number = 1; number <= 4; ++number) {
        QVERIFY(ClickChannel("radioOutputHigh", number));
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setOutputState(%1, 1)").arg(number - 1)} + RefreshCalls());
    }
    QCOMPARE(All().left(4), QStringLiteral("HHHH"));
    for (int number = 4; number >= 1; --number) {
        QVERIFY(ClickChannel("radioOutputLow", number));
        COMPARE_CALLS(ModuleCalls(),
                      QStringList{QStringLiteral("setOutputState(%1, 0)").arg(number - 1)} + RefreshCalls());
    }
    QCOMPARE(All().left(4), QStringLiteral("LLLL"));
}

void DigitalIO2PanelTest::outputPolarityIsChanged() {
    OpenPanel("SWAX2", QStringLiteral("output-polarity=\"0\""));
    int mask = 0;
    for (int number = 1; number <= 4; ++number) {
        mask |= 1 << (number - 1);
        QVERIFY(ClickChannel("radioActiveStateHighOut", number));
        COMPARE_CALLS(ModuleCalls(), QStringList({QStringLiteral("OutPolarityMask()"),
                                                  QStringLiteral("setOutPolarityMask(%1)").arg(mask)}) +
                                         RefreshCalls());
    }
    for (int number = 1; number <= 4; ++number) {
        mask &= ~(1 << (number - 1));
        QVERIFY(ClickChannel("radioActiveStateLowOut", number));
        COMPARE_CALLS(ModuleCalls(), QStringList({QStringLiteral("OutPolarityMask()"),
                                                  QStringLiteral("setOutPolarityMask(%1)").arg(mask)}) +
                                         RefreshCalls());
    }
}

void DigitalIO2PanelTest::inputPolarityIsChanged() {
    OpenPanel("SWAX2", QStringLiteral("input-polarity=\"0x0005\""));
    QVERIFY(ClickChannel("radioActiveStateHighIn", 2));
    COMPARE_CALLS(ModuleCalls(), QStringList({QStringLiteral("InPolarityMask()"),
                                              QStringLiteral("setInPolarityMask(%1)").arg(0x0007)}) +
                                     RefreshCalls());
    QVERIFY(ClickChannel("radioActiveStateLowIn", 1));
    COMPARE_CALLS(ModuleCalls(), QStringList({QStringLiteral("InPolarityMask()"),
                                              QStringLiteral("setInPolarityMask(%1)").arg(0x0006)}) +
                                     RefreshCalls());
    int mask = 0x0006;
    for (int number = 1; number <= 6; ++number) {
        QVERIFY(ClickChannel("radioActiveStateHighIn", number));
        mask |= 1 << (number - 1);
        QCOMPARE(ModuleCalls().at(1), QStringLiteral("setInPolarityMask(%1)").arg(mask));
    }
    QCOMPARE(All().right(6), QStringLiteral("HHHHHH"));
}

void DigitalIO2PanelTest::otherBitsSurvive() {
    OpenPanel("SWAX2", QStringLiteral("output-polarity=\"0xA5F0\" input-polarity=\"0x5AC0\""));
    for (int number = 1; number <= 4; ++number) {
        QVERIFY(ClickChannel("radioActiveStateHighOut", number));
    }
    for (int number = 1; number <= 6; ++number) {
        QVERIFY(ClickChannel("radioActiveStateHighIn", number));
    }
    const QStringList calls = ModuleCalls();
    QVERIFY(calls.contains(QStringLiteral("setOutPolarityMask(%1)").arg(0xA5FF)));
    QVERIFY(calls.contains(QStringLiteral("setInPolarityMask(%1)").arg(0x5AFF)));
    for (int number = 1; number <= 4; ++number) {
        QVERIFY(ClickChannel("radioActiveStateLowOut", number));
    }
    for (int number = 1; number <= 6; ++number) {
        QVERIFY(ClickChannel("radioActiveStateLowIn", number));
    }
    const QStringList back = ModuleCalls();
    QVERIFY(back.contains(QStringLiteral("setOutPolarityMask(%1)").arg(0xA5F0)));
    QVERIFY(back.contains(QStringLiteral("setInPolarityMask(%1)").arg(0x5AC0)));
}

void DigitalIO2PanelTest::anUnchangedMaskIsWrittenToo() {
    OpenPanel("SWAX2");
    QVERIFY(ClickChannel("radioActiveStateHighOut", 3));
    COMPARE_CALLS(ModuleCalls(),
                  QStringList({QStringLiteral("OutPolarityMask()"), QStringLiteral("setOutPolarityMask(15)")}) +
                      RefreshCalls());
}

void DigitalIO2PanelTest::maskThatCannotBeReadIsNotWritten() {
    OpenPanel("SWAX2");
    for (const auto& [operation, button] : {std::pair("OutPolarityMask", "radioActiveStateLowOut2"),
                                            std::pair("InPolarityMask", "radioActiveStateLowIn6")}) {
        FailNext(operation, ForeignText());
        boxes.ExpectError(ThePanel<ModuleSWAX2Widget>(), boxTitle, ForeignText());
        QVERIFY(Operator().Click(button));
        COMPARE_CALLS(ModuleCalls(), {QLatin1String(operation) + QStringLiteral("()")});
        QVERIFY(Operator().The<QRadioButton>(button)->isChecked());
    }
    QCOMPARE(boxes.Count(), 2);
}

void DigitalIO2PanelTest::refusedSetLeavesTheButtonChecked_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("output") << QByteArray("setOutputState") << QByteArray("radioOutputHigh4");
    QTest::newRow("output polarity") << QByteArray("setOutPolarityMask") << QByteArray("radioActiveStateLowOut1");
    QTest::newRow("input polarity") << QByteArray("setInPolarityMask") << QByteArray("radioActiveStateLowIn1");
}

void DigitalIO2PanelTest::refusedSetLeavesTheButtonChecked() {
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, button);
    OpenPanel("SWAX2");
    FailNext(operation.constData(), ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAX2Widget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click(button.constData()));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(ModuleCalls().constLast().startsWith(QLatin1String(operation)));
    QVERIFY(Operator().The<QRadioButton>(button.constData())->isChecked());
    QVERIFY(Operator().Click("btnRead"));
    QVERIFY(!Operator().The<QRadioButton>(button.constData())->isChecked());
}

void DigitalIO2PanelTest::refreshStopsAtTheChannelThatFails() {
    OpenPanel("SWAX2", QString(),
              QStringLiteral("<pulses pin=\"4\" period=\"2\" high=\"1\"/><pulses pin=\"9\" period=\"2\" high=\"1\"/>"));
    QCOMPARE(All().mid(10, 6), QStringLiteral("HLLLLH"));
    AdvanceClock(1.0);
    FailNth(4, "InPolarityMask", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAX2Widget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(All().mid(10, 6), QStringLiteral("LLLLLH"));
    QCOMPARE(ModuleCalls().constLast(), QStringLiteral("InPolarityMask()"));
}

void DigitalIO2PanelTest::outputModeIsShown() {
    OpenPanel("SWAX2");
    auto* modes = Operator().The<QComboBox>("cbOutputMode");
    QCOMPARE(modes->currentText(), QStringLiteral("TTL"));
    for (const auto& [mode, index] :
         {std::pair(0, 0), std::pair(1, 1), std::pair(2, 2), std::pair(3, -1), std::pair(-1, -1)}) {
        ClearFaults();
        AnswerFrom(1, "OutputMode", mode);
        modes->setCurrentIndex(2);
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(modes->currentIndex(), index);
    }
}

void DigitalIO2PanelTest::outputModeIsSent() {
    OpenPanel("SWAX2");
    auto* modes = Operator().The<QComboBox>("cbOutputMode");
    for (int index = 0; index < 3; ++index) {
        modes->setCurrentIndex(index);
        QVERIFY(Operator().Click("btnSetOutputMode"));
        COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setOutputMode(%1)").arg(index)});
    }
    modes->setCurrentIndex(-1);
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnSetOutputMode"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setOutputMode(-1)")});
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, boxTitle);
    QVERIFY(seen.first().text.contains(QLatin1String("-1")));
}

void DigitalIO2PanelTest::outputModeThatFailsShowsABox() {
    OpenPanel("SWAX2");
    Operator().The<QComboBox>("cbOutputMode")->setCurrentIndex(1);
    FailNext("setOutputMode", ForeignText());
    boxes.ExpectError(ThePanel<ModuleSWAX2Widget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnSetOutputMode"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().The<QComboBox>("cbOutputMode")->currentIndex(), 1);
}

void DigitalIO2PanelTest::readRefreshesTheChannels() {
    OpenPanel("SWAX2", QString(), QStringLiteral("<wire from=\"3\" to=\"8\"/>"));
    QVERIFY(ClickChannel("radioOutputHigh", 4));
    QCOMPARE(All().mid(10, 6), QStringLiteral("LLLLHL"));
    ModuleCalls();
    QVERIFY(Operator().Click("btnRead"));
    COMPARE_CALLS(ModuleCalls(),
                  QStringList({QStringLiteral("ReadInCounts()"), QStringLiteral("ModuleType()")}) + RefreshCalls());
    QCOMPARE(Operator().Text("tbReading"), QString::number(0x108));
}

void DigitalIO2PanelTest::enablingConcernsButtonsThatSet() {
    OpenPanel("SWAX2");
    const auto* panel = ThePanel<ModuleSWAX2Widget>();
    QStringList all{QStringLiteral("btnSetDebounce"), QStringLiteral("btnSetOutputMode")};
    for (const auto& [stem, count] : {std::pair("radioOutputLow", 4), std::pair("radioOutputHigh", 4),
                                      std::pair("radioActiveStateLowOut", 4), std::pair("radioActiveStateHighOut", 4),
                                      std::pair("radioActiveStateLowIn", 6), std::pair("radioActiveStateHighIn", 6)}) {
        for (int number = 1; number <= count; ++number) {
            all.append(QLatin1String(Name(stem, number)));
        }
    }
    all.sort();
    QCOMPARE(all.size(), 30);
    QCOMPARE(EnabledButtons(panel), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(panel), QStringList());
    QVERIFY(Operator().IsEnabled("cbDebouncetime") && Operator().IsEnabled("cbOutputMode"));
    hold.Release();
    QCOMPARE(EnabledButtons(panel), all);
}

void DigitalIO2PanelTest::failureWhileFillingIsThePanelsOwn() {
    const QVector<SeenBox> seen = OpenFailingPanel("SWAX2", [] { FailNext("OutputMode", ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, boxTitle);
    QCOMPARE(seen.first().text, ForeignText());
    QCOMPARE(seen.first().parent, ThePanel<ModuleSWAX2Widget>());
    QCOMPARE(All(), QStringLiteral("LLLL HHHH LLLLLL HHHHHH"));
    QCOMPARE(Operator().Text("tbStroke"), QStringLiteral("1023.00000"));
}

TAVIK_TEST_MAIN(DigitalIO2PanelTest)

#include "DigitalIO2PanelTest.moc"
