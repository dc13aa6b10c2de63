#ifndef SELVORA_SPATIALVIEW_MAINVIDEO_H
#define SELVORA_SPATIALVIEW_MAINVIDEO_H

#include "spatialview/SpatialResizingMedia.h"

#include <QSizeF>
#include <QString>

class QGraphicsVideoItem;

namespace selvora {
namespace spatialview {

// The item of a scene's one video: a frame that the player draws into through a child video
// item, which follows every step of a resize.
class MainVideo : public SpatialResizingMedia {
public:
    MainVideo(int id, QString path, const QSizeF& size, int layer, float transparency,
              QGraphicsItem* parent = nullptr);

    void init(const QRectF& rect) override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    QGraphicsVideoItem* videoItem() const { return video_; }
    int getIdMedia() const { return idMedia_; }
    QString getPath() const { return path_; }
    void setVideoPath(QString path);
    void setVideoSize(QSizeF size);
    void setVideoTransparency(float transparency);
    void setVideoLayer(int layer);

    // Set by the view when the player cannot play the file; the item then shows a placeholder.
    void setUnplayable(bool unplayable);
    // True when the file is missing (not a regular file) or the player has failed on it.
    bool isUnplayable() const { return unplayable_ || fileMissing_; }

protected:
    bool sceneEventFilter(QGraphicsItem* watched, QEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    void installVideoFilter();

    int idMedia_;
    QGraphicsVideoItem* video_;
    QString path_;
    bool unplayable_ = false;
    bool fileMissing_ = false;
};

} // namespace spatialview
} // namespace selvora

#endif
