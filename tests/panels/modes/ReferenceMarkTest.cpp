#include "panels/modes/ReferenceMarkWidget.h"
#include "tests/panels/modes/ReferenceMarkPage.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTextEdit>

using namespace TavikSimulator;

/// The page that searches a linear encoder's reference mark.
class ReferenceMarkTest : public ReferenceMarkPage {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void startsWithLearnAndCounts();
    void showsTheModule();
    void anotherModulesReadingGoes();
    void recallValueFollowsTheMode();
    void decimalsFollowTheChoiceOfUnits();
    void commandsAreEnabledAndDisabled();
    void learnsInCounts();
    void learnsInUnits();
    void recalls();
    void recallKeepsItsValue();
    void learntValueIsKeptInCounts();
    void typedRecallValueIsSentByTheFindKey();
    void learntValueBeyondTheRange();
    void sendsRecallValues_data();
    void sendsRecallValues();
    void pollsEveryFiftyMilliseconds();
    void endsWithoutTheMark();
};

void ReferenceMarkTest::theFormIsAsKnown() {
    const ReferenceMarkWidget page;
    QCOMPARE(page.windowTitle(), QStringLiteral("Dialog"));
    QStringList titles;
    const auto groups = page.findChildren<QGroupBox*>();
    for (const QGroupBox* group : groups) {
        titles.append(group->title());
    }
    QCOMPARE(titles.join(QLatin1Char(',')), QStringLiteral("Reference Mark Mode,Mode,Read In,Reference Mark Notes"));
    OpenPage();
    for (const auto& [name, text] :
         {std::pair("radioLearn", "Learn"), std::pair("radioRecall", "Recall"), std::pair("radioCounts", "Counts"),
          std::pair("radioUnits", "Units"), std::pair("btnFind", "Find Ref Mark"),
          std::pair("btnStop", "Stop Searching"), std::pair("lblRefMarkModuleID", "Module"),
          std::pair("lblRefMarkReading", "Ref Mark Reading"), std::pair("lblRecallValue", "Recall Value")}) {
        QCOMPARE(Operator().Text(name), QString::fromLatin1(text));
    }
    QVERIFY(Operator().The<QLineEdit>("tbRefMarkModuleID")->isReadOnly());
    QVERIFY(Operator().The<QLineEdit>("tbRefMarkReading")->isReadOnly());
    QCOMPARE(RecallValue()->minimum(), -1e7);
    QCOMPARE(RecallValue()->maximum(), 1e7);
    const auto* notes = Operator().The<QTextEdit>("tbRefMarkNotes");
    QVERIFY(notes->isReadOnly());
    const QStringList paragraphs = notes->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(paragraphs.size(), 7);
    QCOMPARE(paragraphs.at(0),
             QStringLiteral("All Linear Encoders are incremental in reading; they lose their datum on power down. A "
                            "reference mark is provided in order to provide an absolute datum."));
    QCOMPARE(paragraphs.at(1), QStringLiteral("Select Read In 'Counts' or 'Units' (Raw Counts or Units Of Measure)"));
    QCOMPARE(paragraphs.at(3), QStringLiteral("Click 'Find RefMark' to start."));
    QCOMPARE(paragraphs.at(6), QStringLiteral("Click ‘Stop Searching’ to abort finding the Reference mark."));
}

void ReferenceMarkTest::startsWithLearnAndCounts() {
    OpenPage();
    QVERIFY(Operator().Find("radioLearn")->hasFocus());
    QVERIFY(Operator().The<QRadioButton>("radioLearn")->isChecked());
    QVERIFY(Operator().The<QRadioButton>("radioCounts")->isChecked());
    QVERIFY(!RecallValue()->isEnabled());
    QCOMPARE(RecallValue()->decimals(), 0);
    QCOMPARE(RecallValue()->value(), 0.0);
    QCOMPARE(Reading(), QString());
    CompareIdle();
}

void ReferenceMarkTest::showsTheModule() {
    OpenPage();
    QCOMPARE(Operator().Text("tbRefMarkModuleID"), QStringLiteral("RN00000001"));
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    QCOMPARE(Operator().Text("tbRefMarkModuleID"), QStringLiteral("RN00000002"));
}

void ReferenceMarkTest::anotherModulesReadingGoes() {
    OpenPage();
    Find();
    QVERIFY(!Reading().isEmpty());
    const double learnt = RecallValue()->value();
    for (const int row : {0, 1}) {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        Operator().The<QListWidget>("listModules")->setCurrentRow(-1);
        QVERIFY(Operator().SelectRow("listModules", row));
        QCOMPARE(Reading().isEmpty(), row == 1);
    }
    QCOMPARE(RecallValue()->value(), learnt);
}

