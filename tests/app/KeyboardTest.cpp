#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>
#include <QTableWidget>

using namespace TavikSimulator;

/// The program without a mouse, and for those who have it read to them.
class KeyboardTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void tabVisitsEveryControl_data();
    void tabVisitsEveryControl();
    void everyControlHasAName_data() { tabVisitsEveryControl_data(); }
    void everyControlHasAName();
    void shortcutsOfAPageAreItsOwn_data() { tabVisitsEveryControl_data(); }
    void shortcutsOfAPageAreItsOwn();
    void shortcutsPressTheirButtons_data();
    void shortcutsPressTheirButtons();
    void everyButtonHasAShortcut_data() { tabVisitsEveryControl_data(); }
    void everyButtonHasAShortcut();
    void menusOpenByTheirLetters();
    void networkIsConnectedByKeys_data();
    void networkIsConnectedByKeys();
    void heldKeyPressesTheRowButtonOnce();
    void focusOnTheTableSelectsNoNetwork();
    void ctrlClickLeavesTheRowSelected();
    void pageOpensOnItsControl();
    void moduleIsChosenAndReadByKeys();
    void speedIsChosenByKeys();

private:
    QList<QWidget*> ControlsOf(const char* page);
    void Show(const QString& page) {
        OpenModule(Benches::Two(), 0);
        QVERIFY(Operator().SelectPage(qPrintable(page)));
        QVERIFY(QTest::qWaitForWindowActive(&Window()));
    }
    void FocusOn(const char* name) { Operator().Find(name)->setFocus(Qt::TabFocusReason); }
};

/// What an operator can use on a page.
QList<QWidget*> KeyboardTest::ControlsOf(const char* page) {
    QList<QWidget*> controls;
    const QList<QWidget*> widgets = Operator().Find(page)->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const auto* choice = qobject_cast<QRadioButton*>(widget);
        const bool reachedByArrows = choice != nullptr && !choice->isChecked();
        if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
            widget->focusProxy() == nullptr && !reachedByArrows) {
            controls.append(widget);
        }
    }
    return controls;
}

void KeyboardTest::tabVisitsEveryControl_data() {
    QTest::addColumn<QString>("page");
    for (const char* page :
         {"tabServer", "tabNetwork", "tabModule", "tabBuffered", "tabDifference", "tabDynamic", "tabReadburst"}) {
        QTest::newRow(page) << QString::fromLatin1(page);
    }
}

void KeyboardTest::tabVisitsEveryControl() {
    QFETCH(QString, page);
    Show(page);
    QList<QWidget*> missing = ControlsOf(qPrintable(page));
    QVERIFY(!missing.isEmpty());
    constexpr int mostPresses = 80;
    for (int press = 0; press < mostPresses && !missing.isEmpty(); ++press) {
        Operator().Press(Qt::Key_Tab);
        missing.removeAll(QApplication::focusWidget());
    }
    QStringList names;
    for (const QWidget* widget : qAsConst(missing)) {
        names.append(widget->objectName());
    }
    QCOMPARE(names, QStringList());
}

void KeyboardTest::everyControlHasAName() {
    QFETCH(QString, page);
    Show(page);
    QStringList nameless;
    const QList<QWidget*> controls = ControlsOf(qPrintable(page));
    for (QWidget* control : controls) {
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        if (accessible == nullptr || accessible->text(QAccessible::Name).trimmed().isEmpty()) {
            nameless.append(control->objectName());
        }
    }
    QCOMPARE(nameless, QStringList());
}

void KeyboardTest::shortcutsOfAPageAreItsOwn() {
    QFETCH(QString, page);
    Show(page);
    QStringList taken = {QStringLiteral("Alt+F"), QStringLiteral("Alt+H"), QStringLiteral("Ctrl+Q")};
    const QList<QAbstractButton*> buttons = Operator().Find(qPrintable(page))->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        const QString shortcut = button->shortcut().toString();
        if (button->isVisible() && !shortcut.isEmpty()) {
            QVERIFY2(!taken.contains(shortcut), qPrintable(button->objectName()));
            taken.append(shortcut);
        }
    }
}

void KeyboardTest::everyButtonHasAShortcut() {
    QFETCH(QString, page);
    Show(page);
    const QList<QAbstractButton*> buttons = Operator().Find(qPrintable(page))->findChildren<QAbstractButton*>();
    int seen = 0;
    for (const QAbstractButton* button : buttons) {
        // A button of a network's row, or the corner that selects all of a table.
        const bool inTable = button->property("TavikNetworkPtr").isValid() ||
                             qobject_cast<const QAbstractItemView*>(button->parentWidget()) != nullptr;
        if (button->isVisible() && !inTable && qobject_cast<const QRadioButton*>(button) == nullptr) {
            QVERIFY2(!button->shortcut().isEmpty(), qPrintable(button->objectName()));
            QVERIFY2(button->toolTip().contains(button->shortcut().toString()), qPrintable(button->objectName()));
            ++seen;
        }
    }
    QVERIFY(seen >= 2);
}

void KeyboardTest::shortcutsPressTheirButtons_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("operation");
    const auto row = [](const char* page, Qt::Key key, const char* operation) {
        QTest::newRow(operation) << QString::fromLatin1(page) << int(key) << QString::fromLatin1(operation);
    };
    row("tabServer", Qt::Key_C, "ConnectAll");
    row("tabServer", Qt::Key_D, "DisconnectAll");
    row("tabNetwork", Qt::Key_P, "Ping");
    row("tabNetwork", Qt::Key_O, "FindHotswapped");
    row("tabNetwork", Qt::Key_W, "ApplyRemap");
    row("tabNetwork", Qt::Key_D, "DeleteModule");
    row("tabNetwork", Qt::Key_C, "ClearModules");
    row("tabNetwork", Qt::Key_R, "ClearTCons");
    row("tabModule", Qt::Key_R, "ReadInCounts");
    row("tabModule", Qt::Key_G, "UpdateStatus");
    row("tabModule", Qt::Key_E, "Resolution");
    row("tabModule", Qt::Key_V, "Averaging");
}

