#include "library/TavikModuleQTA.h"
#include "panels/types/ModuleQTAWidget.h"
#include "tests/panels/types/PanelTest.h"

#include <QSpinBox>

using namespace TavikLibrary;
using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("QTA Module");

QString Text(eRefAction action) {
    return QString::fromStdString(eRefAction_ToString(action));
}

struct Setting {
    const char* list;
    const char* button;
    const char* field;
    const char* getter;
    const char* setter;
    int rows;
    std::string (*text)(int value);
};

const Setting settings[] = {
    {"listRefActions", "btnSetRefAction", "tbCurrentRefAction", "RefAction", "setRefAction", 5,
     [](int value) { return eRefAction_ToString(static_cast<eRefAction>(value)); }},
    {"listQuadModes", "btnSetQuadMode", "tbCurrentQuadMode", "QuadratureMode", "setQuadratureMode", 5,
     [](int value) { return eQuadratureMode_ToString(static_cast<eQuadratureMode>(value)); }},
    {"listEncoders", "btnSetEncoder", "tbCurrentEncoder", "QtaInterfaceType", "setQtaInterfaceType", 2,
     [](int value) { return eEncoderInterfaceType_ToString(static_cast<eEncoderInterfaceType>(value)); }},
};

QString SetCall(const Setting& setting, int value) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(setting.setter)).arg(value);
}

QString GetCall(const Setting& setting) {
    return QLatin1String(setting.getter) + QStringLiteral("()");
}

} // namespace

/// The panel of an encoder interface.
class EncoderPanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void fillingAsksInOrder();
    void showsWhatTheModuleSays();
    void setsARowAndReadsBack();
    void showsWhatIsReadBack();
    void noCurrentRowIsSentAndRefused();
    void tabIntoAListChoosesNoRow();
    void clickWithControlKeepsTheRow();
    void failedSetKeepsTheText();
    void failedReadBackKeepsTheText();
    void presetsTheCount();
    void failedPresetShowsABox();
    void presetHasLimits();
    void enablingConcernsTheButtons();
    void failureWhileFilling_data();
    void failureWhileFilling();
};

void EncoderPanelTest::theFormIsAsKnown() {
    OpenPanel("QTA");
    const auto* panel = ThePanel<ModuleQTAWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringLiteral("Ref Action,Quad Mode,Encoder,Preset").split(QLatin1Char(',')));
    QCOMPARE(Rows("listRefActions"),
             QStringLiteral("None,ContinuousReset,ContinuousPreset,Reset,Preset").split(QLatin1Char(',')));
    QCOMPARE(Rows("listQuadModes"), QStringLiteral("quadX1,quadX2,quadX4,CountAB,CountDIR").split(QLatin1Char(',')));
    QCOMPARE(Rows("listEncoders"), QStringLiteral("Differential,SingleEnded").split(QLatin1Char(',')));
    for (const Setting& setting : settings) {
        const auto* list = Operator().The<QListWidget>(setting.list);
        QVERIFY(!list->isSortingEnabled());
        QCOMPARE(list->currentRow(), -1);
        QCOMPARE(Operator().Text(setting.button), QStringLiteral("Set"));
        QVERIFY(Operator().Find(setting.field)->property("readOnly").toBool());
    }
    QCOMPARE(Operator().Text("btnPresetinCounts"), QStringLiteral("Preset In Counts"));
}

