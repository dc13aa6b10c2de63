#ifndef SELVORA_LIBRARYVIEW_SCENEMEDIAITEM_H
#define SELVORA_LIBRARYVIEW_SCENEMEDIAITEM_H

#include <QListWidgetItem>
#include <QPixmap>
#include <QPointer>

namespace selvora {
namespace document {
class Media;
class Scene;
} // namespace document

namespace libraryView {

// A media of the current scene as a row: its label, editable in place, and its picture.
class SceneMediaItem : public QListWidgetItem {
public:
    SceneMediaItem(document::Media* media, document::Scene* scene);

    int getId() const { return id_; }
    document::Scene* getScene() const { return scene_; }
    QPixmap getToolTipItem() const { return toolTipItem_; }
    // The media, or null when it is gone from the scene.
    document::Media* getMedia() const;

    void loadPixmap();

private:
    QPixmap toolTipItem_;
    int id_;
    QPointer<document::Scene> scene_;
};

} // namespace libraryView
} // namespace selvora

#endif
