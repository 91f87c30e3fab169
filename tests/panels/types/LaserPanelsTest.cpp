#include "library/TavikModuleLaser.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/types/ModuleBWRWidget.h"
#include "panels/types/ModuleBWWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QSpinBox>

using namespace TavikLibrary;
using namespace TavikSimulator;

namespace {

const QString filterBox = QStringLiteral("BWR Module");

QString FilterText(int filter) {
    return QString::fromStdString(eFilter_ToString(static_cast<eFilter>(filter)));
}

bool WaitCursorShows() {
    return QApplication::overrideCursor() != nullptr && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

} // namespace

/// The panels of the beam and of the filter of lasers, and what fails while the panels of a laser are filled.
class LaserPanelsTest : public PanelTest {
    Q_OBJECT

private slots:
    void beamForm();
    void beamIsShown_data();
    void beamIsShown();
    void beamIsSwitched();
    void unknownBeamIsNeitherOnNorOff();
    void refusedBeamLeavesTheCheckBox();
    void beamPanelIsEnabledAndDisabled();

    void filterForm();
    void filterFillingAsksInOrder();
    void filterShowsWhatTheModuleSays();
    void levelCutTimeIsLimitedByTheModule();
    void strangeLevelCutTimes_data();
    void strangeLevelCutTimes();
    void filterWithoutARow();
    void filterIsSetAndShownAsSent();
    void filterWithNoCurrentRow();
    void tabIntoTheFiltersChoosesNone();
    void levelCutTimeIsSetAndShownAsSent();
    void failedSetKeepsTheText_data();
    void failedSetKeepsTheText();
    void filterPanelIsEnabledAndDisabled();

    void failureWhileFilling_data();
    void failureWhileFilling();
};

void LaserPanelsTest::beamForm() {
    OpenPanel("BW");
    const auto* panel = ThePanel<ModuleBWWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringList{QStringLiteral("Laser Control")});
    QCOMPARE(Operator().Text("cbBeamOn"), QStringLiteral("Laser Beam On"));
}

void LaserPanelsTest::beamIsShown_data() {
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << QStringLiteral("beam=\"yes\"") << true;
    QTest::newRow("off") << QStringLiteral("beam=\"no\"") << false;
}

void LaserPanelsTest::beamIsShown() {
    QFETCH(QString, attributes);
    QFETCH(bool, on);
    OpenPanel("BW", attributes);
    QCOMPARE(Operator().The<QCheckBox>("cbBeamOn")->isChecked(), on);
}

void LaserPanelsTest::unknownBeamIsNeitherOnNorOff() {
    OpenPanel("BW");
    FakeHostWindow host;
    TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    auto* laser = dynamic_cast<TavikModuleBW*>(server.Networks()->Network(0)->GetModule(0));
    ModuleBWWidget panel(&host);
    const auto* beam = panel.findChild<QCheckBox*>(QStringLiteral("cbBeamOn"));
    FailNext("BeamOn", ForeignText());
    QVERIFY_EXCEPTION_THROWN(panel.SetModule(&host, &server, nullptr, laser), std::runtime_error);
    QCOMPARE(beam->checkState(), Qt::PartiallyChecked);
    panel.SetEnabled(true);
    QVERIFY(!beam->isEnabled());
    panel.SetModule(&host, &server, nullptr, laser);
    QCOMPARE(beam->checkState(), Qt::Checked);
    QVERIFY(beam->isEnabled() && !beam->isTristate());
}

void LaserPanelsTest::beamIsSwitched() {
    OpenPanel("BW");
    QVERIFY(Operator().Click("cbBeamOn"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setBeamOn(false)")});
    QVERIFY(!Operator().The<QCheckBox>("cbBeamOn")->isChecked());
    QVERIFY(Operator().Click("cbBeamOn"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setBeamOn(true)")});
}

void LaserPanelsTest::refusedBeamLeavesTheCheckBox() {
    OpenPanel("BW");
    FailNext("setBeamOn", ForeignText());
    boxes.ExpectError(ThePanel<ModuleBWWidget>(), QStringLiteral("BW Module"), ForeignText());
    QVERIFY(Operator().Click("cbBeamOn"));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(!Operator().The<QCheckBox>("cbBeamOn")->isChecked());
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setBeamOn(false)")});
}

void LaserPanelsTest::beamPanelIsEnabledAndDisabled() {
    OpenPanel("BW");
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWWidget>()), QStringList());
    hold.Release();
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWWidget>()), QStringList{QStringLiteral("cbBeamOn")});
}

