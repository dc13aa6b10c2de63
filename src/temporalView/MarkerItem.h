#ifndef SELVORA_TEMPORALVIEW_MARKERITEM_H
#define SELVORA_TEMPORALVIEW_MARKERITEM_H

#include "app/Definitions.h"

#include <QColor>
#include <QGraphicsItem>
#include <QList>
#include <QObject>
#include <QPainterPath>
#include <QPointer>
#include <QRectF>

class QGraphicsScene;
class QTimer;

namespace selvora {
namespace document {
class Document;
class Scene;
class Sync;
} // namespace document

// One sync on the time bar: a small picture of its kind, placed by time. A click seeks the
// scene to it; a drag moves the sync in time, within its neighbours of the same target.
class MarkerItem : public QObject, public QGraphicsItem {
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
public:
    MarkerItem(document::Sync* sync, int y, document::Scene* scene, QGraphicsScene* graphicsScene,
               document::Document* document, QGraphicsItem* parent = nullptr);

    int getId() const { return id_; }
    int getTime() const { return time_; }
    QRectF getRect() const { return rect_; }
    // Null once the sync is gone.
    document::Sync* getSync() const { return sync_; }
    Definitions::kSyncType getMarkerType() const { return markerType_; }

    QRectF boundingRect() const override { return rect_; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    void initRect();
    void setMarkerBounds(const QList<document::Sync*>& syncs);
    void setMarkerToolTip(Definitions::kSyncType type);
    void updateColorMarker(Definitions::kSyncType type);
    void updateTime();
    void updateTotalTime(int time) { time_ = time; }

    // Taken off the bar for good: freed now, or after the click it still owes its view.
    void retire();

    static QPainterPath markerSquareShape(const QRect& rect, bool shadow);
    static QPainterPath markerEllipseShape(const QRect& rect, bool shadow);
    static QPainterPath markerStartShape(const QRect& rect, bool shadow);
    static QPainterPath markerDiamondShape(const QRect& rect, bool shadow);

public slots:
    void mouseClick();

signals:
    void markerPressed(int time);
    void contextMenuRequested(selvora::MarkerItem* marker);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    double barWidth() const;
    double pixelOf(double time) const;

    int id_;
    int y_;
    int time_;
    int totalTime_;
    QColor mainColor_;
    QColor outlineColor_;
    double minTime_ = 0;
    double maxTime_ = 0;
    double moved_ = 0;
    double minX_ = 0;
    double maxX_ = 0;
    QRectF rect_;
    QTimer* timer_;
    QGraphicsScene* graphicsScene_;
    document::Document* document_;
    // Guarded: the model may delete either while the marker waits to be freed.
    QPointer<document::Scene> scene_;
    QPointer<document::Sync> sync_;
    Definitions::kSyncType markerType_;
    bool retired_ = false;
};

} // namespace selvora

#endif
