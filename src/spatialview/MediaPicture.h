#ifndef SELVORA_SPATIALVIEW_MEDIAPICTURE_H
#define SELVORA_SPATIALVIEW_MEDIAPICTURE_H

#include <QImage>
#include <QSize>
#include <QString>

namespace selvora {
namespace spatialview {

// The pictures that text and shape items write for the export: a transparent ground of the
// item's size, written as PNG.
class MediaPicture {
public:
    // A transparent picture to draw on; null for an empty size or one larger than any canvas.
    static QImage blank(const QSize& size);
    // Writes the picture as PNG: false for a null picture or a failed write.
    static bool write(const QImage& picture, const QString& path);
};

} // namespace spatialview
} // namespace selvora

#endif
