#include "library/TavikModuleRN.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/types/ModuleRNWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("RN Module");

} // namespace

/// The panel of a linear encoder.
class LinearEncoderPanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void fillingReadsTheDirectionTwice();
    void showsTheDirection_data();
    void showsTheDirection();
    void unknownDirectionChecksNeither();
    void clicksSetTheDirection();
    void failedDirectionStaysAsClicked();
    void presets_data();
    void presets();
    void presetsWhatTheModuleReads();
    void presetIsEnteredWithAPoint_data();
    void presetIsEnteredWithAPoint();
    void oneEntryIsOneWrite();
    void refusedPresetShowsTheSentence();
    void failedPresetsShowABox();
    void enablingConcernsRadioButtonsAndPresets();
    void failureWhileFilling_data();
    void failureWhileFilling();

private:
    bool IsChecked(const char* name) { return Operator().The<QRadioButton>(name)->isChecked(); }
    QDoubleSpinBox* Preset() { return Operator().The<QDoubleSpinBox>("sbPreset"); }
};

void LinearEncoderPanelTest::theFormIsAsKnown() {
    OpenPanel("RN");
    const auto* panel = ThePanel<ModuleRNWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringLiteral("Preset,Direction").split(QLatin1Char(',')));
    QCOMPARE(Operator().Text("btnPresetinCounts"), QStringLiteral("Preset In Counts"));
    QCOMPARE(Operator().Text("btnPresetinUnits"), QStringLiteral("Preset In Units"));
    QCOMPARE(Operator().Text("radioNormal"), QStringLiteral("Normal"));
    QCOMPARE(Operator().Text("radioReversed"), QStringLiteral("Reversed"));
    QCOMPARE(Preset()->decimals(), 5);
    QCOMPARE(Preset()->minimum(), -1e11);
    QCOMPARE(Preset()->maximum(), 1e11);
    QCOMPARE(Preset()->value(), 0.0);
    const ModuleRNWidget untouched(nullptr);
    QVERIFY(untouched.findChild<QRadioButton*>(QStringLiteral("radioNormal"))->isChecked());
    QVERIFY(!untouched.findChild<QRadioButton*>(QStringLiteral("radioReversed"))->isChecked());
}

