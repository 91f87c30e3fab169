#pragma once

#include <QImage>

/// The picture with a palette of at most 256 colours, which a PNG file keeps in a quarter of the space. A
/// screen has few colours; where it has more, the rarest ones become the nearest of the others.
QImage SmallPicture(const QImage& picture);
