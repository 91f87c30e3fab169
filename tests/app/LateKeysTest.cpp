#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>

using namespace TavikSimulator;

/// What is asked for something that has just gone.
class LateKeysTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void buttonThatCannotBeUsedAnyMore_data();
    void buttonThatCannotBeUsedAnyMore();
    void keysThatComeTooLate_data();
    void keysThatComeTooLate();
    void keyAfterOneNetworkWasDisconnected();
    void pagesOfAModuleThatIsGone_data();
    void pagesOfAModuleThatIsGone();
};

void LateKeysTest::buttonThatCannotBeUsedAnyMore_data() {
    QTest::addColumn<int>("pings");
    QTest::newRow("can be used") << 1;
    QTest::newRow("disabled") << 0;
    QTest::newRow("on another page") << 0;
    QTest::newRow("under a dialog") << 0;
}

/// A button's key clicks the button 0.1 s later.
void LateKeysTest::buttonThatCannotBeUsedAnyMore() {
    QFETCH(int, pings);
    const QByteArray what = QTest::currentDataTag();
    OpenNetwork(Benches::Two());
    auto* button = Operator().The<QPushButton>("btnPing");
    const auto isReleased = [button] { return !button->isDown(); };
    QTest::keyClick(&Window(), Qt::Key_P, Qt::AltModifier);
    QVERIFY(button->isDown());
    if (what == "disabled") {
        button->setEnabled(false);
    } else if (what == "on another page") {
        Window().findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(0);
    } else if (what == "under a dialog") {
        QDialog dialog(&Window());
        dialog.setWindowTitle(QStringLiteral("Readings"));
        boxes.ExpectUse(&Window(), dialog.windowTitle(), [isReleased](QDialog& open) {
            QVERIFY(WaitUntil(isReleased));
            open.close();
        });
        dialog.exec();
    }
    QVERIFY(WaitUntil(isReleased));
    QCOMPARE(Calls::CountOf("Ping"), pings);
    button->setEnabled(true);
}

void LateKeysTest::keysThatComeTooLate_data() {
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

/// A button's key clicks the button 0.1 s later; by then the networks may be disconnected or the window closed.
void LateKeysTest::keysThatComeTooLate() {
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

void LateKeysTest::keyAfterOneNetworkWasDisconnected() {
    OpenModule(Benches::Two(), 1);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    Calls::Mark();
    QVERIFY(QMetaObject::invokeMethod(&Window(), "on_btnPing_clicked"));
    COMPARE_CALLS(Calls::Take(), {});
}

void LateKeysTest::pagesOfAModuleThatIsGone_data() {
    QTest::addColumn<QByteArray>("button");
    for (const char* button : {"btnDeleteModule", "btnClearModules"}) {
        QTest::newRow(button) << QByteArray(button);
    }
}

/// Also when the list cannot be shown anew.
void LateKeysTest::pagesOfAModuleThatIsGone() {
    QFETCH(QByteArray, button);
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    FailNext("BufferedCapable", QStringLiteral("Silence."), "network Alpha");
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Silence."));
    QVERIFY(Operator().Click(button.constData()));
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Pages().size(), 2);
}

TAVIK_TEST_MAIN(LateKeysTest)

#include "LateKeysTest.moc"
