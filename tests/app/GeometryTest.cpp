#include "app/PageTabs.h"
#include "app/Program.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

/// Where things stand at the window's smallest size, at the sizes of font and screen that the tests' list asks for.
class GeometryTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void nothingIsClipped_data();
    void nothingIsClipped();
    void modulePageNeedsNoScrolling_data();
    void modulePageNeedsNoScrolling();
    void modePagesNeedNoScrolling_data();
    void modePagesNeedNoScrolling();
    void groupsDoNotOverlap();
    void typePanelStandsBesideTheReadings();
    void typePanelStandsThereBeforeThePageWasShown();
    void typePanelFollowsTheLayout();
    void smallScreenScrolls();
    void capabilityValuesStandBelowEachOther();
    void tabsOfALinearEncoderFit();
    void shortCaptionIsShownWhole();
    void ampersandIsALetterOfACaption();
    void windowIsPlacedOnTheDesktop_data();
    void windowIsPlacedOnTheDesktop();
    void firstButtonsAreOnASmallScreen_data();
    void firstButtonsAreOnASmallScreen();

private:
    QRect InPanel(const char* name) {
        const QWidget* widget = Operator().Find(name);
        QWidget* panel = Operator().Find("moduleWidget");
        return QRect(widget->mapTo(panel, QPoint(0, 0)), widget->size());
    }
    void CompareTypePanelPlace() {
        const QRect reference = InPanel("gbReading");
        const QRect panel = InPanel("ModuleKXwidget");
        QCOMPARE(panel.x(), reference.x() + reference.width());
        QCOMPARE(panel.y(), reference.y());
    }
};

namespace {

QString Clipping(const QWidget& widget) {
    const QRect parent = widget.parentWidget()->rect();
    // What does not fit into a scroll area is reached by scrolling.
    const bool scrolls = widget.parentWidget()->objectName() == QLatin1String("qt_scrollarea_viewport");
    if (!scrolls && !parent.contains(widget.geometry())) {
        return QStringLiteral("%1 reaches out of %2.").arg(widget.objectName(), widget.parentWidget()->objectName());
    }
    const bool showsText =
        qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr;
    const QSize needed = showsText ? widget.sizeHint() : widget.minimumSizeHint();
    if (widget.width() < needed.width() || widget.height() < needed.height()) {
        return QStringLiteral("%1 (%2 x %3) needs %4 x %5.")
            .arg(widget.objectName())
            .arg(widget.width())
            .arg(widget.height())
            .arg(needed.width())
            .arg(needed.height());
    }
    return QString();
}

/// What is inside a table, a list or a line edit is Qt's own.
bool IsOfTheForm(const QWidget& widget, const QWidget& page) {
    for (const QWidget* parent = widget.parentWidget(); parent != &page; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractItemView*>(parent) != nullptr ||
            qobject_cast<const QLineEdit*>(parent) != nullptr) {
            return false;
        }
    }
    return !widget.objectName().startsWith(QLatin1String("qt_"));
}

} // namespace

void GeometryTest::nothingIsClipped_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("module");
    constexpr int probe = 1;
    for (const char* page :
         {"tabServer", "tabNetwork", "tabModule", "tabBuffered", "tabDifference", "tabDynamic", "tabReadburst"}) {
        QTest::newRow(page) << QString::fromLatin1(page) << probe;
    }
    constexpr int linearEncoder = 2;
    QTest::newRow("tabRefMark") << QStringLiteral("tabRefMark") << linearEncoder;
}

void GeometryTest::nothingIsClipped() {
    QFETCH(QString, page);
    QFETCH(int, module);
    OpenModule(Benches::Two(), module);
    QVERIFY(Operator().SelectPage(qPrintable(page)));
    ProcessAllEvents();
    QCOMPARE(Window().size(), QSize(1100, 700));
    const QWidget* shown = Operator().Find(qPrintable(page));
    QStringList clipped;
    int seen = 0;
    const QList<QWidget*> widgets = shown->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (widget->isVisible() && IsOfTheForm(*widget, *shown)) {
            clipped += Clipping(*widget);
            ++seen;
        }
    }
    clipped.removeAll(QString());
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(QLatin1Char('\n'))));
    QVERIFY(seen > 8);
}

void GeometryTest::modulePageNeedsNoScrolling_data() {
    QTest::addColumn<int>("row");
    QTest::newRow("probe") << 1;
    QTest::newRow("encoder") << 2;
}

