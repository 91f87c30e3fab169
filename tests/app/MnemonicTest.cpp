#include "panels/common/Inputs.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace TavikSimulator;

namespace {

/// A number, and a button that records the number at its press.
class Form : public QWidget {
public:
    Form() {
        auto* layout = new QVBoxLayout(this);
        number = new NumberBox(this);
        number->setMaximum(1000);
        button = new QPushButton(QStringLiteral("&Go"), this);
        layout->addWidget(number);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this] { pressedWith.append(number->value()); });
        number->setFocus();
        show();
    }

    NumberBox* number;
    QPushButton* button;
    QVector<int> pressedWith;
};

} // namespace

/// Presses of buttons by their keys.
class MnemonicTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void mnemonicActsInTheSameEvent();
    void mnemonicOfAButtonThatCannotBePressed_data();
    void mnemonicOfAButtonThatCannotBePressed();
    void typedNumberIsCommittedFirst();
    void buttonDisabledByTheEntryIsNotPressed();
    void buttonHiddenByTheEntryIsNotPressed();
    void slotsOfWhatIsGone_data();
    void slotsOfWhatIsGone();
    void slotOfADisconnectedNetwork();
    void pagesOfAModuleThatIsGone_data();
    void pagesOfAModuleThatIsGone();

private:
    static void PressGo(QWidget& form) { QTest::keyClick(&form, Qt::Key_G, Qt::AltModifier); }
};

void MnemonicTest::mnemonicActsInTheSameEvent() {
    OpenNetwork(Benches::Two());
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
    int pings = -1;
    When(
        this, [] { return true; },
        [&] {
            QTest::sendKeyEvent(QTest::Click, &Window(), Qt::Key_P, QString(), Qt::AltModifier);
            pings = Calls::CountOf("Ping");
        });
    QVERIFY(WaitUntil([&] { return pings >= 0; }));
    QCOMPARE(pings, 1);
    QVERIFY(!Operator().The<QPushButton>("btnPing")->isDown());
}

void MnemonicTest::mnemonicOfAButtonThatCannotBePressed_data() {
    QTest::addColumn<int>("pings");
    QTest::newRow("can be pressed") << 1;
    QTest::newRow("disabled") << 0;
    QTest::newRow("on another page") << 0;
    QTest::newRow("under a dialog") << 0;
}

void MnemonicTest::mnemonicOfAButtonThatCannotBePressed() {
    QFETCH(int, pings);
    const QByteArray state = QTest::currentDataTag();
    OpenNetwork(Benches::Two());
    auto* button = Operator().The<QPushButton>("btnPing");
    const auto press = [this] { QTest::keyClick(&Window(), Qt::Key_P, Qt::AltModifier); };
    if (state == "disabled") {
        button->setEnabled(false);
    } else if (state == "on another page") {
        Window().findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(0);
    }
    if (state == "under a dialog") {
        QDialog dialog(&Window());
        dialog.setWindowTitle(QStringLiteral("Readings"));
        boxes.ExpectUse(&Window(), dialog.windowTitle(), [press](QDialog& open) {
            press();
            ProcessAllEvents();
            open.close();
        });
        dialog.exec();
    } else {
        press();
        ProcessAllEvents();
    }
    QCOMPARE(Calls::CountOf("Ping"), pings);
}

void MnemonicTest::typedNumberIsCommittedFirst() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(form.number, Qt::Key_A, Qt::ControlModifier);
    TypeInto(form.number, QStringLiteral("42"));
    QCOMPARE(form.number->value(), 0);
    PressGo(form);
    QCOMPARE(form.pressedWith, QVector<int>{42});
}

void MnemonicTest::buttonDisabledByTheEntryIsNotPressed() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form));
    connect(form.number, QOverload<int>::of(&QSpinBox::valueChanged), &form, [&] { form.button->setEnabled(false); });
    TypeInto(form.number, QStringLiteral("7"));
    PressGo(form);
    QVERIFY(!form.button->isEnabled());
    QCOMPARE(form.pressedWith, QVector<int>());
}

void MnemonicTest::buttonHiddenByTheEntryIsNotPressed() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form));
    connect(form.number, QOverload<int>::of(&QSpinBox::valueChanged), &form, [&] { form.button->hide(); });
    TypeInto(form.number, QStringLiteral("7"));
    PressGo(form);
    QVERIFY(!form.button->isVisible());
    QCOMPARE(form.pressedWith, QVector<int>());
}

void MnemonicTest::slotsOfWhatIsGone_data() {
    QTest::addColumn<QString>("object");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("closed");
    const auto add = [](const QString& object, const char* slot) {
        QTest::newRow(slot) << object << QByteArray(slot) << false;
    };
    for (const char* slot :
         {"on_btnNotify_clicked", "on_btnStopNotify_clicked", "on_btnAddModule_clicked", "on_btnDeleteModule_clicked",
          "on_btnClearModules_clicked", "on_btnClearTcons_clicked", "on_btnMoveUp_clicked", "on_btnMoveDown_clicked",
          "on_btnHotswap_clicked", "on_btnPing_clicked", "on_btnSetSpeed_clicked", "on_btnLoadXML_clicked",
          "on_btnSaveXML_clicked"}) {
        add(QString(), slot);
    }
    for (const char* slot : {"on_btnRead_clicked", "on_btnStartContinuous_clicked", "on_btnTimeReadings_clicked",
                             "on_btnGetStatus_clicked"}) {
        add(QStringLiteral("moduleWidget"), slot);
    }
    for (const char* slot : {"on_btnAddModule_clicked", "on_btnLoadXML_clicked", "on_btnSaveXML_clicked"}) {
        QTest::addRow("%s, closed", slot) << QString() << QByteArray(slot) << true;
    }
    QTest::newRow("closed") << QStringLiteral("moduleWidget") << QByteArray("on_btnRead_clicked") << true;
}

/// A slot can be reached after its page has gone, for example when a dialog over the window ends.
void MnemonicTest::slotsOfWhatIsGone() {
    QFETCH(QString, object);
    QFETCH(QByteArray, slot);
    QFETCH(bool, closed);
    OpenModule(Benches::Two(), 1);
    if (closed) {
        Window().close();
    } else {
        QVERIFY(Operator().SelectPage("tabServer"));
        QVERIFY(Operator().Click("btnDisconnectAll"));
    }
    Calls::Mark();
    QObject* receiver = object.isEmpty() ? &Window() : Window().findChild<QObject*>(object);
    QVERIFY(QMetaObject::invokeMethod(receiver, slot.constData()));
    COMPARE_CALLS(Calls::Take(), {});
    QCOMPARE(boxes.Count(), 0);
}

void MnemonicTest::slotOfADisconnectedNetwork() {
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    Calls::Mark();
    QVERIFY(QMetaObject::invokeMethod(&Window(), "on_btnPing_clicked"));
    COMPARE_CALLS(Calls::Take(), {});
}

void MnemonicTest::pagesOfAModuleThatIsGone_data() {
    QTest::addColumn<QByteArray>("button");
    for (const char* button : {"btnDeleteModule", "btnClearModules"}) {
        QTest::newRow(button) << QByteArray(button);
    }
}

/// Also when the list cannot be shown anew.
void MnemonicTest::pagesOfAModuleThatIsGone() {
    QFETCH(QByteArray, button);
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    FailNext("BufferedCapable", QStringLiteral("Silence."), "network Alpha");
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Silence."));
    QVERIFY(Operator().Click(button.constData()));
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Pages().size(), 2);
}

TAVIK_TEST_MAIN(MnemonicTest)

#include "MnemonicTest.moc"
