#include "panels/wireless/WaitForProcessDialog.h"
#include "simulator/control/HandToolControl.h"
#include "tests/panels/wireless/SettingsTest.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString noConfigMode = QStringLiteral("Device connection error\nFailed to enter config mode.");

WaitForProcessDialog* ShownWaitDialog() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* wait = qobject_cast<WaitForProcessDialog*>(window);
        if (wait != nullptr && wait->isVisible()) {
            return wait;
        }
    }
    return nullptr;
}

/// When the text of the wait dialog was painted for the first time.
class FirstPaint : public QObject {
public:
    FirstPaint() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<WaitForProcessDialog*>(watched) != nullptr) {
            sinceShown.start();
        } else if (event->type() == QEvent::Paint && afterShowingMs < 0 &&
                   watched->objectName() == QLatin1String("lblWaitMessage")) {
            afterShowingMs = sinceShown.elapsed();
        }
        return false;
    }

    qint64 afterShowingMs = -1;

private:
    QElapsedTimer sinceShown;
};

} // namespace

/// How the settings dialogs bring a tool into configuration mode, and the wait dialog meanwhile.
class ConfigModeTest : public SettingsTest {
    Q_OBJECT

private slots:
    void waitDialogIsAsOperatorsKnowIt();
    void waitDialogShowsProgress();
    void waitDialogCannotBeClosed();
    void waitDialogIsPaintedBeforeTheFirstSleep();
    void tenTriesAndNoMore_data();
    void tenTriesAndNoMore();
    void sleepingToolIsWoken();
    void toolDropsOutInTheMiddle();
    void windowThatClosesEndsTheTries();
    void windowThatClosesEndsTheReading();
    void waitDialogIsModalAndStandsOverTheWindow();
};

void ConfigModeTest::waitDialogIsAsOperatorsKnowIt() {
    Open(SingleChannel());
    const WaitForProcessDialog wait(&Window());
    QCOMPARE(wait.windowTitle(), QStringLiteral("Please Wait"));
    QCOMPARE(wait.font().pointSize(), 10);
    QCOMPARE(wait.windowModality(), Qt::NonModal);
    QCOMPARE(wait.windowFlags(), Qt::WindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint));
    QVERIFY(!wait.windowIcon().isNull());
    QCOMPARE(wait.findChild<QLabel*>(QStringLiteral("lblWaitMessage"))->text(), QStringLiteral("Please Wait"));
    QCOMPARE(wait.findChild<QProgressBar*>()->value(), 0);
    QCOMPARE(wait.parentWidget(), &Window());
}

void ConfigModeTest::waitDialogShowsProgress() {
    Open(SingleChannel());
    WaitForProcessDialog wait(&Window());
    wait.show();
    bool handled = false;
    QTimer::singleShot(0, this, [&handled] { handled = true; });
    const ProgressWatch progress;
    wait.setProgress(30, QStringLiteral("Reading <b>all</b>"));
    QVERIFY(handled);
    QCOMPARE(wait.findChild<QLabel*>(QStringLiteral("lblWaitMessage"))->text(),
             QStringLiteral("Please Wait:\n\nReading <b>all</b>"));
    QCOMPARE(wait.findChild<QProgressBar*>()->value(), 30);
    // It has been painted by the time the caller goes on.
    QCOMPARE(progress.Steps(), QStringList({QStringLiteral("30 Reading <b>all</b>")}));
}

void ConfigModeTest::waitDialogCannotBeClosed() {
    Open(SingleChannel());
    WaitForProcessDialog wait(&Window());
    wait.show();
    QVERIFY(QTest::qWaitForWindowExposed(&wait));
    QTest::keyClick(&wait, Qt::Key_Escape);
    QVERIFY(wait.isVisible());
    wait.close();
    QVERIFY(wait.isVisible());
    wait.hide();
    QVERIFY(!wait.isVisible());
}

void ConfigModeTest::waitDialogIsPaintedBeforeTheFirstSleep() {
    OpenModule(SingleChannel(), 0);
    FirstPaint paint;
    InSettings(QStringLiteral("KRV Settings"), [&](QDialog&, const WidgetDriver&) {});
    QVERIFY(paint.afterShowingMs >= 0);
    QVERIFY2(paint.afterShowingMs < 500, qPrintable(QString::number(paint.afterShowingMs)));
}

