#include "spatialview/ImageItem.h"

#include "document/Scene.h"

#include <QDebug>
#include <QFileInfo>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QImageReader>
#include <QPainter>
#include <QPen>
#include <QTimer>

namespace selvora {
namespace spatialview {

namespace {
const qint64 kMaxWholePixels = qint64(16384) * 16384;
}

ImageItem::ImageItem(int id, const QString& path, int layer, float transparency, QString hover,
                     document::Scene* scene, QWidget* widget,
                     Definitions::kSpatialResizingType kind, QGraphicsItem* parent)
    : SpatialResizingMedia(id, kind, parent, -1), idMedia_(id), scene_(scene), widget_(widget) {
    hover_.setKind(hover);
    loadImage(path);
    setImageTransparency(transparency);
    setImageLayer(layer);
    setAcceptHoverEvents(true);
}

void ImageItem::loadImage(const QString& path) {
    image_ = QImage();
    naturalSize_ = QSize();
    // Only a regular file: reading a FIFO or a device would block or never end.
    if (!QFileInfo(path).isFile()) {
        qDebug() << "ImageItem: no picture file at" << path;
        update();
        return;
    }
    QImageReader reader(path);
    naturalSize_ = reader.size();
    // A picture larger than the canvas is decoded straight at canvas size: the item is never
    // drawn larger, and a huge picture would otherwise be held whole.
    const QSize canvas(Definitions::getViewWidth(), Definitions::getViewHeight());
    if (naturalSize_.isValid() &&
        (naturalSize_.width() > canvas.width() || naturalSize_.height() > canvas.height())) {
        // A format that cannot scale while decoding is decoded whole first: refuse what would
        // take more memory than a picture of 16384 x 16384.
        const qint64 pixels = qint64(naturalSize_.width()) * naturalSize_.height();
        if (!reader.supportsOption(QImageIOHandler::ScaledSize) && pixels > kMaxWholePixels) {
            qDebug() << "ImageItem: picture too large to read" << path << naturalSize_;
            naturalSize_ = QSize();
            update();
            return;
        }
        reader.setScaledSize(naturalSize_.scaled(canvas, Qt::KeepAspectRatio));
    }
    image_ = reader.read();
    if (image_.isNull()) {
        qDebug() << "ImageItem: cannot read the picture" << path << reader.errorString();
        naturalSize_ = QSize();
    } else if (!naturalSize_.isValid()) {
        naturalSize_ = image_.size();
    }
    update();
}

bool ImageItem::isPlaying() const {
    return scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

void ImageItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    paintRect_ = boundingRect();
    if (hover_.apply(this, boundingRect().size()))
        QTimer::singleShot(500, this, &ImageItem::hoverLeave);
    if (hover_.settle(this))
        paintRect_ = hover_.startRect();
    if (image_.isNull())
        paintPlaceholder(painter, paintRect_);
    else
        painter->drawImage(paintRect_, image_, QRectF(0, 0, image_.width(), image_.height()));
    if (hover_.drawsBorder()) {
        painter->save();
        QPen pen;
        pen.setWidth(5);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(hover_.startRect());
        painter->restore();
    }
    SpatialResizingMedia::paint(painter, option, widget);
}

void ImageItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event) {
    if (hover_.enter(pos(), boundingRect(), isPlaying()))
        update();
    SpatialResizingMedia::hoverEnterEvent(event);
}

void ImageItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event) {
    hoverLeave();
    SpatialResizingMedia::hoverLeaveEvent(event);
}

void ImageItem::hoverLeave() {
    hover_.leave(this);
}

void ImageItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (isPlaying())
        emit itemClicked(idMedia_);
    // The base press positions are left alone on purpose: an image's axis-locked drag compares
    // with an earlier press.
    QGraphicsItem::mousePressEvent(event);
}

void ImageItem::setImagePath(QString path) {
    if (path.isNull())
        return;
    loadImage(path);
}

void ImageItem::setHover(QString hover) {
    if (hover.isNull())
        return;
    hover_.setKind(hover);
}

void ImageItem::setImageTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void ImageItem::setImageLayer(int layer) {
    setZValue(layer);
}

} // namespace spatialview
} // namespace selvora
