#include "spatialview/SpatialResizingMedia.h"

#include "spatialview/SpatialEvent.h"

#include <QBrush>
#include <QCoreApplication>
#include <QCursor>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>
#include <QPen>
#include <QtMath>

#include <algorithm>

namespace selvora {
namespace spatialview {

namespace {

const QColor kHandleColour(255, 127, 0, 255);
const qreal kHandleSize = 6;

// Taken at the press on a handle and read by the moves that follow. One drag runs at a time, so
// one set serves all items.
struct ResizeGrip {
    QPointF msDelta;
    QPointF topleft;
    QPointF bottomright;
    QSizeF size;
};
ResizeGrip grip;

} // namespace

SpatialResizingMedia::SpatialResizingMedia(int id, Definitions::kSpatialResizingType kind,
                                           QGraphicsItem* parent, int templateId)
    : QGraphicsItem(parent), id_(id), templateId_(templateId), kind_(kind) {
    setFlags(ItemIsMovable | ItemSendsGeometryChanges | ItemIsFocusable | ItemIsSelectable);
}

SpatialResizingMedia::~SpatialResizingMedia() = default;

void SpatialResizingMedia::init(const QRectF& rect) {
    QSizeF size = rect.size();
    const QSizeF canvas(Definitions::getViewWidth(), Definitions::getViewHeight());
    if (size.width() > canvas.width() || size.height() > canvas.height())
        size = size.scaled(canvas, Qt::KeepAspectRatio);
    prepareGeometryChange();
    rect_ = QRectF(QPointF(0, 0), size);
    createCorners();
}

QRectF SpatialResizingMedia::boundingRect() const {
    return rect_;
}

void SpatialResizingMedia::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
    if (!hasFocus() && !showFocus_)
        return;
    painter->setPen(QPen(QBrush(kHandleColour), 1.0, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    painter->setBrush(Qt::NoBrush);
    const QRectF bounds = boundingRect();
    painter->drawRects(&bounds, 1);
    if (kind_ == Definitions::kSpatialResizingType::spatialResizingMedia)
        showFocusItemCorners();
}

void SpatialResizingMedia::createCorners() {
    if (topLeft_) {
        // A second init keeps the handles it has.
        updateCornersPos();
        return;
    }
    const Qt::CursorShape cursors[] = {
        Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::SizeBDiagCursor, Qt::SizeFDiagCursor,
        Qt::SizeVerCursor,   Qt::SizeVerCursor,   Qt::SizeHorCursor,   Qt::SizeHorCursor};
    QGraphicsRectItem** handles[] = {&topLeft_,   &topRight_,     &bottomLeft_, &bottomRight_,
                                     &topMiddle_, &bottomMiddle_, &leftMiddle_, &rightMiddle_};
    for (int i = 0; i < 8; ++i) {
        auto* handle = new QGraphicsRectItem(0, 0, kHandleSize, kHandleSize, this);
        handle->hide();
        handle->setBrush(QBrush(kHandleColour, Qt::SolidPattern));
        handle->setCursor(cursors[i]);
        handle->setFlags(ItemIsMovable);
        *handles[i] = handle;
    }
    installFilters();
    updateCornersPos();
}

void SpatialResizingMedia::installFilters() {
    // Filters exist only within a scene; removing first keeps them single when the item
    // changes scene or is initialised again.
    if (!topLeft_ || !scene())
        return;
    for (QGraphicsRectItem* handle : corners()) {
        handle->removeSceneEventFilter(this);
        handle->installSceneEventFilter(this);
    }
}

void SpatialResizingMedia::updateCornersPos() {
    if (!topLeft_)
        return;
    const qreal x = rect_.x(), y = rect_.y(), w = rect_.width(), h = rect_.height();
    topLeft_->setPos(0, 0);
    topRight_->setPos(x + w - kHandleSize, y);
    bottomLeft_->setPos(x, y + h - kHandleSize);
    bottomRight_->setPos(x + w - kHandleSize, y + h - kHandleSize);
    topMiddle_->setPos(0.5 * w + x - 4, 0);
    bottomMiddle_->setPos(0.5 * w + x - 4, y + h - kHandleSize);
    leftMiddle_->setPos(0, 0.5 * h + y - 3);
    rightMiddle_->setPos(x + w - kHandleSize, 0.5 * h + y - 3);
}

void SpatialResizingMedia::showCorners() {
    for (QGraphicsRectItem* handle : corners())
        handle->show();
}

void SpatialResizingMedia::showFocusItemCorners() {
    showCorners();
}

void SpatialResizingMedia::hideCorners() {
    for (QGraphicsRectItem* handle : corners())
        handle->hide();
}

void SpatialResizingMedia::showFocusItem(bool show) {
    showFocus_ = show;
    if (!show)
        hideCorners();
    update();
}

void SpatialResizingMedia::setSize(const QSizeF& size) {
    prepareGeometryChange();
    rect_.setSize(size);
    updateCornersPos();
    update();
}

QVector<QGraphicsRectItem*> SpatialResizingMedia::corners() const {
    if (!topLeft_)
        return {};
    return {topLeft_,   topRight_,     bottomLeft_, bottomRight_,
            topMiddle_, bottomMiddle_, leftMiddle_, rightMiddle_};
}

bool SpatialResizingMedia::isCorner(const QGraphicsItem* item) const {
    return item && topLeft_ &&
           (item == topLeft_ || item == topRight_ || item == bottomLeft_ || item == bottomRight_ ||
            item == topMiddle_ || item == bottomMiddle_ || item == leftMiddle_ ||
            item == rightMiddle_);
}

void SpatialResizingMedia::notifyResizing(const QRectF& rect) {
    QGraphicsScene* graphicsScene = scene();
    if (!graphicsScene)
        return;
    const QList<QGraphicsItem*> children = childItems();
    for (QGraphicsItem* child : children) {
        if (isCorner(child))
            continue;
        SpatialEvent event(id_, kind_, rect, templateId_);
        graphicsScene->sendEvent(child, &event);
    }
}

void SpatialResizingMedia::postToView() {
    QGraphicsScene* graphicsScene = scene();
    if (!graphicsScene || graphicsScene->views().isEmpty())
        return;
    QWidget* target = graphicsScene->views().first()->parentWidget();
    if (!target)
        return;
    QCoreApplication::postEvent(target, new SpatialEvent(id_, kind_, rect_, templateId_));
}

void SpatialResizingMedia::paintPlaceholder(QPainter* painter, const QRectF& rect) {
    if (rect.width() < 1 || rect.height() < 1)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QColor(128, 128, 128), 1.0, Qt::DashLine));
    painter->setBrush(QColor(224, 224, 224));
    painter->drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));

    // A small picture frame with a mountain, split by a crack: the file gave no picture.
    const qreal side = std::min({rect.width(), rect.height(), qreal(48)}) * 0.8;
    if (side >= 8) {
        const QRectF mark(rect.center().x() - side / 2, rect.center().y() - side * 0.4, side,
                          side * 0.8);
        painter->setPen(QPen(QColor(112, 112, 112), std::max<qreal>(1.0, side / 16)));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(mark);
        QPolygonF mountain;
        mountain << QPointF(mark.left(), mark.bottom())
                 << QPointF(mark.left() + mark.width() * 0.35, mark.top() + mark.height() * 0.45)
                 << QPointF(mark.left() + mark.width() * 0.55, mark.top() + mark.height() * 0.7)
                 << QPointF(mark.left() + mark.width() * 0.75, mark.top() + mark.height() * 0.5)
                 << QPointF(mark.right(), mark.bottom());
        painter->drawPolyline(mountain);
        painter->setPen(QPen(QColor(200, 40, 40), std::max<qreal>(1.0, side / 12)));
        QPolygonF crack;
        crack << QPointF(mark.left() + mark.width() * 0.6, mark.top() - 2)
              << QPointF(mark.left() + mark.width() * 0.45, mark.top() + mark.height() * 0.4)
              << QPointF(mark.left() + mark.width() * 0.6, mark.top() + mark.height() * 0.6)
              << QPointF(mark.left() + mark.width() * 0.45, mark.bottom() + 2);
        painter->drawPolyline(crack);
    }
    painter->restore();
}