void ConfigModeTest::tenTriesAndNoMore_data() {
    QTest::addColumn<QString>("bench");
    const QString never = QStringLiteral("config-tries=\"never\"");
    QTest::newRow("single channel") << SingleChannel(never);
    QTest::newRow("eight channels") << EightChannels(never);
}

void ConfigModeTest::tenTriesAndNoMore() {
    QFETCH(QString, bench);
    OpenModule(bench, 0);
    const ProgressWatch progress;
    QElapsedTimer sinceClick;
    sinceClick.start();
    // There is no wait after the last try, in which the operator could still see the dialog.
    bool waitedAfterTheLast = false;
    When(
        this, [] { return Calls::CountOf("EnteredConfigMode") == 10; },
        [&] { waitedAfterTheLast = ShownWaitDialog() != nullptr; });
    FailToOpen(noConfigMode);
    // One second before the first try and one after each but the last.
    QVERIFY2(sinceClick.elapsed() >= 10000, qPrintable(QString::number(sinceClick.elapsed())));
    QVERIFY(!waitedAfterTheLast);
    QCOMPARE(progress.Steps().size(), 10);
    QCOMPARE(progress.Steps().constLast(), QStringLiteral("0 Connecting and entering config mode. (Try 10/10)"));
    QStringList expected =
        OfSlot(QStringLiteral("device"), {QStringLiteral("DeviceType()"), QStringLiteral("Settings()")});
    for (int attempt = 1; attempt <= 10; ++attempt) {
        expected += OfSettings({QStringLiteral("setConfigMode(true)"), QStringLiteral("EnteredConfigMode()")});
    }
    COMPARE_CALLS(TakeToolCalls(), expected);
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
}

void ConfigModeTest::sleepingToolIsWoken() {
    OpenModule(SingleChannel(QStringLiteral("auto-power-off=\"60\"")), 0);
    AdvanceClock(120);
    const ProgressWatch progress;
    InSettings(QStringLiteral("KRV Settings"), [](QDialog&, const WidgetDriver&) {});
    QCOMPARE(progress.Steps().at(1), QStringLiteral("0 Connecting and entering config mode. (Try 2/10)"));
    QCOMPARE(progress.Steps().at(2), QStringLiteral("1 Reading Identity"));
}

void ConfigModeTest::toolDropsOutInTheMiddle() {
    OpenModule(SingleChannel(QStringLiteral("config-drops-after=\"5\"")), 0);
    FailToOpen(QStringLiteral("Hand tool KRV0000001 is not in configuration mode."));
}

void ConfigModeTest::windowThatClosesEndsTheTries() {
    OpenModule(SingleChannel(QStringLiteral("config-tries=\"never\"")), 0);
    const auto hasTriedTwice = [] { return Calls::CountOf("setConfigMode") == 2; };
    When(this, hasTriedTwice, [this] { Window().close(); });
    QVERIFY(Operator().Click("btnConfig1"));
    QCOMPARE(Calls::CountOf("setConfigMode"), 2);
    QCOMPARE(boxes.Count(), 0);
    QVERIFY(ShownWaitDialog() == nullptr);
    // The last thing that the library was asked is to disconnect.
    QCOMPARE(Calls::Take().constLast(), QStringLiteral("networks.DisconnectAll()"));
}

void ConfigModeTest::windowThatClosesEndsTheReading() {
    OpenModule(SingleChannel(), 0);
    When(
        this, [] { return ShownWaitDialog() != nullptr; }, [this] { Window().close(); });
    QVERIFY(Operator().Click("btnConfig1"));
    QCOMPARE(boxes.Count(), 0);
    QCOMPARE(Calls::TakeOperation("setConfigMode"), QStringList());
}

void ConfigModeTest::waitDialogIsModalAndStandsOverTheWindow() {
    OpenModule(SingleChannel(), 0);
    const auto isShown = [] { return ShownWaitDialog() != nullptr; };
    When(this, isShown, [this] {
        const WaitForProcessDialog* wait = ShownWaitDialog();
        QVERIFY(wait->isModal());
        QCOMPARE(wait->parentWidget(), &Window());
        QCOMPARE(Window().statusBar()->currentMessage(), QStringLiteral("Reading the settings of a hand tool"));
    });
    InSettings(QStringLiteral("KRV Settings"), [this](QDialog&, const WidgetDriver&) {
        QVERIFY(ShownWaitDialog() == nullptr);
        QCOMPARE(Window().statusBar()->currentMessage(), QString());
    });
}

TAVIK_TEST_MAIN(ConfigModeTest)

#include "ConfigModeTest.moc"
