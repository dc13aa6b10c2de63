#ifndef SELVORA_SLIDEVIEW_SCENETHUMBNAIL_H
#define SELVORA_SLIDEVIEW_SCENETHUMBNAIL_H

#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QRectF>
#include <QSet>
#include <QSize>
#include <QTimer>

class QGraphicsScene;
class QPainter;
class QWidget;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document
namespace spatialview {
class SpatialGroupView;
} // namespace spatialview

namespace slideView {

// The small pictures of the scene rows. A scene is drawn from its canvas when the window has
// one, otherwise from the model. Changes only mark a scene as stale; the stale ones are drawn
// together a moment later, so that a burst of edits (or a playing video) costs one drawing.
class SceneThumbnail : public QObject {
    Q_OBJECT
public:
    static constexpr int kDelayMs = 150;
    // Drawn in rounds of this many, so that a project opened with hundreds of scenes keeps the
    // window answering while its pictures come in.
    static constexpr int kPerRound = 16;

    SceneThumbnail(document::Document* document, QWidget* host);

    // The last picture of the scene, if it was ever drawn.
    bool cached(int sceneId, QPixmap* picture) const;
    // The card alone, shown until the scene is drawn.
    QPixmap blank() const { return card(); }
    // The canvas of a scene shows it as it is once it has been current; before that (a scene
    // of a project just opened) its items wait hidden, and the model is drawn instead.
    void setShown(int sceneId);
    // Draws it again now, whatever the cache holds.
    QPixmap render(document::Scene* scene);
    // Follows the scene's changes until it is forgotten.
    void watch(document::Scene* scene);
    void forget(int sceneId);
    void clear();
    bool isPending() const { return !stale_.isEmpty(); }

    QSize size() const;
    // The picture window of the card.
    QRectF windowRect() const;
    // Where the scene stands on the card.
    QRectF pictureRect() const;

public slots:
    void invalidate(int sceneId);

signals:
    void pictureChanged(int sceneId, const QPixmap& picture);

private:
    void renderStale();
    QGraphicsScene* canvasOf(document::Scene* scene);
    void paintModel(QPainter* painter, document::Scene* scene, const QRectF& target) const;
    const QPixmap& card() const;
    QImage smallImage(const QString& path, const QSize& size) const;

    document::Document* document_;
    QWidget* host_;
    QPointer<spatialview::SpatialGroupView> group_;
    QHash<int, QPixmap> cache_;
    QSet<int> stale_;
    QSet<int> shown_;
    QHash<int, QPointer<QGraphicsScene>> canvases_;
    QTimer timer_;
    mutable QPixmap card_;
    mutable QHash<QString, QImage> images_;
};

} // namespace slideView
} // namespace selvora

#endif