void GeometryTest::modulePageNeedsNoScrolling() {
    QFETCH(int, row);
    OpenModule(Benches::Two(), row);
    ProcessAllEvents();
    const auto* area = Operator().The<QScrollArea>("scrollModuleWidget");
    QCOMPARE(area->widget()->size(), area->viewport()->size());
    QCOMPARE(area->viewport()->size(), area->size());
}

void GeometryTest::modePagesNeedNoScrolling_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("scrollArea");
    QTest::newRow("buffered") << QStringLiteral("tabBuffered") << QStringLiteral("scrollBufferedModeWidget");
    QTest::newRow("difference") << QStringLiteral("tabDifference") << QStringLiteral("scrollDifferenceModeWidget");
    QTest::newRow("dynamic") << QStringLiteral("tabDynamic") << QStringLiteral("scrollDynamicWidget");
    QTest::newRow("read burst") << QStringLiteral("tabReadburst") << QStringLiteral("scrollReadBurstWidget");
}

void GeometryTest::modePagesNeedNoScrolling() {
    QFETCH(QString, page);
    QFETCH(QString, scrollArea);
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage(qPrintable(page)));
    ProcessAllEvents();
    const auto* area = Operator().The<QScrollArea>(qPrintable(scrollArea));
    QCOMPARE(area->widget()->size(), area->viewport()->size());
    QCOMPARE(area->viewport()->size(), area->size());
}

void GeometryTest::groupsDoNotOverlap() {
    OpenModule(Benches::Two(), 1);
    ProcessAllEvents();
    QVector<QRect> rectangles;
    for (const char* name : {"gbModuleInformation", "gbModuleStatus", "gbReading", "gbResolution", "gbAveraging"}) {
        const QRect rectangle = InPanel(name);
        for (const QRect& other : qAsConst(rectangles)) {
            QVERIFY2(!rectangle.intersects(other), name);
        }
        rectangles.append(rectangle);
    }
}

void GeometryTest::typePanelStandsBesideTheReadings() {
    OpenModule(Benches::Two(), 1);
    ProcessAllEvents();
    CompareTypePanelPlace();
    const QWidget* panel = Operator().Find("ModuleKXwidget");
    QVERIFY(panel->width() >= panel->sizeHint().width());
    QVERIFY(panel->height() >= panel->sizeHint().height());
}

void GeometryTest::typePanelStandsThereBeforeThePageWasShown() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    CompareTypePanelPlace();
    QVERIFY(Operator().SelectPage("tabModule"));
    CompareTypePanelPlace();
}

void GeometryTest::typePanelFollowsTheLayout() {
    OpenModule(Benches::Two(), 0);
    Window().resize(1500, 900);
    ProcessAllEvents();
    CompareTypePanelPlace();
    QFont larger = Window().font();
    larger.setPointSize(14);
    Window().setFont(larger);
    ProcessAllEvents();
    CompareTypePanelPlace();
    Window().resize(1100, 700);
    ProcessAllEvents();
    CompareTypePanelPlace();
}

void GeometryTest::smallScreenScrolls() {
    OpenModule(Benches::Two(), 0);
    Window().setMinimumSize(300, 200);
    Window().resize(500, 300);
    ProcessAllEvents();
    const auto* area = Operator().The<QScrollArea>("scrollModuleWidget");
    const QRect panel = InPanel("ModuleKXwidget");
    QVERIFY(area->widget()->rect().contains(panel));
    QVERIFY(area->widget()->width() > area->viewport()->width());
    QVERIFY(Operator().Click("btnSetAveraging"));
}

void GeometryTest::capabilityValuesStandBelowEachOther() {
    OpenNetwork(Benches::Two());
    ProcessAllEvents();
    const int right = Operator().Find("lblBufferedCapable")->geometry().right();
    for (const char* name : {"lblDynamicCapable", "lblReadburstCapable", "lblUltraHighSpeedCapable"}) {
        QCOMPARE(Operator().Find(name)->geometry().right(), right);
    }
}

namespace {

constexpr int usualDpi = 96;

QString BenchDescribed(const QString& description) {
    return QStringLiteral("<bench><network name=\"Alpha\" controller=\"C1\" description=\"%1\">"
                          "<module type=\"RN\" identity=\"RN00000003\"/></network></bench>")
        .arg(description.toHtmlEscaped());
}

} // namespace