bool SpatialResizingMedia::sceneEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::GraphicsSceneMouseRelease:
        postToView();
        break;
    case QEvent::GraphicsSceneMouseMove: {
        // The move that drags the body proposes the new position; itemChange reads it.
        auto* mouse = static_cast<QGraphicsSceneMouseEvent*>(event);
        inBodyMove_ = true;
        moveModifiers_ = mouse->modifiers();
        moveCursorPos_ = mouse->screenPos();
        const bool handled = QGraphicsItem::sceneEvent(event);
        inBodyMove_ = false;
        return handled;
    }
    default:
        break;
    }
    return QGraphicsItem::sceneEvent(event);
}

QVariant SpatialResizingMedia::itemChange(GraphicsItemChange change, const QVariant& value) {
    if (change == ItemSceneHasChanged) {
        installFilters();
        return QGraphicsItem::itemChange(change, value);
    }
    if (change != ItemPositionChange || !scene())
        return QGraphicsItem::itemChange(change, value);

    const QPointF p = value.toPointF();
    const QRectF s = scene()->sceneRect();
    const qreal w = rect_.width(), h = rect_.height();
    auto clampX = [&](qreal x) {
        return std::min(std::max(x, s.left()), s.left() + s.width() - w);
    };
    auto clampY = [&](qreal y) { return std::min(std::max(y, s.top()), s.top() + s.height() - h); };

    // The axis lock belongs to a mouse drag of the body only: a key move with Shift held must
    // not snap back to the last press.
    if (inBodyMove_ && (moveModifiers_ & Qt::ShiftModifier)) {
        const QPointF c = moveCursorPos_;
        if (c.x() != pressCursorPos_.x() && c.y() != pressCursorPos_.y()) {
            const qreal dx = qAbs(c.x() - pressCursorPos_.x());
            const qreal dy = qAbs(c.y() - pressCursorPos_.y());
            if (dy <= dx)
                return QPointF(clampX(p.x()), pressScenePos_.y());
            return QPointF(pressScenePos_.x(), clampY(p.y()));
        }
    }
    if (s.contains(QRectF(p, QSizeF(w, h))))
        return QGraphicsItem::itemChange(change, value);
    return QPointF(clampX(p.x()), clampY(p.y()));
}

