#include "tests/panels/types/PanelTest.h"

#include <QComboBox>
#include <QRadioButton>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace {

/// The relative luminance of a colour, 0 to 1.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast between the lightest and the darkest pixel.
double ContrastIn(const QImage& image) {
    double least = 1.0;
    double most = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double luminance = Luminance(image.pixelColor(x, y));
            least = std::min(least, luminance);
            most = std::max(most, luminance);
        }
    }
    return (most + 0.05) / (least + 0.05);
}

QPalette Palette(QRgb window, QRgb base, QRgb text) {
    QPalette palette{QColor(window)};
    palette.setColor(QPalette::Base, QColor(base));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(text));
    }
    return palette;
}

} // namespace

/// What the panels of both generations of digital I/O modules show and offer before they have been read, and in every
/// palette.
class DigitalIOStatesTest : public PanelTest {
    Q_OBJECT

private slots:
    void unreadPanelOffersNothing_data() { Types(); }
    void unreadPanelOffersNothing();
    void panelReadInARunIsOfferedAfterIt_data() { Types(); }
    void panelReadInARunIsOfferedAfterIt();
    void laterFailureLeavesThePanelOffered_data() { Types(); }
    void laterFailureLeavesThePanelOffered();
    void levelsCanBeReadInEveryPalette_data();
    void levelsCanBeReadInEveryPalette();

private:
    static void Types();
    QStringList Offered() { return EnabledButtons(ThePanel<TypePanel>()); }
    void OpenUnread(const QByteArray& type) {
        QCOMPARE(OpenFailingPanel(type.constData(), [] { FailNext("DebounceTime", ForeignText()); }).size(), 1);
    }
};

void DigitalIOStatesTest::Types() {
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("8 pins") << QByteArray("SWAX");
    QTest::newRow("10 pins") << QByteArray("SWAX2");
}

void DigitalIOStatesTest::unreadPanelOffersNothing() {
    QFETCH(QByteArray, type);
    OpenUnread(type);
    QCOMPARE(Offered(), QStringList());
    const auto boxesOfPanel = ThePanel<TypePanel>()->findChildren<QComboBox*>();
    for (const QComboBox* box : boxesOfPanel) {
        QCOMPARE(box->currentIndex(), -1);
    }
    Window().DisableControls(QStringLiteral("test")).Release();
    QCOMPARE(Offered(), QStringList());
    QVERIFY(Operator().Click("btnRead"));
    QVERIFY(Offered().contains(QStringLiteral("btnSetDebounce")));
    QVERIFY(Offered().size() > 20);
}

void DigitalIOStatesTest::panelReadInARunIsOfferedAfterIt() {
    QFETCH(QByteArray, type);
    OpenUnread(type);
    QStringList during;
    Calls::Mark();
    When(
        &Window(), [] { return Calls::CountOf("ErrorString") == 1; },
        [&] {
            during = Offered();
            Operator().Click("btnStopContinuous");
        });
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(during, QStringList());
    QVERIFY(Offered().size() > 20);
}

void DigitalIOStatesTest::laterFailureLeavesThePanelOffered() {
    QFETCH(QByteArray, type);
    OpenPanel(type.constData());
    const QStringList offered = Offered();
    boxes.Tolerate(true);
    FailNext("DebounceTime", ForeignText());
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Offered(), offered);
}

void DigitalIOStatesTest::levelsCanBeReadInEveryPalette_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QPalette>("palette");
    for (const char* type : {"SWAX", "SWAX2"}) {
        QTest::addRow("%s light", type) << QByteArray(type) << Palette(0xefefef, 0xffffff, 0x000000);
        QTest::addRow("%s dark", type) << QByteArray(type) << Palette(0x2d2d2d, 0x1e1e1e, 0xeeeeee);
    }
}

void DigitalIOStatesTest::levelsCanBeReadInEveryPalette() {
    QFETCH(QByteArray, type);
    QFETCH(QPalette, palette);
    const QPalette before = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
    QApplication::setPalette(palette);
    OpenPanel(type.constData());
    ProcessAllEvents();
    const auto* low = Operator().The<QRadioButton>("radioInputLow1");
    const auto* high = Operator().The<QRadioButton>("radioInputHigh1");
    const int indicator = low->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth);
    QImage marks[2];
    for (const auto& [button, mark] : {std::pair(low, 0), std::pair(high, 1)}) {
        const QRect place(button->mapTo(&Window(), QPoint()), button->size());
        const QImage image = Window().grab(place).toImage();
        marks[mark] = image.copy(3, image.height() / 2 - 3, indicator - 6, 6);
        constexpr double readable = 4.5;
        const double contrast = ContrastIn(image.copy(indicator + 2, 0, image.width(), image.height()));
        QVERIFY2(contrast >= readable, qPrintable(QString::number(contrast)));
    }
    // The checked button is told from the other one by its mark.
    QVERIFY(low->isChecked() && !high->isChecked());
    QVERIFY(ContrastIn(marks[0]) >= 3.0);
    QVERIFY(ContrastIn(marks[1]) < 1.5);
}

TAVIK_TEST_MAIN(DigitalIOStatesTest)

#include "DigitalIOStatesTest.moc"