void LaserPanelsTest::filterForm() {
    OpenPanel("BWR");
    const auto* panel = ThePanel<ModuleBWRWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringLiteral("Laser BWR,Level Cut Time,Low Pass Filter").split(QLatin1Char(',')));
    QCOMPARE(Operator().The<QGroupBox>("gbLaserInfo")->title(), QStringLiteral("Laser BWR"));
    QCOMPARE(LabelsOf(panel), QStringLiteral("Model,Serial,Firmware,0.1ms Steps (10 is1ms),Current,Available,Current,"
                                             "Available")
                                  .split(QLatin1Char(',')));
    QCOMPARE(Rows("listAvailableFilters"),
             QStringLiteral("20 KHz,4 KHz,1 Khz,200 Hz,25 Hz,1 Hz,0.1 Hz").split(QLatin1Char(',')));
    QVERIFY(!Operator().The<QListWidget>("listAvailableFilters")->isSortingEnabled());
    for (const char* name : {"tbModel", "tbSerial", "tbFirmware", "tbCurrentFilter", "tbCurrentLevelCutTime"}) {
        QVERIFY(Operator().Find(name)->property("readOnly").toBool());
    }
    QCOMPARE(Operator().Text("btnSetFilter") + Operator().Text("btnSetLevelCut"), QStringLiteral("SetSet"));
}

void LaserPanelsTest::filterFillingAsksInOrder() {
    OpenNetwork(BenchWith("BWR", QString(), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    COMPARE_CALLS(calls.mid(calls.indexOf(QStringLiteral("AvailableAveragings()")), 9),
                  {QStringLiteral("AvailableAveragings()"), QStringLiteral("BeamOn()"), QStringLiteral("ModelNumber()"),
                   QStringLiteral("SerialNumber()"), QStringLiteral("FirmwareNumber()"), QStringLiteral("Filter()"),
                   QStringLiteral("LevelCutTime()"), QStringLiteral("LevelCutTimeMax()"), QStringLiteral("Offset()")});
}

void LaserPanelsTest::filterShowsWhatTheModuleSays() {
    OpenPanel("BWR", QStringLiteral("model=\"Größe µ\" serial=\"0815\" firmware=\"7.1\" filter=\"25Hz\" "
                                    "level-cut=\"123\" level-cut-max=\"500\""));
    QCOMPARE(Operator().Text("tbModel"), QStringLiteral("Größe µ"));
    QCOMPARE(Operator().Text("tbSerial"), QStringLiteral("0815"));
    QCOMPARE(Operator().Text("tbFirmware"), QStringLiteral("7.1"));
    QCOMPARE(Operator().Text("tbCurrentFilter"), FilterText(4));
    QCOMPARE(Operator().The<QListWidget>("listAvailableFilters")->currentRow(), 4);
    QCOMPARE(Operator().Text("tbCurrentLevelCutTime"), QStringLiteral("123"));
}

void LaserPanelsTest::levelCutTimeIsLimitedByTheModule() {
    for (const int most : {500, 30, 0, 32767}) {
        OpenPanel("BWR", QStringLiteral("level-cut=\"%1\" level-cut-max=\"%1\"").arg(most));
        const auto* time = Operator().The<QSpinBox>("sbAvailableLevelCutTime");
        QCOMPARE(time->minimum(), 0);
        QCOMPARE(time->maximum(), most);
        QCOMPARE(time->value(), most);
        QCOMPARE(Operator().Text("tbCurrentLevelCutTime"), QString::number(most));
        Drop();
    }
}

void LaserPanelsTest::strangeLevelCutTimes_data() {
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("clamped");
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("too large") << 501 << 500;
    QTest::newRow("as large as can be") << 32767 << 500;
}

void LaserPanelsTest::strangeLevelCutTimes() {
    QFETCH(int, time);
    QFETCH(int, clamped);
    OpenNetwork(BenchWith("BWR", QString(), QString()));
    AnswerFrom(1, "LevelCutTime", time);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Operator().Text("tbCurrentLevelCutTime"), QString::number(time));
    QCOMPARE(Operator().The<QSpinBox>("sbAvailableLevelCutTime")->value(), clamped);
    QVERIFY(ModuleCalls().filter(QStringLiteral("setLevelCutTime")).isEmpty());
    QCOMPARE(boxes.Count(), 0);
}

void LaserPanelsTest::filterWithoutARow() {
    OpenNetwork(BenchWith("BWR", QString(), QString()));
    for (const int filter : {7, -1, 1000}) {
        AnswerFrom(1, "Filter", filter);
        Operator().The<QListWidget>("listModules")->setCurrentRow(-1);
        ProcessAllEvents();
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", 0));
        QCOMPARE(Operator().The<QListWidget>("listAvailableFilters")->currentRow(), -1);
        QCOMPARE(Operator().Text("tbCurrentFilter"), FilterText(filter));
        ClearFaults();
    }
}

void LaserPanelsTest::filterIsSetAndShownAsSent() {
    OpenPanel("BWR");
    // The module may say something else: what was sent is shown.
    AnswerFrom(1, "Filter", 2);
    for (int row = 6; row >= 0; --row) {
        QVERIFY(Operator().SelectRow("listAvailableFilters", row));
        QVERIFY(Operator().Click("btnSetFilter"));
        COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setFilter(%1)").arg(row)});
        QCOMPARE(Operator().Text("tbCurrentFilter"), FilterText(row));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }
}

void LaserPanelsTest::filterWithNoCurrentRow() {
    OpenPanel("BWR");
    Operator().The<QListWidget>("listAvailableFilters")->setCurrentRow(-1);
    const QString before = Operator().Text("tbCurrentFilter");
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnSetFilter"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setFilter(-1)")});
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, filterBox);
    QVERIFY(seen.first().text.contains(QLatin1String("-1")));
    QCOMPARE(Operator().Text("tbCurrentFilter"), before);
}

