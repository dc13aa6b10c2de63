#include "spatialview/HoverEffect.h"

#include "app/Definitions.h"

#include <QGraphicsItem>

namespace selvora {
namespace spatialview {

namespace {

using Hover = Definitions::kHoverType;

// What each kind does: the scale it sets (0 for none), the sign of the move that keeps the
// centre, the share of the start rectangle by which it shifts, and whether it bounces back.
struct HoverRow {
    Hover kind;
    qreal scale;
    int growth;
    qreal shiftX;
    qreal shiftY;
    bool bounce;
};

constexpr HoverRow kRows[] = {
    {Hover::grow, 1.1, 1, 0, 0, false},       {Hover::shrink, 0.9, -1, 0, 0, false},
    {Hover::push, 0.9, -1, 0, 0, true},       {Hover::pop, 1.1, 1, 0, 0, true},
    {Hover::floatUp, 0, 0, 0, -0.15, false},  {Hover::sink, 0, 0, 0, 0.15, false},
    {Hover::backward, 0, 0, -0.15, 0, false}, {Hover::forward, 0, 0, 0.15, 0, false},
};

const HoverRow* rowOf(int kind) {
    for (const HoverRow& row : kRows)
        if (static_cast<int>(row.kind) == kind)
            return &row;
    return nullptr;
}

} // namespace

int HoverEffect::kindValue() const {
    bool ok = false;
    const int kind = kind_.toInt(&ok);
    return ok ? kind : -1;
}

bool HoverEffect::enter(const QPointF& pos, const QRectF& rect, bool playing) {
    if (!playing || kind_.isEmpty())
        return false;
    startPos_ = pos;
    startRect_ = rect;
    hovering_ = true;
    return true;
}

bool HoverEffect::leave(QGraphicsItem* item) {
    if (kind_.isEmpty() || !hovering_)
        return false;
    hovering_ = false;
    ended_ = true;
    item->setPos(startPos_);
    // Effects that do not move the item (the border) still need a paint to be undone.
    item->update();
    return true;
}

bool HoverEffect::apply(QGraphicsItem* item, const QSizeF& growth) const {
    if (!hovering_)
        return false;
    const HoverRow* row = rowOf(kindValue());
    if (!row)
        return false;
    if (row->scale > 0) {
        item->setScale(row->scale);
        const qreal sign = -row->growth;
        item->setPos(startPos_.x() + sign * 0.1 * growth.width() * 0.5,
                     startPos_.y() + sign * 0.1 * growth.height() * 0.5);
    } else {
        item->setPos(startPos_.x() + row->shiftX * startRect_.width(),
                     startPos_.y() + row->shiftY * startRect_.height());
    }
    return row->bounce;
}

int HoverEffect::growthSign() const {
    const HoverRow* row = hovering_ ? rowOf(kindValue()) : nullptr;
    return row ? row->growth : 0;
}

bool HoverEffect::drawsBorder() const {
    return hovering_ && kindValue() == static_cast<int>(Hover::border);
}

bool HoverEffect::settle(QGraphicsItem* item) {
    if (!ended_)
        return false;
    item->setScale(1.0);
    ended_ = false;
    return true;
}

} // namespace spatialview
} // namespace selvora
