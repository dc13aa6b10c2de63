#include "spatialview/MediaPicture.h"

namespace selvora {
namespace spatialview {

namespace {
// No canvas is this large: a bigger item is a broken one, and its picture would not fit in
// memory.
const int kMaxSide = 8192;
// zlib's fastest level: the pictures are small and mostly flat, and a save writes hundreds.
const int kPngQuality = 80;
} // namespace

QImage MediaPicture::blank(const QSize& size) {
    if (size.isEmpty() || size.width() > kMaxSide || size.height() > kMaxSide)
        return QImage();
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (!picture.isNull())
        picture.fill(0);
    return picture;
}

bool MediaPicture::write(const QImage& picture, const QString& path) {
    return !picture.isNull() && picture.save(path, "PNG", kPngQuality);
}

} // namespace spatialview
} // namespace selvora