void LaserPanelsTest::tabIntoTheFiltersChoosesNone() {
    OpenNetwork(BenchWith("BWR", QString(), QString()));
    boxes.Tolerate(true);
    AnswerFrom(1, "Filter", 7);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    Operator().Find("listAvailableFilters")->setFocus(Qt::TabFocusReason);
    ModuleCalls();
    QVERIFY(Operator().Click("btnSetFilter"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setFilter(-1)")});
}

void LaserPanelsTest::levelCutTimeIsSetAndShownAsSent() {
    OpenPanel("BWR", QStringLiteral("level-cut-max=\"32767\""));
    AnswerFrom(1, "LevelCutTime", 2);
    for (const int time : {0, 123, 32767}) {
        Operator().The<QSpinBox>("sbAvailableLevelCutTime")->setValue(time);
        QVERIFY(Operator().Click("btnSetLevelCut"));
        COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setLevelCutTime(%1)").arg(time)});
        QCOMPARE(Operator().Text("tbCurrentLevelCutTime"), QString::number(time));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }
    // A module that accepts more than 16 bits hold gets, and shows, what is left of them.
    Drop();
    OpenNetwork(BenchWith("BWR", QString(), QString()));
    AnswerFrom(1, "LevelCutTimeMax", 100000);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    Operator().The<QSpinBox>("sbAvailableLevelCutTime")->setValue(65536 + 40);
    ModuleCalls();
    QVERIFY(Operator().Click("btnSetLevelCut"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setLevelCutTime(40)")});
    QCOMPARE(Operator().Text("tbCurrentLevelCutTime"), QStringLiteral("40"));
}

void LaserPanelsTest::failedSetKeepsTheText_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("filter") << QByteArray("setFilter") << QByteArray("btnSetFilter") << QByteArray("tbCurrentFilter");
    QTest::newRow("level cut") << QByteArray("setLevelCutTime") << QByteArray("btnSetLevelCut")
                               << QByteArray("tbCurrentLevelCutTime");
}

void LaserPanelsTest::failedSetKeepsTheText() {
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, field);
    OpenPanel("BWR");
    const QString before = Operator().Text(field.constData());
    QVERIFY(Operator().SelectRow("listAvailableFilters", 5));
    Operator().The<QSpinBox>("sbAvailableLevelCutTime")->setValue(77);
    FailNext(operation.constData(), ForeignText());
    bool cursorUnderTheBox = true;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) { cursorUnderTheBox = WaitCursorShows(); };
    boxes.ExpectError(ThePanel<ModuleBWRWidget>(), filterBox, ForeignText(), reply);
    QVERIFY(Operator().Click(button.constData()));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(!cursorUnderTheBox);
    QCOMPARE(Operator().Text(field.constData()), before);
}

void LaserPanelsTest::filterPanelIsEnabledAndDisabled() {
    OpenPanel("BWR");
    const QStringList all = {QStringLiteral("btnSetFilter"), QStringLiteral("btnSetLevelCut")};
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWRWidget>()), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWRWidget>()), QStringList());
    QVERIFY(Operator().IsEnabled("listAvailableFilters") && Operator().IsEnabled("sbAvailableLevelCutTime"));
    hold.Release();
    QCOMPARE(EnabledButtons(ThePanel<ModuleBWRWidget>()), all);
}

void LaserPanelsTest::failureWhileFilling_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("operation");
    for (const auto& [type, operation] :
         {std::pair("BW", "BeamOn"), std::pair("BWR", "BeamOn"), std::pair("BWR", "ModelNumber"),
          std::pair("BWR", "SerialNumber"), std::pair("BWR", "FirmwareNumber"), std::pair("BWR", "Filter"),
          std::pair("BWR", "LevelCutTime"), std::pair("BWR", "LevelCutTimeMax"), std::pair("BWK", "MeasuringRate"),
          std::pair("BWK", "AvailableMeasuringRates")}) {
        QTest::addRow("%s %s", type, operation) << QByteArray(type) << QByteArray(operation);
    }
}

void LaserPanelsTest::failureWhileFilling() {
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, operation);
    const QVector<SeenBox> seen =
        OpenFailingPanel(type.constData(), [&] { FailNext(operation.constData(), ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, QStringLiteral("Tavik Library Test"));
    QCOMPARE(seen.first().text, ForeignText());
    CompareFailedAt(QLatin1String(operation));
}

TAVIK_TEST_MAIN(LaserPanelsTest)

#include "LaserPanelsTest.moc"
