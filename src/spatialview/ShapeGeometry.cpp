#include "spatialview/ShapeGeometry.h"

#include <QPainter>

#include <vector>

namespace selvora {
namespace spatialview {

namespace {

using Shape = Definitions::kShapeType;

// One coordinate of a table point. Edges and centres are read from the rectangle; a fraction is
// computed in double and truncated after the pen is added; a ratio is an integer division of the
// size, to which the pen may be added (and the sum truncated).
struct Term {
    enum Base { left, top, right, bottom, centerX, centerY, fraction, ratio } base;
    double factor = 0;
    int numerator = 0;
    int denominator = 1;
    double halfPens = 0;
};

constexpr Term L{Term::left};
constexpr Term T{Term::top};
constexpr Term R{Term::right};
constexpr Term B{Term::bottom};
constexpr Term CX{Term::centerX};
constexpr Term CY{Term::centerY};
// f(0.25, 2) is "0.25w + 2p" on the x axis and "0.25h + 2p" on the y axis.
constexpr Term f(double factor, double halfPens = 0) {
    return {Term::fraction, factor, 0, 1, halfPens};
}
// q(2, 3, 1) is "2w/3 + p".
constexpr Term q(int numerator, int denominator, double halfPens = 0) {
    return {Term::ratio, 0, numerator, denominator, halfPens};
}

struct Point {
    Term x;
    Term y;
};
using Points = std::vector<Point>;

int evaluate(const Term& term, const QRect& rect, int size, double p) {
    switch (term.base) {
    case Term::left:
        return rect.left();
    case Term::top:
        return rect.top();
    case Term::right:
        return rect.right();
    case Term::bottom:
        return rect.bottom();
    case Term::centerX:
        return (rect.left() + rect.right()) / 2;
    case Term::centerY:
        return (rect.top() + rect.bottom()) / 2;
    case Term::fraction:
        return static_cast<int>(term.factor * size + term.halfPens * p);
    case Term::ratio: {
        const int value = term.numerator * size / term.denominator;
        return term.halfPens == 0 ? value : static_cast<int>(value + term.halfPens * p);
    }
    }
    return 0;
}

QPolygon evaluate(const Points& points, const QRect& rect, float penWidth) {
    const double p = penWidth / 2.0;
    QPolygon polygon;
    polygon.reserve(static_cast<int>(points.size()));
    for (const Point& point : points)
        polygon << QPoint(evaluate(point.x, rect, rect.width(), p),
                          evaluate(point.y, rect, rect.height(), p));
    return polygon;
}

struct PolygonRow {
    Shape type;
    Points points;
};

// The polygons, points in drawing order.
const std::vector<PolygonRow>& polygonRows() {
    static const std::vector<PolygonRow> rows = {
        {Shape::triangle, {{CX, T}, {R, B}, {L, B}}},
        {Shape::inverted_triangle, {{L, T}, {R, T}, {CX, B}}},
        {Shape::right_triangle1, {{L, T}, {R, B}, {L, B}}},
        {Shape::right_triangle2, {{R, T}, {R, B}, {L, B}}},
        {Shape::right_triangle3, {{L, T}, {R, T}, {R, B}}},
        {Shape::right_triangle4, {{L, T}, {R, T}, {L, B}}},
        {Shape::diamond, {{L, CY}, {CX, T}, {R, CY}, {CX, B}}},
        {Shape::parallelogram_left, {{f(0.25, 2), T}, {R, T}, {f(0.75), B}, {L, B}}},
        {Shape::trapeze_top, {{q(2, 3, 1), T}, {q(1, 3), T}, {L, B}, {R, B}}},
        {Shape::trapeze_bottom, {{q(2, 3, 1), B}, {q(1, 3), B}, {L, T}, {R, T}}},
        {Shape::trapeze_right, {{L, T}, {q(1, 3, 1), T}, {R, B}, {L, B}}},
        {Shape::trapeze_left, {{R, T}, {q(2, 3, 1), T}, {L, B}, {R, B}}},
        {Shape::pentagon, {{L, f(0.4, 2)}, {CX, T}, {R, f(0.4, 2)}, {f(0.8), B}, {f(0.2, 2), B}}},
        {Shape::hexagon,
         {{f(0.25, 2), T}, {f(0.75), T}, {R, CY}, {f(0.75), B}, {f(0.25, 2), B}, {L, CY}}},
        {Shape::octogon,
         {{L, f(0.3)},
          {f(0.3), T},
          {f(0.7, 2), T},
          {R, f(0.3)},
          {R, f(0.7, 2)},
          {f(0.7, 2), B},
          {f(0.3), B},
          {L, f(0.7, 2)}}},
        {Shape::arrow_right,
         {{L, q(1, 3)},
          {f(0.6), q(1, 3)},
          {f(0.6), f(0.1)},
          {R, CY},
          {f(0.6), f(0.9)},
          {f(0.6), q(2, 3)},
          {L, q(2, 3)}}},
        {Shape::arrow_left,
         {{L, CY},
          {f(0.4), f(0.1)},
          {f(0.4), q(1, 3)},
          {R, q(1, 3)},
          {R, q(2, 3)},
          {f(0.4), q(2, 3)},
          {f(0.4), f(0.9)}}},
        {Shape::arrow_top,
         {{f(0.1), f(0.4)},
          {CX, T},
          {f(0.9), f(0.4)},
          {q(2, 3), f(0.4)},
          {q(2, 3), B},
          {q(1, 3), B},
          {q(1, 3), f(0.4)}}},
        {Shape::arrow_bottom,
         {{f(0.1), f(0.6)},
          {q(1, 3), f(0.6)},
          {q(1, 3), T},
          {q(2, 3), T},
          {q(2, 3), f(0.6)},
          {f(0.9), f(0.6)},
          {CX, B}}},
        {Shape::plus,
         {{L, f(0.33, 1)},
          {f(0.33, 1), f(0.33, 1)},
          {f(0.33, 1), T},
          {f(0.66, 1), T},
          {f(0.66, 1), f(0.33, 1)},
          {R, f(0.33, 1)},
          {R, f(0.66)},
          {f(0.66, 1), f(0.66)},
          {f(0.66, 1), B},
          {f(0.33, 1), B},
          {f(0.33, 1), f(0.66)},
          {L, f(0.66)}}},
        {Shape::minus, {{L, f(0.33)}, {R, f(0.33)}, {R, f(0.66)}, {L, f(0.66)}}},
        {Shape::multiplication,
         {{L, f(0.25)},
          {f(0.25, 1), T},
          {CX, f(0.25)},
          {f(0.75, 1), T},
          {R, f(0.25)},
          {f(0.75, 1), CY},
          {R, f(0.75)},
          {f(0.75, 1), B},
          {CX, f(0.75)},
          {f(0.25, 1), B},
          {L, f(0.75)},
          {f(0.25, 1), CY}}},
        {Shape::division, {{f(0.2), f(0.4)}, {f(0.8), f(0.4)}, {f(0.8), f(0.6)}, {f(0.2), f(0.6)}}},
        {Shape::inequality,
         {{L, f(0.2)}, {f(0.48), f(0.2)}, {f(0.55), T},       {f(0.78), f(0.08)}, {f(0.74), f(0.2)},
          {R, f(0.2)}, {R, f(0.44)},      {f(0.65), f(0.44)}, {f(0.61), f(0.55)}, {R, f(0.55)},
          {R, f(0.8)}, {f(0.5), f(0.8)},  {f(0.42), B},       {f(0.21), f(0.91)}, {f(0.25), f(0.8)},
          {L, f(0.8)}, {L, f(0.55)},      {f(0.35), f(0.55)}, {f(0.4), f(0.44)},  {L, f(0.44)}}},
        {Shape::arrow_rect_bottom,
         {{L, T},
          {R, T},
          {R, f(0.65)},
          {f(0.62, 1), f(0.65)},
          {f(0.62, 1), f(0.75)},
          {f(0.75, 1), f(0.75)},
          {CX, B},
          {f(0.25, 1), f(0.75)},
          {f(0.375, 1), f(0.75)},
          {f(0.375, 1), f(0.65)},
          {L, f(0.65)}}},
        {Shape::arrow_rect_top,
         {{L, f(0.345)},
          {f(0.37, 1), f(0.345)},
          {f(0.37, 1), f(0.25)},
          {f(0.25, 1), f(0.25)},
          {CX, T},
          {f(0.75, 1), f(0.25)},
          {f(0.623, 1), f(0.25)},
          {f(0.623, 1), f(0.345)},
          {R, f(0.345)},
          {R, B},
          {L, B}}},
        {Shape::arrow_rect_right,
         {{L, T},
          {f(0.65, 1), T},
          {f(0.65, 1), f(0.37)},
          {f(0.73, 1), f(0.37)},
          {f(0.73, 1), f(0.25)},
          {R, CY},
          {f(0.73, 1), f(0.75)},
          {f(0.73, 1), f(0.62)},
          {f(0.65, 1), f(0.62)},
          {f(0.65, 1), B},
          {L, B}}},
        {Shape::arrow_rect_left,
         {{L, CY},
          {f(0.25, 1), f(0.25)},
          {f(0.25, 1), f(0.374)},
          {f(0.35, 1), f(0.374)},
          {f(0.35, 1), T},
          {R, T},
          {R, B},
          {f(0.35, 1), B},
          {f(0.35, 1), f(0.62)},
          {f(0.25, 1), f(0.62)},
          {f(0.25, 1), f(0.746)}}},
        {Shape::balloon_rect1,
         {{f(0.05, 1), B},
          {f(0.166, 1), f(0.7)},
          {L, f(0.7)},
          {L, T},
          {R, T},
          {R, f(0.7)},
          {f(0.4, 1), f(0.7)}}},
        {Shape::balloon_rect2,
         {{f(0.6, 1), f(0.3)},
          {f(0.93, 1), T},
          {f(0.826, 1), f(0.3)},
          {R, f(0.3)},
          {R, B},
          {L, B},
          {L, f(0.3)}}},
        {Shape::balloon_rect3,
         {{f(0.826, 1), f(0.687)},
          {f(0.94, 1), B},
          {f(0.565, 1), f(0.687)},
          {L, f(0.687)},
          {L, T},
          {R, T},
          {R, f(0.687)}}},
        {Shape::balloon_rect4,
         {{L, f(0.3)},
          {f(0.176, 1), f(0.3)},
          {f(0.053, 1), T},
          {f(0.416, 1), f(0.3)},
          {R, f(0.3)},
          {R, B},
          {L, B}}},
        {Shape::star_four_points,
         {{L, CY},
          {f(0.41, 1), f(0.407)},
          {CX, T},
          {f(0.58, 1), f(0.407)},
          {R, CY},
          {f(0.58, 1), f(0.59)},
          {CX, B},
          {f(0.41, 1), f(0.59)}}},
        {Shape::star_five_points,
         {{L, f(0.38)},
          {f(0.38, 1), f(0.38)},
          {CX, T},
          {f(0.62, 1), f(0.38)},
          {R, f(0.38)},
          {f(0.68, 1), f(0.62)},
          {f(0.8, 1), B},
          {CX, f(0.76)},
          {f(0.19, 1), B},
          {f(0.31, 1), f(0.62)}}},
        {Shape::star_six_points,
         {{L, f(0.25)},
          {f(0.33, 1), f(0.25)},
          {CX, T},
          {f(0.66, 1), f(0.25)},
          {R, f(0.25)},
          {f(0.83, 1), CY},
          {R, f(0.75)},
          {f(0.66, 1), f(0.75)},
          {CX, B},
          {f(0.33, 1), f(0.75)},
          {L, f(0.75)},
          {f(0.17), CY}}},
        {Shape::star_eight_points,
         {{f(0.15, 1), f(0.15)},
          {f(0.35, 1), f(0.15)},
          {CX, T},
          {f(0.64, 1), f(0.15)},
          {f(0.84, 1), f(0.15)},
          {f(0.84, 1), f(0.35)},
          {R, CY},
          {f(0.84, 1), f(0.64)},
          {f(0.84, 1), f(0.85)},
          {f(0.64, 1), f(0.85)},
          {CX, B},
          {f(0.35, 1), f(0.85)},
          {f(0.15, 1), f(0.85)},
          {f(0.15, 1), f(0.64)},
          {L, CY},
          {f(0.15, 1), f(0.35)}}},
    };
    return rows;
}

// A cube is the union of its front face and its side face, followed by the points that close
// its top face.
struct CubeRow {
    Shape type;
    Points side;
    Points front;
    Points top;
};

const std::vector<CubeRow>& cubeRows() {
    static const std::vector<CubeRow> rows = {
        {Shape::cube_left,
         {{f(0.75), q(1, 4, 2)}, {f(0.75), B}, {R, f(0.75)}, {R, T}},
         {{L, q(1, 4, 2)}, {L, B}, {f(0.75), B}, {f(0.75), q(1, 4, 2)}},
         {{R, T}, {q(1, 4, 2), T}, {L, q(1, 4, 2)}}},
        {Shape::cube_right,
         {{q(1, 4, 2), q(1, 4, 2)}, {q(1, 4, 2), B}, {L, f(0.75)}, {L, T}},
         {{R, q(1, 4, 2)}, {R, B}, {q(1, 4, 2), B}, {q(1, 4, 2), q(1, 4, 2)}},
         {{L, T}, {f(0.75), T}, {R, q(1, 4, 2)}}},
    };
    return rows;
}

struct BalloonRow {
    Shape type;
    Points tail;
};

// Round balloons: one ellipse and a tail.
const std::vector<BalloonRow>& balloonRows() {
    static const std::vector<BalloonRow> rows = {
        {Shape::balloon1, {{f(0.2), f(0.7)}, {f(0.1), B}, {f(0.5), f(0.7)}}},
        {Shape::balloon2, {{f(0.5), f(0.3)}, {f(0.9), T}, {f(0.8), f(0.3)}}},
        {Shape::balloon3, {{f(0.5), f(0.7)}, {f(0.9), B}, {f(0.8), f(0.7)}}},
        {Shape::balloon4, {{f(0.2), f(0.7)}, {f(0.1), T}, {f(0.8), f(0.7)}}},
    };
    return rows;
}

// A centre of a thought balloon's ellipse: factor times the base, plus an offset, truncated.
struct CentreTerm {
    enum Base { centerX, centerY, width, height } base;
    double factor;
    double offset;
};
struct Centre {
    CentreTerm x;
    CentreTerm y;
};
struct ThoughtRow {
    Shape type;
    Centre large;
    Centre middle;
    Centre small;
};

constexpr CentreTerm cx(double factor, double offset = 0) {
    return {CentreTerm::centerX, factor, offset};
}
constexpr CentreTerm cy(double factor) {
    return {CentreTerm::centerY, factor, 0};
}
constexpr CentreTerm hy(double factor) {
    return {CentreTerm::height, factor, 0};
}

const std::vector<ThoughtRow>& thoughtRows() {
    static const std::vector<ThoughtRow> rows = {
        {Shape::balloonThought1, {cx(1), hy(0.35)}, {cx(0.5), cy(1.5)}, {cx(0.25), cy(1.8)}},
        {Shape::balloonThought2, {cx(1, 1.1), hy(0.65)}, {cx(1.25), cy(0.5)}, {cx(1.5), cy(0.2)}},
        {Shape::balloonThought3, {cx(1, 1.1), hy(0.35)}, {cx(1.25), cy(1.5)}, {cx(1.5), cy(1.8)}},
        {Shape::balloonThought4, {cx(1, 1.1), hy(0.65)}, {cx(0.5), cy(0.5)}, {cx(0.25), cy(0.2)}},
    };
    return rows;
}

int evaluate(const CentreTerm& term, const QRect& rect) {
    double base = 0;
    switch (term.base) {
    case CentreTerm::centerX:
        base = (rect.left() + rect.right()) / 2;
        break;
    case CentreTerm::centerY:
        base = (rect.top() + rect.bottom()) / 2;
        break;
    case CentreTerm::width:
        base = rect.width();
        break;
    case CentreTerm::height:
        base = rect.height();
        break;
    }
    return static_cast<int>(term.factor * base + term.offset);
}

QPointF evaluate(const Centre& centre, const QRect& rect) {
    return QPointF(evaluate(centre.x, rect), evaluate(centre.y, rect));
}

template <typename Row> const Row* findRow(const std::vector<Row>& rows, Shape type) {
    for (const Row& row : rows)
        if (row.type == type)
            return &row;
    return nullptr;
}

// The half sizes of a balloon's ellipse: a thicker pen narrows it so that the stroke stays in.
QPointF balloonRadii(const QRect& rect, float penWidth) {
    return QPointF(0.45 * rect.width() - 0.1 * penWidth, 0.3 * rect.height());
}

// A bracket is a half ellipse from which a narrower, shorter one is cut, leaving a crescent.
QPainterPath bracket(const QRect& rect, bool open) {
    const int w = rect.width();
    const int h = rect.height();
    const qreal outerLeft = open ? w / 9 : w / 5;
    const qreal innerLeft = open ? w / 5 : w / 9;
    const qreal startAngle = open ? 90 : 270;
    const QRectF outerRect(outerLeft, rect.top(), w / 2.4, rect.bottom());
    const QRectF innerRect(innerLeft, static_cast<int>(0.1 * h), w / 2.4,
                           static_cast<int>(0.8 * h));
    QPainterPath outer;
    outer.arcMoveTo(outerRect, startAngle);
    outer.arcTo(outerRect, startAngle, 180);
    QPainterPath inner;
    inner.arcMoveTo(innerRect, startAngle);
    inner.arcTo(innerRect, startAngle, 180);
    return outer.subtracted(inner);
}

struct KindRow {
    Shape type;
    ShapeGeometry::Kind kind;
};

// Figures that are not polygons; every other value in range is one.
constexpr KindRow kKindRows[] = {
    {Shape::rectangle, ShapeGeometry::Kind::rectangle},
    {Shape::circle, ShapeGeometry::Kind::ellipse},
    {Shape::rounded_rect, ShapeGeometry::Kind::roundedRect},
    {Shape::division, ShapeGeometry::Kind::division},
    {Shape::equality, ShapeGeometry::Kind::equality},
    {Shape::balloon1, ShapeGeometry::Kind::balloon},
    {Shape::balloon2, ShapeGeometry::Kind::balloon},
    {Shape::balloon3, ShapeGeometry::Kind::balloon},
    {Shape::balloon4, ShapeGeometry::Kind::balloon},
    {Shape::balloonThought1, ShapeGeometry::Kind::balloon},
    {Shape::balloonThought2, ShapeGeometry::Kind::balloon},
    {Shape::balloonThought3, ShapeGeometry::Kind::balloon},
    {Shape::balloonThought4, ShapeGeometry::Kind::balloon},
    {Shape::bracket_open, ShapeGeometry::Kind::bracket},
    {Shape::bracket_close, ShapeGeometry::Kind::bracket},
};

constexpr qreal kPenWidths[] = {0.25, 0.5, 0.75, 1.0, 1.5, 2.25, 3.0, 4.5, 6.0};
constexpr Qt::PenStyle kPenStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                       Qt::DashDotDotLine};

} // namespace

ShapeGeometry::Kind ShapeGeometry::kindOf(Definitions::kShapeType type) {
    return kindOf(static_cast<int>(type));
}

ShapeGeometry::Kind ShapeGeometry::kindOf(int type) {
    if (type < 0 || type >= Definitions::kShapeCount)
        return Kind::none;
    for (const KindRow& row : kKindRows)
        if (static_cast<int>(row.type) == type)
            return row.kind;
    return Kind::polygon;
}

qreal ShapeGeometry::penWidth(Definitions::kOutlineWidth width) {
    const int index = static_cast<int>(width);
    return index >= 0 && index < 9 ? kPenWidths[index] : kPenWidths[0];
}

Qt::PenStyle ShapeGeometry::penStyle(Definitions::kOutlineStyle style) {
    const int index = static_cast<int>(style);
    return index >= 0 && index < 5 ? kPenStyles[index] : Qt::SolidLine;
}

QRectF ShapeGeometry::shapeRect(const QRectF& bounds, qreal penWidth) {
    return QRectF(bounds.x() + penWidth / 2, bounds.y() + penWidth / 2,
                  bounds.x() + bounds.width() - penWidth, bounds.y() + bounds.height() - penWidth);
}

QPolygon ShapeGeometry::polygon(Definitions::kShapeType type, const QRect& rect, float penWidth) {
    if (const PolygonRow* row = findRow(polygonRows(), type))
        return evaluate(row->points, rect, penWidth);
    if (const CubeRow* row = findRow(cubeRows(), type)) {
        QPolygon cube =
            evaluate(row->side, rect, penWidth).united(evaluate(row->front, rect, penWidth));
        cube << evaluate(row->top, rect, penWidth);
        return cube;
    }
    return QPolygon();
}

QPainterPath ShapeGeometry::path(Definitions::kShapeType type, const QRect& rect, float penWidth) {
    const QPointF large = balloonRadii(rect, penWidth);
    if (const BalloonRow* row = findRow(balloonRows(), type)) {
        QPainterPath ellipse;
        ellipse.addEllipse(
            QPointF((rect.left() + rect.right()) / 2, (rect.top() + rect.bottom()) / 2), large.x(),
            large.y());
        QPainterPath tail;
        tail.addPolygon(evaluate(row->tail, rect, penWidth));
        tail.closeSubpath();
        return ellipse + tail.subtracted(ellipse);
    }
    if (const ThoughtRow* row = findRow(thoughtRows(), type)) {
        QPainterPath thought;
        thought.addEllipse(evaluate(row->large, rect), large.x(), large.y());
        thought.addEllipse(evaluate(row->middle, rect), 0.1 * rect.width(), 0.06 * rect.height());
        thought.addEllipse(evaluate(row->small, rect), 0.0625 * rect.width(),
                           0.0375 * rect.height());
        return thought;
    }
    if (type == Shape::bracket_open || type == Shape::bracket_close)
        return bracket(rect, type == Shape::bracket_open);
    return QPainterPath();
}

QRect ShapeGeometry::divisionDot(const QRectF& shapeRect, int index) {
    const qreal w = shapeRect.width();
    const qreal h = shapeRect.height();
    return QRect(static_cast<int>(0.4 * w), static_cast<int>((index == 0 ? 0.1 : 0.7) * h),
                 static_cast<int>(0.2 * w), static_cast<int>(0.2 * h));
}

QRect ShapeGeometry::equalityBar(const QRectF& shapeRect, int index) {
    const qreal w = shapeRect.width();
    const qreal h = shapeRect.height();
    return QRect(0, static_cast<int>((index == 0 ? 0.2 : 0.55) * h), static_cast<int>(w),
                 static_cast<int>(0.25 * h));
}

QPainterPath ShapeGeometry::figure(Definitions::kShapeType type, const QRectF& shapeRect,
                                   float penWidth) {
    const QRect rect = shapeRect.toRect();
    QPainterPath result;
    switch (kindOf(type)) {
    case Kind::rectangle:
        result.addRect(rect);
        break;
    case Kind::ellipse:
        result.addEllipse(shapeRect.adjusted(1, 1, -1, -1).toRect());
        break;
    case Kind::roundedRect:
        result.addRoundedRect(rect, 20, 20, Qt::RelativeSize);
        break;
    case Kind::polygon:
    case Kind::division:
        result.setFillRule(Qt::OddEvenFill);
        result.addPolygon(polygon(type, rect, penWidth));
        result.closeSubpath();
        if (kindOf(type) == Kind::division) {
            result.addEllipse(divisionDot(shapeRect, 0));
            result.addEllipse(divisionDot(shapeRect, 1));
        }
        break;
    case Kind::equality:
        result.addRect(equalityBar(shapeRect, 0));
        result.addRect(equalityBar(shapeRect, 1));
        break;
    case Kind::balloon:
    case Kind::bracket:
        result = path(type, rect, penWidth);
        break;
    case Kind::none:
        break;
    }
    return result;
}

void ShapeGeometry::paint(QPainter* painter, Definitions::kShapeType type, const QRectF& shapeRect,
                          const QPen& pen, const QColor& fill, qreal geometryPenWidth) {
    const float penWidth = geometryPenWidth < 0 ? pen.widthF() : geometryPenWidth;
    const QRect rect = shapeRect.toRect();
    const QBrush fillBrush(fill, Qt::SolidPattern);
    painter->setBrush(fillBrush);
    painter->setPen(pen);
    switch (kindOf(type)) {
    case Kind::rectangle:
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->drawRects(&rect, 1);
        break;
    case Kind::ellipse:
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->drawEllipse(shapeRect.adjusted(1, 1, -1, -1).toRect());
        break;
    case Kind::roundedRect:
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->drawRoundedRect(rect, 20, 20, Qt::RelativeSize);
        break;
    case Kind::polygon:
    case Kind::division:
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->drawPolygon(polygon(type, rect, penWidth), Qt::OddEvenFill);
        if (kindOf(type) == Kind::division) {
            painter->drawEllipse(divisionDot(shapeRect, 0));
            painter->drawEllipse(divisionDot(shapeRect, 1));
        }
        painter->setRenderHint(QPainter::Antialiasing, false);
        break;
    case Kind::equality: {
        painter->setRenderHint(QPainter::Antialiasing, true);
        const QRect bars[] = {equalityBar(shapeRect, 0), equalityBar(shapeRect, 1)};
        painter->drawRects(bars, 2);
        break;
    }
    case Kind::balloon:
    case Kind::bracket: {
        // The painter's own pen only matters for what is drawn after the figure; the outline
        // itself is stroked with the shape's pen.
        const bool balloon = kindOf(type) == Kind::balloon;
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->setPen(QPen(QBrush(pen.color()), balloon ? 1 : 5, Qt::SolidLine, Qt::SquareCap,
                             Qt::RoundJoin));
        const QPainterPath figurePath = path(type, rect, penWidth);
        painter->fillPath(figurePath, fillBrush);
        painter->strokePath(balloon ? figurePath.simplified() : figurePath, pen);
        break;
    }
    case Kind::none:
        break;
    }
}

void ShapeGeometry::paintInBounds(QPainter* painter, Definitions::kShapeType type,
                                  const QRectF& bounds, const QPen& pen, const QColor& fill) {
    painter->setRenderHint(QPainter::Antialiasing, true);
    paint(painter, type, shapeRect(bounds, pen.widthF()), pen, fill);
}

} // namespace spatialview
} // namespace selvora
