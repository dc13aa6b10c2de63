#include "temporalView/MarkerItem.h"

#include "app/TimeText.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPolygon>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace selvora {

using SyncType = Definitions::kSyncType;

namespace {

// The look of each kind that has a marker; a goto's tip carries no time.
struct Kind {
    SyncType type;
    QColor color;
    const char* tip;
    bool withTime;
    QPainterPath (*shape)(const QRect&, bool);
};

const Kind* kindOf(SyncType type) {
    static const Kind kinds[] = {
        {SyncType::start, QColor(0, 180, 0), "Início - ", true, &MarkerItem::markerStartShape},
        {SyncType::set, QColor(0, 128, 255), "Alterações - ", true,
         &MarkerItem::markerEllipseShape},
        {SyncType::stop, QColor(255, 17, 17), "Fim - ", true, &MarkerItem::markerSquareShape},
        {SyncType::goTo, QColor(Qt::yellow), "Ir Para", false, &MarkerItem::markerDiamondShape},
    };
    for (const Kind& kind : kinds) {
        if (kind.type == type)
            return &kind;
    }
    return nullptr;
}

QPainterPath polygon(const QVector<QPoint>& points) {
    QPainterPath path;
    path.addPolygon(QPolygon(points));
    path.closeSubpath();
    return path;
}

// The pin under each head; its third point does not follow the shadow's shift.
QPainterPath pin(const QRect& r, int d, double a, double b, double c) {
    const int x = r.x();
    const int w = r.width();
    const int h = r.height();
    return polygon({QPoint(int(x + a * w - d), int(0.7 * h)),
                    QPoint(int(x + b * w - d), r.bottom()), QPoint(int(x + c * w), int(0.7 * h))});
}

// A drag ends on whole seconds; the small term keeps a time that is exact from being cut to
// the second before it by rounding.
int secondsOf(double value) {
    return std::max(0, int(std::floor(value + 1e-9)));
}

} // namespace

MarkerItem::MarkerItem(document::Sync* sync, int y, document::Scene* scene,
                       QGraphicsScene* graphicsScene, document::Document* document,
                       QGraphicsItem* parent)
    : QGraphicsItem(parent), id_(sync->getId()), y_(y), time_(sync->getTime()),
      totalTime_(scene->getTotalTime()), outlineColor_(0, 0, 0, 150), graphicsScene_(graphicsScene),
      document_(document), scene_(scene), sync_(sync), markerType_(sync->getType()) {
    initRect();
    updateColorMarker(markerType_);
    setMarkerToolTip(markerType_);
    setMarkerBounds(scene->getAllSyncsMedia(sync->getMediaTarget(), sync->getIsMedia()));
    timer_ = new QTimer(this);
    // One click per release: a zero-interval timer left running would spin the event loop.
    timer_->setSingleShot(true);
    setFlags(ItemIsSelectable | ItemIsFocusable | ItemSendsGeometryChanges);
}

double MarkerItem::barWidth() const {
    return (graphicsScene_ ? graphicsScene_->sceneRect().width() : 0) - 12;
}

double MarkerItem::pixelOf(double time) const {
    return totalTime_ > 0 ? time * barWidth() / totalTime_ : 0;
}

void MarkerItem::initRect() {
    rect_ = QRectF(pixelOf(time_), 0, 15, 20);
}

void MarkerItem::setMarkerBounds(const QList<document::Sync*>& syncs) {
    for (const document::Sync* sync : syncs) {
        if (sync->getType() == SyncType::start)
            minTime_ = sync->getTime();
        else if (sync->getType() == SyncType::stop)
            maxTime_ = sync->getTime();
    }
    minX_ = 0;
    maxX_ = barWidth();
}

void MarkerItem::setMarkerToolTip(Definitions::kSyncType type) {
    if (const Kind* kind = kindOf(type))
        setToolTip(tr(kind->tip) + (kind->withTime ? TimeText::timeString(time_) : QString()));
}

void MarkerItem::updateColorMarker(Definitions::kSyncType type) {
    if (const Kind* kind = kindOf(type))
        mainColor_ = kind->color;
    outlineColor_ = QColor(0, 0, 0, 150);
}

QVariant MarkerItem::itemChange(GraphicsItemChange change, const QVariant& value) {
    if (change != ItemPositionChange)
        return QGraphicsItem::itemChange(change, value);
    double x = value.toPointF().x();
    // Only a horizontal move asks for bounds: placing the marker in its lane must not shift a
    // sync that lies past the end of the bar.
    if (!scene_ || !sync_ || x == pos().x())
        return QPointF(x, y_);

    const int target = sync_->getMediaTarget();
    if (scene_->hasBeforeSyncMedia(target, time_))
        minX_ = pixelOf(scene_->getBeforeSyncTimeMedia(target, time_));
    if (scene_->hasNextSyncMedia(target, time_))
        maxX_ = pixelOf(scene_->getNextSyncTimeMedia(target, time_));
    if (totalTime_ <= 0) {
        x = 0;
    } else {
        const double c = pixelOf(time_);
        const double s = barWidth() / totalTime_;
        // Seconds against pixels: which bound applies is chosen this way on purpose.
        if (minTime_ - 12 > x) {
            const bool before = scene_->hasBeforeSyncMedia(target, time_);
            x = std::max(x, before ? -(c - minX_ - s) : -(c - minX_));
        } else {
            const bool after = scene_->hasNextSyncMedia(target, time_);
            x = std::min(x, after ? maxX_ - c - s : maxX_ - c);
        }
        // Never off the bar: a time before 0 or past the total is no time of the scene.
        x = std::max(x, std::min(0.0, -c));
        x = std::min(x, std::max(0.0, barWidth() - c));
    }
    moved_ = x;
    return QPointF(x, y_);
}

void MarkerItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        if (y_ == -10 || markerType_ == SyncType::goTo)
            setFlag(ItemIsMovable);
        connect(timer_, &QTimer::timeout, this, &MarkerItem::mouseClick, Qt::UniqueConnection);
    } else if (event->button() == Qt::RightButton) {
        emit contextMenuRequested(this);
    }
    QGraphicsItem::mousePressEvent(event);
}

void MarkerItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event) {
    timer_->stop();
    QGraphicsItem::mouseMoveEvent(event);
}

void MarkerItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event) {
    emit markerPressed(time_);
    // Started before the move is stored, so that the marker the move replaces still owes its
    // click and lives until it is made.
    timer_->start();
    updateTime();
    QGraphicsItem::mouseReleaseEvent(event);
}

void MarkerItem::mouseClick() {
    disconnect(timer_, &QTimer::timeout, this, &MarkerItem::mouseClick);
    emit markerPressed(time_);
    if (retired_)
        deleteLater();
}

void MarkerItem::retire() {
    retired_ = true;
    sync_ = nullptr;
    setFlag(ItemIsMovable, false);
    if (!timer_->isActive())
        deleteLater();
}

void MarkerItem::updateTime() {
    if (moved_ == 0 || !scene_ || !sync_)
        return;
    const int time =
        totalTime_ > 0 ? secondsOf((pixelOf(time_) + moved_) * totalTime_ / barWidth()) : 0;
    if (time == time_)
        return;
    const int old = time_;
    time_ = time;
    // The scene answers by replacing this marker with one at the new time.
    scene_->updateSyncs(sync_, old, time);
}

void MarkerItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
    const Kind* kind = kindOf(markerType_);
    if (!kind)
        return;
    painter->setPen(QPen(QBrush(outlineColor_), 1, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter->setRenderHint(QPainter::Antialiasing, true);
    const QRect r(qRound(rect_.x()), qRound(rect_.y()), qRound(rect_.width()),
                  qRound(rect_.height()));
    const QPainterPath body = kind->shape(r, false);
    const QPainterPath shadow = kind->shape(r, true);
    painter->fillPath(shadow, QColor(0, 0, 0, 150));
    painter->fillPath(body, mainColor_);
    painter->strokePath(body.simplified(),
                        QPen(outlineColor_, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
}

QPainterPath MarkerItem::markerSquareShape(const QRect& r, bool shadow) {
    const int d = shadow ? 2 : 0;
    QPainterPath head;
    head.addRect(QRect(r.x() + 3 - d, r.y() + 4, (r.right() - r.x()) - 5, int(0.5 * r.height())));
    return head + pin(r, d, 0.45, 0.5, 0.55);
}

QPainterPath MarkerItem::markerEllipseShape(const QRect& r, bool shadow) {
    const int d = shadow ? 2 : 0;
    QPainterPath head;
    head.addEllipse(QPointF((r.x() + r.right()) / 2 - d, (r.y() + r.bottom()) / 2), 0.3 * r.width(),
                    0.25 * r.height());
    return head + pin(r, d, 0.4, 0.5, 0.55);
}

QPainterPath MarkerItem::markerStartShape(const QRect& r, bool shadow) {
    const int d = shadow ? 2 : 0;
    const int x = r.x();
    const int w = r.width();
    const int h = r.height();
    const QPainterPath head = polygon({QPoint(int(x + 0.1 * w - d), int(0.2 * h)),
                                       QPoint(int(x + 0.6 * w - d), int(0.5 * h)),
                                       QPoint(int(x + 0.1 * w - d), int(0.75 * h))});
    return head + pin(r, d, 0.09, 0.15, 0.2);
}

QPainterPath MarkerItem::markerDiamondShape(const QRect& r, bool shadow) {
    const int d = shadow ? 2 : 0;
    const int x = r.x();
    const int w = r.width();
    const int h = r.height();
    const QPainterPath head = polygon(
        {QPoint(int(x + 0.1 * w - d), int(0.5 * h)), QPoint(int(x + 0.5 * w - d), int(0.2 * h)),
         QPoint(int(x + 0.9 * w - d), int(0.5 * h)), QPoint(int(x + 0.5 * w - d), int(0.73 * h))});
    return head + pin(r, d, 0.4, 0.5, 0.55);
}

} // namespace selvora
