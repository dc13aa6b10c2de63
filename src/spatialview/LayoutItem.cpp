#include "spatialview/LayoutItem.h"

#include "document/Document.h"
#include "document/Region.h"
#include "document/Template.h"

namespace selvora {
namespace spatialview {

namespace {

using R = LayoutRegion;

const QVector<QVector<LayoutRegion>>& layoutTable() {
    static const QVector<QVector<LayoutRegion>> table = {
        // 1
        {R{2, 0.0333, 0.0333, 0.9334, 0.1667}, R{1, 0.0333, 0.25, 0.9334, 0.75}},
        // 2
        {R{1, 0.0333, 0, 0.9334, 0.75}, R{2, 0.0333, 0.8, 0.9334, 0.1667}},
        // 3
        {R{1, 0, 0, 1, 1}, R{8, 0.8666, 0.0333, 0.1, 0.1667}},
        // 4
        {R{1, 0, 0, 1, 1}, R{8, 0.8666, 0.8, 0.1, 0.1667}},
        // 5
        {R{4, 0.02, 0, 0.75, 0.125}, R{2, 0.78, 0, 0.22, 1}, R{3, 0.02, 0.145, 0.75, 0.7533},
         R{1, 0.6, 0.0667, 0.2857, 0.3333}, R{5, 0.02, 0.9167, 0.75, 0.0833}},
        // 6
        {R{4, 0.24, 0, 0.75, 0.125}, R{2, 0, 0, 0.22, 1}, R{3, 0.24, 0.145, 0.75, 0.7533},
         R{1, 0.1143, 0.0667, 0.2857, 0.3333}, R{5, 0.24, 0.9167, 0.75, 0.0833}},
        // 7
        {R{2, 0.0166, 0, 0.4834, 0.25}, R{1, 0.0166, 0.27, 0.4834, 0.73},
         R{3, 0.5166, 0, 0.4834, 1}},
        // 8
        {R{2, 0.5, 0, 0.4834, 0.25}, R{1, 0.5, 0.27, 0.4834, 0.73}, R{3, 0, 0, 0.4834, 1}},
        // 9
        {R{3, 0.4, 0, 0.6, 1}, R{1, 0, 0.05, 0.375, 0.4}, R{4, 0, 0.55, 0.375, 0.4},
         R{2, 0.425, 0.05, 0.575, 0.1}},
        // 10
        {R{3, 0, 0, 0.6, 1}, R{1, 0.625, 0.05, 0.375, 0.4}, R{4, 0.625, 0.55, 0.375, 0.4},
         R{2, 0.025, 0.05, 0.575, 0.1}},
        // 11
        {R{4, 0, 0, 1, 1}, R{1, 0.02, 0.1, 0.5, 0.5}, R{2, 0.5333, 0.0667, 0.45, 0.1428},
         R{3, 0.5333, 0.2428, 0.45, 0.5713}},
        // 12
        {R{4, 0, 0, 1, 1}, R{1, 0.48, 0.1, 0.5, 0.5}, R{6, 0.0167, 0.0667, 0.45, 0.1428},
         R{7, 0.0167, 0.2428, 0.45, 0.5713}},
        // 13
        {R{4, 0, 0, 1, 1}, R{1, 0.05, 0.125, 0.6166, 0.75}, R{5, 0.6166, 0.1111, 0.0909, 0.1667},
         R{6, 0.6166, 0.3011, 0.0909, 0.1667}, R{7, 0.6166, 0.4911, 0.0909, 0.1667},
         R{8, 0.6166, 0.6811, 0.0909, 0.1667}, R{9, 0.7087, 0.1111, 0.2913, 0.1667},
         R{10, 0.7087, 0.3011, 0.2913, 0.1667}, R{11, 0.7087, 0.4911, 0.2913, 0.1667},
         R{12, 0.7087, 0.6811, 0.2913, 0.1667}},
        // 14
        {R{4, 0, 0, 1, 1}, R{1, 0.3334, 0.125, 0.6166, 0.75}, R{5, 0.2925, 0.1111, 0.0909, 0.1667},
         R{6, 0.2925, 0.3011, 0.0909, 0.1667}, R{7, 0.2925, 0.4911, 0.0909, 0.1667},
         R{8, 0.2925, 0.6811, 0.0909, 0.1667}, R{9, 0, 0.1111, 0.2913, 0.1667},
         R{10, 0, 0.3011, 0.2913, 0.1667}, R{11, 0, 0.4911, 0.2913, 0.1667},
         R{12, 0, 0.6811, 0.2913, 0.1667}},
        // 15
        {R{4, 0, 0, 1, 1}, R{1, 0.05, 0.25, 0.45, 0.5333}, R{2, 0.525, 0.25, 0.475, 0.3},
         R{3, 0.525, 0.6167, 0.475, 0.1667}},
        // 16
        {R{4, 0, 0, 1, 1}, R{1, 0.05, 0.25, 0.45, 0.5333}},
        // 17
        {R{4, 0, 0, 1, 1}, R{1, 0.0666, 0, 0.8667, 0.1}, R{2, 0.0666, 0.15, 0.3667, 0.4},
         R{3, 0.5666, 0.55, 0.3667, 0.4}},
        // 18
        {R{4, 0, 0, 1, 1}, R{1, 0.0666, 0, 0.8667, 0.1}, R{2, 0.5666, 0.15, 0.3667, 0.4},
         R{3, 0.0666, 0.55, 0.3667, 0.4}},
    };
    return table;
}

} // namespace

const QVector<LayoutRegion>& LayoutItem::regions(Definitions::kLayoutType layoutType) {
    const auto& table = layoutTable();
    const int index = static_cast<int>(layoutType);
    return table.at(index >= 0 && index < table.size() ? index : 0);
}

LayoutItem::LayoutItem(document::Document* document, document::Template* layoutTemplate,
                       Definitions::kLayoutType layoutType)
    : document_(document), layoutTemplate_(layoutTemplate), layoutType_(layoutType) {
    if (!document_ || !layoutTemplate_)
        return;
    const double viewWidth = Definitions::getViewWidth();
    const double viewHeight = Definitions::getViewHeight();
    for (const LayoutRegion& slot : regions(layoutType_)) {
        document::Region* region = document_->createRegion(layoutTemplate_, -1);
        region->setLeftPx(slot.left * viewWidth, viewWidth);
        region->setTopPx(slot.top * viewHeight, viewHeight);
        region->setWidthPx(slot.width * viewWidth, viewWidth);
        region->setHeightPx(slot.height * viewHeight, viewHeight);
        region->setOrder(slot.order);
    }
}

} // namespace spatialview
} // namespace selvora
