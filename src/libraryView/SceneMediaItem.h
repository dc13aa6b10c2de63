#ifndef SELVORA_LIBRARYVIEW_SCENEMEDIAITEM_H
#define SELVORA_LIBRARYVIEW_SCENEMEDIAITEM_H

#include <QListWidgetItem>
#include <QPixmap>
#include <QPointer>
#include <QVariant>

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
    // The preview, made on first use.
    QPixmap getToolTipItem() const;
    // The tool-tip is the preview, encoded when asked for.
    QVariant data(int role) const override;
    // The media, or null when it is gone from the scene.
    document::Media* getMedia() const;

    void loadPixmap();

private:
    QString source_; // the picture of the icon and of the preview
    mutable QPixmap toolTipItem_;
    mutable bool previewMade_ = false;
    int id_;
    QPointer<document::Scene> scene_;
};

} // namespace libraryView
} // namespace selvora

#endif