void SpatialResizingMedia::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    pressCursorPos_ = event->screenPos();
    pressScenePos_ = scenePos();
    update();
    QGraphicsItem::mousePressEvent(event);
}

void SpatialResizingMedia::focusInEvent(QFocusEvent* event) {
    if (kind_ == Definitions::kSpatialResizingType::spatialResizingMedia)
        showCorners();
    postToView();
    update();
    QGraphicsItem::focusInEvent(event);
}

void SpatialResizingMedia::focusOutEvent(QFocusEvent* event) {
    hideCorners();
    update();
    QGraphicsItem::focusOutEvent(event);
}

bool SpatialResizingMedia::sceneEventFilter(QGraphicsItem* watched, QEvent* event) {
    if (!isCorner(watched))
        return QGraphicsItem::sceneEventFilter(watched, event);
    switch (event->type()) {
    case QEvent::GraphicsSceneMouseMove:
        return resizeByCorner(watched, static_cast<QGraphicsSceneMouseEvent*>(event));
    case QEvent::GraphicsSceneMouseRelease:
        postToView();
        return QGraphicsItem::sceneEventFilter(watched, event);
    default:
        break;
    }
    if (event->type() != QEvent::GraphicsSceneMousePress)
        return QGraphicsItem::sceneEventFilter(watched, event);

    // Remember the grip point within the handle, so that the drag does not jump.
    grip.bottomright = mapToScene(rect_.x() + rect_.width(), rect_.y() + rect_.height());
    grip.topleft = mapToScene(rect_.x(), rect_.y());
    grip.size = rect_.size();
    const QPointF m = static_cast<QGraphicsSceneMouseEvent*>(event)->scenePos();
    QPointF& delta = grip.msDelta;
    if (watched == topLeft_ || watched == bottomLeft_ || watched == leftMiddle_)
        delta.setX(m.x() - watched->scenePos().x());
    else
        delta.setX(mapToScene(rect_.x() + rect_.width(), rect_.y()).x() - m.x());
    if (watched == topLeft_ || watched == topRight_ || watched == topMiddle_)
        delta.setY(m.y() - watched->scenePos().y());
    else
        delta.setY(mapToScene(rect_.x() + rect_.width(), rect_.y() + rect_.height()).y() - m.y());
    return QGraphicsItem::sceneEventFilter(watched, event);
}

