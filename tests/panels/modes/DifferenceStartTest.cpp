#include "library/TavikDifference.h"
#include "tests/panels/modes/DifferencePage.h"

/// Goes before the bench's operation, whose faults are derived from std::runtime_error only.
void TavikLibrary::NetworkDifference::Start() {
    throw std::logic_error("Beyond.");
}

/// A start of difference mode that throws no std::runtime_error.
class DifferenceStartTest : public DifferencePage {
    Q_OBJECT

private slots:
    void startThatThrowsAnythingGivesTheControlsBack();
};

void DifferenceStartTest::startThatThrowsAnythingGivesTheControlsBack() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Beyond."));
    QVERIFY(Operator().Click("btnStartDiff"));
    QVERIFY(WaitUntil([this] { return boxes.Count() == 1 && QApplication::activeModalWidget() == nullptr; }));
    QVERIFY(ControlsAreOn());
    QCOMPARE(Offered(), QStringList({QStringLiteral("Disable"), QStringLiteral("StartDiff")}));
}

TAVIK_TEST_MAIN(DifferenceStartTest)
#include "DifferenceStartTest.moc"
