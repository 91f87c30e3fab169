#include "app/AboutBox.h"

#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>

/// The About box: what it says and how it is laid out.
class AboutBoxTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void dateOfTheVersionLine_data();
    void dateOfTheVersionLine();
    void opensFromTheMenuAndCloses();
    void keepsItsSizeAndPlaces();
    void textsAreFixed();
};

void AboutBoxTest::dateOfTheVersionLine_data() {
    QTest::addColumn<QString>("compileDate");
    QTest::addColumn<QString>("shown");
    QTest::newRow("two digits") << QStringLiteral("Apr 12 2022") << QStringLiteral("12/04/2022");
    QTest::newRow("one digit, padded") << QStringLiteral("Apr  2 2022") << QString();
    QTest::newRow("a month whose name differs elsewhere")
        << QStringLiteral("Dec 24 2025") << QStringLiteral("24/12/2025");
}

void AboutBoxTest::dateOfTheVersionLine() {
    QFETCH(QString, compileDate);
    QFETCH(QString, shown);
    for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German), QLocale(QLocale::Arabic)}) {
        QLocale::setDefault(locale);
        QCOMPARE(VersionLine(compileDate), QStringLiteral("Tavik Linux Library Test (482913) V1.0.2 ") + shown);
    }
    QLocale::setDefault(QLocale::c());
}

void AboutBoxTest::opensFromTheMenuAndCloses() {
    Open(Benches::Two());
    BoxReply reply;
    reply.meanwhile = [](QDialog& box) {
        QVERIFY(WidgetDriver(box)
                    .Text("lblNumberAndVersion")
                    .startsWith(QStringLiteral("Tavik Linux Library Test (482913)")));
        const QString information = WidgetDriver(box).Text("lblInformation");
        QVERIFY(information.contains(QLatin1String(qVersion())));
        const auto* logo = WidgetDriver(box).The<QLabel>("lblLogo");
        QVERIFY(logo->pixmap(Qt::ReturnByValue).width() > 0);
        QVERIFY(!box.windowIcon().isNull());
        QVERIFY(WidgetDriver(box).Click("btnClose"));
        QVERIFY(!box.isVisible());
    };
    boxes.ExpectDialog(&Window(), QStringLiteral("About Tavik Library Test"), reply);
    QVERIFY(Operator().Trigger("menuHelp", "action_About"));
    QVERIFY(Window().isVisible());
}

void AboutBoxTest::keepsItsSizeAndPlaces() {
    const AboutBox box(nullptr);
    QCOMPARE(box.minimumSize(), QSize(697, 311));
    QCOMPARE(box.maximumSize(), QSize(697, 311));
    QCOMPARE(box.styleSheet(), QStringLiteral("background-color: white;"));
    QVERIFY(!box.isModal());
    const auto place = [&](const char* name) { return box.findChild<QWidget*>(QLatin1String(name))->geometry(); };
    QCOMPARE(place("lblLogo"), QRect(20, 70, 221, 151));
    QCOMPARE(place("lblNumberAndVersion"), QRect(280, 20, 341, 17));
    QCOMPARE(place("lblInformation"), QRect(280, 60, 331, 181));
    QCOMPARE(place("btnClose"), QRect(580, 260, 101, 31));
    QCOMPARE(box.findChild<QPushButton*>(QStringLiteral("btnClose"))->text(), QStringLiteral("&Close"));
}

/// The box opens on a library that answers nothing.
void AboutBoxTest::textsAreFixed() {
    Open(Benches::Two());
    Calls::Mark();
    TavikSimulator::FailCall(1, 0x2101, "Silence.", true);
    BoxReply reply;
    reply.meanwhile = [](QDialog& box) {
        const QString information = WidgetDriver(box).Text("lblInformation");
        QVERIFY2(information.contains(QStringLiteral("Made with Qt %1, ").arg(QLatin1String(qVersion()))),
                 qPrintable(information));
    };
    boxes.ExpectDialog(&Window(), QStringLiteral("About Tavik Library Test"), reply);
    QVERIFY(Operator().Trigger("menuHelp", "action_About"));
    QTRY_COMPARE(boxes.Count(), 1);
    COMPARE_CALLS(Calls::Take(), {});
}

TAVIK_TEST_MAIN(AboutBoxTest)
#include "AboutBoxTest.moc"
