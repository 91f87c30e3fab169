#include "tests/panels/airgauge/PNXMasterTest.h"

#include <QDoubleSpinBox>

void PNXMasterTest::During(const std::function<void(QDialog& wizard)>& use) {
    DuringDialog("btnMaster", QStringLiteral("PNX Mastering"), use);
}

void PNXMasterTest::WhenLive(QDialog& wizard, const std::function<void()>& deed) {
    When(
        &wizard, [&wizard] { return StageOf(wizard) == 3 && !Shown(wizard, "tbPressure").isEmpty(); }, deed);
}

void PNXMasterTest::WhenShown(QDialog& wizard, double size, const std::function<void()>& deed) {
    When(
        &wizard, [&wizard, size] { return Shown(wizard, "tbPressure") == PressureShownFor(size); }, deed);
}

void PNXMasterTest::GoTo(int stage, QDialog& wizard) {
    while (StageOf(wizard) < stage) {
        // Stage 3 keeps its Next in the loop until another one is pressed.
        if (StageOf(wizard) == 2 && stage > 3) {
            WhenLive(wizard, [&wizard] { QVERIFY(WidgetDriver(wizard).Click("btnNext")); });
        }
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
    }
    QCOMPARE(StageOf(wizard), stage);
}

void PNXMasterTest::ExpectSure(QDialog& wizard, bool yes, const std::function<void()>& meanwhile) {
    BoxReply reply;
    reply.accept = yes;
    if (meanwhile) {
        reply.meanwhile = [meanwhile](QDialog&) { meanwhile(); };
    }
    boxes.ExpectQuestion(&wizard, QStringLiteral("Cancel Mastering"), QStringLiteral("Are you sure?"), reply);
}

void PNXMasterTest::CancelWizard(QDialog& wizard) {
    ExpectSure(wizard, true);
    QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
    QVERIFY(!wizard.isVisible());
}

void PNXMasterTest::SetMasters(QDialog& wizard, double a, double b) {
    wizard.findChild<QDoubleSpinBox*>(QStringLiteral("sbMasterA"))->setValue(a);
    wizard.findChild<QDoubleSpinBox*>(QStringLiteral("sbMasterB"))->setValue(b);
}

int PNXMasterTest::StageOf(QDialog& wizard) {
    int seen = 0;
    for (int stage = 1; stage <= 5; ++stage) {
        const auto* panel = wizard.findChild<QWidget*>(QStringLiteral("stage%1").arg(stage));
        if (panel->isVisible()) {
            seen = seen == 0 ? stage : -1;
        }
    }
    return qMax(0, seen);
}
