#include "drawicons/IconCatalogue.h"

#include "app/Definitions.h"
#include "spatialview/LayoutItem.h"
#include "spatialview/ShapeGeometry.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace selvora {
namespace tools {

namespace {

using Icon = IconCatalogue::Icon;
using Painter = QPainter;

// The palette: the orange of the program, a darker and a lighter tone of it, and greys.
const QColor kOrange(255, 127, 0);
const QColor kOrangeDark(204, 94, 0);
const QColor kOrangeLight(255, 196, 140);
const QColor kInk(77, 77, 77);
const QColor kGrey(150, 150, 150);
const QColor kLight(226, 226, 226);
const QColor kPaper(255, 255, 255);
const QColor kNone(237, 28, 36);

// The one stroke weight, in units of the 128 box: about a pixel and a half at 19 pixels.
constexpr qreal kStroke = 8;

QPen ink(const QColor& color = kInk, qreal width = kStroke) {
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void shape(Painter& p, const QPainterPath& path, const QColor& fill, const QColor& line = kInk) {
    p.setPen(line.isValid() ? ink(line) : Qt::NoPen);
    p.setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
    p.drawPath(path);
}

QPainterPath rounded(const QRectF& r, qreal radius) {
    QPainterPath path;
    path.addRoundedRect(r, radius, radius);
    return path;
}

QPainterPath polygonPath(const QVector<QPointF>& points) {
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    path.closeSubpath();
    return path;
}

void line(Painter& p, QPointF a, QPointF b, const QColor& color = kInk, qreal width = kStroke) {
    p.setPen(ink(color, width));
    p.drawLine(a, b);
}

// A filled head at `tip`, pointing along `direction`.
void arrowHead(Painter& p, QPointF tip, QPointF direction, qreal size, const QColor& color) {
    const qreal length = std::hypot(direction.x(), direction.y());
    const QPointF d = direction / length;
    const QPointF n(-d.y(), d.x());
    const QPointF base = tip - d * size;
    p.setPen(ink(color, kStroke / 2));
    p.setBrush(color);
    p.drawPolygon(QPolygonF({tip, base + n * size * 0.7, base - n * size * 0.7}));
}

void arrow(Painter& p, QPointF from, QPointF to, const QColor& color = kOrange, qreal width = 12) {
    const QPointF d = to - from;
    const qreal length = std::hypot(d.x(), d.y());
    line(p, from, to - d / length * 14, color, width);
    arrowHead(p, to, d, 26, color);
}

// An arc of a circle with a head at its end; angles as QPainterPath counts them.
void curvedArrow(Painter& p, QPointF centre, qreal radius, qreal start, qreal span,
                 const QColor& color = kOrange) {
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    // The arc stops where the head begins.
    const qreal headSize = 26;
    const qreal trim = qRadiansToDegrees(headSize * 0.8 / radius);
    const qreal trimmed = span - (span > 0 ? trim : -trim);
    QPainterPath path;
    path.arcMoveTo(box, start);
    path.arcTo(box, start, trimmed);
    p.setBrush(Qt::NoBrush);
    p.setPen(ink(color, 12));
    p.drawPath(path);
    const qreal end = qDegreesToRadians(start + span);
    const QPointF tip(centre.x() + radius * std::cos(end), centre.y() - radius * std::sin(end));
    const qreal sign = span > 0 ? 1 : -1;
    arrowHead(p, tip, QPointF(-std::sin(end), -std::cos(end)) * sign, headSize, color);
}

// A sheet of paper with a folded corner.
void page(Painter& p, const QRectF& r, const QColor& fill = kPaper, bool lines = false) {
    const qreal fold = r.width() * 0.3;
    shape(p,
          polygonPath({r.topLeft(), QPointF(r.right() - fold, r.top()),
                       QPointF(r.right(), r.top() + fold), r.bottomRight(), r.bottomLeft()}),
          fill);
    p.setBrush(kLight);
    p.drawPolygon(
        QPolygonF({QPointF(r.right() - fold, r.top()), QPointF(r.right() - fold, r.top() + fold),
                   QPointF(r.right(), r.top() + fold)}));
    if (lines)
        for (qreal y = r.top() + fold + 14; y < r.bottom() - 10; y += 16)
            line(p, QPointF(r.left() + 14, y), QPointF(r.right() - 14, y), kGrey, 6);
}

// A round badge with a plus or a minus, at the lower right.
void badge(Painter& p, bool plus) {
    shape(p, rounded(QRectF(70, 70, 54, 54), 27), kOrange);
    line(p, QPointF(84, 97), QPointF(110, 97), kPaper, 10);
    if (plus)
        line(p, QPointF(97, 84), QPointF(97, 110), kPaper, 10);
}

// A pencil from `tip` towards `end`.
void pencil(Painter& p, QPointF tip, QPointF end) {
    const QPointF d = (end - tip) / std::hypot(end.x() - tip.x(), end.y() - tip.y());
    const QPointF n(-d.y() * 11, d.x() * 11);
    const QPointF neck = tip + d * 24;
    shape(p, polygonPath({neck + n, end + n, end - n, neck - n}), kOrange);
    shape(p, polygonPath({tip, neck + n, neck - n}), kOrangeLight);
}

// A landscape: a sun and two hills in a frame.
void picture(Painter& p, const QRectF& r) {
    shape(p, QPainterPath([&] {
              QPainterPath path;
              path.addRect(r);
              return path;
          }()),
          kPaper);
    p.save();
    p.setClipRect(r);
    p.setPen(Qt::NoPen);
    p.setBrush(kOrange);
    const qreal s = r.height();
    p.drawEllipse(QPointF(r.left() + r.width() * 0.72, r.top() + s * 0.3), s * 0.14, s * 0.14);
    p.setBrush(kGrey);
    p.drawPolygon(QPolygonF({QPointF(r.left(), r.bottom()),
                             QPointF(r.left() + r.width() * 0.35, r.top() + s * 0.35),
                             QPointF(r.left() + r.width() * 0.7, r.bottom())}));
    p.setBrush(kInk);
    p.drawPolygon(QPolygonF({QPointF(r.left() + r.width() * 0.4, r.bottom()),
                             QPointF(r.left() + r.width() * 0.68, r.top() + s * 0.55),
                             QPointF(r.right(), r.top() + s * 0.8), r.bottomRight()}));
    p.restore();
    p.setBrush(Qt::NoBrush);
    p.setPen(ink());
    p.drawRect(r);
}

// A scene: a 16:9 screen.
const QRectF kScreen(6, 26, 116, 66);

void screen(Painter& p, const QRectF& r = kScreen) {
    shape(p, rounded(r, 6), kPaper);
}

// A key of a remote control or a keyboard.
void keyCap(Painter& p) {
    shape(p, rounded(QRectF(8, 8, 112, 112), 22), kLight);
}

void triangle(Painter& p, QPointF a, QPointF b, QPointF c, const QColor& fill = kOrange) {
    shape(p, polygonPath({a, b, c}), fill);
}

void glyph(Painter& p, const QString& text, const QFont& font, const QRectF& r,
           const QColor& fill = kInk) {
    p.setFont(font);
    p.setPen(fill);
    p.drawText(r, Qt::AlignCenter, text);
}

QFont font(int pixelSize, bool bold = false, bool italic = false,
           const QString& family = "DejaVu Sans") {
    QFont f(family);
    f.setPixelSize(pixelSize);
    f.setBold(bold);
    f.setItalic(italic);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

// Layers: squares of which the orange one is the subject.
void layers(Painter& p, const QVector<QRectF>& squares, int subject) {
    for (int i = 0; i < squares.size(); ++i)
        shape(p, rounded(squares[i], 6), i == subject ? kOrange : kLight);
}

// A block arrow pointing up, turned by `angle` degrees about the centre.
void blockArrow(Painter& p, qreal angle) {
    p.save();
    p.translate(64, 64);
    p.rotate(angle);
    p.translate(-64, -64);
    shape(p, polygonPath({{64, 10}, {116, 64}, {84, 64}, {84, 118}, {44, 118}, {44, 64}, {12, 64}}),
          kOrange);
    p.restore();
}

void alignLines(Painter& p, Qt::Alignment alignment) {
    const qreal widths[] = {104, 72, 104, 56};
    for (int i = 0; i < 4; ++i) {
        const qreal w = alignment == Qt::AlignJustify ? 104 : widths[i];
        qreal x = 12;
        if (alignment == Qt::AlignHCenter)
            x = 64 - w / 2;
        else if (alignment == Qt::AlignRight)
            x = 116 - w;
        line(p, QPointF(x, 22 + i * 28), QPointF(x + w, 22 + i * 28), i % 2 ? kOrange : kInk, 12);
    }
}

// The emblem of the program: a sheet on an orange tile, with a play sign on it.
void emblem(Painter& p, const QRectF& r) {
    p.save();
    p.translate(r.topLeft());
    p.scale(r.width() / 128, r.height() / 128);
    shape(p, rounded(QRectF(4, 4, 120, 120), 26), kOrange, kOrangeDark);
    page(p, QRectF(30, 18, 68, 92));
    triangle(p, QPointF(50, 50), QPointF(80, 68), QPointF(50, 86));
    p.restore();
}

// The face of a remote-control colour key.
void colourKey(Painter& p, const QColor& colour) {
    shape(p, rounded(QRectF(10, 10, 108, 108), 54), colour, colour.darker(150));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 110));
    p.drawEllipse(QRectF(32, 22, 50, 30));
}

// The icons of the menus and panels, each in the 128 box.
struct Drawing {
    const char* name;
    void (*draw)(Painter&);
};

const Drawing kDrawings[] = {
    {"new",
     [](Painter& p) {
         page(p, QRectF(20, 8, 76, 104), kPaper, true);
         badge(p, true);
     }},
    {"open",
     [](Painter& p) {
         shape(p, polygonPath({{8, 20}, {46, 20}, {56, 32}, {116, 32}, {116, 108}, {8, 108}}),
               kOrangeDark);
         shape(p, polygonPath({{24, 52}, {124, 52}, {110, 108}, {8, 108}}), kOrange);
     }},
    {"save",
     [](Painter& p) {
         shape(p, rounded(QRectF(12, 12, 104, 104), 10), kOrange);
         shape(p, rounded(QRectF(34, 12, 60, 36), 3), kLight);
         shape(p, rounded(QRectF(72, 20, 12, 20), 2), kInk);
         shape(p, rounded(QRectF(28, 64, 72, 52), 3), kPaper);
         line(p, QPointF(40, 82), QPointF(88, 82), kGrey, 6);
         line(p, QPointF(40, 98), QPointF(88, 98), kGrey, 6);
     }},
    {"saveas",
     [](Painter& p) {
         shape(p, rounded(QRectF(8, 8, 88, 88), 9), kOrange);
         shape(p, rounded(QRectF(26, 8, 50, 30), 3), kLight);
         shape(p, rounded(QRectF(24, 54, 56, 42), 3), kPaper);
         pencil(p, QPointF(70, 118), QPointF(120, 68));
     }},
    {"exit",
     [](Painter& p) {
         shape(p, rounded(QRectF(14, 10, 60, 108), 4), kLight);
         shape(p, polygonPath({{14, 10}, {50, 22}, {50, 116}, {14, 118}}), kPaper);
         arrow(p, QPointF(56, 64), QPointF(122, 64));
     }},
    {"undo", [](Painter& p) { curvedArrow(p, QPointF(64, 66), 42, -30, 210); }},
    {"redo", [](Painter& p) { curvedArrow(p, QPointF(64, 66), 42, 210, -210); }},
    {"report",
     [](Painter& p) {
         QPainterPath bubble = rounded(QRectF(8, 12, 112, 80), 18);
         bubble.addPolygon(QPolygonF({QPointF(30, 88), QPointF(24, 118), QPointF(60, 88)}));
         shape(p, bubble.simplified(), kPaper);
         line(p, QPointF(64, 30), QPointF(64, 60), kOrange, 14);
         line(p, QPointF(64, 76), QPointF(64, 77), kOrange, 14);
     }},
    {"update",
     [](Painter& p) {
         curvedArrow(p, QPointF(64, 64), 44, 20, 150);
         curvedArrow(p, QPointF(64, 64), 44, 200, 150, kInk);
     }},
    {"play", [](Painter& p) { triangle(p, QPointF(34, 16), QPointF(112, 64), QPointF(34, 112)); }},
    {"pause",
     [](Painter& p) {
         shape(p, rounded(QRectF(28, 18, 26, 92), 5), kOrange);
         shape(p, rounded(QRectF(74, 18, 26, 92), 5), kOrange);
     }},
    {"seekBackward",
     [](Painter& p) {
         shape(p, rounded(QRectF(16, 22, 16, 84), 4), kOrange);
         triangle(p, QPointF(110, 22), QPointF(110, 106), QPointF(40, 64));
     }},
    {"seekForward",
     [](Painter& p) {
         shape(p, rounded(QRectF(96, 22, 16, 84), 4), kOrange);
         triangle(p, QPointF(18, 22), QPointF(18, 106), QPointF(88, 64));
     }},
    {"clock",
     [](Painter& p) {
         shape(p, rounded(QRectF(10, 10, 108, 108), 54), kPaper);
         for (int i = 0; i < 4; ++i) {
             p.save();
             p.translate(64, 64);
             p.rotate(90 * i);
             line(p, QPointF(0, -42), QPointF(0, -36), kGrey, 6);
             p.restore();
         }
         line(p, QPointF(64, 64), QPointF(64, 28), kOrange, 10);
         line(p, QPointF(64, 64), QPointF(90, 76), kOrange, 10);
     }},
    {"link",
     [](Painter& p) {
         p.translate(64, 64);
         p.rotate(-45);
         p.setBrush(Qt::NoBrush);
         p.setPen(ink(kInk, 12));
         p.drawRoundedRect(QRectF(-58, -18, 66, 36), 18, 18);
         p.setPen(ink(kOrange, 12));
         p.drawRoundedRect(QRectF(-8, -18, 66, 36), 18, 18);
     }},
    {"copy",
     [](Painter& p) {
         page(p, QRectF(10, 8, 68, 86), kLight);
         page(p, QRectF(48, 36, 68, 86), kPaper, true);
     }},
    {"paste",
     [](Painter& p) {
         shape(p, rounded(QRectF(16, 18, 96, 104), 10), kOrange);
         page(p, QRectF(32, 40, 64, 74), kPaper, true);
         shape(p, rounded(QRectF(42, 6, 44, 24), 6), kLight);
     }},
    {"del",
     [](Painter& p) {
         shape(p, rounded(QRectF(48, 8, 32, 18), 4), kLight);
         shape(p, polygonPath({{28, 34}, {100, 34}, {92, 120}, {36, 120}}), kOrange);
         line(p, QPointF(14, 30), QPointF(114, 30));
         for (qreal x : {50.0, 64.0, 78.0})
             line(p, QPointF(x, 50), QPointF(x, 104), kPaper, 6);
     }},
    {"rename",
     [](Painter& p) {
         shape(p, rounded(QRectF(6, 34, 116, 60), 8), kPaper);
         glyph(p, "Ab", font(44, true), QRectF(10, 34, 76, 60));
         line(p, QPointF(98, 24), QPointF(98, 104), kOrange, 8);
         line(p, QPointF(88, 24), QPointF(108, 24), kOrange, 8);
         line(p, QPointF(88, 104), QPointF(108, 104), kOrange, 8);
     }},
    {"change",
     [](Painter& p) {
         arrow(p, QPointF(14, 42), QPointF(116, 42));
         arrow(p, QPointF(114, 88), QPointF(12, 88), kInk);
     }},
    {"editText",
     [](Painter& p) {
         page(p, QRectF(10, 8, 78, 108), kPaper, true);
         pencil(p, QPointF(66, 116), QPointF(120, 58));
     }},
    {"bringForward",
     [](Painter& p) {
         layers(p, {QRectF(12, 12, 70, 70), QRectF(46, 46, 70, 70)}, 1);
     }},
    {"sendBackward",
     [](Painter& p) {
         layers(p, {QRectF(46, 46, 70, 70), QRectF(12, 12, 70, 70)}, 0);
     }},
    {"bringToFront",
     [](Painter& p) {
         layers(p, {QRectF(8, 8, 58, 58), QRectF(62, 62, 58, 58), QRectF(35, 35, 58, 58)}, 2);
     }},
    {"sendToBack",
     [](Painter& p) {
         layers(p, {QRectF(35, 35, 58, 58), QRectF(8, 8, 58, 58), QRectF(62, 62, 58, 58)}, 0);
     }},
    {"up", [](Painter& p) { blockArrow(p, 0); }},
    {"down", [](Painter& p) { blockArrow(p, 180); }},
    {"insert",
     [](Painter& p) {
         screen(p, QRectF(6, 52, 116, 68));
         shape(p, polygonPath({{64, 96}, {96, 60}, {76, 60}, {76, 6}, {52, 6}, {52, 60}, {32, 60}}),
               kOrange);
     }},
    {"import",
     [](Painter& p) {
         p.setBrush(kLight);
         p.setPen(ink());
         p.drawPolygon(
             QPolygonF({QPointF(8, 72), QPointF(36, 72), QPointF(44, 88), QPointF(84, 88),
                        QPointF(92, 72), QPointF(120, 72), QPointF(120, 120), QPointF(8, 120)}));
         shape(p, polygonPath({{64, 84}, {94, 50}, {76, 50}, {76, 6}, {52, 6}, {52, 50}, {34, 50}}),
               kOrange);
     }},
    {"layout",
     [](Painter& p) {
         screen(p);
         shape(p, rounded(QRectF(14, 34, 100, 12), 2), kOrange);
         shape(p, rounded(QRectF(14, 52, 58, 32), 2), kOrangeLight);
         shape(p, rounded(QRectF(78, 52, 36, 32), 2), kLight);
     }},
    {"width",
     [](Painter& p) {
         line(p, QPointF(12, 24), QPointF(12, 104));
         line(p, QPointF(116, 24), QPointF(116, 104));
         line(p, QPointF(40, 64), QPointF(88, 64), kOrange, 12);
         arrowHead(p, QPointF(22, 64), QPointF(-1, 0), 26, kOrange);
         arrowHead(p, QPointF(106, 64), QPointF(1, 0), 26, kOrange);
     }},
    {"height",
     [](Painter& p) {
         line(p, QPointF(24, 12), QPointF(104, 12));
         line(p, QPointF(24, 116), QPointF(104, 116));
         line(p, QPointF(64, 40), QPointF(64, 88), kOrange, 12);
         arrowHead(p, QPointF(64, 22), QPointF(0, -1), 26, kOrange);
         arrowHead(p, QPointF(64, 106), QPointF(0, 1), 26, kOrange);
     }},
    {"X",
     [](Painter& p) {
         glyph(p, "X", font(84, true), QRectF(0, 0, 128, 96));
         arrow(p, QPointF(14, 112), QPointF(118, 112), kOrange, 10);
     }},
    {"Y",
     [](Painter& p) {
         glyph(p, "Y", font(84, true), QRectF(0, 8, 96, 112));
         arrow(p, QPointF(112, 10), QPointF(112, 120), kOrange, 10);
     }},
    {"hover",
     [](Painter& p) {
         p.setBrush(kOrangeLight);
         p.setPen(ink(kOrange, 6));
         p.drawRoundedRect(QRectF(6, 6, 96, 80), 8, 8);
         shape(p, rounded(QRectF(18, 18, 72, 56), 4), kPaper);
         shape(p,
               polygonPath(
                   {{62, 46}, {62, 118}, {78, 102}, {90, 124}, {102, 118}, {90, 96}, {112, 96}}),
               kPaper);
     }},
    {"fillColor",
     [](Painter& p) {
         // A tipped pail pouring paint.
         p.save();
         p.translate(50, 48);
         p.rotate(-40);
         p.setBrush(Qt::NoBrush);
         p.setPen(ink());
         p.drawArc(QRectF(-26, -52, 52, 48), 0, 180 * 16);
         shape(p, polygonPath({{-32, -24}, {32, -24}, {24, 34}, {-24, 34}}), kLight);
         p.restore();
         shape(p, rounded(QRectF(92, 30, 20, 56), 10), kOrange, kOrange);
         shape(p, rounded(QRectF(6, 96, 116, 26), 4), kOrange);
     }},
    {"outlineColor",
     [](Painter& p) {
         p.setBrush(Qt::NoBrush);
         p.setPen(QPen(kOrange, 14, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
         p.drawRect(QRectF(14, 14, 80, 80));
         pencil(p, QPointF(66, 120), QPointF(122, 64));
     }},
    {"null",
     [](Painter& p) {
         shape(p, rounded(QRectF(10, 10, 108, 108), 6), kPaper);
         line(p, QPointF(22, 106), QPointF(106, 22), kNone, 10);
     }},
    {"negrito", [](Painter& p) { glyph(p, "B", font(112, true), QRectF(0, 0, 128, 128)); }},
    {"italico", [](Painter& p) { glyph(p, "I", font(112, true, true), QRectF(0, 0, 128, 128)); }},
    {"sublinhado",
     [](Painter& p) {
         glyph(p, "U", font(96, true), QRectF(0, 0, 128, 108));
         line(p, QPointF(24, 116), QPointF(104, 116), kOrange, 10);
     }},
    {"textJustify", [](Painter& p) { alignLines(p, Qt::AlignJustify); }},
    {"textLeft", [](Painter& p) { alignLines(p, Qt::AlignLeft); }},
    {"textMiddle", [](Painter& p) { alignLines(p, Qt::AlignHCenter); }},
    {"textRight", [](Painter& p) { alignLines(p, Qt::AlignRight); }},
    {"red", [](Painter& p) { colourKey(p, QColor(220, 40, 40)); }},
    {"green", [](Painter& p) { colourKey(p, QColor(40, 170, 70)); }},
    {"yellow", [](Painter& p) { colourKey(p, QColor(240, 200, 30)); }},
    {"blue", [](Painter& p) { colourKey(p, QColor(40, 100, 210)); }},
    {"enter",
     [](Painter& p) {
         keyCap(p);
         p.setBrush(Qt::NoBrush);
         p.setPen(ink(kOrange, 12));
         p.drawPolyline(QPolygonF({QPointF(94, 30), QPointF(94, 78), QPointF(54, 78)}));
         arrowHead(p, QPointF(30, 78), QPointF(-1, 0), 28, kOrange);
     }},
    {"cursor_up",
     [](Painter& p) {
         keyCap(p);
         triangle(p, QPointF(64, 32), QPointF(96, 88), QPointF(32, 88));
     }},
    {"cursor_down",
     [](Painter& p) {
         keyCap(p);
         triangle(p, QPointF(64, 96), QPointF(96, 40), QPointF(32, 40));
     }},
    {"cursor_left",
     [](Painter& p) {
         keyCap(p);
         triangle(p, QPointF(32, 64), QPointF(88, 32), QPointF(88, 96));
     }},
    {"cursor_right",
     [](Painter& p) {
         keyCap(p);
         triangle(p, QPointF(96, 64), QPointF(40, 32), QPointF(40, 96));
     }},
};

// The large icons of the toolbar and the placeholders, numbered as the program names them. They
// also come in greys.
const Drawing kNumbered[] = {
    // Add a scene.
    {"01",
     [](Painter& p) {
         screen(p, QRectF(4, 14, 108, 64));
         picture(p, QRectF(16, 24, 56, 44));
         badge(p, true);
     }},
    // Remove a scene.
    {"02",
     [](Painter& p) {
         screen(p, QRectF(4, 14, 108, 64));
         picture(p, QRectF(16, 24, 56, 44));
         badge(p, false);
     }},
    // A template: regions waiting to be filled.
    {"03",
     [](Painter& p) {
         screen(p, QRectF(4, 24, 120, 80));
         p.setPen(QPen(kInk, 4, Qt::DashLine));
         p.setBrush(kOrangeLight);
         p.drawRect(QRectF(14, 34, 60, 60));
         p.setBrush(kLight);
         p.drawRect(QRectF(82, 34, 32, 26));
         p.drawRect(QRectF(82, 68, 32, 26));
     }},
    // Video: a film strip with a play sign.
    {"04",
     [](Painter& p) {
         shape(p, rounded(QRectF(6, 22, 116, 84), 8), kInk);
         p.setPen(Qt::NoPen);
         p.setBrush(kPaper);
         for (int i = 0; i < 6; ++i) {
             p.drawRect(QRectF(16 + i * 18, 28, 9, 9));
             p.drawRect(QRectF(16 + i * 18, 91, 9, 9));
         }
         triangle(p, QPointF(50, 44), QPointF(86, 64), QPointF(50, 84));
     }},
    // Image.
    {"05", [](Painter& p) { picture(p, QRectF(8, 18, 112, 92)); }},
    // Audio: two beamed notes.
    {"06",
     [](Painter& p) {
         line(p, QPointF(46, 94), QPointF(46, 26), kInk, 9);
         line(p, QPointF(108, 82), QPointF(108, 14), kInk, 9);
         shape(p, polygonPath({{42, 20}, {112, 6}, {112, 26}, {42, 40}}), kInk);
         p.save();
         p.translate(30, 98);
         p.rotate(-20);
         shape(p, rounded(QRectF(-20, -14, 40, 28), 14), kOrange);
         p.restore();
         p.save();
         p.translate(92, 86);
         p.rotate(-20);
         shape(p, rounded(QRectF(-20, -14, 40, 28), 14), kOrange);
         p.restore();
     }},
    // Complements: a puzzle piece.
    {"08",
     [](Painter& p) {
         QPainterPath piece;
         piece.setFillRule(Qt::WindingFill);
         piece.addRect(QRectF(18, 34, 76, 76));
         piece.addEllipse(QPointF(56, 30), 16, 16);
         piece.addEllipse(QPointF(98, 72), 16, 16);
         QPainterPath notch;
         notch.addEllipse(QPointF(22, 72), 14, 14);
         shape(p, piece.simplified().subtracted(notch), kOrange);
     }},
    // Text.
    {"09",
     [](Painter& p) {
         QPainterPath letter;
         letter.addText(0, 0, font(104, true), "T");
         const QRectF b = letter.boundingRect();
         letter.translate(64 - b.center().x(), 58 - b.center().y());
         shape(p, letter, kOrange);
         line(p, QPointF(14, 114), QPointF(114, 114), kInk, 8);
     }},
    // Shape: a square, a circle and a triangle.
    {"10",
     [](Painter& p) {
         shape(p, rounded(QRectF(8, 8, 62, 62), 3), kLight);
         shape(p, rounded(QRectF(56, 56, 64, 64), 32), kOrange);
         triangle(p, QPointF(34, 62), QPointF(66, 120), QPointF(4, 120), kOrangeLight);
     }},
    // View the project: an eye.
    {"11",
     [](Painter& p) {
         QPainterPath eye;
         eye.moveTo(6, 64);
         eye.quadTo(64, -4, 122, 64);
         eye.quadTo(64, 132, 6, 64);
         shape(p, eye, kPaper);
         shape(p, rounded(QRectF(40, 40, 48, 48), 24), kOrange);
         shape(p, rounded(QRectF(56, 56, 16, 16), 8), kInk);
     }},
    // Publish: a cloud and an arrow going up.
    {"12",
     [](Painter& p) {
         QPainterPath cloud;
         cloud.setFillRule(Qt::WindingFill);
         cloud.addEllipse(QPointF(36, 72), 28, 26);
         cloud.addEllipse(QPointF(68, 52), 38, 36);
         cloud.addEllipse(QPointF(98, 76), 24, 22);
         cloud.addRect(QRectF(36, 72, 62, 26));
         shape(p, cloud.simplified(), kPaper);
         shape(
             p,
             polygonPath({{66, 34}, {94, 66}, {77, 66}, {77, 122}, {55, 122}, {55, 66}, {38, 66}}),
             kOrange);
     }},
};

QColor regionColour(int order) {
    switch (order) {
    case 1:
        return QColor(247, 150, 70);
    case 2:
        return QColor(75, 172, 198);
    case 3:
        return QColor(238, 239, 70);
    case 4:
        return QColor(71, 220, 87);
    case 5:
        return QColor(73, 209, 163);
    case 6:
        return QColor(237, 28, 36);
    case 7:
        return QColor(163, 73, 164);
    default:
        return QColor(Qt::lightGray);
    }
}

// A layout: the canvas with its regions in the colours of their order, as the placeholders show
// them.
void drawLayout(Painter& p, Definitions::kLayoutType type) {
    const QRectF canvas(4, 28, 120, 67.5);
    shape(p, rounded(canvas.adjusted(-2, -2, 2, 2), 3), kPaper);
    p.setPen(QPen(kInk, 1.5));
    for (const spatialview::LayoutRegion& region : spatialview::LayoutItem::regions(type)) {
        QColor colour = regionColour(region.order);
        colour.setAlpha(204);
        p.setBrush(colour);
        p.drawRect(QRectF(canvas.left() + region.left * canvas.width(),
                          canvas.top() + region.top * canvas.height(),
                          region.width * canvas.width(), region.height * canvas.height()));
    }
}

// A shape as the canvas draws it, filling the box but for a margin.
void drawShape(Painter& p, Definitions::kShapeType type) {
    const qreal margin = 4;
    p.translate(margin, margin);
    const QPen pen(kInk, kStroke, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    spatialview::ShapeGeometry::paintInBounds(
        &p, type, QRectF(0, 0, 128 - 2 * margin, 128 - 2 * margin), pen, kOrangeLight);
}

// An outline width: its name over a line of that width, at twice the point size.
void drawOutlineWidth(Painter& p, int index) {
    const QString name = Definitions::getkOutlineWidthLegend(index);
    glyph(p, name, font(30, true), QRectF(0, 4, 128, 48));
    const qreal width =
        spatialview::ShapeGeometry::penWidth(static_cast<Definitions::kOutlineWidth>(index)) * 4;
    p.setPen(QPen(kOrange, width, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(10, 88), QPointF(118, 88));
}

void drawSplash(Painter& p) {
    const QRectF all(0, 0, 600, 360);
    QLinearGradient background(0, 0, 0, 360);
    background.setColorAt(0, kPaper);
    background.setColorAt(1, QColor(236, 236, 236));
    p.fillRect(all, background);
    p.fillRect(QRectF(0, 336, 600, 24), kOrange);
    emblem(p, QRectF(40, 90, 170, 170));
    glyph(p, "Selvorá", font(76, true), QRectF(230, 96, 350, 100));
    glyph(p, "Autoria de objetos de aprendizagem", font(19), QRectF(230, 196, 350, 32), kGrey);
    glyph(p, "multimídia e interativos", font(19), QRectF(230, 224, 350, 32), kGrey);
}

void turnGrey(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            // Lighter than plain luminance, so that the grey icons sit quietly on a region.
            const int grey = 60 + qGray(row[x]) * 170 / 255;
            row[x] = qRgba(grey, grey, grey, qAlpha(row[x]));
        }
    }
}

} // namespace

QVector<Icon> IconCatalogue::all() {
    QVector<Icon> icons;
    const QSize large(128, 128);
    icons.append({"icone", QSize(256, 256), [](Painter& p) { emblem(p, QRectF(0, 0, 128, 128)); }});
    icons.append({"splash_screen", QSize(600, 360), drawSplash, false});
    icons.append({"slide", QSize(80, 124), [](Painter& p) {
                      shape(p, rounded(QRectF(6, 6, 116, 116), 8), kPaper);
                      picture(p, QRectF(18, 18, 92, 52));
                      for (qreal y : {84.0, 100.0})
                          line(p, QPointF(20, y), QPointF(108, y), kGrey, 6);
                  }});
    for (const Drawing& drawing : kDrawings)
        icons.append({drawing.name, large, drawing.draw});
    for (const Drawing& drawing : kNumbered) {
        const QString name = QString("icones-Selvora_%1").arg(drawing.name);
        icons.append({name, large, drawing.draw});
        icons.append({name + "-gray", large, drawing.draw, true, true});
    }
    for (int i = 0; i < Definitions::kShapeCount; ++i) {
        const auto type = static_cast<Definitions::kShapeType>(i);
        icons.append({Definitions::getkShapeTypeLegend(i), large,
                      [type](Painter& p) { drawShape(p, type); }});
    }
    for (int i = 0; i < Definitions::kLayoutCount; ++i) {
        const auto type = static_cast<Definitions::kLayoutType>(i);
        icons.append(
            {QString("layout%1").arg(i + 1), large, [type](Painter& p) { drawLayout(p, type); }});
    }
    for (int i = 0; i < 9; ++i)
        icons.append({Definitions::getkOutlineWidthLegend(i), large,
                      [i](Painter& p) { drawOutlineWidth(p, i); }});
    return icons;
}

QVector<Icon> IconCatalogue::hicolor() {
    QVector<Icon> icons;
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icons.append({QString("%1x%1/apps/selvora").arg(size), QSize(size, size),
                      [](Painter& p) { emblem(p, QRectF(0, 0, 128, 128)); }});
    return icons;
}

QImage IconCatalogue::render(const Icon& icon) {
    QImage image(icon.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setRenderHint(QPainter::TextAntialiasing, true);
        if (icon.unitBox)
            painter.scale(icon.size.width() / 128.0, icon.size.height() / 128.0);
        icon.draw(painter);
    }
    image = image.convertToFormat(QImage::Format_ARGB32);
    if (icon.grey)
        turnGrey(image);
    return image;
}

QImage IconCatalogue::contactSheet(const QVector<Icon>& icons) {
    // Each cell shows the icon as a list shows it (48) and as a sub-button does (19), on white
    // and on the grey of the tool bars.
    const int columns = 8;
    const QSize cell(180, 96);
    const int rows = (icons.size() + columns - 1) / columns;
    QImage sheet(columns * cell.width(), rows * cell.height() + 40, QImage::Format_ARGB32);
    sheet.fill(kPaper);
    QPainter p(&sheet);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::SmoothPixmapTransform, true);
    glyph(p, QString("Selvorá: %1 imagens de :/imagens/").arg(icons.size()), font(18, true),
          QRectF(0, 0, sheet.width(), 40));
    for (int i = 0; i < icons.size(); ++i) {
        const QPoint origin((i % columns) * cell.width(), 40 + (i / columns) * cell.height());
        const QImage image = render(icons[i]);
        p.fillRect(QRect(origin + QPoint(116, 8), QSize(56, 56)), QColor(240, 240, 240));
        const QSize big = image.size().scaled(48, 48, Qt::KeepAspectRatio);
        const QSize small = image.size().scaled(19, 19, Qt::KeepAspectRatio);
        p.drawImage(QRect(origin + QPoint(10 + (48 - big.width()) / 2, 12), big), image);
        p.drawImage(QRect(origin + QPoint(76, 26), small), image);
        p.drawImage(QRect(origin + QPoint(120 + (48 - big.width()) / 2, 12), big), image);
        glyph(p, icons[i].name, font(13), QRectF(origin + QPoint(4, 66), QSizeF(172, 24)));
    }
    return sheet;
}

} // namespace tools
} // namespace selvora
