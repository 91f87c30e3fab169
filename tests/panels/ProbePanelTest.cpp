#include "library/TavikModuleKX.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QGroupBox>
#include <QListWidget>

using namespace TavikSimulator;

namespace {

const QString probe = QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" %1/>");

QString Text(TavikLibrary::eResolution resolution) {
    return QString::fromStdString(TavikLibrary::eResolution_ToString(resolution));
}

QString Text(TavikLibrary::eAveraging averaging) {
    return QString::fromStdString(TavikLibrary::eAveraging_ToString(averaging));
}

const QString call = QStringLiteral("module KX00000001.");

} // namespace

/// The panel of a probe: its resolution and its averaging.
class ProbePanelTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void showsWhatTheProbeOffers();
    void fillingAsksInOrder();
    void groupsAreTitled();
    void setsTheResolution();
    void setsTheAveraging();
    void setWithNothingChosenAsksAgain();
    void currentRowThatIsNotChosenIsNotSet();
    void refusedSetKeepsTheText();
    void failedSetShowsABox_data();
    void failedSetShowsABox();
    void failureWhileFilling_data();
    void failureWhileFilling();
    void probeThatOffersNothing();
    void probeThatOffersOneOfEach();
    void lasersAreProbesToo();
    void otherModulesHaveNone();
};

void ProbePanelTest::showsWhatTheProbeOffers() {
    OpenModule(Benches::With(probe.arg(QStringLiteral("resolution=\"16\" averaging=\"4\" resolutions=\"16 14\" "
                                                      "averagings=\"8 1 4\""))),
               0);
    using TavikLibrary::eAveraging;
    using TavikLibrary::eResolution;
    QCOMPARE(Operator().Text("tbCurrentResolution"), Text(eResolution::Bits16));
    QCOMPARE(Operator().Text("tbCurrentAveraging"), Text(eAveraging::Samples4));
    QCOMPARE(Rows("listResolutions"), QStringList({Text(eResolution::Bits16), Text(eResolution::Bits14)}));
    QCOMPARE(Rows("listAveragings"),
             QStringList({Text(eAveraging::Samples8), Text(eAveraging::Off), Text(eAveraging::Samples4)}));
    QVERIFY(Operator().Find("tbCurrentResolution")->property("readOnly").toBool());
    QVERIFY(Operator().Find("tbCurrentAveraging")->property("readOnly").toBool());
}

void ProbePanelTest::fillingAsksInOrder() {
    OpenNetwork(Benches::With(probe.arg(QString())));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QRegularExpression ofThePanel(QStringLiteral("^module KX00000001\\.(Available)?(Resolution|Averaging)s?\\("));
    COMPARE_CALLS(Calls::Take().filter(ofThePanel),
                  {call + QStringLiteral("Resolution()"), call + QStringLiteral("Averaging()"),
                   call + QStringLiteral("AvailableResolutions()"), call + QStringLiteral("AvailableAveragings()")});
}

void ProbePanelTest::groupsAreTitled() {
    OpenModule(Benches::With(probe.arg(QString())), 0);
    QStringList titles;
    const auto groups = Operator().Find("ModuleKXwidget")->findChildren<QGroupBox*>();
    for (const QGroupBox* group : groups) {
        titles.append(group->title());
    }
    QCOMPARE(titles, QStringList({QStringLiteral("Resolution"), QStringLiteral("Averaging")}));
    QCOMPARE(Operator().Find("ModuleKXwidget")->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(QLatin1String(Operator().Find("ModuleKXwidget")->metaObject()->className()),
             QLatin1String("ModuleKXwidget"));
}

void ProbePanelTest::setsTheResolution() {
    OpenModule(Benches::With(probe.arg(QStringLiteral("resolution=\"14\""))), 0);
    const QString wanted = Text(TavikLibrary::eResolution::Bits18);
    QVERIFY(Operator().SelectRow("listResolutions", wanted));
    QVERIFY(Operator().Click("btnSetResolution"));
    QCOMPARE(Operator().Text("tbCurrentResolution"), wanted);
    COMPARE_CALLS(Calls::Take(),
                  {call + QStringLiteral("setResolution(%1)").arg(wanted), call + QStringLiteral("Resolution()")});
}

void ProbePanelTest::setsTheAveraging() {
    OpenModule(Benches::With(probe.arg(QString())), 0);
    const QString wanted = Text(TavikLibrary::eAveraging::Samples64);
    QVERIFY(Operator().SelectRow("listAveragings", wanted));
    QVERIFY(Operator().Click("btnSetAveraging"));
    QCOMPARE(Operator().Text("tbCurrentAveraging"), wanted);
    COMPARE_CALLS(Calls::Take(),
                  {call + QStringLiteral("setAveraging(%1)").arg(wanted), call + QStringLiteral("Averaging()")});
    QCOMPARE(Rows("listAveragings").size(), 9);
}

void ProbePanelTest::setWithNothingChosenAsksAgain() {
    OpenModule(Benches::With(probe.arg(QString())), 0);
    QVERIFY(Operator().Click("btnSetResolution"));
    COMPARE_CALLS(Calls::Take(), {call + QStringLiteral("Resolution()")});
    QVERIFY(Operator().Click("btnSetAveraging"));
    COMPARE_CALLS(Calls::Take(), {call + QStringLiteral("Averaging()")});
}

void ProbePanelTest::currentRowThatIsNotChosenIsNotSet() {
    OpenModule(Benches::With(probe.arg(QString())), 0);
    for (const auto& [list, button, asked] : {std::tuple("listResolutions", "btnSetResolution", "Resolution()"),
                                              std::tuple("listAveragings", "btnSetAveraging", "Averaging()")}) {
        Operator().The<QListWidget>(list)->setCurrentRow(1);
        Operator().The<QListWidget>(list)->clearSelection();
        Calls::Mark();
        QVERIFY(Operator().Click(button));
        COMPARE_CALLS(Calls::Take(), {call + QLatin1String(asked)});
    }
}

void ProbePanelTest::refusedSetKeepsTheText() {
    OpenModule(Benches::With(probe.arg(QStringLiteral("resolution=\"14\""))), 0);
    SetModulePresent("Alpha", "KX00000001", false);
    QVERIFY(Operator().SelectRow("listResolutions", 2));
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnSetResolution"));
    QCOMPARE(boxes.Count(), 1);
    const SeenBox box = boxes.Take().constFirst();
    QCOMPARE(box.title, QStringLiteral("KX Module"));
    QCOMPARE(box.text, QString::fromStdString(Calls::Entries().front().error));
    QCOMPARE(Operator().Text("tbCurrentResolution"), Text(TavikLibrary::eResolution::Bits14));
}

void ProbePanelTest::failedSetShowsABox_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("field");
    for (const char* operation : {"setResolution", "Resolution"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation) << QStringLiteral("listResolutions")
                                 << QStringLiteral("btnSetResolution") << QStringLiteral("tbCurrentResolution");
    }
    for (const char* operation : {"setAveraging", "Averaging"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation) << QStringLiteral("listAveragings")
                                 << QStringLiteral("btnSetAveraging") << QStringLiteral("tbCurrentAveraging");
    }
}

