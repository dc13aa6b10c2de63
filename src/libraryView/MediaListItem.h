#ifndef SELVORA_LIBRARYVIEW_MEDIALISTITEM_H
#define SELVORA_LIBRARYVIEW_MEDIALISTITEM_H

#include "libraryView/SceneMediaItem.h"

namespace selvora {
namespace libraryView {

// A row of the media list.
class MediaListItem : public SceneMediaItem {
public:
    using SceneMediaItem::SceneMediaItem;
};

} // namespace libraryView
} // namespace selvora

#endif
