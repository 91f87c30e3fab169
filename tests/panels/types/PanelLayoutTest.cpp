#include "panels/types/ModuleBWKWidget.h"
#include "panels/types/ModuleBWRWidget.h"
#include "panels/types/ModuleBWWidget.h"
#include "panels/types/ModuleHVXWidget.h"
#include "panels/types/ModuleKXwidget.h"
#include "panels/types/ModuleQTAWidget.h"
#include "panels/types/ModuleRNWidget.h"
#include "panels/types/ModuleSWAX2Widget.h"
#include "panels/types/ModuleSWAXWidget.h"
#include "tests/panels/types/PanelTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

namespace {

/// The modules of the bench in their order, and the panels that each of them gets.
const char* const types[] = {"KX", "HVX", "QTA", "SWAX", "SWAX2", "BW", "BWR", "BWK", "RN"};

QString Bench() {
    QString modules;
    for (const char* type : types) {
        modules += QStringLiteral("<module type=\"%1\" identity=\"%2\"/>")
                       .arg(QLatin1String(type), QString::fromLatin1(type).leftJustified(10, QLatin1Char('0')));
    }
    return Benches::With(modules);
}

QString PlaceOf(const QWidget* panel, const QRect& reading, const QWidget* probe) {
    const QPoint reference(reading.x() + reading.width(), reading.y());
    if (panel->pos() == reference) {
        return QStringLiteral("reference");
    }
    if (probe != nullptr && panel->pos() == reference + QPoint(probe->width(), 0)) {
        return QStringLiteral("right");
    }
    if (probe != nullptr && panel->pos() == reference + QPoint(0, probe->height())) {
        return QStringLiteral("below");
    }
    return QStringLiteral("nowhere");
}

} // namespace

/// Where the panels of all kinds of modules stand on the module page, and whether there is room for them.
class PanelLayoutTest : public PanelTest {
    Q_OBJECT

private slots:
    void eachModuleHasItsPanels_data() { Modules(); }
    void eachModuleHasItsPanels();
    void firstModuleBeforeThePageWasShown_data() { Modules(); }
    void firstModuleBeforeThePageWasShown();
    void afterThePageIsLaidOutAnew();
    void oldPanelsAreGone();
    void thePageHasRoom_data() { Modules(); }
    void thePageHasRoom();
    void nothingIsClipped_data() { Modules(); }
    void nothingIsClipped();
    void buttonsOfAGroupHaveOneSize_data() { Modules(); }
    void buttonsOfAGroupHaveOneSize();

private:
    static void Modules();
    QVector<TypePanel*> Panels();
    /// "ModuleKXwidget at reference, ...", sorted.
    QStringList Places();
    QStringList ClippedIn(const QWidget* panel);
};

void PanelLayoutTest::Modules() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("places");
    const QString probe = QStringLiteral("ModuleKXwidget at reference");
    const QString beam = QStringLiteral("ModuleBWWidget at below");
    const QVector<QStringList> places = {
        {probe},
        {QStringLiteral("ModuleHVXWidget at reference")},
        {QStringLiteral("ModuleQTAWidget at reference")},
        {QStringLiteral("ModuleSWAXWidget at reference")},
        {QStringLiteral("ModuleSWAX2Widget at reference")},
        {beam, probe},
        {QStringLiteral("ModuleBWRWidget at right"), beam, probe},
        {QStringLiteral("ModuleBWKWidget at right"), beam, probe},
        {QStringLiteral("ModuleRNWidget at reference")},
    };
    for (int row = 0; row < places.size(); ++row) {
        QTest::newRow(types[row]) << row << places.at(row);
    }
}

QVector<TypePanel*> PanelLayoutTest::Panels() {
    QVector<TypePanel*> panels;
    const auto children =
        Operator().Find("moduleWidget")->findChildren<TypePanel*>(QString(), Qt::FindDirectChildrenOnly);
    for (TypePanel* panel : children) {
        if (!panel->isHidden()) {
            panels.append(panel);
        }
    }
    return panels;
}

QStringList PanelLayoutTest::Places() {
    const QRect reading = Operator().Find("gbReading")->geometry();
    const QWidget* probe = nullptr;
    const QVector<TypePanel*> panels = Panels();
    for (const TypePanel* panel : panels) {
        if (qobject_cast<const ModuleKXwidget*>(panel) != nullptr) {
            probe = panel;
        }
    }
    QStringList places;
    for (const TypePanel* panel : panels) {
        places.append(QLatin1String(panel->metaObject()->className()) + QStringLiteral(" at ") +
                      PlaceOf(panel, reading, probe));
    }
    places.sort();
    return places;
}

void PanelLayoutTest::eachModuleHasItsPanels() {
    QFETCH(int, row);
    QFETCH(QStringList, places);
    OpenModule(Bench(), row);
    QCOMPARE(Places(), places);
}

