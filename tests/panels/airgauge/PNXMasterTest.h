#pragma once

#include "tests/panels/airgauge/AirGaugeTest.h"

/// The base of the mastering wizard's tests.
class PNXMasterTest : public AirGaugeTest {
    Q_OBJECT

protected:
    /// Opens the wizard and uses it.
    void During(const std::function<void(QDialog& wizard)>& use);
    /// Something the operator does once the live pressure, which is about to begin, is shown at stage 3.
    static void WhenLive(QDialog& wizard, const std::function<void()>& deed);
    /// The same once it shows the pressure for this size.
    static void WhenShown(QDialog& wizard, double size, const std::function<void()>& deed);

    /// Presses Next until this stage, and lets the live pressure be read for a moment on the way.
    void GoTo(int stage, QDialog& wizard);
    /// Closes the wizard below stage 5 and says Yes.
    void CancelWizard(QDialog& wizard);
    void ExpectSure(QDialog& wizard, bool yes, const std::function<void()>& meanwhile = {});

    static void SetMasters(QDialog& wizard, double a, double b);
    /// The stage whose panel is seen, or 0 when none or several are.
    static int StageOf(QDialog& wizard);
    static QString Shown(QDialog& wizard, const char* field) { return WidgetDriver(wizard).Text(field); }
};
