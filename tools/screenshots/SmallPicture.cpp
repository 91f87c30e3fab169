#include "tools/screenshots/SmallPicture.h"

#include <QHash>
#include <QVector>

#include <algorithm>

namespace {

constexpr int largestPalette = 256;

/// The colours of the picture, the most frequent first.
QVector<QRgb> ColoursOf(const QImage& picture) {
    QHash<QRgb, int> uses;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::for_each(line, line + picture.width(), [&uses](QRgb colour) { ++uses[colour]; });
    }
    QVector<QRgb> colours = uses.keys().toVector();
    // Colours that are used equally often keep the same order in every run.
    std::sort(colours.begin(), colours.end(),
              [&uses](QRgb a, QRgb b) { return uses[a] != uses[b] ? uses[a] > uses[b] : a < b; });
    return colours;
}

int Distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

uchar NearestIn(const QVector<QRgb>& palette, QRgb colour) {
    const auto nearest = std::min_element(
        palette.begin(), palette.end(), [colour](QRgb a, QRgb b) { return Distance(a, colour) < Distance(b, colour); });
    return static_cast<uchar>(nearest - palette.begin());
}

} // namespace

QImage SmallPicture(const QImage& picture) {
    const QImage full = picture.convertToFormat(QImage::Format_RGB32);
    const QVector<QRgb> colours = ColoursOf(full);
    const QVector<QRgb> palette = colours.mid(0, largestPalette);
    QHash<QRgb, uchar> places;
    for (QRgb colour : colours) {
        places.insert(colour, NearestIn(palette, colour));
    }

    QImage small(full.size(), QImage::Format_Indexed8);
    small.setColorTable(palette);
    for (int y = 0; y < full.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(full.constScanLine(y));
        std::transform(line, line + full.width(), small.scanLine(y), [&places](QRgb colour) { return places[colour]; });
    }
    return small;
}