void PanelLayoutTest::firstModuleBeforeThePageWasShown() {
    QFETCH(int, row);
    QFETCH(QStringList, places);
    OpenNetwork(Bench());
    QVERIFY(Operator().SelectRow("listModules", row));
    QVERIFY(!Operator().Find("moduleWidget")->isVisible());
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(Places(), places);
    const QRect first = Panels().constFirst()->geometry();
    QVERIFY(Operator().SelectPage("tabNetwork"));
    Operator().The<QListWidget>("listModules")->setCurrentRow(-1);
    QVERIFY(Operator().SelectRow("listModules", row));
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(Panels().constFirst()->geometry(), first);
}

void PanelLayoutTest::afterThePageIsLaidOutAnew() {
    OpenModule(Bench(), 6);
    const QStringList places = Places();
    QVERIFY(places.filter(QStringLiteral("nowhere")).isEmpty());
    Window().resize(1500, 1000);
    ProcessAllEvents();
    QCOMPARE(Places(), places);
    Operator().The<QLabel>("lblCPUOM")->setText(QStringLiteral("Counts per unit of measure"));
    ProcessAllEvents();
    QCOMPARE(Places(), places);
    Window().resize(1100, 700);
    ProcessAllEvents();
    QCOMPARE(Places(), places);
}

void PanelLayoutTest::oldPanelsAreGone() {
    OpenModule(Bench(), 0);
    for (int row = 1; row < 9; ++row) {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", row));
        QVERIFY(Operator().SelectPage("tabModule"));
        ProcessAllEvents();
        const int expected = row < 5 || row == 8 ? 1 : row == 5 ? 2 : 3;
        QCOMPARE(Window().findChildren<TypePanel*>().size(), expected);
    }
}

void PanelLayoutTest::thePageHasRoom() {
    QFETCH(int, row);
    OpenModule(Bench(), row);
    ProcessAllEvents();
    QCOMPARE(Window().size(), QSize(1100, 700));
    const QWidget* page = Operator().Find("moduleWidget");
    QCOMPARE(page->size(), page->parentWidget()->size());
    const QVector<TypePanel*> panels = Panels();
    for (const TypePanel* panel : panels) {
        QVERIFY(page->rect().contains(panel->geometry()));
        for (const TypePanel* other : panels) {
            QVERIFY(panel == other || !panel->geometry().intersects(other->geometry()));
        }
        QVERIFY(!panel->geometry().intersects(Operator().Find("gbReading")->geometry()));
        QVERIFY(panel->y() >= Operator().Find("gbModuleInformation")->geometry().bottom());
    }
}

/// What has less room in a panel than it needs to be read.
QStringList PanelLayoutTest::ClippedIn(const QWidget* panel) {
    QStringList clipped;
    const auto widgets = panel->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || widget->parentWidget() == nullptr) {
            continue;
        }
        if (!widget->parentWidget()->rect().contains(widget->geometry())) {
            clipped.append(widget->objectName() + QStringLiteral(" sticks out"));
        }
        const bool isText = qobject_cast<const QLabel*>(widget) != nullptr ||
                            qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                            qobject_cast<const QGroupBox*>(widget) != nullptr;
        const QSize needed = isText ? widget->minimumSizeHint() : QSize();
        if (widget->width() < needed.width() || widget->height() < needed.height()) {
            clipped.append(widget->objectName() + QStringLiteral(" is cut off"));
        }
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        if (field != nullptr && field->isReadOnly() &&
            field->fontMetrics().horizontalAdvance(field->text()) + 8 > field->width()) {
            clipped.append(field->objectName() + QStringLiteral(" is too narrow for ") + field->text());
        }
        const auto* list = qobject_cast<const QListWidget*>(widget);
        if (list != nullptr && list->horizontalScrollBar()->isVisible()) {
            clipped.append(list->objectName() + QStringLiteral(" is too narrow"));
        }
        const bool mayScroll = list != nullptr && (list->objectName() == QLatin1String("listAveragings") ||
                                                   list->objectName() == QLatin1String("listResolutions"));
        if (list != nullptr && !mayScroll && list->verticalScrollBar()->isVisible()) {
            clipped.append(list->objectName() + QStringLiteral(" is too low"));
        }
    }
    return clipped;
}

void PanelLayoutTest::nothingIsClipped() {
    QFETCH(int, row);
    OpenModule(Bench(), row);
    ProcessAllEvents();
    const QVector<TypePanel*> panels = Panels();
    for (const TypePanel* panel : panels) {
        const QStringList clipped = ClippedIn(panel);
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(QStringLiteral("; "))));
    }
}

void PanelLayoutTest::buttonsOfAGroupHaveOneSize() {
    QFETCH(int, row);
    OpenModule(Bench(), row);
    ProcessAllEvents();
    QHash<const QWidget*, QSize> sizes;
    const auto buttons = Operator().Find("moduleWidget")->findChildren<QPushButton*>();
    for (const QPushButton* button : buttons) {
        const QSize size = sizes.value(button->parentWidget(), button->size());
        // A layout may give one of two columns the odd pixel.
        const QSize difference = button->size() - size;
        QVERIFY2(qAbs(difference.width()) <= 1 && qAbs(difference.height()) <= 1, qPrintable(button->objectName()));
        sizes.insert(button->parentWidget(), size);
    }
    QVERIFY(sizes.size() >= 2);
}

TAVIK_TEST_MAIN(PanelLayoutTest)

#include "PanelLayoutTest.moc"
