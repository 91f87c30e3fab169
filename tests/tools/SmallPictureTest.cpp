#include "tools/screenshots/SmallPicture.h"

#include <QBuffer>
#include <QtTest>

/// The pictures of the manual: small files that show what the screen shows.
class SmallPictureTest : public QObject {
    Q_OBJECT

private slots:
    void fewColoursStayAsTheyAre();
    void rareColoursBecomeTheNearest();
    void fileIsSmaller();
};

namespace {

/// A picture of so many shades of grey and red, each in a line of its own.
QImage Shades(int count, int width) {
    QImage picture(width, count, QImage::Format_RGB32);
    for (int y = 0; y < count; ++y) {
        const QColor colour = y < 256 ? QColor(y, y, y) : QColor(255, y - 256, y - 256);
        for (int x = 0; x < width; ++x) {
            picture.setPixelColor(x, y, colour);
        }
    }
    return picture;
}

int SizeOfFile(const QImage& picture) {
    QByteArray file;
    QBuffer buffer(&file);
    picture.save(&buffer, "PNG");
    return file.size();
}

} // namespace

void SmallPictureTest::fewColoursStayAsTheyAre() {
    const QImage picture = Shades(256, 3);
    const QImage small = SmallPicture(picture);
    QCOMPARE(small.format(), QImage::Format_Indexed8);
    QCOMPARE(small.convertToFormat(QImage::Format_RGB32), picture);
}

void SmallPictureTest::rareColoursBecomeTheNearest() {
    QImage picture = Shades(300, 4);
    // Line 256 is red; with fewer points than any other colour it is the one that has to go.
    for (int x = 1; x < picture.width(); ++x) {
        picture.setPixelColor(x, 256, Qt::black);
    }
    for (int y = 258; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixelColor(x, y, Qt::black);
        }
    }
    const QImage small = SmallPicture(picture);
    QCOMPARE(small.colorCount(), 256);
    QCOMPARE(small.pixelColor(0, 257), QColor(255, 1, 1));
    QCOMPARE(small.pixelColor(0, 256), QColor(255, 1, 1));
    QCOMPARE(small.pixelColor(0, 200), QColor(200, 200, 200));
}

void SmallPictureTest::fileIsSmaller() {
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int i = 0; i < 20000; ++i) {
        const int shade = (i * 7919) % 200;
        picture.setPixelColor((i * 31) % 400, (i * 17) % 300, QColor(shade, shade, shade));
    }
    QVERIFY(SizeOfFile(SmallPicture(picture)) < SizeOfFile(picture));
}

QTEST_GUILESS_MAIN(SmallPictureTest)

#include "SmallPictureTest.moc"
