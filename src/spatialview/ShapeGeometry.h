#ifndef SELVORA_SPATIALVIEW_SHAPEGEOMETRY_H
#define SELVORA_SPATIALVIEW_SHAPEGEOMETRY_H

#include "app/Definitions.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QPolygon>
#include <QRect>
#include <QRectF>

class QPainter;

namespace selvora {
namespace spatialview {

// The 52 figures of a shape media, built from fractions of a rectangle. The canvas item, the
// picture written for the export and the icons of the program all draw through this class, so
// that a figure looks the same everywhere.
//
// Coordinates follow the integer arithmetic of the figure tables: fractions of the width or
// height count from the coordinate origin (the item's own origin), and the pen width moves some
// points by half or a whole pen.
class ShapeGeometry {
public:
    // How a figure is drawn.
    enum class Kind {
        rectangle,   // drawRects, without antialiasing
        ellipse,     // drawEllipse of the rectangle shrunk by one pixel
        roundedRect, // drawRoundedRect with relative radii
        polygon,     // drawPolygon with the odd-even rule
        division,    // a polygon and two ellipses
        equality,    // two bars
        balloon,     // a path filled and stroked simplified
        bracket,     // a path filled and stroked
        none         // an unknown value draws nothing
    };

    static Kind kindOf(Definitions::kShapeType type);
    static Kind kindOf(int type);

    // The pen of an outline.
    static qreal penWidth(Definitions::kOutlineWidth width);
    static Qt::PenStyle penStyle(Definitions::kOutlineStyle style);

    // The rectangle in which a figure is drawn inside an item's bounds: half a pen in from the
    // top-left corner and a whole pen in from the bottom-right one.
    static QRectF shapeRect(const QRectF& bounds, qreal penWidth);

    // The points of a polygon figure (the polygon table, the cubes, and the bar of the
    // division), for `rect` = shapeRect().toRect(). Empty for a figure that is no polygon.
    static QPolygon polygon(Definitions::kShapeType type, const QRect& rect, float penWidth);

    // The path of a balloon, thought balloon or bracket; empty for any other figure.
    static QPainterPath path(Definitions::kShapeType type, const QRect& rect, float penWidth);

    // The two dots of the division and the two bars of the equality, in the coordinates of a
    // shape rectangle whose width and height are W and H.
    static QRect divisionDot(const QRectF& shapeRect, int index);
    static QRect equalityBar(const QRectF& shapeRect, int index);

    // The whole figure as one path (what paint() fills), for hit tests and previews.
    static QPainterPath figure(Definitions::kShapeType type, const QRectF& shapeRect,
                               float penWidth);

    // Draws a figure in a shape rectangle. Figures drawn with the painter's pen get `pen`;
    // balloons and brackets are stroked with it. `geometryPenWidth` places the points: pass the
    // width of the shape's own pen when `pen` is a thickened copy (the "border" hover); a
    // negative value means the width of `pen`. Leaves antialiasing as the canvas expects it:
    // off after a rectangle or a polygon, on otherwise.
    static void paint(QPainter* painter, Definitions::kShapeType type, const QRectF& shapeRect,
                      const QPen& pen, const QColor& fill, qreal geometryPenWidth = -1);

    // Draws a figure filling an item's bounds, as the picture of a shape is made: the shape
    // rectangle is computed from the pen, antialiasing is on.
    static void paintInBounds(QPainter* painter, Definitions::kShapeType type, const QRectF& bounds,
                              const QPen& pen, const QColor& fill);
};

} // namespace spatialview
} // namespace selvora

#endif
