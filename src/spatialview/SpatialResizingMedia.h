#ifndef SELVORA_SPATIALVIEW_SPATIALRESIZINGMEDIA_H
#define SELVORA_SPATIALVIEW_SPATIALRESIZINGMEDIA_H

#include "app/Definitions.h"

#include <QGraphicsItem>
#include <QHash>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

class QGraphicsRectItem;

namespace selvora {
namespace spatialview {

// Base of every item on a canvas: its own rectangle, eight resize handles, a dashed outline
// while focused, dragging kept inside the canvas, and the event that tells the view a gesture
// has ended.
class SpatialResizingMedia : public QGraphicsItem {
public:
    SpatialResizingMedia(int id, Definitions::kSpatialResizingType kind,
                         QGraphicsItem* parent = nullptr, int templateId = -1);
    ~SpatialResizingMedia() override;

    enum { Type = QGraphicsItem::UserType + 1 };

    // Gives the item its size (the position of the argument is ignored); an item is never born
    // larger than the canvas.
    virtual void init(const QRectF& rect);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;
    int type() const override { return Type; }

    void createCorners();
    void updateCornersPos();
    void showCorners();
    void showFocusItemCorners();
    void hideCorners();
    void showFocusItem(bool show);
    void notifyResizing(const QRectF& rect);

    int getId() const { return id_; }
    int getTemplateId() const { return templateId_; }
    Definitions::kSpatialResizingType getKind() const { return kind_; }
    QRectF getRect() const { return rect_; }
    // Model to item: a new size, keeping the position.
    void setSize(const QSizeF& size);
    // Scratch hash that the canvas fills before writing to the model.
    QHash<QString, QString>& getProperties() { return properties_; }

protected:
    bool sceneEvent(QEvent* event) override;
    bool sceneEventFilter(QGraphicsItem* watched, QEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    // Posts the end of a gesture to the widget that holds the scene's first view.
    void postToView();
    // What stands in an item whose file is missing or unreadable: never an empty hole.
    static void paintPlaceholder(QPainter* painter, const QRectF& rect);

private:
    // The eight handles in their order; empty before init.
    QVector<QGraphicsRectItem*> corners() const;
    bool isCorner(const QGraphicsItem* item) const;
    void installFilters();
    bool resizeByCorner(QGraphicsItem* corner, const QGraphicsSceneMouseEvent* event);

    QHash<QString, QString> properties_;
    int id_;
    int templateId_;
    bool showFocus_ = false;
    QPointF pressScenePos_;
    QPointF pressCursorPos_;
    Definitions::kSpatialResizingType kind_;
    QRectF rect_;
    QGraphicsRectItem* topLeft_ = nullptr;
    QGraphicsRectItem* topRight_ = nullptr;
    QGraphicsRectItem* bottomLeft_ = nullptr;
    QGraphicsRectItem* bottomRight_ = nullptr;
    QGraphicsRectItem* topMiddle_ = nullptr;
    QGraphicsRectItem* bottomMiddle_ = nullptr;
    QGraphicsRectItem* leftMiddle_ = nullptr;
    QGraphicsRectItem* rightMiddle_ = nullptr;

    // The mouse move that is moving the item's body, if any: its modifiers and global cursor
    // choose the axis of a Shift drag.
    bool inBodyMove_ = false;
    Qt::KeyboardModifiers moveModifiers_;
    QPointF moveCursorPos_;
};

} // namespace spatialview
} // namespace selvora

#endif
