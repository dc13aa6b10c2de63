#ifndef SELVORA_SPATIALVIEW_LAYOUTITEM_H
#define SELVORA_SPATIALVIEW_LAYOUTITEM_H

#include "app/Definitions.h"
#include "spatialview/LayoutRegion.h"

#include <QVector>

namespace selvora {
namespace document {
class Document;
class Template;
} // namespace document

namespace spatialview {

// Makes the regions of one of the eighteen standard layouts on a template. All its work is done
// by the constructor.
class LayoutItem {
public:
    LayoutItem(document::Document* document, document::Template* layoutTemplate,
               Definitions::kLayoutType layoutType);

    // The regions of a layout in the order they are created. The icons of the layouts are drawn
    // from this same table.
    static const QVector<LayoutRegion>& regions(Definitions::kLayoutType layoutType);

private:
    document::Document* document_;
    document::Template* layoutTemplate_;
    Definitions::kLayoutType layoutType_;
};

} // namespace spatialview
} // namespace selvora

#endif
