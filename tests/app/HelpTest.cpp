#include "app/AboutBox.h"
#include "panels/common/Activity.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>

namespace {

const QString decoderTitle = QStringLiteral("Tavik Error Decoder");
const QString decoderLabel = QStringLiteral("Please enter the error code.");

} // namespace

/// The menu "Help".
class HelpTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void decoderShowsWhatTheLibrarySays();
    void decoderTakesCodesInItsRange();
    void decoderCancelled();
    void aboutBoxTellsTheVersion();
    void versionLineOfACompileDate();
    void menuLeavesTheStatusBarAlone();
};

void HelpTest::decoderShowsWhatTheLibrarySays() {
    Open(Benches::Two());
    Calls::Mark();
    BoxReply code;
    code.typed = QStringLiteral("4660");
    boxes.ExpectNumberInput(&Window(), decoderTitle, decoderLabel, code);
    boxes.ExpectInformation(&Window(), decoderTitle,
                            QStringLiteral("Error Decode:\nUnknown error code 4660 (0x1234)."));
    QVERIFY(Operator().Trigger("menuHelp", "action_Decode_Error"));
    QTRY_COMPARE(boxes.Count(), 2);
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("server.GetErrorDescription(4660)")});
}

void HelpTest::decoderTakesCodesInItsRange() {
    Open(Benches::Two());
    BoxReply code;
    code.accept = false;
    code.meanwhile = [](QDialog& box) {
        const auto* entry = box.findChild<QSpinBox*>();
        QCOMPARE(entry->value(), 0);
        QCOMPARE(entry->minimum(), 0);
        QCOMPARE(entry->maximum(), 131072);
        QCOMPARE(entry->singleStep(), 1);
    };
    boxes.ExpectNumberInput(&Window(), decoderTitle, decoderLabel, code);
    QVERIFY(Operator().Trigger("menuHelp", "action_Decode_Error"));
    QTRY_COMPARE(boxes.Count(), 1);
}

void HelpTest::decoderCancelled() {
    Open(Benches::Two());
    Calls::Mark();
    BoxReply cancel;
    cancel.accept = false;
    boxes.ExpectNumberInput(&Window(), decoderTitle, decoderLabel, cancel);
    QVERIFY(Operator().Trigger("menuHelp", "action_Decode_Error"));
    QTRY_COMPARE(boxes.Count(), 1);
    ProcessAllEvents();
    COMPARE_CALLS(Calls::Take(), {});
}

void HelpTest::aboutBoxTellsTheVersion() {
    Open(Benches::Two());
    BoxReply reply;
    bool closed = false;
    reply.meanwhile = [&](QDialog& box) {
        QCOMPARE(box.size(), QSize(697, 311));
        QCOMPARE(box.minimumSize(), box.maximumSize());
        const auto* line = box.findChild<QLabel*>(QStringLiteral("lblNumberAndVersion"));
        QCOMPARE(line->text(), VersionLine(QStringLiteral(__DATE__)));
        closed = WidgetDriver(box).Click("btnClose");
    };
    boxes.ExpectDialog(&Window(), QStringLiteral("About Tavik Library Test"), reply);
    QVERIFY(Operator().Trigger("menuHelp", "action_About"));
    QTRY_VERIFY(closed);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
}

void HelpTest::versionLineOfACompileDate() {
    QCOMPARE(VersionLine(QStringLiteral("Apr 12 2022")),
             QStringLiteral("Tavik Linux Library Test (482913) V1.0.2 12/04/2022"));
    // The compiler pads a day of one digit with a blank, which is not the form of a date here.
    QCOMPARE(VersionLine(QStringLiteral("Apr  2 2022")), QStringLiteral("Tavik Linux Library Test (482913) V1.0.2 "));
}

void HelpTest::menuLeavesTheStatusBarAlone() {
    Open(Benches::Two());
    const QString text = QStringLiteral("Buffered mode runs");
    const Activity activity(&Window(), text);
    boxes.ExpectDialog(&Window(), QStringLiteral("About Tavik Library Test"), {});
    QVERIFY(Operator().Trigger("menuHelp", "action_About"));
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Window().findChild<QStatusBar*>()->currentMessage(), text);
}

TAVIK_TEST_MAIN(HelpTest)

#include "HelpTest.moc"