void ReferenceMarkTest::recallValueFollowsTheMode() {
    OpenPage();
    QVERIFY(Operator().Click("radioRecall"));
    QVERIFY(RecallValue()->isEnabled());
    QVERIFY(Operator().Click("radioLearn"));
    QVERIFY(!RecallValue()->isEnabled());
    COMPARE_CALLS(Calls::Take(), {});
}

void ReferenceMarkTest::decimalsFollowTheChoiceOfUnits() {
    OpenPage();
    QVERIFY(Operator().Click("radioUnits"));
    QCOMPARE(RecallValue()->decimals(), 6);
    QVERIFY(Operator().Click("radioCounts"));
    QCOMPARE(RecallValue()->decimals(), 0);
    // Not a click, but what the slots make of it.
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_radioCounts_clicked", Q_ARG(bool, false)));
    QCOMPARE(RecallValue()->decimals(), 6);
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_radioUnits_clicked", Q_ARG(bool, false)));
    QCOMPARE(RecallValue()->decimals(), 0);
}

void ReferenceMarkTest::commandsAreEnabledAndDisabled() {
    OpenPage();
    ControlsHold hold = Window().DisableControls(QStringLiteral("test"));
    QVERIFY(!RecallValue()->isEnabled());
    hold.Release();
    QVERIFY(!RecallValue()->isEnabled());
    QVERIFY(Operator().Click("radioRecall"));
    hold = Window().DisableControls(QStringLiteral("test"));
    QVERIFY(!RecallValue()->isEnabled());
    QVERIFY(!Operator().IsEnabled("btnFind"));
    // The choices are as they were.
    QVERIFY(Operator().Click("radioLearn"));
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Click("radioRecall"));
    QVERIFY(!RecallValue()->isEnabled());
    hold.Release();
    QVERIFY(RecallValue()->isEnabled());
    CompareIdle();
}

void ReferenceMarkTest::learnsInCounts() {
    OpenPage();
    Find();
    COMPARE_CALLS(CallsButPolls(),
                  {Call("FindRefMark_Counts(1, 0)"), Call("RefmarkFound()"), Call("ReadInCountsAtRefmark()")});
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    QCOMPARE(RecallValue()->value(), 40000.0);
    QVERIFY(!RecallValue()->isEnabled());
    CompareIdle();
    CompareOutcome(QStringLiteral("found"));
}

void ReferenceMarkTest::learnsInUnits() {
    OpenPage(QStringLiteral("mark=\"4.12345\" hand=\"0.3\" counts-per-unit=\"100000\""));
    QVERIFY(Operator().Click("radioUnits"));
    Find();
    COMPARE_CALLS(CallsButPolls(),
                  {Call("FindRefMark_Units(1, 0)"), Call("RefmarkFound()"), Call("ReadInUnitsAtRefmark()")});
    QCOMPARE(Reading(), QStringLiteral("4.12345"));
    QCOMPARE(RecallValue()->value(), 4.12345);
    QCOMPARE(RecallValue()->text(), QStringLiteral("4.123450"));
}

void ReferenceMarkTest::recalls() {
    OpenPage();
    QVERIFY(Operator().Click("radioRecall"));
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Enter("sbRecallValue", QStringLiteral("-12.5")));
    Find();
    COMPARE_CALLS(CallsButPolls(),
                  {Call("FindRefMark_Units(2, -12.5)"), Call("RefmarkFound()"), Call("ReadInUnitsAtRefmark()")});
    QCOMPARE(Reading(), QStringLiteral("-12.50000"));
    QCOMPARE(RecallValue()->value(), -12.5);
    QVERIFY(RecallValue()->isEnabled());
    // The datum has been set: three millimetres above the mark.
    AdvanceClock(2.0);
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("-9.50000 mm"));
}

void ReferenceMarkTest::recallKeepsItsValue() {
    OpenPage();
    QVERIFY(Operator().Click("radioRecall"));
    RecallValue()->setValue(100.0);
    Fault other;
    other.operation = "ReadInCountsAtRefmark";
    other.effect = FaultEffect::Result;
    other.code = 4711;
    AddFault(other);
    Find();
    QCOMPARE(Reading(), QStringLiteral("4711.00000"));
    QCOMPARE(RecallValue()->value(), 100.0);
}

