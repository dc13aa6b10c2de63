#include "support/PictureProbe.h"

#include <QDir>
#include <QWidget>

#include <cstdlib>

namespace selvora {
namespace test {

QImage PictureProbe::grab(QWidget* widget) {
    QImage picture = widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    // On a screen with a scale factor the grab is larger than the widget.
    if (picture.size() != widget->size())
        picture = picture.scaled(widget->size());
    return picture;
}

double PictureProbe::share(const QImage& picture, const QRect& region, const QColor& colour,
                           int tolerance) {
    const QRect area = region.intersected(picture.rect());
    if (area.isEmpty())
        return 0;
    int near = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (std::abs(qRed(pixel) - colour.red()) <= tolerance &&
                std::abs(qGreen(pixel) - colour.green()) <= tolerance &&
                std::abs(qBlue(pixel) - colour.blue()) <= tolerance)
                ++near;
        }
    }
    return double(near) / (area.width() * area.height());
}

QColor PictureProbe::mean(const QImage& picture, const QRect& region) {
    const QRect area = region.intersected(picture.rect());
    if (area.isEmpty())
        return QColor();
    qint64 red = 0, green = 0, blue = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    const qint64 count = qint64(area.width()) * area.height();
    return QColor(int(red / count), int(green / count), int(blue / count));
}

QString PictureProbe::keep(const QImage& picture, const QString& name) {
    const QString path = QDir::temp().filePath(name + QStringLiteral(".png"));
    picture.save(path);
    return path;
}

} // namespace test
} // namespace selvora
