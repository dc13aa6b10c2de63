#ifndef SELVORA_TESTS_PICTUREPROBE_H
#define SELVORA_TESTS_PICTUREPROBE_H

#include <QColor>
#include <QImage>
#include <QRect>

class QWidget;

namespace selvora {
namespace test {

// What a widget shows, as a picture, and questions about the colours of its regions.
class PictureProbe {
public:
    // The widget as it is painted now, at one pixel per pixel of the widget.
    static QImage grab(QWidget* widget);
    // The share (0 to 1) of the region's pixels within the tolerance of that colour, each
    // channel compared on its own.
    static double share(const QImage& picture, const QRect& region, const QColor& colour,
                        int tolerance = 16);
    // The mean colour of the region.
    static QColor mean(const QImage& picture, const QRect& region);
    // Writes the picture under the test's temporary folder when a check fails, to be looked at.
    static QString keep(const QImage& picture, const QString& name);
};

} // namespace test
} // namespace selvora

#endif