/// The network's tab becomes narrower, and its tool tip has the whole description.
void GeometryTest::tabsOfALinearEncoderFit() {
    const QString description = QStringLiteral("Ethernet controller of the measuring machine in hall 7, north side");
    OpenModule(BenchDescribed(description), 0);
    ProcessAllEvents();
    QCOMPARE(Window().size(), QSize(1100, 700));
    const auto* tabs = Operator().The<QTabWidget>("tabWidget");
    const QTabBar* bar = tabs->tabBar();
    QCOMPARE(tabs->count(), 8);
    QCOMPARE(tabs->tabText(1), description);
    QCOMPARE(tabs->tabToolTip(1), description);
    // With larger letters the other tabs need more than the width of the window.
    const bool fits = bar->logicalDpiX() <= usualDpi;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        QVERIFY2(!fits || bar->rect().contains(bar->tabRect(tab)), qPrintable(tabs->tabText(tab)));
        const bool whole = bar->tabRect(tab).width() > bar->fontMetrics().horizontalAdvance(tabs->tabText(tab));
        QVERIFY2(whole == (tab != 1), qPrintable(tabs->tabText(tab)));
    }
    constexpr int someLetters = 5;
    QVERIFY(bar->tabRect(1).width() > bar->fontMetrics().horizontalAdvance(description.left(someLetters)));
}

void GeometryTest::shortCaptionIsShownWhole() {
    OpenNetwork(BenchDescribed(QStringLiteral("Simulated alpha, R7")));
    const QTabBar* bar = Operator().The<QTabWidget>("tabWidget")->tabBar();
    QVERIFY(bar->tabRect(1).width() > bar->fontMetrics().horizontalAdvance(bar->tabText(1)));
}

void GeometryTest::ampersandIsALetterOfACaption() {
    OpenNetwork(QStringLiteral("<bench><network name=\"Alpha\" controller=\"C1\" description=\"Saw &amp; Press\">"
                               "<module type=\"KX\" identity=\"KX00000001\"/></network></bench>"));
    const auto* tabs = Operator().The<QTabWidget>("tabWidget");
    QCOMPARE(tabs->tabText(1), QStringLiteral("Saw && Press"));
    QCOMPARE(tabs->tabToolTip(1), QStringLiteral("Saw & Press"));
    // No identity of the simulated bench has an ampersand.
    PageTabs other;
    other.ShowPage(new QWidget(&other), QStringLiteral("Module X&Y"));
    QCOMPARE(other.tabText(0), QStringLiteral("Module X&&Y"));
}

void GeometryTest::windowIsPlacedOnTheDesktop_data() {
    QTest::addColumn<QSize>("desktop");
    QTest::addColumn<QPoint>("position");
    QTest::newRow("large") << QSize(1921, 1081) << QPoint(410, 190);
    QTest::newRow("1024 x 600") << QSize(1024, 600) << QPoint(0, 0);
    QTest::newRow("wide and low") << QSize(1280, 600) << QPoint(90, 0);
}

void GeometryTest::windowIsPlacedOnTheDesktop() {
    QFETCH(QSize, desktop);
    QFETCH(QPoint, position);
    QCOMPARE(CentredOn(desktop, QSize(1100, 700)), position);
}

void GeometryTest::firstButtonsAreOnASmallScreen_data() {
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("Connect All") << QByteArray("tabServer") << QByteArray("btnConnectAll");
    QTest::newRow("Disconnect All") << QByteArray("tabServer") << QByteArray("btnDisconnectAll");
    QTest::newRow("Move Up") << QByteArray("tabNetwork") << QByteArray("btnMoveUp");
    QTest::newRow("Notify") << QByteArray("tabNetwork") << QByteArray("btnNotify");
    if (QApplication::primaryScreen()->logicalDotsPerInchY() <= usualDpi) {
        QTest::newRow("Read") << QByteArray("tabModule") << QByteArray("btnRead");
    }
}

/// The window in the upper left corner of 1024 x 600, below a title bar of 40.
void GeometryTest::firstButtonsAreOnASmallScreen() {
    QFETCH(QByteArray, page);
    QFETCH(QByteArray, button);
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage(page.constData()));
    ProcessAllEvents();
    const QWidget* widget = Operator().Find(button.constData());
    const QRect place(widget->mapTo(&Window(), QPoint(0, 0)), widget->size());
    QVERIFY2(QRect(0, 0, 1024, 560).contains(place),
             qPrintable(QStringLiteral("%1, %2").arg(place.x()).arg(place.y())));
}

TAVIK_TEST_MAIN(GeometryTest)

#include "GeometryTest.moc"
