#include "spatialview/ShapeItem.h"

#include "spatialview/MediaPicture.h"
#include "spatialview/ShapeGeometry.h"
#include "spatialview/TextEdit.h"
#include "spatialview/WordingPainter.h"

#include <QImage>
#include <QPainter>
#include <QTimer>

namespace selvora {
namespace spatialview {

namespace {
// What a colour that cannot be read becomes: the default fill, and black lines.
const QColor kDefaultFill(255, 127, 0, 255);
} // namespace

ShapeItem::ShapeItem(int id, int layer, float transparency, QString hover,
                     Definitions::kShapeType shapeType, QString colorFont, QString colorFill,
                     QString colorOutline, Definitions::kOutlineStyle outlineStyle,
                     Definitions::kOutlineWidth outlineWidth, QString fontFamily, QString fontSize,
                     QString alignment, const QString& text, document::Scene* scene,
                     QWidget* widget, Definitions::kSpatialResizingType kind, QGraphicsItem* parent)
    : WordingItem(id, layer, transparency, hover, colorFont, fontFamily, fontSize, alignment, text,
                  scene, widget, kind, parent),
      shapeType_(shapeType), outlineStyle_(outlineStyle), outlineWidth_(outlineWidth) {
    setColorFill(colorFill);
    setColorOutline(colorOutline);
}

QPen ShapeItem::pen() const {
    return QPen(colorOutline_, ShapeGeometry::penWidth(outlineWidth_),
                ShapeGeometry::penStyle(outlineStyle_));
}

void ShapeItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    const QRectF b = boundingRect();
    const QPen outline = pen();
    const qreal pw = outline.widthF();
    shapeRect_ = ShapeGeometry::shapeRect(b, pw);
    QPen figurePen = outline;
    int pixelSize = getFontSize();
    if (hover().isHovering()) {
        if (hover().apply(this, QSizeF(b.width() + 1.1 * pw, b.height() + 1.1 * pw)))
            QTimer::singleShot(500, this, &ShapeItem::hoverLeave);
        pixelSize += 2 * hover().growthSign();
        // The figure's own outline thickens, not a frame around the item.
        if (hover().drawsBorder())
            figurePen.setWidth(int(pw + 5));
    }
    if (hover().settle(this))
        shapeRect_ = hover().startRect();

    painter->save();
    ShapeGeometry::paint(painter, shapeType_, shapeRect_, figurePen, colorFill_, pw);
    const QRectF s = shapeRect_;
    painter->setClipRect(b, Qt::IntersectClip);
    WordingPainter::draw(
        painter, QRectF(s.x() + 20, s.y() + 20, s.width() + s.x() - 40, s.height() + s.y() - 40),
        getText(), drawingFont(pixelSize), colorFont(), getAlignment(), b.height());
    painter->restore();
    painter->setBrush(Qt::transparent);
    SpatialResizingMedia::paint(painter, option, widget);
}

QImage ShapeItem::picture() const {
    const QSize size = boundingRect().size().toSize();
    QImage image = MediaPicture::blank(size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds = boundingRect();
    ShapeGeometry::paintInBounds(&painter, shapeType_, bounds, pen(), colorFill_);
    // The bottom margin of the picture is 12, not the canvas's 40.
    WordingPainter::draw(&painter,
                         QRectF(bounds.x() + 20, bounds.y() + 20, bounds.x() + bounds.width() - 40,
                                bounds.y() + bounds.height() - 12),
                         getText(), drawingFont(getFontSize()), colorFont(), getAlignment(),
                         size.height());
    painter.end();
    return image;
}

QRect ShapeItem::editorRect(const QPoint& g) const {
    const QRectF b = boundingRect();
    return QRect(g.x() + 14, g.y() + 15, int(b.width() - 34), int(b.height() - 34));
}

QRectF ShapeItem::hoverRect() const {
    return ShapeGeometry::shapeRect(boundingRect(), pen().widthF());
}

QVariant ShapeItem::itemChange(GraphicsItemChange change, const QVariant& value) {
    const QVariant result = WordingItem::itemChange(change, value);
    TextEdit* editor = getTextEdit();
    if (!editor)
        return result;
    if (change == ItemPositionChange && editor->isVisible())
        placeEditor(result.toPointF(), shapeRect_);
    else if (change == ItemOpacityChange && shapeRect_.height() != 0)
        editor->updateGeometry();
    return result;
}

void ShapeItem::setColorFill(const QString& name) {
    colorFill_ = WordingPainter::colorOf(name, Qt::transparent, kDefaultFill);
    update();
}

void ShapeItem::setColorOutline(const QString& name) {
    colorOutline_ = WordingPainter::colorOf(name, Qt::transparent, Qt::black);
    update();
}

void ShapeItem::setOutlineStyle(Definitions::kOutlineStyle style) {
    outlineStyle_ = style;
    update();
}

void ShapeItem::setOutlineWidth(Definitions::kOutlineWidth width) {
    outlineWidth_ = width;
    update();
}

void ShapeItem::setShapeType(Definitions::kShapeType type) {
    shapeType_ = type;
    update();
}

} // namespace spatialview
} // namespace selvora