bool SpatialResizingMedia::resizeByCorner(QGraphicsItem* corner,
                                          const QGraphicsSceneMouseEvent* event) {
    if (!scene())
        return true;
    const QPointF far = mapToScene(rect_.x() + rect_.width(), rect_.y() + rect_.height());
    qreal left = scenePos().x(), top = scenePos().y(), right = far.x(), bottom = far.y();
    const QRectF s = scene()->sceneRect();
    const qreal minW = Definitions::getMediaMinWidth();
    const qreal minH = Definitions::getMediaMinHeight();
    auto clampX = [&](qreal v) { return std::min(std::max(v, s.left()), s.left() + s.width()); };
    auto clampY = [&](qreal v) { return std::min(std::max(v, s.top()), s.top() + s.height()); };
    const QPointF m = event->scenePos();
    const qreal L = m.x() - grip.msDelta.x(), R = m.x() + grip.msDelta.x();
    const qreal T = m.y() - grip.msDelta.y(), B = m.y() + grip.msDelta.y();

    const bool onLeft = corner == topLeft_ || corner == bottomLeft_ || corner == leftMiddle_;
    const bool onTop = corner == topLeft_ || corner == topRight_ || corner == topMiddle_;
    const bool middle = corner == topMiddle_ || corner == bottomMiddle_ || corner == leftMiddle_ ||
                        corner == rightMiddle_;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    bool moved = false;

    if (modifiers & Qt::ControlModifier) {
        // The aspect taken at the press; a degenerate one cannot be kept.
        if (!middle && grip.size.width() > 0 && grip.size.height() > 0) {
            const qreal ratio = grip.size.width() / grip.size.height();
            if (corner == topLeft_) {
                const qreal ty = std::max(T, s.top());
                const qreal cx = right - (bottom - ty) * ratio;
                left = clampX(std::max(cx, L));
                const qreal cy = bottom - (right - left) / ratio;
                top = clampY(std::max(cy, T));
                right = grip.bottomright.x();
                bottom = grip.bottomright.y();
            } else if (corner == topRight_) {
                const qreal ty = std::max(T, s.top());
                const qreal cx = ratio * (bottom - ty) + grip.topleft.x();
                right = clampX(std::min(cx, R));
                const qreal cy = bottom - (right - grip.topleft.x()) / ratio;
                top = clampY(std::max(T, cy));
                bottom = grip.bottomright.y();
            } else if (corner == bottomLeft_) {
                const qreal by = std::min(B, s.top() + s.height());
                const qreal cx = right - ratio * (by - top);
                left = clampX(std::max(L, cx));
                const qreal cy = (right - left) / ratio + top;
                bottom = clampY(std::min(B, cy));
                right = grip.bottomright.x();
            } else {
                const qreal by = std::min(B, s.top() + s.height());
                const qreal cx = ratio * (by - top) + left;
                right = clampX(std::min(R, cx));
                const qreal cy = (right - left) / ratio + top;
                bottom = clampY(std::min(B, cy));
                top = grip.topleft.y();
            }
            moved = true;
        }
    } else if (!(modifiers & Qt::ShiftModifier)) {
        if (corner == topLeft_) {
            left = clampX(L);
            top = clampY(T);
            right = grip.bottomright.x();
            bottom = grip.bottomright.y();
        } else if (corner == topRight_) {
            right = clampX(R);
            top = clampY(T);
            bottom = grip.bottomright.y();
        } else if (corner == bottomLeft_) {
            left = clampX(L);
            bottom = clampY(B);
            right = grip.bottomright.x();
        } else if (corner == bottomRight_) {
            right = clampX(R);
            bottom = clampY(B);
        } else if (corner == topMiddle_) {
            top = clampY(T);
            bottom = grip.bottomright.y();
        } else if (corner == bottomMiddle_) {
            bottom = clampY(B);
            right = grip.bottomright.x();
        } else if (corner == leftMiddle_) {
            left = clampX(L);
            right = grip.bottomright.x();
        } else {
            right = clampX(R);
        }
        moved = true;
    }

    if (moved) {
        if (right - left < minW) {
            if (onLeft)
                left = right - minW;
            else
                right = left + minW;
        }
        if (bottom - top < minH) {
            if (onTop)
                top = bottom - minH;
            else
                bottom = top + minH;
        }
    }

    prepareGeometryChange();
    rect_.setWidth(right - left);
    rect_.setHeight(bottom - top);
    const QPointF topLeftScene(left, top);
    setPos(parentItem() ? parentItem()->mapFromScene(topLeftScene) : topLeftScene);
    updateCornersPos();
    update();
    notifyResizing(QRectF(left, top, right - left, bottom - top));
    return true;
}

} // namespace spatialview
} // namespace selvora