void ReferenceMarkTest::learntValueIsKeptInCounts() {
    OpenPage(QStringLiteral("mark=\"4.345678\" hand=\"0.3\" counts-per-unit=\"1000000\""));
    QVERIFY(Operator().Click("radioUnits"));
    Find();
    QVERIFY(Operator().Click("radioCounts"));
    QCOMPARE(RecallValue()->text(), QStringLiteral("4"));
    QVERIFY(Operator().Click("radioUnits"));
    QCOMPARE(RecallValue()->text(), QStringLiteral("4.345678"));
    QVERIFY(Operator().Click("radioRecall"));
    Calls::Mark();
    Find();
    QCOMPARE(CallsButPolls().constFirst(), Call("FindRefMark_Units(2, 4.345678)"));
}

void ReferenceMarkTest::typedRecallValueIsSentByTheFindKey() {
    OpenPage();
    QVERIFY(Operator().Click("radioRecall"));
    RecallValue()->setFocus();
    RecallValue()->selectAll();
    Operator().Type(QStringLiteral("40"));
    const auto time = Repeatedly([] { AdvanceClock(0.1); });
    Operator().Press(Qt::Key_M, Qt::AltModifier);
    QVERIFY(WaitUntil([this] { return !Reading().isEmpty(); }));
    QCOMPARE(CallsButPolls().constFirst(), Call("FindRefMark_Counts(2, 40)"));
}

void ReferenceMarkTest::learntValueBeyondTheRange() {
    OpenPage();
    Fault far;
    far.operation = "ReadInCountsAtRefmark";
    far.effect = FaultEffect::Result;
    far.code = 20000000;
    AddFault(far);
    Find();
    QCOMPARE(RecallValue()->text(), QStringLiteral("10000000"));
    QVERIFY(Operator().Click("radioRecall"));
    Calls::Mark();
    Find();
    QCOMPARE(CallsButPolls().constFirst(), Call("FindRefMark_Counts(2, 10000000)"));
}

void ReferenceMarkTest::sendsRecallValues_data() {
    QTest::addColumn<bool>("counts");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("call");
    QTest::newRow("counts") << true << 4711.0 << "FindRefMark_Counts(2, 4711)";
    QTest::newRow("counts, cut off") << true << 12.9 << "FindRefMark_Counts(2, 12)";
    QTest::newRow("counts, negative, cut off") << true << -12.9 << "FindRefMark_Counts(2, -12)";
    QTest::newRow("counts, largest") << true << 1e7 << "FindRefMark_Counts(2, 10000000)";
    QTest::newRow("units") << false << 12.9 << "FindRefMark_Units(2, 12.9)";
    QTest::newRow("units, six decimals") << false << -1.234567 << "FindRefMark_Units(2, -1.234567)";
}

void ReferenceMarkTest::sendsRecallValues() {
    QFETCH(bool, counts);
    QFETCH(double, value);
    QFETCH(QString, call);
    OpenPage();
    QVERIFY(Operator().Click("radioRecall"));
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Enter("sbRecallValue", QString::number(value, 'f', 6)));
    QVERIFY(Operator().Click(counts ? "radioCounts" : "radioUnits"));
    if (counts) {
        QCOMPARE(RecallValue()->text(), QString::number(static_cast<int>(value)));
    }
    boxes.Tolerate(true);
    FindAndAfter(1, [this] { QVERIFY(Operator().Click("btnStop")); });
    QCOMPARE(CallsButPolls().constFirst(), Call(qPrintable(call)));
}

void ReferenceMarkTest::pollsEveryFiftyMilliseconds() {
    OpenPage(QStringLiteral("hand=\"never\""));
    QElapsedTimer time;
    time.start();
    FindAndAfter(5, [this] { QVERIFY(Operator().Click("btnStop")); });
    // A machine with other things to do may take longer, but never less.
    QVERIFY2(time.elapsed() >= 200, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(Calls::CountOf("RefmarkInProgress"), 6);
}

void ReferenceMarkTest::endsWithoutTheMark() {
    OpenPage();
    Find();
    QVERIFY(!Reading().isEmpty());
    Calls::Mark();
    FindAndAfter(1, [this] {
        QCOMPARE(Reading(), QString());
        QVERIFY(Operator().Click("btnStop"));
    });
    COMPARE_CALLS(CallsButPolls(),
                  {Call("FindRefMark_Counts(1, 40000)"), Call("StopRefMark()"), Call("RefmarkFound()")});
    QCOMPARE(Reading(), QString());
    QCOMPARE(RecallValue()->value(), 40000.0);
    CompareIdle();
    CompareOutcome(QStringLiteral("not found"));
}

TAVIK_TEST_MAIN(ReferenceMarkTest)

#include "ReferenceMarkTest.moc"