void KeyboardTest::shortcutsPressTheirButtons() {
    QFETCH(QString, page);
    QFETCH(int, key);
    QFETCH(QString, operation);
    Show(page);
    Calls::Mark();
    Operator().Press(static_cast<Qt::Key>(key), Qt::AltModifier);
    QCOMPARE(Calls::CountOf(qPrintable(operation)), 1);
}

void KeyboardTest::menusOpenByTheirLetters() {
    Open(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    BoxReply cancel;
    cancel.accept = false;
    boxes.ExpectNumberInput(&Window(), QStringLiteral("Tavik Error Decoder"),
                            QStringLiteral("Please enter the error code."), cancel);
    Operator().Press(Qt::Key_H, Qt::AltModifier);
    QVERIFY(WaitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_D);
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    Window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    Operator().Press(Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!Window().isVisible());
}

void KeyboardTest::networkIsConnectedByKeys_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void KeyboardTest::networkIsConnectedByKeys() {
    QFETCH(int, key);
    Open(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    FocusOn("tableNetworks");
    Operator().Press(Qt::Key_Down);
    Operator().Press(Qt::Key_Down);
    Operator().Press(static_cast<Qt::Key>(key));
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->item(1, 4)->text(), QStringLiteral("Connected"));
    QCOMPARE(Pages().constLast(), QStringLiteral("Simulated beta"));
    const QAccessibleInterface* accessible =
        QAccessible::queryAccessibleInterface(Operator().CellButton("tableNetworks", 1, 5));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Disconnect Beta"));
    QCOMPARE(QApplication::focusWidget(), Operator().Find("tableNetworks"));
    Operator().Press(static_cast<Qt::Key>(key));
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->item(1, 4)->text(), QStringLiteral("Disconnected"));
}

/// Holding the key down presses the button once.
void KeyboardTest::heldKeyPressesTheRowButtonOnce() {
    Open(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    FocusOn("tableNetworks");
    Operator().Press(Qt::Key_Down);
    ProcessAllEvents();
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->currentRow(), 0);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QApplication::sendEvent(Operator().Find("tableNetworks"), &repeat);
    QCOMPARE(Calls::CountOf("Connect"), 0);
}

void KeyboardTest::focusOnTheTableSelectsNoNetwork() {
    Open(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    const auto* table = Operator().The<QTableWidget>("tableNetworks");
    Calls::Mark();
    FocusOn("btnDisconnectAll");
    Operator().Press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), table);
    QCOMPARE(table->currentRow(), -1);
    QVERIFY(table->selectedItems().isEmpty());
    COMPARE_CALLS(Calls::Take(), {});
    // No button of a row comes next.
    Operator().Press(Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() != table);
    QVERIFY(!table->isAncestorOf(QApplication::focusWidget()));
}

/// The highlight is on the row that the buttons act on.
void KeyboardTest::ctrlClickLeavesTheRowSelected() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    auto* table = Operator().The<QTableWidget>("tableNetworks");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      table->visualItemRect(table->item(0, 0)).center());
    QCOMPARE(table->selectedItems().size(), 5);
    QCOMPARE(Pages().size(), 2);
}

void KeyboardTest::pageOpensOnItsControl() {
    Open(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    QCOMPARE(QApplication::focusWidget(), Operator().Find("btnConnectAll"));
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QCOMPARE(QApplication::focusWidget(), Operator().Find("listModules"));
    Window().findChild<QTabWidget*>(QStringLiteral("tabWidget"))->tabBar()->setFocus();
    QVERIFY(Operator().SelectPage("tabServer"));
    QCOMPARE(QApplication::focusWidget(), Operator().Find("btnConnectAll"));
    COMPARE_CALLS(Calls::TakeOperation("GetModule").mid(3), {});
}

void KeyboardTest::moduleIsChosenAndReadByKeys() {
    OpenNetwork(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    FocusOn("listModules");
    Operator().Press(Qt::Key_Home);
    Operator().Press(Qt::Key_Down);
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
    Operator().Press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(Operator().Find("tabModule")->isVisible());
    FocusOn("radioCounts");
    Operator().Press(Qt::Key_Right);
    QVERIFY(Operator().The<QRadioButton>("radioUnits")->isChecked());
    Operator().Press(Qt::Key_R, Qt::AltModifier);
    QTRY_VERIFY(Operator().Text("tbReading").endsWith(QStringLiteral(" mm")));
    FocusOn("listAveragings");
    Operator().Press(Qt::Key_End);
    const QString wanted = Operator().The<QListWidget>("listAveragings")->currentItem()->text();
    Operator().Press(Qt::Key_V, Qt::AltModifier);
    QTRY_COMPARE(Operator().Text("tbCurrentAveraging"), wanted);
}

void KeyboardTest::speedIsChosenByKeys() {
    OpenNetwork(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    FocusOn("listAvailableSpeeds");
    Operator().Press(Qt::Key_Home);
    Operator().Press(Qt::Key_End);
    Operator().Press(Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(Operator().Text("editCurrentSpeed"), Rows("listAvailableSpeeds").constLast());
}

TAVIK_TEST_MAIN(KeyboardTest)

#include "KeyboardTest.moc"