void EncoderPanelTest::fillingAsksInOrder() {
    OpenNetwork(BenchWith("QTA", QString(), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    const int first = calls.indexOf(QStringLiteral("RefAction()"));
    COMPARE_CALLS(calls.mid(first - 1, 6), {QStringLiteral("HotSwappable()"), QStringLiteral("RefAction()"),
                                            QStringLiteral("QuadratureMode()"), QStringLiteral("QtaInterfaceType()"),
                                            QStringLiteral("PresetInCounts()"), QStringLiteral("Offset()")});
}

void EncoderPanelTest::showsWhatTheModuleSays() {
    OpenNetwork(BenchWith("QTA", QString(), QString()));
    AnswerFrom(1, "RefAction", 2);
    AnswerFrom(1, "QuadratureMode", 3);
    AnswerFrom(1, "QtaInterfaceType", 77);
    AnswerFrom(1, "PresetInCounts", 4711);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Operator().Text("tbCurrentRefAction"), Text(eRefAction::ContinuousPreset));
    QCOMPARE(Operator().Text("tbCurrentQuadMode"),
             QString::fromStdString(eQuadratureMode_ToString(eQuadratureMode::CountAB)));
    QVERIFY(Operator().Text("tbCurrentEncoder").contains(QLatin1String("77")));
    QCOMPARE(Operator().The<QSpinBox>("sbPreset")->value(), 4711);
}

void EncoderPanelTest::setsARowAndReadsBack() {
    OpenPanel("QTA");
    for (const Setting& setting : settings) {
        for (int row = setting.rows - 1; row >= 0; --row) {
            QVERIFY(Operator().SelectRow(setting.list, row));
            QVERIFY(Operator().Click(setting.button));
            COMPARE_CALLS(ModuleCalls(), {SetCall(setting, row), GetCall(setting)});
            QCOMPARE(Operator().Text(setting.field), QString::fromStdString(setting.text(row)));
        }
    }
}

void EncoderPanelTest::showsWhatIsReadBack() {
    OpenPanel("QTA");
    AnswerFrom(1, "RefAction", 1);
    QVERIFY(Operator().SelectRow("listRefActions", 4));
    QVERIFY(Operator().Click("btnSetRefAction"));
    QCOMPARE(Operator().Text("tbCurrentRefAction"), Text(eRefAction::ContinuousReset));
    QVERIFY(Operator().Text("tbCurrentRefAction") != Rows("listRefActions").at(1));
}

void EncoderPanelTest::noCurrentRowIsSentAndRefused() {
    OpenPanel("QTA");
    boxes.Tolerate(true);
    for (const Setting& setting : settings) {
        Operator().The<QListWidget>(setting.list)->setCurrentRow(-1);
        const QString before = Operator().Text(setting.field);
        QVERIFY(Operator().Click(setting.button));
        const QVector<SeenBox> seen = boxes.Take();
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen.first().title, boxTitle);
        QVERIFY(seen.first().text.contains(QLatin1String("-1")));
        QVERIFY(seen.first().parent == ThePanel<ModuleQTAWidget>());
        COMPARE_CALLS(ModuleCalls(), {SetCall(setting, -1)});
        QCOMPARE(Operator().Text(setting.field), before);
    }
}

void EncoderPanelTest::tabIntoAListChoosesNoRow() {
    OpenPanel("QTA");
    boxes.Tolerate(true);
    for (const Setting& setting : settings) {
        Operator().Find(setting.list)->setFocus(Qt::TabFocusReason);
        QVERIFY(Operator().Click(setting.button));
        COMPARE_CALLS(ModuleCalls(), {SetCall(setting, -1)});
    }
}

void EncoderPanelTest::clickWithControlKeepsTheRow() {
    OpenPanel("QTA");
    for (const Setting& setting : settings) {
        QVERIFY(Operator().SelectRow(setting.list, 1));
        auto* list = Operator().The<QListWidget>(setting.list);
        const QPoint row = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, row);
        QVERIFY(list->item(1)->isSelected());
        QVERIFY(Operator().Click(setting.button));
        COMPARE_CALLS(ModuleCalls(), {SetCall(setting, 1), GetCall(setting)});
    }
}

