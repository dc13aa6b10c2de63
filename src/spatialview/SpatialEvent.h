#ifndef SELVORA_SPATIALVIEW_SPATIALEVENT_H
#define SELVORA_SPATIALVIEW_SPATIALEVENT_H

#include "app/Definitions.h"

#include <QEvent>
#include <QRectF>

namespace selvora {
namespace spatialview {

// Tells the canvas (posted) or an item's children (sent) that an item's geometry changed. The
// view rebuilds its item key (id, (templateId, kind)) from it.
class SpatialEvent : public QEvent {
public:
    SpatialEvent(int id, Definitions::kSpatialResizingType kind, const QRectF& rect,
                 int templateId);

    static QEvent::Type spatialType();

    int getId() const { return id_; }
    Definitions::kSpatialResizingType getKind() const { return kind_; }
    QRectF getRect() const { return rect_; }
    int getTemplateId() const { return templateId_; }

private:
    int id_;
    Definitions::kSpatialResizingType kind_;
    QRectF rect_;
    int templateId_;
};

} // namespace spatialview
} // namespace selvora

#endif
