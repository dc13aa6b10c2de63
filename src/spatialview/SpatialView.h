#ifndef SELVORA_SPATIALVIEW_SPATIALVIEW_H
#define SELVORA_SPATIALVIEW_SPATIALVIEW_H

#include "app/Definitions.h"
#include "spatialview/SpatialScene.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QPointer>
#include <QWidget>

class QGraphicsItem;
class QGraphicsRectItem;
class QGraphicsView;
class QKeyEvent;
class QMediaPlayer;

namespace selvora {

// The canvas keys its items by kind, among others.
inline uint qHash(Definitions::kSpatialResizingType kind, uint seed = 0) noexcept {
    return ::qHash(int(kind), seed);
}

namespace document {
class Document;
class Media;
class Region;
class Scene;
} // namespace document

namespace spatialview {

class CanvasCommands;
class CanvasEvents;
class ImageItem;
class MainVideo;
class MainVideoPlayer;
class ShapeItem;
class SpatialResizingMedia;
class TemplateCommands;
class TextItem;

// The canvas of one scene: the graphics scene and view on which the scene's items stand, and the
// player of its main video. It turns the model's changes into items, and follows the model's
// state at every second of play and at every seek.
class SpatialView : public QWidget {
    Q_OBJECT
public:
    // An item is found by (id, (template id or -1, kind)).
    using ItemKey = QPair<int, QPair<int, Definitions::kSpatialResizingType>>;
    static ItemKey mediaKey(int mediaId);
    static ItemKey regionKey(int regionId, int templateId);

    SpatialView(document::Document* document, document::Scene* scene, QWidget* parent);
    ~SpatialView() override;

    document::Scene* getScene() const { return scene_; }
    QGraphicsView* getGraphicsView() const { return graphicsView_; }
    SpatialScene* getSpatialScene() { return &spatialScene_; }
    SpatialResizingMedia* getItem(const ItemKey& key) const { return resizingItems_.value(key); }
    int countItems() const { return resizingItems_.size(); }
    MainVideo* getMainVideo() const { return mainVideo_; }
    // The templates of this canvas: region placeholders, relations, template commands.
    TemplateCommands* templateCommands() const { return templates_; }
    // Null until the scene's video was first loaded.
    QMediaPlayer* mediaPlayer() const;
    CanvasCommands* commands() const { return commands_; }

    // What the time dialogs set: a media, or a template.
    struct TimeTarget {
        int id = -1;
        bool isMedia = true;
    };
    TimeTarget timeTarget() const;

    void load();
    void loadVideo();
    void playScene();
    void pauseScene();
    void stopScene();
    void updatePlayerScene(Definitions::kPlayerStatus status);
    void generateImage(document::Media* media);
    // Item to model: the end of a gesture recorded as a `set` sync at the current second.
    void updateMediaProperties(SpatialResizingMedia* item);
    void moveMedia(QKeyEvent* event, int step);

public slots:
    void addSpatialResizingMedia(selvora::document::Media* media);
    void addSpatialResizingRegion(selvora::document::Region* region);
    void removeSpatialResizingMedia(int id);
    void removeSpatialResizingRegion(int regionId, int templateId);
    void removeTemplate(int templateId);
    void setCurrentMedia(selvora::document::Media* media);
    void setCurrentRegion(selvora::document::Region* region);
    void nullingCurrentMedia();
    void updateCurrentTimePlayer(int time);
    void setStatusPlayer(selvora::Definitions::kPlayerStatus status);
    void updateSpatialResizingMedias(int mediaId, QList<selvora::document::Media*> medias);
    void updateSpatialResizingMediaProperties(selvora::document::Media* media,
                                              selvora::Definitions::kSyncType type);
    void updateSpatialResizingMediaProperties();
    void updateSpatialResizingMediaSource(int id);
    void updateSpatialResizingRegionProperties();
    void updateTemplateProperties(int templateId, selvora::Definitions::kSyncType type);
    void drawTemplateBorders(int templateId);
    void showSpatialResizingRegion(selvora::document::Region* region, bool visible);

    // The canvas commands and their dialogs.
    void showContextMenu(const QPoint& pos);
    void copyMedia();
    void pasteMedia();
    void changeMedia();
    void editTextMedia();
    void setStartTime();
    void setStopTime();
    void setLinkAutomatic();
    void setLinkInteractive();
    void setLinkInteractiveWeb();
    void renameMedia();
    void removeMedia();
    void sendToBack();
    void bringToFront();
    void sendBackward();
    void bringForward();

signals:
    void finished();
    void clicked();

protected:
    bool event(QEvent* event) override;

private slots:
    void updateItemFocus(QGraphicsItem* newFocus, QGraphicsItem* oldFocus, Qt::FocusReason reason);
    void spatialResizingClicked(int id);

private:
    // The gestures and keys of the canvas, and its commands, are handled there with this
    // view's state.
    friend class CanvasEvents;
    friend class CanvasCommands;
    friend class TemplateCommands;

    void createSpatialView();
    void setConnections();
    void setMediaConnections();
    void setMediaDisconnections();
    void setRegionConnections();
    void setRegionDisconnections();

    // Item construction shared by adding and loading; the item is hidden until shown.
    MainVideo* makeVideo(document::Media* media);
    ImageItem* makeImage(document::Media* media, QWidget* widget);
    TextItem* makeText(document::Media* media);
    ShapeItem* makeShape(document::Media* media);
    void addVideo(document::Media* media);
    void addImage(document::Media* media);
    void addText(document::Media* media);
    void addShape(document::Media* media);
    void applyLook(SpatialResizingMedia* item, const document::Media* media);
    void place(SpatialResizingMedia* item, const QRectF& rect, int layer);
    QRectF mediaRect(const document::Media* media) const;
    void applyGeometry(SpatialResizingMedia* item, const document::Media* media);
    void applyOpacity(SpatialResizingMedia* item, const document::Media* media);
    void removeItem(const ItemKey& key);
    void forgetItem(const SpatialResizingMedia* item);

    // First: children built in the constructor send events before the later members exist.
    CanvasEvents* events_ = nullptr;
    CanvasCommands* commands_ = nullptr;
    TemplateCommands* templates_ = nullptr;
    document::Document* document_;
    QPointer<document::Scene> scene_;
    QPointer<document::Media> currentMedia_;
    QPointer<document::Region> currentRegion_;
    QWidget* parentWidget_;
    QGraphicsView* graphicsView_ = nullptr;
    MainVideo* mainVideo_ = nullptr;
    SpatialScene spatialScene_;
    QHash<ItemKey, SpatialResizingMedia*> resizingItems_;
    QHash<int, QGraphicsRectItem*> templateBorders_;
    MainVideoPlayer* videoPlayer_;
    SpatialResizingMedia* focusedItem_ = nullptr;
    QGraphicsRectItem* currentBorder_ = nullptr;
    SpatialResizingMedia* lastNotifiedItem_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
