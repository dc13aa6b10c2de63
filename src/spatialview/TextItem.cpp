#include "spatialview/TextItem.h"

#include "spatialview/MediaPicture.h"
#include "spatialview/TextEdit.h"
#include "spatialview/WordingPainter.h"

#include <QImage>
#include <QPainter>
#include <QPen>
#include <QTimer>

namespace selvora {
namespace spatialview {

TextItem::TextItem(int id, int layer, float transparency, QString hover, QString colorFont,
                   QString fontFamily, QString fontSize, QString alignment, const QString& text,
                   document::Scene* scene, QWidget* widget, Definitions::kSpatialResizingType kind,
                   QGraphicsItem* parent)
    : WordingItem(id, layer, transparency, hover, colorFont, fontFamily, fontSize, alignment, text,
                  scene, widget, kind, parent) {
    connect(getTextEdit(), &TextEdit::geometryChanged, this, &TextItem::changeGeometry);
}

QRectF TextItem::wordingRect(const QRectF& b) {
    return QRectF(b.x() + 12, b.y() + 12, b.width() + b.x() - 23, b.height() + b.y() - 12);
}

void TextItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    textRect_ = boundingRect();
    if (hover().apply(this, boundingRect().size()))
        QTimer::singleShot(500, this, &TextItem::hoverLeave);
    hover().settle(this);

    painter->save();
    // Wording that overflows stays inside the item, which is all the canvas repaints.
    painter->setClipRect(boundingRect(), Qt::IntersectClip);
    WordingPainter::draw(painter, wordingRect(textRect_), getText(), drawingFont(getFontSize()),
                         colorFont(), getAlignment(), textRect_.height());
    painter->restore();
    if (hover().drawsBorder()) {
        painter->save();
        QPen pen;
        pen.setWidth(5);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(hover().startRect());
        painter->restore();
    }
    SpatialResizingMedia::paint(painter, option, widget);
}

QImage TextItem::picture() const {
    // An empty wording has no picture: the save goes on without it.
    if (getText().trimmed().isEmpty())
        return QImage();
    const QSize size = boundingRect().size().toSize();
    QImage image = MediaPicture::blank(size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    WordingPainter::draw(&painter, wordingRect(QRectF(QPointF(0, 0), size)), getText(),
                         drawingFont(getFontSize()), colorFont(), getAlignment(), size.height());
    painter.end();
    return image;
}

QRect TextItem::editorRect(const QPoint& g) const {
    const QRectF b = boundingRect();
    return QRect(g.x() + 6, g.y() + 6, int(b.width() - 18), int(b.height() - 18));
}

void TextItem::changeGeometry(int height) {
    prepareGeometryChange();
    setSize(QSizeF(boundingRect().width(), std::max(height, 1)));
    setPos(pos());
    update();
}

bool TextItem::takeEmptyWording(const QString& text) {
    if (!text.isEmpty() || deleted_)
        return false;
    deleted_ = true;
    // Queued: the answer to the removal question may delete this item, which must not happen
    // under its own event handler.
    QMetaObject::invokeMethod(this, &TextItem::deleteItem, Qt::QueuedConnection);
    return true;
}

QVariant TextItem::itemChange(GraphicsItemChange change, const QVariant& value) {
    const QVariant result = WordingItem::itemChange(change, value);
    TextEdit* editor = getTextEdit();
    if (!editor)
        return result;
    if (change == ItemPositionChange) {
        if (editor->isVisible())
            placeEditor(result.toPointF(), boundingRect());
    } else {
        editor->updateGeometry();
    }
    return result;
}

void TextItem::focusInEvent(QFocusEvent* event) {
    WordingItem::focusInEvent(event);
    deleted_ = false;
}

} // namespace spatialview
} // namespace selvora
