#include "spatialview/WordingPainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace selvora {
namespace spatialview {

int WordingPainter::fontSizeOf(const QString& text) {
    if (text.contains(QLatin1Char('.')))
        return text.section(QLatin1Char('.'), 0, 0).toInt();
    if (text.contains(QLatin1Char(',')))
        return text.section(QLatin1Char(','), 0, 0).toInt();
    return text.toInt();
}

int WordingPainter::pixelSizeOf(int fontSize) {
    if (fontSize < 1)
        return kDefaultPixelSize;
    return std::min(fontSize, kMaxPixelSize);
}

QString WordingPainter::familyOf(const QString& fontFamily) {
    QFont font;
    if (fontFamily.contains(QLatin1Char(',')) && font.fromString(fontFamily) &&
        !font.family().isEmpty())
        return font.family();
    return fontFamily;
}

int WordingPainter::alignmentOf(const QString& value) {
    const int flag = value.toInt();
    if (flag == Qt::AlignLeft || flag == Qt::AlignHCenter || flag == Qt::AlignJustify)
        return flag;
    return Qt::AlignRight;
}

bool WordingPainter::fontTypeOf(const QString& value, bool* bold, bool* italic, bool* underline) {
    // Bits bold, italic, underline for the values 0 to 7.
    static const int kFlags[] = {0, 1, 2, 4, 3, 5, 6, 7};
    bool ok = false;
    const int type = value.toInt(&ok);
    const bool known = ok && type >= 0 && type < 8;
    const int flags = known ? kFlags[type] : 0;
    *bold = flags & 1;
    *italic = flags & 2;
    *underline = flags & 4;
    return known;
}

QColor WordingPainter::colorOf(const QString& name, const QColor& empty, const QColor& invalid) {
    if (name.isEmpty())
        return empty;
    QColor colour;
    colour.setNamedColor(name);
    return colour.isValid() ? colour : invalid;
}

void WordingPainter::draw(QPainter* painter, const QRectF& rect, const QString& text, QFont font,
                          const QColor& colour, int alignment, qreal maxHeight) {
    if (text.isEmpty() || rect.width() < 1 || rect.height() < 1 || maxHeight < 1)
        return;
    const int given = font.pixelSize() > 0 ? font.pixelSize() : kDefaultPixelSize;
    const int pixels = std::max(1, std::min(given, int(std::floor(maxHeight))));
    font.setPixelSize(pixels);
    painter->save();
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(rect, alignment | Qt::TextWordWrap, text);
    painter->restore();
}

} // namespace spatialview
} // namespace selvora
