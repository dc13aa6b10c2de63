#include "spatialview/MainVideo.h"

#include "spatialview/SpatialEvent.h"

#include <QFileInfo>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsVideoItem>

namespace selvora {
namespace spatialview {

MainVideo::MainVideo(int id, QString path, const QSizeF& size, int layer, float transparency,
                     QGraphicsItem* parent)
    : SpatialResizingMedia(id, Definitions::kSpatialResizingType::spatialResizingMedia, parent, -1),
      idMedia_(id), video_(new QGraphicsVideoItem(this)) {
    // The frame fills the item whatever the video's own aspect.
    video_->setAspectRatioMode(Qt::IgnoreAspectRatio);
    setVideoPath(path);
    setVideoSize(size);
    setVideoTransparency(transparency);
    setVideoLayer(layer);
    // Behind its parent, so that the outline paints above the picture.
    video_->setFlags(ItemIsMovable | ItemIsFocusable | ItemStacksBehindParent |
                     ItemSendsGeometryChanges);
    video_->setFocusProxy(this);
}

void MainVideo::init(const QRectF& rect) {
    SpatialResizingMedia::init(rect);
    installVideoFilter();
}

void MainVideo::installVideoFilter() {
    if (!scene() || video_->scene() != scene())
        return;
    video_->removeSceneEventFilter(this);
    video_->installSceneEventFilter(this);
}

QVariant MainVideo::itemChange(GraphicsItemChange change, const QVariant& value) {
    const QVariant result = SpatialResizingMedia::itemChange(change, value);
    if (change == ItemSceneHasChanged)
        installVideoFilter();
    return result;
}

void MainVideo::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    if (isUnplayable())
        paintPlaceholder(painter, boundingRect());
    SpatialResizingMedia::paint(painter, option, widget);
}

bool MainVideo::sceneEventFilter(QGraphicsItem* watched, QEvent* event) {
    if (watched == video_ && event->type() == QEvent::GraphicsSceneMouseMove) {
        // The video does not move on its own; the frame does.
        if (scene())
            scene()->sendEvent(this, event);
        return true;
    }
    if (watched == video_ && event->type() == SpatialEvent::spatialType()) {
        const QRectF rect = static_cast<SpatialEvent*>(event)->getRect();
        video_->setPos(mapFromScene(rect.topLeft()));
        video_->setSize(rect.size());
        return true;
    }
    return SpatialResizingMedia::sceneEventFilter(watched, event);
}

void MainVideo::setVideoPath(QString path) {
    // A null path is refused; only the constructor may start from one (and shows a placeholder).
    if (path.isNull() && !path_.isNull())
        return;
    path_ = path;
    fileMissing_ = !QFileInfo(path).isFile();
    update();
}

void MainVideo::setVideoSize(QSizeF size) {
    video_->setSize(size);
}

void MainVideo::setVideoTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void MainVideo::setVideoLayer(int layer) {
    setZValue(layer);
}

void MainVideo::setUnplayable(bool unplayable) {
    unplayable_ = unplayable;
    update();
}

} // namespace spatialview
} // namespace selvora
