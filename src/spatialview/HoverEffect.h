#ifndef SELVORA_SPATIALVIEW_HOVEREFFECT_H
#define SELVORA_SPATIALVIEW_HOVEREFFECT_H

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QGraphicsItem;

namespace selvora {
namespace spatialview {

// The effect that a published object plays while the pointer rests on a media, shown on the
// canvas while the scene plays. One state machine for every media item: idle, hovering, ended
// (undone at the next paint), idle again.
class HoverEffect {
public:
    // The kind as the "hover" property holds it: a decimal kHoverType, or empty for none.
    void setKind(const QString& kind) { kind_ = kind; }
    QString kind() const { return kind_; }

    bool isHovering() const { return hovering_; }
    bool hasEnded() const { return ended_; }
    // Where the item stood and what it covered when the hover began.
    QPointF startPos() const { return startPos_; }
    QRectF startRect() const { return startRect_; }

    // The pointer came in: an effect starts only while the scene plays and a kind is set.
    bool enter(const QPointF& pos, const QRectF& rect, bool playing);
    // The pointer left, or a bounce is over: the item goes back where it stood. False when no
    // effect was on.
    bool leave(QGraphicsItem* item);

    // Applies the effect to the item at a paint. A grow or shrink moves the item by a twentieth
    // of `growth` on each axis, so that it keeps its centre. True when the effect is a bounce
    // ("push", "pop"), whose end the caller times.
    bool apply(QGraphicsItem* item, const QSizeF& growth) const;
    // +1 while an effect makes the item larger, -1 smaller, 0 otherwise.
    int growthSign() const;
    // True while the effect is a thicker outline.
    bool drawsBorder() const;
    // At the first paint after the end: scale back. True once per hover.
    bool settle(QGraphicsItem* item);

private:
    int kindValue() const;

    QString kind_;
    QPointF startPos_;
    QRectF startRect_;
    bool hovering_ = false;
    bool ended_ = false;
};

} // namespace spatialview
} // namespace selvora

#endif