void LinearEncoderPanelTest::fillingReadsTheDirectionTwice() {
    OpenNetwork(BenchWith("RN", QString(), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    const int first = calls.indexOf(QStringLiteral("Direction()"));
    COMPARE_CALLS(calls.mid(first - 1, 4), {QStringLiteral("HotSwappable()"), QStringLiteral("Direction()"),
                                            QStringLiteral("Direction()"), QStringLiteral("Offset()")});
}

void LinearEncoderPanelTest::showsTheDirection_data() {
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("normal");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("normal") << 0 << true << false;
    QTest::newRow("reversed") << 1 << false << true;
    QTest::newRow("unknown") << 2 << false << false;
    QTest::newRow("negative") << -1 << false << false;
}

void LinearEncoderPanelTest::showsTheDirection() {
    QFETCH(int, direction);
    QFETCH(bool, normal);
    QFETCH(bool, reversed);
    OpenNetwork(BenchWith("RN", QString(), QString()));
    AnswerFrom(1, "Direction", direction);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(IsChecked("radioNormal"), normal);
    QCOMPARE(IsChecked("radioReversed"), reversed);
}

void LinearEncoderPanelTest::unknownDirectionChecksNeither() {
    OpenPanel("RN");
    FakeHostWindow host;
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    auto* encoder = dynamic_cast<TavikLibrary::TavikModuleRN*>(server.Networks()->Network(0)->GetModule(0));
    ModuleRNWidget panel(&host);
    FailNext("Direction", ForeignText());
    QVERIFY_EXCEPTION_THROWN(panel.SetModule(&host, &server, nullptr, encoder), std::runtime_error);
    panel.SetEnabled(true);
    const auto buttons = panel.findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        QVERIFY2(!button->isChecked() && !button->isEnabled(), qPrintable(button->objectName()));
    }
}

void LinearEncoderPanelTest::clicksSetTheDirection() {
    OpenPanel("RN");
    for (const auto& [button, call] :
         {std::pair("radioReversed", "setDirection(1)"), std::pair("radioReversed", "setDirection(1)"),
          std::pair("radioNormal", "setDirection(0)"), std::pair("radioNormal", "setDirection(0)")}) {
        QVERIFY(Operator().Click(button));
        COMPARE_CALLS(ModuleCalls(), {QString::fromLatin1(call)});
        QVERIFY(IsChecked(button));
    }
    QCOMPARE(boxes.Count(), 0);
}

void LinearEncoderPanelTest::failedDirectionStaysAsClicked() {
    OpenPanel("RN");
    FailNext("setDirection", ForeignText());
    boxes.ExpectError(ThePanel<ModuleRNWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("radioReversed"));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(IsChecked("radioReversed"));
    QVERIFY(!IsChecked("radioNormal"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setDirection(1)")});
}

void LinearEncoderPanelTest::presets_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("counts");
    QTest::addColumn<QString>("units");
    QTest::newRow("zero") << 0.0 << "0"
                          << "0";
    QTest::newRow("decimals") << 12345.6789 << "12345"
                              << "12345.6789";
    QTest::newRow("toward zero") << 2.9 << "2"
                                 << "2.9";
    QTest::newRow("negative, toward zero") << -2.9 << "-2"
                                           << "-2.9";
    QTest::newRow("largest") << 1e11 << "2147483647"
                             << "1e+11";
    QTest::newRow("smallest") << -1e11 << "-2147483648"
                              << "-1e+11";
    QTest::newRow("just a count") << 2147483647.0 << "2147483647"
                                  << "2.14748365e+09";
    QTest::newRow("just no count") << 2147483648.0 << "2147483647"
                                   << "2.14748365e+09";
}

void LinearEncoderPanelTest::presets() {
    QFETCH(double, value);
    QFETCH(QString, counts);
    QFETCH(QString, units);
    OpenPanel("RN");
    boxes.Tolerate(true);
    Preset()->setValue(value);
    QVERIFY(Operator().Click("btnPresetinCounts"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInCounts(%1)").arg(counts)});
    QVERIFY(Operator().Click("btnPresetinUnits"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInUnits(%1)").arg(units)});
    QCOMPARE(Preset()->value(), value);
}

void LinearEncoderPanelTest::presetsWhatTheModuleReads() {
    OpenPanel("RN");
    QVERIFY(Operator().Enter("sbPreset", QStringLiteral("-4711.5")));
    QVERIFY(Operator().Click("btnPresetinCounts"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("-4711"));
    QVERIFY(Operator().Click("btnPresetinUnits"));
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("-4711.50000 mm"));
    QCOMPARE(boxes.Count(), 0);
}

void LinearEncoderPanelTest::presetIsEnteredWithAPoint_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("sent");
    QTest::newRow("point") << "4.2889"
                           << "4.28890"
                           << "4.2889";
    QTest::newRow("group separator of the language") << "1.234.5"
                                                     << "1.23450"
                                                     << "1.2345";
    QTest::newRow("group separator of English") << "1,234.5"
                                                << "1234.50000"
                                                << "1234.5";
}

void LinearEncoderPanelTest::presetIsEnteredWithAPoint() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, sent);
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    OpenPanel("RN");
    boxes.Tolerate(true);
    QVERIFY(Operator().Enter("sbPreset", typed));
    QVERIFY(Operator().Click("btnPresetinUnits"));
    QCOMPARE(Preset()->text(), shown);
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInUnits(%1)").arg(sent)});
}

void LinearEncoderPanelTest::oneEntryIsOneWrite() {
    OpenPanel("RN");
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    QVERIFY(Operator().Enter("sbPreset", QStringLiteral("17.5")));
    COMPARE_CALLS(ModuleCalls(), {});
    Operator().Press(Qt::Key_Return);
    COMPARE_CALLS(ModuleCalls(), {});
    // A mnemonic takes what has been typed.
    Preset()->selectAll();
    Operator().Type(QStringLiteral("18"));
    const QString shortcut = Operator().The<QPushButton>("btnPresetinCounts")->shortcut().toString();
    Operator().Press(static_cast<Qt::Key>(shortcut.back().unicode()), Qt::AltModifier);
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setPresetInCounts(18)")});
}

void LinearEncoderPanelTest::refusedPresetShowsTheSentence() {
    OpenPanel("RN");
    boxes.Tolerate(true);
    Preset()->setValue(1e11);
    QVERIFY(Operator().Click("btnPresetinCounts"));
    QVERIFY(Operator().Click("btnPresetinUnits"));
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen.first().title, boxTitle);
    QVERIFY(seen.first().text.contains(QStringLiteral("2147483647")));
    QVERIFY(seen.last().text.contains(QStringLiteral("mm")));
}

void LinearEncoderPanelTest::failedPresetsShowABox() {
    OpenPanel("RN");
    Preset()->setValue(17.25);
    for (const auto& [button, operation] :
         {std::pair("btnPresetinCounts", "setPresetInCounts"), std::pair("btnPresetinUnits", "setPresetInUnits")}) {
        FailNext(operation, ForeignText());
        boxes.ExpectError(ThePanel<ModuleRNWidget>(), boxTitle, ForeignText());
        QVERIFY(Operator().Click(button));
        QCOMPARE(Preset()->value(), 17.25);
    }
    QCOMPARE(boxes.Count(), 2);
}

void LinearEncoderPanelTest::enablingConcernsRadioButtonsAndPresets() {
    OpenPanel("RN");
    const auto* panel = ThePanel<ModuleRNWidget>();
    const QStringList all =
        QStringLiteral("btnPresetinCounts,btnPresetinUnits,radioNormal,radioReversed").split(QLatin1Char(','));
    QCOMPARE(EnabledButtons(panel), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(panel), QStringList());
    QVERIFY(Preset()->isEnabled());
    hold.Release();
    QCOMPARE(EnabledButtons(panel), all);
}

void LinearEncoderPanelTest::failureWhileFilling_data() {
    QTest::addColumn<int>("call");
    QTest::newRow("first") << 1;
    QTest::newRow("second") << 2;
}

void LinearEncoderPanelTest::failureWhileFilling() {
    QFETCH(int, call);
    const QVector<SeenBox> seen = OpenFailingPanel("RN", [&] { FailNth(call, "Direction", ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, QStringLiteral("Tavik Library Test"));
    QCOMPARE(seen.first().text, ForeignText());
    CompareFailedAt(QStringLiteral("Direction"));
}

TAVIK_TEST_MAIN(LinearEncoderPanelTest)

#include "LinearEncoderPanelTest.moc"
