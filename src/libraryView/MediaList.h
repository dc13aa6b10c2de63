#ifndef SELVORA_LIBRARYVIEW_MEDIALIST_H
#define SELVORA_LIBRARYVIEW_MEDIALIST_H

#include "libraryView/SceneMediaList.h"

namespace selvora {
namespace libraryView {

// Every media of the current scene, active now or not; a row can be duplicated, and dragged
// onto the canvas as a new media with the same look.
class MediaList : public SceneMediaList {
    Q_OBJECT
public:
    MediaList(document::Document* document, QWidget* parent);

    QMimeData* dragData(SceneMediaItem* item) const override;

public slots:
    void clearMediaList();
    void addItem(selvora::document::Media* media, bool reorder) override;
    void contextDuplicateMedia();

protected:
    void load() override;
    Qt::DropActions dragActions() const override { return Qt::CopyAction | Qt::MoveAction; }
};

} // namespace libraryView
} // namespace selvora

#endif
