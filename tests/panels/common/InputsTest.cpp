#include "panels/common/Inputs.h"

#include "tests/support/ProgramFixture.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>

/// A window with one input, and a button that takes the focus from it.
template <class Input>
class InputWindow : public QWidget {
public:
    InputWindow() {
        auto* row = new QHBoxLayout(this);
        row->addWidget(&input);
        row->addWidget(&button);
        button.setFocus();
        show();
        QApplication::setActiveWindow(this);
        ProcessAllEvents();
    }
    void Type(const QString& text) {
        input.setFocus();
        input.selectAll();
        TypeInto(&input, text);
    }

    Input input;
    QPushButton button;
};

/// The inputs of every form.
class InputsTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void focusChoosesNoRow();
    void ctrlClickKeepsTheRow();
    void wheelChangesOnlyWithFocus();
    void valueWithoutARowIsKept();
    void typedNumberIsOneChange();
    void untouchedNumberIsNoChange();
    void numbersHaveAPointInEveryLanguage();
    void fewerDecimalsKeepTheNumber_data();
    void fewerDecimalsKeepTheNumber();
    void typedRoundedNumberIsExact();
    void exactNumberStaysInTheRange();
};

void InputsTest::focusChoosesNoRow() {
    InputWindow<ChoiceList> window;
    window.input.addItems({QStringLiteral("Low"), QStringLiteral("High")});
    for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::MouseFocusReason, Qt::OtherFocusReason}) {
        window.button.setFocus();
        window.input.setFocus(reason);
        QVERIFY(window.input.hasFocus());
        QCOMPARE(window.input.currentRow(), -1);
        QVERIFY(window.input.selectedItems().isEmpty());
    }
    QTest::keyClick(&window.input, Qt::Key_Down);
    QCOMPARE(window.input.currentRow(), 0);
}

void InputsTest::ctrlClickKeepsTheRow() {
    InputWindow<ChoiceList> window;
    window.input.addItems({QStringLiteral("Low"), QStringLiteral("High")});
    const QPoint middle = window.input.visualItemRect(window.input.item(1)).center();
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(window.input.viewport(), Qt::LeftButton, Qt::ControlModifier, middle);
        QCOMPARE(window.input.currentRow(), 1);
        QCOMPARE(window.input.selectedItems(), QList<QListWidgetItem*>{window.input.item(1)});
    }
}

void InputsTest::wheelChangesOnlyWithFocus() {
    InputWindow<NumberBox> window;
    const auto turn = [&window] {
        const QPointF middle(window.input.rect().center());
        QWheelEvent wheel(middle, window.input.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&window.input, &wheel);
    };
    turn();
    QCOMPARE(window.input.value(), 0);
    QVERIFY(!window.input.hasFocus());
    window.input.setFocus();
    turn();
    QCOMPARE(window.input.value(), 1);
}

void InputsTest::valueWithoutARowIsKept() {
    ChoiceBox box;
    box.addItems({QStringLiteral("1"), QStringLiteral("2")});
    box.ShowValue(2, 1);
    QCOMPARE(box.currentIndex(), 1);
    QCOMPARE(box.Value(), 2);
    for (const int unknown : {0, 3, -7}) {
        box.ShowValue(unknown, 1);
        QCOMPARE(box.currentIndex(), -1);
        QCOMPARE(box.Value(), unknown);
    }
    box.setCurrentIndex(0);
    QCOMPARE(box.Value(), 1);
}

void InputsTest::typedNumberIsOneChange() {
    InputWindow<NumberBox> window;
    window.input.setMaximum(1000);
    const QSignalSpy changes(&window.input, QOverload<int>::of(&QSpinBox::valueChanged));
    window.Type(QStringLiteral("123"));
    QCOMPARE(changes.count(), 0);
    window.button.setFocus();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(window.input.value(), 123);
}

void InputsTest::untouchedNumberIsNoChange() {
    InputWindow<DecimalBox> window;
    window.input.setDecimals(2);
    window.input.setValue(0.25);
    const QSignalSpy changes(&window.input, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    window.input.setFocus();
    QTest::keyClick(&window.input, Qt::Key_Return);
    window.Type(QStringLiteral("0.25"));
    QTest::keyClick(&window.input, Qt::Key_Return);
    window.button.setFocus();
    QCOMPARE(changes.count(), 0);
}

void InputsTest::numbersHaveAPointInEveryLanguage() {
    const auto before = qScopeGuard([locale = QLocale()] { QLocale::setDefault(locale); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    InputWindow<DecimalBox> window;
    window.input.setDecimals(5);
    window.input.setMaximum(100000);
    window.Type(QStringLiteral("4.2889"));
    QTest::keyClick(&window.input, Qt::Key_Return);
    QCOMPARE(window.input.value(), 4.2889);
    QCOMPARE(window.input.text(), QStringLiteral("4.28890"));
    window.input.setValue(12345.5);
    QCOMPARE(window.input.text(), QStringLiteral("12345.50000"));
    // The comma is refused, not taken and removed later.
    window.Type(QStringLiteral("4,28"));
    QCOMPARE(window.input.text(), QStringLiteral("428"));
}

void InputsTest::fewerDecimalsKeepTheNumber_data() {
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("whole");
    QTest::newRow("positive") << 12.9 << "12";
    QTest::newRow("negative") << -12.9 << "-12";
    QTest::newRow("many decimals") << 12.345678 << "12";
}

void InputsTest::fewerDecimalsKeepTheNumber() {
    QFETCH(double, number);
    QFETCH(QString, whole);
    DecimalBox box;
    box.setRange(-100, 100);
    box.setDecimals(6);
    box.ShowExact(number);
    const QSignalSpy changes(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    box.ShowDecimals(0);
    QCOMPARE(box.text(), whole);
    QCOMPARE(box.Exact(), number);
    box.ShowDecimals(6);
    QCOMPARE(box.value(), number);
    QCOMPARE(changes.count(), 0);
}

void InputsTest::typedRoundedNumberIsExact() {
    InputWindow<DecimalBox> window;
    window.input.setDecimals(0);
    window.input.ShowExact(12.9);
    QCOMPARE(window.input.Exact(), 12.9);
    window.Type(QStringLiteral("12"));
    window.button.setFocus();
    QCOMPARE(window.input.Exact(), 12.0);
    window.input.stepUp();
    QCOMPARE(window.input.Exact(), 13.0);
}

void InputsTest::exactNumberStaysInTheRange() {
    DecimalBox box;
    box.setRange(-10, 10);
    box.ShowExact(20.5);
    QCOMPARE(box.value(), 10.0);
    QCOMPARE(box.Exact(), 10.0);
    box.ShowExact(-20.5);
    QCOMPARE(box.Exact(), -10.0);
}

TAVIK_TEST_MAIN(InputsTest)
#include "InputsTest.moc"
