#ifndef SELVORA_SPATIALVIEW_SPATIALSCENE_H
#define SELVORA_SPATIALVIEW_SPATIALSCENE_H

#include <QGraphicsScene>
#include <QRectF>

namespace selvora {
namespace document {
class Document;
}

namespace spatialview {

// The graphics scene of one canvas. Besides holding the items, it turns what is dropped on the
// canvas (files from the file manager, rows of the media library) into media of the current
// scene; the items then come back through the model's signals.
class SpatialScene : public QGraphicsScene {
    Q_OBJECT
public:
    SpatialScene(document::Document* document, const QRectF& rect, QObject* parent = nullptr);

protected:
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragMoveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragLeaveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    void dropFiles(QGraphicsSceneDragDropEvent* event);
    void dropLibraryMedia(QGraphicsSceneDragDropEvent* event);
    static void warnSecondVideo();

    document::Document* document_;
    // The last move was taken by a region item, which then takes the drop.
    bool regionDrop_ = false;
};

} // namespace spatialview
} // namespace selvora

#endif