void ProbePanelTest::failedSetShowsABox() {
    QFETCH(QString, operation);
    QFETCH(QString, list);
    QFETCH(QString, button);
    QFETCH(QString, field);
    OpenModule(Benches::With(probe.arg(QString())), 0);
    const QString before = Operator().Text(qPrintable(field));
    FailNext(qPrintable(operation), QStringLiteral("Geht nicht: <u>größer</u>."));
    QVERIFY(Operator().SelectRow(qPrintable(list), 2));
    boxes.ExpectError(Operator().Find("ModuleKXwidget"), QStringLiteral("KX Module"),
                      QStringLiteral("Geht nicht: <u>größer</u>."));
    QVERIFY(Operator().Click(qPrintable(button)));
    QCOMPARE(Operator().Text(qPrintable(field)), before);
    QCOMPARE(boxes.Count(), 1);
}

void ProbePanelTest::failureWhileFilling_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"Resolution", "Averaging", "AvailableResolutions", "AvailableAveragings"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void ProbePanelTest::failureWhileFilling() {
    QFETCH(QString, operation);
    OpenNetwork(Benches::With(probe.arg(QString())));
    FailNext(qPrintable(operation), QStringLiteral("Empty."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Empty."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    const QStringList calls = Calls::TakeObject("module KX00000001");
    const int failed = calls.lastIndexOf(call + operation + QStringLiteral("()"));
    QCOMPARE(calls.value(failed + 1), QString(call + QStringLiteral("BufferedCapable()")));
    QCOMPARE(ShownOrOffered(Operator().Find("moduleWidget")), QStringList());
}

void ProbePanelTest::probeThatOffersNothing() {
    OpenModule(Benches::With(probe.arg(QStringLiteral("resolutions=\"\""))), 0);
    QVERIFY(!Operator().IsEnabled("btnSetResolution"));
    QVERIFY(Operator().IsEnabled("btnSetAveraging"));
    QCOMPARE(Rows("listResolutions"), QStringList());
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QVERIFY(!Operator().IsEnabled("btnSetAveraging"));
    QVERIFY(Operator().IsEnabled("listAveragings"));
    QVERIFY(Operator().IsEnabled("tbCurrentAveraging"));
    hold.Release();
    QVERIFY(!Operator().IsEnabled("btnSetResolution"));
    QVERIFY(Operator().IsEnabled("btnSetAveraging"));
    Drop();
    OpenModule(Benches::With(probe.arg(QStringLiteral("averagings=\"\""))), 0);
    QVERIFY(Operator().IsEnabled("btnSetResolution"));
    QVERIFY(!Operator().IsEnabled("btnSetAveraging"));
}

void ProbePanelTest::probeThatOffersOneOfEach() {
    OpenModule(Benches::With(probe.arg(QStringLiteral("resolution=\"14\" resolutions=\"14\" averagings=\"1\""))), 0);
    QCOMPARE(Rows("listResolutions").size(), 1);
    QCOMPARE(Rows("listAveragings").size(), 1);
    QVERIFY(Operator().IsEnabled("btnSetResolution"));
    QVERIFY(Operator().IsEnabled("btnSetAveraging"));
}

void ProbePanelTest::lasersAreProbesToo() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"BWR\" identity=\"BWR0000001\"/>")), 0);
    QVERIFY(Operator().Find("ModuleKXwidget")->isVisible());
}

void ProbePanelTest::otherModulesHaveNone() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"RN\" identity=\"RN00000001\"/>")), 0);
    QVERIFY(Window().findChildren<QWidget*>(QStringLiteral("ModuleKXwidget")).isEmpty());
}

TAVIK_TEST_MAIN(ProbePanelTest)

#include "ProbePanelTest.moc"
