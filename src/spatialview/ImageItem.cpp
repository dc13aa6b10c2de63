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
    : SpatialResizingMedia(id, kind, parent, -1), idMedia_(id), hover_(hover), scene_(scene),
      widget_(widget) {
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

void ImageItem::applyHover() {
    const int kind = hover_.toInt();
    if (kind < 0 || kind > 9)
        return;
    const qreal w = boundingRect().width(), h = boundingRect().height();
    switch (static_cast<Definitions::kHoverType>(kind)) {
    case Definitions::kHoverType::grow:
        setScale(1.1);
        setPos(hoverPos_.x() - 0.1 * w / 2, hoverPos_.y() - 0.1 * h / 2);
        break;
    case Definitions::kHoverType::shrink:
        setScale(0.9);
        setPos(hoverPos_.x() + 0.1 * w / 2, hoverPos_.y() + 0.1 * h / 2);
        break;
    case Definitions::kHoverType::push:
        setScale(0.9);
        setPos(hoverPos_.x() + 0.1 * w / 2, hoverPos_.y() + 0.1 * h / 2);
        QTimer::singleShot(500, this, &ImageItem::hoverLeave);
        break;
    case Definitions::kHoverType::pop:
        setScale(1.1);
        setPos(hoverPos_.x() - 0.1 * w / 2, hoverPos_.y() - 0.1 * h / 2);
        QTimer::singleShot(500, this, &ImageItem::hoverLeave);
        break;
    case Definitions::kHoverType::floatUp:
        setPos(hoverPos_.x(), hoverPos_.y() - 0.15 * hoverRect_.height());
        break;
    case Definitions::kHoverType::sink:
        setPos(hoverPos_.x(), hoverPos_.y() + 0.15 * hoverRect_.height());
        break;
    case Definitions::kHoverType::backward:
        setPos(hoverPos_.x() - 0.15 * hoverRect_.width(), hoverPos_.y());
        break;
    case Definitions::kHoverType::forward:
        setPos(hoverPos_.x() + 0.15 * hoverRect_.width(), hoverPos_.y());
        break;
    case Definitions::kHoverType::fade:
        break;
    case Definitions::kHoverType::border:
        break;
    }
}

void ImageItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    paintRect_ = boundingRect();
    if (hovering_)
        applyHover();
    if (hoverEnded_) {
        setScale(1.0);
        hoverEnded_ = false;
        paintRect_ = hoverRect_;
    }
    if (image_.isNull())
        paintPlaceholder(painter, paintRect_);
    else
        painter->drawImage(paintRect_, image_, QRectF(0, 0, image_.width(), image_.height()));
    if (hovering_ && hover_.toInt() == static_cast<int>(Definitions::kHoverType::border)) {
        painter->save();
        QPen pen;
        pen.setWidth(5);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(hoverRect_);
        painter->restore();
    }
    SpatialResizingMedia::paint(painter, option, widget);
}

void ImageItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event) {
    if (isPlaying() && !hover_.isEmpty()) {
        hoverPos_ = pos();
        hovering_ = true;
        hoverRect_ = boundingRect();
        update();
    }
    SpatialResizingMedia::hoverEnterEvent(event);
}

void ImageItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event) {
    hoverLeave();
    SpatialResizingMedia::hoverLeaveEvent(event);
}

void ImageItem::hoverLeave() {
    if (hover_.isEmpty() || !hovering_)
        return;
    hovering_ = false;
    hoverEnded_ = true;
    setPos(hoverPos_);
    // Effects that do not move the item (the border) still need a paint to be undone.
    update();
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
    hover_ = hover;
}

void ImageItem::setImageTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void ImageItem::setImageLayer(int layer) {
    setZValue(layer);
}

} // namespace spatialview
} // namespace selvora
