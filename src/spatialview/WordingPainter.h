#ifndef SELVORA_SPATIALVIEW_WORDINGPAINTER_H
#define SELVORA_SPATIALVIEW_WORDINGPAINTER_H

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

namespace selvora {
namespace spatialview {

// The wording of text and shape media: how their text properties are read, and how the
// wording is drawn on the canvas and into their pictures. Bad property values are read as
// something that still draws.
class WordingPainter {
public:
    // The pixel size of the wording when the property cannot be read or is not positive.
    static constexpr int kDefaultPixelSize = 14;
    static constexpr int kMaxPixelSize = 1000;

    // The integer part of a size that may carry decimals in either notation ("12.5", "12,5").
    static int fontSizeOf(const QString& text);
    // A pixel size that a font accepts: the default below 1, at most kMaxPixelSize.
    static int pixelSizeOf(int fontSize);
    // The family of a "fontFamily" property, which holds a QFont::toString or a bare family.
    static QString familyOf(const QString& fontFamily);
    // 1, 4 and 8 (left, centre, justify) stand as they are; anything else is right.
    static int alignmentOf(const QString& value);
    // The flags of a font type: 1 bold, 2 italic, 3 underline, 4 bold italic, 5 bold underline,
    // 6 italic underline, 7 all; anything else none. False when the value is none of 0 to 7.
    static bool fontTypeOf(const QString& value, bool* bold, bool* italic, bool* underline);
    // An empty name gives `empty`; a name that is no colour gives `invalid`, so that a typing
    // error still draws.
    static QColor colorOf(const QString& name, const QColor& empty, const QColor& invalid);

    // Draws the wording wrapped in `rect`. The font is never taller than `maxHeight` (the
    // item's height), so that some of it always shows; a rectangle with no room draws nothing.
    static void draw(QPainter* painter, const QRectF& rect, const QString& text, QFont font,
                     const QColor& colour, int alignment, qreal maxHeight);
};

} // namespace spatialview
} // namespace selvora

#endif
