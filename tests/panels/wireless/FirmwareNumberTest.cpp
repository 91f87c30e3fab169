#include "panels/wireless/FirmwareNumber.h"

#include <QTest>

#include <clocale>

/// The number in a hand tool's reply.
class FirmwareNumberTest : public QObject {
    Q_OBJECT

private slots:
    void isReadFromItsPosition_data();
    void isReadFromItsPosition();
    void bytesCountAndNotCharacters();
    void doesNotDependOnTheLanguage();
};

void FirmwareNumberTest::isReadFromItsPosition_data() {
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("firmware");
    const auto row = [](const char* reply, const char* firmware) {
        QTest::newRow(reply) << QString::fromLatin1(reply) << QString::fromLatin1(firmware);
    };
    row("xxx2.70", "2.70");
    row("xxx2.7", "2.70");
    row("xxx2", "2.00");
    row("xxx2.705 and more", "2.70");
    row("xxx2.7x", "2.70");
    row("xxx 1.5", "1.50");
    row("xxx+1.5", "1.50");
    row("xxx-1.5", "-1.50");
    row("xxx1e2.", "100.00");
    row("xxxV2.7", "");
    row("xxx    ", "");
    row("xxx+-1.", "");
    row("xxx.", "");
    row("xxx", "");
    row("xx", "");
    row("", "");
}

void FirmwareNumberTest::isReadFromItsPosition() {
    QFETCH(QString, reply);
    QFETCH(QString, firmware);
    QCOMPARE(FirmwareNumber(reply.toStdString(), 3), firmware);
}

void FirmwareNumberTest::bytesCountAndNotCharacters() {
    QCOMPARE(FirmwareNumber("\xC3\xA4x2.70", 3), QStringLiteral("2.70"));
    const std::string withNull("x\0y2.70", 7);
    QCOMPARE(FirmwareNumber(withNull, 3), QStringLiteral("2.70"));
}

void FirmwareNumberTest::doesNotDependOnTheLanguage() {
    for (const char* locale : {"de_DE.UTF-8", "C.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        QCOMPARE(FirmwareNumber("xxx2.70", 3), QStringLiteral("2.70"));
        std::setlocale(LC_ALL, "C");
    }
}

QTEST_APPLESS_MAIN(FirmwareNumberTest)

#include "FirmwareNumberTest.moc"
