#ifndef SELVORA_SPATIALVIEW_IMAGEITEM_H
#define SELVORA_SPATIALVIEW_IMAGEITEM_H

#include "spatialview/HoverEffect.h"
#include "spatialview/SpatialResizingMedia.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>

class QWidget;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The item of an image media. It also plays, while its scene plays, the hover effect that the
// published object will show.
class ImageItem : public QObject, public SpatialResizingMedia {
    Q_OBJECT
public:
    ImageItem(int id, const QString& path, int layer, float transparency, QString hover,
              document::Scene* scene, QWidget* widget,
              Definitions::kSpatialResizingType kind =
                  Definitions::kSpatialResizingType::spatialResizingMedia,
              QGraphicsItem* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    int getIdMedia() const { return idMedia_; }
    void setImagePath(QString path);
    void setHover(QString hover);
    void setImageTransparency(float transparency);
    void setImageLayer(int layer);

    // The picture's own size, before any fitting to the canvas; empty when it cannot be read.
    QSize naturalSize() const { return naturalSize_; }
    // The size of the picture held in memory: never more than the canvas.
    QSize imageSize() const { return image_.size(); }
    bool hasPicture() const { return !image_.isNull(); }

signals:
    void itemClicked(int id);

public slots:
    void hoverLeave();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void loadImage(const QString& path);
    bool isPlaying() const;

    QRectF paintRect_;
    int idMedia_;
    QImage image_;
    HoverEffect hover_;
    QPointer<document::Scene> scene_;
    QWidget* widget_;
    QSize naturalSize_;
};

} // namespace spatialview
} // namespace selvora

#endif