void EncoderPanelTest::failedSetKeepsTheText() {
    OpenPanel("QTA");
    for (const Setting& setting : settings) {
        const QString before = Operator().Text(setting.field);
        FailNext(setting.setter, ForeignText());
        boxes.ExpectError(ThePanel<ModuleQTAWidget>(), boxTitle, ForeignText());
        QVERIFY(Operator().SelectRow(setting.list, 1));
        QVERIFY(Operator().Click(setting.button));
        COMPARE_CALLS(ModuleCalls(), {SetCall(setting, 1)});
        QCOMPARE(Operator().Text(setting.field), before);
    }
    QCOMPARE(boxes.Count(), 3);
}

void EncoderPanelTest::failedReadBackKeepsTheText() {
    OpenPanel("QTA");
    for (const Setting& setting : settings) {
        const QString before = Operator().Text(setting.field);
        FailNext(setting.getter, ForeignText());
        boxes.ExpectError(ThePanel<ModuleQTAWidget>(), boxTitle, ForeignText());
        QVERIFY(Operator().SelectRow(setting.list, 1));
        QVERIFY(Operator().Click(setting.button));
        COMPARE_CALLS(ModuleCalls(), {SetCall(setting, 1), GetCall(setting)});
        QCOMPARE(Operator().Text(setting.field), before);
    }
    QCOMPARE(boxes.Count(), 3);
}

void EncoderPanelTest::presetsTheCount() {
    OpenPanel("QTA");
    auto* preset = Operator().The<QSpinBox>("sbPreset");
    QCOMPARE(preset->value(), 0);
    preset->setFocus();
    preset->selectAll();
    Operator().Type(QStringLiteral("123456"));
    QVERIFY(Operator().Click("btnPresetinCounts"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInCounts(123456)")});
    QCOMPARE(boxes.Count(), 0);
    QCOMPARE(preset->value(), 123456);
}

void EncoderPanelTest::failedPresetShowsABox() {
    OpenPanel("QTA");
    Operator().The<QSpinBox>("sbPreset")->setValue(17);
    FailNext("setPresetInCounts", ForeignText());
    boxes.ExpectError(ThePanel<ModuleQTAWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnPresetinCounts"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().The<QSpinBox>("sbPreset")->value(), 17);
}

void EncoderPanelTest::presetHasLimits() {
    OpenPanel("QTA");
    auto* preset = Operator().The<QSpinBox>("sbPreset");
    QCOMPARE(preset->minimum(), 0);
    QCOMPARE(preset->maximum(), 999999999);
    preset->setFocus();
    preset->selectAll();
    Operator().Type(QStringLiteral("-5"));
    QVERIFY(Operator().Click("btnPresetinCounts"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInCounts(5)")});
    preset->setValue(preset->maximum());
    QVERIFY(Operator().Click("btnPresetinCounts"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInCounts(999999999)")});
    QCOMPARE(boxes.Count(), 0);
}

void EncoderPanelTest::enablingConcernsTheButtons() {
    OpenPanel("QTA");
    const auto* panel = ThePanel<ModuleQTAWidget>();
    const QStringList all =
        QStringLiteral("btnPresetinCounts,btnSetEncoder,btnSetQuadMode,btnSetRefAction").split(QLatin1Char(','));
    QCOMPARE(EnabledButtons(panel), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(panel), QStringList());
    for (const char* name : {"listRefActions", "listQuadModes", "listEncoders", "tbCurrentRefAction", "sbPreset"}) {
        QVERIFY(Operator().IsEnabled(name));
    }
    hold.Release();
    QCOMPARE(EnabledButtons(panel), all);
}

void EncoderPanelTest::failureWhileFilling_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"RefAction", "QuadratureMode", "QtaInterfaceType", "PresetInCounts"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void EncoderPanelTest::failureWhileFilling() {
    QFETCH(QString, operation);
    const QVector<SeenBox> seen = OpenFailingPanel("QTA", [&] { FailNext(qPrintable(operation), ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, QStringLiteral("Tavik Library Test"));
    QCOMPARE(seen.first().text, ForeignText());
    CompareFailedAt(operation);
}

TAVIK_TEST_MAIN(EncoderPanelTest)

#include "EncoderPanelTest.moc"
