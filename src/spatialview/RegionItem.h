#ifndef SELVORA_SPATIALVIEW_REGIONITEM_H
#define SELVORA_SPATIALVIEW_REGIONITEM_H

#include "app/Definitions.h"
#include "spatialview/SpatialResizingMedia.h"

#include <QColor>
#include <QObject>
#include <QPointer>

class QDialog;
class QMenu;
class QPushButton;
class QWidget;

namespace selvora {
namespace document {
class Document;
class Media;
class Region;
class Scene;
} // namespace document

namespace spatialview {

// The placeholder of an empty region of a template: a coloured, dashed rectangle with four
// buttons that fill it with a video, a picture, a text or a shape, and a drop target for the
// same. A media put into the region takes the region's geometry and the placeholder hides.
class RegionItem : public QObject, public SpatialResizingMedia {
    Q_OBJECT
public:
    RegionItem(int id, int templateId, int order, int layer, document::Document* document,
               QWidget* widget,
               Definitions::kSpatialResizingType kind =
                   Definitions::kSpatialResizingType::spatialResizingRegion,
               QGraphicsItem* parent = nullptr);
    ~RegionItem() override;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    // Shows or hides the placeholder with it; an emptied region is enabled again.
    void setEnable(bool enable);
    bool getEnable() const { return enable_; }
    int getOrder() const { return order_; }
    int getMediaId() const { return mediaId_; }
    // The media this region held last, kept when it leaves: the history may bring it back.
    int getLastMediaId() const { return lastMediaId_; }
    // A media that is already the region's (put back by the history): the placeholder hides.
    void holdMedia(int mediaId);
    // The media left the scene: the placeholder is offered again.
    void releaseMedia();
    void setPlaceholderLayer(int layer);
    // Puts the media into this region: its geometry, its layer and its times are the region's.
    void adjustMedia(document::Media* media);
    // The colour of a slot: slots of the same number share it across templates.
    static QColor orderColour(int order);
    QDialog* getOptionsDialog() const { return optionsDialog_; }
    QMenu* getShapeMenu() const { return shapeMenu_; }

signals:
    void mediaInserted(int order, int mediaId);

public slots:
    void addVideo();
    void addImage();
    void addText();
    void addShape();
    void addShapeOfType(int value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragMoveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragLeaveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    void createOptionsButtons();
    void createOptionsDialog();
    void createShapeMenu();
    void setOptionsConnections();
    // The scene of the canvas this item stands on, or null.
    document::Scene* canvasScene() const;
    document::Region* region() const;
    void addFile(Definitions::kMediaType type);
    // A media just made for this region: fills it and closes the buttons.
    void fill(document::Media* media);
    void paintIcons(QPainter* painter, const QRectF& rect);

    bool enable_ = true;
    QPushButton* videoButton_ = nullptr;
    QPushButton* imageButton_ = nullptr;
    QPushButton* textButton_ = nullptr;
    QPushButton* shapeButton_ = nullptr;
    int order_;
    int mediaId_ = -1;
    int lastMediaId_ = -1;
    int layer_ = 0;
    bool showIcons_ = true;
    bool dragging_ = false;
    QPointer<QDialog> optionsDialog_;
    QPointer<QMenu> shapeMenu_;
    QWidget* widget_;
    document::Document* document_;
};

} // namespace spatialview
} // namespace selvora

#endif
