#include "tests/panels/airgauge/PNXMasterTest.h"

#include <QAbstractButton>

using namespace TavikSimulator;

/// Modules that are cleared under a dialog of the air gauge: the panel goes with its module, and the dialogs with the
/// panel.
class ClearedGaugeTest : public PNXMasterTest {
    Q_OBJECT

private slots:
    void modulesClearedOverTheBoxOfAnUpdate();
    void clearedModulesCloseTheDialogs_data();
    void clearedModulesCloseTheDialogs();
    void clearedModulesCloseTheWizard_data();
    void clearedModulesCloseTheWizard();

private:
    void ClearModules() { Window().findChild<QAbstractButton*>(QStringLiteral("btnClearModules"))->click(); }
    void CompareGone() {
        ProcessAllEvents();
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(Panel() == nullptr);
        QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
    }
};

/// The panel has gone when the box of the failed update closes: the module is not read again.
void ClearedGaugeTest::modulesClearedOverTheBoxOfAnUpdate() {
    OpenGauge();
    FailNext("ReadInUnits", QStringLiteral("Module Information needs reading."));
    FailNext("UpdateInfo", QStringLiteral("The gauge fails."));
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [this](QDialog&) { ClearModules(); };
    boxes.ExpectError(Panel(), QStringLiteral("PNX Module"), QStringLiteral("The gauge fails."), reply);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    CompareGone();
}

void ClearedGaugeTest::clearedModulesCloseTheDialogs_data() {
    QTest::addColumn<bool>("passcode");
    QTest::newRow("configuration") << false;
    QTest::newRow("pass code") << true;
}

void ClearedGaugeTest::clearedModulesCloseTheDialogs() {
    QFETCH(bool, passcode);
    OpenGauge();
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [&](QDialog& dialog) {
        if (passcode) {
            BoxReply entry;
            entry.leave = true;
            entry.meanwhile = [this](QDialog&) { ClearModules(); };
            boxes.ExpectNumberInput(&dialog, QStringLiteral("Enter Passcode"),
                                    QStringLiteral("Enter the pascode (0 to 99999999)."), entry);
            WidgetDriver(dialog).Click("btnSetPassCode");
        } else {
            ClearModules();
        }
    };
    boxes.ExpectDialog(Panel(), QStringLiteral("PNX Configuration"), reply);
    QVERIFY(OnPanel().Click("btnConfigure"));
    CompareGone();
}

void ClearedGaugeTest::clearedModulesCloseTheWizard_data() {
    QTest::addColumn<int>("stage");
    QTest::newRow("sizes") << 1;
    QTest::newRow("live pressure") << 3;
}

void ClearedGaugeTest::clearedModulesCloseTheWizard() {
    QFETCH(int, stage);
    OpenGauge();
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [&](QDialog& wizard) {
        if (stage == 1) {
            ClearModules();
            return;
        }
        GoTo(2, wizard);
        WhenLive(wizard, [this] { ClearModules(); });
        WidgetDriver(wizard).Click("btnNext");
    };
    boxes.ExpectDialog(Panel(), QStringLiteral("PNX Mastering"), reply);
    QVERIFY(OnPanel().Click("btnMaster"));
    CompareGone();
}

TAVIK_TEST_MAIN(ClearedGaugeTest)
#include "ClearedGaugeTest.moc"
