#include "spatialview/SpatialEvent.h"

namespace selvora {
namespace spatialview {

SpatialEvent::SpatialEvent(int id, Definitions::kSpatialResizingType kind, const QRectF& rect,
                           int templateId)
    : QEvent(spatialType()), id_(id), kind_(kind), rect_(rect), templateId_(templateId) {}

QEvent::Type SpatialEvent::spatialType() {
    return static_cast<QEvent::Type>(Definitions::getSpatialEventType());
}

} // namespace spatialview
} // namespace selvora
