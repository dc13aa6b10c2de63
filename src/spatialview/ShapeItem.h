#ifndef SELVORA_SPATIALVIEW_SHAPEITEM_H
#define SELVORA_SPATIALVIEW_SHAPEITEM_H

#include "spatialview/WordingItem.h"

#include <QColor>
#include <QImage>
#include <QObject>
#include <QPen>
#include <QString>

class QWidget;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The item of a shape media: one of the 52 figures of ShapeGeometry with fill, outline and an
// optional wording inside, drawn on the canvas and into the picture that the export uses.
class ShapeItem : public WordingItem {
    Q_OBJECT
public:
    ShapeItem(int id, int layer, float transparency, QString hover,
              Definitions::kShapeType shapeType, QString colorFont, QString colorFill,
              QString colorOutline, Definitions::kOutlineStyle outlineStyle,
              Definitions::kOutlineWidth outlineWidth, QString fontFamily, QString fontSize,
              QString alignment, const QString& text, document::Scene* scene, QWidget* widget,
              Definitions::kSpatialResizingType kind =
                  Definitions::kSpatialResizingType::spatialResizingMedia,
              QGraphicsItem* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    // The rectangle in which the figure was last drawn.
    QRectF rect() const { return shapeRect_; }
    QColor color() const { return colorFill_; }
    QColor colorOutline() const { return colorOutline_; }
    Definitions::kShapeType shapeType() const { return shapeType_; }
    QPen pen() const;

    void setColorFill(const QString& name);
    void setColorOutline(const QString& name);
    void setOutlineStyle(Definitions::kOutlineStyle style);
    void setOutlineWidth(Definitions::kOutlineWidth width);
    void setShapeType(Definitions::kShapeType type);
    // The shape's picture, with a transparent background; null for a zero-size item.
    QImage picture() const override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    QRect editorRect(const QPoint& global) const override;
    QRectF hoverRect() const override;

private:
    Definitions::kShapeType shapeType_;
    QRectF shapeRect_;
    QColor colorFill_;
    QColor colorOutline_;
    Definitions::kOutlineStyle outlineStyle_;
    Definitions::kOutlineWidth outlineWidth_;
};

} // namespace spatialview
} // namespace selvora

#endif
