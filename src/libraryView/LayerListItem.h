#ifndef SELVORA_LIBRARYVIEW_LAYERLISTITEM_H
#define SELVORA_LIBRARYVIEW_LAYERLISTITEM_H

#include "libraryView/SceneMediaItem.h"

namespace selvora {
namespace libraryView {

// A row of the layer list.
class LayerListItem : public SceneMediaItem {
public:
    using SceneMediaItem::SceneMediaItem;
};

} // namespace libraryView
} // namespace selvora

#endif
